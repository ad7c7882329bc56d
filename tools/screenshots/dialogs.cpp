#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <filesystem>

#include "album.h"
#include "app/recovery.h"
#include "app/situation.h"
#include "core/progress.h"
#include "passage/wind_on_route.h"
#include "platform/polars.h"
#include "routes/waypoint.h"
#include "ui/charts/frmChartInfo.h"
#include "ui/charts/frmEditChart.h"
#include "ui/charts/frmEditXrf.h"
#include "ui/charts/frmLoadChart.h"
#include "ui/charts/frmSelectL25.h"
#include "ui/dialogs/Frmdisclaimer.h"
#include "ui/dialogs/frmCalcCOG.h"
#include "ui/dialogs/frmCalcMOB.h"
#include "ui/dialogs/frmConfigure.h"
#include "ui/dialogs/frmEditPlot.h"
#include "ui/dialogs/frmOptResults.h"
#include "ui/dialogs/frmPolarPlot.h"
#include "ui/dialogs/frmQuickInstructions.h"
#include "ui/dialogs/frmRouteOptDeparture.h"
#include "ui/dialogs/frmSetLeg.h"
#include "ui/dialogs/frmWind.h"
#include "ui/dialogs/frmcalcroute.h"
#include "ui/dialogs/frmresults.h"
#include "ui/dialogs/frmroutehistory.h"
#include "ui/dialogs/frmrouteinfo.h"
#include "ui/dialogs/frmtimdat.h"
#include "ui/forms/calc_route_form.h"
#include "ui/forms/grib_form.h"
#include "ui/forms/report_look.h"
#include "ui/help/frmPDFReader.h"
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
#include "ui/tides/frmDiaInfo.h"
#include "ui/tides/frmDiaRate.h"
#include "ui/tides/frmHCcopy.h"
#include "ui/tides/frmSkerrowTides.h"
#include "ui/tides/frmTideOptions.h"
#include "ui/tides/frmharmedit.h"
#include "ui/widgets/desktop_messages.h"
#include "ui/wind/frmGribImport.h"
#include "ui/wind/frmTrueAppWind.h"
#include "ui/wind/frmViewSmartMet.h"
#include "ui/wind/frmViewWind.h"

namespace screenshots {
namespace {

using namespace skerrow;  // NOLINT: this file is a part of a program

void Select(QDialog& dialog, const char* list_name, int row) {
  dialog.findChild<QListWidget*>(list_name)->setCurrentRow(row);
}

void Fill(QDialog& dialog, const char* box, const char* text) {
  auto* edit = dialog.findChild<QLineEdit*>(box);
  edit->setText(text);
  emit edit->textEdited(text);  // as typed
}

void KeepPassage(const Album& album, Studio& studio) {
  Desktop desktop = studio.desktop();
  Program& program = studio.program;
  NoProgress progress;
  Frmdisclaimer start(program, studio.messages);
  album.Keep(start, "Frmdisclaimer");
  frmRouteOptDeparture search(desktop, nullptr);
  album.Keep(search, "frmRouteOptDeparture");
  RunDepartureSearch(program, 4, studio.messages, progress);
  frmOptResults departures(desktop, nullptr);
  album.Keep(departures, "frmOptResults");
  SetTacksByWind(program.route.points, program.wind_config.Default().from_deg);
  frmcalcroute calculation(desktop, nullptr);
  album.Keep(calculation, "frmcalcroute");
  RunCalculation(program, {"09:30", true, "5"}, studio.messages, progress);
  frmresults results(desktop, nullptr);
  album.Keep(results, "frmresults");
  results.findChild<QRadioButton*>("optTidalDetails")->setChecked(true);
  results.findChild<QCheckBox*>("chKTidalStreams")->setChecked(true);
  album.Keep(results, "frmresults-streams");
  album.KeepPage(ReportPage("Results", RouteTitle(program), program.passage.result_lines),
                 "results-page");
  frmrouteinfo info(desktop, nullptr);
  album.Keep(info, "frmrouteinfo");
  frmroutehistory history(desktop, nullptr);
  album.Keep(history, "frmroutehistory");
  frmtimdat time(desktop, nullptr);
  album.Keep(time, "frmtimdat");
  frmSetLeg leg(desktop, nullptr);
  auto* marks = leg.findChild<QListWidget*>("lstWaypoints");
  emit marks->itemDoubleClicked(marks->item(0));
  emit marks->itemDoubleClicked(marks->item(5));
  leg.findChild<QRadioButton*>("optPort")->setChecked(true);
  leg.findChild<QPushButton*>("cmdCalculate")->click();
  album.Keep(leg, "frmSetLeg");
  frmCalcCOG prediction(desktop, nullptr);
  auto* places = prediction.findChild<QListWidget*>("lstWaypoints");
  places->setCurrentRow(0);
  emit places->itemDoubleClicked(places->item(0));
  places->setCurrentRow(5);
  emit places->itemDoubleClicked(places->item(5));
  Fill(prediction, "txtDuration", "3:00");
  album.Keep(prediction, "frmCalcCOG");
  MarkManOverboard(program, {50.1F, -1.5F});
  frmCalcMOB drift(desktop, nullptr);
  Fill(drift, "txtDuration", "2");
  album.Keep(drift, "frmCalcMOB");
  program.mob = {};
  frmharmedit constants(desktop, nullptr);
  album.Keep(constants, "frmharmedit");
  frmHCcopy copy(desktop, nullptr);
  album.Keep(copy, "frmHCcopy");
}

// The windows of tides and streams, on the sample's own port and diamond.
void KeepTides(const Album& album, Studio& studio) {
  Desktop desktop = studio.desktop();
  Program& program = studio.program;
  TideForm form(program);
  if (const Status opened = form.Open(0); !opened) {
    std::fprintf(stderr, "%s\n", opened.error().Text().c_str());
    return;
  }
  frmSkerrowTides tides(desktop, std::move(form), nullptr);
  tides.resize(1000, 640);
  album.Keep(tides, "frmSkerrowTides");
  const auto choose = [&](const char* name) { tides.findChild<QAction*>(name)->trigger(); };
  choose("mnuLayersShow");
  album.Keep(tides, "frmSkerrowTides-constituents");
  choose("mnuLayersShow");
  choose("mnumonth");
  album.Keep(tides, "frmSkerrowTides-month");
  frmTideOptions options(desktop, nullptr);
  album.Keep(options, "frmTideOptions");
  if (program.tides.diamonds.empty()) return;
  const std::size_t middle = program.tides.diamonds.size() / 2;
  frmDiaInfo diamond(desktop, middle, nullptr);
  album.Keep(diamond, "frmDiaInfo");
  RateGraph graph;
  graph.date = program.selected_time.Day();
  graph.line = "Rate through the day";
  StreamReader reader(program.tides);
  (void)FillDayStream(reader, program.tides.diamonds[middle], graph.date, graph.stream);
  frmDiaRate rate(desktop, program.tides.diamonds[middle], graph, nullptr);
  album.Keep(rate, "frmDiaRate");
}

// The windows of the wind, with the sample forecast imported.
void KeepWind(const Album& album, Studio& studio) {
  Desktop desktop = studio.desktop();
  Program& program = studio.program;
  const AppConfig before = program.config;
  const std::string sample = SampleForecast(program.folders);
  for (const char* name : {"Channel low.grb", "20261205_0601_GFS.grb"}) {
    std::filesystem::copy_file(sample, program.folders.GribData() + "/" + name,
                               std::filesystem::copy_options::skip_existing);
  }
  frmGribImport grib(desktop, nullptr);
  grib.findChild<QPushButton*>("cmdSample")->click();
  album.Keep(grib, "frmGribImport");
  frmViewSmartMet list(desktop, nullptr);
  album.Keep(list, "frmViewSmartMet");
  frmViewWind components(desktop, nullptr);
  album.Keep(components, "frmViewWind");
  const PolarRows rows = *OpenPolarDatabase(program.folders.InstalledPolars(), "")
                              ->Read("Performance cruiser 12 m (illustrative)");
  frmWind wind(desktop, nullptr);
  Select(wind, "lstSetUps", 1);
  Fill(wind, "txtWindSpeed", "14");
  Fill(wind, "txtWindDir", "225");
  Fill(wind, "txtHeading", "180");
  for (const char* button : {"cmdCalc", "cmdCalcPolar"}) {
    wind.findChild<QPushButton*>(button)->click();
  }
  album.Keep(wind, "frmWind");
  frmPolarPlot polar(desktop, "Performance cruiser 12 m (illustrative)", rows,
                     PolarEstimate{14.0, 45.0, "6.8"}, nullptr);
  polar.findChild<PolarWidget*>("Picture1")->SetCursor(PolarCursor{{100.0, 7.86}, 0x404040});
  album.Keep(polar, "frmPolarPlot");
  frmEditPlot editor(desktop, "Performance cruiser 12 m (illustrative)", nullptr);
  album.Keep(editor, "frmEditPlot");
  editor.findChild<QTabWidget*>("tabEdit")->setCurrentIndex(1);
  album.Keep(editor, "frmEditPlot-text");
  frmTrueAppWind convert(desktop, nullptr);
  Fill(convert, "txtBoatSpeed", "5.5");
  Fill(convert, "txtAppSpeed", "16");
  Fill(convert, "txtAppAngle", "35");
  album.Keep(convert, "frmTrueAppWind");
  program.config = before;
  if (const Status saved = SaveConfig(program.folders, before); !saved) {
    std::fprintf(stderr, "%s\n", saved.error().Text().c_str());
  }
}

void KeepSettings(const Album& album, Studio& studio) {
  Desktop desktop = studio.desktop();
  frmConfigure settings(desktop, {}, nullptr);
  auto* pages = settings.findChild<QTabWidget*>();
  for (int page = 0; page < pages->count(); ++page) {
    pages->setCurrentIndex(page);
    album.Keep(settings, QString("frmConfigure-%1").arg(page + 1));
  }
  album.KeepNext("colour");
  settings.findChild<QPushButton*>("pctTidalStreamCol")->click();
  frmLoadChart charts(desktop, nullptr);
  album.Keep(charts, "frmLoadChart");
  frmChartInfo info(
      desktop, studio.window().viewer(), [] {}, nullptr);
  album.Keep(info, "frmChartInfo");
  frmEditChart edit(
      desktop, [](const ChartChoice&) { return false; }, nullptr);
  album.Keep(edit, "frmEditChart");
  frmEditXrf index(desktop, nullptr);
  album.Keep(index, "frmEditXrf");
  frmSelectL25 diamonds(studio.program.folders, nullptr);
  album.Keep(diamonds, "frmSelectL25");
  DesktopMessages messages;
  album.KeepNext("message");
  messages.Ask(
      "Boat speed very low between waypoints 1 and 2\nDo you wish to continue?\n"
      "(This may cause problems)",
      kProgramTitle);
  frmQuickInstructions instructions(desktop, nullptr);
  album.Keep(instructions, "frmQuickInstructions");
}

void KeepRoutes(const Album& album, Studio& studio) {
  Desktop desktop = studio.desktop();
  frmRouteLoad load(desktop, nullptr);
  Select(load, "fillist", 2);
  album.Keep(load, "frmRouteLoad");
  frmRouteSave save(desktop, nullptr);
  Fill(save, "txtFileName", "Cowes to Alderney");
  album.Keep(save, "frmRouteSave");
  frmFileDelete route_delete(desktop, FileKind::kRoute, nullptr);
  Select(route_delete, "fillist", 1);
  album.Keep(route_delete, "frmRouteDelete");
  frmRouteEdit edit(desktop, nullptr);
  Select(edit, "List1", 4);
  Select(edit, "List2", 2);
  album.Keep(edit, "frmRouteEdit");
  frmRouteWayPoints make(desktop, nullptr);
  for (const int row : {3, 6, 27, 43}) {
    Select(make, "List1", row);
    make.findChild<QPushButton*>("cmdAdd")->click();
  }
  album.Keep(make, "frmRouteWayPoints");
  frmwayimport import_routes(desktop, FileKind::kRoute, nullptr);
  Select(import_routes, "fillist", 0);
  album.Keep(import_routes, "frmwayimport");
  frmUnsaved unsaved(desktop, "The route has changes that are in no route file.", nullptr);
  album.Keep(unsaved, "frmUnsaved");
}

void KeepWaypoints(const Album& album, Studio& studio) {
  Desktop desktop = studio.desktop();
  const Folders& folders = studio.program.folders;
  (void)WriteWaypointFile(WaypointPath(folders, "Solent.way"), SampleWaypoints().subspan(3, 9));
  (void)WriteWaypointFile(WaypointPath(folders, "Default.way"), {});
  frmWaySave save(desktop, nullptr);
  album.Keep(save, "frmWaySave");
  frmNewWay create(desktop, nullptr);
  album.Keep(create, "frmNewWay");
  frmLoadWay load(desktop, nullptr);
  Select(load, "fillist", 2);
  album.Keep(load, "frmLoadWay");
  frmFileDelete remove(desktop, FileKind::kWaypoint, nullptr);
  Select(remove, "fillist", 1);
  album.Keep(remove, "frmWayDelete");
  frmWayEdit edit(desktop, nullptr);
  Select(edit, "List1", 4);
  Fill(edit, "txtWayName", "Nab Tower");
  Fill(edit, "txtWayLat", "50.40.08N");
  Fill(edit, "txtWayLong", "000.57.15W");
  album.Keep(edit, "frmWayEdit");
  frmwaycopy copy(desktop, nullptr);
  Fill(copy, "txtFileName", "Brittany");
  Select(copy, "List1", 5);
  emit copy.findChild<QListWidget*>("List1")->itemClicked(nullptr);
  album.Keep(copy, "frmwaycopy");
  frmWayFileLocate locate(desktop, nullptr);
  Select(locate, "List1", 11);
  album.Keep(locate, "frmWayFileLocate");
  frmSingleWayPoint single(desktop, Position{50.5804F, -1.9601F}, nullptr);
  Fill(single, "txtWayName", "Anvil Point");
  album.Keep(single, "frmMouseInput");
  frmwayimport send(desktop, FileKind::kWaypoint, nullptr, frmwayimport::Direction::kExport);
  album.Keep(send, "frmwayexport");
  album.KeepNext("frmWaypointName");
  EnterWaypointByMouse(desktop, {50.5804F, -1.9601F}, nullptr);
  (void)KeepRoute(folders, studio.program.route);
  (void)WriteWaypointFile(WaypointRecoveryPath(folders, "Solent.way"),
                          SampleWaypoints().subspan(3, 11));
  album.KeepNext("frmRecovery");
  OfferRecovery(desktop, nullptr);
}

}  // namespace

void KeepDialogs(const Album& album, Studio& studio) {
  KeepPassage(album, studio);
  KeepTides(album, studio);
  KeepWind(album, studio);
  KeepSettings(album, studio);
  KeepRoutes(album, studio);
  KeepWaypoints(album, studio);
}

}  // namespace screenshots
