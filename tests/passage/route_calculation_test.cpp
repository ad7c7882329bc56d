#include "passage/route_calculation.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "passage/optimum.h"
#include "support/sample_tides.h"

namespace skerrow {
namespace {

using testing::RecordingMessages;
using testing::SampleTides;

constexpr DayAndYear kDate = {339, 2026};

RouteState MakeRoute(const std::vector<Position>& places, float speed = 6.0F) {
  RouteState route;
  for (std::size_t i = 0; i < places.size(); ++i) {
    RoutePoint point;
    point.latitude = places[i].latitude;
    point.longitude = places[i].longitude;
    point.name = "P" + std::to_string(i + 1);
    point.speed = speed;
    route.points.push_back(point);
  }
  RelinkRoute(route.points);
  route.track = RouteTrackOf(route.points);
  return route;
}

// Wants the work to stop at the nth step.
class StopAt final : public Progress {
 public:
  explicit StopAt(int step) : left_(step) {}
  bool Step(double) override { return --left_ > 0; }

 private:
  int left_;
};

class RouteCalculation : public ::testing::Test {
 protected:
  RouteOutcome Run(const RouteRequest& request) {
    return CalculateRoute(request, config_, tides_, route_, passage_, messages_, progress_);
  }

  AppConfig config_;
  TideState tides_;
  RouteState route_ = MakeRoute({{50.0F, -1.0F}, {50.5F, -1.0F}, {50.5F, -1.5F}});
  PassageState passage_;
  RecordingMessages messages_;
  NoProgress progress_;
};

TEST_F(RouteCalculation, WritesTheReport) {
  ASSERT_EQ(Run({23.0F, {365, 2026}, false, ""}), RouteOutcome::kDone);
  // Five hours north, then 19.08 nm west along 50.30N; the variation of 4 W is added. Moves in
  // single precision gain four seconds on the way, and arrivals cut their minutes off.
  const std::vector<std::string> head = {
      "RESULTS ARE FROM DERIVED DATA AND AS SUCH ARE ONLY APPROXIMATE",
      "   ",
      "Route calculation for 31 Dec 2026",
      "Departing 23:00, Passage time = 08Hrs 11Min ",
      "Route distance = 49.1nm.",
      "Effective Speed Over Ground = 6.0kt.",
      " ",
      "Steer 004°M\t Time taken=05Hrs 00Min  at 6.0 kt.",
      "From \t50.00.00N , 001.00.00W   P1",
      "To \t50.30.00N , 001.00.00W   P2",
      "Starting at 23:00 arriving at 03:59 (1 Jan)",
      "Range and bearing between waypoints : 30.0nm @ 000°T ",
      "Speed Over Ground = 6.0kt. Water Track Distance 30.0nm.",
      "Steer 274°M\t Time taken=03Hrs 11Min  at 6.0 kt.",
      "From \t50.30.00N , 001.00.00W   P2",
      "To \t50.30.00N , 001.30.00W   P3",
      "Starting at 03:59 (1 Jan) arriving at 07:10",
  };
  ASSERT_GE(passage_.result_lines.size(), head.size());
  for (std::size_t i = 0; i < head.size(); ++i) EXPECT_EQ(passage_.result_lines[i], head[i]) << i;
  EXPECT_EQ(passage_.route_summary_text,
            "Route distance = 49.1nm.  Time Taken = 08Hrs 11Min ,  SOG  = 6.0kt.");
  EXPECT_EQ(passage_.route_combo_text, head[2]);
  EXPECT_EQ(passage_.route_combo[0], head[3]);
  EXPECT_EQ(passage_.route_combo[4], "Steer 004°M Time taken=05Hrs 00Min  at 6.0 kt.");
  EXPECT_EQ(passage_.calc_mode, 1);
  ASSERT_EQ(passage_.route_history.size(), 5U);
  EXPECT_EQ(passage_.route_history[0], head[2]);
  EXPECT_EQ(passage_.legs[1].start_date, (DayAndYear{1, 2027}));
  EXPECT_TRUE(route_.points[0].calculated);
  EXPECT_EQ(route_.points[0].tide_vector.size(), static_cast<std::size_t>(route_.points[0].steps));
  ASSERT_EQ(Run({1.0F, {100, 2026}, false, ""}), RouteOutcome::kDone);
  EXPECT_EQ(passage_.route_history.size(), 10U);
}

TEST_F(RouteCalculation, AppliesLeewayByTack) {
  route_.points[0].tack = 1;
  route_.points[1].tack = 2;
  ASSERT_EQ(Run({8.0F, kDate, true, "5"}), RouteOutcome::kDone);
  EXPECT_NEAR(passage_.legs[0].heading, 359.0F, 0.01);
  EXPECT_NEAR(passage_.legs[1].heading, 279.0F, 0.2);
  EXPECT_EQ(passage_.result_lines[6], "(Leeway of 5° and a variation of 4W applied to all legs)");

  config_.variation = 0.0F;
  messages_.Expect("You have selected to use leeway but there is no value entered");
  ASSERT_EQ(Run({8.0F, kDate, true, " "}), RouteOutcome::kDone);
  EXPECT_EQ(passage_.result_lines[6], " ");
  EXPECT_NEAR(passage_.legs[0].heading, 0.0F, 0.01);
}

TEST_F(RouteCalculation, RepairsALegThatCannotBeAchieved) {
  config_.error_circle = 0.0001F;  // no track comes that near
  const Position old_end = route_.points[1].At();
  for (const char* leg : {"1 destination.\nCPA = 0.24nm", "2 destination.\nCPA = 0.00nm"}) {
    messages_.Expect(
        std::string("Unable to achieve leg ") + leg +
        "\nRoute waypoint modified to last good COG point.\n(Caused by boat speed and "
        "tidal stream combinations,\nmodify waypoints, departure time or boat speed.)");
  }
  route_ = MakeRoute({{50.0F, -1.0F}, {50.054F, -1.0F}, {50.1F, -1.0F}});
  ASSERT_EQ(Run({8.0F, kDate, false, ""}), RouteOutcome::kDone);
  EXPECT_EQ(passage_.result_lines[1],
            "* WARNING * Unable to achieve destination waypoint, examine results before use * "
            "WARNING * ");
  EXPECT_NE(route_.points[1].At(), old_end);
  EXPECT_EQ(route_.points[0].Next(), route_.points[1].At());
  EXPECT_EQ(route_.points[1].Next(), route_.points[2].At());
  const std::string from = "From \t" + LatToText(route_.points[1].latitude);
  EXPECT_TRUE(std::any_of(passage_.result_lines.begin(), passage_.result_lines.end(),
                          [&](const std::string& line) { return line.starts_with(from); }));
  EXPECT_EQ(route_.track, RouteTrackOf(route_.points));
}

// North of 50.25 N the nearest diamond's port never turns, south of it all is well.
TEST_F(RouteCalculation, TellsOnceWhichPortHadNoHighWater) {
  std::mt19937 random(8);
  std::vector<Diamond> diamonds = testing::RandomDiamonds(random, 2, 2);
  diamonds[0].latitude = 50.5F;
  diamonds[1].latitude = 50.0F;
  diamonds[0].longitude = diamonds[1].longitude = -1.0F;
  Port flat;
  flat.name = "Flat";
  tides_ = testing::MadeTides(diamonds, {flat, testing::RandomPort(random, "Good")}, kDate);
  const std::string reason = "no high water at Flat (diamond 9000, 1)";
  const std::string told = "Part of the passage is calculated without a tidal stream:\n" + reason;
  messages_.Expect(told);
  ASSERT_EQ(Run({8.0F, kDate, false, ""}), RouteOutcome::kDone);
  EXPECT_EQ(passage_.result_lines[1],
            "* WARNING * Part of the route is calculated without a tidal stream, examine results "
            "before use * WARNING * ");
  // The line stands behind the six of its leg.
  const auto line = [&](std::ptrdiff_t unknown, int steps) {
    return "No tidal stream at " + std::to_string(unknown) + " of " + std::to_string(steps) +
           " steps : " + reason;
  };
  const int first = passage_.legs[0].result.steps;
  const int second = passage_.legs[1].result.steps;
  const auto& streams = passage_.route_streams;
  const auto unknown = std::count_if(streams.begin(), streams.begin() + first,
                                     [](const StreamSample& s) { return s.label == "NONE"; });
  EXPECT_GT(unknown, 20);
  EXPECT_LT(unknown, first);
  EXPECT_EQ(passage_.result_lines[13], line(unknown, first));
  EXPECT_EQ(passage_.result_lines[20], line(second, second));

  OptimumRequest request;
  request.slot = kDepartureSlots[1];
  request.date = kDate;
  messages_.Expect(told);
  EXPECT_EQ(SearchDeparture(request, config_, tides_, route_, passage_, messages_, progress_),
            RouteOutcome::kDone);
}

TEST_F(RouteCalculation, ChecksTheSpeedsOfEveryPoint) {
  route_.points[2].speed = 0.5F;
  messages_.Expect(
      "Boat speed below 0.5kn between waypoints 3 and 4\nCannot continue - please correct.");
  EXPECT_EQ(Run({8.0F, kDate, false, ""}), RouteOutcome::kRefused);
  // A search that is refused leaves no earlier search standing.
  passage_.optimum_times = {1.0F, 2.0F};
  passage_.calc_mode = 1;
  OptimumRequest search;
  search.date = kDate;
  messages_.Expect(
      "Boat speed below 0.5kn between waypoints 3 and 4\nCannot continue - please correct.");
  EXPECT_EQ(SearchDeparture(search, config_, tides_, route_, passage_, messages_, progress_),
            RouteOutcome::kRefused);
  EXPECT_TRUE(passage_.optimum_times.empty());
  EXPECT_EQ(passage_.calc_mode, 0);
  route_.points[2].speed = 0.6F;
  messages_.ExpectQuestion(
      "Boat speed very low between waypoints 3 and 4\nDo you wish to continue?\n(This may cause "
      "problems)",
      false);
  EXPECT_EQ(Run({8.0F, kDate, false, ""}), RouteOutcome::kRefused);
  EXPECT_TRUE(passage_.result_lines.empty());
  route_.points[2].speed = 1.0F;
  EXPECT_EQ(Run({8.0F, kDate, false, ""}), RouteOutcome::kDone);
}

TEST_F(RouteCalculation, ACancelLeavesTheLastResultAsItWas) {
  ASSERT_EQ(Run({8.0F, kDate, false, ""}), RouteOutcome::kDone);
  const PassageState before = passage_;
  for (int step = 1; step <= 3; ++step) {
    StopAt stop(step);
    EXPECT_EQ(CalculateRoute({9.0F, kDate, false, ""}, config_, tides_, route_, passage_, messages_,
                             stop),
              RouteOutcome::kCancelled);
    EXPECT_EQ(passage_.result_lines, before.result_lines);
    EXPECT_EQ(passage_.route_history, before.route_history);
    EXPECT_EQ(passage_.route_track.size(), before.route_track.size());
  }
  StopAt stop(2);
  OptimumRequest optimum;
  optimum.date = kDate;
  EXPECT_EQ(SearchDeparture(optimum, config_, tides_, route_, passage_, messages_, stop),
            RouteOutcome::kCancelled);
  EXPECT_EQ(passage_.result_lines, before.result_lines);
  EXPECT_EQ(passage_.calc_mode, 1);
}

TEST_F(RouteCalculation, ReworksTheLegsFromAnotherTimeWithoutRepair) {
  ASSERT_EQ(Run({8.0F, kDate, false, ""}), RouteOutcome::kDone);
  const std::vector<std::string> legs(passage_.result_lines.begin() + 7,
                                      passage_.result_lines.begin() + 10);
  ASSERT_EQ(ReworkRoute({10.5F, kDate, false, ""}, config_, tides_, route_, passage_, progress_),
            RouteOutcome::kDone);
  EXPECT_EQ(passage_.result_lines[0], kDerivedDataNotice);
  EXPECT_EQ(passage_.result_lines[2], legs[0]);
  EXPECT_EQ(passage_.result_lines[5], "Starting at 10:30 arriving at 15:29");
  EXPECT_EQ(passage_.route_history.size(), 5U);
  config_.error_circle = 0.0F;
  const Position end = route_.points[1].At();
  ASSERT_EQ(ReworkRoute({10.5F, kDate, false, ""}, config_, tides_, route_, passage_, progress_),
            RouteOutcome::kDone);
  EXPECT_EQ(route_.points[1].At(), end);
  EXPECT_TRUE(passage_.result_lines[1].starts_with("* WARNING *"));
}

TEST_F(RouteCalculation, NeedsTwoPoints) {
  route_ = MakeRoute({{50.0F, -1.0F}});
  EXPECT_EQ(Run({8.0F, kDate, false, ""}), RouteOutcome::kNoRoute);
}

// By hand: 30 nm at 6 knots, and 0.0065 more by moves in single precision, which take 4 seconds
// off; then 0.5 x 60 x cos 50.5 = 19.0823 nm at 7.5, to the end of the 31st step of 7.5/12
// nm. 7.5432 h show as 54 hundredths, or 32 minutes; the water distance goes by the speed of the
// last leg.
TEST_F(RouteCalculation, ARowOfTheDepartureTable) {
  route_.points[1].speed = 7.5F;
  OptimumRequest request;
  request.slot = kDepartureSlots[2];
  request.date = {365, 2026};
  ASSERT_EQ(SearchDeparture(request, config_, tides_, route_, passage_, messages_, progress_),
            RouteOutcome::kDone);
  const std::string rest = "\t07Hrs 32Min \t6.51kt.\t49.38nm.\t56.6nm.";
  EXPECT_EQ(passage_.result_lines[14], "16:00\t23:32" + rest);
  EXPECT_EQ(passage_.result_lines[16], "17:00\t00:32 (1 Jan)" + rest);
}

// A leg of 1,200 steps of half a mile; a point holds the first thousand of its drift.
TEST_F(RouteCalculation, APointHoldsAThousandEntriesOfTheDrift) {
  route_ = MakeRoute({{40.0F, -1.0F}, {50.0F, -1.0F}});
  ASSERT_EQ(ReworkRoute({8.0F, kDate, false, ""}, config_, tides_, route_, passage_, progress_),
            RouteOutcome::kDone);
  EXPECT_NEAR(route_.points[0].steps, 1200, 2);
  EXPECT_EQ(route_.points[0].tide_vector.size(), 1000U);
}

TEST(DepartureTime, RowsOfTheHeader) {
  struct Row {
    const char* text;
    DepartureTimeRefusal refusal;
    float hours;
  };
  const Row rows[] = {{"09:05", DepartureTimeRefusal::kNone, 9 + 5 / 60.0F},
                      {" 9:05 ", DepartureTimeRefusal::kNone, 9 + 5 / 60.0F},
                      {"23:59", DepartureTimeRefusal::kNone, 23 + 59 / 60.0F},
                      {"0905", DepartureTimeRefusal::kNoTime, 0},
                      {"9:5", DepartureTimeRefusal::kNoTime, 0},
                      {"", DepartureTimeRefusal::kNoTime, 0},
                      {"24:00", DepartureTimeRefusal::kOutOfRange, 0},
                      {"12:60", DepartureTimeRefusal::kOutOfRange, 0},
                      {"-1:00", DepartureTimeRefusal::kOutOfRange, 0}};
  for (const Row& row : rows) {
    float hours = 0;
    EXPECT_EQ(CheckDepartureTime(row.text, hours), row.refusal) << row.text;
    EXPECT_FLOAT_EQ(hours, row.hours) << row.text;
  }
}

// The search across the sample's streams.
class Optimum : public ::testing::Test {
 protected:
  Optimum() { tides_ = SampleTides(kDate); }

  AppConfig config_;
  TideState tides_;
  RouteState route_ =
      MakeRoute({{50.66F, -1.6F}, {50.4F, -1.9F}, {49.9F, -1.9F}, {49.7F, -1.65F}}, 5.0F);
  PassageState passage_;
  RecordingMessages messages_;
  NoProgress progress_;
};

TEST_F(Optimum, TriesEachHourOfASlot) {
  OptimumRequest request;
  request.slot = kDepartureSlots[1];
  request.date = kDate;
  ASSERT_EQ(SearchDeparture(request, config_, tides_, route_, passage_, messages_, progress_),
            RouteOutcome::kDone);
  ASSERT_EQ(passage_.optimum_times.size(), 8U);
  EXPECT_EQ(passage_.optimum_start_hour, 6.0F);
  EXPECT_EQ(passage_.calc_mode, 0);
  EXPECT_TRUE(passage_.route_track.empty());
  EXPECT_EQ(passage_.result_lines[2], "Optimum Departure for 5 Dec 2026");
  EXPECT_EQ(passage_.result_lines[4],
            "Depart\tArrive\tTime Taken\tEffective Speed\tGround Distance\tWater Distance");
  EXPECT_EQ(passage_.route_history.size(), 10U);

  // Each entry is what the route calculation gives for that departure.
  for (const std::size_t j : {std::size_t{0}, std::size_t{5}}) {
    PassageState single;
    RouteState route = route_;
    ASSERT_EQ(CalculateRoute({6.0F + static_cast<float>(j), kDate, false, ""}, config_, tides_,
                             route, single, messages_, progress_),
              RouteOutcome::kDone);
    EXPECT_EQ(single.route_hours, passage_.optimum_times[j]) << j;
  }
}

TEST_F(Optimum, LeavesOutWhatCanNotBeSailedAndSaysSo) {
  OptimumRequest request;
  request.slot = kDepartureSlots[1];
  request.date = kDate;
  const std::int16_t steps_before = route_.points[0].steps;
  request.speeds_at = [](float) { return DepartureSpeeds{{}, "no forecast wind on leg 1"}; };
  messages_.Expect(
      "No departure of this slot can be sailed: at 06:00 there is no forecast wind on leg 1",
      MessageIcon::kWarning);
  EXPECT_EQ(SearchDeparture(request, config_, tides_, route_, passage_, messages_, progress_),
            RouteOutcome::kRefused);
  EXPECT_TRUE(passage_.result_lines.empty());
  EXPECT_EQ(route_.points[0].steps, steps_before);

  request.speeds_from = "Speeds by \"Sloop\"";
  request.speeds_at = [](float hour) {
    if (hour == 6.0F) return DepartureSpeeds{{4.0F, 4.0F, 7.0F}, ""};
    if (hour < 12.0F) return DepartureSpeeds{{6.0F, 6.0F, 6.0F}, ""};
    return DepartureSpeeds{{6.0F}, "no forecast wind on leg 2"};
  };
  ASSERT_EQ(SearchDeparture(request, config_, tides_, route_, passage_, messages_, progress_),
            RouteOutcome::kDone);
  EXPECT_EQ(passage_.result_lines[3], "Speeds by \"Sloop\"");
  ASSERT_EQ(passage_.optimum_times.size(), 8U);
  EXPECT_TRUE(std::isnan(passage_.optimum_times[6]));
  EXPECT_TRUE(std::isnan(passage_.optimum_times[7]));
  EXPECT_EQ(ExtremesOf(passage_.optimum_times).longest, 0U) << "the slowest";
  EXPECT_GT(ExtremesOf(passage_.optimum_times).shortest, 0U);
  EXPECT_LT(ExtremesOf(passage_.optimum_times).shortest, 6U);
  const auto line =
      std::find(passage_.result_lines.begin(), passage_.result_lines.end(), "12:00\t-\t-\t-\t-\t-");
  ASSERT_NE(line, passage_.result_lines.end());
  EXPECT_EQ(*(line + 1), "12:00 is left out: there is no forecast wind on leg 2");
  // What is sailed is what the route calculation gives with these speeds.
  PassageState single;
  RouteState route = route_;
  for (std::size_t i = 0; i < 3; ++i) route.points[i].speed = passage_.optimum_speeds[0][i];
  ASSERT_EQ(CalculateRoute({6.0F, kDate, false, ""}, config_, tides_, route, single, messages_,
                           progress_),
            RouteOutcome::kDone);
  EXPECT_EQ(single.route_hours, passage_.optimum_times[0]);
  float water = 0.0F;
  for (std::size_t i = 0; i < 3; ++i) {
    water += single.legs[i].result.passage_time * passage_.optimum_speeds[0][i];
  }
  const std::string& first = passage_.result_lines[6];
  EXPECT_EQ(first.substr(first.rfind('\t') + 1), FormatFixed(water, 1, 1) + "nm.");
  EXPECT_EQ(passage_.optimum_speeds[7].size(), 1U);
  EXPECT_EQ(route_.points[1].speed, 5.0F) << "the route keeps its own";

  // The next search without them forgets them.
  request.speeds_at = nullptr;
  request.speeds_from.clear();
  ASSERT_EQ(SearchDeparture(request, config_, tides_, route_, passage_, messages_, progress_),
            RouteOutcome::kDone);
  EXPECT_TRUE(passage_.optimum_speeds.empty());
  EXPECT_EQ(passage_.result_lines[3], " ");
}

TEST_F(Optimum, DoesNotDependOnTheNumberOfThreads) {
  OptimumRequest request;
  request.date = kDate;
  std::vector<std::string> lines;
  for (const unsigned threads : {1U, 2U, 5U}) {
    request.threads = threads;
    PassageState passage;
    ASSERT_EQ(SearchDeparture(request, config_, tides_, route_, passage, messages_, progress_),
              RouteOutcome::kDone);
    ASSERT_EQ(passage.optimum_times.size(), 24U);
    if (threads == 1) lines = passage.result_lines;
    EXPECT_EQ(passage.result_lines, lines) << threads;
  }
}

}  // namespace
}  // namespace skerrow
