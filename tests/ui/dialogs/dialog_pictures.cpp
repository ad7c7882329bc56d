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
#include "ui/dialogs/frmConfigure.h"
#include "ui/dialogs/frmLoadChart.h"
#include "ui/dialogs/frmOptResults.h"
#include "ui/dialogs/frmQuickInstructions.h"
#include "ui/dialogs/frmRouteOptDeparture.h"
#include "ui/dialogs/frmSetLeg.h"
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

  // Keeps the modal dialog that comes up next, and rejects it.
  void KeepNext(const QString& name) const {
    QTimer::singleShot(300, [this, name] {
      auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      Keep(*box, name);
      box->reject();
    });
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
    album.KeepNext("colour");
    form.findChild<QPushButton*>("pctTidalStreamCol")->click();
  }
  {
    FrmLoadChart form(desktop, nullptr);
    album.Keep(form, "frmLoadChart");
  }
  {
    DesktopMessages messages;
    album.KeepNext("message");
    messages.Ask(
        "Boat speed very low between waypoints 1 and 2\nDo you wish to continue?\n"
        "(This may cause problems)",
        kProgramTitle);
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
