#include "passage/leg.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

#include "core/plane_sailing.h"
#include "reference/plain_passage.h"
#include "support/sample_tides.h"

namespace skerrow {
namespace {

using testing::MadeTides;
using testing::RandomDiamonds;
using testing::RandomPort;
using testing::SampleTides;

constexpr DayAndYear kDate = {150, 2026};

void ExpectSame(const LegSolution& a, const LegSolution& b, int leg) {
  ASSERT_EQ(a.result.course_to_steer, b.result.course_to_steer) << leg;
  ASSERT_EQ(a.result.passage_time, b.result.passage_time) << leg;
  ASSERT_EQ(a.result.track_distance, b.result.track_distance) << leg;
  ASSERT_EQ(a.result.closest_approach, b.result.closest_approach) << leg;
  ASSERT_EQ(a.result.steps, b.result.steps) << leg;
  ASSERT_EQ(a.result.speed_over_ground, b.result.speed_over_ground) << leg;
  ASSERT_EQ(a.achieved, b.achieved) << leg;
  ASSERT_EQ(a.track.size(), b.track.size()) << leg;
  for (std::size_t i = 0; i < a.track.size(); ++i) {
    ASSERT_EQ(a.track[i].position, b.track[i].position) << leg << " at " << i;
    ASSERT_EQ(a.track[i].hours, b.track[i].hours) << leg << " at " << i;
    ASSERT_EQ(a.track[i].date, b.track[i].date) << leg << " at " << i;
  }
  ASSERT_EQ(a.streams.size(), b.streams.size()) << leg;
  for (std::size_t i = 0; i < a.streams.size(); ++i) {
    ASSERT_EQ(a.streams[i].rate, b.streams[i].rate) << leg << " at " << i;
    ASSERT_EQ(a.streams[i].direction, b.streams[i].direction) << leg << " at " << i;
    ASSERT_EQ(a.streams[i].label, b.streams[i].label) << leg << " at " << i;
  }
  ASSERT_EQ(a.drift, b.drift) << leg;
}

TEST(Leg, IsThePlainOneBitForBit) {
  const unsigned seed = 271828;
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  std::vector<Port> ports;
  for (int i = 0; i < 4; ++i) ports.push_back(RandomPort(random, "P" + std::to_string(i)));
  const std::vector<Diamond> diamonds = RandomDiamonds(random, 60, 4);
  const TideState state = MadeTides(diamonds, ports, kDate);
  reference::PlainTides plain(diamonds, state.ref_ports, ports, false);
  LegSolver solver(state);
  const auto between = [&](double low, double high) {
    return static_cast<float>(std::uniform_real_distribution<double>(low, high)(random));
  };
  int unachieved = 0;
  for (int i = 0; i < 220; ++i) {
    LegRequest leg;
    leg.start = {between(48.6, 50.9), between(-4.8, 1.4)};
    const float length = i % 7 == 0 ? between(0.01, 0.5) : between(0.5, 40);
    leg.destination = MoveByMiles(leg.start, Resolve(between(0, 360), length));
    leg.speed = between(0.6, 9);
    leg.hours = between(0, 23.99);
    // Midnights and year ends on the way.
    leg.date = {static_cast<std::int16_t>(i % 5 == 0 ? 365 : 1 + i), 2024};
    LegSettings settings;
    settings.calc_interval_minutes = i % 3 == 0 ? 10.0F : 5.0F;
    const LegSolution fast = solver.CalcCourseToSteer(leg, settings);
    const LegSolution slow = reference::PlainCourseToSteer(plain, leg, settings);
    ExpectSame(fast, slow, i);
    if (::testing::Test::HasFatalFailure()) return;
    unachieved += fast.achieved ? 0 : 1;
  }
  EXPECT_GT(unachieved, 0);
  EXPECT_LT(unachieved, 150);
}

TEST(Leg, WithoutStreamsRunsStraight) {
  const TideState no_tides;
  LegSolver solver(no_tides);
  const LegSolution leg =
      solver.CalcCourseToSteer({{50.0F, -1.0F}, {50.5F, -1.0F}, 6.0F, 10.0F, kDate}, {});
  EXPECT_TRUE(leg.achieved);
  EXPECT_EQ(leg.result.course_to_steer, 0.0F);
  // Sixty moves in single precision drift by a thousandth of an hour.
  EXPECT_NEAR(leg.result.passage_time, 5.0F, 0.002);
  EXPECT_LE(leg.result.closest_approach, 0.25F);  // half a step of 0.5 nm
  EXPECT_EQ(leg.result.steps, 60);
  EXPECT_NEAR(leg.result.speed_over_ground, 6.0F, 0.002);
  // The point's time is that of the start of its step.
  EXPECT_EQ(leg.track[1].hours, 10.0F);
  EXPECT_FLOAT_EQ(leg.track[2].hours, 10.0F + 5.0F / 60.0F);
}

TEST(Leg, TheTimeStepShrinksForLegsShorterThanIt) {
  const TideState no_tides;
  LegSolver solver(no_tides);
  // 5 minutes at 6 knots are half a mile, or 1/120 of a degree of latitude.
  const auto steps = [&](double miles) {
    const Position to{static_cast<float>(50.0 + miles / 60.0), -1.0F};
    return solver.CalcCourseToSteer({{50.0F, -1.0F}, to, 6.0F, 10.0F, kDate}, {}).streams.size();
  };
  EXPECT_GE(steps(0.49), 19U);
  EXPECT_LE(steps(0.51), 3U);
}

TEST(Leg, StaysWhereItIsWhenStartAndDestinationAreOne) {
  const TideState no_tides;
  LegSolver solver(no_tides);
  const LegSolution leg =
      solver.CalcCourseToSteer({{50.0F, -1.0F}, {50.0F, -1.0F}, 6.0F, 10.0F, kDate}, {});
  EXPECT_TRUE(leg.achieved && leg.no_passes && leg.track.empty());
  EXPECT_EQ(leg.result.passage_time, 0.0F);
}

TEST(Leg, EndsAtTheStepBoundAndIsNotAchieved) {
  const TideState no_tides;
  LegSolver solver(no_tides);
  // 1500 steps of 5 minutes at 5 knots are 625 nm; to run to twice the range is farther.
  const LegSolution leg =
      solver.CalcCourseToSteer({{40.0F, -1.0F}, {46.0F, -1.0F}, 5.0F, 10.0F, {365, 2025}}, {});
  EXPECT_FALSE(leg.achieved);
  EXPECT_EQ(leg.drift.size(), static_cast<std::size_t>(kMaxSteps) + 1);
  // The leg ran on through midnights and the year's end.
  EXPECT_EQ(leg.track.back().date.year, 2026);
}

TEST(Leg, AimsUpStream) {
  // In the sample's Dover Strait at a spring flood, the boat must hold up into the stream.
  const TideState tides = SampleTides({60, 2026});
  LegSolver solver(tides);
  const Position dover{51.1F, 1.35F};
  const Position calais{50.98F, 1.82F};
  const RangeAndBearing direct = RangeBearing(dover, calais);
  const LegSolution leg = solver.CalcCourseToSteer({dover, calais, 5.0F, 11.0F, {60, 2026}}, {});
  ASSERT_TRUE(leg.achieved);
  const auto best = static_cast<std::size_t>(leg.result.steps);
  const RangeAndBearing set = RangeBearing(dover, leg.drift[best]);
  ASSERT_GT(set.range, 0.5F);
  // Sign of the turn from the direct bearing: against the side the stream sets to.
  const double set_side = std::sin((set.bearing - direct.bearing) * M_PI / 180);
  const double aim_side = std::sin((leg.result.course_to_steer - direct.bearing) * M_PI / 180);
  EXPECT_LT(set_side * aim_side, 0.0);
}

TEST(Leg, RefusesWhatIsNoNumber) {
  const TideState no_tides;
  LegSolver solver(no_tides);
  for (const float speed : {0.0F, -3.0F, std::nanf("")}) {
    const LegSolution leg =
        solver.CalcCourseToSteer({{50.0F, -1.0F}, {51.0F, -1.0F}, speed, 10.0F, kDate}, {});
    EXPECT_FALSE(leg.achieved);
    EXPECT_TRUE(leg.track.empty());
  }
}

TEST(Heading, TakesVariationThenLeeway) {
  struct Row {
    float course, variation, leeway;
    Tack tack;
    float heading;
  };
  const Row rows[] = {
      {90, -4, 5, Tack::kNone, 94}, {90, -4, 5, Tack::kPort, 89}, {90, -4, 5, Tack::kStarboard, 99},
      {358, -4, 0, Tack::kNone, 2}, {2, 4, 0, Tack::kNone, 358},  {356, -4, 0, Tack::kNone, 0},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(HeadingToSteer(row.course, row.variation, row.leeway, row.tack), row.heading);
  }
}

}  // namespace
}  // namespace skerrow
