#include "exchange/xml_text.h"

namespace skerrow {

std::string EscapeXml(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        // XML knows no other control characters.
        if (static_cast<unsigned char>(c) >= ' ' || c == '\t' || c == '\n') escaped += c;
    }
  }
  return escaped;
}

}  // namespace skerrow
