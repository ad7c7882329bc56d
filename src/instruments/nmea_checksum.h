#pragma once

#include <string>
#include <string_view>

namespace skerrow {

// The checksum of an NMEA 0183 sentence: the exclusive OR of all characters of `text`, which is
// what stands between "$" or "!" and "*", as two upper-case hexadecimal digits.
std::string NmeaChecksum(std::string_view text);

}  // namespace skerrow
