#include "instruments/ais_targets.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "instruments/ais_alarm.h"
#include "instruments/ais_shapes.h"

namespace skerrow {
namespace {

constexpr AisShown kNone{};

AisPositionReport Report(std::int32_t mmsi, float latitude = 50.0F, float longitude = -1.0F,
                         float speed = 12.0F, float course = 90.0F, std::int16_t type = 1) {
  return {type, mmsi, Position{latitude, longitude}, course, speed, 0};
}

float Clock(int hour, int minute, int second = 0) {
  return AisHours({2026, 12, 5, hour, minute, second});
}

AisStaticReport Texts(std::int32_t mmsi) {
  return {mmsi,          "MAB@@",        " SEA @CAT@@ ",  "Sailing",
          "LE HAVRE@@@", "28 x 9 x 2.1", "05/Dec @ 14:07"};
}

std::vector<std::int32_t> Mmsis(const AisTargets& targets) {
  std::vector<std::int32_t> list;
  for (const AisTarget& target : targets.All()) list.push_back(target.mmsi);
  return list;
}

TEST(AisTargets, ATargetIsBornWithItsFirstPosition) {
  AisTargets targets;
  targets.UpdateAisStatic(Texts(7), false, 12.0F);
  EXPECT_FALSE(targets.IsKnownTarget(7));
  targets.UpdateAisPosition(Report(7), {true, false, true, false}, 12.0F);
  ASSERT_TRUE(targets.IsKnownTarget(7));
  const AisTarget& target = *targets.Find(7);
  EXPECT_EQ(target.vessel_name, " ");
  EXPECT_EQ(target.callsign, " ");
  EXPECT_EQ(target.destination, "Not Received");
  EXPECT_EQ(target.dimensions, "Not Received");
  EXPECT_EQ(target.ship_type, "0");
  EXPECT_EQ(target.eta, "");
  EXPECT_EQ(target.cpa, 0.0F);
  EXPECT_TRUE(target.alive && target.show_details && target.show_predicted);
  EXPECT_FALSE(target.show_history || target.show_heading_vector);
  for (const TimedPosition& point : target.history) {
    EXPECT_EQ(point.latitude, 50.0F);
    EXPECT_EQ(point.longitude, -1.0F);
    EXPECT_EQ(point.time, 12.0F);
  }
  // A mile in 5 minutes.
  for (int k = 0; k < 6; ++k) {
    const TimedPosition& point = target.predicted[static_cast<std::size_t>(k)];
    EXPECT_NEAR(point.longitude, -1 + (k + 1) / std::cos(50 * 3.14159265 / 180) / 60, 1e-6);
    EXPECT_NEAR(point.time, 12 + (k + 1) / 12.0, 1e-6);
  }
}

TEST(AisTargets, HistoryAndPredictionMoveByTheClock) {
  AisTargets targets;
  targets.UpdateAisPosition(Report(7, 50.0F), kNone, Clock(12, 0));
  targets.UpdateAisPosition(Report(7, 50.1F, -1.0F, 6.0F, 0.0F), kNone, Clock(12, 0, 29));
  const AisTarget& target = *targets.Find(7);
  // Within half a minute all but the prediction.
  EXPECT_EQ(target.latitude, 50.1F);
  EXPECT_EQ(target.speed_over_ground, 6.0F);
  EXPECT_EQ(target.course_over_ground, 0.0F);
  EXPECT_EQ(target.last_heard, Clock(12, 0, 29));
  EXPECT_EQ(target.predicted[0].latitude, target.predicted[5].latitude);
  targets.UpdateAisPosition(Report(7, 50.1F, -1.0F, 6.0F, 0.0F), kNone, Clock(12, 0, 31));
  EXPECT_NEAR(target.predicted[0].latitude, 50.1 + 0.5 / 60, 1e-5);
  EXPECT_NEAR(target.predicted[5].latitude, 50.15, 1e-5);
  EXPECT_NEAR(target.predicted[5].time, 12.5 + 31 / 3600.0, 1e-5);
  // After five minutes the history moves, and the prediction stays in that report.
  targets.UpdateAisPosition(Report(7, 50.2F), kNone, Clock(12, 5, 1));
  EXPECT_EQ(target.history[0].latitude, 50.2F);
  EXPECT_EQ(target.history[0].time, Clock(12, 5, 1));
  EXPECT_EQ(target.history[1].latitude, 50.0F);
  EXPECT_NEAR(target.predicted[5].latitude, 50.15, 1e-5);
  for (int i = 1; i <= 8; ++i) {
    targets.UpdateAisPosition(Report(7, 50.2F + static_cast<float>(i)), kNone,
                              Clock(12, 5 + 6 * i, 1));
  }
  EXPECT_EQ(target.history[0].latitude, 58.2F);
  EXPECT_EQ(target.history[5].latitude, 53.2F);
}

TEST(AisTargets, MidnightStopsTheHistoryUntilTheClockHasPassedIt) {
  AisTargets targets;
  targets.UpdateAisPosition(Report(7), kNone, Clock(23, 59));
  EXPECT_NEAR(targets.Find(7)->predicted[0].time, 4 / 60.0, 1e-5);
  targets.UpdateAisPosition(Report(8), kNone, Clock(23, 58));
  targets.UpdateAisPosition(Report(7, 51.0F), kNone, Clock(0, 1));
  const AisTarget& target = *targets.Find(7);
  EXPECT_EQ(target.latitude, 51.0F);
  EXPECT_EQ(target.last_heard, Clock(0, 1));
  EXPECT_EQ(target.history[0].latitude, 50.0F);
  EXPECT_EQ(target.history[0].time, Clock(23, 59));
  // The one that fell silent before midnight stays.
  targets.UpdateAisPosition(Report(7, 51.0F), kNone, Clock(12, 0));
  EXPECT_TRUE(targets.IsKnownTarget(8));
}

TEST(AisTargets, SilentOnesLeaveInOrder) {
  AisTargets targets;
  for (const std::int32_t mmsi : {5, 3, 9, 1}) {
    targets.UpdateAisPosition(Report(mmsi), kNone, Clock(12, 0));
  }
  targets.UpdateAisPosition(Report(3), kNone, Clock(12, 10));
  targets.UpdateAisPosition(Report(9), kNone, Clock(12, 19, 59));  // 0.33306 hours
  EXPECT_EQ(Mmsis(targets), (std::vector<std::int32_t>{5, 3, 9, 1}));
  targets.UpdateAisPosition(Report(2), kNone, Clock(12, 20));  // 0.33333 hours
  EXPECT_EQ(Mmsis(targets), (std::vector<std::int32_t>{3, 9, 2}));
  EXPECT_FALSE(targets.IsKnownTarget(5));
  EXPECT_EQ(targets.Find(9)->mmsi, 9);
  EXPECT_EQ(targets.Find(2)->mmsi, 2);
  // Exactly 0.3333 hours is not more than it.
  AisTargets exact;
  exact.UpdateAisPosition(Report(1), kNone, 0.0F);
  exact.UpdateAisPosition(Report(2), kNone, static_cast<float>(0.3333) - 1e-6F);
  EXPECT_TRUE(exact.IsKnownTarget(1));
}

// The published form: every report walks the table twice and builds it anew.
class PlainTargets {
 public:
  void Update(std::int32_t mmsi, float now) {
    auto found = std::find_if(rows_.rbegin(), rows_.rend(),
                              [&](const Row& row) { return row.mmsi == mmsi; });
    if (found == rows_.rend()) {
      rows_.push_back({mmsi, now});
    } else {
      found->heard = now;
    }
    std::erase_if(rows_, [&](const Row& row) { return now > row.heard + 0.3333; });
  }
  std::vector<std::int32_t> Mmsis() const {
    std::vector<std::int32_t> list;
    for (const Row& row : rows_) list.push_back(row.mmsi);
    return list;
  }

 private:
  struct Row {
    std::int32_t mmsi;
    float heard;
  };
  std::vector<Row> rows_;
};

TEST(AisTargets, TheSameTableAsByWalkAndRebuild) {
  std::mt19937 random(8);
  AisTargets targets;
  PlainTargets plain;
  double clock = 22.0;
  for (int i = 0; i < 20000; ++i) {
    // Over several midnights, with lulls.
    clock += (random() % 400 == 0 ? 0.3 : 0.0) + static_cast<double>(random() % 20) / 3600;
    if (clock >= 24) clock -= 24;
    const auto mmsi =
        static_cast<std::int32_t>(random() % 60 < 50 ? random() % 40 : random() % 4000);
    const auto now = static_cast<float>(clock);
    targets.UpdateAisPosition(Report(mmsi), kNone, now);
    plain.Update(mmsi, now);
    ASSERT_EQ(Mmsis(targets), plain.Mmsis()) << i;
    for (const AisTarget& target : targets.All()) {
      ASSERT_EQ(targets.Find(target.mmsi), &target);
    }
  }
}

TEST(AisTargets, AFloodOfFalseIdentitiesIsBounded) {
  AisTargets targets;
  for (std::int32_t mmsi = 0; mmsi < 40000; ++mmsi) {
    targets.UpdateAisPosition(Report(mmsi), kNone, 12.0F);
    targets.UpdateAisStatic(Texts(1000000 + mmsi), true, 12.0F);
  }
  EXPECT_EQ(targets.All().size(), 32767U);
  targets.UpdateAisPosition(Report(1, 51.0F), kNone, 12.1F);
  EXPECT_EQ(targets.Find(1)->latitude, 51.0F);
}

TEST(AisTargets, StaticTexts) {
  AisTargets targets;
  targets.UpdateAisPosition(Report(7), kNone, 12.0F);
  targets.UpdateAisStatic(Texts(7), false, 12.0F);
  const AisTarget& target = *targets.Find(7);
  EXPECT_EQ(target.callsign, "MAB");
  EXPECT_EQ(target.vessel_name, "SEA CAT");
  EXPECT_EQ(target.destination, "LE HAVRE");
  EXPECT_EQ(target.dimensions, "28 x 9 x 2.1");
  EXPECT_EQ(target.ship_type, "Sailing");
  EXPECT_EQ(target.eta, "05/Dec @ 14:07");
  targets.UpdateAisStatic({7, "@@@@@@@", std::string(20, '@'), "", "@", "", ""}, false, 12.0F);
  EXPECT_EQ(target.vessel_name, "");
  EXPECT_EQ(target.callsign, "");

  targets.UpdateAisClassBStatic({7, 0, "no", " TERN@ ", "no", "no"}, false, 12.0F);
  EXPECT_EQ(target.vessel_name, "TERN");
  EXPECT_EQ(target.callsign, "");
  targets.UpdateAisClassBStatic({7, 1, "MXY@", "no", "", "7 x 2"}, false, 12.0F);
  EXPECT_EQ(target.vessel_name, "TERN");
  EXPECT_EQ(target.callsign, "MXY");
  EXPECT_EQ(target.dimensions, "7 x 2");
  EXPECT_EQ(target.ship_type, "");
  targets.UpdateAisClassBStatic({7, 1, "@@@", "", "Sailing", ""}, false, 12.0F);
  EXPECT_EQ(target.callsign, "MXY");
  EXPECT_EQ(target.dimensions, "7 x 2");
  EXPECT_EQ(target.ship_type, "Sailing");
  targets.UpdateAisClassBStatic({7, 0, "", "@@@@", "", ""}, false, 12.0F);
  EXPECT_EQ(target.vessel_name, "TERN");
}

TEST(AisTargets, ByTheStandard) {
  AisTargets targets;
  targets.UpdateAisStatic(Texts(7), true, 12.0F);
  targets.UpdateAisClassBStatic({8, 0, "", "TERN", "", ""}, true, 12.0F);
  targets.UpdateAisClassBStatic({8, 1, "MXY", "", "Sailing", "7 x 2"}, true, 12.1F);
  EXPECT_TRUE(targets.All().empty());
  targets.UpdateAisPosition(Report(8), {false, true, false, true}, 12.2F);
  targets.UpdateAisPosition(Report(7), kNone, 12.2F);
  EXPECT_EQ(targets.Find(7)->destination, "LE HAVRE");
  EXPECT_EQ(targets.Find(7)->last_heard, 12.2F);
  EXPECT_EQ(targets.Find(8)->vessel_name, "TERN");
  EXPECT_EQ(targets.Find(8)->dimensions, "7 x 2");
  EXPECT_TRUE(targets.Find(8)->show_history && targets.Find(8)->show_heading_vector);
  // What is not available is not used.
  AisPositionReport empty = Report(9);
  empty.position.reset();
  targets.UpdateAisPosition(empty, kNone, 12.2F);
  EXPECT_FALSE(targets.IsKnownTarget(9));
  empty = Report(7, 51.0F);
  empty.speed.reset(), empty.course.reset();
  targets.UpdateAisPosition(empty, kNone, 12.3F);
  EXPECT_EQ(targets.Find(7)->latitude, 51.0F);
  EXPECT_EQ(targets.Find(7)->speed_over_ground, 12.0F);
  empty.position.reset();
  targets.UpdateAisPosition(empty, kNone, 12.4F);
  EXPECT_EQ(targets.Find(7)->latitude, 51.0F);
  EXPECT_EQ(targets.Find(7)->last_heard, 12.4F);
  // A course that never was known leads nowhere.
  AisPositionReport lying = Report(10);
  lying.course.reset();
  targets.UpdateAisPosition(lying, kNone, 12.4F);
  EXPECT_EQ(targets.Find(10)->predicted[5].longitude, -1.0F);
  EXPECT_EQ(AisDataLines(*targets.Find(10), false, 12.4F)[3], "Heading ---°T@12.0kn");
  EXPECT_EQ(AisDetailRows(*targets.Find(10), 12.4F)[8], "Heading   \t : \t12kn @ ---°T");
}

TEST(AisTargets, PredictedPositions) {
  EXPECT_NEAR(PredictAisPosition({50.0F, -1.0F}, 30, 12, 90).longitude, -0.8444276, 1e-6);
  EXPECT_NEAR(PredictAisPosition({50.0F, -1.0F}, 30, 12, 0).latitude, 50.1, 1e-5);
  // By the mean of both latitudes, not the first.
  const Position far = PredictAisPosition({50.0F, -1.0F}, 30, 60, 45);
  EXPECT_NEAR(far.latitude, 50.3535534, 1e-5);
  EXPECT_NEAR(far.longitude, -0.4479360, 1e-6);
  const Position south = PredictAisPosition({50.0F, -1.0F}, 60, 6, 225);
  EXPECT_LT(south.latitude, 50.0F);
  EXPECT_LT(south.longitude, -1.0F);
}

struct Approach {
  Motion boat, target;
  float cpa, tcpa;
};

TEST(AisTargets, ClosestApproach) {
  // On the equator a tenth of a degree is six miles both ways.
  const Approach rows[] = {
      {{{0, 0}, 10, 0}, {{0.1F, 0}, 10, 180}, 0.0F, 0.3F},        // head on
      {{{0, 0}, 10, 0}, {{0, 0.1F}, 10, 270}, 4.2426407F, 0.3F},  // crossing from the right
      {{{0, 0}, 10, 0}, {{0, -0.1F}, 10, 90}, 4.2426407F, 0.3F},  // from the left
      {{{0, 0}, 10, 0}, {{0.1F, 0.05F}, 0, 77}, 3.0F, 0.6F},      // lying still
      {{{0, 0}, 0, 0}, {{0.1F, 0.05F}, 10, 180}, 3.0F, 0.6F},     // the boat lying still
      {{{0, 0}, 10, 0}, {{0.1F, 0}, 5, 0}, 0.0F, 1.2F},           // overtaking
      {{{0, 0}, 10, 0}, {{0.1F, 0}, 10, 0}, -12.0F, -1.0F},       // the same way and speed
      {{{0, 0}, 10, 0}, {{-0.1F, 0}, 5, 0}, -12.0F, -1.0F},       // astern and slower
      {{{0, 0}, 10, 0}, {{0, 0}, 10, 180}, -12.0F, -1.0F},        // at the same place
      {{{0, 0}, 10, 0}, {{0.1F, 0}, HUGE_VALF, 180}, -12.0F, -1.0F},
      {{{0, 0}, std::nanf(""), 0}, {{0.1F, 0}, 10, 180}, -12.0F, -1.0F},
  };
  for (const Approach& row : rows) {
    float cpa = 77.0F, tcpa = 77.0F;
    ComputeCpa(row.boat, row.target, cpa, tcpa);
    if (cpa == -1.0F && row.cpa == 0.0F) continue;  // by rounding
    EXPECT_NEAR(cpa, row.cpa, 2e-3) << row.target.position.latitude;
    EXPECT_NEAR(tcpa, row.tcpa, 1e-5);
  }
  // Where the square of the distance is negative by rounding, the time stays.
  int negative = 0;
  for (int i = 1; i < 2000; ++i) {
    float cpa = 77.0F, tcpa = 77.0F;
    ComputeCpa({{0, 0}, 0, 0}, {{0, 0.0001F * static_cast<float>(i)}, 7.3F, 270}, cpa, tcpa);
    ASSERT_TRUE(cpa == -1.0F || (cpa >= 0.0F && cpa < 1e-3F)) << cpa;
    if (cpa == -1.0F) {
      ++negative;
      EXPECT_EQ(tcpa, 77.0F);
    }
  }
  EXPECT_GT(negative, 0);
}

AisTarget Named() {
  AisTargets targets;
  targets.UpdateAisPosition(Report(2350001, 50.5F, -1.09F, 12.34F, 45.6F), kNone, 12.0F);
  targets.UpdateAisStatic(Texts(2350001), false, 12.0F);
  return *targets.Find(2350001);
}

TEST(AisTargets, DataLines) {
  AisTarget target = Named();
  target.cpa_known = true;
  target.cpa = 0.125F;
  target.tcpa = 12.5F;
  EXPECT_EQ(
      AisDataLines(target, true, 12.0F),
      (std::array<std::string, 8>{"CPA    0.13nm @ 00:30", "Dest : LE HAVRE", "Dims : 28 x 9 x 2.1",
                                  "Heading 046°T@12.3kn", "MMSI : 2350001", "SEA CAT(MAB)",
                                  "Nav Status : Underway engine", "Ship Type : Sailing"}));
  EXPECT_EQ(AisDataLines(target, true, 20.0F)[0], "CPA    0.13nm @ 08:30");
  EXPECT_EQ(AisDataLines(target, false, 12.0F)[0], " ");
  target.cpa = -12.0F;
  EXPECT_EQ(AisDataLines(target, true, 12.0F)[0], "CPA    No Closure");
  target.cpa_known = false;
  EXPECT_EQ(AisDataLines(target, true, 12.0F)[0], " ");
  target.callsign = " ";
  EXPECT_EQ(AisDataLines(target, true, 12.0F)[5], "SEA CAT");
  target.vessel_name = " ", target.callsign = "MAB";
  EXPECT_EQ(AisDataLines(target, true, 12.0F)[5], " ");
  const std::int16_t places[] = {0, 5, 0, 9, -1, 8, 2, 3};
  EXPECT_EQ(ChosenAisLines(target, places, true, 12.0F),
            (std::vector<std::string>{"MMSI : 2350001", "Ship Type : Sailing", "Dest : LE HAVRE"}));
}

TEST(AisTargets, DetailRows) {
  AisTarget target = Named();
  std::vector<std::string> rows = AisDetailRows(target, 12.0F);
  ASSERT_EQ(rows.size(), 24U);
  const char* expected[] = {"Name\t : \tSEA CAT",
                            "Callsign\t : \tMAB",
                            "MMSI\t : \t2350001",
                            "Status\t : \tUnderway engine",
                            "Destination\t : \tLE HAVRE",
                            "Dimensions\t : \t28 x 9 x 2.1",
                            "Vessel Type \t : \tSailing",
                            "Position   \t : \t50.30.00N, 001.05.40W",
                            "Heading   \t : \t12.34kn @ 45.6°T",
                            "CPA\t : \t",
                            "Historical Data\t : \t",
                            "12:00\t : \t50.30.00N, 001.05.40W"};
  for (std::size_t i = 0; i < std::size(expected); ++i) EXPECT_EQ(rows[i], expected[i]);
  EXPECT_EQ(rows[17], "Predicted Position\t : \t");
  EXPECT_EQ(rows[18].substr(0, 8), "12:05\t :");
  EXPECT_EQ(rows[23].substr(0, 8), "12:30\t :");
  target.callsign = "Altitude = 303";
  target.cpa_known = true;
  target.cpa = 1.0F, target.tcpa = 0.25F;
  rows = AisDetailRows(target, 12.0F);
  EXPECT_EQ(rows[1], "Altitude\t : \tAltitude = 303");
  EXPECT_EQ(rows[9], "CPA\t : \t1.00nm @ 12:15");
}

TEST(AisTargets, SummaryAndNearest) {
  AisTargets targets;
  targets.UpdateAisPosition(Report(7, 50.1F), kNone, 12.0F);
  targets.UpdateAisPosition(Report(235000001, 49.9F, -1.0F, 1, 1, 18), kNone, 12.0F);
  targets.UpdateAisPosition(Report(9, 50.2F), kNone, 12.0F);
  targets.Find(9)->vessel_name = "A NAME OF MORE THAN 20";
  const auto rows = AisSummaryRows(targets.All(), Position{50.0F, -1.0F});
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0].Text(),
            "1           1                000000007           * name not received       6.0 nm "
            "@000°T");
  EXPECT_EQ(rows[1].range, "6.0 nm @180°T");
  EXPECT_EQ(rows[1].message_type, "18");
  EXPECT_EQ(rows[1].mmsi, "235000001");
  EXPECT_EQ(rows[2].name, "A NAME OF MORE THAN 20");
  EXPECT_EQ(AisSummaryRows(targets.All(), std::nullopt)[0].range, "");
  // The columns stand under their headings.
  EXPECT_EQ(kAisSummaryHeading.find("MMSI"), 29U);
  EXPECT_EQ(kAisSummaryHeading.find("Range"), 75U);

  EXPECT_EQ(NearestAisTarget(targets.All(), {50.19F, -1.0F})->index, 2U);
  targets.Find(9)->latitude = 49.9F;
  EXPECT_EQ(NearestAisTarget(targets.All(), {49.9F, -1.0F})->index, 1U);  // the first of equals
  EXPECT_FALSE(NearestAisTarget({}, {50, 0}));
}

TEST(AisTargets, WhatIsDrawn) {
  AisTarget target;
  target.cpa = 0.2F;
  target.cpa_known = true;
  struct Row {
    std::int16_t type;
    float speed;
    float cpa;
    bool gps;
    bool drawn, filled;
  };
  const Row rows[] = {{1, 0.0F, -12.0F, true, false, false}, {1, 0.1F, -12.0F, true, true, false},
                      {1, 0.0F, 0.25F, true, true, true},    {2, 0.0F, 0.26F, true, false, false},
                      {3, 0.0F, 0.0F, false, false, false},  {18, 0.0F, -1.0F, true, true, false},
                      {18, 0.0F, 0.1F, true, true, true},    {19, 0.0F, 0.1F, false, true, false},
                      {9, 0.0F, 5.0F, false, true, true}};
  for (const Row& row : rows) {
    target.message_type = row.type, target.speed_over_ground = row.speed, target.cpa = row.cpa;
    const AisSymbol symbol = AisSymbolOf(target, row.gps, 0.25F, 0.1F);
    EXPECT_EQ(symbol.drawn, row.drawn) << row.type << " " << row.cpa;
    EXPECT_EQ(symbol.filled, row.filled) << row.type << " " << row.cpa;
  }
  EXPECT_EQ(AisClassOf(target), AisClass::kSearchAndRescue);
  // Before the closest approach is worked out it raises no alarm.
  target.message_type = 1, target.cpa = 0.0F, target.cpa_known = false;
  EXPECT_FALSE(InCpaAlarm(target, true, 0.25F));
  // An alarm turns the data lines on, and they stay on.
  AisTargets targets;
  targets.UpdateAisPosition(Report(1, 50.01F, -1.0F, 10, 180), kNone, 12.0F);
  targets.UpdateAisPosition(Report(2, 50.01F, -1.0F, 10, 0), kNone, 12.0F);
  ComputeCpa({{50, -1}, 5, 0}, targets);
  ShowDetailsInAlarm(targets, true, 0.25F);
  EXPECT_FALSE(targets.Find(2)->show_details);
  targets.Find(1)->cpa = -12.0F;
  ShowDetailsInAlarm(targets, true, 0.25F);
  EXPECT_TRUE(targets.Find(1)->show_details || targets.Find(1)->cpa == -1.0F);
}

TEST(AisTargets, Shapes) {
  const auto expect = [](PixelPoint point, double x, double y) {
    EXPECT_NEAR(point.x, x, 1e-6);
    EXPECT_NEAR(point.y, y, 1e-6);
  };
  const auto north = AisHull({100, 200}, 3, 0);
  expect(north[0], 100, 200), expect(north[1], 97, 200), expect(north[2], 97, 194);
  expect(north[3], 100, 188), expect(north[4], 103, 194), expect(north[5], 103, 200);
  expect(north[6], 100, 200);
  const auto east = AisHull({100, 200}, 3, 90);
  expect(east[3], 112, 200), expect(east[1], 100, 197), expect(east[5], 100, 203);
  const AircraftShape plane = AisAircraft({100, 200}, 2, 90);
  EXPECT_GT(plane.outline[0].x, 100);  // the nose ahead
  for (const auto& line : plane.lines) {
    for (const PixelPoint point : line) {
      EXPECT_LE(std::hypot(point.x - 100, point.y - 200), kAircraftRingRadius);
    }
  }
  AisTarget target = Named();
  EXPECT_EQ(AisVectorEnd(target), PredictAisPosition(target.At(), 30, 12.34F, 45.6F));
  const auto track = AisTrackFrom(target, target.predicted);
  ASSERT_EQ(track.size(), 7U);
  EXPECT_EQ(track[0], target.At());
  EXPECT_EQ(track[6].latitude, target.predicted[5].latitude);
}

// A table of one target whose closest approach is given.
class Alarm : public ::testing::Test {
 protected:
  Alarm() {
    targets_.UpdateAisPosition(Report(7), kNone, 12.0F);
    targets_.Find(7)->cpa_known = true;
  }
  bool Told(float cpa, double seconds, std::optional<float> speed = 6.0F) {
    targets_.Find(7)->cpa = cpa;
    return !alarm_.Step(targets_, true, 0.25F, speed, seconds).empty();
  }
  AisTargets targets_;
  CpaAlarm alarm_;
};

TEST_F(Alarm, OnceWhenFirstUnderTheRange) {
  EXPECT_FALSE(Told(1.0F, 0));
  EXPECT_FALSE(Told(-12.0F, 1));
  EXPECT_TRUE(Told(0.25F, 2));
  EXPECT_FALSE(Told(0.1F, 3));
  EXPECT_FALSE(Told(0.1F, 1000));  // still under it
  EXPECT_FALSE(Told(0.5F, 1001));
  EXPECT_TRUE(Told(0.1F, 1002));
  // Not again within five minutes, and what was let pass is not told later.
  EXPECT_FALSE(Told(0.5F, 1003));
  EXPECT_FALSE(Told(0.1F, 1301.9));
  EXPECT_FALSE(Told(0.1F, 1400));
  EXPECT_FALSE(Told(0.5F, 1401));
  EXPECT_TRUE(Told(0.1F, 1402));
  EXPECT_FALSE(CpaAlarm().Step(targets_, false, 0.25F, 6.0F, 0).size() > 0);
  EXPECT_EQ(CpaAlarm().Step(targets_, true, 0.25F, std::nullopt, 0).size(), 1U);
}

TEST_F(Alarm, ATargetThatLeavesTheListIsRememberedForFiveMinutes) {
  EXPECT_TRUE(Told(0.1F, 0));
  const AisTargets gone;
  EXPECT_TRUE(alarm_.Step(gone, true, 0.25F, 6.0F, 100).empty());
  EXPECT_FALSE(Told(0.1F, 200));
  EXPECT_TRUE(alarm_.Step(gone, true, 0.25F, 6.0F, 250).empty());
  EXPECT_TRUE(Told(0.1F, 300));
}

TEST_F(Alarm, SilentWhileMoored) {
  EXPECT_FALSE(Told(1.0F, 0, 0.4F));
  EXPECT_TRUE(Told(0.1F, 299, 0.4F));  // slow for less than five minutes
  EXPECT_FALSE(alarm_.Moored());
  EXPECT_FALSE(Told(1.0F, 300, 0.4F));
  EXPECT_TRUE(alarm_.Moored());
  EXPECT_FALSE(Told(0.1F, 900, 0.4F));
  // Under way again: what lies in the way is told.
  EXPECT_TRUE(Told(0.1F, 901, 0.5F));
  EXPECT_FALSE(alarm_.Moored());
  // A breath of speed begins the five minutes anew.
  EXPECT_FALSE(Told(1.0F, 1000, 0.2F));
  EXPECT_FALSE(Told(1.0F, 1200, 0.6F));
  EXPECT_FALSE(Told(1.0F, 1210, 0.2F));
  EXPECT_TRUE(Told(0.1F, 1505, 0.2F));
}

}  // namespace
}  // namespace skerrow
