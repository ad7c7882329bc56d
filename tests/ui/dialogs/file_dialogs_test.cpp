#include "ui/dialogs/file_dialogs.h"

#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include "core/files.h"
#include "tests/ui/dialogs/dialog_fixture.h"
#include "ui/dialogs/frmRouteEdit.h"
#include "ui/dialogs/frmRouteWayPoints.h"
#include "ui/dialogs/frmSingleWayPoint.h"
#include "ui/dialogs/frmWayEdit.h"
#include "ui/dialogs/frmwaycopy.h"

namespace skerrow {
namespace {

class FileDialogs : public testing::Test {
 protected:
  void Click(QWidget& form, const char* name) {
    auto* button = form.findChild<QPushButton*>(name);
    ASSERT_NE(button, nullptr) << name;
    QTest::mouseClick(button, Qt::LeftButton);
  }
  void Type(QWidget& form, const char* name, const char* text) {
    auto* box = form.findChild<QLineEdit*>(name);
    ASSERT_NE(box, nullptr) << name;
    box->clear();
    QTest::keyClicks(box, text);
  }
  // Presses the button and expects one message.
  void Refused(QWidget& form, const char* button, std::string_view text) {
    desk.messages.shown.clear();
    Click(form, button);
    ASSERT_EQ(desk.messages.shown.size(), 1U) << text;
    EXPECT_EQ(desk.messages.shown[0], text);
    EXPECT_TRUE(form.isVisible());
  }
  static void Choose(QWidget& form, const char* list, int row, bool twice) {
    auto* widget = form.findChild<QListWidget*>(list);
    const QPoint at = widget->visualItemRect(widget->item(row)).center();
    QTest::mouseClick(widget->viewport(), Qt::LeftButton, {}, at);
    if (twice) QTest::mouseDClick(widget->viewport(), Qt::LeftButton, {}, at);
  }

  SampleDesk desk;
};

TEST_F(FileDialogs, ARouteIsSavedOverwrittenOnlyOnYesAndLoaded) {
  ASSERT_TRUE(desk.LoadSampleRoute());
  const std::size_t points = desk.program.route.points.size();
  FileNameDialog save(desk.desktop, NameEntry::kRouteSave, nullptr);
  save.show();
  Refused(save, "cmdOK", "Enter a new route file name an then click the OK button");
  Type(save, "txtFileName", ".rte");
  Refused(save, "cmdOK", "Check Waypoint file name");
  Type(save, "txtFileName", "cherbourg.txt");
  Click(save, "cmdOK");
  EXPECT_EQ(save.file_name(), "cherbourg.rte");

  desk.program.route.points.front().speed = 8.0F;
  FileNameDialog again(desk.desktop, NameEntry::kRouteSave, nullptr);
  again.show();
  Type(again, "txtFileName", "cherbourg");
  desk.messages.answer = false;
  Click(again, "cmdOK");
  EXPECT_TRUE(again.isVisible());
  EXPECT_EQ(desk.messages.asked.back(),
            "File already exists - continue and overwrite the contents?");

  FrmRouteLoad load(desk.desktop, nullptr);
  load.show();
  Refused(load, "cmdOK", "Enter a new file name and then click the OK button");
  Choose(load, "fillist", 0, false);
  EXPECT_EQ(load.findChild<QLabel*>("lblCount")->text().toStdString(),
            "The highlighted file contains " + std::to_string(points) + " waypoints");
  Click(load, "cmdOK");
  EXPECT_FALSE(load.isVisible());
  EXPECT_FLOAT_EQ(desk.program.route.points.front().speed, 5.5F) << "the No kept the file";
}

TEST_F(FileDialogs, SavingWithoutARouteEndsTheDialogWithAWord) {
  FileNameDialog save(desk.desktop, NameEntry::kRouteSave, nullptr);
  save.show();
  Type(save, "txtFileName", "nothing");
  Click(save, "cmdOK");
  EXPECT_EQ(desk.messages.shown.back(), "No route set-up");
  EXPECT_FALSE(save.isVisible());
  EXPECT_FALSE(FileReadable(RoutePath(desk.program.folders, "nothing.rte")));
}

TEST_F(FileDialogs, DeletingAsksAndProtects) {
  const std::string master = WaypointPath(desk.program.folders, "Master.way");
  ASSERT_TRUE(WriteWaypointFile(master, {}).ok());
  FrmFileDelete form(desk.desktop, FileKind::kWaypoint, nullptr);
  form.show();
  Refused(form, "cmdOK", "Select file by clicking a name in the list, followed by the OK button");
  Choose(form, "fillist", 0, false);
  Refused(form, "cmdOK", "You cannot delete a file called Master - delete with Windows Explorer");
  Choose(form, "fillist", 1, false);
  desk.messages.answer = false;
  Click(form, "cmdOK");
  EXPECT_EQ(desk.messages.asked.back(),
            "Are you sure that you want to delete Waypoint File ** Sample.way **");
  EXPECT_TRUE(FileReadable(WaypointPath(desk.program.folders, "Sample.way")));
  desk.messages.answer = true;
  Choose(form, "fillist", 1, false);
  Click(form, "cmdOK");
  EXPECT_FALSE(FileReadable(WaypointPath(desk.program.folders, "Sample.way")));
}

TEST_F(FileDialogs, ARouteIsMadeOfPickedWaypoints) {
  FrmRouteWayPoints form(desk.desktop, nullptr);
  form.show();
  Refused(form, "cmdDelete", "Nothing to remove");
  Choose(form, "List1", 0, true);
  Refused(form, "cmdOK", "Insufficient entries to constitute a route");
  Choose(form, "List1", 3, true);
  Choose(form, "List1", 4, true);
  Choose(form, "List2", 1, true);  // out again
  Click(form, "cmdOK");
  ASSERT_EQ(desk.program.route.points.size(), 2U);
  EXPECT_EQ(desk.program.route.points[0].name, "Anvil Point");
  EXPECT_EQ(desk.program.route.points[1].name, "Brighton");
}

TEST_F(FileDialogs, TheRouteEditorChangesInsertsAndDeletes) {
  ASSERT_TRUE(desk.LoadSampleRoute());
  const std::size_t points = desk.program.route.points.size();
  FrmRouteEdit form(desk.desktop, nullptr);
  form.show();
  Refused(form, "cmdInsert", "Click on a route leg before trying to insert or delete a waypoint");
  Refused(form, "cmdDelete", "Highlight a Point before pressing Delete");
  Refused(form, "cmdRouteSpeed", "Must enter a valid speed");
  Choose(form, "List1", 4, true);
  Refused(form, "cmdInsert", "Select a waypoint from the list");
  Choose(form, "List2", 0, false);
  Refused(form, "cmdInsert", "Select insertion point Before or After Leg start waypoint");
  form.findChild<QRadioButton*>("optBefore")->click();
  Click(form, "cmdInsert");
  ASSERT_EQ(desk.program.route.points.size(), points + 1);
  EXPECT_EQ(desk.program.route.points[1].name, "Anvil Point");
  Choose(form, "List1", 4, true);
  Click(form, "cmdDelete");
  EXPECT_EQ(desk.program.route.points.size(), points);
  EXPECT_NE(desk.program.route.points[1].name, "Anvil Point");
  Choose(form, "List1", 4, true);
  Type(form, "txtroutedestlong", "001.00.00");
  Refused(form, "cmdmodify", "Error - Longitude entry");
  Type(form, "txtroutedestlong", "001.00.00w");
  Click(form, "cmdmodify");
  EXPECT_FLOAT_EQ(desk.program.route.points[2].longitude, -1.0F);
}

TEST_F(FileDialogs, TheWaypointEditorWritesOnSaveOnly) {
  const std::string path = WaypointPath(desk.program.folders, "Sample.way");
  const std::string before = *ReadFile(path);
  FrmWayEdit form(desk.desktop, nullptr);
  form.show();
  Refused(form, "cmdAdd", "Error - Latitude entry");
  Type(form, "txtname", "Mooring");
  Type(form, "txtlat", "50.45.50n");
  Type(form, "txtlong", "001.10.00");
  Refused(form, "cmdAdd", "Error - Longitudes entry");
  Type(form, "txtlong", "001.10.00W");
  Click(form, "cmdAdd");
  EXPECT_EQ(form.findChild<QLabel*>("labelnoofpoints")->text(),
            "The highlighted file contains 47 waypoints");
  EXPECT_EQ(*ReadFile(path), before);
  desk.messages.answer = false;  // the changes are not to be lost
  form.reject();
  EXPECT_TRUE(form.isVisible());
  Click(form, "cmdSave");
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(desk.program.waypoints.waypoints.back().name, "Mooring");
  EXPECT_EQ(ReadFile(path)->substr(0, before.size()), before) << "untouched rows keep their bits";
}

TEST_F(FileDialogs, ACopyNeedsANameAndEntries) {
  FrmWayCopy form(desk.desktop, nullptr);
  form.show();
  Refused(form, "cmdSave", "Enter a name for your destination file");
  Type(form, "txtFileName", "few");
  Refused(form, "cmdSave", "No waypoints selected");
  Choose(form, "fillist", 0, false);
  Choose(form, "List1", 2, false);
  Choose(form, "List1", 5, false);
  Click(form, "cmdSave");
  const auto copied = ReadWaypointFile(WaypointPath(desk.program.folders, "few.WAY"));
  ASSERT_TRUE(copied.ok());
  ASSERT_EQ(copied->size(), 2U);
  EXPECT_EQ((*copied)[1].name, "Cap Frehel");
}

TEST_F(FileDialogs, ASingleWaypointAsksAboutZeroesAndGoesIntoTheFile) {
  FrmSingleWayPoint form(desk.desktop, Position{0.0F, 0.0F}, nullptr);
  form.show();
  Refused(form, "cmdOK", "Point Must have a name");
  Type(form, "txtname", "Null Island");
  const std::size_t count = desk.program.waypoints.waypoints.size();
  Click(form, "cmdOK");
  EXPECT_EQ(desk.messages.asked, (std::vector<std::string>{"Longitude = Zero - CONTINUE ANYWAY?",
                                                           "Latitude = Zero - CONTINUE ANYWAY?"}));
  EXPECT_EQ(desk.program.waypoints.waypoints.size(), count + 1);
}

}  // namespace
}  // namespace skerrow
