#include "ui/forms/load_chart_form.h"

#include <gtest/gtest.h>

#include "support/sample_desk.h"
#include "ui/forms/date_form.h"

namespace skerrow::testing {
namespace {

class LoadChartFormOnDesk : public SampleDesk {};

std::vector<ChartIndexEntry> ThreeCharts() {
  ChartIndexEntry small{"1-1", "English Channel ", 1250000.0F, 0, 0, 0, 0, "", ""};
  ChartIndexEntry middle{"1-2", "The Solent", 75000.0F, 0, 0, 0, 0, "", ""};
  ChartIndexEntry large{"1-3", "Solent, Cowes", 5000.0F, 0, 0, 0, 0, "", ""};
  return {small, middle, large};
}

TEST(LoadChartForm, ListsTheChartsAboveTheFilter) {
  const auto index = ThreeCharts();
  EXPECT_EQ(ChartRows(index, 0).size(), 3U);
  ASSERT_EQ(ChartRows(index, 5000).size(), 2U);  // a scale equal to the filter is left out
  EXPECT_EQ(ChartRows(index, 5000)[0].title, "English Channel");
  EXPECT_EQ(ChartRows(index, 80000).size(), 1U);
  EXPECT_TRUE(ChartRows(index, 2000000).empty());
}

TEST(LoadChartForm, SearchesOnFromTheCurrentRowAndRound) {
  const auto rows = ChartRows(ThreeCharts(), 0);
  EXPECT_EQ(FindChartRow(rows, "SOLENT", -1), 1U);
  EXPECT_EQ(FindChartRow(rows, "solent", 1), 2U);
  EXPECT_EQ(FindChartRow(rows, "solent", 2), 1U);
  EXPECT_FALSE(FindChartRow(rows, "Brest", 0));
  EXPECT_FALSE(FindChartRow(rows, " ", 0));
  EXPECT_FALSE(FindChartRow({}, "a", -1));
}

TEST_F(LoadChartFormOnDesk, AChoiceIsStoredAndAFailedOneChangesNothing) {
  EXPECT_EQ(SeaAreas(program.folders), std::vector<std::string>{"Sample Chart"});
  const std::string before = program.config.chart_path;
  EXPECT_FALSE(
      ChooseChart(program.folders, {"Sample Chart", "no-such", 0}, program.config, program.charts)
          .ok());
  EXPECT_EQ(program.config.chart_path, before);
  ASSERT_TRUE(ChooseChart(program.folders, {"Sample Chart", "9999-3 ", 10000}, program.config,
                          program.charts)
                  .ok());
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(program.folders, stored).ok());
  EXPECT_EQ(stored.chart_path, program.folders.Charts() + "/9999-3");
  EXPECT_FLOAT_EQ(stored.chart_scale_choice, 10000.0F);
  EXPECT_EQ(program.charts.history.back(), program.config.chart_path);
}

TEST(DateForm, OffersTheYearsAndJoinsInTheMachinesOrder) {
  EXPECT_EQ(YearsToOffer(2026, 2026).size(), 51U);
  EXPECT_EQ(YearsToOffer(2026, 2026).back(), 2076);
  EXPECT_EQ(YearsToOffer(2026, 2019).front(), 2019);
  EXPECT_EQ(PredictedDayText(7, 5, 2012, "DD/MM/YYYY").text, "(Monday) 7 May 2012");
  EXPECT_EQ(PredictedDayText(7, 5, 2012, "YYYY-DD-MM").text, "(Monday) 2012 7 May");
  EXPECT_EQ(PredictedDayText(7, 5, 2012, "MM.DD.YYYY").text, "(Monday) May 7 2012");
  EXPECT_FALSE(PredictedDayText(29, 2, 2027, "DD/MM/YYYY").valid);
  EXPECT_TRUE(PredictedDayText(29, 2, 2028, "DD/MM/YYYY").valid);
}

}  // namespace
}  // namespace skerrow::testing
