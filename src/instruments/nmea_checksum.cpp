#include "instruments/nmea_checksum.h"

namespace skerrow {

std::string NmeaChecksum(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  unsigned sum = 0;
  for (const char c : text) sum ^= static_cast<unsigned char>(c);
  return {kDigits[sum >> 4], kDigits[sum & 15]};
}

}  // namespace skerrow
