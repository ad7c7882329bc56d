#include "passage/drift.h"

#include <cmath>
#include <gtest/gtest.h>

#include "support/sample_tides.h"

namespace skerrow {
namespace {

using testing::MadeTides;

constexpr DayAndYear kDate = {150, 2026};

// A sea with one diamond at 50 N 1 W whose stream always runs at 2 knots towards the east.
TideState EastwardSea(DayAndYear date) {
  std::mt19937 random(4);
  Diamond diamond;
  diamond.chart_no = 9000;
  diamond.dia_no = 7;
  diamond.ref_port = 1;
  diamond.np_range = 1.0F;
  diamond.sp_range = 2.0F;
  diamond.latitude = 50.0F;
  diamond.longitude = -1.0F;
  diamond.direction.fill(90.0F);
  diamond.spring_rate.fill(2.0F);
  diamond.neap_rate.fill(2.0F);
  return MadeTides({diamond}, {testing::RandomPort(random, "Port")}, date);
}

DriftRequest Northward() {
  DriftRequest request;
  request.start = {50.0F, -1.0F};
  request.speed = 6.0F;
  request.heading = 0.0F;
  request.hours = 9.5F;
  request.date = kDate;
  request.duration = 1.0F;
  return request;
}

LegSettings Every(float minutes) {
  LegSettings settings;
  settings.calc_interval_minutes = minutes;
  return settings;
}

Drift Predict(const TideState& tides, const DriftRequest& request, const LegSettings& settings) {
  NoProgress progress;
  const Result<std::optional<Drift>> drift =
      PredictCourseOverGround(tides, request, settings, progress);
  EXPECT_TRUE(drift.ok()) << (drift ? "" : drift.error().Text());
  if (!drift || !drift.value()) return {};
  return *drift.value();
}

// Worked by hand: in half an hour 3 miles north are 0.05 degrees, and 1 mile east at 50 N is
// 1 / cos 50 / 60 = 0.025929 degrees, at 50.05 N 0.025956; a move is 3.1623 miles long.
TEST(Drift, IsTheSumOfHeadingAndStream) {
  const Drift drift = Predict(EastwardSea(kDate), Northward(), Every(30.0F));
  EXPECT_EQ(drift.steps, 2);
  ASSERT_EQ(drift.track.size(), 3U);
  EXPECT_EQ(drift.track[0].position, (Position{50.0F, -1.0F}));
  EXPECT_NEAR(drift.track[1].position.latitude, 50.05, 2e-6);
  EXPECT_NEAR(drift.track[1].position.longitude, -0.974071, 2e-6);
  EXPECT_NEAR(drift.track[2].position.latitude, 50.10, 2e-6);
  EXPECT_NEAR(drift.track[2].position.longitude, -0.948115, 2e-6);
  EXPECT_EQ(drift.track[0].hours, 9.5F);
  EXPECT_EQ(drift.track[2].hours, 10.5F);
  // The move after the last place counts into the distance and the sums.
  EXPECT_NEAR(drift.ground_distance, 3 * 3.1623, 2e-3);
  EXPECT_NEAR(drift.water_sum.north, 9.0, 1e-5);
  EXPECT_NEAR(drift.water_sum.east, 0.0, 1e-5);
  EXPECT_NEAR(drift.stream_sum.east, 3.0, 1e-5);
  EXPECT_NEAR(drift.stream_sum.north, 0.0, 1e-5);
  ASSERT_EQ(drift.streams.size(), 3U);
  EXPECT_EQ(drift.streams[2].rate, 2.0F);
  EXPECT_EQ(drift.streams[2].direction, 90.0F);
  EXPECT_EQ(drift.streams[2].hours, 10.5F);
  EXPECT_EQ(drift.streams[2].label, "9000, 7");
}

TEST(Drift, WithoutSpeedGoesWithTheStream) {
  DriftRequest request = Northward();
  request.speed = 0.0F;
  const Drift drift = Predict(EastwardSea(kDate), request, Every(30.0F));
  EXPECT_NEAR(drift.track.back().position.latitude, 50.0, 1e-6);
  EXPECT_NEAR(drift.track.back().position.longitude, -1.0 + 2 * 0.025929, 3e-6);
  EXPECT_EQ(drift.water_sum.north, 0.0F);
}

TEST(Drift, KeepsTheStepThatEndsNearestToTheDestination) {
  DriftRequest request = Northward();
  request.duration = 2.0F;
  request.destination = {50.1F, -0.948F};  // where the second move ends
  const Drift drift = Predict(EastwardSea(kDate), request, Every(30.0F));
  EXPECT_EQ(drift.closest_step, 1);
  EXPECT_NEAR(drift.water_sum.north, 6.0, 1e-5);
  EXPECT_NEAR(drift.stream_sum.east, 2.0, 1e-5);
  EXPECT_EQ(drift.track.size(), 5U);           // and goes on to the end all the same
  request.destination = {50.1221F, -0.9366F};  // 1.4 miles past there, 1.8 before the next
  EXPECT_EQ(Predict(EastwardSea(kDate), request, Every(30.0F)).closest_step, 1);
}

TEST(Drift, RunsOverMidnightAndTheYearsEnd) {
  DriftRequest request = Northward();
  request.hours = 23.5F;
  request.date = {365, 2026};
  const TideState tides = EastwardSea(request.date);
  Drift drift = Predict(tides, request, Every(30.0F));
  EXPECT_EQ(drift.track[0].date, (DayAndYear{365, 2026}));
  EXPECT_EQ(drift.track[1].date, (DayAndYear{1, 2027}));
  EXPECT_EQ(drift.track[1].hours, 0.0F);
  request.date = {365, 2028};  // a leap year has one more
  drift = Predict(tides, request, Every(30.0F));
  EXPECT_EQ(drift.track[1].date, (DayAndYear{366, 2028}));
}

TEST(Drift, RoundsTheDurationToWholeSteps) {
  const struct {
    float hours, minutes;
    int steps;
  } kCases[] = {{1.0F, 5.0F, 12},  {0.7F, 30.0F, 1},    {0.8F, 30.0F, 2},
                {0.75F, 30.0F, 2}, {1.25F, 30.0F, 2},  // halves to even
                {0.0F, 5.0F, 0},   {720.0F, 60.0F, 720}};
  for (const auto& c : kCases) {
    const Result<int> steps = DriftSteps(c.hours, c.minutes);
    ASSERT_TRUE(steps.ok()) << c.hours;
    EXPECT_EQ(*steps, c.steps) << c.hours << " by " << c.minutes;
  }
}

TEST(Drift, RefusesWhatCannotBeWorkedOut) {
  const TideState no_tides;
  NoProgress progress;
  const auto refusal = [&](void (*change)(DriftRequest&, LegSettings&)) {
    DriftRequest request = Northward();
    LegSettings settings = Every(5.0F);
    change(request, settings);
    const auto drift = PredictCourseOverGround(no_tides, request, settings, progress);
    return drift.ok() ? std::string("none") : drift.error().Text();
  };
  const float nan = std::nanf("");
  EXPECT_EQ(refusal([](auto&, auto&) {}), "none");
  EXPECT_EQ(refusal([](auto& r, auto&) { r.duration = 721.0F; }),
            "The duration is too long: at a calculation interval of 5 minutes no more than 720 "
            "hours can be predicted.");
  EXPECT_EQ(refusal([](auto& r, auto& s) {
              r.duration = 34.0F;
              s.calc_interval_minutes = 0.1F;
            }),
            "The duration is too long: at a calculation interval of 0.1 minutes no more than 33.3 "
            "hours can be predicted.");
  EXPECT_EQ(refusal([](auto& r, auto&) { r.duration = INFINITY; }).substr(0, 24),
            "The duration is too long");
  for (const float bad : {-1.0F, nan}) {
    DriftRequest request = Northward();
    request.duration = bad;
    EXPECT_FALSE(PredictCourseOverGround(no_tides, request, Every(5.0F), progress).ok()) << bad;
    request = Northward();
    request.speed = bad;
    EXPECT_FALSE(PredictCourseOverGround(no_tides, request, Every(5.0F), progress).ok()) << bad;
  }
  EXPECT_NE(refusal([](auto& r, auto&) { r.speed = 100.5F; }), "none");
  EXPECT_NE(refusal([](auto& r, auto&) { r.start.latitude = 89.5F; }), "none");
  EXPECT_NE(refusal([](auto& r, auto&) { r.destination = {-90.0F, 0.0F}; }), "none");
  // The pole on the way: 88.9 N and six miles of north are over the edge.
  EXPECT_EQ(refusal([](auto& r, auto&) {
              r.start.latitude = 88.95F;
              r.duration = 10.0F;
            }),
            "The track leaves the latitudes up to 89 where it can be worked out.");
}

TEST(Drift, CanBeStopped) {
  struct StopAtOnce final : Progress {
    bool Step(double) override { return false; }
  } stop;
  const auto drift = PredictCourseOverGround(TideState(), Northward(), Every(5.0F), stop);
  ASSERT_TRUE(drift.ok());
  EXPECT_FALSE(drift.value().has_value());
}

TEST(Drift, GoesOnWithoutAStreamWhereNoneIsKnown) {
  TideState tides = EastwardSea(kDate);
  DriftRequest request = Northward();
  request.start = {51.0F, -1.0F};  // 60 miles from the diamond
  Drift drift = Predict(tides, request, Every(30.0F));
  EXPECT_EQ(drift.streams[0].label, "NONE");
  EXPECT_EQ(drift.gaps.steps, 0);
  EXPECT_NEAR(drift.track.back().position.latitude, 51.1, 3e-6);
  EXPECT_EQ(drift.track.back().position.longitude, -1.0F);

  tides.days = TideDays({nullptr}, false);  // the diamond's port is not known
  drift = Predict(tides, Northward(), Every(30.0F));
  EXPECT_EQ(drift.gaps.steps, 3);
  EXPECT_EQ(drift.gaps.diamonds, std::vector<std::int32_t>{0});
  EXPECT_EQ(drift.track.back().position.longitude, -1.0F);
  EXPECT_EQ(DriftReport(tides, Northward(), drift).back(),
            "No tidal stream at 3 of 3 steps : no high water at Port (diamond 9000, 7)");

  tides = EastwardSea(kDate);
  tides.diamonds[0].np_range = 2.0F;
  EXPECT_EQ(Predict(tides, Northward(), Every(30.0F)).fault, StreamFault::kDivideByZero);
}

TEST(Drift, LeewaySetsTheBoatAwayFromTheWind) {
  EXPECT_EQ(CourseThroughWater(90.0F, 5.0F, Tack::kPort), 95.0F);
  EXPECT_EQ(CourseThroughWater(90.0F, 5.0F, Tack::kStarboard), 85.0F);
  EXPECT_EQ(CourseThroughWater(90.0F, 5.0F, Tack::kNone), 90.0F);
  EXPECT_EQ(CourseThroughWater(358.0F, 5.0F, Tack::kPort), 3.0F);
  EXPECT_EQ(CourseThroughWater(2.0F, 5.0F, Tack::kStarboard), 357.0F);
}

// One hour at 6 knots across 2 knots: 6.3 miles, not the 9.5 that the last move would add.
TEST(Drift, ReportsTheTimeAskedFor) {
  DriftRequest request = Northward();
  request.destination = {50.1F, -1.0F};
  const TideState tides = EastwardSea(kDate);
  const Drift drift = Predict(tides, request, Every(30.0F));
  EXPECT_EQ(CourseOverGroundReport(tides, request, drift, {"Buoy", "Pier", 3.0F, "Leeway"}),
            (std::vector<std::string>{
                "Course Over Ground Calculation for 30 May 2026",
                "From \tBuoy   50.00.00N , 001.00.00W",
                "To \tPier   50.06.00N , 001.00.00W",
                "Steer 003°M\t Time taken=01Hrs 00Min  at 6.0 kt.",
                "Starting at 09:30 Completion Time 10:30",
                "Range and bearing between waypoints : 6.0nm @ 000°T ",
                "Speed Over Ground = 6.3kt. Water Track Distance 6.3nm.",
                "Leeway",
                "Position at 10:30 : 50.06.00N , 000.56.89W",
                "Made good from the start : 6.32nm @ 018°T",
                "Closest to the destination : 2.00nm at 10:30",
            }));
  request.destination.reset();
  request.hours = 6.0F + 25.0F / 60.0F;  // the sum falls short of 7:25 by a bit
  EXPECT_EQ(DriftReport(tides, request, drift)[2], "Starting at 06:25 Completion Time 07:25");
  request.hours = 23.5F;
  request.speed = 0.0F;
  EXPECT_EQ(DriftReport(tides, request, Predict(tides, request, Every(30.0F))),
            (std::vector<std::string>{
                "Drift Prediction for 30 May 2026",
                "From \t50.00.00N , 001.00.00W",
                "Starting at 23:30 Completion Time 00:30 (31 May)",
                "Position at 00:30 (31 May) : 50.00.00N , 000.56.89W",
                "Made good from the start : 2.00nm @ 090°T",
            }));
}

TEST(Drift, TakesThePlaceOfTheResultBefore) {
  PassageState passage;
  passage.legs.resize(2);
  passage.calc_mode = kCalcModeRoute;
  passage.route_track.resize(40);
  passage.route_history = {"kept"};
  ShowDrift(Predict(EastwardSea(kDate), Northward(), Every(30.0F)), {"report"}, "short", passage);
  EXPECT_EQ(passage.calc_mode, 2);
  EXPECT_EQ(passage.route_track.size(), 3U);
  EXPECT_EQ(passage.route_streams.size(), 3U);
  EXPECT_TRUE(passage.legs.empty());
  EXPECT_EQ(passage.result_lines, std::vector<std::string>{"report"});
  EXPECT_EQ(passage.route_summary_text, "short");
  EXPECT_EQ(passage.route_history, std::vector<std::string>{"kept"});
}

}  // namespace
}  // namespace skerrow
