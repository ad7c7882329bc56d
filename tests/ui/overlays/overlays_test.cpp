#include "ui/overlays/overlays.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <set>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include "core/plane_sailing.h"
#include "support/recording_surface.h"
#include "support/still_clock.h"
#include "support/temp_folder.h"
#include "ui/drawing/qt_surface.h"
#include "ui/overlays/live_overlays.h"

namespace skerrow {
namespace {

// A chart of 4000 x 6400 pixels from 50 to 51 north and 2 to 1 west. Worked out by the Mercator
// formula outside the program: 50.5 north is row 3217, 50.75 north 1613, 50.25 north 4813.
ChartRecord TestChart() {
  return *WorkOutChart({51, 0, 50, 6400, -2, 0, -1, 4000, 100000, 0, 0, 0, 4000, 6400, ""});
}

class OverlaysTest : public ::testing::Test {
 protected:
  OverlaysTest() : program({"/p", "/d", "/s"}, clock) {
    program.charts.chart = TestChart();
    program.config.show_tide_heights = kFalse;
    program.config.show_vectors = kFalse;
    Look(1.0, {1900.0, 3000.0});
  }

  // A view of 1600 x 900 with that place of the picture in its top left corner.
  void Look(double zoom, ImagePoint corner) {
    ViewGeometry geometry;
    geometry.SetImageSize(4000, 6400);
    geometry.SetViewSize(1600.0, 900.0, 1.0);
    geometry.SetZoom(zoom);
    geometry.Place(corner, {0.0, 0.0});
    view = MakeOverlayView(program.charts.chart, geometry, geometry, 12);
  }

  void SetRoute(const std::vector<RoutePoint>& points) {
    program.route.points = points;
    RelinkRoute(program.route.points);
    program.route.track = RouteTrackOf(program.route.points);
  }

  std::string Draw() {
    RecordingSurface surface(1600.0, 900.0);
    DrawOverlays(surface, view, program, state);
    return surface.Text();
  }

  // What the overlay of that name draws when it is shown, its names last.
  std::string DrawOne(std::string_view name) {
    for (const Overlay& overlay : Overlays()) {
      if (overlay.name != name) continue;
      RecordingSurface surface(1600.0, 900.0);
      if (overlay.draw != nullptr && overlay.shown(program, state)) {
        overlay.draw(surface, view, program, state);
        LabelList names;
        if (overlay.names != nullptr) overlay.names(names, view, program, state);
        DrawLabels(surface, view, names, view.geometry.zoom() >= 1.0);
      }
      return surface.Text();
    }
    ADD_FAILURE() << "no overlay " << name;
    return {};
  }

  // The names of a paint, and where each begins.
  std::multimap<std::string, SurfacePoint> Names() {
    std::multimap<std::string, SurfacePoint> names;
    std::istringstream lines(Draw());
    for (std::string line; std::getline(lines, line);) {
      SurfacePoint at;
      if (std::sscanf(line.c_str(), "text %lf,%lf", &at.x, &at.y) != 2) continue;
      const std::size_t quote = line.find('"');
      names.emplace(line.substr(quote + 1, line.size() - quote - 2), at);
    }
    return names;
  }

  bool Shown(std::string_view name) {
    const auto row = std::find_if(Overlays().begin(), Overlays().end(),
                                  [&](const Overlay& overlay) { return overlay.name == name; });
    return row != Overlays().end() && row->shown(program, state);
  }

  static RoutePoint Point(float latitude, float longitude, const char* name = "") {
    RoutePoint point;
    point.latitude = latitude;
    point.longitude = longitude;
    point.name = name;
    return point;
  }

  // Something for every overlay, all within the first view.
  void FillEverything() {
    SetRoute({Point(50.5F, -1.5F), Point(50.48F, -1.48F)});
    program.waypoints.waypoints = {{"Wreck  ", 50.5F, -1.5F}};
    program.passage.route_track = {{{50.5F, -1.5F}, 0.0F, {}}, {{50.49F, -1.49F}, 0.1F, {}}};
    program.route.points[0].tide_vector = {{50.5F, -1.5F}, {50.49F, -1.49F}};
    program.nmea.fix.boat_latitude = 50.49F;
    program.nmea.fix.boat_longitude = -1.47F;
    state.dividers_on = true;
    program.config.show_chart_boundaries = kTrue;
    program.config.show_tide_heights = kTrue;
    program.config.boat_future_tide_plot = kTrue;
    program.config.show_vectors = kTrue;
    program.charts.index = {{"9999-1", "Sample", 1.0F, 50.45F, -1.5F, 50.5F, -1.4F, "", ""}};
    program.port_markers = {{"Port", 50.5F, -1.5F}};
    state.zero_point = Position{50.5F, -1.5F};
    program.nmea.fix.position_good = true;
    program.boat_ahead = {{50.49F, -1.47F}, {50.48F, -1.46F}};
    program.mob.on = true;
    program.mob.position = {50.49F, -1.5F};
    state.marked_point_on = true;
    state.marked = {50.5F, -1.49F};
    state.calculation_on_show = true;
    state.candidate_chart = program.charts.index[0];
    program.tides.tidal_streams = {{"9999-1", 50.49, -1.49, 90.0F, 1.570796F, 1.5F}};
    program.tides.harmonic_streams_on = true;
    program.tides.harmonic_streams = {{},
                                      {"9999-1", 50.48F, -1.48F, 1.0F, 0.0F, 90.0F, 1.0F, 1.57F}};
    program.nmea.track = {{.latitude = 50.5F, .longitude = -1.5F},
                          {.latitude = 50.49F, .longitude = -1.49F}};
    PlotFrom({{50.5F, -1.5F, "", "", ""}, {50.49F, -1.49F, "", "", "tacked"}});
    program.plot.track_plot_on = true;
  }

  // Makes those the records of the plot file in force.
  void PlotFrom(const std::vector<PlotRecord>& records) {
    program.plot.plot_file_name = folder.File("plot.trk");
    ASSERT_TRUE(WriteRecords<PlotRecord>(program.plot.plot_file_name, records, kPlotFields));
  }

  const testing::TempFolder folder;
  testing::StillClock clock;
  Program program;
  ViewState state;
  OverlayView view;
};

TEST_F(OverlaysTest, StandInTheirOrder) {
  const std::vector<std::string_view> expected = {
      "dividers",           "route",         "route legs",       "waypoints",
      "course over ground", "boat",          "range rings",      "future positions",
      "man overboard",      "marked point",  "AIS mark",         "chart boundaries",
      "candidate chart",    "tidal streams", "harmonic streams", "tidal ports",
      "wind entered",       "wind imported", "AIS targets",      "boat of a replay",
      "live track",         "plot file",     "vectors"};
  std::vector<std::string_view> names;
  for (const Overlay& overlay : Overlays()) names.push_back(overlay.name);
  EXPECT_EQ(names, expected);
}

TEST_F(OverlaysTest, APaintIsItsRowsOneAfterTheOtherAndThenTheNames) {
  FillEverything();
  const auto shapes = [](const std::string& text) { return text.substr(0, text.find("text ")); };
  const std::string whole = Draw();
  std::string rows;
  std::set<std::string_view> silent;
  for (const Overlay& overlay : Overlays()) {
    const std::string row = DrawOne(overlay.name);
    if (row.empty()) silent.insert(overlay.name);
    rows += shapes(row);
  }
  EXPECT_EQ(shapes(whole), rows);
  // No replay and no AIS runs, and the wind is hidden.
  EXPECT_EQ(silent, (std::set<std::string_view>{"wind entered", "wind imported", "AIS mark",
                                                "AIS targets", "boat of a replay"}));
  EXPECT_EQ(Draw(), whole) << "a paint changed something that the next one sees";
}

TEST_F(OverlaysTest, NothingToShowAndNoPictureDrawNothing) {
  program.config.show_streams = 0.0F;
  EXPECT_EQ(DrawOne("route"), "");
  SetRoute({Point(50.5F, -1.5F)});  // one point is a start and no more
  EXPECT_EQ(DrawOne("route legs") + DrawOne("vectors"), "");
  SetRoute({});
  state.dividers_on = true;  // but no point is set
  program.config.show_vectors = kTrue;
  program.config.show_chart_boundaries = kTrue;
  EXPECT_EQ(Draw().find("ring"), std::string::npos);
  EXPECT_EQ(DrawOne("dividers"), "");
  FillEverything();
  view = MakeOverlayView(program.charts.chart, {}, {}, 12);
  EXPECT_EQ(Draw(), "");
}

TEST_F(OverlaysTest, MarkerRadiusFollowsViewAndShape) {
  EXPECT_EQ(MarkerRadius(1600.0, 4000, 6400), 3);  // 4.8 -> 5, 5 / 1.6 = 3.125
  EXPECT_EQ(MarkerRadius(1000.0, 4000, 2000), 6);  // 3 / 0.5
  EXPECT_EQ(MarkerRadius(1500.0, 1000, 1000), 4);  // 4.5 -> 4: half to even
  EXPECT_EQ(MarkerRadius(1000.0, 0, 0), 0);
}

TEST_F(OverlaysTest, RouteHasNamedPointsAndStandsStillAtEveryZoom) {
  SetRoute({Point(50.5F, -1.5F, "Harbour"), Point(50.5F, -1.45F), Point(50.48F, -1.45F, "Buoy")});
  const auto rings = [](const std::string& at, const std::string& colour) {
    return "pen 6 solid 255,255,255\nring " + at + " r 7.00\npen 2 solid " + colour + "\nring " +
           at + " r 7.00\npen 1 solid " + colour + "\nring " + at + " r 3.00\n";
  };
  EXPECT_EQ(DrawOne("route"),
            rings("100.00,217.00", "255,0,0") + rings("300.00,217.00", "0,0,255") +
                rings("300.00,345.00", "0,0,255") +
                "text 311.00,345.00 left middle 12 bold 0,0,0 halo 255,255,255 \"Buoy\"\n"
                "text 311.00,217.00 left middle 12 bold 0,0,0 halo 255,255,255 \"Waypoint 2\"\n"
                "text 59.00,217.00 left middle 12 bold 0,0,0 halo 255,255,255 \"Start\"\n");
  Look(0.5, {600.0, 2400.0});
  const std::string half = DrawOne("route");
  EXPECT_NE(half.find("ring 700.00,408.50 r 3.00\n"), std::string::npos) << half;
  EXPECT_NE(half.find("ring 800.00,408.50 r 3.00\n"), std::string::npos) << half;
}

// One arrow in the middle of a short leg, more on a long one, none where a leg is a stub; each
// points the way the leg leads.
TEST_F(OverlaysTest, ArrowsSayWhichWayALegLeads) {
  SetRoute({Point(50.5F, -1.5F), Point(50.5F, -1.45F), Point(50.5F, -1.445F), Point(50.5F, -1.3F)});
  const std::string legs = DrawOne("route legs");
  EXPECT_NE(legs.find("pen 1 solid 255,255,255\nfill 0,0,255\n"
                      "polygon 205.50,217.00 194.50,222.50 194.50,211.50\n"),
            std::string::npos)
      << legs;
  // 580 pixels: three of them.
  EXPECT_EQ(std::count(legs.begin(), legs.end(), 'g'), 4) << legs;
  EXPECT_EQ(legs.substr(legs.rfind("fill")), "fill none\n");
  SetRoute({Point(50.48F, -1.5F), Point(50.5F, -1.5F)});  // northwards
  EXPECT_NE(DrawOne("route legs").find("polygon 100.00,275.50 105.50,286.50 94.50,286.50\n"),
            std::string::npos)
      << DrawOne("route legs");
}

TEST_F(OverlaysTest, LegsAreCutWhereTheChartEnds) {
  program.config.line_width = 3.0F;
  program.route.track = {{50.5F, -1.5F},  {50.5F, -1.45F}, {50.5F, -0.5F},
                         {50.48F, -1.5F}, {50.5F, -1.5F},  {51.0F, -1.5F}};
  EXPECT_EQ(DrawOne("route legs"),
            "pen 3 solid 0,0,255\n"
            "polyline 100.00,217.00 300.00,217.00\n"
            "polyline 100.00,345.00 100.00,217.00\n"
            "pen 1 solid 255,255,255\n"
            "fill 0,0,255\n"
            "fill none\n");
}

TEST_F(OverlaysTest, BordersAndNonsenseAreNotDrawn) {
  Look(0.2, {0.0, 0.0});
  const float nan = std::numeric_limits<float>::quiet_NaN();
  program.waypoints.waypoints = {{"top", 51.0F, -1.5F},  {"bottom", 50.0F, -1.5F},
                                 {"west", 50.5F, -2.0F}, {"east", 50.5F, -1.0F},
                                 {"nan", nan, -1.5F},    {"edge", 50.5F, -1.99999F}};
  EXPECT_EQ(DrawOne("waypoints"), "pen 1 solid 0,0,255\n");
  program.waypoints.waypoints = {{"in", 50.9999F, -1.5F}};
  EXPECT_NE(DrawOne("waypoints").find("\"in\""), std::string::npos);
}

TEST_F(OverlaysTest, WaypointsHaveARingAnEllipseAndATrimmedName) {
  program.config.font_colour = Rgb(10, 20, 30);
  program.waypoints.waypoints = {{"Outer Nab  ", 50.5F, -1.5F}};
  view.text_size = 9;
  EXPECT_EQ(DrawOne("waypoints"),
            "pen 1 solid 0,0,255\n"
            "ring 100.00,217.00 r 3.00\n"
            "ellipse 100.00,217.00 rx 1.00 ry 3.00\n"
            "text 107.00,217.00 left middle 9 bold 10,20,30 halo 255,255,255 \"Outer Nab\"\n");
  program.config.show_waypoints = 0.0F;
  SetRoute({Point(50.5F, -1.5F), Point(50.5F, -1.45F, "Outer Nab")});
  EXPECT_EQ(DrawOne("waypoints"), "");
  EXPECT_NE(Draw().find("\"Outer Nab\""), std::string::npos) << "the route point keeps its name";
}

TEST_F(OverlaysTest, WhatIsOffTheScreenIsLeftOut) {
  // Row 3217; columns far left, just left with its name reaching in, and far right.
  program.waypoints.waypoints = {
      {"away", 50.5F, -1.9F}, {"Reaching in", 50.5F, -1.53F}, {"right", 50.5F, -1.1F}};
  EXPECT_EQ(DrawOne("waypoints"),
            "pen 1 solid 0,0,255\n"
            "text -13.00,217.00 left middle 12 bold 0,0,0 halo 255,255,255 \"Reaching in\"\n");
}

TEST_F(OverlaysTest, Dividers) {
  state.dividers_on = true;
  state.zero_point = Position{50.5F, -1.5F};
  const std::string ring =
      "pen 1 solid 255,0,0\n"
      "ring 100.00,217.00 r 3.00\n";
  const std::string reference =
      "text 107.00,217.00 left middle 12 bold 0,0,0 halo 255,255,255 \"Divider Ref.\"\n";
  EXPECT_EQ(DrawOne("dividers"), ring + reference);
  // 0.2 degrees of longitude at 50.5 north: 12 x cos(50.5) = 7.6 miles, due east.
  state.divider_end = Position{50.5F, -1.3F};
  EXPECT_EQ(DrawOne("dividers"),
            "pen 1 solid 255,0,0\n"
            "line 100.00,217.00 900.00,217.00\n" +
                ring +
                "pen 1 solid 0,0,255\n"
                "ring 900.00,217.00 r 3.00\n" +
                reference +
                "text 907.00,217.00 left middle 12 bold 0,0,0 halo 255,255,255 \"7.6nm@090°T\"\n");
  // Both points in one place: a range of 0 has no text.
  state.divider_end = state.zero_point;
  EXPECT_EQ(DrawOne("dividers").find("nm@"), std::string::npos);
  state.dividers_on = false;
  EXPECT_EQ(Draw(), "");
}

TEST_F(OverlaysTest, DividersBeyond3000MilesHaveNoText) {
  // A chart of the whole ocean.
  program.charts.chart =
      *WorkOutChart({70, 0, -70, 6400, -90, 0, 90, 4000, 100000, 0, 0, 0, 4000, 6400, ""});
  Look(0.2, {0.0, 0.0});
  state.dividers_on = true;
  state.zero_point = Position{-20.0F, 0.0F};
  state.divider_end = Position{29.9F, 0.0F};
  EXPECT_NE(DrawOne("dividers").find("\"2994.0nm@000°T\""), std::string::npos);
  state.divider_end = Position{30.1F, 0.0F};
  const std::string far = DrawOne("dividers");
  EXPECT_EQ(far.find("nm@"), std::string::npos);
  EXPECT_NE(far.find("line "), std::string::npos);
}

TEST_F(OverlaysTest, CourseOverGround) {
  program.passage.route_track = {
      {{50.5F, -1.5F}, 0.0F, {}}, {{50.5F, -1.45F}, 0.1F, {}}, {{50.48F, -1.45F}, 0.2F, {}}};
  EXPECT_EQ(DrawOne("course over ground"), "") << "not on show";
  state.calculation_on_show = true;
  const std::string line = "polyline 100.00,217.00 300.00,217.00 300.00,345.00\n";
  const std::string track =
      "pen 6 solid 255,210,60\n" + line + "pen 2 solid 0,89,89\nring 100.00,217.00 r 3.00\n" + line;
  program.animation.label = "ETA : 12:35  5 December";
  EXPECT_EQ(DrawOne("course over ground"), track) << "index 0 selects nothing";
  program.animation.index = 2;
  EXPECT_EQ(DrawOne("course over ground"), track +
                                               "pen 1 solid 255,0,0\n"
                                               "ring 300.00,345.00 r 6.00\n"
                                               "text 294.00,351.00 left top 12 bold 255,0,0 halo "
                                               "255,255,255 \"ETA : 12:35  5 December\"\n");
  program.animation.index = 3;  // of a longer track that is gone
  EXPECT_EQ(DrawOne("course over ground"), track);
  program.passage.route_track.resize(1);
  EXPECT_EQ(DrawOne("course over ground"), "");
}

TEST_F(OverlaysTest, BoatPointsAlongItsHeading) {
  program.nmea.fix.boat_latitude = 50.5F;
  program.nmea.fix.boat_longitude = -1.5F;
  program.config.heading_vector_length = 2.0F;
  program.nmea.fix.position_good = true;
  state.display_height = 1200.0;  // the symbol's size is 10
  program.nmea.fix.course_over_ground = 450.0F;
  const std::string boat = DrawOne("boat");
  // 2 miles east: 2 / 60 / cos(50.5) degrees of 4000 pixels = 209.6, so column 310 of the view.
  EXPECT_NE(boat.find("line 100.00,217.00 310.00,217.00\n"), std::string::npos) << boat;
  EXPECT_NE(boat.find("pen 2 solid 255,0,0\n"
                      "fill 255,0,0\n"
                      "polygon 125.00,217.00 105.00,224.50 85.00,222.00 85.00,212.00 "
                      "105.00,209.50\n"
                      "fill none\n"
                      "ring 100.00,217.00 r 4.00\n"),
            std::string::npos)
      << boat;
  // Towards the chart's edge 0.5 degrees away the vector ends short of it.
  program.config.heading_vector_length = 100.0F;
  const std::string east = DrawOne("boat");
  EXPECT_NEAR(std::stod(east.substr(east.find("line ") + 19)), 0.99 * 2000.0 + 100.0, 2.0);
  program.nmea.fix.course_over_ground = 30.0F;
  double x = 0.0;
  double y = 0.0;
  const std::string north = DrawOne("boat");
  ASSERT_EQ(std::sscanf(north.c_str() + north.find("line "), "line 100.00,217.00 %lf,%lf", &x, &y),
            2);
  EXPECT_NEAR(view.geometry.ToImage({x, y}).row, 0.01 * 3217.0, 20.0);
  program.nmea.fix.boat_longitude = -2.5F;
  EXPECT_EQ(DrawOne("boat"), "");
  EXPECT_EQ(DrawOne("range rings"), "");
}

TEST_F(OverlaysTest, RangeRings) {
  program.nmea.fix.boat_latitude = 50.5F;
  program.nmea.fix.boat_longitude = -1.5F;
  program.config.horizon_range = 3.0F;
  program.config.vhf_range = 6.0F;
  program.config.radar_range = 0.0F;
  EXPECT_EQ(DrawOne("range rings"), "") << "no fix";
  program.nmea.fix.position_good = true;
  // 50.55 north is row 2897 and 50.6 north row 2576, by the formula outside the program.
  EXPECT_EQ(DrawOne("range rings"),
            "pen 1 solid 0,0,0\n"
            "ring 100.00,217.00 r 320.00\n"
            "ring 100.00,217.00 r 641.00\n");
  program.config.range_rings_on = kFalse;
  EXPECT_EQ(DrawOne("range rings"), "");
}

TEST_F(OverlaysTest, ManOverboard) {
  program.mob.position = {50.5F, -1.5F};
  EXPECT_EQ(DrawOne("man overboard"), "");
  EXPECT_EQ(MobLabelText(view, program.mob), "");
  program.mob.on = true;
  // A heavy ring and the word stand about the mark.
  const std::string mark = DrawOne("man overboard");
  EXPECT_EQ(mark.substr(std::min(mark.find("pen 3"), mark.size())),
            "pen 3 solid 255,0,0\n"
            "ring 100.00,217.00 r 9.60\n"
            "pen 1 solid 255,0,0\n"
            "ring 100.00,217.00 r 6.00\n"
            "pen 3 solid 0,0,0\n"
            "line 94.00,217.00 106.00,217.00\n"
            "line 100.00,211.00 100.00,223.00\n"
            "text 113.60,217.00 left middle 12 bold 255,0,0 halo 255,255,255 \"MOB\"\n");
  EXPECT_EQ(MobLabelText(view, program.mob), "\nMOB Position 001.30.00W, 50.30.00N");
  program.mob.position = {52.0F, -1.5F};
  EXPECT_EQ(DrawOne("man overboard"), "");
  EXPECT_EQ(MobLabelText(view, program.mob), "");
}

TEST_F(OverlaysTest, PortsAndBoundaries) {
  program.config.show_tide_heights = kTrue;
  program.port_markers = {{"Newhaven", 50.5F, -1.5F}, {"Elsewhere", 40.0F, -1.5F}};
  EXPECT_EQ(DrawOne("tidal ports"),
            "pen 1 solid 0,0,0\n"
            "fill 192,192,192\n"
            "polygon 100.00,211.00 106.00,217.00 100.00,223.00 94.00,217.00\n"
            "line 94.00,217.00 106.00,217.00\n"
            "line 100.00,211.00 100.00,223.00\n"
            "fill none\n"
            "text 42.00,217.00 left middle 12 bold 0,0,0 halo 255,255,255 \"Newhaven\"\n");
  program.config.show_chart_boundaries = kTrue;
  program.charts.index = {{"9999-1", "Sample", 1.0F, 50.25F, -1.5F, 50.5F, -1.25F, "", ""}};
  EXPECT_EQ(DrawOne("chart boundaries"),
            "fill none\n"
            "pen 1 solid 255,0,0\n"
            "polygon 100.00,217.00 1100.00,217.00 1100.00,1813.00 100.00,1813.00\n");
}

TEST_F(OverlaysTest, VectorsFollowTheDrift) {
  program.config.show_vectors = kTrue;
  SetRoute({Point(50.5F, -1.5F), Point(50.5F, -1.4F), Point(50.4F, -0.5F)});
  program.route.points[0].tide_vector = {{50.5F, -1.5F}, {50.5F, -1.475F}, {50.5F, -1.45F}};
  program.route.points[1].tide_vector = {{50.5F, -1.4F}};  // one entry joins nothing
  program.route.points[2].tide_vector = {{50.5F, -1.5F}, {50.5F, -1.4F}};  // no leg starts there
  EXPECT_EQ(DrawOne("vectors"),
            "pen 1 solid 255,0,0\n"
            "polyline 100.00,217.00 200.00,217.00 300.00,217.00\n"
            "line 200.00,217.00 300.00,217.00\n"
            "fill 255,0,0\n"
            "polygon 300.00,217.00 288.00,221.80 288.00,212.20\n"
            "fill none\n"
            "arc 300.00,217.00 r 3.00 from 0.00 by 360.00\n");
  program.route.points[0].latitude = 51.5F;  // a leg that starts off the chart
  EXPECT_EQ(DrawOne("vectors"), "");
}

TEST_F(OverlaysTest, TracksCarryTheirComments) {
  program.config.track_colour = Rgb(1, 2, 3);
  program.config.boat_colour = Rgb(4, 5, 6);
  program.config.line_width = 3.0F;
  program.nmea.track = {{.latitude = 50.5F, .longitude = -1.5F},
                        {.latitude = 50.5F, .longitude = -1.45F}};
  program.nmea.log.comments = {{50.5F, -1.45F, "", "", {"Reefed", "", "Wind SW 6"}}};
  EXPECT_EQ(DrawOne("live track"), "") << "neither plotted nor a fix";
  const std::string line =
      "pen 2 solid 1,2,3\n"
      "polyline 100.00,217.00 300.00,217.00\n"
      "ring 300.00,217.00 r 4.00\n";
  const std::string track = line +
                            "text 308.00,207.40 left top 12 bold 0,0,0 halo 255,255,255 "
                            "\"Reefed\n\nWind SW 6\"\n";
  struct Case {
    bool good, plot, historical;
  };
  for (const Case& shown : {Case{true, false, false}, {false, true, false}, {false, false, true}}) {
    program.nmea.fix.position_good = shown.good;
    program.plot.track_plot_on = shown.plot;
    program.plot.historical_plot_on = shown.historical;
    EXPECT_EQ(DrawOne("live track"), track);
  }
  program.config.track_layer_on = 0.0F;
  EXPECT_EQ(DrawOne("live track"), "");
  program.config.track_layer_on = 1.0F;
  program.nmea.log.comments.clear();
  // On to the boat, where there is one.
  program.nmea.fix.boat_latitude = 50.48F;
  program.nmea.fix.boat_longitude = -1.45F;
  const std::string to_boat = "pen 3 solid 4,5,6\nline 300.00,217.00 300.00,345.00\n";
  EXPECT_EQ(DrawOne("live track"),
            "pen 2 solid 1,2,3\npolyline 100.00,217.00 300.00,217.00\n" + to_boat);
  program.nmea.fix.boat_latitude = 55.0F;  // off the chart
  EXPECT_EQ(DrawOne("live track").find("line 300"), std::string::npos);
  program.nmea.fix = {};

  program.plot = {};
  PlotFrom({{50.5F, -1.5F, "", "", ""}, {50.5F, -1.45F, "", "", "Reefed "}});
  EXPECT_EQ(DrawOne("plot file"), "");
  const std::string plot =
      line + "text 308.00,217.00 left middle 12 bold 0,0,0 halo 255,255,255 \"Reefed\"\n";
  program.plot.track_plot_on = true;
  EXPECT_EQ(DrawOne("plot file"), plot);
  program.plot.track_plot_on = false;
  program.link.gps_enabled = true;
  EXPECT_EQ(DrawOne("plot file"), plot);
  program.nmea.fix.boat_latitude = 50.48F;
  program.nmea.fix.boat_longitude = -1.45F;
  EXPECT_NE(DrawOne("plot file").find(to_boat), std::string::npos);
  program.config.track_layer_on = 0.0F;
  EXPECT_EQ(DrawOne("plot file"), "");
  program.config.track_layer_on = 1.0F;
  // Gone, empty, or the name of an earlier voyage.
  folder.Write("plot.trk", "");
  EXPECT_EQ(DrawOne("plot file"), "");
  std::filesystem::remove(folder.File("plot.trk"));
  EXPECT_EQ(DrawOne("plot file"), "");
  program.plot.plot_file_name = "Voyage";
  EXPECT_EQ(DrawOne("plot file"), "");
}

// A route point on a waypoint and a port, close to a crowd of other waypoints: the names that
// matter show below 100 %, each text once; every one shows at 100 % and when it is asked for.
TEST_F(OverlaysTest, NamesGiveWayByTheirRank) {
  SetRoute({Point(50.5F, -1.6F), Point(50.5F, -1.5F, "Needles")});
  program.waypoints.waypoints = {{"Needles", 50.5F, -1.5F}};
  for (int i = 0; i < 60; ++i) {
    const auto step = static_cast<float>(i);
    program.waypoints.waypoints.push_back(
        {"Crowd " + std::to_string(i), 50.5F + 0.0002F * step, -1.5F + 0.0003F * step});
  }
  program.config.show_tide_heights = kTrue;
  program.port_markers = {{"Harbour", 50.5005F, -1.4995F}};
  program.mob.on = true;
  program.mob.position = {50.501F, -1.499F};
  Look(0.3, {1000.0, 3000.0});
  std::multimap<std::string, SurfacePoint> names = Names();
  EXPECT_EQ(names.count("Needles"), 1U);
  EXPECT_EQ(names.count("MOB"), 1U);
  EXPECT_EQ(names.count("Harbour"), 0U);
  EXPECT_TRUE(names.size() > 3U && names.size() < 14U) << names.size();
  state.every_name = true;
  EXPECT_EQ(Names().size(), 64U);
  state.every_name = false;
  Look(1.0, {1000.0, 3000.0});
  EXPECT_EQ(Names().size(), 64U);
  // A waypoint that is marked comes before the route.
  Look(0.05, {0.0, 0.0});
  state.marked_kind = MarkedKind::kWaypoint;
  state.marked_waypoint = 41;
  EXPECT_EQ(Names().count("Crowd 39"), 1U);
}

TEST_F(OverlaysTest, NamesStayWhereTheyAreWhileTheChartMoves) {
  for (int i = 0; i < 200; ++i) {
    program.waypoints.waypoints.push_back({"W" + std::to_string(i),
                                           50.4F + 0.001F * static_cast<float>(i * 37 % 101),
                                           -1.6F + 0.001F * static_cast<float>(i * 53 % 97)});
  }
  Look(0.8, {1200.0, 2700.0});
  const auto before = Names();
  Look(0.8, {1300.0, 2800.0});  // 80 pixels further each way
  int both = 0;
  for (const auto& [name, at] : Names()) {
    const auto was = before.find(name);
    if (was == before.end()) continue;
    ++both;
    EXPECT_NEAR(at.x, was->second.x - 80.0, 0.01) << name;
    EXPECT_NEAR(at.y, was->second.y - 80.0, 0.01) << name;
  }
  EXPECT_GT(both, 60);
}

TEST_F(OverlaysTest, ABandLeadsFromTheLastPointToTheCursor) {
  const auto live = [this] {
    RecordingSurface surface(1600.0, 900.0);
    DrawLiveOverlays(surface, view, program, state);
    EXPECT_EQ(LiveOverlaysShown(program, state), !surface.Text().empty());
    return surface.Text();
  };
  SetRoute({Point(50.45F, -1.5F), Point(50.5F, -1.5F)});
  state.cursor = {50.5F, -1.3F};
  state.mouse_mode = MouseMode::kRouteCreation;
  EXPECT_EQ(live(), "") << "no point was laid";
  state.route_entry_on = true;
  const std::string line = "line 100.00,217.00 900.00,217.00\n";
  EXPECT_EQ(live(),
            "pen 5 solid 255,255,255\n" + line + "pen 2 dash 0,0,255\n" + line +
                "text 914.00,231.00 left top 12 bold 0,0,0 halo 255,255,255 \"7.6nm @090°T\"\n");
  // At the view's edge the text turns to the other side.
  state.cursor = {50.395F, -1.13F};
  EXPECT_NE(live().find(" right bottom 12 "), std::string::npos) << live();
  state.mouse_mode = MouseMode::kWaypointEntry;
  EXPECT_EQ(live(), "");
  state.mouse_mode = MouseMode::kRouteCreation;
  for (bool* other : {&state.route_drag_on, &state.rectangle_mode, &state.calculation_on_show}) {
    *other = true;
    EXPECT_EQ(live(), "");
    *other = false;
  }
  // The dividers have a band of their own until their end is set.
  state.dividers_on = true;
  EXPECT_EQ(live(), "");
  state.cursor = {50.5F, -1.3F};
  state.zero_point = Position{50.5F, -1.5F};
  EXPECT_EQ(live(), "pen 5 solid 255,255,255\n" + line + "pen 2 dash 255,0,0\n" + line);
  state.divider_end = state.cursor;
  EXPECT_EQ(live(), "");
}

// All overlays at every level: nothing above the chart's ceiling, and what is drawn can be read.
TEST_F(OverlaysTest, NothingOutshinesTheChartAtNight) {
  FillEverything();
  program.config.font_colour = Rgb(255, 255, 255);
  program.config.boat_colour = Rgb(255, 255, 0);
  for (const int level : {100, 50, 10}) {
    QImage image(1600, 900, QImage::Format_RGB32);
    image.fill(Qt::black);
    {
      QPainter painter(&image);
      QtSurface surface(painter, image.size(), {true, level});
      DrawOverlays(surface, view, program, state);
    }
    const std::span bytes(image.constBits(), static_cast<std::size_t>(image.sizeInBytes()));
    int brightest = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      if (i % 4 != 3) brightest = std::max<int>(brightest, bytes[i]);
    }
    EXPECT_LE(brightest, 165 * level / 100);
    EXPECT_GT(brightest, 80 * level / 100);
  }
}

TEST_F(OverlaysTest, TogglesAndTheRectangleDecideWhatIsShown) {
  FillEverything();
  program.config.show_wind_grid = kTrue;
  program.config.use_manual_wind = kTrue;
  EXPECT_TRUE(Shown("wind entered"));
  EXPECT_FALSE(Shown("wind imported"));
  program.config.use_manual_wind = kFalse;
  EXPECT_FALSE(Shown("wind entered"));
  EXPECT_TRUE(Shown("wind imported"));
  EXPECT_TRUE(Shown("tidal streams"));
  EXPECT_FALSE(Shown("AIS targets"));
  program.replay.replay_active = true;
  EXPECT_TRUE(Shown("AIS targets"));
  EXPECT_FALSE(DrawOne("boat of a replay").empty());
  state.rectangle_mode = true;  // asked for, not yet being drawn
  EXPECT_TRUE(Shown("tidal ports"));
  state.rectangle_dragging = true;
  for (const char* name : {"chart boundaries", "candidate chart", "tidal streams", "tidal ports",
                           "wind entered", "wind imported", "AIS targets", "boat of a replay"}) {
    EXPECT_FALSE(Shown(name)) << name;
  }
  for (const char* name : {"route", "dividers", "boat", "live track", "vectors"}) {
    EXPECT_TRUE(Shown(name)) << name;
  }
}

}  // namespace
}  // namespace skerrow
