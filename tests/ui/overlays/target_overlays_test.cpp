#include "ui/overlays/target_overlays.h"

#include <cmath>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "support/recording_surface.h"
#include "support/still_clock.h"

namespace skerrow {
namespace {

// A chart of 4000 x 6400 pixels from 50 to 51 north and 2 to 1 west at 1:1, its place (1900, 3000)
// in the view's corner. 50.5 north is row 3217 by the Mercator formula, and 1.5 west column 2000.
class TargetOverlays : public ::testing::Test {
 protected:
  TargetOverlays() : program({"/p", "/d", "/s"}, clock) {
    program.charts.chart =
        *WorkOutChart({51, 0, 50, 6400, -2, 0, -1, 4000, 100000, 0, 0, 0, 4000, 6400, ""});
    program.link.ais_enabled = true;
    program.config.ais_line_width = 2;
    program.config.class_a_colour = Rgb(0, 0, 255);
    program.config.class_b_colour = Rgb(0, 128, 128);
    program.config.cpa_alarm_range = 0.25F;
    program.config.ais_label_items = {4, 0, 5, 0, 0, 0, 0, 0};
    state.display_height = 1250.0;  // the base is 750: 5 pixels a scale
    ViewGeometry geometry;
    geometry.SetImageSize(4000, 6400);
    geometry.SetViewSize(1600.0, 900.0, 1.0);
    geometry.SetZoom(1.0);
    geometry.Place({1900.0, 3000.0}, {0.0, 0.0});
    view = MakeOverlayView(program.charts.chart, geometry, geometry, 12);
  }

  AisTarget& Add(std::int32_t mmsi, std::int16_t type, Position at, float course, float speed) {
    program.ais.targets.UpdateAisPosition({.message_type = type,
                                           .mmsi = mmsi,
                                           .position = at,
                                           .course = course,
                                           .speed = speed,
                                           .nav_status = 0},
                                          {}, 6.5F);
    return *program.ais.targets.Find(mmsi);
  }
  void Close(AisTarget& target, float cpa) {
    program.link.gps_enabled = true;
    target.cpa_known = true;
    target.cpa = cpa;
    target.tcpa = 0.5F;
  }

  std::string Symbols() {
    RecordingSurface surface(1600.0, 900.0);
    DrawAisTargets(surface, view, program, state);
    return surface.Text();
  }
  std::string Labels() {
    RecordingSurface surface(1600.0, 900.0);
    LabelList names;
    NameAisTargets(names, view, program, state);
    DrawLabels(surface, view, names, EveryNameShows(view, state));
    return surface.Text();
  }
  static bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
  }
  static int Count(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
      ++count;
    }
    return count;
  }

  testing::StillClock clock;
  Program program;
  ViewState state;
  OverlayView view;
};

constexpr Position kPlace{50.5F, -1.5F};  // 100, 217 in the view

TEST_F(TargetOverlays, AHullPointsWhereItsVesselGoes) {
  Add(1, 1, kPlace, 90.0F, 10.0F);
  // Eastward: left is up, ahead is right. Abeam 5, shoulders 10 ahead, bow 20 ahead.
  EXPECT_TRUE(Has(Symbols(),
                  "pen 2 solid 0,0,255\n"
                  "polygon 100.00,217.00 100.00,212.00 110.00,212.00 120.00,217.00 110.00,222.00 "
                  "100.00,222.00 100.00,217.00\n"
                  "fill none\n"
                  "pen 1 solid 0,0,0\n"
                  "ring 100.00,217.00 r 4.00\n"))
      << Symbols();
  // A screen of another height, and one that is small.
  EXPECT_DOUBLE_EQ(AisSymbolScale(2000.0), 8.0);
  EXPECT_DOUBLE_EQ(AisSymbolScale(480.0), 4.0);
}

TEST_F(TargetOverlays, AlarmFillsAndTheSpeedFilterHidesClassA) {
  struct Row {
    std::int16_t type;
    float speed;
    float cpa;
    const char* expected;  // how it begins; empty: nothing
  };
  program.config.ais_min_speed = 0.5F;
  const Row rows[] = {
      {1, 0.5F, -1.0F, "pen 2 solid 0,0,255\npolygon"},
      {1, 0.4F, 0.26F, ""},
      {1, 0.4F, 0.25F, "pen 2 solid 0,0,255\nfill 0,0,255\npolygon"},
      {3, 9.0F, 1.0F, "pen 2 solid 0,0,255\npolygon"},
      {18, 0.0F, 1.0F, "pen 2 solid 0,128,128\npolygon"},
      {18, 0.0F, 0.0F, "pen 2 solid 0,128,128\nfill 0,128,128\npolygon"},
      {9, 0.0F, 0.1F, "pen 2 solid 0,0,255\nfill 0,0,255\npolygon"},
  };
  for (const Row& row : rows) {
    program.ais.targets.Clear();
    Close(Add(1, row.type, kPlace, 0.0F, row.speed), row.cpa);
    const std::string drawn = Symbols();
    const std::string what = std::to_string(row.type) + " " + std::to_string(row.cpa);
    EXPECT_EQ(Has(drawn, "polygon"), *row.expected != '\0') << what;
    EXPECT_TRUE(Has(drawn, row.expected)) << what << "\n" << drawn;
    EXPECT_EQ(Count(drawn, "\nfill 0"), Has(row.expected, "fill") ? 1 : 0) << what;
  }
  // Without a GPS there is no alarm.
  program.ais.targets.Clear();
  Close(Add(1, 1, kPlace, 0.0F, 9.0F), 0.1F);
  program.link.gps_enabled = false;
  EXPECT_FALSE(Has(Symbols(), "\nfill 0"));
}

TEST_F(TargetOverlays, AnAircraftHasARingAndACircleStandsForAnyTarget) {
  Add(1, 9, kPlace, 0.0F, 90.0F);
  EXPECT_TRUE(Has(Symbols(), "ring 100.00,217.00 r 8.00"));
  // The nose 3 scales ahead, the wing square to the course.
  EXPECT_TRUE(Has(Symbols(), "polygon 100.00,202.00")) << Symbols();
  EXPECT_TRUE(Has(Symbols(), "line 87.50,213.00 112.50,213.00")) << Symbols();
  program.config.ais_as_boat = kFalse;
  program.ais.targets.Find(1)->show_heading_vector = true;
  const std::string circle =
      "pen 2 solid 0,0,255\nellipse 100.00,217.00 rx 5.00 ry 5.00\nfill none\n";
  EXPECT_TRUE(Symbols().ends_with(circle)) << Symbols();
  EXPECT_FALSE(Has(Symbols(), "line "));
  program.ais.targets.Clear();
  Close(Add(2, 18, kPlace, 0.0F, 3.0F), 0.1F);
  EXPECT_TRUE(Has(Symbols(), "fill 0,128,128\nellipse"));
}

TEST_F(TargetOverlays, TheVectorAndTheTracksLeadWhereTheyAreTold) {
  AisTarget& target = Add(1, 18, kPlace, 90.0F, 12.0F);
  EXPECT_FALSE(Has(Symbols(), "line "));
  target.show_heading_vector = true;
  // 6 miles in half an hour: 6 / cos 50.5 minutes of longitude, 4000 pixels to 60 of them.
  const double end = 100.0 + 6.0 / std::cos(50.5 * 3.14159265 / 180.0) / 60.0 * 4000.0;
  double x = 0.0;
  double y = 0.0;
  const std::string drawn = Symbols();
  const std::size_t line = drawn.find("line 100.00,217.00 ");
  ASSERT_NE(line, std::string::npos) << drawn;
  ASSERT_EQ(std::sscanf(drawn.c_str() + line, "line 100.00,217.00 %lf,%lf", &x, &y), 2);
  EXPECT_NEAR(x, end, 1.5);
  EXPECT_NEAR(y, 217.0, 1.5);
  EXPECT_TRUE(Has(drawn, "pen 1 solid 0,128,128\nline "));

  // A track with a corner: 0.01 degrees west twice, then 0.01 south. The two westward pieces make
  // one line.
  target.show_heading_vector = false;
  target.show_history = true;
  target.history.fill({50.49F, -1.52F, 6.0F});
  target.history[0] = {50.5F, -1.51F, 6.4F};
  target.history[1] = {50.5F, -1.52F, 6.3F};
  EXPECT_TRUE(Has(Symbols(), "polyline 100.00,217.00 20.00,217.00 20.00,281.00\n")) << Symbols();
  target.show_history = false;
  target.show_predicted = true;
  target.predicted = std::exchange(target.history, {});
  EXPECT_TRUE(Has(Symbols(), "polyline 100.00,217.00 20.00,217.00 20.00,281.00\n"));
  // Of a vessel out of sight nothing is drawn, and nothing of one beyond the chart.
  target.latitude = 50.9F;
  EXPECT_FALSE(Has(Symbols(), "polyline"));
  target.latitude = 51.0F;
  EXPECT_FALSE(Has(Symbols() + Labels(), "line"));
}

TEST_F(TargetOverlays, TheChosenLinesStandOnWhiteToTheRight) {
  AisTarget& target = Add(235001234, 1, kPlace, 84.4F, 12.35F);
  EXPECT_EQ(Labels(), "");
  target.show_details = true;
  // 12.35 as it is stored is a little above; the lines are one text, the places with 0 no gap.
  const std::string lines = "\"Heading 084°T@12.4kn\nMMSI : 235001234\"";
  EXPECT_TRUE(Has(Labels(), lines)) << Labels();
  double x = 0.0;
  double y = 0.0;
  ASSERT_EQ(std::sscanf(Labels().c_str(), "text %lf,%lf left middle", &x, &y), 2);
  EXPECT_GT(x, 105.0);
  EXPECT_LT(x, 125.0);
  EXPECT_DOUBLE_EQ(y, 217.0);
  EXPECT_TRUE(Has(Labels(), " ground 255,255,255 ")) << Labels();
  // A line that says nothing takes no room.
  program.config.ais_label_items = {1, 4, 0, 5, 0, 0, 0, 0};
  EXPECT_TRUE(Has(Labels(), lines)) << Labels();
  program.config.ais_label_items = {4, 0, 5, 0, 0, 0, 0, 0};
  // Class A below the speed filter shows no text; in alarm it does, whatever was chosen.
  program.config.ais_min_speed = 20.0F;
  EXPECT_EQ(Labels(), "");
  target.show_details = false;
  Close(target, 0.2F);
  EXPECT_TRUE(Has(Labels(), lines));
  EXPECT_TRUE(Has(Labels(), " 255,0,0 "));
}

TEST_F(TargetOverlays, AmongManyShipsTheNearOnesAndThoseInAlarmAreNamed) {
  program.nmea.fix.boat_latitude = 50.5F;
  program.nmea.fix.boat_longitude = -1.5F;
  for (int i = 0; i < 300; ++i) {
    const Position at{50.4F + 0.0004F * static_cast<float>(i % 20),
                      -1.5F + 0.0004F * static_cast<float>(i / 20)};
    Add(1000 + i, 1, at, 0.0F, 5.0F).show_details = true;
  }
  AisTarget& far = *program.ais.targets.Find(1000);  // the one farthest from the boat
  EXPECT_LT(Count(Labels(), "text "), 60);
  EXPECT_GE(Count(Labels(), "text "), 3);
  EXPECT_FALSE(Has(Labels(), "MMSI : 1000\""));
  // The boat's nearest comes first.
  EXPECT_TRUE(Has(Labels(), "MMSI : 1019\""));
  state.shown_target = 1000;
  EXPECT_TRUE(Has(Labels(), "MMSI : 1000\""));
  state.shown_target = 0;
  Close(far, 0.1F);
  EXPECT_TRUE(Has(Labels(), "MMSI : 1000\""));
  state.every_name = true;
  EXPECT_EQ(Count(Labels(), "text "), 300);
}

TEST_F(TargetOverlays, TheVesselOfAWindowHasARing) {
  Add(7, 1, kPlace, 0.0F, 5.0F);
  const auto ring = [this] {
    RecordingSurface surface(1600.0, 900.0);
    for (const Overlay& overlay : Overlays()) {
      if (overlay.name == "AIS mark" && overlay.shown(program, state)) {
        overlay.draw(surface, view, program, state);
      }
    }
    return surface.Text();
  };
  EXPECT_EQ(ring(), "");
  state.shown_target = 7;
  EXPECT_TRUE(Has(ring(), "pen 2 solid 255,0,0\nring 100.00,217.00 r 25.00\n")) << ring();
  state.shown_target = 8;
  EXPECT_EQ(ring(), "");
  state.shown_target = 7;
  state.targets_shown = false;
  EXPECT_EQ(ring(), "");
}

}  // namespace
}  // namespace skerrow
