#include "charts/chart_library.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>

#include "charts/chart_view.h"
#include "core/data_files.h"
#include "core/files.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

namespace fs = std::filesystem;
using testing::FileBytes;
using testing::TempFolder;

// A chart's picture without a picture: writes so many bytes, or fails half-way.
class FakeSource final : public ChartSource {
 public:
  FakeSource() {
    info_.placed = true;
    info_.sheet = {400, 300, 51.0F, 50.0F, -2.0F, 0.0F};
  }
  const ChartSourceInfo& info() const override { return info_; }
  Result<RgbPicture> Preview(int, Progress&) override { return RgbPicture{}; }
  Status WriteSheet(const std::string& picture, const std::string& preview,
                    Progress& progress) override {
    if (before_writing) before_writing();
    if (!(std::ofstream(picture, std::ios::binary) << std::string(bytes, 'p')).flush()) {
      return Error{picture, "the disk is full"};
    }
    if (!progress.Step(50.0)) return Error{"", kImportCancelled};
    std::ofstream(preview, std::ios::binary) << "small";
    return Done{};
  }

  ChartSourceInfo info_;
  std::size_t bytes = 100;
  std::function<void()> before_writing;
};

class Stopping final : public Progress {
 public:
  bool Step(double) override { return false; }
};

class ChartLibrary : public ::testing::Test {
 protected:
  ChartLibrary() : folders_{folder_.File("program"), folder_.File("documents"), folder_.path()} {
    fs::create_directories(folder_.File("program/Charts"));
    fs::create_directories(own_);
    for (const char* ending : {".l55", ".tif", ".cht"}) {
      folder_.Write(std::string("program/Charts/9999-1") + ending, "installed");
    }
    installed_ = EncodeRecord(ChartIndexEntry{"9999-1", "Channel", 500000, 48, -6, 51, 2, "", ""},
                              kChartIndexFields);
    folder_.Write("program/Charts/Sample Chart.xrf", installed_);
  }
  Result<std::string> Import(const ImportRequest& request) {
    NoProgress progress;
    return ImportChart(folders_, source_, request, progress);
  }
  std::string Own(const std::string& name) const { return own_ + "/" + name; }
  std::size_t OwnFiles() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(own_), fs::directory_iterator{}));
  }

  const TempFolder folder_;
  const std::string own_ = folder_.File("documents/SkerrowHelm/Charts");
  const Folders folders_;
  std::string installed_;
  FakeSource source_;
};

const ImportRequest kGood = {"Sample Chart", "1001-1", "Poole Harbour", 12500};

TEST_F(ChartLibrary, AChartComesWithAllItsFilesAndItsEntry) {
  const Result<std::string> chart = Import(kGood);
  ASSERT_TRUE(chart) << chart.error().Text();
  EXPECT_EQ(*chart, Own("1001-1"));
  EXPECT_EQ(*chart, ChartPathOf(folders_, "1001-1"));
  EXPECT_EQ(FileBytes(Own("1001-1.l55")).size(), 100U);
  EXPECT_EQ(FileBytes(Own("1001-1.tif")), "small");
  EXPECT_EQ(OwnFiles(), 4U);
  AppConfig config;
  ChartState state;
  config.sea_area = "Sample Chart";
  NoMessages none;
  ASSERT_TRUE(LoadChartIndex(folders_, config, state, none));
  ASSERT_EQ(state.index.size(), 2U);
  const ChartIndexEntry& entry = state.index[1];
  EXPECT_EQ(entry.chart_key + "|" + entry.title, "1001-1|Poole Harbour");
  EXPECT_EQ(entry.scale, 12500.0F);
  EXPECT_EQ(entry.lower_lat, 50.0F);
  EXPECT_EQ(entry.lower_lon, -2.0F);
  EXPECT_EQ(entry.upper_lat, 51.0F);
  EXPECT_EQ(entry.upper_lon, 0.0F);
  ASSERT_TRUE(OpenChart(folders_, *chart, config, state));
  const ChartView view = MakeChartView(state.chart, 400, 300);
  EXPECT_EQ(view.LatToRow(51.0F), 0);
  EXPECT_EQ(view.LatToRow(50.0F), 300);
  EXPECT_EQ(view.LongToCol(-0.5F), 300);
  EXPECT_EQ(state.chart.scale, 12500.0F);
  // The program's index stays as it is.
  EXPECT_EQ(FileBytes(folder_.File("program/Charts/Sample Chart.xrf")), installed_);
  EXPECT_EQ(FreeChartKey(folders_), "1002-1");
  EXPECT_EQ(SeaAreas(folders_), std::vector<std::string>{"Sample Chart"});
}

TEST_F(ChartLibrary, AnAreaIsTheSameInEitherCaseAndMayBeNew) {
  ASSERT_TRUE(Import({"sample chart", "a", "A", 5000}));
  ASSERT_TRUE(Import({"Home waters", "b", "B", 5000}));
  EXPECT_EQ(SeaAreas(folders_), (std::vector<std::string>{"Home waters", "Sample Chart"}));
  EXPECT_EQ(FileBytes(Own("Home waters.xrf")).size(), kChartIndexSize);
}

TEST_F(ChartLibrary, WhatCannotBeAChartIsRefused) {
  ASSERT_TRUE(Import({"Sample Chart", "Mine", "M", 5000}));
  const std::string index = FileBytes(Own("Sample Chart.xrf"));
  const struct {
    ImportRequest request;
    const char* part;
  } rows[] = {
      {{"A", "9999-1", "T", 5000}, "there is a chart of the key 9999-1 already"},
      {{"A", "mine", "T", 5000}, "there is a chart of the key mine already"},
      {{"A", "", "T", 5000}, "the key is empty"},
      {{"A", "a/b", "T", 5000}, "the key holds one of the signs"},
      {{"A", "..", "T", 5000}, "the key begins or ends with a blank or a point"},
      {{"A", "a ", "T", 5000}, "the key begins or ends"},
      {{"A", "12345678901234567", "T", 5000}, "the key is longer than 16"},
      {{"A", "\xd0\x96", "T", 5000}, "the key holds a character"},
      {{"A", "a\nb", "T", 5000}, "the key holds a control character"},
      {{"A", "k", "  ", 5000}, "the title is empty"},
      {{"A", "k", std::string(65, 't'), 5000}, "the title is longer than 64"},
      {{"../A", "k", "T", 5000}, "the name of the sea area holds one of the signs"},
      {{"A", "k", "T", 0}, "the scale has to be"},
      {{"A", "k", "T", 1e9}, "the scale has to be"},
      {{"A", "k", "T", std::nan("")}, "the scale has to be"},
  };
  for (const auto& row : rows) {
    const Result<std::string> chart = Import(row.request);
    ASSERT_FALSE(chart) << row.part;
    EXPECT_NE(chart.error().Text().find(row.part), std::string::npos) << chart.error().Text();
  }
  EXPECT_EQ(OwnFiles(), 4U);
  EXPECT_EQ(FileBytes(Own("Sample Chart.xrf")), index);
  EXPECT_TRUE(CheckChartKey("12345678901234 \xc3\xa9"));
}

TEST_F(ChartLibrary, AFailureLeavesNothing) {
  Stopping stop;
  EXPECT_EQ(ImportChart(folders_, source_, kGood, stop).error().reason, kImportCancelled);
  EXPECT_EQ(OwnFiles(), 0U);
  source_.bytes = 100'000;
  testing::OnFullDisk(50'000, [&] { EXPECT_FALSE(Import(kGood)); });
  EXPECT_EQ(OwnFiles(), 0U);
  // Full when the index is written: the chart's files have their names by then.
  source_.bytes = 10;
  folder_.Write("documents/SkerrowHelm/Charts/Sample Chart.xrf", installed_);
  testing::OnFullDisk(150, [&] { EXPECT_FALSE(Import(kGood)); });
  EXPECT_EQ(OwnFiles(), 1U);
  EXPECT_EQ(FileBytes(Own("Sample Chart.xrf")), installed_);
  // Another program takes the key while the picture is made.
  source_.before_writing = [&] {
    folder_.Write("documents/SkerrowHelm/Charts/1001-1.l55", "theirs");
  };
  EXPECT_FALSE(Import(kGood));
  EXPECT_EQ(FileBytes(Own("1001-1.l55")), "theirs");
  EXPECT_EQ(OwnFiles(), 2U);
  // A sheet that no calibration can place.
  source_.before_writing = nullptr;
  source_.info_.sheet.top_lat = source_.info_.sheet.bottom_lat;
  EXPECT_FALSE(Import({"A", "flat", "T", 5000}));
  EXPECT_EQ(OwnFiles(), 2U);
}

// Somebody else's new file beside ours is not cleared while the import runs.
TEST_F(ChartLibrary, AFileOnItsWayIsKeptFromTheClearing) {
  source_.before_writing = [&] { EXPECT_EQ(ClearLeftovers(own_), 0); };
  ASSERT_TRUE(Import(kGood));
}

TEST_F(ChartLibrary, AScanLiesWhereNoChartIsLookedFor) {
  source_.info_.placed = false;
  source_.info_.sheet = {800, 400, 0, 0, 0, 0};
  ASSERT_TRUE(Import(kGood));
  AppConfig config;
  ChartState state;
  ASSERT_TRUE(OpenChart(folders_, Own("1001-1"), config, state));
  const ChartView view = MakeChartView(state.chart, 800, 400);
  EXPECT_EQ(view.LatToRow(0.0F), 200);
  EXPECT_EQ(view.LongToCol(0.0F), 400);
  EXPECT_EQ(view.LongToCol(0.5F), 800);
  EXPECT_EQ(view.LatToRow(0.25F), 0);
}

TEST_F(ChartLibrary, ARemovedChartLeavesNoTrace) {
  const std::string cut(30, 'x');
  ASSERT_TRUE(Import(kGood));
  ASSERT_TRUE(Import({"Sample Chart", "1002-1", "Second", 5000}));
  ASSERT_TRUE(Import({"Home", "1003-1", "Third", 5000}));
  ASSERT_TRUE(AppendToFile(Own("Sample Chart.xrf"), cut));
  EXPECT_TRUE(IsOwnChart(folders_, "1001-1 "));
  EXPECT_FALSE(IsOwnChart(folders_, "9999-1"));
  ASSERT_TRUE(RemoveChart(folders_, "1001-1"));
  EXPECT_FALSE(ChartKeyTaken(folders_, "1001-1"));
  EXPECT_EQ(FileBytes(Own("Sample Chart.xrf")).size(), 2 * kChartIndexSize + cut.size());
  EXPECT_TRUE(fs::exists(Own("1002-1.l55")));
  // The last own chart of an area takes the own index along.
  ASSERT_TRUE(ReplaceFile(Own("Sample Chart.xrf"),
                          FileBytes(Own("Sample Chart.xrf")).substr(0, 2 * kChartIndexSize)));
  ASSERT_TRUE(RemoveChart(folders_, "1002-1"));
  ASSERT_TRUE(RemoveChart(folders_, "1003-1"));
  EXPECT_EQ(OwnFiles(), 0U);
  EXPECT_EQ(RemoveChart(folders_, "1003-1").error().Text(), "there is no chart of the key 1003-1");
  EXPECT_EQ(RemoveChart(folders_, "9999-1").error().Text(),
            "the chart 9999-1 came with the program and stays");
  // An own calibration of the program's chart makes it no own chart.
  folder_.Write("documents/SkerrowHelm/Charts/9999-1.cht", "own");
  EXPECT_FALSE(RemoveChart(folders_, "9999-1"));
  EXPECT_TRUE(fs::exists(Own("9999-1.cht")));
}

}  // namespace
}  // namespace skerrow
