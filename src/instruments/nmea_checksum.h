#pragma once

#include <string>
#include <string_view>

namespace skerrow {

// The checksum of an NMEA 0183 sentence: the exclusive OR of the bytes of `text`, which stands
// between the "$" or "!" and the "*", as two upper-case hexadecimal digits. "" gives "00".
std::string NmeaChecksum(std::string_view text);

}  // namespace skerrow
