#pragma once

#include <span>
#include <string_view>

#include "core/version.h"

namespace skerrow {

// The caption of the start form.
inline constexpr std::string_view kStartCaption = "Skerrow Helm (v6.0.0.1)";
static_assert(kStartCaption.find(kVersion) != std::string_view::npos);

// The paragraphs of the start form.
std::span<const std::string_view> DisclaimerLines();

}  // namespace skerrow
