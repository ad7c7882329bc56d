// The commands "drift" and "export", by the real program.

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "support/temp_folder.h"

namespace skerrow::cli {
namespace {

using skerrow::testing::FileBytes;
using skerrow::testing::TempFolder;

class DriftCommandLine : public ::testing::Test {
 protected:
  int Run(const std::string& words, const std::string& program = "") {
    const std::string command = std::string("env -u SKERROW_PROGRAM ") + SKERROW_CLI +
                                " --documents '" + user_.path() + "' --settings '" + user_.path() +
                                "' " + (program.empty() ? "" : "--program '" + program + "' ") +
                                words + " >" + user_.File("out.txt") + " 2>" +
                                user_.File("err.txt");
    return WEXITSTATUS(std::system(command.c_str()));
  }
  nlohmann::json Json(const std::string& words) {
    EXPECT_EQ(Run("--json " + words), 0) << words << FileBytes(user_.File("err.txt"));
    return nlohmann::json::parse(FileBytes(user_.File("out.txt")), nullptr, false);
  }
  std::string Err() const { return FileBytes(user_.File("err.txt")); }

  TempFolder user_;
};

TEST_F(DriftCommandLine, DriftGivesTrackSumsAndClosestStep) {
  const std::string start = "drift 50.30.00N 001.20.00W --date 2026-12-05 --time 06:30";
  const auto drift =
      Json(start + " --duration 3 --heading 180 --speed 4 --to 50.20.00N 001.20.00W");
  EXPECT_EQ(drift["steps"], 36);
  ASSERT_EQ(drift["track"].size(), 37U);
  EXPECT_EQ(drift["track"][0], nlohmann::json::parse("[50.5, -1.3333334, 6.5]"));
  const int closest = drift["closestStep"];
  // The sums run up to and with the closest step, a third of a mile each through the water.
  EXPECT_NEAR(drift["waterSum"][0].get<double>(), -(closest + 1) / 3.0, 1e-4);
  EXPECT_NEAR(drift["waterSum"][1].get<double>(), 0.0, 1e-4);
  // Both sums together lead from the start to the next place on the track.
  const auto& place = drift["track"][static_cast<std::size_t>(closest) + 1];
  EXPECT_NEAR(drift["waterSum"][0].get<double>() + drift["streamSum"][0].get<double>(),
              (place[0].get<double>() - 50.5) * 60.0, 1e-3);
  EXPECT_NEAR(drift["streamSum"][1].get<double>(),
              (place[1].get<double>() + 4.0 / 3.0) * 60.0 * std::cos(50.42 * M_PI / 180.0), 0.02);

  const auto body = Json(start + " --duration 0.25");
  EXPECT_EQ(body["steps"], 3);
  EXPECT_TRUE(body["closestStep"].is_null());
  EXPECT_EQ(body["waterSum"], nlohmann::json::parse("[0.0, 0.0]"));
  // Every step goes with the stream that "stream" tells for its place.
  const auto stream = Json("stream 50.30.00N 001.20.00W --date 2026-12-05 --time 06:30");
  const double north = (body["track"][1][0].get<double>() - 50.5) * 60.0 * 12.0;
  EXPECT_NEAR(
      north,
      stream["rate"].get<double>() * std::cos(stream["direction"].get<double>() * M_PI / 180.0),
      2e-3);
}

TEST_F(DriftCommandLine, DriftRefusesInOneLine) {
  const std::string start = "drift 50.30.00N 001.20.00W ";
  EXPECT_EQ(Run(start), 2);
  EXPECT_EQ(Run(start + "--duration x"), 2);
  EXPECT_EQ(Run(start + "--duration 1 --heading 90"), 2);
  EXPECT_EQ(Run(start + "--duration 1 --speed 5"), 2);
  EXPECT_EQ(Run(start + "--duration 1 --to 50.30.00N"), 2);
  EXPECT_EQ(Run(start + "--duration -1"), 1);
  EXPECT_EQ(Run(start + "--duration 1e30"), 1);
  EXPECT_NE(Err().find("no more than 720 hours"), std::string::npos);
  EXPECT_EQ(Run("drift 89.50.00N 001.20.00W --duration 1"), 1);
  EXPECT_EQ(FileBytes(user_.File("out.txt")), "");
}

TEST_F(DriftCommandLine, ExportWritesStreamsAndDiamonds) {
  const auto streams = Json("export streams --date 2026-03-01 --days 2");
  EXPECT_EQ(streams["diamonds"], 133);
  const std::string folder = streams["folder"];
  EXPECT_EQ(folder, user_.File("SkerrowHelm/TidalComponents"));
  EXPECT_EQ(FileBytes(folder + "/9999-133-Y.txt").size(), 28U * 49U);
  EXPECT_EQ(FileBytes(folder + "/9999-51-X.txt").substr(0, 39),
            "50.549999 ,-1.2999999     \r\n2026/03/01,");
  EXPECT_EQ(Run("export streams --days 0"), 2);
  EXPECT_EQ(Run("export streams"), 2);

  const std::string installed = std::string(SKERROW_SOURCE_DIR) + "/program";
  std::filesystem::copy(installed, user_.File("program"), std::filesystem::copy_options::recursive);
  EXPECT_EQ(Run("export diamonds", user_.File("program")), 0) << Err();
  const std::string cleaned = FileBytes(user_.File("program/TS/Sample Chart001.l25"));
  EXPECT_EQ(cleaned.substr(0, 196), std::string(196, '\0'));
  EXPECT_TRUE(cleaned.substr(196) == FileBytes(installed + "/TS/Sample Chart.l25"));
  std::filesystem::remove_all(user_.File("program/TS"));
  EXPECT_EQ(Run("export diamonds", user_.File("program")), 1);
}

}  // namespace
}  // namespace skerrow::cli
