// Unsaved work: told, asked about, kept and brought back.

#include "app/recovery.h"

#include <limits>

#include "app/waypoint_work.h"
#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/edits.h"
#include "ui/routes/frmWayEdit.h"
#include "ui/routes/leaving.h"

namespace skerrow::testing {
namespace {

class UnsavedWork : public SampleDesk {
 protected:
  void SetUp() override { ImportSamples(); }
  void Add(Position at) {
    EditRoute(desktop, "Add Route Point", [&](RouteState& route) {
      return AddRoutePoint(route, at, std::nullopt, RouteDefaultsOf(program), messages);
    });
  }
  bool Kept() const { return std::filesystem::exists(RouteRecoveryPath(program.folders)); }
};

TEST_F(UnsavedWork, RouteIsKeptWhileItIsInNoFile) {
  Add({50.1F, -1.0F});
  EXPECT_FALSE(Kept());  // one point is no route yet
  Add({50.2F, -1.5F});
  EXPECT_TRUE(Kept());
  RouteIsSaved(program, messages, RouteFile("Saved.rte"));
  EXPECT_FALSE(Kept());
  Add({50.3F, -1.7F});
  EXPECT_TRUE(Kept());
  EXPECT_TRUE(UndoRouteEdit(program, messages));  // back to what is saved
  EXPECT_FALSE(Kept());
  EXPECT_TRUE(RedoRouteEdit(program, messages));
  EXPECT_TRUE(Kept());
  // A route that no reader would take does not go over the one that is kept.
  const std::string kept = FileBytes(RouteRecoveryPath(program.folders));
  RouteState broken = program.route;
  broken.points[0].speed = std::numeric_limits<float>::quiet_NaN();
  EXPECT_FALSE(KeepRoute(program.folders, broken));
  EXPECT_EQ(FileBytes(RouteRecoveryPath(program.folders)), kept);
  EditRoute(desktop, "Clear Route", [&](RouteState& route) { ClearRoute(route); });
  EXPECT_FALSE(Kept());
}

TEST_F(UnsavedWork, EditThatChangesNothingIsNoEdit) {
  LoadSample();
  program.route.points[0].calculated = true;
  program.passage.route_track.resize(2);
  EditRoute(desktop, "Idle", [&](RouteState& route) { RouteChanged(route); });
  EXPECT_FALSE(program.edits.history.CanUndo());
  EXPECT_TRUE(program.route.points[0].calculated);
  EXPECT_EQ(program.passage.route_track.size(), 2U);
  EXPECT_FALSE(Kept());
}

TEST_F(UnsavedWork, RouteComesBackAfterABadEnd) {
  LoadSample();
  EditRoute(desktop, "Edit", [&](RouteState& route) {
    route.points[2].speed = 0.5F;  // slower than a route file takes
    route.points[2].name = "Caf\u00e9";
    RouteChanged(route);
  });
  const std::vector<RouteRecord> lost = RouteContent(program.route);
  const std::optional<KeptWork> kept = FindRouteRecovery(program.folders);
  ASSERT_TRUE(kept);
  EXPECT_EQ(kept->count, 6U);

  // The next run.
  program.route = {};
  program.edits = {};
  WithNextDialog([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  OfferRecovery(desktop, nullptr);
  EXPECT_TRUE(program.route.points.empty());
  EXPECT_TRUE(Kept());  // offered again
  WithNextDialog([&](QDialog& dialog) {
    EXPECT_TRUE(Find<QAbstractButton>(dialog, "chkRoute")
                    ->text()
                    .contains(QString::fromStdString(kept->time_text)));
    Click(dialog, "cmdRecover");
  });
  OfferRecovery(desktop, nullptr);
  EXPECT_EQ(RouteContent(program.route), lost);
  EXPECT_TRUE(RouteUnsaved(program));
  EXPECT_TRUE(Kept());
  EXPECT_EQ(program.edits.history.UndoName(), "Recover Route");

  program.route = {};
  program.edits = {};
  WithNextDialog([](QDialog& dialog) { Click(dialog, "cmdDiscard"); });
  OfferRecovery(desktop, nullptr);
  EXPECT_FALSE(Kept());
  EXPECT_TRUE(program.route.points.empty());
  OfferRecovery(desktop, nullptr);  // nothing left: no question
}

TEST_F(UnsavedWork, WaypointEditComesBackAfterABadEnd) {
  const std::string copy = WaypointRecoveryPath(program.folders, "Sample.way");
  const std::string before = FileBytes(WayFile("Sample.way"));
  std::string left_behind;
  {
    WaypointWork work(program.folders);
    ASSERT_TRUE(work.Open("Sample.way", messages));
    EXPECT_FALSE(FindWaypointRecovery(program.folders));  // nothing changed yet
    ASSERT_TRUE(work.Open("Sample.way", messages));
    EXPECT_TRUE(work.Add({"Wreck", "50.10.00N", "002.20.00W"}));
    EXPECT_FALSE(work.Delete(999));
    left_behind = FileBytes(copy);
  }
  EXPECT_FALSE(std::filesystem::exists(copy));
  EXPECT_EQ(FileBytes(WayFile("Sample.way")), before);

  // A run that ends badly leaves the copy.
  ASSERT_TRUE(ReplaceFile(copy, left_behind));
  const std::optional<KeptWork> kept = FindWaypointRecovery(program.folders);
  ASSERT_TRUE(kept);
  EXPECT_EQ(kept->file_name, "Sample.way");
  EXPECT_EQ(kept->count, 47U);
  frmWayEdit form(desktop, nullptr, kept->file_name);
  Show(form);
  EXPECT_EQ(TextOf(form, "List1", 46), "Wreck\t\t,50.10.00N : 002.20.00W");
  Click(form, "cmdSave");
  EXPECT_EQ(FileBytes(WayFile("Sample.way")), left_behind);
  EXPECT_EQ(left_behind.substr(0, before.size()), before);
  EXPECT_FALSE(std::filesystem::exists(copy));
  EXPECT_EQ(program.waypoints.waypoints.size(), 47U);
}

TEST_F(UnsavedWork, RecordsThatTheEditorLeavesOutAreTold) {
  const std::string path = WayFile("Cut.way");
  ASSERT_TRUE(ReplaceFile(path, FileBytes(WayFile("Sample.way")) + "cut"));
  WaypointWork work(program.folders);
  messages.Expect(path + ": the last record is left out, it is cut short after 3 of " +
                      std::to_string(kWaypointSize) + " bytes",
                  MessageIcon::kWarning);
  ASSERT_TRUE(work.Open("Cut.way", messages));
  EXPECT_EQ(work.rows().size(), 46U);
}

TEST_F(UnsavedWork, SettingsFolderThatCannotBeWrittenIsToldOnce) {
  std::filesystem::remove_all(program.folders.settings);
  std::ofstream(program.folders.settings) << "in the way";
  const Status expected = KeepRoute(program.folders, program.route);
  ASSERT_FALSE(expected);
  Add({50.1F, -1.0F});
  messages.Expect("Unsaved work cannot be kept for recovery. " + expected.error().Text());
  Add({50.2F, -1.5F});
  Add({50.3F, -1.5F});
  EXPECT_EQ(program.route.points.size(), 3U);
  // The waypoint editor works without its copy.
  WaypointWork work(program.folders);
  ASSERT_TRUE(work.Open("Sample.way", messages));
  EXPECT_TRUE(work.Delete(0));
  EXPECT_TRUE(work.Save());
  EXPECT_EQ(CountRecords(WayFile("Sample.way"), kWaypointSize), 45);
}

TEST_F(UnsavedWork, ClearAndExitAskAboutIt) {
  LoadSample();
  messages.ExpectQuestion("Clear existing route?", true);
  EXPECT_TRUE(MayClearRoute(desktop, nullptr));
  EXPECT_TRUE(MayExit(desktop, nullptr));

  Add({49.6F, -1.6F});
  messages.ExpectQuestion("Clear existing route?", true);
  WithNextDialog([](QDialog& dialog) {
    EXPECT_EQ(dialog.objectName(), "frmUnsaved");
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  EXPECT_FALSE(MayClearRoute(desktop, nullptr));

  // Save, but not under any name: the program goes on.
  WithNextDialog([](QDialog& dialog) {
    WithNextDialog([](QDialog& save) { QTest::keyClick(&save, Qt::Key_Escape); });
    Click(dialog, "cmdSave");
  });
  EXPECT_FALSE(MayExit(desktop, nullptr));
  EXPECT_TRUE(Kept());
  WithNextDialog([](QDialog& dialog) {
    WithNextDialog([](QDialog& save) {
      Type(save, "txtFileName", "Kept");
      Click(save, "cmdOK");
    });
    Click(dialog, "cmdSave");
  });
  EXPECT_TRUE(MayExit(desktop, nullptr));
  EXPECT_EQ(CountRecords(RouteFile("Kept.rte"), kRouteRecordSize), 7);

  DragWaypoint(program.waypoints, 3, {50.0F, -2.0F});
  KeepMovedWaypoints(program, messages);
  const std::optional<KeptWork> moved = FindWaypointRecovery(program.folders);
  ASSERT_TRUE(moved);
  EXPECT_EQ((*ReadWaypointFile(moved->path))[3].At(), (Position{50.0F, -2.0F}));
  Add({49.5F, -1.6F});
  WithNextDialog([](QDialog& dialog) {
    WithNextDialog([](QDialog& waypoints) { Click(waypoints, "cmdCancel"); });
    Click(dialog, "cmdDiscard");
  });
  EXPECT_FALSE(MayExit(desktop, nullptr));
  WithNextDialog([](QDialog& dialog) {
    WithNextDialog([](QDialog& waypoints) { Click(waypoints, "cmdDiscard"); });
    Click(dialog, "cmdDiscard");
  });
  EXPECT_TRUE(MayExit(desktop, nullptr));
  EXPECT_FALSE(Kept());
  EXPECT_FALSE(FindWaypointRecovery(program.folders));
}

}  // namespace
}  // namespace skerrow::testing
