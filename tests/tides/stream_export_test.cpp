#include "tides/stream_export.h"

#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>

#include "support/sample_tides.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

using testing::FileBytes;
using testing::MadeTides;
using testing::RandomPort;
using testing::RecordingMessages;
using testing::TempFolder;

constexpr DayAndYear kDate = {365, 2026};

// Two diamonds at one port; the first always runs at 2.5 knots towards 150 degrees.
TideState TwoDiamonds() {
  std::mt19937 random(5);
  Diamond diamond;
  diamond.chart_no = 9000;
  diamond.dia_no = 1;
  diamond.ref_port = 1;
  diamond.np_range = 1.0F;
  diamond.sp_range = 3.0F;
  diamond.latitude = 50.5F;
  diamond.longitude = -1.3333334F;
  diamond.direction.fill(150.0F);
  diamond.spring_rate.fill(2.5F);
  diamond.neap_rate.fill(2.5F);
  Diamond other = diamond;
  other.dia_no = 2;
  other.direction.fill(270.0F);
  other.spring_rate.fill(1.0F);
  other.neap_rate.fill(1.0F);
  return MadeTides({diamond, other}, {RandomPort(random, "Port")}, kDate);
}

class StreamExportTest : public ::testing::Test {
 protected:
  std::string File(const char* name) { return FileBytes(folder_.File(kFolder + name)); }
  Result<std::optional<StreamExport>> Export(const TideState& tides, int days = 2) {
    return ExportStreams(tides, folders_, kDate, days, messages_, progress_);
  }

  const std::string kFolder = "SkerrowHelm/TidalComponents/";
  TempFolder folder_;
  Folders folders_{"", folder_.path(), ""};
  RecordingMessages messages_;
  NoProgress progress_;
};

TEST(StreamRecords, AreAsTheTableHasThem) {
  EXPECT_EQ(StreamPositionRecord(50.5, 2.25), "50.5      ,2.25           \r\n");
  // Single precision in a double: every digit there is, cut.
  EXPECT_EQ(StreamPositionRecord(50.504166F, -1.3333334F), "50.504165 ,-1.3333333     \r\n");
  EXPECT_EQ(StreamPositionRecord(-12.3456789012, 123.456789012), "-12.34567 ,123.45678      \r\n");
  EXPECT_EQ(StreamValueRecord({60, 2028}, 7, 0.12345), "2028/02/29,07:00:00,0.1235\r\n");
  EXPECT_EQ(StreamValueRecord({1, 2026}, 23, -1.98765), "2026/01/01,23:00:00,-1.987\r\n");
  for (const double value : {0.0, -0.00001, 12.3456, -12.3456}) {
    EXPECT_EQ(StreamValueRecord({1, 2026}, 0, value).size(), kStreamRecordSize) << value;
  }
}

TEST_F(StreamExportTest, WritesEachHourOfEachDiamond) {
  const auto done = Export(TwoDiamonds());
  ASSERT_TRUE(done.ok()) << done.error().Text();
  ASSERT_TRUE(done.value().has_value());
  EXPECT_EQ((*done)->diamonds, 2U);
  EXPECT_TRUE((*done)->left_out.empty());
  EXPECT_EQ((*done)->end, (DayAndYear{2, 2027}));
  const std::string x = File("9000-1-X.txt");
  ASSERT_EQ(x.size(), kStreamRecordSize * (1 + 48));
  EXPECT_EQ(x.substr(0, 56), "50.5      ,-1.3333333     \r\n2026/12/31,00:00:00,1.2500\r\n");
  EXPECT_EQ(x.substr(28 * 25, 28), "2027/01/01,00:00:00,1.2500\r\n");
  EXPECT_EQ(x.substr(28 * 48, 28), "2027/01/01,23:00:00,1.2500\r\n");
  // 2.5 cos 150 degrees is -2.16506.
  EXPECT_EQ(File("9000-1-Y.txt").substr(28, 28), "2026/12/31,00:00:00,-2.165\r\n");
  EXPECT_EQ(File("9000-2-X.txt").substr(28, 28), "2026/12/31,00:00:00,-1.000\r\n");
  // Another export adds to what is there.
  ASSERT_TRUE(Export(TwoDiamonds(), 1).ok());
  EXPECT_EQ(File("9000-1-X.txt").size(), kStreamRecordSize * (1 + 72));
}

TEST_F(StreamExportTest, LeavesNoHalfFileBehind) {
  ASSERT_TRUE(Export(TwoDiamonds(), 1).ok());
  const std::string before = File("9000-1-X.txt");
  std::filesystem::remove(folder_.File(kFolder + "9000-1-Y.txt"));
  // The last of the four is something else.
  folder_.Write(kFolder + "9000-2-Y.txt", "notes");
  const auto failed = Export(TwoDiamonds());
  ASSERT_FALSE(failed.ok());
  EXPECT_NE(failed.error().Text().find("9000-2-Y.txt"), std::string::npos);
  EXPECT_EQ(File("9000-1-X.txt"), before);
  EXPECT_FALSE(std::filesystem::exists(folder_.File(kFolder + "9000-1-Y.txt")));
  EXPECT_EQ(File("9000-2-Y.txt"), "notes");

  std::filesystem::remove(folder_.File(kFolder + "9000-2-Y.txt"));
  for (const double stop : {0.0, 50.0, 85.0}) {
    struct StopAt final : Progress {
      explicit StopAt(double at) : percent(at) {}
      bool Step(double done) override { return done < percent; }
      double percent;
    } progress(stop);
    const auto cancelled = ExportStreams(TwoDiamonds(), folders_, kDate, 2, messages_, progress);
    ASSERT_TRUE(cancelled.ok());
    EXPECT_FALSE(cancelled.value().has_value()) << stop;
    EXPECT_EQ(File("9000-1-X.txt"), before) << stop;
    EXPECT_FALSE(std::filesystem::exists(folder_.File(kFolder + "9000-1-Y.txt"))) << stop;
  }
  testing::OnFullDisk(100, [&] { EXPECT_FALSE(Export(TwoDiamonds()).ok()); });
  EXPECT_EQ(File("9000-1-X.txt"), before);
}

TEST_F(StreamExportTest, LeavesOutWhatHasNoStreamOfItsOwn) {
  TideState tides = TwoDiamonds();
  tides.diamonds[1].dia_no = 1;
  auto done = Export(tides);
  ASSERT_TRUE(done.ok());
  EXPECT_EQ((*done)->diamonds, 1U);
  EXPECT_EQ((*done)->left_out, std::vector<std::string>{"9000-1"});
  EXPECT_EQ(File("9000-1-X.txt").size(), kStreamRecordSize * 49);

  tides = TwoDiamonds();
  tides.days = TideDays({nullptr}, false);
  done = Export(tides);
  ASSERT_TRUE(done.ok());
  EXPECT_EQ((*done)->diamonds, 0U);
  EXPECT_EQ((*done)->left_out.size(), 2U);

  tides = TwoDiamonds();
  tides.diamonds[1].np_range = 3.0F;
  messages_.Expect(
      "CalculateTidalStreams\n"
      "Divide by Zero (Diamond(iCount)Sprange - Diamond(iCount).Nprange)");
  done = Export(tides);
  EXPECT_EQ((*done)->left_out, std::vector<std::string>{"9000-2"});
  EXPECT_FALSE(Export(TideState()).ok());
  EXPECT_FALSE(Export(TwoDiamonds(), 0).ok());
  EXPECT_FALSE(Export(TwoDiamonds(), kMaxExportDays + 1).ok());
}

// The counter of days goes from 0 to beyond the day of the year and 33 more.
TEST(StreamExportDays, RunOnPastTheSelectedDay) {
  EXPECT_EQ(ExportDays(1), 35);
  EXPECT_EQ(ExportDays(366), 400);
}

}  // namespace
}  // namespace skerrow
