#include "instruments/nmea.h"

#include <gtest/gtest.h>
#include <random>

#include "instruments/nmea_checksum.h"
#include "instruments/nmea_sentences.h"

namespace skerrow {
namespace {

using testing::GpsSentence;
using testing::KeptAis;
using testing::RmcAt;
using testing::StillClock;

// Published examples of the sentences.
constexpr const char* kRmc = "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A";
constexpr const char* kGll = "$GPGLL,4916.45,N,12311.12,W,225444,A,*1D";
constexpr const char* kRmb = "$GPRMB,A,0.66,L,003,004,4917.24,N,12309.57,W,001.3,052.5,000.5,V*20";
constexpr const char* kAis = "!AIVDM,1,1,,B,177KQJ5000G?tO`K>RA1wUbN0TKH,0*5C";

class Nmea : public ::testing::Test {
 protected:
  void Decode(const std::string& sentence) { DecodeGpsSentence(state_, sentence, clock_); }
  void Gps(const std::string& block) { AssembleGpsBlock(state_, block, clock_); }
  void Ais(const std::string& block, bool gps_passes = false) {
    AssembleAisBlock(state_, block, {sink_, clock_, gps_passes});
  }
  const GpsFix& fix() const { return state_.fix; }

  NmeaState state_;
  StillClock clock_;
  KeptAis sink_;
};

TEST_F(Nmea, ChecksumIsTwoUpperCaseDigits) {
  EXPECT_EQ(NmeaChecksum(""), "00");
  EXPECT_EQ(NmeaChecksum("\n"), "0A");
  EXPECT_EQ(NmeaChecksum("\xFF"), "FF");
  for (const char* published : {kRmc, kGll, kRmb, kAis}) EXPECT_TRUE(ChecksumGood(published));
  EXPECT_FALSE(
      ChecksumGood("$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6a"));
  for (const char* none : {"", "$", "*", "$*", "$*0", "$A*4", "A"})
    EXPECT_FALSE(ChecksumGood(none));
  EXPECT_TRUE(ChecksumGood("$*00"));
}

TEST_F(Nmea, GoodRmcSetsTheFix) {
  Decode(kRmc);
  EXPECT_TRUE(fix().position_good);
  EXPECT_TRUE(fix().rmc_seen);
  EXPECT_EQ(fix().boat_latitude, static_cast<float>(48.0 + 7.038 / 60.0));
  EXPECT_EQ(fix().boat_longitude, static_cast<float>(11.0 + 31.0 / 60.0));
  EXPECT_EQ(fix().speed_over_ground, 22.4F);
  EXPECT_EQ(fix().course_over_ground, 84.4F);
  EXPECT_EQ(fix().fix_time, "123519");
  EXPECT_EQ(fix().fix_date, "230394");
  EXPECT_EQ(fix().position_text, "48.07.038N  011.31.000E");
  EXPECT_EQ(fix().course_speed_text, "Heading 084.4°T @ 022.4 Kn");
  const Rmc rmc = ParseRmc(kRmc);
  EXPECT_EQ(rmc.variation, "003.1");
  EXPECT_EQ(rmc.variation_side, "W");
  EXPECT_EQ(ParseRmc(std::string(kRmc).replace(8, 1, "9")).state, SentenceState::kBad);
}

TEST_F(Nmea, FirstGoodFixBeginsTheTrackAndLaterOnesUpdateItsEnd) {
  Decode(GpsSentence("GPRMC,235958.50,A,5030.2512,S,00120.25123,W,,,051226,,"));
  ASSERT_EQ(state_.track.size(), 1U);
  EXPECT_EQ(state_.track[0], (GpsTrackPoint{.latitude = static_cast<float>(-50.0 - 30.2512 / 60.0),
                                            .longitude = static_cast<float>(-1.0 - 20.2512 / 60.0),
                                            .hour = 23,
                                            .minute = 59,
                                            .second = 58}));  // 58.5, half to even
  EXPECT_EQ(fix().position_text, "50.30.2512S  001.20.2512W");
  EXPECT_EQ(fix().course_speed_text, "Heading °T @  Kn");
  EXPECT_EQ(fix().speed_over_ground, 0.0F);
  state_.track.push_back({});
  Decode(RmcAt("000001"));
  EXPECT_EQ(fix().position_text, "50.30.2500N  001.20.250W");  // seven characters of minutes
  ASSERT_EQ(state_.track.size(), 2U);
  EXPECT_EQ(state_.track[0].speed, 0.0F);
  EXPECT_EQ(state_.track[1].speed, 5.2F);
  EXPECT_EQ(state_.track[1].course, 271.5F);
  EXPECT_EQ(state_.track[1].latitude, 0.0F);
}

// Void, short and impossible places: the boat moves and nothing trusts it.
TEST_F(Nmea, WarningMovesTheBoatAndIsNoFix) {
  const struct {
    const char* body;
    const char* position_text;
    float latitude, longitude;
  } rows[] = {
      {"GPRMC,1200,V,5030.250,N,00120.250,E,1.5,090,051226,,", "50.30.250N  001.20.250E",
       50.504166F, 1.3375F},
      {"GPRMC,1200,A,5030.25,N,00120.250,E,1.5,090,051226,,", "0.0N  001.20.250E", 0.0F, 1.3375F},
      {"GPRMC,1200,A,5030.250,N,00120.25,E,1.5,090,051226,,", "50.30.250N  0.0E", 50.504166F, 0.0F},
      {"GPRMC,1200,,5030.250,,00120.250,,1.5,090,051226,,", "50.30.250  001.20.250", 50.504166F,
       1.3375F},
      {"GPRMC,1200,A,9030.250,N,18120.250,E,1.5,090,051226,,", "0.0N  0.0E", 0.0F, 0.0F},
      {"GPRMC,1200,A,501e9999,N,00120.250,E,1.5,090,051226,,", "0.0N  001.20.250E", 0.0F, 1.3375F},
  };
  for (const auto& row : rows) {
    state_ = NmeaState();
    Decode(RmcAt("063020"));
    const GpsTrack track = state_.track;
    Decode(GpsSentence(row.body));
    EXPECT_FALSE(fix().position_good) << row.body;
    EXPECT_EQ(fix().position_text, row.position_text) << row.body;
    EXPECT_EQ(fix().boat_latitude, row.latitude) << row.body;
    EXPECT_EQ(fix().boat_longitude, row.longitude) << row.body;
    EXPECT_EQ(fix().speed_over_ground, 1.5F);
    EXPECT_EQ(fix().course_speed_text, "Heading090°T @ 1.5 Kn");
    EXPECT_EQ(fix().fix_time, "063020");
    EXPECT_EQ(state_.track, track);
  }
  Decode(GpsSentence("GPRMC"));  // fields that are missing are empty
  EXPECT_EQ(fix().position_text, "0.0  0.0");
}

TEST_F(Nmea, GllCountsUntilTheFirstRmc) {
  Decode(kGll);
  EXPECT_TRUE(fix().position_good);
  EXPECT_EQ(fix().boat_latitude, static_cast<float>(49.0 + 16.45 / 60.0));
  EXPECT_EQ(fix().boat_longitude, static_cast<float>(-123.0 - 11.12 / 60.0));
  EXPECT_EQ(fix().fix_time, "225444");
  EXPECT_EQ(fix().fix_date, "051226");  // the clock's
  EXPECT_EQ(fix().position_text, "");
  ASSERT_EQ(state_.track.size(), 1U);
  EXPECT_EQ(state_.track[0].second, 44);
  const GpsFix before = fix();
  for (const char* body :
       {"GPGLL,4916.45,N,12311.12,W,225445,V", "GPGLL,4916.4,N,12311.12,W,225445,A",
        "GPGLL,4916.45,N,123.12,W,225445,A", "GPGLL"}) {
    Decode(GpsSentence(body));
    EXPECT_EQ(fix(), before) << body;
  }
  const Gll cut = ParseGll(GpsSentence("GPGLL,4916.456789,N,12311.123456,W,225444,A"));
  EXPECT_EQ(cut.latitude_text, "49.16.456N");
  EXPECT_EQ(cut.longitude_text, "123.11.123W");
  EXPECT_EQ(cut.latitude, static_cast<float>(49.0 + 16.456 / 60.0));
  Decode(GpsSentence("GPRMC,,V,,,,,,,,,,N"));
  Decode(kGll);
  EXPECT_FALSE(fix().position_good);
  EXPECT_EQ(fix().boat_latitude, 0.0F);
}

TEST_F(Nmea, RmbTellsTheWaypoint) {
  Decode(kRmb);
  EXPECT_EQ(fix().waypoint_text, "Waypt (004) 001.3M@052.5°T");
  EXPECT_TRUE(fix().has_active_waypoint);
  EXPECT_EQ(state_.destination.cross_track, "0.66");
  EXPECT_EQ(state_.destination.steer, "L");
  EXPECT_EQ(state_.destination.latitude_text, "49°17.24N");
  EXPECT_EQ(state_.destination.longitude_text, "123°09.57W");
  Decode(GpsSentence("GPRMB,A,,R,,NEEDLES,,,,,,,,"));
  EXPECT_EQ(fix().waypoint_text, "Waypt (NEEDLE) 0.0M@0.0°T");
  EXPECT_EQ(state_.destination.name, "NEEDLES");
  Decode(GpsSentence("GPRMB,A,,,,,,,,,,,,"));
  EXPECT_EQ(fix().waypoint_text, "");
  EXPECT_TRUE(fix().has_active_waypoint);  // for good

  state_ = NmeaState();
  Decode(GpsSentence("GPRMB,A,,,,X,501,N,,,,,,"));  // "50°1N"
  EXPECT_FALSE(fix().has_active_waypoint);
  Decode(GpsSentence("GPRMB,A,,,,X,5012,N,,,,,,"));  // "50°12N"
  EXPECT_TRUE(fix().has_active_waypoint);
}

TEST_F(Nmea, WhatIsNotWholeChangesNothing) {
  const std::string rmc = kRmc;
  const std::string rows[] = {"", "*", "$GPRMC", GpsSentence("GPRMC,1", '!'),
                              rmc.substr(0, rmc.size() - 1), rmc.substr(0, rmc.size() - 1) + "a",
                              rmc.substr(0, rmc.size() - 3), kAis,
                              // A comment that speaks of the receiver.
                              GpsSentence("PSKLOG,6,2,no RMC GLL RMB")};
  for (const std::string& row : rows) {
    Decode(row);
    EXPECT_EQ(fix(), GpsFix()) << row;
  }
}

TEST_F(Nmea, GpsPortJoinsBlocksWhereverTheyAreCut) {
  const std::string text = std::string("noise\r\n") + kRmc + "\r\n" + kAis + "\r\n" +
                           RmcAt("063020") + "\r\n" + kRmb + "\r\n" + RmcAt("063021") + "\r\n$GPR";
  NmeaState whole;
  AssembleGpsBlock(whole, text, clock_);
  EXPECT_EQ(whole.fix.fix_time, "063021");
  EXPECT_EQ(whole.gps_line, "$GPR");
  EXPECT_EQ(whole.raw_text.substr(0, 72), std::string(kRmc) + "\r\r\n$");
  for (std::size_t size = 1; size < text.size(); ++size) {
    state_ = NmeaState();
    for (std::size_t at = 0; at < text.size(); at += size) Gps(text.substr(at, size));
    EXPECT_EQ(fix(), whole.fix) << size;
    EXPECT_EQ(state_.gps_line, "$GPR");
  }
  // A new start inside a sentence is part of it: both are lost, and the next is whole again.
  state_ = NmeaState();
  Gps("$GPRMC,12" + std::string(kRmc) + "\r");
  EXPECT_EQ(fix(), GpsFix());
  Gps(kRmc);
  Gps("\r");
  EXPECT_TRUE(fix().position_good);
}

TEST_F(Nmea, AisPortLosesWhatABlockCuts) {
  const std::string line = std::string(kAis) + "\r\n";
  Ais(line + line);
  EXPECT_EQ(sink_.sentences, (std::vector<std::string>{kAis, kAis}));
  sink_.sentences.clear();
  Ais(line.substr(0, 20));
  EXPECT_EQ(state_.ais_line, line.substr(0, 20));
  Ais(line.substr(20) + line);
  ASSERT_EQ(sink_.sentences.size(), 1U);  // one merged line
  EXPECT_EQ(sink_.sentences[0], line.substr(0, 20) + kAis);
  Ais(line);
  EXPECT_EQ(sink_.sentences.back(), kAis);
  EXPECT_EQ(state_.ais_line, "");
  // Shorter than any message; and a GPS sentence only where it is let through.
  sink_.sentences.clear();
  Ais("!AIVDM,1,1,,B,5*0C\r" + std::string(kRmc) + "\r");
  EXPECT_TRUE(sink_.sentences.empty());
  EXPECT_EQ(fix(), GpsFix());
  Ais(std::string(kRmc) + "\r", true);
  EXPECT_TRUE(fix().position_good);
}

TEST_F(Nmea, EachKindIsLoggedOnceInAnInterval) {
  state_.log.logging_on = true;
  std::vector<std::string> kinds;
  for (const char* kind : {"RMC", "RME", "GSA", "GLL", "WPL", "RMB", "DBT", "HDG", "MVW"}) {
    kinds.push_back(std::string("$XX") + kind + ",1*00");  // whatever the checksum
  }
  for (const std::string& kind : kinds) Gps(kind + "\r" + kind + "\r");
  Gps("$XXVTG,1*00\r$XXRMC*00\r$XXDBT,1\r");
  EXPECT_EQ(state_.log.queue, kinds);
  ClearSeenKinds(state_.log);
  state_.log.queue.clear();
  for (const std::string& kind : kinds) Ais(kind + "\r");
  Ais(std::string(kAis) + "\r" + kAis + "\r" + std::string(kAis).replace(15, 1, "8") + "\r");
  EXPECT_EQ(state_.log.queue, (std::vector<std::string>{kinds[0], kinds[3], kinds[4], kinds[6],
                                                        kinds[7], kinds[8], kAis, kAis}));
  state_.log.logging_on = false;
  ClearSeenKinds(state_.log);
  Gps(kinds[0] + "\r");
  Ais(std::string(kAis) + "\r");
  EXPECT_EQ(state_.log.queue.size(), 8U);
}

TEST_F(Nmea, LongLinesAreBounded) {
  const std::string blanks(3000, ' ');
  Gps(std::string(kRmc) + blanks);  // longer than any block, and its beginning counts
  Gps("\r");
  EXPECT_TRUE(fix().position_good);
  for (int i = 0; i < 100; ++i) {
    Gps("$" + std::string(1000, 'x'));
    Ais("!" + std::string(1000, 'x'));
  }
  EXPECT_EQ(state_.gps_line.size(), kMostSentence);
  EXPECT_EQ(state_.ais_line.size(), kMostSentence);
  EXPECT_EQ(state_.overflowed, 2 * (100100 - kMostSentence));
  Gps("\r" + std::string(kRmb) + "\r");
  Ais("!\r" + std::string(kAis) + "\r");
  EXPECT_TRUE(fix().has_active_waypoint);
  EXPECT_EQ(sink_.sentences.back(), kAis);
}

}  // namespace
}  // namespace skerrow
