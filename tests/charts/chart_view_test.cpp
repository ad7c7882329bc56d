#include "charts/chart_view.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace skerrow {
namespace {

ChartView Channel() {
  const ChartFileRecord file = {51,     100, 49, 3100, -5,   50,   1, 4050,
                                500000, 0,   0,  0,    4100, 3200, ""};
  return MakeChartView(*WorkOutChart(file), 4100, 3200);
}

// Rows by the inverse hyperbolic form of the projection, in double precision.
TEST(ChartView, KnownPlaces) {
  const ChartView view = Channel();
  const struct {
    float latitude;
    double row;
  } rows[] = {{51.0F, 100.0},  {49.0F, 3100.0},   {50.0F, 1615.60},
              {50.5F, 861.81}, {49.25F, 2731.73}, {51.02F, 69.36}};
  for (const auto& row : rows) {
    EXPECT_NEAR(view.LatToRow(row.latitude), row.row, 0.52) << row.latitude;
    EXPECT_NEAR(view.RowToLat(row.row), row.latitude, 1e-5);
  }
  EXPECT_EQ(view.LatToRow(51.0F), 100);
  EXPECT_EQ(view.LatToRow(49.0F), 3100);
  EXPECT_EQ(view.LongToCol(view.west_lon), 0);
  EXPECT_EQ(view.LongToCol(1.075F), 4100);
  EXPECT_EQ(view.LongToCol(-2.5F), 1717);
  EXPECT_EQ(view.LongToCol(-5.0F), 50);
  EXPECT_NEAR(view.ColToLong(4050), 1.0, 1e-5);
}

TEST(ChartView, PlacesFarOutsideStayWithinTheRange) {
  const ChartView view = Channel();
  for (const float odd :
       {90.0F, -90.0F, 3e38F, -3e38F, std::nanf(""), std::numeric_limits<float>::infinity()}) {
    EXPECT_FALSE(view.OnImage(view.LongToCol(odd), 5000)) << odd;
    view.LatToRow(odd);
  }
  EXPECT_EQ(view.LongToCol(3e38F), std::numeric_limits<std::int32_t>::max());
  EXPECT_LT(view.LatToRow(89.9F), 0);
  EXPECT_GT(view.LatToRow(-89.9F), 3200);
}

// The longitude scale follows the image that was opened, not the size its settings tell.
TEST(ChartView, ImageOfAnotherSize) {
  ChartView view = Channel();
  ChartRecord chart;
  chart.west_lon = -5.075F;
  chart.east_lon = 1.075F;
  chart.row_span = 3000;
  chart.merc_span = 1;
  view = MakeChartView(chart, 2050, 1600);
  EXPECT_EQ(view.LongToCol(1.075F), 2050);
  EXPECT_EQ(view.LongToCol(-2.0F), 1025);
}

TEST(ChartView, PanningByFourFifths) {
  const struct {
    PixelRect from;
    PanDirection direction;
    PixelRect to;
  } rows[] = {{{500, 1000, 1000, 500}, PanDirection::kUp, {500, 600, 1000, 500}},
              {{500, 1000, 1000, 500}, PanDirection::kDown, {500, 1400, 1000, 500}},
              {{500, 1000, 1000, 500}, PanDirection::kRight, {1300, 1000, 1000, 500}},
              {{500, 1000, 1000, 500}, PanDirection::kLeft, {0, 1000, 1000, 500}},
              {{500, 0, 1000, 500}, PanDirection::kUp, {500, 0, 1000, 500}},
              {{500, 100, 1000, 500}, PanDirection::kUp, {500, 0, 1000, 500}},
              {{500, 2650, 1000, 500}, PanDirection::kDown, {500, 2700, 1000, 500}},
              {{3000, 0, 1000, 500}, PanDirection::kRight, {3100, 0, 1000, 500}},
              {{0, 0, 5000, 5000}, PanDirection::kDown, {0, 0, 5000, 5000}}};
  for (const auto& row : rows) EXPECT_EQ(Pan(row.from, row.direction, 4100, 3200), row.to);
}

TEST(ChartView, ZoomSteps) {
  const float in[] = {1.0F, 1.3F, 1.8F, 2.3F, 2.5F, 2.5F};
  for (std::size_t i = 0; i + 1 < std::size(in); ++i) EXPECT_FLOAT_EQ(ZoomIn(in[i]), in[i + 1]);
  EXPECT_FLOAT_EQ(ZoomIn(2.4F), 2.5F);
  EXPECT_FLOAT_EQ(ZoomOut(0.6F), 0.2F);
  EXPECT_FLOAT_EQ(ZoomOut(0.2F), 0.2F);
  EXPECT_FLOAT_EQ(ZoomOut(2.5F), 2.0F);
}

TEST(Brightness, StepsAndEnds) {
  Brightness brightness;
  EXPECT_EQ(brightness.Increase(), 0);
  int total = 0;
  for (int i = 0; i < 12; ++i) total += brightness.Decrease();
  EXPECT_EQ(brightness.level, 10);
  EXPECT_EQ(total, -90);
  EXPECT_EQ(brightness.Increase(), 10);
  EXPECT_EQ(brightness.Reset(), 80);
  EXPECT_TRUE(brightness.Day());
}

}  // namespace
}  // namespace skerrow
