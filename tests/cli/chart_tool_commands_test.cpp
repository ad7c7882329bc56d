// "chart bounds" and "chart calibrate", by the real program on a copy of the sample installation.

#include <algorithm>
#include <filesystem>

#include "cli/command_line.h"
#include "core/record.h"

namespace skerrow::cli {
namespace {

class ChartToolCommands : public CommandLine {
 protected:
  ChartToolCommands() {
    std::filesystem::copy(std::string(SKERROW_SOURCE_DIR) + "/program", program_,
                          std::filesystem::copy_options::recursive);
  }
  std::string Words(const std::string& words) const {
    return "--program '" + program_ + "' chart " + words;
  }
  std::string Cht() const { return FileBytes(program_ + "/Charts/9999-2.cht"); }

  const std::string program_ = user_.File("program");
};

TEST_F(ChartToolCommands, Bounds) {
  const Ran ran = Run(Words("bounds"));
  EXPECT_EQ(ran.status, 0);
  EXPECT_EQ(ran.out.substr(0, ran.out.find('\n')),
            "9999,1,English Channel,Skerrow Helm,Raster,2026/625,Main panel,48.00000,-6.60000,"
            "51.65000,2.45000");
  EXPECT_EQ(std::count(ran.out.begin(), ran.out.end(), '\n'), 4);
  const nlohmann::json lines = Json(Words("bounds"));
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_EQ(lines[2]["panel"], "3");
  EXPECT_EQ(lines[2]["sheet"], "Panel 3");
  EXPECT_EQ(lines[2]["lowerLon"], -1.9);
  EXPECT_EQ(lines[2]["upperLat"], 50.95);
}

TEST_F(ChartToolCommands, CalibrateByFieldsByPointsAndBack) {
  const std::string delivered = Cht();
  const nlohmann::json fields = Json(Words(
      "calibrate 9999-2 --upper-lat 51.06.00N --top-row 12.5 --left-long -3.5 --scale 550000"));
  EXPECT_NEAR(fields["upperLat"].get<double>(), 51.1, 1e-6);
  EXPECT_EQ(fields["topPix"], 12.5);
  EXPECT_EQ(fields["lowerLon"], -3.5);
  EXPECT_EQ(fields["scale"], 550000.0);
  EXPECT_EQ(fields["lowerLat"], 49.2) << "what is not named stays";
  std::string changed = delivered;
  bytes::PutFloat(changed, 0, 51.1F);
  bytes::PutFloat(changed, 4, 12.5F);
  bytes::PutFloat(changed, 16, -3.5F);
  bytes::PutFloat(changed, 32, 550000.0F);
  EXPECT_EQ(Cht(), changed + delivered);

  const nlohmann::json rest =
      Json(Words("calibrate 9999-2 --lower-lat 49.00.00N --bottom-row 3400 --right-long 100.30.00E "
                 "--left-column 150 --right-column 4400 --width 4600 --height 3700"));
  const std::pair<const char*, double> others[] = {
      {"lowerLat", 49},   {"bottomPix", 3400}, {"upperLon", 100.5}, {"leftPix", 150},
      {"rightPix", 4400}, {"width", 4600},     {"height", 3700},    {"topPix", 12.5}};
  for (const auto& [name, value] : others) EXPECT_EQ(rest[name], value) << name;

  // The corners may be any two that lie across from each other, in any order.
  for (const char* points :
       {"--point 3000 200 49.30.00N 003.00.00W --point 500 4200 50.45.00N 000.15.00E",
        "--point 500 200 50.75 -3 --point 3000 4200 49.5 0.25"}) {
    const nlohmann::json placed = Json(Words(std::string("calibrate 9999-2 ") + points));
    const std::pair<const char*, double> values[] = {
        {"upperLat", 50.75}, {"topPix", 500},  {"lowerLat", 49.5},        {"bottomPix", 3000},
        {"lowerLon", -3.0},  {"leftPix", 200}, {"upperLon", 0.25},        {"rightPix", 4200},
        {"scale", 550000},   {"width", 4600},  {"lonPerCol", 3.25 / 4000}};
    for (const auto& [name, value] : values) EXPECT_EQ(placed[name], value) << name;
  }
  EXPECT_EQ(Cht().size(), 128U);
  EXPECT_EQ(Cht().substr(64), delivered);
  EXPECT_EQ(Json(Words("calibrate 9999-2 --restore"))["lowerLon"], -3.3);
  EXPECT_EQ(Cht(), delivered + delivered);
}

TEST_F(ChartToolCommands, CalibrateRefuses) {
  const std::string delivered = Cht();
  const struct {
    const char* words;
    int status;
    const char* part;
  } rows[] = {
      {"calibrate 9999-2", 2, "nothing to change"},
      {"calibrate 9999-2 --restore", 1, "no calibration as delivered"},
      {"calibrate 9999-2 --restore --scale 5", 2, "--restore"},
      {"calibrate 9999-2 --upper-lat 95.00.00N", 2, "95.00.00N"},
      {"calibrate 9999-2 --top-row high", 2, "top row"},
      {"calibrate 9999-2 --point 1 2 50.00.00N 001.00.00W", 2, "twice"},
      {"calibrate 9999-2 --top-row 3480", 1, "the two calibration rows are equal"},
      {"calibrate 9999-2 --width 0", 1, "the image has no width"},
      {"calibrate none --scale 5", 1, "Does not exist in Mod. ReadChartSettings"},
  };
  for (const auto& row : rows) ExpectError(Words(row.words), row.status, row.part);
  EXPECT_EQ(Cht(), delivered);
}

}  // namespace
}  // namespace skerrow::cli
