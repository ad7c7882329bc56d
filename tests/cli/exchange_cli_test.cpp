// The commands "export kml", "export gpx" and "export text" with their imports, by the real
// program.

#include <cstdlib>

#include "cli/command_line.h"

namespace skerrow::cli {
namespace {

class KmlCommands : public CommandLine {
 protected:
  std::string Document(const std::string& words) {
    return FileBytes(Json("export kml " + words)["file"].get<std::string>());
  }
};

std::size_t Count(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; ++at) ++count;
  return count;
}

TEST_F(KmlCommands, WriteEachKind) {
  const std::string route = Document("route Sample.rte --name 'A&B' --description Cherbourg");
  EXPECT_EQ(Count(route, "<name>A&B</name>"), 2U);
  EXPECT_EQ(Count(route, "<Point id="), 6U);
  EXPECT_NE(route.find("<description>Cherbourg\r\n"), std::string::npos);
  ASSERT_EQ(Run("waypoints").status, 0);  // makes the sample file
  const std::string waypoints = Document("waypoints Sample.way --name 'A&B' --escape");
  EXPECT_EQ(Count(waypoints, "<name>A&amp;B</name>"), 1U);
  EXPECT_EQ(Count(waypoints, "<Point id="), 46U);
  const std::string plan =
      Document("plan Sample.rte --date 2026-12-05 --time 06:30 --name Trip --leeway 5");
  EXPECT_EQ(Count(plan, " CTS =  "), 5U);
  EXPECT_GT(Count(plan, ",1\r\n"), 30U);
  const std::string track = Document("track 'Channel crossing.nmea'");
  EXPECT_EQ(Count(track, "<name>Channel crossing</name>"), 2U);
  EXPECT_EQ(Count(track, "<name>Finish at "), 1U);
  ExpectError("export kml route None.rte", 1, "None.rte: the file does not exist");
  ExpectError("export kml route Sample.rte --name a/b", 1, "holds no");
  ExpectError("export kml plan --time 25:00", 2, "");
}

class GpxCommands : public CommandLine {};

TEST_F(GpxCommands, ARouteComesBackToTheSameBytes) {
  const std::string gpx = user_.File("trip.gpx");
  const std::string words = "--route Sample.rte --track 'Channel crossing.nmea'";
  EXPECT_EQ(Json("export gpx " + words + " --output " + gpx)["file"], gpx);
  const auto holds = Json("import gpx " + gpx);
  EXPECT_EQ(holds["routes"][0]["name"], "Sample");
  EXPECT_EQ(holds["routes"][0]["points"], 6);
  EXPECT_EQ(holds["routes"][0]["leftOut"], 0);
  EXPECT_EQ(holds["tracks"][0]["points"], 240);
  const auto made = Json("import gpx " + gpx + " --route 1 --name Back");
  EXPECT_EQ(FileBytes(made["files"][0].get<std::string>()),
            FileBytes(SKERROW_SOURCE_DIR "/program/Samples/Sample.rte"));
  EXPECT_EQ(Json("import gpx " + gpx + " --track 1")["every"], 1);
  ExpectError("import gpx " + gpx + " --route 1 --name Back", 1, "there is a file of this name");
  ExpectError("import gpx " + gpx + " --route 2", 1, "it has 1 routes");
  ExpectError("import gpx " + gpx + " --route 0", 2, "route");
  ExpectError("import gpx " + gpx + " --waypoints", 1, "it has no points");
  ExpectError("import gpx none.gpx", 1, "none.gpx: the file does not exist");
}

class TextCommands : public CommandLine {};

TEST_F(TextCommands, RoutesAndWaypointsComeBackToTheSameBytes) {
  ASSERT_EQ(Run("waypoints").status, 0);  // makes the sample file
  const std::pair<const char*, std::string> kinds[] = {
      {"route Sample.rte", SKERROW_SOURCE_DIR "/program/Samples/Sample.rte"},
      {"waypoints Sample.way", user_.File("documents/SkerrowHelm/Waypoints/Sample.way")}};
  for (const auto& [words, source] : kinds) {
    const std::string table = user_.File("table.csv");
    EXPECT_EQ(Json("export text " + std::string(words) + " --output " + table)["file"], table);
    EXPECT_EQ(Json("export text " + std::string(words))["table"], FileBytes(table));
    const std::string kind = std::string(words).substr(0, std::string(words).find(' '));
    // As in a country of decimal commas.
    ::setenv("LC_ALL", "de_DE.UTF-8", 1);
    const auto made = Json("import text " + kind + " " + table + " --name Back");
    EXPECT_EQ(Json("export text " + std::string(words))["table"], FileBytes(table));
    ::unsetenv("LC_ALL");
    EXPECT_EQ(FileBytes(made["files"][0].get<std::string>()), FileBytes(source));
    EXPECT_EQ(made["leftOut"], 0);
    ExpectError("import text " + kind + " " + table + " --name Back", 1,
                "there is a file of this name");
  }
  EXPECT_TRUE(Run("export text plan Sample.rte --date 2026-12-05 --time 06:30")
                  .out.starts_with("Leg,Date,Time,Steer,Latitude,"));
  user_.Write("bad.csv", "Name,Lat,Lon\nA,95,0\n");
  ExpectError("import text route " + user_.File("bad.csv"), 1,
              "bad.csv: line 2: \"95\" is no latitude");
  ExpectError("import text waypoints none.csv", 1, "none.csv: the file does not exist");
  ExpectError("export text route None.rte", 1, "None.rte: the file does not exist");
}

}  // namespace
}  // namespace skerrow::cli
