// Route and waypoint files saved, loaded, deleted and carried about by real events.

#include "core/files.h"
#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/edits.h"
#include "ui/routes/frmFileDelete.h"
#include "ui/routes/frmLoadWay.h"
#include "ui/routes/frmNewWay.h"
#include "ui/routes/frmRouteLoad.h"
#include "ui/routes/frmRouteSave.h"
#include "ui/routes/frmRouteWayPoints.h"
#include "ui/routes/frmWaySave.h"
#include "ui/routes/frmwayimport.h"

namespace skerrow::testing {
namespace {

constexpr const char* kOverwrite = "File already exists - continue and overwrite the contents?";

class FileDialogs : public SampleDesk {
 protected:
  void SetUp() override { ImportSamples(); }
};

TEST_F(FileDialogs, RouteIsSavedClearedAndLoadedAgain) {
  LoadSample();
  program.route.points[1].speed = 0.9F;
  const std::vector<RouteRecord> before = RouteContent(program.route);
  {
    frmRouteSave form(desktop, nullptr);
    Show(form);
    messages.Expect("Enter a new route file name an then click the OK button");
    Click(form, "cmdOK");
    Type(form, "txtFileName", ".rte");
    messages.Expect("Check Waypoint file name");
    Click(form, "cmdOK");
    EXPECT_TRUE(form.isVisible());
    Type(form, "txtFileName", "Home run.txt");
    QTest::keyClick(&form, Qt::Key_Return);
    EXPECT_EQ(form.result(), QDialog::Accepted);
  }
  EXPECT_EQ(std::filesystem::file_size(RouteFile("Home run.rte")), before.size() * 47);
  EXPECT_FALSE(RouteUnsaved(program));

  EditRoute(desktop, "Clear Route", [&](RouteState& route) { ClearRoute(route); });
  ASSERT_TRUE(program.route.points.empty());
  frmRouteLoad form(desktop, nullptr);
  Show(form);
  messages.Expect("Enter a new file name and then click the OK button");
  Click(form, "cmdOK");
  ClickRow(form, "fillist", RowOfText(form, "fillist", "Home run.rte"));
  EXPECT_EQ(Find<QLabel>(form, "labelnoofpoints")->text(),
            "The highlighted file contains 6 waypoints");
  Click(form, "cmdOK");
  std::vector<RouteRecord> expected = before;
  expected[1].speed = program.config.vessel_speed;  // too slow for a file
  EXPECT_EQ(RouteContent(program.route), expected);
  EXPECT_FALSE(RouteUnsaved(program));
  EXPECT_EQ(program.edits.history.UndoName(), "Load Route");
}

TEST_F(FileDialogs, TickedBoxLoadsTheProgramsSpeed) {
  program.config.vessel_speed = 7.5F;
  frmRouteLoad form(desktop, nullptr);
  Show(form);
  ClickRow(form, "fillist", RowOfText(form, "fillist", "Sample.rte"));
  Click(form, "chkUseDefaultSpeed");
  Click(form, "cmdOK");
  ASSERT_EQ(program.route.points.size(), 6U);
  for (const RoutePoint& point : program.route.points) EXPECT_EQ(point.speed, 7.5F);
}

TEST_F(FileDialogs, EmptyListOffersTheSampleRoute) {
  {
    frmRouteLoad full(desktop, nullptr);
    Show(full);
    EXPECT_FALSE(Find(full, "cmdSample")->isVisible());
  }
  std::filesystem::remove_all(program.folders.Routes());
  MakeUserFolders(program.folders);
  frmRouteLoad form(desktop, nullptr);
  Show(form);
  Click(form, "cmdSample");
  EXPECT_EQ(form.result(), QDialog::Accepted);
  EXPECT_EQ(program.route.points.size(), 6U);
  EXPECT_EQ(program.route.points[0].speed, 5.5F);
  EXPECT_FALSE(RouteUnsaved(program));
  EXPECT_EQ(ListFiles(program.folders.Routes(), FileKind::kRoute).size(), 3U);
  // The user's own route of that name stays his.
  ASSERT_TRUE(ReplaceFile(RouteFile("Sample.rte"), FileBytes(RouteFile("Portland Bill.rte"))));
  EXPECT_TRUE(OpenSampleRoute(desktop));
  EXPECT_EQ(FileBytes(RouteFile("Sample.rte")), FileBytes(RouteFile("Portland Bill.rte")));
}

TEST_F(FileDialogs, EmptyRouteFileTakesTheRouteAwayAndDamagedOneDoesNot) {
  LoadSample();
  ASSERT_TRUE(ReplaceFile(RouteFile("Empty.rte"), ""));
  ASSERT_TRUE(ReplaceFile(RouteFile("Damaged.rte"), std::string(47, '\xff')));
  {
    frmRouteLoad form(desktop, nullptr);
    Show(form);
    ClickRow(form, "fillist", RowOfText(form, "fillist", "Damaged.rte"));
    const Status expected =
        LoadRouteFile(program, messages, RouteFile("Damaged.rte"), RouteSpeeds::kStored);
    ASSERT_FALSE(expected);
    EXPECT_NE(expected.error().Text().find("Damaged.rte"), std::string::npos);
    messages.Expect(expected.error().Text());
    Click(form, "cmdOK");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(program.route.points.size(), 6U);

    ClickRow(form, "fillist", RowOfText(form, "fillist", "Empty.rte"));
    messages.Expect("No entries in this file");
    Click(form, "cmdOK");
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(program.route.points.empty());
  }
  EXPECT_TRUE(UndoRouteEdit(program, messages));
  EXPECT_EQ(program.route.points.size(), 6U);
}

TEST_F(FileDialogs, OverwriteQuestionDecides) {
  LoadSample();
  const std::string before = FileBytes(RouteFile("Portland Bill.rte"));
  frmRouteSave form(desktop, nullptr);
  Show(form);
  // The name is written over in any case of its letters.
  Type(form, "txtFileName", "portland bill");
  messages.ExpectQuestion(kOverwrite, false);
  Click(form, "cmdOK");
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(FileBytes(RouteFile("Portland Bill.rte")), before);
  messages.ExpectQuestion(kOverwrite, true);
  Click(form, "cmdOK");
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(FileBytes(RouteFile("Portland Bill.rte")), FileBytes(RouteFile("Sample.rte")));
  EXPECT_FALSE(std::filesystem::exists(RouteFile("portland bill.rte")));
}

TEST_F(FileDialogs, NothingIsWrittenWithoutARouteOrWithoutRights) {
  {
    frmRouteSave form(desktop, nullptr);
    Show(form);
    Type(form, "txtFileName", "Sample");
    messages.Expect("No route set-up");
    Click(form, "cmdOK");
    EXPECT_FALSE(form.isVisible());
  }
  LoadSample();
  EditRoute(desktop, "Reverse Route",
            [&](RouteState& route) { ReverseRoute(route, RouteDefaultsOf(program), messages); });
  // A folder that cannot be written to; one that is gone does for a tester who may do anything.
  std::filesystem::rename(program.folders.Routes(), program.folders.Routes() + " away");
  frmRouteSave form(desktop, nullptr);
  Show(form);
  Type(form, "txtFileName", "New");
  const Status expected = SaveRoute(RouteFile("New.rte"), program.route, 5.0F);
  ASSERT_FALSE(expected);
  EXPECT_NE(expected.error().Text().find("New.rte"), std::string::npos);
  messages.Expect(expected.error().Text());
  Click(form, "cmdOK");
  EXPECT_TRUE(form.isVisible());
  EXPECT_TRUE(RouteUnsaved(program));
}

TEST_F(FileDialogs, WaypointsAreSavedAndAnotherFileBecomesCurrent) {
  DragWaypoint(program.waypoints, 0, {50.5F, -2.0F});
  EXPECT_TRUE(WaypointsUnsaved(program));
  const std::size_t count = program.waypoints.waypoints.size();
  {
    frmWaySave form(desktop, nullptr);
    Show(form);
    Type(form, "txtFileName", "Moved");
    Click(form, "cmdOK");
  }
  EXPECT_FALSE(WaypointsUnsaved(program));  // though not in the current file
  EXPECT_EQ(program.config.waypoint_file, "Sample.way");

  frmLoadWay form(desktop, nullptr);
  Show(form);
  messages.Expect(
      "Select a Waypoint file by clicking a name in the list, followed by the OK button");
  Click(form, "cmdOK");
  ClickRow(form, "fillist", RowOfText(form, "fillist", "Moved.way"));
  EXPECT_EQ(Find<QLabel>(form, "labelnoofpoints")->text(),
            "The highlighted file contains " + QString::number(count) + " waypoints");
  Click(form, "cmdOK");
  EXPECT_EQ(program.config.waypoint_file, "Moved.way");
  EXPECT_EQ(program.waypoints.waypoints[0].At(), (Position{50.5F, -2.0F}));
  EXPECT_NE(FileBytes(program.folders.ConfigFile()).find("Moved.way"), std::string::npos);
  EXPECT_EQ(window.changes, 2);
}

TEST_F(FileDialogs, WaypointFileOfAnotherFolderIsBroughtInBeforeItIsInUse) {
  TempFolder elsewhere;
  const std::string path = elsewhere.File("Brought.way");
  ASSERT_TRUE(WriteWaypointFile(path, std::vector<Waypoint>{{"Far Mark", 50.0F, -2.0F}}));
  const std::string sample = *ReadFile(WayFile("Sample.way"));
  ASSERT_TRUE(OpenWaypointFile(desktop, path));
  EXPECT_EQ(program.config.waypoint_file, "Brought.way");
  ASSERT_EQ(program.waypoints.waypoints.size(), 1U);
  // What is deleted now goes from that file, not from the one in use before.
  ASSERT_TRUE(
      DeleteNearestWaypoint(program.folders, program.config, program.waypoints, {50.0F, -2.0F}));
  EXPECT_EQ(*ReadFile(WayFile("Sample.way")), sample);
  EXPECT_EQ(std::filesystem::file_size(path), 43U);

  messages.ExpectQuestion("Brought.way: File already exists - continue and overwrite the contents?",
                          false);
  EXPECT_TRUE(OpenWaypointFile(desktop, path));
  EXPECT_EQ(std::filesystem::file_size(WayFile("Brought.way")), 0U);
  const Status missing = OpenWaypointFile(desktop, elsewhere.File("None.way"));
  ASSERT_FALSE(missing);
  EXPECT_NE(missing.error().Text().find("None.way"), std::string::npos);
  EXPECT_EQ(program.config.waypoint_file, "Brought.way");
  ASSERT_TRUE(OpenWaypointFile(desktop, WayFile("Sample.way")));
  EXPECT_EQ(program.waypoints.waypoints.size(), 46U);
}

TEST_F(FileDialogs, NewWaypointFileIsEmptyAndCurrent) {
  frmNewWay form(desktop, nullptr);
  Show(form);
  Type(form, "txtFileName", "Solent");
  Click(form, "cmdOK");
  EXPECT_EQ(std::filesystem::file_size(WayFile("Solent.way")), 0U);
  EXPECT_EQ(program.config.waypoint_file, "Solent.way");
  EXPECT_TRUE(program.waypoints.waypoints.empty());
}

TEST_F(FileDialogs, DeletionChecksAsksAndDeletes) {
  ASSERT_TRUE(WriteWaypointFile(WayFile("Default.way"), {}));
  {
    frmFileDelete form(desktop, FileKind::kWaypoint, nullptr);
    Show(form);
    messages.Expect("Select file by clicking a name in the list, followed by the OK button");
    Click(form, "cmdOK");
    ClickRow(form, "fillist", RowOfText(form, "fillist", "Default.way"));
    messages.Expect("You cannot delete a file called Default - delete with Windows Explorer");
    Click(form, "cmdOK");
    EXPECT_TRUE(std::filesystem::exists(WayFile("Default.way")));
  }
  frmFileDelete form(desktop, FileKind::kRoute, nullptr);
  Show(form);
  ClickRow(form, "fillist", RowOfText(form, "fillist", "Sample.rte"));
  EXPECT_EQ(TextOf(form, "List1", 0), "Bridge Buoy(Needles)\t50.39.63N\t001.36.88W\t5.5 kn");
  const char* question = "Are you sure that you want to delete Route File ** Sample.rte **";
  messages.ExpectQuestion(question, false);
  Click(form, "cmdOK");
  EXPECT_TRUE(std::filesystem::exists(RouteFile("Sample.rte")));
  messages.ExpectQuestion(question, true);
  Click(form, "cmdOK");
  EXPECT_FALSE(std::filesystem::exists(RouteFile("Sample.rte")));
  EXPECT_EQ(form.result(), QDialog::Accepted);
}

TEST_F(FileDialogs, WholeFilesComeInAndGoOutUnchanged) {
  const TempFolder stick;
  const std::string odd = std::string(50, 'x');
  stick.Write("Sample.way", FileBytes(WayFile("Sample.way")).substr(0, 86));
  stick.Write("Odd.WAY", odd);
  stick.Write("notes.txt", "no waypoints");
  {
    frmwayimport form(desktop, FileKind::kWaypoint, nullptr);
    Show(form);
    Type(form, "txtFolder", stick.path().c_str());
    EXPECT_EQ(Find<QListWidget>(form, "fillist")->count(), 2);
    messages.Expect("Nothing to import");
    Click(form, "cmdOK");
    Click(form, "cmdSelectAll");
    messages.ExpectQuestion(std::string("Sample.way: ") + kOverwrite, true);
    messages.Expect("2 files transferred");
    Click(form, "cmdOK");
  }
  EXPECT_EQ(FileBytes(WayFile("Odd.WAY")), odd);
  // The current file came in anew and shows at once.
  EXPECT_EQ(program.waypoints.waypoints.size(), 2U);

  const TempFolder other;
  frmwayimport out(desktop, FileKind::kRoute, nullptr, frmwayimport::Direction::kExport);
  Show(out);
  Type(out, "txtFolder", other.path().c_str());
  ClickRow(out, "fillist", RowOfText(out, "fillist", "Sample.rte"));
  messages.Expect("1 files transferred");
  Click(out, "cmdOK");
  EXPECT_EQ(FileBytes(other.File("Sample.rte")), FileBytes(RouteFile("Sample.rte")));

  // Both remember their folders.
  frmwayimport again(desktop, FileKind::kWaypoint, nullptr);
  EXPECT_EQ(Find<QLineEdit>(again, "txtFolder")->text().toStdString(), stick.path());
  frmwayimport out_again(desktop, FileKind::kRoute, nullptr, frmwayimport::Direction::kExport);
  EXPECT_EQ(Find<QLineEdit>(out_again, "txtFolder")->text().toStdString(), other.path());
}

TEST_F(FileDialogs, RouteIsMadeOfWaypoints) {
  frmRouteWayPoints form(desktop, nullptr);
  Show(form);
  EXPECT_EQ(TextOf(form, "List1", 0), "Anvil Point,50.34.94N : 001.55.85W");
  messages.Expect("Nothing to remove");
  Click(form, "cmdDelete");
  ClickRow(form, "List1", 0, 2);
  messages.Expect("Insufficient entries to constitute a route");
  Click(form, "cmdOK");
  EXPECT_TRUE(form.isVisible());
  ClickRow(form, "List1", 4, 2);
  ClickRow(form, "List1", 2);
  Click(form, "cmdAdd");
  ASSERT_EQ(Find<QListWidget>(form, "List2")->count(), 3);
  ClickRow(form, "List2", 1, 2);
  QTest::keyClick(Find<QListWidget>(form, "List1"), Qt::Key_Return);  // adds, leaves the form open
  ASSERT_EQ(Find<QListWidget>(form, "List2")->count(), 3);
  ClickRow(form, "List2", 2);
  QTest::keyClick(Find<QListWidget>(form, "List2"), Qt::Key_Delete);
  Click(form, "cmdOK");
  ASSERT_EQ(program.route.points.size(), 2U);
  EXPECT_EQ(program.route.points[0].name, "Anvil Point");
  EXPECT_EQ(program.route.points[1].At(), SampleWaypoints()[2].At());
  EXPECT_EQ(program.route.points[1].speed, program.config.vessel_speed);
  EXPECT_TRUE(RouteUnsaved(program));
  EXPECT_EQ(window.changed, kRouteChanged);
}

}  // namespace
}  // namespace skerrow::testing
