#include "ui/dialogs/frmroutehistory.h"
#include "ui/main/frmChart.h"
#include "ui/main/readout.h"

namespace skerrow {
namespace {

constexpr Command kCommands[] = {
    {"mnuUndo", "&Undo", "undo", "Take the last change of the route back", "Ctrl+Z", kNeedsUndo,
     [](FrmChart& w) { w.UndoRoute(); }},
    {"mnuRedo", "&Redo", "redo", "Make the change taken back again", "Ctrl+Shift+Z", kNeedsRedo,
     [](FrmChart& w) { w.RedoRoute(); }},
    {"mnuMouseWayPoint", "Point && Click at Waypoint", "routesnap",
     "Lay route points on the waypoint nearest to the cursor", "", kNoNeed,
     [](FrmChart& w) { w.ToggleSnap(); },
     [](const FrmChart& w) { return w.view().snap_to_waypoint; }},
    {"mnuRouteDrag", "Drag Route Point", "dragwaypoint",
     "Move route points with the right mouse button", "", kNeedsPoint,
     [](FrmChart& w) { w.ToggleRouteDrag(); },
     [](const FrmChart& w) { return w.program().route_drag_on; }},
    {"mnuRouteReverse", "Re&verse Route", "reverse", "Turn the route round", "", kNeedsRoute,
     [](FrmChart& w) {
       w.EditRoute("Reverse Route", [&w] {
         ReverseRoute(w.program().route, RouteDefaultsOf(w.program()), w.messages());
         return true;
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
     "", kNoNeed, [](FrmChart& w) { w.ShowResults(); }},
    {"mnuRouteResultsReview", "&Review Calculation History", "", "All calculations of this run", "",
     kNoNeed, [](FrmChart& w) { FrmRouteHistory(w.desktop(), &w).exec(); }},
    {"mnurouteresultsclear", "&Clear", "", "Forget the stored results", "", kNoNeed,
     [](FrmChart& w) {
       if (w.messages().Ask("    Clear Results?", kProgramTitle)) {
         w.program().passage.result_lines.clear();
         w.program().passage.route_history.clear();
         w.StateChanged();
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
     kNeedsTrack, [](FrmChart& w) { w.StopAnimation(); }},
    {"tbAnimate", "Animate", "animate", "Run the boat along the calculated track", "", kNeedsTrack,
     [](FrmChart& w) {
       if (w.animating()) {
         w.StopAnimation();
       } else {
         w.Animate(AnimationDirection::kForward);
       }
     },
     [](const FrmChart& w) { return w.animating(); }},
    {"tbCopyRoute", "Copy Route", "copyroute", "Copy the route as text to the clipboard", "",
     kNeedsRoute,
     [](FrmChart& w) { w.desktop().clipboard.SetText(RouteText(w.program().route)); }},
    {"keyBackspace", "Remove Last Route Point", "", "", "Backspace", kNeedsPoint,
     [](FrmChart& w) {
       w.EditRoute("Remove Route Point", [&w] {
         return RemoveLastRoutePoint(w.program().route, RouteDefaultsOf(w.program()));
       });
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
