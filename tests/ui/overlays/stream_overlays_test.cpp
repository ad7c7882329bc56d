#include "ui/overlays/stream_overlays.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

#include "core/plane_sailing.h"
#include "support/recording_surface.h"
#include "support/still_clock.h"

namespace skerrow {
namespace {

constexpr const char* kPink = "255,0,255";

// A chart of 4000 x 6400 pixels from 50 to 51 north and 2 to 1 west. By the Mercator formula
// outside the program 50.5 north is row 3217, so 50.5 north 1.5 west is at 100, 217 of the view. At
// half the size the view ends at the chart's right edge, and the place is at 600, 216.5.
class StreamOverlays : public ::testing::Test {
 protected:
  StreamOverlays() : program({"/p", "/d", "/s"}, clock) {
    program.charts.chart =
        *WorkOutChart({51, 0, 50, 6400, -2, 0, -1, 4000, 100000, 0, 0, 0, 4000, 6400, ""});
    Look(1.0);
  }

  void Look(double zoom) {
    ViewGeometry geometry;
    geometry.SetImageSize(4000, 6400);
    geometry.SetViewSize(1600.0, 900.0, 1.0);
    geometry.SetZoom(zoom);
    geometry.Place({2000.0 - 100.0 / zoom, 3217.0 - 217.0 / zoom}, {0.0, 0.0});
    view = MakeOverlayView(program.charts.chart, geometry, geometry, 12);
  }

  static TidalStream Stream(float rate, float direction, double latitude = 50.5) {
    TidalStream stream;
    stream.latitude = latitude;
    stream.longitude = -1.5;
    stream.rate = rate;
    stream.direction = direction;
    stream.direction_rad = static_cast<float>(direction * 0.017453293);
    return stream;
  }

  static HarmonicStream Harmonic(float rate, float direction) {
    HarmonicStream stream;
    stream.latitude = 50.5F;
    stream.longitude = -1.5F;
    stream.rate = rate;
    stream.direction = direction;
    stream.direction_rad = static_cast<float>(direction * 0.017453293);
    return stream;
  }

  // The rows of streams and their names, a call a line.
  std::vector<std::string> Draw() {
    RecordingSurface surface(1600.0, 900.0);
    LabelList names;
    for (const Overlay& overlay : Overlays()) {
      if (overlay.name.find("streams") == std::string_view::npos) continue;
      if (!overlay.shown(program, state)) continue;
      overlay.draw(surface, view, program, state);
      overlay.names(names, view, program, state);
    }
    DrawLabels(surface, view, names, EveryNameShows(view, state));
    std::istringstream text(surface.Text());
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
  }

  testing::StillClock clock;
  Program program;
  ViewState state;
  OverlayView view;
};

using Lines = std::vector<std::string>;

std::string Label(const char* at, const char* text) {
  return std::string("text ") + at + " left top 12 bold 0,0,0 halo 255,255,255 \"" + text + "\"";
}

TEST_F(StreamOverlays, AShapeGrowsWithTheRateAndPointsDownstream) {
  program.tides.tidal_streams = {Stream(2.0F, 0.0F)};
  const std::string north =
      "polygon 100.00,217.00 97.50,217.00 98.00,209.00 96.00,209.00 100.00,201.00 104.00,209.00 "
      "102.00,209.00 102.50,217.00";
  EXPECT_EQ(Draw(), (Lines{std::string("fill ") + kPink, "pen 1 solid 0,0,0", north, "fill none",
                           "pen 1 solid 0,0,0", "ring 100.00,217.00 r 2.00",
                           Label("100.00,217.00", "2.0@000°")}));
  program.tides.tidal_streams = {Stream(10.0F, 90.0F)};
  program.config.stream_filled = 0;
  EXPECT_EQ(Draw(),
            (Lines{"fill none", std::string("pen 2 solid ") + kPink,
                   "polygon 100.00,217.00 100.00,206.50 140.00,207.00 140.00,197.00 180.00,217.00 "
                   "140.00,237.00 140.00,227.00 100.00,227.50",
                   "pen 1 solid 0,0,0", "ring 100.00,217.00 r 2.00",
                   Label("100.00,217.00", "10.0@090°")}));
  // The tip stands four widths off: half a pixel goes to the even width, and 4 is the least.
  const struct {
    float rate;
    const char* tip;
  } rows[] = {{0.0F, "100.00,201.00"},
              {1.9F, "100.00,201.00"},
              {2.25F, "100.00,201.00"},
              {2.75F, "100.00,193.00"},
              {3.0F, "100.00,193.00"}};
  for (const auto& row : rows) {
    program.tides.tidal_streams = {Stream(row.rate, 0.0F)};
    EXPECT_NE(Draw()[2].find(row.tip), std::string::npos) << row.rate;
  }
  EXPECT_EQ(Draw().back(), Label("100.00,217.00", "3.0@000°"));
  program.tides.tidal_streams = {Stream(0.0F, 45.0F)};
  EXPECT_EQ(Draw().back(), Label("100.00,217.00", "SLACK"));
}

TEST_F(StreamOverlays, ALineTakesItsLengthFromThePictureAndItsPenFromTheRate) {
  program.config.stream_as_shape = kFalse;
  program.config.hide_stream_id = kTrue;
  program.tides.tidal_streams = {Stream(0.9F, 90.0F)};
  EXPECT_EQ(Draw(), (Lines{std::string("pen 1 solid ") + kPink, "line 100.00,217.00 180.00,217.00",
                           "polyline 174.88,222.12 180.00,217.00 174.88,211.88"}));
  program.tides.tidal_streams = {Stream(0.9F, 180.0F)};
  EXPECT_EQ(Draw()[2], "polyline 94.88,291.88 100.00,297.00 105.12,291.88");
  const struct {
    float rate;
    int width;
    const char* end;
  } rows[] = {{0.1F, 1, "180.00,217.00"}, {1.0F, 2, "233.33,217.00"}, {2.0F, 2, "233.33,217.00"},
              {2.1F, 3, "300.00,217.00"}, {4.0F, 3, "300.00,217.00"}, {4.1F, 3, "366.67,217.00"},
              {8.0F, 3, "366.67,217.00"}, {8.1F, 4, "366.67,217.00"}};
  for (const auto& row : rows) {
    program.tides.tidal_streams = {Stream(row.rate, 90.0F)};
    EXPECT_EQ(Draw()[0], "pen " + std::to_string(row.width) + " solid " + kPink) << row.rate;
    EXPECT_EQ(Draw()[1], std::string("line 100.00,217.00 ") + row.end) << row.rate;
  }
  Look(0.5);  // it shrinks with the chart, its head does not
  EXPECT_EQ(Draw()[1], "line 600.00,216.50 733.33,216.50");
  EXPECT_EQ(Draw()[2], "polyline 728.21,221.62 733.33,216.50 728.21,211.38");
  program.tides.tidal_streams = {Stream(0.0F, 90.0F)};
  EXPECT_EQ(Draw(), Lines{});
}

TEST_F(StreamOverlays, HarmonicStationsTakeTheOtherFormAndStandAbove) {
  program.tides.harmonic_streams_on = true;
  program.tides.harmonic_streams = {Harmonic(3.0F, 10.0F), Harmonic(0.96F, 90.0F)};
  EXPECT_EQ(Draw(), (Lines{std::string("pen 1 solid ") + kPink, "line 100.00,217.00 180.00,217.00",
                           "polyline 174.88,222.12 180.00,217.00 174.88,211.88",
                           Label("100.00,197.00", "1.0@090°")}));
  program.config.stream_as_shape = kFalse;
  program.tides.tidal_streams = {Stream(1.0F, 0.0F)};
  const Lines both = Draw();
  EXPECT_EQ(both[0], std::string("pen 2 solid ") + kPink);  // the diamonds' first, as lines
  EXPECT_EQ(both[3], std::string("fill ") + kPink);
  program.tides.harmonic_streams_on = false;
  EXPECT_EQ(Draw().size(), 4U);
}

TEST_F(StreamOverlays, ShowWhereTheyAreWanted) {
  program.tides.harmonic_streams_on = true;
  program.tides.harmonic_streams = {Harmonic(1.0F, 90.0F), Harmonic(1.0F, 90.0F)};
  for (const double border : {50.0, 51.0, 51.5}) {
    program.tides.tidal_streams.push_back(Stream(1.0F, 0.0F, border));
  }
  program.tides.tidal_streams.push_back(Stream(0.0F, 0.0F));
  program.tides.tidal_streams.back().known = false;  // nothing is known: not slack
  EXPECT_EQ(Draw().size(), 4U);                      // the station's line and label
  program.config.hide_stream_id = kTrue;
  EXPECT_EQ(Draw().size(), 3U);
  program.config.use_tides = kFalse;
  EXPECT_EQ(Draw(), Lines{});
  program.config.use_tides = kTrue;
  program.config.show_streams = 0.0F;
  EXPECT_EQ(Draw(), Lines{});
  program.config.show_streams = 1.0F;
  state.rectangle_dragging = true;
  EXPECT_EQ(Draw(), Lines{});
}

// Below the chart's own size only as many labels show as have room, on the side that the arrow
// leaves free; every arrow stands, and a waypoint's name goes first.
TEST_F(StreamOverlays, LabelsGiveWayWhereTheChartIsSmall) {
  Look(0.5);
  for (int i = 0; i < 40; ++i) {
    program.tides.tidal_streams.push_back(
        Stream(0.1F * static_cast<float>(i + 1), 90.0F, 50.5 + 0.002 * i));
  }
  const auto count = [](const Lines& lines, std::string_view what) {
    return std::count_if(lines.begin(), lines.end(),
                         [&](const std::string& line) { return line.starts_with(what); });
  };
  const Lines crowded = Draw();
  EXPECT_EQ(count(crowded, "ring"), 40);
  EXPECT_GT(count(crowded, "text"), 2);
  EXPECT_LT(count(crowded, "text"), 25);
  state.every_name = true;
  EXPECT_EQ(count(Draw(), "text"), 40);
  state.every_name = false;
  program.tides.tidal_streams.resize(1);
  const std::string label = Draw().back();  // of 0.1@090°: 9 bytes of 6 pixels, left of the mark
  EXPECT_EQ(label, "text 540.00,216.50 left middle 12 bold 0,0,0 halo 255,255,255 \"0.1@090°\"");
  program.tides.tidal_streams = {Stream(0.1F, 270.0F)};
  EXPECT_NE(Draw().back().find("text 606.00,216.50"), std::string::npos) << Draw().back();
}

}  // namespace
}  // namespace skerrow
