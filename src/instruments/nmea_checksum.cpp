#include "instruments/nmea_checksum.h"

namespace skerrow {

std::string NmeaChecksum(std::string_view text) {
  unsigned sum = 0;
  for (const char c : text) sum ^= static_cast<unsigned char>(c);
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  return {kDigits[sum >> 4], kDigits[sum & 15]};
}

}  // namespace skerrow
