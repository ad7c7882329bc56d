#include <algorithm>
#include <filesystem>

#include "cli/command_line.h"
#include "core/record.h"

namespace skerrow::cli {
namespace {

// Numbers as in tests/tides/diamond_report_test.cpp and harmonic_streams_test.cpp, which
// tests/reference/simplified_tides.py prints.
TEST_F(CommandLine, ADiamondsDayAndMonth) {
  const nlohmann::json day = Json("diamond 9999-51 --date 2026-12-05 --time 09:00");
  EXPECT_EQ(Keys(day), (std::vector<std::string>{"header", "lines", "stream"}));
  EXPECT_EQ(day["header"][0], "Tidal stream ID 9999-51");
  EXPECT_EQ(day["header"][1], "Ref Port Portsmouth (2)");
  EXPECT_EQ(day["header"].size(), 19U);
  EXPECT_EQ(day["lines"][2], "Tidal Streams Slack Water Times");
  EXPECT_EQ(day["lines"][3], "01:10      0.7kn.");
  EXPECT_EQ(day["lines"][8], "At 09:00  2.1kn @274°T");
  ASSERT_EQ(day["stream"].size(), 144U);
  EXPECT_NEAR(day["stream"][35][0], 2.2357, 1e-3);
  EXPECT_EQ(day["stream"][35][1], 94.0);
  EXPECT_EQ(day["stream"][35][2], -3);
  EXPECT_EQ(Json("diamond 9999-51 --date 2026-12-05 --report flood")["lines"][3],
            "04:40      3.1kn.");
  EXPECT_EQ(Json("diamond 9999-51 --date 2026-12-05 --report above --threshold 1.5")["lines"][2],
            "1.5kn at 02:40");
  EXPECT_EQ(
      Json("--set SlackThreshold=1.5 diamond 9999-51 --date 2026-12-05 --report above")["lines"][2],
      "1.5kn at 02:40");
  const nlohmann::json month = Json("diamond 9999-51 --date 2026-12-05 --month")["lines"];
  EXPECT_EQ(month[0], "Monthly Tidal Stream Times");
  EXPECT_NE(std::find(month.begin(), month.end(), "Thursday 31 Dec 2026"), month.end());
  EXPECT_NE(Run("diamond 9999-51 --date 2026-12-05").out.find("HW -6   094     2.5     1.3\n"),
            std::string::npos);
  ExpectError("diamond 9999-999 --date 2026-12-05", 1, "9999-999");
  ExpectError("diamond 9999-51 --report ebb", 2, "ebb");
  ExpectError("diamond 9999-51 --report above --threshold much", 2, "much");
}

TEST_F(CommandLine, HarmonicStations) {
  const std::string program = user_.File("program");
  std::filesystem::create_directories(program + "/HarmTS");
  ExpectError("--program " + program + " harmonic --date 2026-12-05", 1, "Sample Chart.l27");
  std::string record(156, ' ');
  record.replace(12, 7, "9999-51");
  const float x[] = {2.5F, 110.0F}, y[] = {1.75F, 62.5F};
  const float x_rest[] = {0.8F, 155.0F, 0.12F, 30.0F, 0.09F, 285.0F};
  const float y_rest[] = {0.55F, 118.0F, 0.2F, 301.0F, 0.07F, 14.0F};
  const auto put = [&](std::size_t at, std::span<const float> values) {
    for (std::size_t i = 0; i < values.size(); ++i) bytes::PutFloat(record, at + 4 * i, values[i]);
  };
  const float place[] = {50.5F, -1.25F};
  put(0, place), put(28, x), put(44, x_rest), put(100, y), put(116, y_rest);
  user_.Write("program/HarmTS/Sample Chart.l27", std::string(156, '\0') + record + "tail");
  const Ran ran = Run("--json --program " + program + " harmonic --date 2026-12-05 --time 14:30");
  EXPECT_EQ(ran.status, 0);
  EXPECT_NE(ran.err.find("cut short after 4 of 156 bytes"), std::string::npos) << ran.err;
  const nlohmann::json stations = ran.json()["stations"];
  ASSERT_EQ(stations.size(), 2U);
  EXPECT_EQ(Keys(stations[1]), (std::vector<std::string>{"direction", "name", "rate", "x", "y"}));
  EXPECT_EQ(stations[1]["name"], "9999-51");
  EXPECT_NEAR(stations[1]["x"], 1.83267, 5e-5);
  EXPECT_NEAR(stations[1]["y"], 0.38964, 5e-5);
  EXPECT_NEAR(stations[1]["rate"], 1.87364, 5e-5);
  EXPECT_NEAR(stations[1]["direction"], 77.997, 5e-3);
}

}  // namespace
}  // namespace skerrow::cli
