#include "core/csv.h"

#include "core/text.h"

namespace skerrow {

std::string CsvField(std::string_view text) {
  const bool blanks = !text.empty() && (text.front() == ' ' || text.back() == ' ');
  if (!blanks && text.find_first_of("\",;\t\r\n") == std::string_view::npos) {
    return std::string(text);
  }
  return "\"" + ReplaceAll(std::string(text), "\"", "\"\"") + "\"";
}

}  // namespace skerrow
