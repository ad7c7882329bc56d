// Routes and waypoint files edited by keyboard and mouse in their dialogs.

#include <QRadioButton>

#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/edits.h"
#include "ui/routes/frmRouteEdit.h"
#include "ui/routes/frmSingleWayPoint.h"
#include "ui/routes/frmWayEdit.h"
#include "ui/routes/frmWayFileLocate.h"
#include "ui/routes/frmwaycopy.h"

namespace skerrow::testing {
namespace {

class EditingDialogs : public SampleDesk {
 protected:
  void SetUp() override { ImportSamples(); }
};

TEST_F(EditingDialogs, LegTakesTypedValues) {
  LoadSample();
  program.passage.route_track.resize(3);  // as after a calculation
  const std::vector<RoutePoint> before = program.route.points;
  frmRouteEdit form(desktop, nullptr);
  Show(form);
  messages.Expect("Click on a route leg before trying to insert or delete a waypoint");
  Click(form, "cmdmodify");
  EXPECT_EQ(TextOf(form, "List1", 4), "Needles South West\tFrom   :50.36.00N,001.39.60W");
  ClickRow(form, "List1", 4, 2);
  EXPECT_EQ(Find<QLineEdit>(form, "txtroutedestname")->text(), "Mid Channel North");

  Type(form, "txtroutedestlat", "0");
  messages.Expect("Error - Latitude entry");
  Click(form, "cmdmodify");
  Type(form, "txtroutedestlat", "50.12.00n");
  EXPECT_EQ(Find<QLineEdit>(form, "txtroutedestlat")->text(), "50.12.00N");
  Type(form, "txtroutedestlong", "001.30.00");
  messages.Expect("Error - Longitude entry");
  Click(form, "cmdmodify");
  EXPECT_EQ(program.route.points[2].At(), before[2].At());
  EXPECT_EQ(program.passage.route_track.size(), 3U);
  EXPECT_FALSE(program.edits.history.CanUndo());

  Type(form, "txtroutedestlong", "x001.30.00w");  // the filter drops the x
  Type(form, "txtroutespeed", "6.5kn");
  QTest::keyClick(Find<QLineEdit>(form, "txtroutespeed"), Qt::Key_Return);
  EXPECT_TRUE(form.isVisible());
  EXPECT_NEAR(program.route.points[2].latitude, 50.2, 1e-5);
  EXPECT_NEAR(program.route.points[2].longitude, -1.5, 1e-5);
  EXPECT_EQ(program.route.points[1].speed, 6.5F);
  EXPECT_EQ(program.route.points[1].At(), before[1].At());  // not typed: the same to the last bit
  EXPECT_TRUE(program.passage.route_track.empty());
  EXPECT_EQ(program.edits.history.UndoName(), "Edit Leg");
  EXPECT_EQ(TextOf(form, "List1", 5), "Mid Channel North\tTo      :50.12.00N , 001.30.00W");
}

TEST_F(EditingDialogs, PointsAreInsertedDeletedAndTurnedRound) {
  LoadSample();
  frmRouteEdit form(desktop, nullptr);
  Show(form);
  const auto names = [&] {
    std::string text;
    for (const RoutePoint& point : program.route.points) text += point.name.substr(0, 8) + "|";
    return text;
  };
  const std::string all = names();
  ClickRow(form, "List1", 4);
  messages.Expect("Select a waypoint from the list");
  Click(form, "cmdInsert");
  ClickRow(form, "List2", RowOfText(form, "List2", "St Catherines"));
  messages.Expect("Select insertion point Before or After Leg start waypoint");
  Click(form, "cmdInsert");
  Find<QRadioButton>(form, "optAfter")->setChecked(true);
  Click(form, "cmdInsert");
  EXPECT_EQ(names(), "Bridge B|Needles |St Cathe|Mid Chan|Mid Chan|Ch 1 Buo|Cherbour|");
  EXPECT_EQ(program.route.points[2].speed, program.config.vessel_speed);

  ClickRow(form, "List1", 7);
  messages.Expect("Highlight a Point before pressing Delete");
  Click(form, "cmdDelete");
  ClickRow(form, "List1", 6);
  messages.Expect("Point does not contain a longitude");
  Click(form, "cmdDelete");
  ClickRow(form, "List1", 5);  // "To" the inserted point
  Click(form, "cmdDelete");
  EXPECT_EQ(names(), all);

  Type(form, "txtroutespeed", "0");
  messages.Expect("Must enter a valid speed");
  Click(form, "cmdRouteSpeed");
  EXPECT_EQ(program.route.points[0].speed, 5.5F);
  Type(form, "txtroutespeed", "4");
  Click(form, "cmdRouteSpeed");
  for (const RoutePoint& point : program.route.points) EXPECT_EQ(point.speed, 4.0F);
  Click(form, "cmdreverse");
  EXPECT_EQ(names(), "Cherbour|Ch 1 Buo|Mid Chan|Mid Chan|Needles |Bridge B|");
  Click(form, "cmdExit");
  EXPECT_FALSE(form.isVisible());

  for (const char* edit :
       {"Reverse Route", "Apply Speed to all Legs", "Delete Route Point", "Insert Waypoint"}) {
    EXPECT_EQ(program.edits.history.UndoName(), edit);
    EXPECT_TRUE(UndoRouteEdit(program, messages));
  }
  EXPECT_EQ(names(), all);
  EXPECT_FALSE(RouteUnsaved(program));
  EXPECT_TRUE(RedoRouteEdit(program, messages));
  EXPECT_EQ(program.route.points.size(), 7U);
}

TEST_F(EditingDialogs, KeysInsertAndDeleteAskFirst) {
  LoadSample();
  const Position near_second = {50.59F, -1.66F};
  messages.ExpectQuestion("Delete a route point?", true, "Delete Route Point");
  EXPECT_TRUE(AskDeleteRoutePoint(program, messages, near_second));
  EXPECT_EQ(program.route.points[1].name, "Mid Channel North");
  ClearRoute(program.route);
  messages.ExpectQuestion("Insert a route point?", true, "Insert Point");
  messages.Expect("You need to have entered at least 2 points - nothing done");
  EXPECT_FALSE(AskInsertRoutePoint(program, messages, near_second));

  const std::size_t count = program.waypoints.waypoints.size();
  messages.ExpectQuestion("Delete the waypoint?", true, "Delete Waypoint");
  EXPECT_TRUE(AskDeleteWaypoint(program, messages, program.waypoints.waypoints[2].At()));
  EXPECT_EQ(program.waypoints.waypoints.size(), count - 1);
  EXPECT_EQ(program.waypoints.waypoints[2].name, "Bridge Buoy(Needles)");
}

TEST_F(EditingDialogs, WaypointFileChangesOnlyBySave) {
  const std::string before = FileBytes(WayFile("Sample.way"));
  frmWayEdit form(desktop, nullptr);
  Show(form);
  EXPECT_EQ(Find<QLabel>(form, "labelnoofpoints")->text(), "46 waypoints");
  EXPECT_EQ(TextOf(form, "List1", 4), "Brighton\t\t,50.48.33N : 000.06.42W");
  EXPECT_EQ(TextOf(form, "List1", 0), "Anvil Point\t,50.34.94N : 001.55.85W");

  messages.Expect("Error - Latitude entry");
  Click(form, "cmdAdd");
  Type(form, "txtWayName", "Nab Tower");
  Type(form, "txtWayLat", "50.40.08N");
  Type(form, "txtWayLong", "000.57.15");
  messages.Expect("Error - Longitudes entry");
  Click(form, "cmdAdd");
  Type(form, "txtWayLong", "000.57.15W");
  QTest::keyClick(Find<QLineEdit>(form, "txtWayLong"), Qt::Key_Return);
  EXPECT_EQ(TextOf(form, "List1", 46), "Nab Tower\t,50.40.08N : 000.57.15W");
  EXPECT_EQ(Find<QLineEdit>(form, "txtWayName")->text(), "");

  ClickRow(form, "List1", 1);
  Click(form, "cmdDelete");
  ClickRow(form, "List1", 0, 2);  // brings the row into the boxes
  EXPECT_EQ(Find<QLineEdit>(form, "txtWayLat")->text(), "50.34.94N");
  Type(form, "txtWayName", "Anvil");
  Click(form, "cmdChange");
  Type(form, "txtWayName", "South");
  Type(form, "txtWayLat", "20.30.00S");
  Type(form, "txtWayLong", "015.15.00E");
  ClickRow(form, "List1", 1);
  Click(form, "cmdInsert");
  EXPECT_EQ(FileBytes(WayFile("Sample.way")), before);
  Click(form, "cmdSave");
  EXPECT_FALSE(form.isVisible());

  const std::vector<Waypoint>& now = program.waypoints.waypoints;  // loaded again
  ASSERT_EQ(now.size(), 47U);
  EXPECT_EQ(now[0].name, "Anvil");
  EXPECT_EQ(now[1], (Waypoint{"South", -20.5F, 15.25F}));
  EXPECT_EQ(now[2].name, "Berry Head");
  EXPECT_EQ(now[46].name, "Nab Tower");
  // Untouched rows keep every bit.
  EXPECT_EQ(FileBytes(WayFile("Sample.way")).substr(3 * 43, 40 * 43),
            before.substr(3 * 43, 40 * 43));
  EXPECT_EQ(ListFiles(program.folders.SettingsData(), FileKind::kWaypoint).size(), 0U);
}

TEST_F(EditingDialogs, WaypointChangesAreNotLostUnasked) {
  ASSERT_TRUE(WriteWaypointFile(WayFile("Other.way"), SampleWaypoints().first(3)));
  const std::string before = FileBytes(WayFile("Sample.way"));
  const char* question = "Leave Sample.way without saving the changes to its waypoints?";
  frmWayEdit form(desktop, nullptr);
  Show(form);
  ClickRow(form, "List1", 7);
  Click(form, "cmdDelete");
  messages.ExpectQuestion(question, false);
  ClickRow(form, "fillist", RowOfText(form, "fillist", "Other.way"));
  EXPECT_EQ(Find<QListWidget>(form, "List1")->count(), 45);
  EXPECT_EQ(Find<QListWidget>(form, "fillist")->selectedItems().front()->text(), "Sample.way");
  messages.ExpectQuestion(question, false);
  QTest::keyClick(&form, Qt::Key_Escape);
  EXPECT_TRUE(form.isVisible());

  messages.ExpectQuestion(question, true);
  WithNextDialog([&](QDialog& dialog) {
    messages.Expect("Enter a new waypoint file name an then clich the OK button");
    Click(dialog, "cmdOK");
    Type(dialog, "txtFileName", "Fresh");
    Click(dialog, "cmdOK");
  });
  Click(form, "cmdCreateNew");
  EXPECT_EQ(Find<QListWidget>(form, "fillist")->selectedItems().front()->text(), "Fresh.way");
  EXPECT_EQ(Find<QListWidget>(form, "List1")->count(), 0);
  EXPECT_EQ(program.config.waypoint_file, "Sample.way");
  QTest::keyClick(&form, Qt::Key_Escape);
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(FileBytes(WayFile("Sample.way")), before);
}

TEST_F(EditingDialogs, ClickedWaypointsAreCopied) {
  frmwaycopy form(desktop, nullptr);
  Show(form);
  messages.Expect("Enter a name for your destination file");
  Click(form, "cmdSave");
  Type(form, "txtFileName", "Copied.txt");
  messages.Expect("No waypoints selected");
  Click(form, "cmdSave");
  ClickRow(form, "List1", 2);
  ClickRow(form, "List1", 5, 2);  // a double click copies once
  ClickRow(form, "List1", 0);
  ASSERT_EQ(Find<QListWidget>(form, "List2")->count(), 3);
  ClickRow(form, "List2", 1, 2);
  Click(form, "cmdSave");
  EXPECT_FALSE(form.isVisible());
  const auto copied = ReadWaypointFile(WayFile("Copied.WAY"));
  ASSERT_TRUE(copied);
  ASSERT_EQ(copied->size(), 2U);
  EXPECT_EQ((*copied)[0].name, "Berry Head");
  EXPECT_EQ((*copied)[1].name, "Anvil Point");

  frmwaycopy again(desktop, nullptr);
  Show(again);
  ClickRow(again, "List1", 0);
  Type(again, "txtFileName", "COPIED");
  messages.ExpectQuestion("File exists - Overwrite ?", false);
  Click(again, "cmdSave");
  EXPECT_TRUE(again.isVisible());
  EXPECT_EQ(std::filesystem::file_size(WayFile("Copied.WAY")), 86U);
}

// The list and the chart follow when the file on show is written over beside its editor.
TEST_F(EditingDialogs, TheFileOnShowIsWrittenOver) {
  ASSERT_EQ(program.waypoints.waypoints.size(), 46U);
  frmWayEdit form(desktop, nullptr);
  Show(form);
  WithNextDialog([this](QDialog& copy) {
    ClickRow(copy, "List1", 3);
    Type(copy, "txtFileName", "Sample");
    messages.ExpectQuestion("File exists - Overwrite ?", true);
    Click(copy, "cmdSave");
  });
  Click(form, "cmdCopy");
  EXPECT_EQ(Find<QListWidget>(form, "List1")->count(), 1);
  WithNextDialog([this](QDialog& name) {
    Type(name, "txtFileName", "Sample");
    messages.ExpectQuestion("File already exists - continue and overwrite the contents?", true);
    Click(name, "cmdOK");
  });
  Click(form, "cmdCreateNew");
  form.reject();
  EXPECT_TRUE(program.waypoints.waypoints.empty());
}

TEST_F(EditingDialogs, SingleWaypointIsCheckedAndAppended) {
  const std::size_t count = program.waypoints.waypoints.size();
  {
    frmSingleWayPoint form(desktop, Position{50.5F, -2.25F}, nullptr);
    EXPECT_EQ(form.objectName(), "frmMouseInput");
    Show(form);
    messages.Expect("Point Must have a name");
    Click(form, "cmdOK");
    Type(form, "txtWayName", "Picked");
    Click(form, "cmdOK");
    EXPECT_FALSE(form.isVisible());
  }
  ASSERT_EQ(program.waypoints.waypoints.size(), count + 1);
  EXPECT_EQ(program.waypoints.waypoints.back(), (Waypoint{"Picked", 50.5F, -2.25F}));

  frmSingleWayPoint form(desktop, std::nullopt, nullptr);
  Show(form);
  Type(form, "txtWayName", "Null island");
  Type(form, "txtWayLat", "95.00.00N");
  messages.Expect("Error - Latitude entry");
  Click(form, "cmdOK");
  Type(form, "txtWayLat", "00.00.00N");
  messages.ExpectQuestion("Longitude = Zero - CONTINUE ANYWAY?", true);
  messages.ExpectQuestion("Latitude = Zero - CONTINUE ANYWAY?", false);
  Click(form, "cmdOK");
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(program.waypoints.waypoints.size(), count + 1);
}

TEST_F(EditingDialogs, MouseEntryAsksForANameAndAnEmptyOneLeavesTheMode) {
  desktop.view.mouse_mode = MouseMode::kWaypointEntry;
  const std::size_t count = program.waypoints.waypoints.size();
  WithNextDialog([](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Mouse Entry of Waypoint");
    EXPECT_EQ(Find<QLineEdit>(dialog, "txtWayName")->text(), "Waypoint No");
    Type(dialog, "txtWayName", "Wreck");
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  EnterWaypointByMouse(desktop, {49.5F, -3.0F}, nullptr);
  ASSERT_EQ(program.waypoints.waypoints.size(), count + 1);
  EXPECT_EQ(program.waypoints.waypoints.back().name, "Wreck");
  EXPECT_EQ(desktop.view.mouse_mode, MouseMode::kWaypointEntry);
  WithNextDialog([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  EnterWaypointByMouse(desktop, {49.5F, -3.0F}, nullptr);
  EXPECT_EQ(program.waypoints.waypoints.size(), count + 1);
  EXPECT_EQ(desktop.view.mouse_mode, MouseMode::kRouteCreation);
}

TEST_F(EditingDialogs, WaypointIsLocatedInAnyFile) {
  ASSERT_TRUE(WriteWaypointFile(WayFile("Empty.way"), {}));
  frmWayFileLocate form(desktop, nullptr);
  Show(form);
  messages.Expect("Select a point");
  Click(form, "cmdOK");
  ClickRow(form, "fillist", RowOfText(form, "fillist", "Empty.way"));
  messages.Expect("Empty file - nothing to go to");
  Click(form, "cmdOK");
  ClickRow(form, "fillist", RowOfText(form, "fillist", "Sample.way"));
  ClickRow(form, "List1", 25, 2);
  EXPECT_FALSE(form.isVisible());
  ASSERT_TRUE(form.picked());
  EXPECT_EQ(*form.picked(), SampleWaypoints()[25]);
}

}  // namespace
}  // namespace skerrow::testing
