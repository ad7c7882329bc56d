// Opens every dialog: published names, keys, a size for small screens, and a way out by Esc that
// leaves everything as it was.

#include <QAbstractButton>
#include <QLabel>
#include <QTabBar>
#include <QTabWidget>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>

#include "platform/polars.h"
#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/charts/frmChartInfo.h"
#include "ui/charts/frmEditChart.h"
#include "ui/charts/frmEditXrf.h"
#include "ui/charts/frmImportChart.h"
#include "ui/charts/frmLoadChart.h"
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
#include "ui/instruments/frmAISGPSConfig.h"
#include "ui/instruments/frmAISLog.h"
#include "ui/instruments/frmAISSummary.h"
#include "ui/instruments/frmCommsInfo.h"
#include "ui/instruments/frmGPSLog.h"
#include "ui/instruments/frmgpsdetail.h"
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
#include "ui/tides/Frmriseresults.h"
#include "ui/tides/Frmsunrise.h"
#include "ui/tides/frmChartdepth.h"
#include "ui/tides/frmDiaInfo.h"
#include "ui/tides/frmDiaRate.h"
#include "ui/tides/frmPortName.h"
#include "ui/tides/frmTideOptions.h"
#include "ui/tides/frmTidesSeaArea.h"
#include "ui/tides/frmTidesTimeDate.h"
#include "ui/wind/frmGribImport.h"
#include "ui/wind/frmTrueAppWind.h"
#include "ui/wind/frmViewSmartMet.h"
#include "ui/wind/frmViewWind.h"

namespace skerrow::testing {
namespace {

using Opened = std::unique_ptr<QDialog>;

struct Row {
  const char* name;
  const char* title;
  const char* default_button;
  const char* tab_order;  // published names, by blanks, from the first on
  const char* also;       // what Tab doesn't reach
  Opened (*open)(Desktop&);
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.title; }

template <typename Form>
Opened Open(Desktop& desktop) {
  return std::make_unique<Form>(desktop, nullptr);
}
template <typename Form, FileKind kind>
Opened OpenKind(Desktop& desktop) {
  return std::make_unique<Form>(desktop, kind, nullptr);
}

PortList UkPorts(const Desktop& desktop) { return *ListPorts(desktop.program.folders, "UK.hc"); }

PolarRows SampleRows(const Desktop& desktop) {
  const auto polars = OpenPolarDatabase(desktop.program.folders.InstalledPolars(), "");
  return *polars->Read(polars->SetUps()->front());
}

// The calibration beside a chart of its own.
struct ChartBeside {
  ChartViewer viewer;
};
struct InfoWithChart : ChartBeside, frmChartInfo {
  explicit InfoWithChart(Desktop& desktop)
      : frmChartInfo(
            desktop, viewer, [] {}, nullptr) {}
};

const Row kRows[] = {
    {"frmcalcroute", "Route Calculation", "Cmdrteok",
     "List1 txtroutestartname txtroutestartlat txtroutestartlong txtroutedestname txtroutedestlat "
     "txtroutedestlong txtroutespeed cmdRouteSpeed cmdModify rtedeptime lsthrs lstmins chkLeeway "
     "cmdWind cmdTack cmdreverse cmdCopy Cmdrteok cmdrtecancel",
     "lblroutedist chkUseSOG cmdUseGPS", Open<frmcalcroute>},
    {"frmCalcCOG", "Leg Set-up", "cmdCalculate",
     "txtstartlat txtstartlon txtdestlat txtdestlon Txtboatspeed txtDuration txtBearing chkLeeway "
     "lstWaypoints cmdCalculate cmdCancel",
     "lblstartname lbldestname lblDate txtLeeWay optPort optStarboard cmdcopytostart cmdcopytodest "
     "CmdDesttogps",
     Open<frmCalcCOG>},
    {"frmCalcMOB", "Calculate Course Over Ground", "cmdOK",
     "txtstartlat txtstartlon optSelectedTime txtDuration txtBearing Txtboatspeed cmdOK cmdCancel",
     "optMarkTime txtgpsn txtgpsE txtHeading Cmdgpstostart cmdUseSOG", Open<frmCalcMOB>},
    {"frmresults", "Results", "cmdOK",
     "optSummary lstResults Option1 Option2 cmdClipboardCopy cmdresultsprint cmdOK",
     "optTidalDetails chkDisplayAll chKTidalStreams", Open<frmresults>},
    {"frmrouteinfo", "Route Calculations", "cmdOK",
     "List1 Option1 Option2 cmdClipboardCopy cmdresultsprint cmdOK", "", Open<frmrouteinfo>},
    {"frmroutehistory", "Calculation History", "cmdOK",
     "lsthistresults Option1 Option2 cmdClipboardCopy cmdresultsprint cmdOK", "",
     Open<frmroutehistory>},
    {"frmRouteOptDeparture", "Optimise Departure", "cmdOptimise",
     "List1 Option5 cmdreverse cmdOptimise cmdrtecancel", "ProgressBar1 lblProgress",
     Open<frmRouteOptDeparture>},
    {"frmOptResults", "Optimum Results", "cmdClose", "pctResults lstResults cmdClose",
     "pctScale lblCursor", Open<frmOptResults>},
    {"frmSetLeg", "Single Leg Set-up", "cmdCalculate",
     "txtstartlat txtstartlong txtdestlat txtdestlong optFillStart optFillDest Txtboatspeed "
     "txtTime lsthrs lstmins chkLeeway lstWaypoints lstResults "
     "cmdCalculate cmdCancel",
     "txtLeeWay optPort optStarboard", Open<frmSetLeg>},
    {"frmtimdat", "Date and Time", "cmdOK",
     "txtTime lsthrs lstmins lstDay lstMonth lstYear cmdOK cmdCancel", "Predictedday",
     Open<frmtimdat>},
    {"frmLoadChart", "Select Chart", "cmdOK",
     "lstAreas cmbScale txtScale txtSearch cmdSearch List1 cmdImport cmdOK cmdCancel",
     "lblChartNumber GdViewer1 cmdRemove", Open<frmLoadChart>},
    {"frmImportChart", "Import Chart", "cmdBrowse",
     "cmdBrowse txtTitle cmbArea txtScale txtKey cmdCancel",
     "txtFile lblDetails lblNotes lblAreaHint GdViewer1 cmdImport", Open<frmImportChart>},
    {"frmChartInfo", "Calibrate Chart", "cmdOK",
     "txtUpperLat txtTopPix txtLowerLon txtLeftPix cmdPickUpper txtLowerLat txtBottomPix "
     "txtUpperLon txtRightPix cmdPickLower txtScale txtWidth txtHeight cmdOK cmdCancel",
     "lblEdges lblCheck",
     [](Desktop& desktop) -> Opened { return std::make_unique<InfoWithChart>(desktop); }},
    {"frmEditChart", "Chart Settings", "cmdOK",
     "cmbAreas txtSearch cmdSearch List1 txtUpperLat txtTopPix txtLowerLon txtLeftPix txtLowerLat "
     "txtBottomPix txtUpperLon txtRightPix txtScale txtWidth txtHeight cmdAcceptChanges cmdOK",
     "lblChartNumber GdViewer1 lblSize",
     [](Desktop& desktop) -> Opened {
       return std::make_unique<frmEditChart>(
           desktop, [](const ChartChoice&) { return false; }, nullptr);
     }},
    {"frmEditXrf", "Sea Area Index", "cmdOK",
     "lstAreas List1 txtChartNo txtChartName txtChartScale txtUpperLat txtLowerLat txtLowerLon "
     "txtUpperLon cmdInsert cmdModify cmdDelete cmdOK",
     "", Open<frmEditXrf>},
    {"frmQuickInstructions", "Quick Instructions", "cmdOK", "txtInstructions cmdOK", "",
     Open<frmQuickInstructions>},
    {"frmConfigure", "General Settings", "cmdOK",
     "Txtboatspeed Txtvariation txtCPAWind chkLeeway txtLeeWay txtCalcInterval txtErrorCircle "
     "txtSearchCircle chkUseTides optSummerTime optDaylightSavings cmdOK cmdCancel",
     "cmbThreshold cmbTextSize cmbStreamLineWidth cmbBarbWeight cmbStreamLength cmbBarbSpacing "
     "cmbBarbLength cmbLineSize chkHideStreamId chkShowwind chkBarbDisplayText chkUseSmartMet "
     "chkStreamAsShape chkStreamFilled pctFontCol pctTidalStreamCol pctCOGCol pctWindCol",
     [](Desktop& desktop) -> Opened {
       return std::make_unique<frmConfigure>(desktop, nullptr, nullptr);
     }},
    {"frmGPSLog", "GPS Connection and Log", "cmdOK",
     "cmbPort cmbGPSType chkNmeaLogOn txtFileName fillist cmdTest txtNMEA cmdOK cmdCancel",
     "cmdCancelTest lblTest", Open<frmGPSLog>},
    {"frmAISLog", "AIS Connection and Log", "cmdOK",
     "cmbPort chkStandardAIS chkNmeaLogOn txtFileName fillist cmdTest txtNMEA cmdOK cmdCancel",
     "cmdCancelTest lblTest", Open<frmAISLog>},
    {"frmAISGPSConfig", "Instruments (GPS & AIS)", "cmdOK",
     "cmbGPSPort cmbGPSType cmbAISPort chkGPSThroAIS cmbGPSInterval chkNmeaLogOn lstSources "
     "txtSource cmdAddSource cmdOK cmdCancel",
     "cmdRemoveSource cmbVHFRange cmbCPAAlarm chkStandardAIS chkAlarmSound cmbAISLine1 cmbAISLine7 "
     "pctClassACol pctClassBCol pctGPSCol",
     Open<frmAISGPSConfig>},
    {"frmCommsInfo", "Test Configurations", "",
     "cmbPort cmbBaud cmdTest txtPorts txtFileName txtCommsDetails txtNMEA cmdCancel",
     "cmdCancelTest lblLost", Open<frmCommsInfo>},
    {"frmgpsdetail", "GPS Monitor", "cmdCancel", "txtNMEA txtCommsDetails cmdCancel", "cmdSave",
     Open<frmgpsdetail>},
    {"Frmdisclaimer", "Skerrow Helm (v6.0.0.1)", "cmdCCok", "List1 cmdCCok cmddecline", "",
     [](Desktop& desktop) -> Opened {
       return std::make_unique<Frmdisclaimer>(desktop.program, desktop.messages);
     }},
    {"frmRouteLoad", "Load Route", "cmdOK", "fillist chkUseDefaultSpeed cmdOK cmdCancel", "",
     Open<frmRouteLoad>},
    {"frmRouteSave", "Save Route", "cmdOK", "txtFileName fillist cmdOK cmdCancel", "",
     Open<frmRouteSave>},
    {"frmWaySave", "Save Waypoints", "cmdOK", "txtFileName fillist cmdOK cmdCancel", "",
     Open<frmWaySave>},
    {"frmNewWay", "New Waypoint File", "cmdOK", "txtFileName fillist cmdOK cmdCancel", "",
     Open<frmNewWay>},
    {"frmLoadWay", "Load Waypoint File", "cmdOK", "fillist cmdOK cmdCancel", "", Open<frmLoadWay>},
    {"frmWayDelete", "Delete Waypoint File", "cmdOK", "fillist cmdOK cmdCancel", "List1",
     OpenKind<frmFileDelete, FileKind::kWaypoint>},
    {"frmRouteDelete", "Delete Route File", "cmdOK", "fillist cmdOK cmdCancel", "List1",
     OpenKind<frmFileDelete, FileKind::kRoute>},
    {"frmwayimport", "Import Skerrow Waypoint files from floppy or external storage", "cmdOK",
     "txtFolder cmdBrowse fillist cmdSelectAll cmdOK cmdCancel", "",
     OpenKind<frmwayimport, FileKind::kWaypoint>},
    {"frmwayimport", "Import Skerrow Route files from floppy or external storage", "cmdOK",
     "txtFolder cmdBrowse fillist cmdSelectAll cmdOK cmdCancel", "",
     OpenKind<frmwayimport, FileKind::kRoute>},
    {"frmRouteWayPoints", "Route by Waypoint List", "cmdOK",
     "fillist List1 cmdAdd List2 cmdDelete cmdOK cmdCancel", "", Open<frmRouteWayPoints>},
    {"frmRouteEdit", "Edit Route Points", "cmdExit",
     "List1 txtroutestartname txtroutestartlat txtroutestartlong txtroutedestname txtroutedestlat "
     "txtroutedestlong txtroutespeed cmdRouteSpeed cmdmodify fillist List2 optBefore optAfter "
     "cmdInsert cmdDelete cmdreverse cmdExit",
     "", Open<frmRouteEdit>},
    {"frmWayEdit", "Select a File to Edit", "cmdSave",
     "fillist cmdCreateNew cmdCopy cmdPrint optAll optSelected List1 txtWayName txtWayLat "
     "txtWayLong cmdAdd cmdInsert cmdChange cmdDelete cmdSave cmdCancel",
     "labelnoofpoints", Open<frmWayEdit>},
    {"frmwaycopy", "Copy Waypoints", "cmdSave", "fillist List1 List2 txtFileName cmdSave cmdCancel",
     "", Open<frmwaycopy>},
    {"frmWayFileLocate", "Locate a waypoint", "cmdOK", "fillist List1 cmdOK cmdCancel", "",
     Open<frmWayFileLocate>},
    {"frmSingleWayPoint", "Waypoint Entry", "cmdOK",
     "txtWayName txtWayLat txtWayLong cmdOK cmdCancel", "",
     [](Desktop& desktop) -> Opened {
       return std::make_unique<frmSingleWayPoint>(desktop, std::nullopt, nullptr);
     }},
    {"frmPortName", "Tidal Port", "cmdOK", "txtFind lstPorts cmdOK cmdCancel", "",
     [](Desktop& desktop) -> Opened {
       return std::make_unique<frmPortName>(desktop, UkPorts(desktop), 76, nullptr);
     }},
    {"frmTidesSeaArea", "Tidal Sea Area", "cmdOK", "lstAreas cmdOK cmdCancel", "",
     Open<frmTidesSeaArea>},
    {"frmTidesTimeDate", "Tide Date", "cmdOK", "lstYear lstMonth lstDay cmdToday cmdOK cmdCancel",
     "calendar lblWeekday",
     [](Desktop& desktop) -> Opened {
       return std::make_unique<frmTidesTimeDate>(desktop, DayAndYear{60, 2028}, nullptr);
     }},
    {"frmTideOptions", "Tide Display Options", "cmdOK",
     "Option2 optDaylightSavings optNonDaylightsavings cmdOK cmdCancel",
     "Option1 Option3 draughttext ukctext", Open<frmTideOptions>},
    {"frmChartdepth", "Enter Tidal Offset", "cdok",
     "txtFind lstPorts depth cmdReset cdok cmdCancel", "",
     [](Desktop& desktop) -> Opened {
       return std::make_unique<frmChartdepth>(desktop, "UK.hc", UkPorts(desktop), 76, nullptr);
     }},
    {"Frmsunrise", "Sun and Moon", "Frmsunrise_ok",
     "txtName txtLatitude txtLongitude Frmsunrise_ok cmdCancel", "lblHint",
     [](Desktop& desktop) -> Opened {
       return std::make_unique<Frmsunrise>(desktop, SunEntry{}, QString(), nullptr);
     }},
    {"Frmriseresults", "Sun and Moon Results", "cmdOK",
     "VScroll1 lstSun lstMoon cmdSave cmdPrint cmdCopy cmdOK", "",
     [](Desktop& desktop) -> Opened {
       static const SunResults results =
           MakeSunResults({"Dover", "51.06.00N", "001.19.00E"}, {51.1F, 1.3F}, 6, 2026, 0, false);
       return std::make_unique<Frmriseresults>(desktop, results, 31, nullptr);
     }},
    {"frmDiaInfo", "Tidal Diamond Data", "",
     "lstDiaData cmdChange cmdAdd cmdDelete OptSlack optFlood OptAbove txtRate Command1 lstTides "
     "cmdCalculate cmdCopy cmdPrint cmdClose",
     "Text1 Text2 Text3 cmdAccept cmdRecalculate",
     [](Desktop& desktop) -> Opened { return std::make_unique<frmDiaInfo>(desktop, 0, nullptr); }},
    {"frmDiaRate", "Graph of Predicted Stream vs Time", "cmdClose", "picRate cmdPrint cmdClose",
     "lblTitle lblReadout",
     [](Desktop& desktop) -> Opened {
       return std::make_unique<frmDiaRate>(desktop, Diamond{}, RateGraph{}, nullptr);
     }},
    {"frmWind", "Wind Calculation", "",
     "txtWindSpeed optTrueForce0 txtWindDir optDirTrue0 lstSetUps cmdDisplayPolar txtHeading "
     "cmdCalc chkConstantWind List1 cmdCalcPolar cmdReset cmdClose",
     "txtResult lblTack lblBoat lblLegWind optTrueForce12 optDirTrue15", Open<frmWind>},
    {"frmPolarPlot", "Polar Plot", "cmdClose",
     "Picture1 optWindPlot6 txtEstBoatSpeed Picture2 cmdPrint cmdClose",
     "optWindPlot1 optWindPlot15 lblPolarCursor lblWindAngle",
     [](Desktop& desktop) -> Opened {
       return std::make_unique<frmPolarPlot>(desktop, "Boat", SampleRows(desktop), std::nullopt,
                                             nullptr);
     }},
    {"frmEditPlot", "Polar Plot", "",
     "Picture1 cmbSetUps optWindPlot6 txtWindSpeed1 txtBoatSpeed1 cmdChange1 txtAngle "
     "txtBoatSpeed2 cmdChangeData2 Picture2 cmdClose",
     "txtEditSpeed0 txtEditSpeed30 txtAddSubtract cmdAdjust Command1 lblDatabase",
     [](Desktop& desktop) -> Opened {
       return std::make_unique<frmEditPlot>(desktop, "", nullptr);
     }},
    {"frmGribImport", "Read Grib Data", "cmdExport",
     "FileList List1 chkUse cmdSample cmdExport cmdCancel", "lblFileName lblRecCount ProgressBar1",
     Open<frmGribImport>},
    {"frmViewSmartMet", "View Wind Data", "cmdOK", "List1 cmdViewWind cmdOK",
     "cmbTime cmdEarlier cmdLater lblRecCount", Open<frmViewSmartMet>},
    {"frmViewWind", "View Wind Components", "cmdOK", "List1 cmdOK",
     "cmbTime cmdEarlier cmdLater lblRecCount", Open<frmViewWind>},
    {"frmTrueAppWind", "True and Apparent Wind", "cmdCancel",
     "txtBoatSpeed txtCourse optStarboard optPort txtTrueSpeed txtTrueDir txtTrueAngle txtAppSpeed "
     "txtAppDir "
     "txtAppAngle cmdCancel",
     "lblTrueForce lblAppForce lblTrouble Picture1", Open<frmTrueAppWind>},
    {"frmAisDetails", "AIS Target Details", "", "lstAisDetails cmdCopy cmdPrint cmdClose",
     "lblName lblHeard cmdShow",
     [](Desktop& desktop) -> Opened {
       return std::make_unique<frmAisDetails>(desktop, ShowPlace(), nullptr);
     }},
    {"frmAISSummary", "AIS Target List", "", "lstAISTargets txtFilter List1 cmdCopyList cmdClose",
     "lblCount lblTime lblName cmdMark cmdClearMark cmdCopyDetails cmdShow",
     [](Desktop& desktop) -> Opened {
       return std::make_unique<frmAISSummary>(desktop, ShowPlace(), nullptr);
     }},
    {"frmUnsaved", "Unsaved Changes", "cmdSave", "cmdDiscard cmdSave cmdCancel", "",
     [](Desktop& desktop) -> Opened {
       return std::make_unique<frmUnsaved>(desktop, "Unsaved.", nullptr);
     }},
};

// The names of what Tab reaches, from the first widget of the dialog on.
std::string TabOrder(QDialog& dialog) {
  std::ostringstream order;
  for (QWidget* at = dialog.nextInFocusChain(); at != &dialog; at = at->nextInFocusChain()) {
    const bool reached = (at->focusPolicy() & Qt::TabFocus) && at->isVisibleTo(&dialog) &&
                         at->isEnabled() && at->window() == &dialog && at->focusProxy() == nullptr;
    if (!reached || at->objectName().isEmpty() || at->objectName().startsWith("qt_")) continue;
    order << (order.tellp() > 0 ? " " : "") << at->objectName().toStdString();
  }
  return order.str();
}

// No mnemonic stands twice on what is seen at once.
void ExpectMnemonicsOnce(const QDialog& dialog) {
  std::set<QString> mnemonics;
  const auto take = [&mnemonics](const QString& text) {
    const QKeySequence key = QKeySequence::mnemonic(text);
    if (!key.isEmpty()) {
      EXPECT_TRUE(mnemonics.insert(key.toString()).second) << text.toStdString();
    }
  };
  for (const auto* button : dialog.findChildren<QAbstractButton*>()) {
    if (button->isVisible()) take(button->text());
  }
  for (const auto* label : dialog.findChildren<QLabel*>()) {
    if (label->isVisible() && label->buddy() != nullptr) take(label->text());
  }
  for (const auto* tabs : dialog.findChildren<QTabBar*>()) {
    for (int tab = 0; tab < tabs->count(); ++tab) take(tabs->tabText(tab));
  }
}

// All files below the user's folders with their bytes.
std::map<std::string, std::string> FilesBelow(const Folders& folders) {
  std::map<std::string, std::string> files;
  for (const std::string& root : {folders.documents, folders.settings}) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
      if (entry.is_regular_file()) files[entry.path().string()] = FileBytes(entry.path().string());
    }
  }
  return files;
}

class EveryDialog : public SampleDesk, public ::testing::WithParamInterface<Row> {};

TEST_P(EveryDialog, OpensAsPublishedAndEscChangesNothing) {
  const Row& row = GetParam();
  ImportSamples();
  LoadSample();
  const auto files = FilesBelow(program.folders);
  const auto route = RouteContent(program.route);
  const auto waypoints = program.waypoints.waypoints;
  const std::string config = EncodeRecord(program.config, kAppConfigFields);
  const float hours = program.selected_time.hours;
  const Opened form = row.open(desktop);
  Show(*form);
  EXPECT_EQ(form->objectName(), row.name);
  EXPECT_EQ(form->windowTitle(), row.title);
  EXPECT_EQ(TabOrder(*form), row.tab_order);
  for (const QString& name : QString(row.also).split(' ', Qt::SkipEmptyParts)) {
    EXPECT_NE(form->findChild<QWidget*>(name), nullptr) << name.toStdString();
  }
  for (const auto* button : form->findChildren<QPushButton*>()) {
    EXPECT_EQ(button->isDefault(), button->objectName() == QString(row.default_button))
        << button->objectName().toStdString();
    EXPECT_FALSE(button->autoDefault() && !button->isDefault());
  }
  EXPECT_LE(form->width(), 1280);
  EXPECT_LE(form->height(), 720 - 48) << "title bar and panel";
  auto* pages = form->findChild<QTabWidget*>();
  for (int page = 0; page < (pages == nullptr ? 1 : pages->count()); ++page) {
    if (pages != nullptr) pages->setCurrentIndex(page);
    ExpectMnemonicsOnce(*form);
  }

  QTest::keyClick(form.get(), Qt::Key_Escape);
  EXPECT_FALSE(form->isVisible());
  EXPECT_EQ(form->result(), QDialog::Rejected);
  EXPECT_EQ(FilesBelow(program.folders), files);
  EXPECT_EQ(RouteContent(program.route), route);
  EXPECT_EQ(program.waypoints.waypoints, waypoints);
  EXPECT_EQ(EncodeRecord(program.config, kAppConfigFields), config);
  EXPECT_EQ(program.selected_time.hours, hours);
  EXPECT_FALSE(program.edits.history.CanUndo());
}

INSTANTIATE_TEST_SUITE_P(Dialogs, EveryDialog, ::testing::ValuesIn(kRows), [](const auto& test) {
  return std::string(test.param.name) + std::to_string(test.index);
});

// The part of a picture that is brighter than a surface may be at night; letters may.
double BrightPart(const QImage& image) {
  qint64 bright = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) bright += qGray(image.pixel(x, y)) > 110 ? 1 : 0;
  }
  return static_cast<double>(bright) / (image.width() * image.height());
}

class NightLook : public SampleDesk {};

TEST_F(NightLook, LeavesNoBrightSurface) {
  LoadSample();
  ApplyTheme(true);
  view.night = true;
  for (const Row& row : kRows) {
    const Opened form = row.open(desktop);
    Show(*form);
    EXPECT_LT(BrightPart(form->grab().toImage()), 0.05) << row.name;
  }
  frmConfigure form(desktop, nullptr, nullptr);
  Show(form);
  WithNextDialog([](QDialog& colours) { EXPECT_LT(BrightPart(colours.grab().toImage()), 0.05); });
  Find<QPushButton>(form, "pctWindCol")->click();
  ApplyTheme(false);
}

}  // namespace
}  // namespace skerrow::testing
