#include "ui/plot/plot.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "support/recording_surface.h"

namespace skerrow {
namespace {

Plot DayPlot() {
  Plot plot;
  plot.x = {0.0, 24.0, {{6.0, "06:00"}, {12.0, "12:00"}, {18.0, "18:00 Hours", true, 0, {}, 10.0}}};
  plot.y = {-1.0, 3.0, {{0.0, "0"}, {3.0, "3M"}}};
  return plot;
}

struct TextCall {
  double x = 0.0, y = 0.0;
  std::string across, text;
};

// The texts among recorded calls, one a line: text X,Y ACROSS top SIZE … "TEXT".
std::vector<TextCall> TextsOf(const std::string& calls) {
  std::vector<TextCall> texts;
  std::istringstream lines(calls);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string what;
    TextCall call;
    char comma = 0;
    if (!(words >> what >> call.x >> comma >> call.y >> call.across) || what != "text") continue;
    const std::size_t quote = line.find('"');
    call.text = line.substr(quote + 1, line.rfind('"') - quote - 1);
    texts.push_back(call);
  }
  return texts;
}

bool Has(const std::string& calls, const std::string& line) {
  return calls.find(line + "\n") != std::string::npos;
}

std::string Drawn(const Plot& plot, double width = 480, double height = 300) {
  RecordingSurface surface(width, height);
  DrawPlot(surface, surface.Bounds(), plot);
  return surface.Text();
}

TEST(PlotArea, LeavesRoomForTheLabelsAndMapsBothWays) {
  const Plot plot = DayPlot();
  const RecordingSurface surface(480, 300);
  // 6 of edge; left of the area two letters of 4.5 and a gap of 5; above half a line of 13.5;
  // below a line and the gap.
  const PlotArea area(surface, surface.Bounds(), plot);
  EXPECT_EQ(area.inner(), (SurfaceRect{20.0, 12.75, 454.0, 262.75}));
  EXPECT_EQ(area.ToSurface({0.0, 3.0}), (SurfacePoint{20.0, 12.75}));
  EXPECT_EQ(area.ToSurface({24.0, -1.0}), (SurfacePoint{474.0, 275.5}));
  EXPECT_EQ(area.ToSurface({6.0, 0.0}), (SurfacePoint{133.5, 209.8125}));
  EXPECT_EQ(area.ToData({133.5, 209.8125}), (DataPoint{6.0, 0.0}));
  EXPECT_TRUE(area.Holds({20.0, 12.75}));
  EXPECT_FALSE(area.Holds({19.9, 100.0}));
  EXPECT_FALSE(area.Holds({100.0, 275.6}));

  Plot more = plot;
  more.captions = {{"Depths"}};
  more.tags = true;
  const PlotArea lower(surface, {10.0, 20.0, 400.0, 200.0}, more);
  EXPECT_EQ(lower.inner(), (SurfaceRect{30.0, 58.0, 374.0, 137.5}));
}

TEST(DrawPlot, LinesStandAtTheirValuesAndLabelsBesideThem) {
  Plot plot = DayPlot();
  plot.x.ticks.push_back({30.0, "late"});
  plot.y.ticks.push_back({-2.0, "-2"});
  const std::string calls = Drawn(plot);
  EXPECT_TRUE(Has(calls, "line 133.50,12.75 133.50,275.50"));
  EXPECT_TRUE(Has(calls, "line 20.00,209.50 474.00,209.50"));
  EXPECT_EQ(calls.find("late"), std::string::npos);
  EXPECT_EQ(calls.find("\"-2\""), std::string::npos);
  const std::vector<TextCall> texts = TextsOf(calls);
  ASSERT_EQ(texts.size(), 5U);
  EXPECT_NEAR(texts[0].x, 133.5 - 5 * 4.5 / 2, 0.01);  // centred below its line
  EXPECT_NEAR(texts[0].y, 275.5 + 5.0, 0.01);
  EXPECT_NEAR(texts[2].x, 360.5 - 10.0 * 96 / 72, 0.01);  // ten points to the left of it
  EXPECT_EQ(texts[3].text, "0");
  EXPECT_EQ(texts[3].across, "right");
  EXPECT_NEAR(texts[3].x, 15.0, 0.01);
}

TEST(DrawPlot, SeriesBandsAndMarks) {
  Plot plot = DayPlot();
  plot.series = {{{{0.0, 0.0}, {12.0, 2.0}, {18.0, std::nan("")}, {24.0, 0.0}}, 0x112233, 3},
                 {{{0.0, 1.0}, {6.0, 1.0}}, 0x0000FF, 4, true}};
  plot.series[0].fill_to = -1.0;
  plot.bands = {{18.0, 30.0}};
  plot.marks = {{true, 6.0, 0x808080, true, "Sunrise", 4.5}, {false, 1.0, 0x00FF00, false, "mean"}};
  const std::string calls = Drawn(plot);
  // The band ends with the area; what lies over it has its own colour.
  EXPECT_TRUE(Has(calls, "polygon 360.50,12.75 474.00,12.75 474.00,275.50 360.50,275.50"));
  const std::string outline =
      "polygon 20.00,209.81 247.00,78.44 474.00,209.81 474.00,275.50 20.00,275.50";
  EXPECT_TRUE(Has(calls, "fill 220,238,250\n" + outline));
  EXPECT_TRUE(Has(calls, "fill 200,216,234\n" + outline));
  EXPECT_TRUE(Has(calls, "pen 3 solid 51,34,17\npolyline 20.00,209.81 247.00,78.44 474.00,209.81"));
  EXPECT_TRUE(Has(calls, "ellipse 133.50,144.12 rx 2.00 ry 2.00"));
  // Short strokes, each a fiftieth of the height, which here is 250.
  EXPECT_TRUE(Has(Drawn(plot, 480, 287.25),
                  "pen 1 solid 128,128,128\nline 133.50,12.75 133.50,17.75\n"
                  "line 133.50,22.75 133.50,27.75"));
  EXPECT_TRUE(Has(calls, "pen 1 solid 0,255,0\nline 20.00,144.50 474.00,144.50"));
  for (const TextCall& text : TextsOf(calls)) {
    if (text.text == "Sunrise") {
      EXPECT_NEAR(text.x, 20.0 + 4.5 / 24 * 454, 0.01);
    }
  }
  EXPECT_NE(calls.find("\"Sunrise\""), std::string::npos);
}

// The room that the recording surface takes for a text.
SurfaceRect RoomOf(const TextCall& call, double size) {
  std::size_t letters = call.text.size();
  const double width = 0.5 * size * static_cast<double>(letters);
  const double share = call.across == "left" ? 0.0 : call.across == "centre" ? 0.5 : 1.0;
  return {call.x - share * width, call.y, width, 1.5 * size};
}

TEST(DrawPlot, LabelsNeitherOverlapNorRunOut) {
  Plot plot = DayPlot();
  plot.x.ticks.clear();
  for (int hour = 0; hour <= 24; ++hour) {
    plot.x.ticks.push_back({static_cast<double>(hour), std::to_string(hour) + ":00 Hours"});
  }
  plot.y.ticks.clear();
  for (int metre = 15; metre >= -1; --metre) {
    plot.y.ticks.push_back({static_cast<double>(metre), std::to_string(metre)});
  }
  plot.y.to = 15.0;
  plot.captions = {{"Depths to Chart Datum"}, {"Dover", AlignX::kRight}};
  plot.marks = {{true, 0.2, 0x808080, true, "Sunrise", -1.3},
                {true, 1.0, 0x808080, true, "Sunset"}};
  for (int i = 0; i < 9; ++i)
    plot.spots.push_back({{i * 3.0, i % 2 ? 15.0 : -1.0}, "05:12 12.4 m"});
  for (const auto& [width, height] : {std::pair(480, 300), std::pair(180, 90), std::pair(60, 40)}) {
    const std::vector<TextCall> texts = TextsOf(Drawn(plot, width, height));
    if (width == 480) {
      EXPECT_GT(texts.size(), 16U);
    }
    for (std::size_t i = 0; i < texts.size(); ++i) {
      const SurfaceRect a = RoomOf(texts[i], 9);
      EXPECT_GE(a.left, 0.0) << texts[i].text;
      EXPECT_LE(a.left + a.width, width) << texts[i].text;
      for (std::size_t j = 0; j < i; ++j) {
        const SurfaceRect b = RoomOf(texts[j], 9);
        EXPECT_TRUE(a.left >= b.left + b.width || b.left >= a.left + a.width ||
                    a.top >= b.top + b.height || b.top >= a.top + a.height)
            << texts[i].text << " over " << texts[j].text << " at " << width;
      }
    }
  }
}

TEST(DrawPlot, ASpotAtTheTopHasItsLabelBelow) {
  Plot plot = DayPlot();
  plot.spots = {{{12.0, 3.0}, "high"}, {{6.0, 1.0}, "above"}, {{18.0, 1.0}, "below", false}};
  for (const TextCall& text : TextsOf(Drawn(plot))) {
    if (text.text == "high") {
      EXPECT_NEAR(text.y, 12.75 + 3.5 + 2.0, 0.01);
    }
    if (text.text == "above") {
      EXPECT_NEAR(text.y, 144.125 - 3.5 - 3.0 - 13.5, 0.01);
    }
    if (text.text == "below") {
      EXPECT_NEAR(text.y, 144.125 + 3.5 + 2.0, 0.01);
    }
  }
}

TEST(DrawPlotCursors, AreLinesWithADotAndATagWithinTheArea) {
  Plot plot = DayPlot();
  plot.tags = true;
  RecordingSurface surface(480, 300);
  const PlotArea area(surface, surface.Bounds(), plot);
  const PlotCursor cursor = {6.0, 0x0000FF, 2, false, 1.0, "Now"};
  DrawPlotCursors(surface, area, plot, {{cursor}});
  EXPECT_TRUE(Has(surface.Text(), "pen 2 solid 255,0,0\nline 133.50,26.25 133.50,275.50"));
  EXPECT_TRUE(Has(surface.Text(), "ellipse 133.50,150.88 rx 4.50 ry 4.50"));
  const SurfaceRect reach = CursorReach(surface, area, plot, cursor);
  EXPECT_LE(reach.left, 133.5 - 3 * 4.5 / 2);
  EXPECT_LE(reach.top, 26.25 - 13.5 - 1.0);
  EXPECT_GE(reach.top + reach.height, 275.5);
  for (const double x : {-0.1, 24.1}) {
    RecordingSurface none(480, 300);
    DrawPlotCursors(none, area, plot, {{PlotCursor{x}}});
    EXPECT_EQ(none.Text(), "");
    EXPECT_EQ(CursorReach(none, area, plot, {x}).width, 0.0);
  }
  // A tag at the very edge stays inside.
  RecordingSurface edge(480, 300);
  DrawPlotCursors(edge, area, plot, {{PlotCursor{24.0, 0, 1, false, {}, "Now"}}});
  ASSERT_EQ(TextsOf(edge.Text()).size(), 1U);
  EXPECT_NEAR(TextsOf(edge.Text())[0].x, 474.0 - 3 * 4.5 / 2, 0.01);
}

TEST(DrawPlotCursors, TheLaterTagGoesBeforeOneItWouldLieOn) {
  Plot plot = DayPlot();
  plot.tags = true;
  const auto tags = [&](double x) {
    RecordingSurface surface(480, 300);
    const PlotCursor cursors[] = {{12.0, 0, 1, false, {}, "Now"}, {x, 0, 1, false, {}, "12:30"}};
    DrawPlotCursors(surface, PlotArea(surface, surface.Bounds(), plot), plot, cursors);
    std::vector<std::string> texts;
    for (const TextCall& text : TextsOf(surface.Text())) texts.push_back(text.text);
    return texts;
  };
  EXPECT_EQ(tags(12.5), (std::vector<std::string>{"12:30"}));
  EXPECT_EQ(tags(15.0), (std::vector<std::string>{"12:30", "Now"}));
}

TEST(NiceStep, IsTheSmallestOfOneTwoAndFive) {
  constexpr double kTable[][3] = {{3.0, 6, 0.5},  {3.1, 6, 1.0},   {10.0, 10, 1.0}, {11.0, 10, 2.0},
                                  {0.3, 6, 0.05}, {45.0, 10, 5.0}, {60.0, 10, 10.0}};
  for (const auto& [range, most, step] : kTable) {
    EXPECT_NEAR(NiceStep(range, static_cast<int>(most)), step, 1e-12) << range;
  }
  for (const double range : {0.0, -2.0, std::nan(""), std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(NiceStep(range, 5), 1.0);
  }
}

}  // namespace
}  // namespace skerrow
