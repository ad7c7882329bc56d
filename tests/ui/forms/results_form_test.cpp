#include "ui/forms/results_form.h"

#include <gtest/gtest.h>

#include "support/sample_desk.h"
#include "ui/forms/calc_route_form.h"

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

}  // namespace
}  // namespace skerrow::testing
