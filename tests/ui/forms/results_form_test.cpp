#include "ui/forms/results_form.h"

#include <gtest/gtest.h>

#include "support/sample_desk.h"
#include "ui/forms/calc_route_form.h"
#include "ui/forms/report_look.h"

namespace skerrow::testing {
namespace {

class FinishResultsOnDesk : public SampleDesk {};

PassageState SevenReadings() {
  PassageState passage;
  for (int i = 0; i <= 7; ++i) {
    passage.route_track.push_back({{50.0F + 0.1F * static_cast<float>(i), -1.5F}, 0.0F, {}});
  }
  for (int i = 1; i <= 7; ++i) {
    passage.route_streams.push_back(
        {1.25F, 7.0F, static_cast<float>(i), "9999, " + std::to_string(i)});
  }
  return passage;
}

TEST(StreamRows, EveryThirdReadingUnlessAllAreAskedFor) {
  const PassageState passage = SevenReadings();
  const std::vector<std::string> thirds = StreamRows(passage, false, false);
  EXPECT_EQ(thirds,
            (std::vector<std::string>{
                "Time\tPredicted Position\tStream", "01:00\t50.00.00N, 001.30.00W\t1.3@007",
                "04:00\t50.18.00N, 001.30.00W\t1.3@007", "07:00\t50.36.00N, 001.30.00W\t1.3@007"}));
  const std::vector<std::string> all = StreamRows(passage, true, true);
  ASSERT_EQ(all.size(), 8U);
  EXPECT_EQ(all.front(), "Time\tPredicted Position\tStream\tTidal Stream ID");
  EXPECT_EQ(all.back(), "07:00\t50.36.00N, 001.30.00W\t1.3@007\t9999, 7");
  EXPECT_EQ(StreamRows({}, true, false).size(), 1U);
}

TEST_F(FinishResultsOnDesk, GivesEachPointTheForecastOfItsArrival) {
  LoadSample();
  NoProgress progress;
  ASSERT_EQ(RunCalculation(program, {"20:00", false, ""}, messages, progress), RouteOutcome::kDone);
  std::vector<float> asked;
  RouteDefaults defaults = RouteDefaultsOf(program);
  defaults.wind_at = [&asked](Position, DayAndYear, float hours) -> std::optional<Wind> {
    asked.push_back(hours);
    return Wind{12.0F, 180.0F};
  };
  // The user's own wind is in force: nothing is looked up.
  FinishResults(program, defaults);
  EXPECT_TRUE(asked.empty());
  defaults.constant_wind = false;
  FinishResults(program, defaults);
  ASSERT_EQ(asked.size(), program.route.points.size());
  EXPECT_FLOAT_EQ(asked[0], 20.0F);
  for (std::size_t i = 0; i < program.passage.legs.size(); ++i) {
    EXPECT_FLOAT_EQ(asked[i + 1], program.passage.legs[i].arrival_hours) << i;
  }
  EXPECT_FLOAT_EQ(program.route.points.back().wind_speed, 12.0F);
}

const std::vector<std::string> kReport = {
    "RESULTS ARE FROM DERIVED DATA AND AS SUCH ARE ONLY APPROXIMATE",
    "* WARNING * Unable to achieve destination waypoint",
    "Route calculation for 14 Jun 2026",
    " ",
    "Steer 203\u00b0M\t Time taken=00Hrs 40Min  at 5.5 kt.",
    "From \t50.39.63N , 001.36.88W   a",
    "To \t50.36.00N , 001.39.60W   b",
    "Starting at 09:30 arriving at 10:10",
    "Range and bearing between waypoints : 4.0nm @ 205\u00b0T ",
    "Speed Over Ground = 6.0kt. Water Track Distance 4.0nm.",
    "Steer 160\u00b0M\t Time taken=03Hrs 21Min  at 5.5 kt.",
    "From \t50.36.00N , 001.39.60W   b",
    "To \t50.18.00N , 001.39.60W   c",
    "Starting at 10:10 arriving at 13:31",
    "Range and bearing between waypoints : 18.0nm @ 180\u00b0T ",
    "Speed Over Ground = 5.4kt. Water Track Distance 17.9nm.",
    " ",
    "Reference Port predictions for the areas Tidal Diamonds ",
    " ",
    "Port Name Dover",
    "05:00\t0.9",
    "10:00\t6.6",
    "17:20\t0.9",
    " ",
    "Port Name Lone",
    "05:00\t0.9",
    " ",
    "Port Name Below datum",
    "01:10\t2.0",
    "07:20\t-0.1",
    " "};

TEST(ReportLook, TellsLegsPortsAndTheStateOfTheTide) {
  using enum ReportLook;
  const std::vector<ReportLine> looks = LooksOf(kReport);
  std::vector<ReportLook> got;
  for (const ReportLine& line : looks) got.push_back(line.look);
  EXPECT_EQ(got,
            (std::vector<ReportLook>{kNotice, kWarning,   kHeading,   kPlain,  // the head
                                     kLeg,    kPlain,     kPlain,     kPlain,    kPlain, kPlain,  //
                                     kLeg,    kPlain,     kPlain,     kPlain,    kPlain, kPlain,  //
                                     kPlain,  kHeading,   kPlain,                                 //
                                     kPort,   kLowWater,  kHighWater, kLowWater, kPlain,          //
                                     kPort,   kHeight,    kPlain,                                 //
                                     kPort,   kHighWater, kLowWater,  kPlain}));
  EXPECT_EQ(looks[4].leg, 1);
  EXPECT_EQ(looks[10].leg, 2);
  // The departures of a search begin like heights.
  for (const char* row :
       {"06:00\t11:52\t05Hrs 52Min \t5.10kt.\t30.00nm.\t29.3nm.", "07:00\t-\t-\t-\t-\t-"}) {
    EXPECT_EQ(LooksOf({row, "08:00\t0.9"})[0].look, kPlain) << row;
  }
}

TEST(ReportLook, ThePageKeepsEveryLineInItsBlock) {
  const PrintDocument page = ReportPage("Results", "Solent", kReport);
  EXPECT_EQ(page.foot, "Solent");
  EXPECT_EQ(page.title, "Results - Solent");
  std::vector<std::string> blocks;
  for (const PrintItem& item : page.items) {
    for (const auto& block : item.blocks) {
      std::string text;
      for (const PrintItem& line : block) text += line.text + "|";
      blocks.push_back(text);
    }
  }
  ASSERT_EQ(blocks.size(), 5U);
  EXPECT_TRUE(blocks[0].starts_with("1  Steer 203\u00b0M\t"));
  EXPECT_TRUE(blocks[1].ends_with("Water Track Distance 17.9nm.|"));
  EXPECT_EQ(blocks[2], "Port Name Dover|LW\t05:00\t0.9 m|HW\t10:00\t6.6 m|LW\t17:20\t0.9 m|");
  EXPECT_EQ(blocks[3], "Port Name Lone|\t05:00\t0.9 m|");
  EXPECT_EQ(blocks[4], "Port Name Below datum|HW\t01:10\t2.0 m|LW\t07:20\t-0.1 m|");
}

TEST_F(FinishResultsOnDesk, APageIsNamedAfterTheRoute) {
  EXPECT_EQ(RouteTitle(program), "");
  LoadSample();
  EXPECT_EQ(RouteTitle(program), "Bridge Buoy(Needles) to Cherbourg West Entrance");
  program.edits.route_path = "/a/Cowes to Alderney.rte";
  EXPECT_EQ(RouteTitle(program), "Cowes to Alderney");
}

}  // namespace
}  // namespace skerrow::testing
