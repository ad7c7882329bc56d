#pragma once

#include <string>

namespace skerrow {

// A file name without the characters that file systems keep for themselves; "-" stands for each.
std::string SafeFileName(std::string name);

}  // namespace skerrow
