// Writes a picture of every dialog of routes and waypoints, by day and by night, into the folder
// given.
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <cstdio>

#include "app/recovery.h"
#include "routes/waypoint.h"
#include "tests/ui/dialogs/dialog_fixture.h"
#include "ui/routes/frmFileDelete.h"
#include "ui/routes/frmLoadWay.h"
#include "ui/routes/frmNewWay.h"
#include "ui/routes/frmRouteEdit.h"
#include "ui/routes/frmRouteLoad.h"
#include "ui/routes/frmRouteSave.h"
#include "ui/routes/frmRouteWayPoints.h"
#include "ui/routes/frmSingleWayPoint.h"
#include "ui/routes/frmWayEdit.h"
#include "ui/routes/frmWayFileLocate.h"
#include "ui/routes/frmWaySave.h"
#include "ui/routes/frmwaycopy.h"
#include "ui/routes/frmwayimport.h"
#include "ui/routes/leaving.h"
#include "ui/widgets/theme.h"

namespace skerrow {
namespace {

class Album {
 public:
  explicit Album(QString folder) : folder_(std::move(folder)) { QDir().mkpath(folder_); }

  void Keep(QDialog& dialog, const QString& name) const {
    dialog.show();
    if (!QTest::qWaitForWindowExposed(&dialog)) {
      std::fprintf(stderr, "not shown: %s\n", qPrintable(name));
    }
    QTest::qWait(80);
    dialog.grab().save(folder_ + "/" + name + (ThemeInForce().night ? "-night" : "") + ".png");
    std::printf("%s %dx%d\n", qPrintable(name), dialog.width(), dialog.height());
    dialog.hide();
  }

  // Keeps the modal dialog that comes up next, and closes it.
  void KeepNext(const QString& name) const {
    QTimer::singleShot(200, [this, name] {
      if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
        dialog->grab().save(folder_ + "/" + name + (ThemeInForce().night ? "-night" : "") + ".png");
        std::printf("%s %dx%d\n", qPrintable(name), dialog->width(), dialog->height());
        dialog->reject();
      }
    });
  }

 private:
  QString folder_;
};

void Select(QDialog& dialog, const char* list_name, int row) {
  dialog.findChild<QListWidget*>(list_name)->setCurrentRow(row);
}

void KeepAll(const Album& album) {
  SampleDesk desk;
  Desktop& desktop = desk.desktop;
  const Folders& folders = desk.program.folders;
  for (const char* name : {"Sample.rte", "Portland Bill.rte", "Round Alderney.rte"}) {
    (void)ImportFiles(folders, FileKind::kRoute, {folders.Samples() + "/" + name}, desk.messages);
  }
  (void)WriteWaypointFile(WaypointPath(folders, "Solent.way"), SampleWaypoints().subspan(3, 9));
  (void)WriteWaypointFile(WaypointPath(folders, "Default.way"), {});
  desk.LoadSampleRoute();

  FrmRouteLoad load(desktop, nullptr);
  Select(load, "fillist", 2);
  album.Keep(load, "frmRouteLoad");
  FrmRouteSave save(desktop, nullptr);
  save.findChild<QLineEdit*>("txtFileName")->setText("Cowes to Alderney");
  album.Keep(save, "frmRouteSave");
  FrmWaySave way_save(desktop, nullptr);
  album.Keep(way_save, "frmWaySave");
  FrmNewWay new_way(desktop, nullptr);
  album.Keep(new_way, "frmNewWay");
  FrmLoadWay load_way(desktop, nullptr);
  Select(load_way, "fillist", 2);
  album.Keep(load_way, "frmLoadWay");
  FrmFileDelete way_delete(desktop, FileKind::kWaypoint, nullptr);
  Select(way_delete, "fillist", 1);
  album.Keep(way_delete, "frmWayDelete");
  FrmFileDelete route_delete(desktop, FileKind::kRoute, nullptr);
  Select(route_delete, "fillist", 1);
  album.Keep(route_delete, "frmRouteDelete");
  FrmRouteEdit edit(desktop, nullptr);
  Select(edit, "List1", 4);
  Select(edit, "List2", 2);
  album.Keep(edit, "frmRouteEdit");
  FrmRouteWayPoints make(desktop, nullptr);
  for (const int row : {3, 6, 27, 43}) {
    Select(make, "List1", row);
    make.findChild<QPushButton*>("cmdAdd")->click();
  }
  album.Keep(make, "frmRouteWayPoints");
  FrmWayEdit way_edit(desktop, nullptr);
  Select(way_edit, "List1", 4);
  way_edit.findChild<QLineEdit*>("txtWayName")->setText("Nab Tower");
  way_edit.findChild<QLineEdit*>("txtWayLat")->setText("50.40.08N");
  way_edit.findChild<QLineEdit*>("txtWayLong")->setText("000.57.15W");
  album.Keep(way_edit, "frmWayEdit");
  FrmWayCopy copy(desktop, nullptr);
  copy.findChild<QLineEdit*>("txtFileName")->setText("Brittany");
  Select(copy, "List1", 5);
  emit copy.findChild<QListWidget*>("List1")->itemClicked(nullptr);
  album.Keep(copy, "frmwaycopy");
  FrmWayFileLocate locate(desktop, nullptr);
  Select(locate, "List1", 11);
  album.Keep(locate, "frmWayFileLocate");
  FrmSingleWayPoint single(desktop, Position{50.5804F, -1.9601F}, nullptr);
  album.Keep(single, "frmMouseInput");
  FrmWayImport import_routes(desktop, FileKind::kRoute, nullptr);
  Select(import_routes, "fillist", 0);
  album.Keep(import_routes, "frmwayimport");
  FrmWayImport export_ways(desktop, FileKind::kWaypoint, nullptr, FrmWayImport::Direction::kExport);
  album.Keep(export_ways, "frmwayexport");
  FrmUnsaved unsaved(desktop, "The route has changes that are in no route file.", nullptr);
  album.Keep(unsaved, "frmUnsaved");
  album.KeepNext("frmWaypointName");
  EnterWaypointByMouse(desktop, {50.5804F, -1.9601F}, nullptr);
  (void)KeepRoute(folders, desk.program.route);
  (void)WriteWaypointFile(WaypointRecoveryPath(folders, "Solent.way"),
                          SampleWaypoints().subspan(3, 11));
  album.KeepNext("frmRecovery");
  OfferRecovery(desktop, nullptr);
}

}  // namespace
}  // namespace skerrow

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  if (argc < 2) {
    std::fprintf(stderr, "usage: route_dialog_pictures FOLDER\n");
    return 2;
  }
  const skerrow::Album album(argv[1]);
  for (const bool night : {false, true}) {
    skerrow::ApplyTheme(night);
    skerrow::KeepAll(album);
  }
  return 0;
}
