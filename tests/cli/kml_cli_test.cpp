// The command "export kml", by the real program.

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

}  // namespace
}  // namespace skerrow::cli
