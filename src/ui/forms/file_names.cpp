#include "ui/forms/file_names.h"

#include <string_view>

namespace skerrow {

std::string SafeFileName(std::string name) {
  for (char& letter : name) {
    const bool control = static_cast<unsigned char>(letter) < 0x20;
    if (control || std::string_view("/\\:*?\"<>|").find(letter) != std::string_view::npos) {
      letter = '-';
    }
  }
  return name;
}

}  // namespace skerrow
