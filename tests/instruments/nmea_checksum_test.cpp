#include "instruments/nmea_checksum.h"

#include <gtest/gtest.h>

namespace skerrow {
namespace {

TEST(NmeaChecksum, OfSentencesOfTheField) {
  // The Magellan hand-shake as its makers publish it, and sentences whose sums were taken by hand.
  EXPECT_EQ(NmeaChecksum("PMGNCMD,HANDON"), "70");
  EXPECT_EQ(NmeaChecksum(""), "00");
  EXPECT_EQ(NmeaChecksum("A"), "41");
  EXPECT_EQ(NmeaChecksum("AK"), "0A");        // 0x41 ^ 0x4B: one digit gets its "0"
  EXPECT_EQ(NmeaChecksum("\xC0\x6F"), "AF");  // letters in upper case, bytes above 127
  EXPECT_EQ(NmeaChecksum(std::string_view("\0M", 2)), "4D");
}

}  // namespace
}  // namespace skerrow
