#include "charts/chart_tools.h"

#include <cmath>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace skerrow {
namespace {

using testing::FileBytes;
using testing::TempFolder;

ChartFileRecord Channel() {
  return {51, 100, 49, 3100, -5, 50, 1, 4050, 500000, 7, 5.12F, 8, 4100, 3200, "spare"};
}

std::string Bytes(const ChartFileRecord& file) { return EncodeRecord(file, kChartFileFields); }

ChartIndexEntry Entry(const char* key, const char* title, float scale) {
  return {key, title, scale, 49, -2, 51, 0, "x", "y"};
}

std::string Bytes(const ChartIndexEntry& entry) { return EncodeRecord(entry, kChartIndexFields); }

class ChartTools : public ::testing::Test {
 protected:
  ChartTools() : folders_{folder_.File("program"), folder_.File("user"), folder_.File("set")} {
    std::filesystem::create_directories(folders_.Charts());
  }

  std::string Chart(const std::string& bytes) {
    folder_.Write("program/Charts/a.cht", bytes);
    return ChartPathOf(folders_, "a");
  }
  std::string ChartFile() const { return FileBytes(folders_.Charts() + "/a.cht"); }
  void Index(const std::string& bytes) { folder_.Write("program/Charts/Area.xrf", bytes); }
  std::string IndexFile() const { return FileBytes(folders_.Charts() + "/Area.xrf"); }

  TempFolder folder_;
  Folders folders_;
};

TEST_F(ChartTools, TheFirstSaveKeepsTheCalibrationDelivered) {
  std::string delivered = Bytes(Channel());
  delivered.replace(56, 8,
                    std::string("\0\xFE"
                                "ab  \n\0",
                                8));
  const std::string path = Chart(delivered);
  ChartFileRecord moved = {51.5F,     101.0F, 48.5F, 3101.0F, -5.5F,   51.0F,   1.5F,   4051.0F,
                           250000.0F, 7.0F,   5.12F, 8.0F,    4101.0F, 3201.0F, "spare"};
  moved.spare1 = 99.0F;  // what the form knows nothing of comes from the file
  moved.issue = 1.0F;
  moved.spare3 = "other";
  ASSERT_TRUE(SaveCalibration(folders_, path + "  ", moved, Delivered::kKept));
  std::string expected = delivered;
  const std::pair<std::size_t, float> fields[] = {
      {0, 51.5F}, {4, 101.0F},   {8, 48.5F},      {12, 3101.0F}, {16, -5.5F},  {20, 51.0F},
      {24, 1.5F}, {28, 4051.0F}, {32, 250000.0F}, {48, 4101.0F}, {52, 3201.0F}};
  for (const auto& [offset, value] : fields) bytes::PutFloat(expected, offset, value);
  EXPECT_EQ(ChartFile(), expected + delivered);

  moved.lower_lat = 48.0F;
  ASSERT_TRUE(SaveCalibration(folders_, path, moved, Delivered::kKept));
  bytes::PutFloat(expected, 8, 48.0F);
  EXPECT_EQ(ChartFile(), expected + delivered) << "the second save leaves record 2";
  const auto restored = ReadCalibration(folders_, path, Calibration::kDelivered);
  ASSERT_TRUE(restored && restored.value());
  EXPECT_EQ((*restored)->upper_lat, 51.0F);
  EXPECT_EQ((*restored)->scale, 500000.0F);
  const auto working = ReadCalibration(folders_, path, Calibration::kWorking);
  ASSERT_TRUE(working && working.value());
  EXPECT_EQ((*working)->lower_lat, 48.0F);
  EXPECT_EQ((*working)->spare1, 7.0F);
}

TEST_F(ChartTools, EverythingElseInTheFileStays) {
  ChartFileRecord moved = Channel();
  moved.top_pix = 120.0F;
  std::string after = Bytes(Channel());
  bytes::PutFloat(after, 4, 120.0F);
  const std::string tail(20, 'z');
  const struct {
    std::string before;
    Delivered delivered;
    std::string after;
  } rows[] = {
      {Bytes(Channel()), Delivered::kAsItIs, after},
      {Bytes(Channel()) + tail, Delivered::kKept, after + Bytes(Channel()) + tail},
      {Bytes(Channel()) + std::string(64, 'q') + std::string(64, 'r'), Delivered::kKept,
       after + std::string(64, 'q') + std::string(64, 'r')},
      // A record that is cut short is completed, in both its places.
      {Bytes(Channel()).substr(0, 32), Delivered::kKept,
       after.substr(0, 36) + std::string(12, '\0') + after.substr(48, 8) + std::string(8, ' ') +
           Bytes(Channel()).substr(0, 36) + std::string(12, '\0') + after.substr(48, 8) +
           std::string(8, ' ')},
  };
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    ChartFileRecord calibration = moved;
    if (i == 3) {
      calibration.spare1 = calibration.issue = calibration.spare2 = 0.0F;
      calibration.spare3.clear();
    }
    ASSERT_TRUE(SaveCalibration(folders_, Chart(rows[i].before), calibration, rows[i].delivered));
    EXPECT_EQ(ChartFile(), rows[i].after) << i;
  }
  // An empty file holds nothing that could be kept.
  ASSERT_TRUE(SaveCalibration(folders_, Chart(""), moved, Delivered::kKept));
  EXPECT_EQ(ChartFile().size(), 64U);
  const auto one = ReadCalibration(folders_, Chart(Bytes(Channel())), Calibration::kDelivered);
  ASSERT_TRUE(one);
  EXPECT_FALSE(one->has_value());
}

TEST_F(ChartTools, RefusalsWriteNothing) {
  const std::string path = Chart(Bytes(Channel()));
  ChartFileRecord flat = Channel();
  flat.bottom_pix = flat.top_pix;
  EXPECT_EQ(SaveCalibration(folders_, path, flat, Delivered::kKept).error().Text(),
            "The chart is not calibrated, the two calibration rows are equal");
  EXPECT_EQ(ChartFile(), Bytes(Channel()));
  const std::string gone = ChartPathOf(folders_, "gone");
  const struct {
    std::string_view operation;
    const char* text;
  } rows[] = {{kReadChartSettings, "Does not exist in Mod. ReadChartSettings\n"},
              {kListClickSettings, "Does not exist in List Click Settings\n"}};
  for (const auto& row : rows) {
    EXPECT_EQ(
        SaveCalibration(folders_, gone, Channel(), Delivered::kKept, row.operation).error().Text(),
        row.text + gone + ".cht");
    EXPECT_EQ(ReadCalibration(folders_, gone, Calibration::kWorking, row.operation).error().Text(),
              row.text + gone + ".cht");
  }
  EXPECT_FALSE(std::filesystem::exists(gone + ".cht"));
  EXPECT_EQ(ListIndex(folders_, "Nowhere").error().Text(),
            "Does not exist in List Click Settings\n" + folders_.Charts() + "/Nowhere.xrf");
}

// What is changed in an installed program is the user's own copy, which is then read.
TEST_F(ChartTools, AReadOnlyProgramFolderStaysAsItIs) {
  namespace fs = std::filesystem;
  const std::string path = Chart(Bytes(Channel()));
  const std::string index = Bytes(Entry("a", "A", 500000)) + Bytes(Entry("b", "B", 500000));
  Index(index);
  fs::create_directories(folders_.documents);
  fs::permissions(folders_.documents, fs::perms::all);
  fs::permissions(folders_.Charts(), fs::perms(0555));
  ChartFileRecord moved = Channel();
  moved.scale = 250000.0F;
  testing::AsPlainUser([&] {
    Result<IndexList> list = ListIndex(folders_, " Area ");
    ASSERT_TRUE(list);
    const Status scaled = SetIndexScale(folders_, list.value(), 0, 250000.0F);
    EXPECT_TRUE(scaled) << scaled.error().Text();
    EXPECT_TRUE(DeleteIndexEntry(folders_, list.value(), 1)) << "the list goes on from the copy";
    EXPECT_TRUE(SaveCalibration(folders_, path, moved, Delivered::kKept));
    const auto read = ReadCalibration(folders_, path, Calibration::kWorking);
    EXPECT_EQ(read.value().value().scale, 250000.0F);
  });
  fs::permissions(folders_.Charts(), fs::perms::owner_all);
  EXPECT_EQ(IndexFile(), index);
  EXPECT_EQ(ChartFile(), Bytes(Channel()));
  const std::string own = folder_.File("user/SkerrowHelm/Charts");
  EXPECT_EQ(FileBytes(own + "/Area.xrf"), Bytes(Entry("a", "A", 250000)));
  EXPECT_EQ(FileBytes(own + "/a.cht"), Bytes(moved) + Bytes(Channel()));
}

TEST_F(ChartTools, EditsOfTheIndexLeaveTheOtherRecords) {
  std::string first = Bytes(Entry("a", "First", 500000));
  first.replace(16, 12, std::string("First\0hidden", 12));
  const std::string blank = Bytes(Entry("h", "", 1));
  ChartIndexEntry broken = Entry("d", "Broken", 1);
  broken.scale = std::nanf("");
  const std::string last = Bytes(Entry("c", "Last", 25000));
  const std::string tail(30, 't');
  Index(first + blank + Bytes(broken) + last + tail);
  Result<IndexList> made = ListIndex(folders_, "Area");
  ASSERT_TRUE(made);
  IndexList& list = made.value();
  ASSERT_EQ(list.rows.size(), 3U) << "an entry without a title is not listed, a damaged one is";
  EXPECT_EQ(list.rows[1].record, 2U);

  ChartIndexEntry renamed = list.rows[0].entry;
  renamed.upper_lat = 51.5F;
  ASSERT_TRUE(ModifyIndexEntry(folders_, list, 0, renamed));
  bytes::PutFloat(first, 92, 51.5F);
  EXPECT_EQ(IndexFile(), first + blank + Bytes(broken) + last + tail);

  ChartIndexEntry mended = broken;
  mended.scale = 10000.0F;
  mended.flag1 = "?";
  ASSERT_TRUE(ModifyIndexEntry(folders_, list, 1, mended));
  mended.flag1 = "x";
  EXPECT_EQ(IndexFile(), first + blank + Bytes(mended) + last + tail);

  const ChartIndexEntry fresh = Entry("new", "New", 75000);
  ASSERT_TRUE(InsertIndexEntry(folders_, list, 0, fresh));
  EXPECT_EQ(IndexFile(), first + Bytes(fresh) + blank + Bytes(mended) + last + tail);
  ASSERT_EQ(list.rows.size(), 4U);
  EXPECT_EQ(list.rows[1].entry.title, "New");
  ASSERT_TRUE(InsertIndexEntry(folders_, list, 3, fresh));
  EXPECT_EQ(IndexFile(), first + Bytes(fresh) + blank + Bytes(mended) + last + Bytes(fresh) + tail);

  ASSERT_TRUE(SetIndexScale(folders_, list, 3, 30000.0F));
  ASSERT_TRUE(DeleteIndexEntry(folders_, list, 4));
  ASSERT_TRUE(DeleteIndexEntry(folders_, list, 1));
  std::string scaled = last;
  bytes::PutFloat(scaled, 80, 30000.0F);
  EXPECT_EQ(IndexFile(), first + blank + Bytes(mended) + scaled + tail);
  EXPECT_FALSE(DeleteIndexEntry(folders_, list, 3));

  // Changed by another, the list no more speaks of this file.
  Index(first);
  EXPECT_FALSE(DeleteIndexEntry(folders_, list, 0));
  EXPECT_EQ(IndexFile(), first);
}

TEST_F(ChartTools, TheLastDeletionLeavesAnEmptyIndexThatCanBeFilledAgain) {
  Index(Bytes(Entry("a", "A", 1)));
  Result<IndexList> list = ListIndex(folders_, "Area");
  ASSERT_TRUE(list);
  ASSERT_TRUE(DeleteIndexEntry(folders_, list.value(), 0));
  EXPECT_TRUE(std::filesystem::exists(folders_.Charts() + "/Area.xrf"));
  EXPECT_EQ(IndexFile(), "");
  EXPECT_TRUE(list->rows.empty());
  const ChartIndexEntry entry = Entry("b", "B", 2);
  ASSERT_TRUE(InsertIndexEntry(folders_, list.value(), std::nullopt, entry));
  EXPECT_EQ(IndexFile(), Bytes(entry));
}

TEST_F(ChartTools, EntriesThatNoIndexCanHold) {
  const float nan = std::nanf("");
  const std::string long_key(17, 'k');
  const std::string long_title(65, 't');
  const struct {
    std::function<void(ChartIndexEntry&)> change;
    const char* part;  // of the refusal; null for an entry that is taken
  } rows[] = {
      {[](auto&) {}, nullptr},
      {[](auto& e) { e.chart_key = "1234567890-12345"; }, nullptr},
      {[](auto& e) { e.title = "Île d'Ouessant – entrée"; }, nullptr},
      {[](auto& e) { e.chart_key = " "; }, "no number"},
      {[](auto& e) { e.title = ""; }, "no name"},
      {[](auto& e) { e.chart_key = "../9999"; }, "name of a file"},
      {[](auto& e) { e.chart_key = "a/b"; }, "name of a file"},
      {[](auto& e) { e.chart_key = "a\\b"; }, "name of a file"},
      {[&](auto& e) { e.chart_key = long_key; }, "16 characters"},
      {[](auto& e) { e.chart_key = "Ω1"; }, "16 characters"},
      {[&](auto& e) { e.title = long_title; }, "64 characters"},
      {[&](auto& e) { e.upper_lon = nan; }, "not all numbers"},
      {[](auto& e) { e.scale = 0.0F; }, "not all numbers"},
      {[](auto& e) { e.upper_lat = e.lower_lat; }, "south"},
      {[](auto& e) { e.upper_lon = -3.0F; }, "west"},
  };
  for (const auto& row : rows) {
    ChartIndexEntry entry = Entry("k", "T", 5000);
    row.change(entry);
    const Status status = CheckIndexEntry(entry);
    EXPECT_EQ(status.ok(), row.part == nullptr);
    if (row.part != nullptr && !status) {
      EXPECT_NE(status.error().Text().find(row.part), std::string::npos) << status.error().Text();
    }
  }
}

TEST_F(ChartTools, CatalogueAndList) {
  Chart(Bytes(Channel()));
  std::vector<ChartIndexEntry> index = {Entry("a", "Approaches, \"inner\"", 500000),
                                        Entry("2045-2.B", "Harbour", 12500),
                                        Entry("2045-1", "Bay", 1250000)};
  index[1].lower_lon = -1.5F;
  index[1].upper_lat = 50.123457F;
  const std::vector<CatalogueLine> lines = ChartCatalogue(folders_, index);
  EXPECT_EQ(CatalogueText(lines),
            "a,,\"Approaches, \"\"inner\"\"\",Skerrow Helm,Raster,5/1200,Main panel,"
            "49.00000,-2.00000,51.00000,0.00000\n"
            "2045,2,Harbour,Skerrow Helm,Raster,,Panel 2,49.00000,-1.50000,50.12346,0.00000\n"
            "2045,1,Bay,Skerrow Helm,Raster,,Main panel,49.00000,-2.00000,51.00000,0.00000\n");
  EXPECT_EQ(ChartListText(index),
            "2045-1\tBay\t1250000\n2045-2.B\tHarbour\t12500\n"
            "a\tApproaches, \"inner\"\t500000\n");
  EXPECT_EQ(ChartListText({}), "");
}

}  // namespace
}  // namespace skerrow
