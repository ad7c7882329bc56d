// Documents for the viewer, held against lines that were set out by hand from the published layout.

#include "exchange/kml.h"

#include <gtest/gtest.h>
#include <sstream>

#include "instruments/nmea_sentences.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

using testing::RmcAt;
using testing::TempFolder;

std::vector<std::string> LinesOf(const std::string& document) {
  std::vector<std::string> lines;
  std::size_t at = 0;
  while (at < document.size()) {
    const std::size_t end = document.find("\r\n", at);
    EXPECT_NE(end, std::string::npos);
    if (end == std::string::npos) break;
    lines.push_back(document.substr(at, end - at));
    at = end + 2;
  }
  return lines;
}

// The lines of a text block, one a row.
std::vector<std::string> Rows(const std::string& block) {
  std::vector<std::string> rows;
  std::istringstream in(block);
  for (std::string row; std::getline(in, row);) rows.push_back(row);
  return rows;
}

std::string Head(const std::string& icon, const std::string& label, const std::string& text) {
  return R"(<?xml version="1.0" encoding="UTF-8"?>
<kml xmlns="http://www.opengis.net/kml/2.2">
<Document>
<name>Trip</name>
<Style id="sn_donut1">
<IconStyle>
<color>)" +
         icon + R"(</color>
<scale>0.4</scale>
<Icon><href>http://maps.google.com/mapfiles/kml/shapes/donut.png</href></Icon>
</IconStyle>
<LabelStyle><color>)" +
         label + R"(</color><scale>0.8</scale></LabelStyle>
</Style>
<description>)" +
         text + "\n</description>\n";
}

std::string StyleBlock(const std::string& id, const std::string& line, const std::string& area) {
  return "<Style id=\"" + id + "\">\n<LineStyle>\n<color>" + line +
         "</color>\n<width>4</width>\n</LineStyle>\n<PolyStyle>\n<color>" + area +
         "</color>\n</PolyStyle>\n</Style>\n";
}

std::string LineMark(const std::string& text, const std::string& style,
                     const std::string& triples) {
  return "<Placemark>\n<name>Trip</name>\n<description>" + text + "</description>\n<styleUrl>#" +
         style +
         "</styleUrl>\n<LineString>\n<extrude>1</extrude>\n<tessellate>1</tessellate>\n"
         "<altitudeMode>absolute</altitudeMode>\n<coordinates>\n" +
         triples + "</coordinates>\n</LineString>\n</Placemark>\n";
}

std::string PointMark(const std::string& label, const std::string& id, const std::string& pair) {
  return "<Placemark>\n<styleUrl>#sn_donut1</styleUrl>\n<name>" + label + "</name>\n<Point id=\"" +
         id + "\">\n<coordinates>" + pair + "</coordinates>\n</Point>\n</Placemark>\n";
}

const char* const kTail = "</Document>\n</kml>\n";

constexpr KmlHead kEmpty{};

TEST(Kml, RouteHasALineAndItsPoints) {
  std::vector<RouteRecord> records = {{"Needles ", 50.5F, -1.25F, 6.5F},
                                      {"  ", 49.75F, 0.125F, 0.0F},
                                      {"Slow", 49.5F, 0.25F, 0.4F}};
  const std::string expected =
      Head("7f00ff00", "7f00ff00", "To France") +
      StyleBlock("yellowLineGreenPoly", "7f00ffff", "7f00ff00") +
      LineMark("To France", "yellowLineGreenPoly",
               "-1.2500000,50.5000000,1\n0.1250000,49.7500000,1\n0.2500000,49.5000000,1\n") +
      PointMark("Needles @ 6.5kn", "Needles", "-1.2500000,50.5000000") +
      PointMark("WAYPOINT 02 @ 5.3kn", "WAYPOINT 02", "0.1250000,49.7500000") +
      PointMark("Slow @ 0.4kn", "Slow", "0.2500000,49.5000000") + kTail;
  EXPECT_EQ(LinesOf(RouteKml(records, 5.25F, {"Trip", "To France"})), Rows(expected));
  EXPECT_EQ(LinesOf(RouteKml({}, 5.0F, {"Trip", ""})),
            Rows(Head("7f00ff00", "7f00ff00", "") +
                 StyleBlock("yellowLineGreenPoly", "7f00ffff", "7f00ff00") +
                 LineMark("", "yellowLineGreenPoly", "") + kTail));
  EXPECT_EQ(KmlPointName("", 9), "WAYPOINT 09");
  EXPECT_EQ(KmlPointName("", 10), "WAYPOINT 10");
  EXPECT_EQ(KmlPointName(" ", 12), "WAYPOINT 12");
}

TEST(Kml, WaypointsAreMarksAlone) {
  const std::vector<Waypoint> waypoints = {{" Buoy ", 50.0F, -1.0F}, {"", 0.0F, 1.0F}};
  EXPECT_EQ(LinesOf(WaypointsKml(waypoints, {"Trip", "Mine"})),
            Rows(Head("7f00ffff", "ffffffff", "Mine") +
                 PointMark("Buoy", "Buoy", "-1.0000000,50.0000000") +
                 PointMark("", "", "1.0000000,0.0000000") + kTail));
}

TEST(Kml, CourseOverGroundStandsBesideTheLegs) {
  std::vector<RoutePoint> points(2);
  points[0].latitude = 50.0F;
  points[1].latitude = 51.0F;
  points[0].longitude = points[1].longitude = -1.0F;
  points[0].name = "Out";
  points[0].course_to_steer = 7.4F;
  points[1].speed = 6.0F;
  std::vector<TrackPoint> track(8);
  for (std::size_t i = 0; i < track.size(); ++i) {
    track[i].position = {50.0F + static_cast<float>(i) / 8.0F, -1.0F};
  }
  const std::string expected =
      Head("7f00ff00", "7f00ff00", "") + StyleBlock("YellowLineGreenLine", "7f00ffff", "7f00ff00") +
      StyleBlock("COGLine", "ff007f7f", "ff007f7f") +
      LineMark("", "YellowLineGreenLine", "-1.0000000,50.0000000,1\n-1.0000000,51.0000000,1\n") +
      LineMark("", "COGLine",
               "-1.0000000,50.1250000,1\n-1.0000000,50.5000000,1\n-1.0000000,50.8750000,1\n") +
      PointMark("Out CTS =  007 @ 5.5kn", "Out", "-1.0000000,50.0000000") +
      PointMark("WAYPOINT 02  ", "WAYPOINT 02", "-1.0000000,51.0000000") + kTail;
  EXPECT_EQ(LinesOf(CogKml(points, track, 5.5F, {"Trip", "never shown"})), Rows(expected));
}

// A log with a line of comment before each fix, fixes numbered by their minutes.
std::string LogOf(int fixes, int bad = 0) {
  std::string log;
  for (int i = 1; i <= fixes; ++i) {
    const std::string minute = std::to_string(i / 10) + std::to_string(i % 10);
    std::string line = RmcAt("06" + minute + "20", minute + ".0000");
    if (i == bad) line.replace(line.find(",A,"), 3, ",A,9");
    log += "$GPGSA,A*00\r\n" + line + "\r\n";
  }
  return log;
}

std::string Triple(const std::string& latitude) { return "-1.3375000," + latitude + ",1\n"; }
std::string Pair(const std::string& latitude) { return "-1.3375000," + latitude; }

TEST(Kml, TrackIsThinned) {
  const TempFolder folder;
  const std::string log = folder.File("voyage.nmea");
  const std::string head =
      Head("7f00ff00", "7f00ff00", "T") + StyleBlock("yellowLineGreenPoly", "7f00ffff", "7f00ff00");
  ASSERT_TRUE(ReplaceFile(log, LogOf(20)));
  // Minutes 1, 10 and 19 of 50 degrees north as singles; marks at 1 and 12, the finish at 20.
  EXPECT_EQ(
      LinesOf(TrackKml(log, {"Trip", "T"}).value()),
      Rows(head +
           LineMark("T", "yellowLineGreenPoly",
                    Triple("50.0166664") + Triple("50.1666679") + Triple("50.3166656")) +
           PointMark("06:01", "06:01", Pair("50.0166664")) +
           PointMark("06:12", "06:12", Pair("50.2000008")) +
           PointMark("Finish at 05/12/26 06:20", "05/12/26 06:20", Pair("50.3333321")) + kTail));
  // The tenth is bad: the next try comes ten later, and the marks go on as before.
  ASSERT_TRUE(ReplaceFile(log, LogOf(20, 10)));
  EXPECT_EQ(
      LinesOf(TrackKml(log, {"Trip", "T"}).value()),
      Rows(head +
           LineMark("T", "yellowLineGreenPoly", Triple("50.0166664") + Triple("50.3333321")) +
           PointMark("06:01", "06:01", Pair("50.0166664")) +
           PointMark("06:12", "06:12", Pair("50.2000008")) +
           PointMark("Finish at 05/12/26 06:20", "05/12/26 06:20", Pair("50.3333321")) + kTail));
  ASSERT_TRUE(ReplaceFile(log, "no fix\r\n"));
  EXPECT_EQ(LinesOf(TrackKml(log, {"Trip", "T"}).value()),
            Rows(head + LineMark("T", "yellowLineGreenPoly", "") +
                 PointMark("Finish at  ", " ", "0.0000000,0.0000000") + kTail));
  EXPECT_FALSE(TrackKml(folder.File("none.nmea"), kEmpty));
}

TEST(Kml, NamesGoAsTheyStandOrSoThatEveryViewerReadsThem) {
  const std::vector<Waypoint> waypoints = {{"A&B <\"\u00e9\">", 50.0F, -1.0F}};
  const std::string told = WaypointsKml(waypoints, {"Trip", ""});
  EXPECT_NE(told.find("<name>A&B <\"\xe9\"></name>"), std::string::npos);
  const std::string escaped = WaypointsKml(waypoints, {"Trip", "\x01", true});
  EXPECT_NE(escaped.find("<name>A&amp;B &lt;&quot;\u00e9&quot;&gt;</name>\r\n<Point id=\"A&amp;B"),
            std::string::npos);
  EXPECT_EQ(escaped.find('\x01'), std::string::npos);
}

TEST(Kml, AFailureLeavesTheOldDocument) {
  const TempFolder user;
  const Folders folders{"", user.path(), ""};
  ASSERT_TRUE(MakeFolder(folders.GoogleEarth()));
  const std::string path = folders.GoogleEarth() + "/Trip.kml";
  ASSERT_TRUE(ReplaceFile(path, "old"));
  EXPECT_FALSE(ExportRouteKml(user.File("none.rte"), 5.0F, folders, {"Trip", ""}));
  EXPECT_FALSE(ExportWaypointsKml(user.File("none.way"), folders, {"Trip", ""}));
  EXPECT_FALSE(ExportTrackKml(user.File("none.nmea"), folders, {"Trip", ""}));
  for (const char* name : {"", " ", "../Trip", "a\\b"}) {
    EXPECT_FALSE(ExportCogKml({}, {}, 5.0F, folders, {name, ""})) << name;
  }
  EXPECT_EQ(testing::FileBytes(path), "old");
  ASSERT_TRUE(ExportCogKml({}, {}, 5.0F, folders, {"Trip", ""}));
  EXPECT_EQ(testing::FileBytes(path), CogKml({}, {}, 5.0F, {"Trip", ""}));
}

}  // namespace
}  // namespace skerrow
