// Charts brought in and taken away, by the real program.

#include <filesystem>
#include <fstream>

#include "cli/command_line.h"

namespace skerrow::cli {
namespace {

class ChartCommands : public CommandLine {
 protected:
  // A grey picture of 60 x 40 pixels in the plainest of forms that the import reads: a TIFF without
  // compression, with a world file in degrees beside it.
  std::string Picture() const {
    std::string tiff("II*\0\x08\0\0\0", 8);
    const auto put16 = [&](int v) { tiff += {static_cast<char>(v), static_cast<char>(v >> 8)}; };
    const int entries[][3] = {{256, 3, 60}, {257, 3, 40},  {258, 3, 8},  {259, 3, 1},
                              {262, 3, 1},  {273, 4, 122}, {278, 3, 40}, {279, 4, 2400}};
    put16(8);
    for (const auto& [tag, type, value] : entries) {
      put16(tag);
      put16(type);
      put16(1);
      put16(0);
      put16(value);
      put16(0);
    }
    tiff.resize(122, '\0');
    tiff += std::string(2400, '\x7f');
    user_.Write("bay.tfw", "0.01\n0\n0\n-0.01\n-2.0\n50.9\n");
    return user_.Write("bay.tif", tiff);
  }
};

TEST_F(ChartCommands, AChartComesAndGoes) {
  const std::string file = Picture();
  const auto made = Json("chart import " + file + " --area 'Home waters' --title 'The Bay'");
  EXPECT_EQ(made["chartKey"], "1001-1");
  EXPECT_EQ(made["placed"], true);
  EXPECT_NEAR(made["lowerLon"].get<double>(), -2.005, 1e-4);
  EXPECT_NEAR(made["upperLat"].get<double>(), 50.905, 1e-4);
  // 0.01 degrees of longitude in 50.7 N, 704.9 m, on 0.1 mm of paper.
  EXPECT_EQ(made["scale"], 7000000);
  EXPECT_TRUE(std::filesystem::exists(made["chart"].get<std::string>() + ".l55"));
  const auto list = Json("--set 'SeaArea=Home waters' chart list");
  EXPECT_EQ(list[0]["chartTitle"], "The Bay");
  const auto shown = Json("chart show 1001-1 --convert 50.905,-2.005");
  EXPECT_EQ(shown["column"], 0);
  EXPECT_EQ(shown["row"], 0);
  ExpectError("chart import " + file + " --area A --key 1001-1", 1, "key 1001-1 already");
  ExpectError("chart import " + file + " --area A --scale 1:5", 2, "scale");
  ExpectError("chart import none.kap --area A", 1, "none.kap: the file does not exist");
  std::filesystem::remove(user_.File("bay.tfw"));
  ExpectError("chart import " + file + " --area A", 2, "--scale");
  EXPECT_EQ(Json("chart import " + file + " --area A --key plan --scale 5000")["placed"], false);

  (void)Json("config init");
  (void)Json("config set ChartPath " + made["chart"].get<std::string>());
  ExpectError("chart remove 1001-1", 1, "the one the desktop shows");
  (void)Json("config init");
  EXPECT_EQ(Json("chart remove 1001-1")["removed"], "1001-1");
  ExpectError("chart remove 1001-1", 1, "there is no chart of the key 1001-1");
  ExpectError("chart remove 9999-1", 1, "is the one the desktop shows");
  ExpectError("chart remove 9999-2", 1, "came with the program");
}

}  // namespace
}  // namespace skerrow::cli
