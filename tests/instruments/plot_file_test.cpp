#include "instruments/plot_file.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <limits>

#include "support/recording_messages.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

using testing::FileBytes;
using testing::RecordingMessages;
using testing::TempFolder;

std::string Padded(std::string text, std::size_t size) {
  text.resize(size, ' ');
  return text;
}

// 50.5 is 0x424A0000 and -1.25 is 0xBFA00000 as singles.
const std::string kPlace("\0\0\x4A\x42\0\0\xA0\xBF", 8);

std::string Bytes(const std::string& time, const std::string& date, const std::string& comment) {
  return kPlace + Padded(time, 5) + Padded(date, 16) + Padded(comment, 35);
}

class PlotFile : public ::testing::Test {
 protected:
  std::string Path() const { return folder_.File("mine.trk"); }
  std::vector<std::string> Rows() const {
    std::vector<std::string> rows;
    for (const PlotRecord& record : ReadPlotFile(Path())->Sound()) rows.push_back(PlotRow(record));
    return rows;
  }
  TempFolder folder_;
};

TEST_F(PlotFile, RecordIsThatOfTheFile) {
  ASSERT_TRUE(AppendPlotRecord(
      Path(), {50.5F, -1.25F, "06:305", "5 December 2026 x", std::string(40, 'c')}));
  EXPECT_EQ(FileBytes(Path()), Bytes("06:30", "5 December 2026 ", std::string(35, 'c')));
  folder_.Write("mine.trk", Bytes("06:30", "5 Dec 2026", "\xCEle") + Bytes("", "", ""));
  const auto records = ReadPlotFile(Path())->Sound();
  ASSERT_EQ(records.size(), 2U);
  EXPECT_EQ(records[0], (PlotRecord{50.5F, -1.25F, "06:30", "5 Dec 2026", "\u00cele"}));
  EXPECT_EQ(ManualPlotRow(records[0]), "50.30.00N   001.15.00W  06:30   5 Dec 2026  \u00cele");
  EXPECT_EQ(PlotRow(records[0]), "50.30.00N,001.15.00W,06:30,5 Dec 2026,\u00cele");
  EXPECT_EQ(PlotRow({50.5F, -1.25F, " 6:30", "  5 Dec", "  x"}),
            "50.30.00N,001.15.00W,6:30,5 Dec,x");
}

TEST_F(PlotFile, AStoredPlotFollowsItsFile) {
  StoredPlot stored;
  EXPECT_TRUE(stored.Get("").empty());
  EXPECT_TRUE(stored.Get(Path()).empty());
  ASSERT_TRUE(AppendPlotRecord(Path(), {50.5F, -1.25F, "06:30", "", "one"}));
  ASSERT_EQ(stored.Get(Path()).size(), 1U);
  ASSERT_TRUE(AppendPlotRecord(Path(), {50.6F, -1.25F, "06:40", "", "two"}));
  ASSERT_EQ(stored.Get(Path()).size(), 2U);
  EXPECT_EQ(stored.Get(Path())[1].comment, "two");
  folder_.Write("other.trk", Bytes("1", "", "other"));
  ASSERT_EQ(stored.Get(folder_.File("other.trk")).size(), 1U);
  EXPECT_EQ(stored.Get(folder_.File("other.trk"))[0].comment, "other");
  std::filesystem::remove(Path());
  EXPECT_TRUE(stored.Get(Path()).empty());
  folder_.Write("empty.trk", "");
  EXPECT_TRUE(stored.Get(folder_.File("empty.trk")).empty());
}

TEST_F(PlotFile, EntriesFollowOneAnother) {
  for (const char* time : {"6", "5", "4", "3", "2", "1"}) {
    ASSERT_TRUE(AppendPlotRecord(Path(), {50.5F, -1.25F, time, "", ""}));
  }
  EXPECT_EQ(FileBytes(Path()).substr(5 * 64), Bytes("1", "", ""));
  // Behind the whole records; what is left of another goes.
  folder_.Write("mine.trk", Bytes("1", "", "") + std::string(40, 'x'));
  ASSERT_TRUE(AppendPlotRecord(Path(), {50.5F, -1.25F, "2", "", ""}));
  EXPECT_EQ(FileBytes(Path()), Bytes("1", "", "") + Bytes("2", "", ""));
  const float nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_FALSE(AppendPlotRecord(Path(), {nan, -1.25F, "3", "", ""}));
  EXPECT_EQ(FileBytes(Path()).size(), 128U);
  folder_.Write("mine.trk", std::string(64 * 32767, '\0'));
  EXPECT_FALSE(AppendPlotRecord(Path(), {50.5F, -1.25F, "3", "", ""}));
  EXPECT_EQ(FileBytes(Path()).size(), 64U * 32767U);
}

TEST_F(PlotFile, DamagedAndMissingFiles) {
  EXPECT_FALSE(ReadPlotFile(Path()));
  folder_.Write("mine.trk", "");
  EXPECT_TRUE(ReadPlotFile(Path())->records.empty());
  std::string bad = Bytes("1", "", "");
  bad.replace(0, 4, "\xFF\xFF\xFF\xFF");
  folder_.Write("mine.trk", bad + Bytes("2", "", "") + "tail");
  const auto file = ReadPlotFile(Path());
  EXPECT_EQ(file->left_out.damaged, 1U);
  EXPECT_EQ(file->left_out.cut_bytes, 4U);
  ASSERT_EQ(file->Sound().size(), 1U);
  EXPECT_EQ(file->Sound()[0].time, "2");
}

TEST_F(PlotFile, SaveChangesWritesTheRowsAndNoMore) {
  // A place that its text does not tell to the last bit.
  const PlotRecord exact = {50.123457F, -1.7654321F, "06:30", "5 Dec 2026", "one, two"};
  ASSERT_TRUE(AppendPlotRecord(Path(), exact));
  for (const char* time : {"2", "3"}) {
    ASSERT_TRUE(AppendPlotRecord(Path(), {50.5F, -1.25F, time, "", ""}));
  }
  std::vector<std::string> rows = Rows();
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0], "50.07.41N,001.45.93W,06:30,5 Dec 2026,one, two");
  PlotRowTexts texts = SplitPlotRow(rows[2]);
  texts.latitude = "51.00.00N";
  texts.time = "12,45";
  texts.comment = "a comment of more than thirty-five characters";
  rows = {rows[0], JoinPlotRow(texts)};
  ASSERT_TRUE(SavePlotRows(Path(), rows));
  const auto records = ReadPlotFile(Path())->Sound();
  ASSERT_EQ(records.size(), 2U);
  EXPECT_EQ(records[0], exact);
  EXPECT_EQ(records[1],
            (PlotRecord{51.0F, -1.25F, "12 45", "", "a comment of more than thirty-five"}));
  // Nothing is emptied, and a row that is no position spoils nothing.
  const std::string before = FileBytes(Path());
  EXPECT_TRUE(SavePlotRows(Path(), {}));
  EXPECT_EQ(FileBytes(Path()), before);
  const std::string wrong[] = {rows[0], "north,001.15.00W,,,"};
  const Status refused = SavePlotRows(Path(), wrong);
  ASSERT_FALSE(refused);
  EXPECT_NE(refused.error().reason.find("north"), std::string::npos);
  EXPECT_EQ(FileBytes(Path()), before);
  folder_.Write("mine.trk", "");
  EXPECT_TRUE(SavePlotRows(Path(), rows));
  EXPECT_EQ(FileBytes(Path()), "");
}

TEST_F(PlotFile, PlacesOfTheSameTextKeepTheirOwn) {
  // A metre apart.
  for (const float latitude : {50.5F, 50.50001F, 50.50002F}) {
    ASSERT_TRUE(AppendPlotRecord(Path(), {latitude, -1.25F, "", "", ""}));
  }
  const std::vector<std::string> rows = Rows();
  ASSERT_EQ(rows[0], rows[2]);
  ASSERT_TRUE(SavePlotRows(Path(), rows));
  EXPECT_EQ(ReadPlotFile(Path())->Sound()[0].latitude, 50.5F);
  EXPECT_EQ(ReadPlotFile(Path())->Sound()[2].latitude, 50.50002F);
}

TEST_F(PlotFile, AReadOnlyFolderLosesNothing) {
  ASSERT_TRUE(AppendPlotRecord(Path(), {50.5F, -1.25F, "1", "", ""}));
  const std::vector<std::string> rows = {"51.00.00N,001.15.00W,2,,"};
  std::filesystem::permissions(folder_.path(), std::filesystem::perms::owner_read |
                                                   std::filesystem::perms::owner_exec |
                                                   std::filesystem::perms::others_read |
                                                   std::filesystem::perms::others_exec);
  testing::AsPlainUser([&] {
    EXPECT_FALSE(SavePlotRows(Path(), rows));
    EXPECT_FALSE(AppendPlotRecord(Path(), {50.5F, -1.25F, "2", "", ""}));
  });
  EXPECT_EQ(FileBytes(Path()), Bytes("1", "", ""));
}

TEST_F(PlotFile, RowsAndTheirTexts) {
  const PlotRowTexts texts = SplitPlotRow("50.30.00N,001.15.00W,06:30,5 Dec,a,b");
  EXPECT_EQ(texts.latitude, "50.30.00N");
  EXPECT_EQ(texts.longitude, "001.15.00W");
  EXPECT_EQ(texts.time, "06:30");
  EXPECT_EQ(texts.date, "5 Dec");
  EXPECT_EQ(texts.comment, "a,b");
  EXPECT_EQ(SplitPlotRow("50.30.00N,001.15.00W,,,").comment, "");
  EXPECT_EQ(JoinPlotRow({"50.30,5N", "001.15,5W", "6,30", "5,Dec", "a,b"}),
            "50.30.5N,001.15.5W,6 30,5 Dec,a,b");
  EXPECT_EQ(PlotInsertFault(false, {}), "click where to insert");
  EXPECT_EQ(PlotInsertFault(true, {}), "No Latitude Entry");
  EXPECT_EQ(PlotInsertFault(true, {"50.30.00N", "", "", "", ""}), "No Longitude Entry");
  EXPECT_EQ(PlotInsertFault(true, {"50.30.00N", "001.15.00W", "", "", ""}), "");
}

TEST_F(PlotFile, ManualEntries) {
  const PlotDefaults defaults = DefaultPlotTexts({2026, 12, 5, 6, 7, 59});
  EXPECT_EQ(defaults.time, "06:07");
  EXPECT_EQ(defaults.date, "5 Dec 2026");
  EXPECT_EQ(ManualPlotRecord({}).error().reason, "No longitude entry!");
  EXPECT_EQ(ManualPlotRecord({"", "001.15.00W", "", "", ""}).error().reason, "No latitude entry!");
  const auto record = ManualPlotRecord({"50.30.00N", "001.15.00W", "06:30", "5 Dec", " x "});
  EXPECT_EQ(*record, (PlotRecord{50.5F, -1.25F, "06:30", "5 Dec", "x"}));
  for (const PlotRowTexts& none : {PlotRowTexts{"N", "001.15.00W", "", "", ""},
                                   PlotRowTexts{"91.00.00N", "001.15.00W", "", "", ""},
                                   PlotRowTexts{"50.30.00N", "west", "", "", ""},
                                   PlotRowTexts{"50.30.00N", "181.00.00W", "", "", ""}}) {
    EXPECT_NE(ManualPlotRecord(none).error().reason.find("is no position"), std::string::npos);
  }
}

TEST_F(PlotFile, NamesOfTracks) {
  EXPECT_EQ(*CheckTrackName(" Mine.TRK "), "Mine.TRK");
  for (const char* month :
       {"jan", "FEB", "mar", "apr", "may", "jun", "jul", "aug", "sep", "oct", "nov", "Dec"}) {
    EXPECT_TRUE(CheckTrackName(std::string("trak1207.") + month)) << month;
  }
  EXPECT_EQ(CheckTrackName("  ").error().reason,
            "Enter a new waypoint file name an then click the OK button");
  for (const char* name : {".trk", "mine", "../mine.trk", "a\\b.trk"}) {
    EXPECT_EQ(CheckTrackName(name).error().reason, "Track name invalid") << name;
  }
  EXPECT_EQ(CheckTrackName("mine.x").error().reason,
            "Track name must end with '.jan, feb, mar' etc or '.trk' \r\nplease correct and press "
            "OK or Cancel");
  EXPECT_EQ(*CheckTrackChoice("voyage.one.nmea"), "voyage");
  EXPECT_EQ(CheckTrackChoice("").error().reason, "Enter a file name an then click the OK button");
  EXPECT_EQ(CheckTrackChoice("voyage").error().reason, "Illegal file name");
}

TEST_F(PlotFile, ListsOfTheTracksFolder) {
  for (const char* name : {"trak1207.may", "TRAK1208.JUN", "voyage.nmea", "Log.NMEA", "mine.trk",
                           "mine.feb", "other.jan", "table.txt", "trakx", "mine"}) {
    folder_.Write(name, "");
  }
  using Names = std::vector<std::string>;
  EXPECT_EQ(ListTracks(folder_.path(), TrackKind::kNewTrack),
            (Names{"TRAK1208.JUN", "trak1207.may"}));
  EXPECT_EQ(ListTracks(folder_.path(), TrackKind::kLog), (Names{"Log.NMEA", "voyage.nmea"}));
  EXPECT_EQ(ListTracks(folder_.path(), TrackKind::kPlot),
            (Names{"TRAK1208.JUN", "mine.feb", "mine.trk", "other.jan", "trak1207.may"}));
  EXPECT_EQ(ListTracks(folder_.path(), TrackKind::kDelete),
            (Names{"TRAK1208.JUN", "trak1207.may", "trakx"}));
  EXPECT_TRUE(ListTracks(folder_.File("none"), TrackKind::kLog).empty());
  EXPECT_EQ(FindPlotFile(folder_.path(), "mine"), folder_.File("mine.trk"));
  EXPECT_EQ(FindPlotFile(folder_.path(), "trak1208"), folder_.File("TRAK1208.JUN"));
  EXPECT_EQ(FindPlotFile(folder_.path(), "voyage"), "");
}

TEST_F(PlotFile, DeletingATrack) {
  folder_.Write("trak1.may", "x");
  RecordingMessages messages;
  messages.Expect("Select file by clicking a name in the list, followed by the OK button");
  EXPECT_FALSE(DeleteTrackFile(folder_.path(), "", messages));
  messages.Expect("The file selected has a problem  - it may be in use");
  EXPECT_FALSE(DeleteTrackFile(folder_.path(), "trak2.may", messages));
  const std::string question = "Are you sure that you want to delete Track File ** trak1.may **";
  messages.ExpectQuestion(question, false);
  EXPECT_FALSE(DeleteTrackFile(folder_.path(), "trak1.may", messages));
  EXPECT_EQ(folder_.EntryCount(), 1U);
  messages.ExpectQuestion(question, true);
  EXPECT_TRUE(DeleteTrackFile(folder_.path(), "trak1.may", messages));
  EXPECT_EQ(folder_.EntryCount(), 0U);
}

}  // namespace
}  // namespace skerrow
