#pragma once

#include <string>
#include <string_view>

namespace skerrow {

// A field of a comma-separated line (RFC 4180): in quotation marks where it could be taken for
// something else, as one with a comma, a semicolon, a tab, a line break or a blank at an end.
std::string CsvField(std::string_view text);

}  // namespace skerrow
