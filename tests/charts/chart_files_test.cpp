#include "charts/chart_files.h"

#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>
#include <limits>

#include "support/recording_messages.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

using testing::RecordingMessages;
using testing::TempFolder;

// Two lines of latitude with their rows, two of longitude with their columns; scale, issue, size.
ChartFileRecord Channel() {
  return {51, 100, 49, 3100, -5, 50, 1, 4050, 500000, 0, 5.12F, 0, 4100, 3200, ""};
}

std::string Bytes(const ChartFileRecord& file) { return EncodeRecord(file, kChartFileFields); }

class ChartFilesTest : public ::testing::Test {
 protected:
  ChartFilesTest() : folders_{folder_.path(), folder_.path(), folder_.path()} {
    std::filesystem::create_directory(folder_.File("Charts"));
    config_.sea_area = "Area  ";
  }
  std::string Chart(const std::string& key, const std::string& bytes) const {
    folder_.Write("Charts/" + key + ".cht", bytes);
    return ChartPathOf(folders_, key);
  }
  std::string Index(const std::vector<ChartIndexEntry>& entries, const std::string& tail = "") {
    const auto bytes = EncodeRecords(std::span<const ChartIndexEntry>(entries), kChartIndexFields);
    return folder_.Write("Charts/Area.xrf", bytes + tail);
  }

  TempFolder folder_;
  Folders folders_;
  AppConfig config_;
  ChartState state_;
  RecordingMessages messages_;
};

// The derived values, worked out in double precision from the same calibration.
TEST_F(ChartFilesTest, WorksTheCalibrationOut) {
  ChartFileRecord delivered = Channel();
  delivered.scale = 1.0F;  // a second record is not read
  config_.chart_path = Chart("a", Bytes(Channel()) + Bytes(delivered)) + "   ";
  ASSERT_TRUE(ReadChartSettings(folders_, config_, state_));
  EXPECT_FALSE(config_.chart_path.ends_with(' '));
  const ChartRecord& chart = state_.chart;
  EXPECT_EQ(chart.lon_per_col, 0.0015);
  EXPECT_NEAR(chart.lat_per_row, -2.0 / -3000.0, 1e-15);
  EXPECT_FLOAT_EQ(chart.west_lon, -5.075F);
  EXPECT_FLOAT_EQ(chart.east_lon, 1.075F);
  EXPECT_EQ(chart.west_col, 50.0F);
  EXPECT_EQ(chart.row_span, 3000.0F);
  EXPECT_NEAR(chart.top_merc, 1.0381234713, 2e-7);
  EXPECT_NEAR(chart.bottom_merc, 0.9838078727, 2e-7);
  EXPECT_NEAR(chart.merc_span, 0.0543155985, 3e-7);
  EXPECT_EQ(chart.scale, 500000.0F);
  EXPECT_EQ(state_.history, std::vector<std::string>{config_.chart_path});
}

// The fraction counts in ten-thousandths, as near as a single holds it.
TEST(ChartIssue, WholePartAndFraction) {
  const std::pair<float, const char*> rows[] = {
      {5.12F, "5/1200"}, {12.2003F, "12/2003"}, {0.5F, "0/5000"}, {7.0F, "7/0"}, {1.00004F, "1/0"}};
  for (const auto& [issue, text] : rows) {
    EXPECT_EQ(ChartIssueText(issue), std::string("Chart issued ") + text);
  }
  EXPECT_EQ(ChartIssueText(0.0F) + ChartIssueText(NAN), "");
}

TEST_F(ChartFilesTest, PlacesOfTheFields) {
  const std::string bytes = Bytes(Channel());
  ASSERT_EQ(bytes.size(), 64U);
  // 51 is 0x424C0000, -5 is 0xC0A00000, 4100 is 0x45802000.
  EXPECT_EQ(bytes.substr(0, 4), std::string("\0\0\x4C\x42", 4));
  EXPECT_EQ(bytes.substr(16, 4), std::string("\0\0\xA0\xC0", 4));
  EXPECT_EQ(bytes.substr(48, 4), std::string("\0\x20\x80\x45", 4));
}

TEST_F(ChartFilesTest, ShortFileKeepsTheFieldsItDoesNotReach) {
  config_.chart_path = Chart("a", Bytes(Channel()));
  ASSERT_TRUE(ReadChartSettings(folders_, config_, state_));
  ChartFileRecord other = Channel();
  other.upper_lat = 52.0F;
  other.scale = 1000.0F;
  config_.chart_path = Chart("b", Bytes(other).substr(0, 32));
  ASSERT_TRUE(ReadChartSettings(folders_, config_, state_));
  EXPECT_EQ(state_.chart.top_lat, 52.0F);
  EXPECT_EQ(state_.chart.scale, 500000.0F);
}

TEST_F(ChartFilesTest, RefusalsLeaveTheChartInForce) {
  const std::string good = Chart("good", Bytes(Channel()));
  config_.chart_path = good;
  ASSERT_TRUE(ReadChartSettings(folders_, config_, state_));
  const float nan = std::nanf("");
  const float infinity = std::numeric_limits<float>::infinity();
  const struct {
    float ChartFileRecord::*field;
    float value;
    const char* reason;
  } rows[] = {
      {&ChartFileRecord::top_pix, 3100.0F, "the two calibration rows are equal"},
      {&ChartFileRecord::left_pix, 4050.0F, "the two calibration columns are equal"},
      {&ChartFileRecord::upper_lat, 49.0F, "the two calibration latitudes are equal"},
      {&ChartFileRecord::upper_lon, -5.0F, "the two calibration longitudes are equal"},
      {&ChartFileRecord::upper_lat, 90.0F, "a calibration latitude lies at or beyond a pole"},
      {&ChartFileRecord::lower_lat, -91.0F, "a calibration latitude lies at or beyond a pole"},
      {&ChartFileRecord::scale, nan, "a calibration value is no number"},
      {&ChartFileRecord::bottom_pix, infinity, "a calibration value is no number"},
      {&ChartFileRecord::width, 0.0F, "the image has no width"},
      {&ChartFileRecord::upper_lon, 361.0F, "a calibration longitude lies beyond 360 degrees"},
      {&ChartFileRecord::left_pix, -3e38F, "the calibration lines lie too close together"},
  };
  for (const auto& row : rows) {
    ChartFileRecord bad = Channel();
    bad.*row.field = row.value;
    const std::string path = Chart("bad", Bytes(bad));
    const Status status = OpenChart(folders_, path, config_, state_);
    ASSERT_FALSE(status) << row.reason;
    EXPECT_EQ(status.error().Text(), path + ".cht: the chart is not calibrated, " + row.reason);
    EXPECT_TRUE(IsCalibrated(state_.chart));
    EXPECT_EQ(config_.chart_path, good);
    EXPECT_EQ(state_.history.size(), 1U);
    EXPECT_EQ(state_.chart.top_lat, 51.0F);
  }
  const std::string gone = ChartPathOf(folders_, "gone");
  EXPECT_EQ(OpenChart(folders_, gone, config_, state_).error().Text(),
            "Does not exist in Mod. ReadChartSettings\n" + gone + ".cht");
  EXPECT_EQ(config_.chart_path, good);
  // An empty file is none of the chart before either.
  const std::string empty = Chart("empty", "");
  EXPECT_EQ(OpenChart(folders_, empty, config_, state_).error().Text(),
            empty + ".cht: the chart is not calibrated, the file is empty");
  EXPECT_EQ(state_.chart.top_lat, 51.0F);
  // Without a chart before, what a short file does not reach is not there.
  ChartState fresh;
  EXPECT_FALSE(OpenChart(folders_, Chart("short", Bytes(Channel()).substr(0, 20)), config_, fresh));
  EXPECT_FALSE(IsCalibrated(fresh.chart));
}

ChartIndexEntry Entry(const char* key, const char* title, float scale, float low, float high) {
  return {key, title, scale, low, -2.0F, high, 0.0F, "a", "b"};
}

TEST_F(ChartFilesTest, IndexRecordsAndTheirEnd) {
  const ChartIndexEntry nul{
      std::string("k\0junk", 6), std::string("Title\0junk", 10), 1, 2, 3, 4, 5, "", ""};
  const ChartIndexEntry hidden{"h", std::string("\0ghost", 6), 1, 2, 3, 4, 5, "", ""};
  Index({nul, Entry("b", "", 1, 1, 2), Entry("c", "Last", 1, 1, 2), Entry("d", "  ", 1, 1, 2),
         hidden});
  ASSERT_TRUE(LoadChartIndex(folders_, config_, state_, messages_));
  EXPECT_EQ(config_.sea_area, "Area");
  ASSERT_EQ(state_.index.size(), 3U);  // those without a title go at the end only
  EXPECT_EQ(state_.index[0].chart_key, "k");
  EXPECT_EQ(state_.index[0].title, "Title");
  EXPECT_EQ(state_.index[0].upper_lon, 5.0F);
  EXPECT_EQ(state_.index[2].flag2, "b");
  config_.sea_area = "No such area";
  ASSERT_TRUE(LoadChartIndex(folders_, config_, state_, messages_));
  EXPECT_TRUE(state_.index.empty());
}

TEST_F(ChartFilesTest, IndexCutShort) {
  const std::string path = Index({Entry("a", "A", 1, 1, 2)}, std::string(90, 'x'));
  messages_.Expect(path + ": the last record is left out, it is cut short after 90 of 102 bytes");
  ASSERT_TRUE(LoadChartIndex(folders_, config_, state_, messages_));
  EXPECT_EQ(state_.index.size(), 1U);
}

TEST_F(ChartFilesTest, BordersAreOutside) {
  const ChartIndexEntry entry{"k", "t", 1, 49, -2, 51, 0, "", ""};
  const struct {
    Position at;
    bool inside;
  } rows[] = {{{50, -1}, true},          {{49, -1}, false}, {{51, -1}, false},
              {{50, -2}, false},         {{50, 0}, false},  {{std::nanf(""), -1}, false},
              {{50.999F, -0.001F}, true}};
  for (const auto& row : rows) EXPECT_EQ(ChartContains(row.at, entry), row.inside);
}

TEST_F(ChartFilesTest, ChoiceByPositionAndScale) {
  state_.index = {Entry("wide", "W", 500000, 48, 52), Entry("mid", "M", 150000, 49, 51),
                  Entry("close", "C", 25000, 49.5F, 50.5F), Entry("twin", "T", 25000, 49.5F, 50.5F),
                  Entry("away", "A", 10000, 40, 41)};
  ChartsAtPoint({50, -1}, state_);
  std::string keys;
  for (const ChartIndexEntry& entry : state_.at_point) keys += entry.chart_key + " ";
  EXPECT_EQ(keys, "close twin mid wide ");

  const struct {
    Position at;
    float current;
    const char* larger;
    const char* smaller;
  } rows[] = {{{50, -1}, 500000, "close", nullptr},  // the most detailed, not the next
              {{50, -1}, 25000, nullptr, "mid"},     // equal is not larger
              {{50.8F, -1}, 150000, nullptr, "wide"},
              {{50.8F, -1}, 200000, "mid", "wide"},
              {{30, -1}, 1e9F, nullptr, nullptr}};
  for (const auto& row : rows) {
    state_.chart.scale = row.current;
    const auto larger = LargerScaleChart(row.at, state_);
    const auto smaller = SmallerScaleChart(row.at, state_);
    EXPECT_EQ(larger.value_or("none"), row.larger == nullptr ? "none" : row.larger);
    EXPECT_EQ(smaller.value_or("none"), row.smaller == nullptr ? "none" : row.smaller);
  }
  EXPECT_EQ(ChartTitleOf(state_, "/opt/close/Charts/mid"), "M");
  EXPECT_EQ(ChartTitleOf(state_, "C:\\x\\Charts\\none"), "");
}

TEST_F(ChartFilesTest, PreviousChartWalksTheHistory) {
  EXPECT_FALSE(OpenPreviousChart(folders_, config_, state_));
  const std::string a = Chart("a", Bytes(Channel()));
  const std::string b = Chart("b", Bytes(Channel()));
  const std::string c = Chart("c", Bytes(Channel()));
  for (const std::string& path : {a, b, c}) ASSERT_TRUE(OpenChart(folders_, path, config_, state_));
  ASSERT_TRUE(OpenPreviousChart(folders_, config_, state_));
  EXPECT_EQ(config_.chart_path, b);
  EXPECT_EQ(state_.history, (std::vector<std::string>{a, b}));
  // The chart before is gone: the current one stays, and the history ends with it.
  std::filesystem::remove(a + ".cht");
  EXPECT_FALSE(OpenPreviousChart(folders_, config_, state_));
  EXPECT_EQ(config_.chart_path, b);
  EXPECT_EQ(state_.history, std::vector<std::string>{b});
  ASSERT_TRUE(OpenPreviousChart(folders_, config_, state_));
  EXPECT_EQ(state_.history, std::vector<std::string>{b});
}

}  // namespace
}  // namespace skerrow
