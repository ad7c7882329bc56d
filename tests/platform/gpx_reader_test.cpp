// GPX read as other programs write it, and as this one does.

#include "platform/gpx_reader.h"

#include <functional>
#include <gtest/gtest.h>
#include <map>

#include <pugixml.hpp>

#include "core/iso_time.h"
#include "exchange/gpx.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

GpxDocument Read(const std::string& text) {
  const Result<GpxDocument> document = ReadGpx(text);
  EXPECT_TRUE(document) << document.error().Text();
  return document ? *document : GpxDocument();
}

std::string Wrapped(const std::string& body) {
  return "<?xml version=\"1.0\"?><gpx version=\"1.1\" "
         "xmlns=\"http://www.topografix.com/GPX/1/1\">" +
         body + "</gpx>";
}

TEST(Gpx, WhatIsWrittenIsReadBackToTheLastBit) {
  GpxDocument document;
  document.waypoints = {
      {{50.660503F, -1.6146701F}, "A&B <\u00e9>", "", std::nullopt, std::nullopt, ""},
      {{-0.1F, 179.99998F}, "", "x\ny", std::nullopt, std::nullopt, ""}};
  document.routes = {
      {"Out", {{{1e-6F, -1e-7F}, "Start", "x", std::nullopt, 5.5F, "2026-12-05T08:10"}}, 0},
      {"", {}, 0}};
  // 2026-12-05 06:30:20 is 1,796,452,220 s after 1970.
  document.tracks = {{"Day",
                      {{{50.0F, -1.0F}, "", "", 1796452220.0, std::nullopt, ""},
                       {{50.5F, -1.5F}, "", "", 1796452220.125, std::nullopt, ""}},
                      0}};
  const std::string text = WriteGpx(document);
  EXPECT_NE(text.find("<time>2026-12-05T06:30:20Z</time>"), std::string::npos) << text;
  EXPECT_NE(text.find("<time>2026-12-05T06:30:20.125Z</time>"), std::string::npos);
  EXPECT_EQ(Read(text), document);
  GpxDocument edge;
  edge.waypoints = {{{0.0F, 180.0F}, "", "", std::nullopt, std::nullopt, ""}};
  EXPECT_NE(WriteGpx(edge).find("lon=\"-180\""), std::string::npos) << "180 is outside the schema";
}

TEST(Gpx, FilesOfOtherProgramsAreRead) {
  // A plotter's: attributes in another order, its own extensions, speeds in metres a second.
  const GpxDocument plotter = Read(Wrapped(
      "<metadata><name>x</name></metadata>"
      "<trk><name>Run</name><trkseg><trkpt lon=\"-1.5\" lat=\"50.25\"><ele>0</ele>"
      "<time>2026-12-05T08:30:20.5+02:00</time><extensions><g:TrackPointExtension "
      "xmlns:g=\"urn:g\"><g:speed>5.144444</g:speed></g:TrackPointExtension></extensions></trkpt>"
      "</trkseg><trkseg><trkpt lat=\"50.5\" lon=\"-1.5\"/></trkseg></trk>"));
  ASSERT_EQ(plotter.tracks.size(), 1U);
  ASSERT_EQ(plotter.tracks[0].points.size(), 2U);
  EXPECT_NEAR(*plotter.tracks[0].points[0].speed, 10.0F, 0.001F);
  EXPECT_EQ(plotter.tracks[0].points[0].time, 1796452220.5);
  EXPECT_FALSE(plotter.tracks[0].points[1].time);
  // An old program's: version 1.0, a prefix, single-byte text that is declared, and some that is
  // not.
  const GpxDocument old = Read(
      "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><x:gpx version=\"1.0\" xmlns:x=\"urn:x\">"
      "<x:wpt lat=\" +50.5 \" lon=\"358.5\"><x:name>Caf\xe9</x:name></x:wpt></x:gpx>");
  ASSERT_EQ(old.waypoints.size(), 1U);
  EXPECT_EQ(old.waypoints[0].name, "Caf\u00e9");
  EXPECT_EQ(old.waypoints[0].position, (Position{50.5F, -1.5F}));
  EXPECT_EQ(Read(Wrapped("<wpt lat=\"1\" lon=\"2\"><name>\xe9</name></wpt>")).waypoints[0].name,
            "\u00e9");
  // A phone's: CDATA, comments, places that are none.
  const GpxDocument phone = Read(Wrapped(
      "<!-- x --><rte><rtept lat=\"50\" lon=\"-1\"><name><![CDATA[A & B]]></name></rtept>"
      "<rtept lat=\"91\" lon=\"0\"/><rtept lat=\"1\" lon=\"361\"/><rtept lat=\"nan\" lon=\"0\"/>"
      "<rtept lat=\"1,5\" lon=\"0\"/><rtept lon=\"0\"/></rte>"));
  ASSERT_EQ(phone.routes.size(), 1U);
  ASSERT_EQ(phone.routes[0].points.size(), 1U);
  EXPECT_EQ(phone.routes[0].points[0].name, "A & B");
  EXPECT_EQ(phone.routes[0].left_out, 5U);
  EXPECT_EQ(phone.left_out, 0U) << "waypoints";
}

TEST(Gpx, HostileTextIsRefusedOrHarmless) {
  for (const char* text : {"", "<gpx", "no XML", "<kml></kml>", "<gpx><wpt></gpx>"}) {
    EXPECT_FALSE(ReadGpx(text)) << text;
  }
  std::string laughs = "<!DOCTYPE gpx [<!ENTITY a \"ha\">";
  for (char c = 'b'; c < 'k'; ++c) {
    laughs += std::string("<!ENTITY ") + c + " \"";
    for (int i = 0; i < 10; ++i) laughs += std::string("&") + static_cast<char>(c - 1) + ";";
    laughs += "\">";
  }
  const GpxDocument laughed =
      Read(laughs + "]><gpx><wpt lat=\"1\" lon=\"1\"><name>&j;</name></wpt></gpx>");
  EXPECT_LT(laughed.waypoints[0].name.size(), 10U);
  std::string deep = "<gpx><wpt lat=\"1\" lon=\"1\"><extensions>";
  for (int i = 0; i < 100000; ++i) deep += "<a>";
  for (int i = 0; i < 100000; ++i) deep += "</a>";
  EXPECT_EQ(Read(deep + "</extensions></wpt></gpx>").waypoints.size(), 1U);
}

TEST(Gpx, OtherCharacterSetsAreRead) {
  const std::string text =
      "<?xml version=\"1.0\" encoding=\"UTF-16\"?><gpx><wpt lat=\"1\" lon=\"2\"><name>\u00e9</name>"
      "</wpt></gpx>";
  std::u16string wide = u"\ufeff";
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    wide += byte == 0xC3 ? u'\u00e9' : static_cast<char16_t>(byte);
    if (byte == 0xC3) ++i;
  }
  std::string little;
  std::string big;
  for (const char16_t unit : wide) {
    little += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    big += {static_cast<char>(unit >> 8), static_cast<char>(unit & 0xFF)};
  }
  EXPECT_EQ(Read(little).waypoints[0].name, "\u00e9");
  EXPECT_EQ(Read(big).waypoints[0].name, "\u00e9");
}

// Stops at a share of the work.
struct StopAt final : Progress {
  explicit StopAt(double percent) : limit(percent) {}
  bool Step(double percent) override {
    last = percent;
    return percent < limit;
  }
  double limit;
  double last = 0.0;
};

TEST(Gpx, AHundredThousandPointsAreReadAndTheReadingCanBeStopped) {
  std::string body = "<trk><trkseg>";
  for (int i = 0; i < 100000; ++i) {
    body += "<trkpt lat=\"50." + std::to_string(100000 + i) + "\" lon=\"-1\"/>";
  }
  const std::string text = Wrapped(body + "</trkseg></trk>");
  StopAt never(101.0);
  const Result<GpxDocument> all = ReadGpx(text, never);
  ASSERT_TRUE(all);
  EXPECT_EQ(all->tracks[0].points.size(), 100000U);
  EXPECT_GT(never.last, 95.0);
  EXPECT_LE(never.last, 100.0);
  for (const double at : {10.0, 60.0}) {
    StopAt early(at);
    const Result<GpxDocument> stopped = ReadGpx(text, early);
    ASSERT_FALSE(stopped);
    EXPECT_EQ(stopped.error().reason, kGpxStopped);
    EXPECT_LT(early.last, at + 10.0 + 40.0);
  }
  Taken taken;
  EXPECT_LE(PlotOfGpx(all->tracks[0], kMostTrackPoints, taken).size(), kMostTrackPoints);
  EXPECT_EQ(taken.every, 4U);
}

// The order of the elements in the schema of GPX 1.1, those that this program writes.
TEST(Gpx, ElementsStandInTheOrderOfTheSchema) {
  const std::map<std::string, std::string> orders = {{"gpx", "metadata wpt rte trk extensions"},
                                                     {"wpt", "time name desc extensions"},
                                                     {"rtept", "time name desc extensions"},
                                                     {"trkpt", "time name desc extensions"},
                                                     {"rte", "name rtept"},
                                                     {"trk", "name trkseg"},
                                                     {"trkseg", "trkpt"}};
  GpxDocument document;
  const GpxPoint whole{{50.0F, 180.0F}, "n", "d", 1796452220.0, 5.0F, "2026-12-05T08:10"};
  document.waypoints = {whole, whole};
  document.routes = {{"r", {whole, whole}, 0}, {"r", {whole}, 0}};
  document.tracks = {{"t", {whole, whole}, 0}};
  pugi::xml_document xml;
  ASSERT_TRUE(xml.load_string(WriteGpx(document).c_str()));
  EXPECT_STREQ(xml.document_element().attribute("version").value(), "1.1");
  EXPECT_STREQ(xml.document_element().attribute("xmlns").value(),
               "http://www.topografix.com/GPX/1/1");
  EXPECT_STRNE(xml.document_element().attribute("creator").value(), "");
  int seen = 0;
  const std::function<void(const pugi::xml_node&)> walk = [&](const pugi::xml_node& node) {
    const auto order = orders.find(node.name());
    if (order == orders.end()) return;  // text, and what extensions hold
    std::size_t at = 0;
    for (const pugi::xml_node& child : node.children()) {
      const std::size_t place =
          (" " + order->second + " ").find(" " + std::string(child.name()) + " ");
      ASSERT_NE(place, std::string::npos) << node.name() << " holds " << child.name();
      EXPECT_GE(place, at) << child.name() << " in " << node.name();
      at = place;
      ++seen;
      walk(child);
    }
    if (std::string(node.name()).ends_with("pt")) {
      EXPECT_LT(node.attribute("lon").as_double(), 180.0);
    }
  };
  walk(xml.document_element());
  EXPECT_GT(seen, 30);
}

TEST(Gpx, TimesOfManyForms) {
  constexpr double kMoment = 1796452220.0;
  const std::pair<const char*, double> good[] = {{"2026-12-05T06:30:20Z", kMoment},
                                                 {" 2026-12-05T06:30:20 ", kMoment},
                                                 {"20261205T063020Z", kMoment},
                                                 {"2026-12-05T01:00:20-05:30", kMoment},
                                                 {"2026-12-05T06:30:20,25+00", kMoment + 0.25},
                                                 {"2026-12-05T06:30Z", kMoment - 20.0},
                                                 {"2026-12-05", kMoment - 23420.0},
                                                 {"1969-12-31T23:59:59Z", -1.0}};
  for (const auto& [text, time] : good) EXPECT_EQ(ParseIsoTime(text), time) << text;
  for (const char* text : {"", "2026", "2026-13-05", "2026-12-05T25:00:00Z", "2026-12-05T06:61:00Z",
                           "2026-12-05T06:30:20X", "2026-12-05T06:30:20+20:00", "5/12/2026"}) {
    EXPECT_FALSE(ParseIsoTime(text)) << text;
  }
  EXPECT_EQ(IsoTimeText(-1.0), "1969-12-31T23:59:59Z");
  EXPECT_EQ(IsoTimeText(951782399.9996), "2000-02-29T00:00:00Z");
}

TEST(Gpx, PointsBecomeTheProgramsRecords) {
  GpxLine line{"Long", {}, 0};
  for (int i = 0; i < 250; ++i) {
    line.points.push_back({{static_cast<float>(i) / 10.0F, 1.0F},
                           "P" + std::to_string(i),
                           "",
                           std::nullopt,
                           i == 0 ? std::optional(4.5F) : std::nullopt,
                           ""});
  }
  line.points[3].name = "A name that is longer than the field \u0142";
  line.points[3].time = 1796452220.0;
  Taken taken;
  const auto records = RouteOfGpx(line, 6.0F, taken);
  const auto parts = SplitRoute(records, 100);
  ASSERT_EQ(parts.size(), 3U);
  EXPECT_EQ(parts[0].size(), 100U);
  EXPECT_EQ(parts[1].front(), parts[0].back());
  EXPECT_EQ(parts[2].size(), 52U);
  EXPECT_EQ(parts[2].back().name, "P249");
  EXPECT_EQ(parts[0][0].speed, 4.5F);
  EXPECT_EQ(parts[0][1].speed, 6.0F);
  EXPECT_EQ(parts[0][3].name, "A name that is longer than the fiel");
  EXPECT_EQ(taken.names_cut, 1U);
  EXPECT_EQ(taken.letters_lost, 1U);
  for (std::size_t points = 1; points < 400; ++points) {
    EXPECT_EQ(RoutePartsOf(points),
              SplitRoute(std::vector<RouteRecord>(points), kMaxRoutePoints).size());
  }
  const std::vector<PlotRecord> thin = PlotOfGpx(line, 100, taken);
  EXPECT_EQ(taken.every, 3U);
  ASSERT_EQ(thin.size(), 84U);  // 0, 3 .. 249
  EXPECT_EQ(thin.back().comment, "P249");
  EXPECT_EQ(PlotOfGpx(line, 126, taken).back().comment, "P249");
  const std::vector<PlotRecord> plot = PlotOfGpx(line, 250, taken);
  EXPECT_EQ(taken.every, 1U);
  EXPECT_EQ(plot[3].time, "06:30");
  EXPECT_EQ(plot[3].date, "05 Dec 2026");
  EXPECT_EQ(plot[4].time, "");
  const GpxLine again = GpxTrackOfPlot("Long", plot);
  EXPECT_EQ(again.points[3].time, 1796452200.0) << "to the minute";
  EXPECT_FALSE(again.points[4].time);
  EXPECT_EQ(again.points[249].name, "P249");
  for (const char* date : {"5 Dez 2026", "32 Dec 2026", "Dec 2026", "05/12/26"}) {
    EXPECT_FALSE(
        GpxTrackOfPlot("", std::vector<PlotRecord>{{1.0F, 1.0F, "06:30", date, ""}}).points[0].time)
        << date;
  }
  const GpxLine track =
      GpxTrackOf("T", std::vector<GpsTrackPoint>{{50.0F, -1.0F, 6, 30, 20, 5, 12, 26, 0.0F, 0.0F},
                                                 {50.0F, -1.0F, 6, 30, 20, 0, 0, 0, 0.0F, 0.0F}});
  EXPECT_EQ(track.points[0].time, 1796452220.0);
  EXPECT_FALSE(track.points[1].time);
}

TEST(Gpx, FilesAreWrittenBesideWhatIsThere) {
  const testing::TempFolder user;
  const Folders folders{"", user.path(), ""};
  GpxLine line{"", {}, 0};
  for (int i = 0; i < 101; ++i) {
    line.points.push_back({{50.0F, static_cast<float>(i)}, "", "", std::nullopt, std::nullopt, ""});
  }
  Taken taken;
  const auto routes = SaveGpxRoute(folders, line, " Far.gpx", 5.0F, taken);
  ASSERT_TRUE(routes) << routes.error().Text();
  EXPECT_EQ(*routes, (std::vector{folders.Routes() + "/Far.rte", folders.Routes() + "/Far 2.rte"}));
  EXPECT_EQ(ReadRouteFile((*routes)[1])->size(), 2U);
  EXPECT_FALSE(SaveGpxRoute(folders, line, "Far", 5.0F, taken));
  // Names are compared without their cases, and all are asked about before the first is written.
  std::vector<std::string> asked;
  line.points[0].name = "New";
  const auto ask = [&asked](const std::string& file) {
    asked.push_back(file);
    return asked.size() != 2;
  };
  EXPECT_TRUE(SaveGpxRoute(folders, line, "FAR", 5.0F, taken, ask)->empty());
  EXPECT_EQ(asked, (std::vector<std::string>{"Far.rte", "Far 2.rte"}));
  EXPECT_EQ(ReadRouteFile((*routes)[0])->front().name, "");
  EXPECT_EQ(*SaveGpxRoute(folders, line, "FAR", 5.0F, taken, ask), *routes);
  EXPECT_EQ(ReadRouteFile((*routes)[0])->front().name, "New");
  EXPECT_TRUE(SaveGpxWaypoints(folders, line.points, "Far", taken));
  EXPECT_FALSE(SaveGpxWaypoints(folders, {}, "None", taken));
  EXPECT_TRUE(SaveGpxTrack(folders, line, "Far", taken));
  EXPECT_EQ(ReadPlotFile(folders.Tracks() + "/Far.trk")->records.size(), 101U);
  for (const char* name : {"../Far", "a\\b", "c:d", "", " ", ".trk"}) {
    EXPECT_FALSE(SaveGpxTrack(folders, line, name, taken)) << name;
  }
  // A route with a point left out leads over what it was laid round.
  line.left_out = 1;
  EXPECT_FALSE(SaveGpxRoute(folders, line, "Gap", 5.0F, taken));
  EXPECT_TRUE(SaveGpxTrack(folders, line, "Gap", taken));
  EXPECT_EQ(taken.left_out, 1U);
  line.left_out = 0;
  // As many waypoints as a file counts, and one more; more points than routes are made of.
  line.points.resize(32768, line.points.back());
  EXPECT_EQ(SaveGpxWaypoints(folders, line.points, "Many", taken)->size(), 2U);
  EXPECT_EQ(ReadWaypointFile(WaypointPath(folders, "Many.way"))->size(), 32767U);
  EXPECT_FALSE(SaveGpxRoute(folders, line, "Many", 5.0F, taken));
}

TEST(Gpx, APlanTellsWhatToSteerAndWhen) {
  std::vector<RoutePoint> points(3);
  points[0].name = "Out";
  points[0].speed = points[1].speed = 5.5F;
  LegReport first;
  first.heading = 202.4F;
  first.start_hours = 23.999F;  // rounds to the next day
  first.start_date = {365, 2026};
  LegReport second = first;
  second.start_hours = 1.25F;
  second.start_date = {1, 2027};
  second.arrival_hours = 2.0F;
  second.arrival_date = {1, 2027};
  const GpxLine line = GpxPlanOf("Trip", points, std::vector{first, second});
  EXPECT_EQ(line.points[0].arrival, "2027-01-01T00:00");
  EXPECT_EQ(line.points[0].description, "5.5 kn, steer 202, depart 00:00 2027-01-01");
  EXPECT_EQ(line.points[1].description, "5.5 kn, steer 202, arrive 01:15 2027-01-01");
  EXPECT_EQ(line.points[2].description, "arrive 02:00 2027-01-01");
  EXPECT_EQ(GpxPlanOf("Trip", points, std::vector{first}).points[0].arrival, "");
}

}  // namespace
}  // namespace skerrow
