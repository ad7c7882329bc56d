#include "ui/dialogs/frmresults.h"
#include "ui/dialogs/frmroutehistory.h"
#include "ui/main/frmChart.h"
#include "ui/main/readout.h"
#include "ui/routes/frmFileDelete.h"
#include "ui/routes/frmRouteEdit.h"
#include "ui/routes/frmRouteLoad.h"
#include "ui/routes/frmRouteSave.h"
#include "ui/routes/frmwayimport.h"

namespace skerrow {
namespace {

void Load(FrmChart& w) {
  FrmRouteLoad(w.desktop(), &w).exec();
  w.Changed(kAllChanged);
}

void Save(FrmChart& w) {
  FrmRouteSave(w.desktop(), &w).exec();
  w.Changed(kAllChanged);
}

constexpr Command kCommands[] = {
    {"mnuUndo", "&Undo", "undo", "Take the last change of the route back", "Ctrl+Z", kNeedsUndo,
     [](FrmChart& w) {
       UndoRouteEdit(w.program(), w.messages());
       w.Changed(kRouteChanged | kTimeChanged);
     }},
    {"mnuRedo", "&Redo", "redo", "Make the change taken back again", "Ctrl+Shift+Z", kNeedsRedo,
     [](FrmChart& w) {
       RedoRouteEdit(w.program(), w.messages());
       w.Changed(kRouteChanged | kTimeChanged);
     }},
    {"mnuMouseWayPoint", "Point && Click at Waypoint", "routesnap",
     "Lay route points on the waypoint nearest to the cursor", "", kNoNeed,
     [](FrmChart& w) { w.ToggleSnap(); },
     [](const FrmChart& w) { return w.view().snap_to_waypoint; }},
    {"mnuRouteDrag", "Drag Route Point", "dragwaypoint",
     "Move route points with the right mouse button", "", kNeedsPoint,
     [](FrmChart& w) { w.ToggleRouteDrag(); },
     [](const FrmChart& w) { return w.view().route_drag_on; }},
    {"mnuLoadExistRoute", "&Load Existing Route", "openroute", "Open a saved route", "Ctrl+O",
     kNoNeed, Load},
    {"mnuLoadExistingRoute", "&Load Existing Route", "", "Open a saved route", "", kNoNeed, Load},
    {"mnuRouteSave", "&Save Current Route", "save", "Save the route to a file", "Ctrl+S",
     kNeedsRoute, Save},
    {"mnuSaveCurrentRoute", "&Save Current Route", "", "Save the route to a file", "", kNeedsRoute,
     Save},
    {"mnuFileRouteDelete", "&Route File", "", "Delete a route file", "", kNoNeed,
     [](FrmChart& w) { FrmFileDelete(w.desktop(), FileKind::kRoute, &w).exec(); }},
    {"mnuFileRouteImport", "Route Files from Another Folder", "download", "", "", kNoNeed,
     [](FrmChart& w) { FrmWayImport(w.desktop(), FileKind::kRoute, &w).exec(); }},
    {"mnuExportDiskRoutes", "Route Files to Another Folder", "", "", "", kNoNeed,
     [](FrmChart& w) {
       FrmWayImport(w.desktop(), FileKind::kRoute, &w, FrmWayImport::Direction::kExport).exec();
     }},
    {"mnuRouteWaypoints", "By &Waypoint List", "routeplan", "Make a route from stored waypoints",
     "", kNoNeed, [](FrmChart& w) { w.RouteByWaypointList(); }},
    {"mnuRouteEdit", "Keyboard &Edit Route Points ", "edit", "Change the legs by keyboard", "",
     kNeedsRoute,
     [](FrmChart& w) {
       FrmRouteEdit(w.desktop(), &w).exec();
       w.Changed(kAllChanged);
     }},
    {"mnuRouteReverse", "Re&verse Route", "reverse", "Turn the route round", "", kNeedsRoute,
     [](FrmChart& w) {
       EditRoute(w.desktop(), "Reverse Route", [&w](RouteState& route) {
         ReverseRoute(route, RouteDefaultsOf(w.program()), w.messages());
       });
     }},
    {"mnurouteclear", "Clear", "cancelroute", "Clear the route and its results", "", kNeedsPoint,
     [](FrmChart& w) { w.ClearTheRoute(); }},
    {"mnucalcrte", "&Calculate Course for Route", "calc",
     "Courses to steer, times and arrival for each leg", "", kNeedsRoute,
     [](FrmChart& w) { w.CalculateRouteDialog(); }},
    {"mnuRouteOptimise", "Calculate &Optimum Route Time", "optimise",
     "The passage time for each hour of departure", "", kNeedsRoute,
     [](FrmChart& w) { w.OptimiseDialog(); }, nullptr,
     [](const FrmChart& w) { return w.program().config.use_tides != 0; }},
    {"mnuLastRouteResults", "&Show Last Results", "results", "The report of the last calculation",
     "", kNoNeed, [](FrmChart& w) { FrmResults::ShowLast(w.desktop(), &w); }},
    {"mnuRouteResultsReview", "&Review Calculation History", "", "All calculations of this run", "",
     kNoNeed, [](FrmChart& w) { FrmRouteHistory(w.desktop(), &w).exec(); }},
    {"mnurouteresultsclear", "&Clear", "", "Forget the stored results", "", kNoNeed,
     [](FrmChart& w) {
       if (w.messages().Ask("    Clear Results?", kProgramTitle)) {
         w.program().passage.result_lines.clear();
         w.program().passage.route_streams.clear();
         w.Changed(kAllChanged);
       }
     }},
    {"mnuAnimateStart", "Forward", "animate", "Run the boat along the calculated track", "",
     kNeedsTrack, [](FrmChart& w) { w.Animate(AnimationDirection::kForward); }},
    {"mnuAnimateReverse", "Reverse", "", "Run the boat back along the track", "", kNeedsTrack,
     [](FrmChart& w) { w.Animate(AnimationDirection::kReverse); }},
    {"mnuAnimatePause", "Pause", "pause", "Stop for a while, or go on", "", kNeedsTrack,
     [](FrmChart& w) { w.PauseAnimation(); },
     [](const FrmChart& w) { return w.program().animation.running && !w.animating(); }},
    {"mnuAnimateStop", "Exit Animation", "stop", "End the animation and bring the time back", "",
     kNeedsTrack, [](FrmChart& w) { w.ExitAnimation(); }},
    {"tbAnimate", "Animate", "animate", "Run the boat along the calculated track", "", kNeedsTrack,
     [](FrmChart& w) {
       if (w.animating()) {
         w.ExitAnimation();
       } else {
         w.Animate(AnimationDirection::kForward);
       }
     },
     [](const FrmChart& w) { return w.animating(); }},
    {"tbCopyRoute", "Copy Route", "copyroute", "Copy the route as text to the clipboard", "",
     kNeedsRoute, [](FrmChart& w) { w.desktop().clipboard.SetText(RouteText(w.program().route)); }},
    {"keyBackspace", "Remove Last Route Point", "", "", "Backspace", kNeedsPoint,
     [](FrmChart& w) {
       EditRoute(w.desktop(), "Remove Route Point",
                 [&w](RouteState& route) { RemoveLastRoutePoint(route); });
     }},
    {"keyInsert", "Insert Route Point", "", "", "Insert", kNoNeed,
     [](FrmChart& w) { w.InsertPoint(); }},
    {"keyDelete", "Delete", "", "", "Delete", kNoNeed, [](FrmChart& w) { w.DeleteMarked(); }},
    {"keyMark", "Mark", "mark", "Mark the waypoint or route point at the cursor", "M", kNoNeed,
     [](FrmChart& w) { w.mouse().Mark(); }},
    {"keyNearestTrack", "Time at Track", "", "The time at the nearest point of the track", "T",
     kNeedsTrack, [](FrmChart& w) { w.NearestTrackPoint(); }},
    {"mnuPURouteAdd", "Add Route Point", "add", "Lay a route point here", "", kNoNeed,
     [](FrmChart& w) { w.mouse().AddRoutePointHere(); }},
    {"mnuPUInsert", "Insert Route Point", "", "Insert a route point here", "Insert",
     kNeedsThreePoints, [](FrmChart& w) { w.InsertPoint(); }},
    {"mnuPUDeleteRoutePoint", "Delete Route Point", "delete", "Delete the nearest route point",
     "Delete", kNeedsPoint, [](FrmChart& w) { w.DeleteMarked(); }},
};

}  // namespace

std::span<const Command> RouteCommands() { return kCommands; }

}  // namespace skerrow
