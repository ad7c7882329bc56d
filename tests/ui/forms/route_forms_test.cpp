#include "ui/forms/route_forms.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "routes/route_rows.h"
#include "support/recording_messages.h"
#include "support/temp_folder.h"
#include "ui/forms/file_forms.h"
#include "ui/forms/waypoint_forms.h"

namespace skerrow {
namespace {

using testing::FileBytes;
using testing::RecordingMessages;
using testing::TempFolder;

TEST(FileNames, TypedNamesAndTheirRefusals) {
  const struct {
    const char* typed;
    NameEntry entry;
    FileRefusal refusal;
    const char* name;
  } rows[] = {
      {"Solent", NameEntry::kWaypointSave, FileRefusal::kNone, "Solent.way"},
      {" Solent.txt ", NameEntry::kNewWaypointFile, FileRefusal::kNone, "Solent.way"},
      {"Round the Island .rte", NameEntry::kRouteSave, FileRefusal::kNone, "Round the Island.rte"},
      {"a.b.c", NameEntry::kWaypointEditNew, FileRefusal::kNone, "a.way"},
      {"", NameEntry::kRouteSave, FileRefusal::kNameEmpty, ""},
      {"   ", NameEntry::kRouteSave, FileRefusal::kNameEmpty, ""},
      {".way", NameEntry::kWaypointSave, FileRefusal::kNameBad, ""},
      {"  .rte", NameEntry::kRouteSave, FileRefusal::kNameBad, ""},
      {"../x", NameEntry::kRouteSave, FileRefusal::kNameBad, ""},
      {"x/y", NameEntry::kRouteSave, FileRefusal::kNameBad, ""},
      {"x\\y", NameEntry::kRouteSave, FileRefusal::kNameBad, ""},
  };
  for (const auto& row : rows) {
    const CheckedName name = CheckFileName(row.typed, row.entry);
    EXPECT_EQ(name.refusal, row.refusal) << row.typed;
    EXPECT_EQ(name.file_name, row.name) << row.typed;
  }
  EXPECT_EQ(FileRefusalText(FileRefusal::kNameEmpty, NameEntry::kWaypointSave),
            "Enter a new route file name an then click the OK button");
  EXPECT_EQ(CheckWaypointFileChoice(" "), FileRefusal::kNothingSelected);
  EXPECT_EQ(CheckWaypointFileChoice("a.WAY"), FileRefusal::kNone);
  EXPECT_EQ(CheckWaypointFileChoice("a.rte"), FileRefusal::kNotAWaypointFile);
}

class FormTest : public ::testing::Test {
 protected:
  FormTest() : folders_{folder_.path(), folder_.path(), folder_.path()} {
    MakeUserFolders(folders_);
    defaults_.speed = 5.5F;
  }
  void Lay() {
    state_ = {};
    const std::vector<Waypoint> marks = {
        {"Lizard", 49.94F, -5.206F}, {"Start, Point", 50.208F, -3.63F}, {"Berry", 50.4F, -3.45F}};
    ASSERT_EQ(CreateRouteFromWaypoints(state_, marks, defaults_, messages_), RouteEdit::kDone);
  }

  TempFolder folder_;
  Folders folders_;
  AppConfig config_;
  WaypointState waypoints_;
  RouteDefaults defaults_;
  RouteState state_;
  RecordingMessages messages_;
};

TEST_F(FormTest, DeletionIsCheckedInOrder) {
  for (const char* name : {"Default.way", "fau.way", "Def.way", "Master.way", "master.WAY",
                           "aster.way", ".way", "Defaults.way", "default.way", "Mine.way"}) {
    ASSERT_TRUE(WriteWaypointFile(WaypointPath(folders_, name), {}));
  }
  const struct {
    FileKind kind;
    const char* name;
    FileRefusal refusal;
  } rows[] = {{FileKind::kWaypoint, "", FileRefusal::kNothingToDelete},
              {FileKind::kWaypoint, "Mine.rte", FileRefusal::kDeleteWrongType},
              {FileKind::kRoute, "Mine.way", FileRefusal::kDeleteWrongType},
              {FileKind::kWaypoint, "../Mine.way", FileRefusal::kDeleteWrongType},
              {FileKind::kWaypoint, "Default.way", FileRefusal::kDeleteDefault},
              {FileKind::kWaypoint, "fau.way", FileRefusal::kDeleteDefault},
              {FileKind::kWaypoint, "Def.way", FileRefusal::kDeleteDefault},
              {FileKind::kWaypoint, ".way", FileRefusal::kDeleteDefault},
              {FileKind::kWaypoint, "Master.way", FileRefusal::kDeleteMaster},
              {FileKind::kWaypoint, "master.WAY", FileRefusal::kDeleteMaster},
              {FileKind::kWaypoint, "aster.way", FileRefusal::kDeleteMaster},
              {FileKind::kWaypoint, "Defaults.way", FileRefusal::kNone},
              {FileKind::kWaypoint, "default.way", FileRefusal::kNone},
              {FileKind::kWaypoint, "Gone.way", FileRefusal::kDeleteUnreachable},
              {FileKind::kRoute, "Default.rte", FileRefusal::kDeleteUnreachable}};
  for (const auto& row : rows) {
    EXPECT_EQ(CheckDelete(folders_, row.kind, row.name), row.refusal) << row.name;
  }
  EXPECT_EQ(FileRefusalText(FileRefusal::kDeleteUnreachable),
            "The file selected has a problem  - it may be in use");
}

// What the dialogs' own tests do not reach.
TEST_F(FormTest, OddChoicesLeaveEverythingAsItWas) {
  ASSERT_TRUE(SaveConfig(folders_, config_));
  const std::string before = config_.waypoint_file;
  EXPECT_FALSE(ChooseWaypointFile(folders_, "Gone.way", config_, waypoints_, messages_));
  EXPECT_EQ(config_.waypoint_file, before);
  // A file imported onto itself is not asked about, and stays.
  const std::string own = WaypointPath(folders_, "a.way");
  ASSERT_TRUE(WriteWaypointFile(own, std::vector<Waypoint>{{"a", 50, -1}}));
  EXPECT_EQ(*ImportFiles(folders_, FileKind::kWaypoint, {own}, messages_), 0);
  EXPECT_EQ(FileBytes(own).size(), kWaypointSize);
  EXPECT_EQ(CheckWaypointCopy("a/b", 1).refusal, WaypointRefusal::kBadDestination);
  // The row "To" of the first leg: its name holds a comma.
  Lay();
  EXPECT_EQ(DeletePointOfRow(state_, "x\tFrom   :50.12.00N,", defaults_, messages_),
            RouteFormRefusal::kRowWithoutLongitude);
  EXPECT_EQ(DeletePointOfRow(state_, RouteRows(state_)[1], defaults_, messages_),
            RouteFormRefusal::kNone);
  ASSERT_EQ(state_.points.size(), 2U);
  EXPECT_EQ(state_.points[1].name, "Berry");
}

TEST_F(FormTest, RowsOfTheRoute) {
  Lay();
  state_.points[1].tack = 2;
  const std::vector<std::string> rows = RouteRows(state_);
  ASSERT_EQ(rows.size(), 8U);
  EXPECT_EQ(rows[0], "Lizard\tFrom   :49.56.40N,005.12.36W");
  EXPECT_EQ(rows[1], "Start, Point\tTo      :50.12.48N , 003.37.80W");
  EXPECT_EQ(rows[2], "Speed : 5.5 Kn.  Range = 62.8  Bearing = 075\u00b0T");
  EXPECT_EQ(rows[3], "");
  EXPECT_TRUE(rows[6].ends_with("\u00b0T Starboard Tack"));
  EXPECT_EQ(LegOfRow(0), 1);
  EXPECT_EQ(LegOfRow(3), 1);
  EXPECT_EQ(LegOfRow(4), 2);
  EXPECT_EQ(RouteComboRows(state_)[0], "Lizard From   :49.56.40N,005.12.36W");
  state_.points.resize(1);
  EXPECT_EQ(RouteComboRows(state_), std::vector<std::string>{"Start 49.56.40N , 005.12.36W"});
  state_.points.clear();
  EXPECT_TRUE(RouteComboRows(state_).empty());
}

TEST_F(FormTest, EditingALeg) {
  Lay();
  using enum LegCheck;
  using enum RouteFormRefusal;
  const LegEntry shown = EntryOfLeg(state_, 1);
  const struct {
    std::string LegEntry::*field;
    const char* text;
    RouteFormRefusal letters;  // as frmRouteEdit checks
    RouteFormRefusal zero;     // as frmcalcroute does
  } rows[] = {{&LegEntry::start_latitude, "", kBadLatitude, kBadLatitude},
              {&LegEntry::end_latitude, "00.00.00N", kBadLatitude, kBadLatitude},
              {&LegEntry::end_latitude, "91.00.00N", kBadLatitude, kBadLatitude},
              {&LegEntry::start_longitude, "005.12.36", kBadLongitude, kNone},
              {&LegEntry::start_longitude, "000.00.00E", kNone, kNone},
              {&LegEntry::start_longitude, "181.00.00W", kBadLongitude, kBadLongitude},
              {&LegEntry::end_longitude, "000.00.00E", kNone, kBadLongitude},
              {&LegEntry::end_longitude, "181.00.00W", kBadLongitude, kBadLongitude},
              {&LegEntry::end_longitude, "", kBadLongitude, kBadLongitude},
              {&LegEntry::speed, "-4", kBadSpeed, kBadSpeed}};
  for (const auto& row : rows) {
    for (const LegCheck check : {kLetters, kDestinationZero}) {
      RouteState state = state_;
      LegEntry entry = shown;
      entry.*row.field = row.text;
      entry.start_name = "changed";
      const RouteFormRefusal expected = check == kLetters ? row.letters : row.zero;
      EXPECT_EQ(EditLeg(state, 1, entry, check, defaults_, messages_), expected) << row.text;
      EXPECT_EQ(state.points[0].name, expected == kNone ? "changed" : "Lizard") << row.text;
    }
  }
  for (const std::size_t leg : {0U, 3U}) {
    EXPECT_EQ(EditLeg(state_, leg, shown, kLetters, defaults_, messages_), kNoLegSelected);
  }
}

}  // namespace
}  // namespace skerrow
