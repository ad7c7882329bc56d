#include "ui/forms/tide_plot.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace skerrow {
namespace {

// A day whose height falls from 5.4 by 0.03 metres an entry, with terms of their own.
TideScreen MakeScreen() {
  TideScreen screen;
  screen.port.latitude = 50.0F;
  screen.date = {165, 2026};
  screen.month_date = {14, 6, "Jun"};
  TideCurve& tide = screen.tide;
  const auto fill = [](std::vector<CurvePoint>& curve, float start, float step) {
    for (int i = 0; i < 148; ++i) {
      const auto n = static_cast<float>(i);
      curve.push_back({n / 6.0F, start + step * n});
    }
  };
  fill(tide.curve, 5.4F, -0.03F);
  fill(tide.layer_m2, 2.3F, -0.03F);  // down to -2.05 at the last entry drawn
  fill(tide.layer_s2, 0.5F, 0.0F);
  for (auto* layer : {&tide.layer_k1, &tide.layer_o1, &tide.layer_f4, &tide.layer_f6}) {
    fill(*layer, 0.1F, 0.0F);
  }
  fill(tide.layer_z0, 3.75F, 0.0F);
  tide.waters = {{true, 6.2F, 4.28F}, {false, 12.5F, -0.24F}};
  screen.plot_top = 6.0F;
  screen.plot_bottom = 1.02F;
  screen.sun.happens.fill(true);
  screen.sun.hours[kSunrise] = 4.75;
  screen.sun.hours[kSunset] = 20.25;
  return screen;
}

std::vector<std::string> LabelsOf(const PlotAxis& axis) {
  std::vector<std::string> labels;
  for (const PlotTick& tick : axis.ticks) {
    if (!tick.label.empty()) labels.push_back(tick.label);
  }
  return labels;
}

// The values with black lines.
std::vector<double> BlackLinesOf(const PlotAxis& axis) {
  std::vector<double> lines;
  for (const PlotTick& tick : axis.ticks) {
    if (tick.line && tick.colour == 0) lines.push_back(tick.at);
  }
  return lines;
}

TEST(TideDayPlot, HasTheToldLinesAndLabels) {
  const TideScreen screen = MakeScreen();
  const Plot plot = TideDayPlot(screen);
  EXPECT_EQ(plot.x.from, 0.0);
  EXPECT_EQ(plot.x.to, 24.0);
  EXPECT_EQ(plot.y.from, 1.02F);
  EXPECT_EQ(plot.y.to, 6.0);
  EXPECT_EQ(LabelsOf(plot.x), (std::vector<std::string>{"03:00", "06:00", "09:00", "12:00", "15:00",
                                                        "18:00", "21:00 Hours"}));
  EXPECT_EQ(BlackLinesOf(plot.x), (std::vector<double>{3, 6, 9, 12, 15, 18, 21}));
  for (const PlotTick& tick : plot.x.ticks) {
    EXPECT_EQ(tick.label_left_pt.value_or(0.0), tick.label.empty() ? 0.0 : 200.0 / 20.0);
  }
  EXPECT_EQ(LabelsOf(plot.y), (std::vector<std::string>{"6M", "5", "4", "3", "2"}));
  EXPECT_EQ(BlackLinesOf(plot.y), (std::vector<double>{6, 5, 4, 3, 2}));

  ASSERT_EQ(plot.series.size(), 1U);
  EXPECT_EQ(plot.series[0].points.size(), 146U);
  EXPECT_EQ(plot.series[0].colour, 0);
  EXPECT_EQ(plot.series[0].fill_to, 1.02F);
  ASSERT_EQ(plot.marks.size(), 2U);
  EXPECT_EQ(plot.marks[0].words, "Sunrise");
  EXPECT_EQ(plot.marks[0].at, 4.75);
  EXPECT_EQ(plot.marks[0].words_at, 3.25);
  EXPECT_EQ(plot.marks[0].colour, 0x808080);
  EXPECT_EQ(plot.marks[1].words, "Sunset");
  EXPECT_EQ(plot.marks[1].at, 20.25);
  ASSERT_EQ(plot.spots.size(), 2U);
  EXPECT_EQ(plot.spots[0].label, "06:12\n4.3 m");
  EXPECT_TRUE(plot.spots[0].above);
  EXPECT_EQ(plot.spots[1].label, "12:30\n-0.2 m");
  EXPECT_FALSE(plot.spots[1].above);
  EXPECT_EQ(plot.captions[0].text, "Depths to Chart Datum");
}

TEST(TideDayPlot, TheDottedCurveLiesLowerByDraughtAndClearance) {
  TideScreen screen = MakeScreen();
  screen.display = {3, 0.5F, 1.25F, false};
  const Plot plot = TideDayPlot(screen);
  ASSERT_EQ(plot.series.size(), 2U);
  EXPECT_TRUE(plot.series[1].dots);
  EXPECT_EQ(plot.series[1].points.size(), 147U);
  EXPECT_NEAR(plot.series[1].points[10].y, 5.1 - 1.75, 1e-5);
  EXPECT_EQ(plot.captions[0].text, " : Draft=0.5M : Clearance=1.25M");
  screen.display.option = 2;
  EXPECT_EQ(TideDayPlot(screen).series.size(), 1U);
}

TEST(TideDayPlot, LinesBelowMinusOneAreLightAndAHugeRangeHasFewLines) {
  TideScreen screen = MakeScreen();
  screen.plot_bottom = -4.0F;
  screen.plot_top = 2.0F;
  const Plot plot = TideDayPlot(screen);
  EXPECT_EQ(BlackLinesOf(plot.y), (std::vector<double>{2, 1, 0, -1}));
  EXPECT_EQ(LabelsOf(plot.y), (std::vector<std::string>{"2M", "1", "0", "-1", "-2", "-3", "-4"}));
  // The numbers of a damaged record.
  screen.plot_top = 1e30F;
  EXPECT_LT(TideDayPlot(screen).y.ticks.size(), 60U);
  screen.plot_top = std::numeric_limits<float>::quiet_NaN();
  EXPECT_TRUE(TideDayPlot(screen).y.ticks.empty());
}

TEST(TideTermsPlot, DrawsTheTermsThatAreShownInTheirColours) {
  constexpr std::int32_t kColours[kTideTerms] = {0xFF0000, 0x0000FF, 0,       0x00FFFF,
                                                 0x00FF00, 0xFF00FF, 0x0000FF};
  constexpr bool kDots[kTideTerms] = {false, false, true, false, false, false, true};
  const TideScreen screen = MakeScreen();
  for (std::size_t term = 0; term < kTideTerms; ++term) {
    TideTermsShown shown{};
    shown[term] = true;
    const Plot plot = TideTermsPlot(screen, shown);
    // Yellow is drawn over a darker line.
    ASSERT_EQ(plot.series.size(), kColours[term] == 0x00FFFF ? 2U : 1U) << term;
    EXPECT_EQ(plot.series.back().colour, kColours[term]) << term;
    EXPECT_EQ(plot.series.back().dots, kDots[term]) << term;
    EXPECT_EQ(LabelsOf(plot.y),
              (std::vector<std::string>{"4 Metres", "3", "2", "1", "0", "-1", "-2", "-3"}));
  }
  const Plot m2 = TideTermsPlot(screen, {true});
  EXPECT_NEAR(m2.series[0].points[100].y, -0.7, 1e-5);
  const Plot z0 = TideTermsPlot(screen, {false, false, false, false, false, false, true});
  EXPECT_NEAR(z0.series[0].points[100].y, 3.75, 1e-5);
}

TEST(NightsOf, LieBetweenSunsetAndSunrise) {
  TideScreen screen = MakeScreen();
  const auto nights = [&] {
    std::vector<std::pair<double, double>> spans;
    for (const PlotBand& band : NightsOf(screen)) spans.emplace_back(band.from, band.to);
    return spans;
  };
  using Spans = std::vector<std::pair<double, double>>;
  EXPECT_EQ(nights(), (Spans{{0.0, 4.75}, {20.25, 24.0}}));
  // With the hour of summer time an evening can lie past 24.
  screen.sun.hours[kSunset] = 24.5;
  EXPECT_EQ(nights(), (Spans{{0.5, 4.75}}));

  screen.sun.happens[kSunrise] = screen.sun.happens[kSunset] = false;
  struct Row {
    float latitude;
    std::int16_t month;
    bool night;
  };
  for (const Row& row :
       {Row{70.0F, 6, false}, {70.0F, 12, true}, {-70.0F, 6, true}, {-70.0F, 1, false}}) {
    screen.port.latitude = row.latitude;
    screen.month_date.month = row.month;
    EXPECT_EQ(nights(), row.night ? (Spans{{0.0, 24.0}}) : Spans{}) << row.latitude << row.month;
  }
  EXPECT_TRUE(TideDayPlot(screen).marks.empty());
}

TEST(CursorsOf, TheTimeCursorMakesRoomForTheMouseUnlessItIsThePresent) {
  const TideScreen screen = MakeScreen();
  const auto at_rest = CursorsOf(screen, {9.5, false, {}, false});
  ASSERT_EQ(at_rest.size(), 1U);
  EXPECT_EQ(at_rest[0].x, 9.5);
  EXPECT_EQ(at_rest[0].colour, 0);
  EXPECT_EQ(at_rest[0].tag, "09:30");
  EXPECT_NEAR(*at_rest[0].dot, 5.4 - 0.03 * 57, 1e-4);
  const auto moved = CursorsOf(screen, {9.5, false, 12.25, false});
  ASSERT_EQ(moved.size(), 1U);
  EXPECT_EQ(moved[0].colour, 0x0000FF);
  EXPECT_EQ(moved[0].tag, "12:15");
  EXPECT_NEAR(*moved[0].dot, 5.4 - 0.03 * 73.5, 1e-4);  // between two entries
  const auto today = CursorsOf(screen, {9.5, true, 12.25, true});
  ASSERT_EQ(today.size(), 2U);
  EXPECT_EQ(today[0].tag, "Now");
  EXPECT_FALSE(today[0].dot);
}

}  // namespace
}  // namespace skerrow
