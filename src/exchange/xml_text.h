#pragma once

#include <string>
#include <string_view>

namespace skerrow {

// A text as the content of an XML element or a quoted attribute; control characters that XML does
// not know are left out.
std::string EscapeXml(std::string_view text);

}  // namespace skerrow
