#include "ui/main/frmChart.h"
#include "ui/routes/frmFileDelete.h"
#include "ui/routes/frmLoadWay.h"
#include "ui/routes/frmNewWay.h"
#include "ui/routes/frmWayEdit.h"
#include "ui/routes/frmWayFileLocate.h"
#include "ui/routes/frmWaySave.h"
#include "ui/routes/frmwaycopy.h"
#include "ui/routes/frmwayimport.h"

namespace skerrow {
namespace {

void Load(FrmChart& w) {
  FrmLoadWay(w.desktop(), &w).exec();
  w.Changed(kAllChanged);
}

void Save(FrmChart& w) {
  FrmWaySave(w.desktop(), &w).exec();
  w.Changed(kAllChanged);
}

constexpr Command kCommands[] = {
    {"mnuFilWayLoad", "Load File", "", "Show the marks of another waypoint file", "", kNoNeed,
     Load},
    {"mnuwaychoose", "&Choose File", "", "Show the marks of another waypoint file", "", kNoNeed,
     Load},
    {"mnuFileWayPoints", "Save Waypoints As..", "", "Save the marks on show to a file", "", kNoNeed,
     Save},
    {"mnuWaySave", "&Save As", "", "Save the marks on show to a file", "", kNoNeed, Save},
    {"mnuFileWayDelete", "&Waypoint File", "", "Delete a waypoint file", "", kNoNeed,
     [](FrmChart& w) {
       FrmFileDelete(w.desktop(), FileKind::kWaypoint, &w).exec();
       w.Changed(kAllChanged);
     }},
    {"mnuwaypointimport", "Waypoint Files from Another Folder", "", "", "", kNoNeed,
     [](FrmChart& w) { FrmWayImport(w.desktop(), FileKind::kWaypoint, &w).exec(); }},
    {"mnuExportWaypoints", "Waypoint Files to Another Folder", "", "", "", kNoNeed,
     [](FrmChart& w) {
       FrmWayImport(w.desktop(), FileKind::kWaypoint, &w, FrmWayImport::Direction::kExport).exec();
     }},
    {"mnuGoToWaypoint", "&Go To Waypoint", "search", "Show a stored waypoint on the chart", "",
     kNoNeed,
     [](FrmChart& w) {
       FrmWayFileLocate dialog(w.desktop(), &w);
       if (dialog.exec() == QDialog::Accepted && dialog.picked()) {
         w.LocatePoint(dialog.picked()->At());
       }
     }},
    {"mnuwayedit", "&Edit", "edit", "Change the marks of a waypoint file", "", kNoNeed,
     [](FrmChart& w) {
       FrmWayEdit(w.desktop(), &w).exec();
       w.view().mouse_mode = MouseMode::kRouteCreation;
       w.Changed(kAllChanged);
     }},
    {"mnuwaycopy", "C&opy", "copy", "Make a waypoint file from marks of others", "", kNoNeed,
     [](FrmChart& w) { FrmWayCopy(w.desktop(), &w).exec(); }},
    {"mnuWayCreateNew", "Create &New", "add", "Make an empty waypoint file", "", kNoNeed,
     [](FrmChart& w) {
       FrmNewWay(w.desktop(), &w).exec();
       w.Changed(kAllChanged);
     }},
    {"mnuWayMouse", "By &Mouse", "", "Lay waypoints with Shift and the left button", "", kNoNeed,
     [](FrmChart& w) { w.ToggleWaypointEntry(); },
     [](const FrmChart& w) { return w.view().mouse_mode == MouseMode::kWaypointEntry; }},
};

}  // namespace

std::span<const Command> WaypointCommands() { return kCommands; }

}  // namespace skerrow
