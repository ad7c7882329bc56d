#include "ui/forms/calc_route_form.h"

#include <gtest/gtest.h>

#include "passage/optimum.h"
#include "support/sample_desk.h"

namespace skerrow::testing {
namespace {

class CalcRouteForm : public SampleDesk {
 protected:
  void SetUp() override { LoadSample(); }

  std::vector<RoutePoint>& points() { return program.route.points; }
};

TEST_F(CalcRouteForm, DepartureFollowsTheClockUntilTheUserHasSetATime) {
  program.selected_time.hours = 15.5F;
  EXPECT_EQ(CalcRouteTextsOf(program).time, "09:30");
  program.selected_time.override_ = true;
  EXPECT_EQ(CalcRouteTextsOf(program).time, "15:30");
}

TEST_F(CalcRouteForm, LegEntriesAreCheckedInOrderAndRefusedWhole) {
  const LegEntry good = {"Start", "50.30.00N", "001.10.00W", "End", "50.00.00N", "001.20.00W", "6"};
  struct Row {
    const char* what;
    void (*spoil)(LegEntry&);
    LegRefusal refusal;
  };
  const Row rows[] = {
      {"start latitude", [](LegEntry& e) { e.start_latitude = "00.00.00N"; },
       LegRefusal::kLatitude},
      {"no latitude", [](LegEntry& e) { e.start_latitude = ""; }, LegRefusal::kLatitude},
      {"end latitude", [](LegEntry& e) { e.end_latitude = "0"; }, LegRefusal::kLatitude},
      {"end longitude", [](LegEntry& e) { e.end_longitude = "000.00.00E"; },
       LegRefusal::kLongitude},
      {"latitude first", [](LegEntry& e) { e.end_latitude = e.end_longitude = ""; },
       LegRefusal::kLatitude},
      {"beyond the pole", [](LegEntry& e) { e.end_latitude = "91.00.00N"; }, LegRefusal::kLatitude},
      {"beyond 180", [](LegEntry& e) { e.start_longitude = "181.00.00W"; }, LegRefusal::kLongitude},
  };
  const RoutePoint before = points()[1];
  for (const Row& row : rows) {
    LegEntry entry = good;
    row.spoil(entry);
    EXPECT_EQ(AcceptLeg(program, 2, entry, messages), row.refusal) << row.what;
    EXPECT_EQ(points()[1].At(), before.At()) << row.what;
    EXPECT_EQ(points()[1].name, before.name) << row.what;
  }
  EXPECT_EQ(LegRefusalText(LegRefusal::kLatitude), "Error - Latitude entry");
  EXPECT_EQ(LegRefusalText(LegRefusal::kLongitude), "Error - Longitude entry");
  EXPECT_EQ(AcceptLeg(program, points().size(), good, messages), LegRefusal::kNoLeg);
}

TEST_F(CalcRouteForm, AnAcceptedLegMovesItsNeighboursWithIt) {
  LegEntry entry = {"Start", "50.30.00N", "000.00.00E", "End", "50.00.00N", "001.20.00W", "6.5"};
  // The start longitude of 0 is not an error.
  ASSERT_EQ(AcceptLeg(program, 2, entry, messages), LegRefusal::kNone);
  EXPECT_EQ(points()[0].Next(), points()[1].At());
  EXPECT_EQ(points()[1].Next(), points()[2].At());
  EXPECT_EQ(points()[2].name, "End");
  EXPECT_FLOAT_EQ(points()[1].speed, 6.5F);
  EXPECT_FLOAT_EQ(points()[1].longitude, 0.0F);
  EXPECT_FLOAT_EQ(program.route.distance, RouteLengthOf(points()));
}

TEST_F(CalcRouteForm, ASpeedOfNothingChangesNothing) {
  const float before = points()[0].speed;
  for (const char* text : {"0", "", "0.0", "kn"}) {
    EXPECT_FALSE(ApplyRouteSpeed(program, text)) << text;
    EXPECT_FLOAT_EQ(points()[0].speed, before);
  }
  EXPECT_TRUE(ApplyRouteSpeed(program, "7.2"));
  for (const RoutePoint& point : points()) EXPECT_FLOAT_EQ(point.speed, 7.2F);
}

TEST(WindSide, IsStarboardBetweenAheadAndAsternClockwise) {
  struct Row {
    float wind, course;
    bool starboard;
  };
  for (const Row& row :
       {Row{90, 0, true}, Row{270, 0, false}, Row{0, 0, false}, Row{180, 0, false},
        Row{10, 350, true}, Row{340, 350, false}, Row{170, 350, false}, Row{360, 0, false}}) {
    EXPECT_EQ(WindOnStarboard(row.wind, row.course), row.starboard)
        << row.wind << " on " << row.course;
  }
}

TEST_F(CalcRouteForm, TacksComeFromTheDefaultWind) {
  // All legs run south; a wind from 290 comes over their starboard side, one from 090 over port.
  SetTacks(program);
  EXPECT_EQ(points()[0].tack, 2);
  program.wind_config.default_direction = "090";
  SetTacks(program);
  for (std::size_t i = 0; i + 1 < points().size(); ++i) EXPECT_EQ(points()[i].tack, 1) << i;
}

TEST_F(CalcRouteForm, TheGpsMovesTheStartOnlyWhileItReceives) {
  program.boat.position.latitude = 50.7F;
  program.boat.position.longitude = -1.5F;
  EXPECT_FALSE(GpsReadingOf(program));
  program.gps_enabled = true;
  const auto gps = GpsReadingOf(program);
  ASSERT_TRUE(gps);
  UseGpsForStart(program, {gps->position, 4.5F}, true, messages);
  EXPECT_EQ(points()[0].At(), (Position{50.7F, -1.5F}));
  EXPECT_EQ(points()[0].name, "");
  for (const RoutePoint& point : points()) EXPECT_FLOAT_EQ(point.speed, 4.5F);
  program.boat.position.latitude = 0.0F;
  EXPECT_FALSE(GpsReadingOf(program));
}

TEST_F(CalcRouteForm, ThePlanForTheClipboardHoldsTimeDateAndLegs) {
  EXPECT_EQ(RoutePlanText("09:05", "14 Jun 2026", {"one", " "}),
            "Route Plan \n\nDeparture Time 09:05 on 14 Jun 2026\n\none\n \n");
}

TEST_F(CalcRouteForm, ASearchLeavesNoCalculatedRoute) {
  NoProgress progress;
  ASSERT_EQ(RunCalculation(program, {"06:00", false, ""}, messages, progress), RouteOutcome::kDone);
  EXPECT_TRUE(points()[0].calculated);
  ASSERT_EQ(RunDepartureSearch(program, 1, messages, progress), RouteOutcome::kDone);
  EXPECT_EQ(program.passage.optimum_times.size(), 8U);
  EXPECT_EQ(program.passage.calc_mode, 0);
  EXPECT_FALSE(points()[0].calculated);
}

}  // namespace
}  // namespace skerrow::testing
