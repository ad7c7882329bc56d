// Writes a picture of every dialog, by day and by night, into the folder given.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <functional>

#include "tests/ui/dialogs/dialog_fixture.h"
#include "ui/dialogs/Frmdisclaimer.h"
#include "ui/dialogs/file_dialogs.h"
#include "ui/dialogs/frmConfigure.h"
#include "ui/dialogs/frmLoadChart.h"
#include "ui/dialogs/frmOptResults.h"
#include "ui/dialogs/frmQuickInstructions.h"
#include "ui/dialogs/frmRouteEdit.h"
#include "ui/dialogs/frmRouteOptDeparture.h"
#include "ui/dialogs/frmRouteWayPoints.h"
#include "ui/dialogs/frmSetLeg.h"
#include "ui/dialogs/frmSingleWayPoint.h"
#include "ui/dialogs/frmWayEdit.h"
#include "ui/dialogs/frmcalcroute.h"
#include "ui/dialogs/frmresults.h"
#include "ui/dialogs/frmroutehistory.h"
#include "ui/dialogs/frmrouteinfo.h"
#include "ui/dialogs/frmtimdat.h"
#include "ui/forms/calc_route_form.h"
#include "ui/widgets/desktop_messages.h"
#include "ui/widgets/theme.h"

namespace skerrow {
namespace {

class Album {
 public:
  explicit Album(QString folder) : folder_(std::move(folder)) { QDir().mkpath(folder_); }

  void Keep(QDialog& dialog, const QString& name) const {
    dialog.show();
    if (!QTest::qWaitForWindowExposed(&dialog))
      std::fprintf(stderr, "not shown: %s\n", qPrintable(name));
    QTest::qWait(120);
    dialog.grab().save(folder_ + "/" + name + (ThemeInForce().night ? "-night" : "") + ".png");
    dialog.hide();
  }

 private:
  QString folder_;
};

void KeepAll(const Album& album) {
  SampleDesk desk;
  desk.LoadSampleRoute();
  Desktop& desktop = desk.desktop;
  NoProgress progress;
  {
    Frmdisclaimer form(desk.program, desk.messages);
    album.Keep(form, "Frmdisclaimer");
  }
  {
    FrmRouteOptDeparture form(desktop, nullptr);
    album.Keep(form, "frmRouteOptDeparture");
  }
  RunDepartureSearch(desk.program, 4, desk.messages, progress);
  {
    FrmOptResults form(desktop, nullptr);
    album.Keep(form, "frmOptResults");
  }
  SetTacks(desk.program);
  {
    FrmCalcRoute form(desktop, nullptr);
    album.Keep(form, "frmcalcroute");
  }
  RunCalculation(desk.program, {"09:30", true, "5"}, desk.messages, progress);
  {
    FrmResults form(desktop, nullptr);
    album.Keep(form, "frmresults");
    form.findChild<QRadioButton*>("optTidalDetails")->setChecked(true);
    form.findChild<QCheckBox*>("chKTidalStreams")->setChecked(true);
    album.Keep(form, "frmresults-streams");
  }
  {
    FrmRouteInfo form(desktop, nullptr);
    album.Keep(form, "frmrouteinfo");
  }
  {
    FrmRouteHistory form(desktop, nullptr);
    album.Keep(form, "frmroutehistory");
  }
  {
    FrmTimDat form(desktop, nullptr);
    album.Keep(form, "frmtimdat");
  }
  {
    FrmSetLeg form(desktop, nullptr);
    auto* list = form.findChild<QListWidget*>("lstWaypoints");
    emit list->itemDoubleClicked(list->item(0));
    emit list->itemDoubleClicked(list->item(5));
    form.findChild<QRadioButton*>("optPort")->setChecked(true);
    form.findChild<QPushButton*>("cmdCalculate")->click();
    album.Keep(form, "frmSetLeg");
  }
  {
    FrmConfigure form(desktop, {}, nullptr);
    auto* pages = form.findChild<QTabWidget*>();
    for (int page = 0; page < pages->count(); ++page) {
      pages->setCurrentIndex(page);
      album.Keep(form, QString("frmConfigure-%1").arg(page + 1));
    }
  }
  {
    FrmLoadChart form(desktop, nullptr);
    album.Keep(form, "frmLoadChart");
  }
  {
    DesktopMessages messages;
    QTimer::singleShot(300, [&album] {
      auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      album.Keep(*box, "message");
      box->reject();
    });
    messages.Ask(
        "Boat speed very low between waypoints 1 and 2\nDo you wish to continue?\n"
        "(This may cause problems)",
        kProgramTitle);
  }
  (void)SaveRoute(RoutePath(desk.program.folders, "Needles to Cherbourg.rte"), desk.program.route,
                  5.0F);
  {
    FrmRouteLoad form(desktop, nullptr);
    form.view()->Refresh("Needles to Cherbourg.rte");
    album.Keep(form, "frmRouteLoad");
  }
  {
    FileNameDialog form(desktop, NameEntry::kRouteSave, nullptr);
    album.Keep(form, "frmRouteSave");
  }
  {
    FrmRouteWayPoints form(desktop, nullptr);
    auto* list = form.findChild<QListWidget*>("List1");
    for (const int row : {2, 8, 12}) emit list->itemDoubleClicked(list->item(row));
    album.Keep(form, "frmRouteWayPoints");
  }
  {
    FrmRouteEdit form(desktop, nullptr);
    auto* list = form.findChild<QListWidget*>("List1");
    list->setCurrentRow(4);
    emit list->itemDoubleClicked(list->item(4));
    album.Keep(form, "frmRouteEdit");
  }
  {
    FrmWayEdit form(desktop, nullptr);
    form.findChild<QListWidget*>("List1")->setCurrentRow(3);
    album.Keep(form, "frmWayEdit");
  }
  {
    FrmSingleWayPoint form(desktop, Position{50.5F, -1.2F}, nullptr);
    album.Keep(form, "frmMouseInput");
  }
  {
    FrmQuickInstructions form(desktop, nullptr);
    album.Keep(form, "frmQuickInstructions");
  }
}

}  // namespace
}  // namespace skerrow

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  if (argc < 2) {
    std::fprintf(stderr, "usage: dialog_pictures FOLDER\n");
    return 2;
  }
  const skerrow::Album album(argv[1]);
  for (const bool night : {false, true}) {
    skerrow::ApplyTheme(night);
    skerrow::KeepAll(album);
  }
  return 0;
}
