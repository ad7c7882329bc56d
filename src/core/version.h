#pragma once

#include <string_view>

namespace skerrow {

// The program's version, as the start form and --version tell it.
inline constexpr std::string_view kVersion = "6.0.0.1";

}  // namespace skerrow
