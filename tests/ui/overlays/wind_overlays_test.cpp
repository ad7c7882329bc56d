#include "ui/overlays/wind_overlays.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/recording_surface.h"
#include "support/still_clock.h"

namespace skerrow {
namespace {

using Lines = std::vector<std::string>;

// A chart of 4000 x 6400 pixels from 50 to 51 north and 2 to 1 west; by the Mercator formula
// outside the program 50.5 north 1.5 west is at 100, 217 of the view.
class WindOverlays : public ::testing::Test {
 protected:
  WindOverlays() : program({"/p", "/d", "/s"}, clock) {
    program.charts.chart =
        *WorkOutChart({51, 0, 50, 6400, -2, 0, -1, 4000, 100000, 0, 0, 0, 4000, 6400, ""});
    Look(1.0);
    program.config.show_wind_grid = kTrue;
    program.config.use_manual_wind = kFalse;
  }

  void Look(double zoom, double x = 1900.0, double y = 3000.0) {
    ViewGeometry geometry;
    geometry.SetImageSize(4000, 6400);
    geometry.SetViewSize(1600.0, 900.0, 1.0);
    geometry.SetZoom(zoom);
    geometry.Place({x, y}, {0.0, 0.0});
    view = MakeOverlayView(program.charts.chart, geometry, geometry, 12);
  }

  static Lines Split(const std::string& text) {
    std::istringstream stream(text);
    Lines lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
  }
  Lines Barb(float speed, float from, Position at = {50.5F, -1.5F}) {
    RecordingSurface surface(1600.0, 900.0);
    DrawInWind(surface, view, program, at, {.speed_kn = speed, .from_deg = from});
    return Split(surface.Text());
  }
  // What the rows of the wind draw, and their names.
  Lines Draw() {
    RecordingSurface surface(1600.0, 900.0);
    LabelList names;
    for (const Overlay& overlay : Overlays()) {
      if (overlay.name.substr(0, 4) != "wind" || !overlay.shown(program, state)) continue;
      overlay.draw(surface, view, program, state);
      overlay.names(names, view, program, state);
    }
    DrawLabels(surface, view, names, true);
    return Split(surface.Text());
  }
  static std::size_t Count(const Lines& lines, std::string_view start) {
    std::size_t count = 0;
    for (const std::string& line : lines) count += line.starts_with(start) ? 1 : 0;
    return count;
  }

  // A field of winds `step` degrees apart over the chart.
  void FillField(double step) {
    WindField& field = program.wind_field;
    field = WindField{};
    const int count = static_cast<int>(0.9 / step);
    for (int row = 0; row <= count; ++row) {
      for (int column = 0; column <= count; ++column) {
        field.winds.push_back(
            {{static_cast<float>(50.05 + row * step), static_cast<float>(-1.95 + column * step)},
             {.speed_kn = 20.0F, .from_deg = 225.0F},
             row,
             column});
      }
    }
    field.row_step = field.column_step = static_cast<float>(step);
  }

  testing::StillClock clock;
  Program program;
  ViewState state;
  OverlayView view;
};

TEST_F(WindOverlays, ABarbFliesWithTheWindAndItsFeathersStandToWindward) {
  const Lines north = {"pen 2 solid 255,0,0", "line 100.00,217.00 100.00,237.00",
                       "polyline 102.00,233.00 100.00,237.00 98.00,233.00",
                       "line 100.00,217.00 109.00,213.40", "line 100.00,223.00 104.50,221.20"};
  EXPECT_EQ(Barb(15.0F, 0.0F), north);
  // From the west: to the right of the place, the feathers to the north of the shaft.
  const Lines west = {"pen 2 solid 255,0,0", "line 100.00,217.00 120.00,217.00",
                      "polyline 116.00,215.00 120.00,217.00 116.00,219.00",
                      "line 100.00,217.00 96.40,208.00"};
  EXPECT_EQ(Barb(10.0F, 270.0F), west);
  // Half a feather alone stands off the end.
  EXPECT_EQ(Barb(5.0F, 0.0F)[3], "line 100.00,223.00 104.50,221.20");
  EXPECT_EQ(Barb(65.0F, 0.0F),
            (Lines{"pen 2 solid 255,0,0", "line 100.00,217.00 100.00,245.00",
                   "polyline 102.00,241.00 100.00,245.00 98.00,241.00", "fill 255,0,0",
                   "polygon 100.00,217.00 109.00,217.00 100.00,226.00", "fill none",
                   "line 100.00,229.00 109.00,225.40", "line 100.00,235.00 104.50,233.20"}));
  EXPECT_EQ(Barb(2.4F, 0.0F), (Lines{"pen 2 solid 255,0,0", "ring 100.00,217.00 r 4.00"}));
  program.config.barb_length = 40.0F;
  program.config.barb_spacing = 10;
  program.config.barb_weight = 1;
  program.config.wind_colour = kBlue;
  EXPECT_EQ(Barb(15.0F, 0.0F),
            (Lines{"pen 1 solid 0,0,255", "line 100.00,217.00 100.00,257.00",
                   "polyline 102.00,253.00 100.00,257.00 98.00,253.00",
                   "line 100.00,217.00 118.00,209.80", "line 100.00,227.00 109.00,223.40"}));
  for (const float speed : {kNoWind, -1.0F, std::nanf("")}) {
    EXPECT_TRUE(Barb(speed, 0.0F).empty()) << speed;
  }
  EXPECT_TRUE(Barb(10.0F, std::nanf("")).empty());
  EXPECT_TRUE(Barb(10.0F, 0.0F, {50.5F, -2.0F}).empty()) << "on the border";
}

TEST_F(WindOverlays, SouthOfTheEquatorTheFeathersStandOnTheOtherSide) {
  program.charts.chart =
      *WorkOutChart({-50, 0, -51, 6400, -2, 0, -1, 4000, 100000, 0, 0, 0, 4000, 6400, ""});
  Look(1.0);
  const Lines barb = Barb(10.0F, 0.0F, {-50.5F, -1.5F});
  ASSERT_EQ(barb.size(), 4U);
  double x = 0.0;
  double y = 0.0;
  double tip_x = 0.0;
  double tip_y = 0.0;
  ASSERT_EQ(std::sscanf(barb[3].c_str(), "line %lf,%lf %lf,%lf", &x, &y, &tip_x, &tip_y), 4);
  EXPECT_NEAR(tip_x, x - 9.0, 0.01);
  EXPECT_NEAR(tip_y, y - 3.6, 0.01);
}

// The counts of the World Meteorological Organization's plotting model, to the nearest 5 knots.
TEST_F(WindOverlays, CountsByFiveTenAndFifty) {
  const struct {
    float speed;
    int pennants, feathers;
    bool half, calm;
  } rows[] = {{0, 0, 0, false, true},     {2.4F, 0, 0, false, true},   {2.6F, 0, 0, true, false},
              {7.6F, 0, 1, false, false}, {12.0F, 0, 1, false, false}, {12.6F, 0, 1, true, false},
              {45, 0, 4, true, false},    {47.6F, 1, 0, false, false}, {50, 1, 0, false, false},
              {115, 2, 1, true, false}};
  for (const auto& row : rows) {
    const BarbParts parts = BarbPartsOf(row.speed);
    EXPECT_EQ(parts.pennants, row.pennants) << row.speed;
    EXPECT_EQ(parts.feathers, row.feathers) << row.speed;
    EXPECT_EQ(parts.half, row.half) << row.speed;
    EXPECT_EQ(parts.calm, row.calm) << row.speed;
  }
  EXPECT_EQ(WindText({.speed_kn = 12.4F, .from_deg = 7.0F}), "12kn @ 007°T");
  EXPECT_EQ(WindText({.speed_kn = 0.0F, .from_deg = 359.7F}), "0kn @ 000°T");
}

TEST_F(WindOverlays, AFieldThinsOutByPowersOfTwoAndStandsStill) {
  // The shafts begin at the places. 0.02 degrees are 80 columns: all of them at the chart's size.
  const auto places = [this] {
    std::set<std::string> found;
    bool first = false;
    for (const std::string& line : Draw()) {
      if (first) found.insert(line.substr(5, line.find(' ', 5) - 5));
      first = line.starts_with("pen ");
    }
    return found;
  };
  const auto nearest = [](const std::set<std::string>& found) {
    double least = 1e9;
    std::vector<std::pair<double, double>> at;
    for (const std::string& text : found) {
      double x = 0.0;
      double y = 0.0;
      std::sscanf(text.c_str(), "%lf,%lf", &x, &y);
      for (const auto& [u, v] : at) least = std::min(least, std::hypot(u - x, v - y));
      at.emplace_back(x, y);
    }
    return least;
  };
  FillField(0.02);
  Look(0.14, 0.0, 0.0);  // the whole chart
  const std::set<std::string> thin = places();
  EXPECT_EQ(thin.size(), 12U * 12U) << "each fourth row and column: 11.2 pixels, 17.9 pixels";
  EXPECT_GE(nearest(thin), 36.0);
  Look(0.28, 0.0, 0.0);
  EXPECT_GE(nearest(places()), 36.0);
  // A dot of the view that has a barb keeps it when the chart is moved.
  Look(0.5, 100.0, 100.0);
  const Lines before = Draw();
  Look(0.5, 140.0, 100.0);
  const Lines after = Draw();
  EXPECT_GT(Count(after, "line "), 20U);
  EXPECT_NEAR(static_cast<double>(Count(after, "line ")),
              static_cast<double>(Count(before, "line ")),
              0.2 * static_cast<double>(Count(before, "line ")));
}

TEST_F(WindOverlays, WhatIsShownFollowsTheSettings) {
  FillField(0.1);
  program.working_wind = {.speed_kn = 10.0F, .from_deg = 90.0F};
  EXPECT_GT(Count(Draw(), "polyline "), 3U);
  EXPECT_EQ(Count(Draw(), "text "), 0U);
  program.config.barb_display_text = kTrue;
  EXPECT_EQ(Count(Draw(), "text "), Count(Draw(), "polyline "));
  EXPECT_NE(Draw().back().find("\"20kn @ 225°T\""), std::string::npos);
  program.config.use_manual_wind = kTrue;
  EXPECT_NE(Draw().back().find("\"10kn @ 090°T\""), std::string::npos);
  // The wind entered needs no forecast, and stands each 110 pixels where its text is written.
  program.wind_field = WindField{};
  EXPECT_NEAR(static_cast<double>(Count(Draw(), "polyline ")), 1600.0 * 900.0 / (110.0 * 110.0),
              25.0);
  program.config.barb_display_text = kFalse;
  EXPECT_NEAR(static_cast<double>(Count(Draw(), "polyline ")), 1600.0 * 900.0 / (80.0 * 80.0),
              40.0);
  state.rectangle_dragging = true;
  EXPECT_TRUE(Draw().empty());
  state.rectangle_dragging = false;
  program.config.show_wind_grid = kFalse;
  EXPECT_TRUE(Draw().empty());
}

TEST_F(WindOverlays, TheRouteHasTheWindOfItsPoints) {
  RoutePoint point;
  point.latitude = 50.5F;
  point.longitude = -1.5F;
  point.wind_speed = 15.0F;
  point.wind_direction = 0.0F;
  program.route.points = {point, point};
  program.route.points[1].latitude = 50.55F;
  const auto draw = [this] {
    RecordingSurface surface(1600.0, 900.0);
    DrawOverlays(surface, view, program, state);
    return surface.Text();
  };
  program.config.show_wind_grid = kFalse;
  EXPECT_EQ(draw().find("line 100.00,217.00"), std::string::npos);
  program.config.show_wind_over_route = kTrue;
  EXPECT_NE(draw().find("line 100.00,217.00 100.00,237.00"), std::string::npos);
  EXPECT_EQ(draw().find("15kn"), std::string::npos);
  program.config.barb_display_text = kTrue;
  EXPECT_NE(draw().find("\"15kn @ 000°T\""), std::string::npos);
}

}  // namespace
}  // namespace skerrow
