#include "ui/dialogs/frmresults.h"
#include "ui/dialogs/frmroutehistory.h"
#include "ui/main/chart_controller.h"
#include "ui/main/chart_mouse.h"
#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/look_controller.h"
#include "ui/main/mob_controller.h"
#include "ui/main/readout.h"
#include "ui/main/route_controller.h"
#include "ui/main/time_controller.h"
#include "ui/routes/frmFileDelete.h"
#include "ui/routes/frmwayimport.h"

namespace skerrow {
namespace {

void Load(Context& c) { c.route.Load(); }
void SaveAs(Context& c) { c.route.SaveAs(); }

constexpr Command kCommands[] = {
    {"mnuUndo", "&Undo", "undo", "Take the last change of the route back", "Ctrl+Z", kNeedsUndo,
     [](Context& c) { c.route.Undo(); }},
    {"mnuRedo", "&Redo", "redo", "Make the change taken back again", "Ctrl+Shift+Z", kNeedsRedo,
     [](Context& c) { c.route.Redo(); }},
    {"mnuMouseWayPoint", "Point && Click at Waypoint", "routesnap",
     "Lay route points on the waypoint nearest to the cursor", "", kNoNeed,
     [](Context& c) { c.route.ToggleSnap(); },
     [](const Context& c) { return c.view.snap_to_waypoint; }},
    {"mnuRouteDrag", "Drag Route Point", "dragwaypoint",
     "Move route points with the right mouse button", "", kNeedsPoint,
     [](Context& c) { c.route.ToggleRouteDrag(); },
     [](const Context& c) { return c.view.route_drag_on; }},
    {"mnuLoadExistRoute", "&Load Existing Route", "openroute", "Open a saved route", "Ctrl+O",
     kNoNeed, Load},
    {"mnuLoadExistingRoute", "&Load Existing Route", "", "Open a saved route", "", kNoNeed, Load},
    {"mnuOpenSampleRoute", "Open a Sam&ple Route", "", "A passage to try the program with", "",
     kNoNeed, [](Context& c) { c.route.OpenSample(); }},
    {"mnuSaveRoute", "Save", "save", "Save the route under the name it has", "Ctrl+S", kNeedsRoute,
     [](Context& c) { c.route.Save(); }},
    {"mnuRouteSave", "&Save Current Route", "save", "Save the route to a file of a new name", "",
     kNeedsRoute, SaveAs},
    {"mnuSaveCurrentRoute", "&Save Current Route", "", "Save the route to a file of a new name",
     "Ctrl+Shift+S", kNeedsRoute, SaveAs},
    {"mnuFileRouteDelete", "&Route File", "", "Delete a route file", "", kNoNeed,
     [](Context& c) { frmFileDelete(c.desktop, FileKind::kRoute, &c.window).exec(); }},
    {"mnuFileRouteImport", "Route Files from Another Folder", "download", "", "", kNoNeed,
     [](Context& c) { frmwayimport(c.desktop, FileKind::kRoute, &c.window).exec(); }},
    {"mnuExportDiskRoutes", "Route Files to Another Folder", "", "", "", kNoNeed,
     [](Context& c) {
       frmwayimport(c.desktop, FileKind::kRoute, &c.window, frmwayimport::Direction::kExport)
           .exec();
     }},
    {"mnuRouteWaypoints", "By &Waypoint List", "routeplan", "Make a route from stored waypoints",
     "", kNoNeed, [](Context& c) { c.route.ByWaypointList(); }},
    {"mnuRouteEdit", "Keyboard &Edit Route Points ", "edit", "Change the legs by keyboard", "",
     kNeedsRoute, [](Context& c) { c.route.KeyboardEdit(); }},
    {"mnuRouteReverse", "Re&verse Route", "reverse", "Turn the route round", "", kNeedsRoute,
     [](Context& c) { c.route.Reverse(); }},
    {"mnurouteclear", "Clear", "cancelroute", "Clear the route and its results", "", kNeedsPoint,
     [](Context& c) { c.route.Clear(); }},
    {"mnucalcrte", "&Calculate Course for Route", "calc",
     "Courses to steer, times and arrival for each leg", "", kNeedsRoute,
     [](Context& c) { c.route.CalculateDialog(); }},
    {"mnuRouteOptimise", "Calculate &Optimum Route Time", "optimise",
     "The passage time for each hour of departure", "", kNeedsRoute,
     [](Context& c) { c.route.OptimiseDialog(); }, nullptr,
     [](const Context& c) { return c.program.config.use_tides != 0; }},
    {"mnuLastRouteResults", "&Show Last Results", "results", "The report of the last calculation",
     "", kNoNeed, [](Context& c) { frmresults::ShowLast(c.desktop, &c.window); }},
    {"mnuRouteResultsReview", "&Review Calculation History", "", "All calculations of this run", "",
     kNoNeed, [](Context& c) { frmroutehistory(c.desktop, &c.window).exec(); }},
    {"mnurouteresultsclear", "&Clear", "", "Forget the stored results", "", kNoNeed,
     [](Context& c) {
       if (c.messages.Ask("    Clear Results?", kProgramTitle)) {
         c.program.passage.result_lines.clear();
         c.program.passage.route_streams.clear();
         c.desktop.window.Changed(kAllChanged);
       }
     }},
    {"mnuAnimateStart", "Forward", "animate", "Run the boat along the calculated track", "",
     kNeedsTrack, [](Context& c) { c.time.Animate(AnimationDirection::kForward); }},
    {"mnuAnimateReverse", "Reverse", "", "Run the boat back along the track", "", kNeedsTrack,
     [](Context& c) { c.time.Animate(AnimationDirection::kReverse); }},
    {"mnuAnimatePause", "Pause", "pause", "Stop for a while, or go on", "", kNeedsTrack,
     [](Context& c) { c.time.PauseAnimation(); },
     [](const Context& c) { return c.program.animation.running && !c.time.animating(); }},
    {"mnuAnimateStop", "Exit Animation", "stop", "End the animation and bring the time back", "",
     kNeedsTrack, [](Context& c) { c.time.ExitAnimation(); }},
    {"tbAnimate", "Animate", "animate", "Run the boat along the calculated track", "", kNeedsTrack,
     [](Context& c) {
       if (c.time.animating()) {
         c.time.ExitAnimation();
       } else {
         c.time.Animate(AnimationDirection::kForward);
       }
     },
     [](const Context& c) { return c.time.animating(); }},
    {"tbCopyRoute", "Copy Route", "copyroute", "Copy the route as text to the clipboard", "",
     kNeedsRoute, [](Context& c) { c.desktop.clipboard.SetText(RouteText(c.program.route)); }},
    {"keyBackspace", "Remove Last Route Point", "", "", "Backspace", kNeedsPoint,
     [](Context& c) { c.route.RemoveLastPoint(); }},
    {"keyEscape", "Cancel", "", "Takes the calculated track off, then resets everything", "Esc",
     kNoNeed, [](Context& c) { c.route.Escape(); }},
    {"keyInsert", "Insert Route Point", "", "", "Insert", kNoNeed,
     [](Context& c) { c.route.InsertPoint(); }},
    {"keyDelete", "Delete", "", "", "Delete", kNoNeed, [](Context& c) { c.route.DeleteMarked(); }},
    {"keyMark", "Mark", "mark", "Mark the waypoint or route point at the cursor", "M", kNeedsPlaces,
     [](Context& c) { c.mouse.Mark(); }},
    {"keyNearestTrack", "Time at Track", "", "The time at the nearest point of the track", "T",
     kNeedsTrack, [](Context& c) { c.time.ShowNearestTrackPoint(); }},
    {"mnuPURouteAdd", "Add Route Point", "add", "Lay a route point here", "", kNeedsPlaces,
     [](Context& c) { c.mouse.AddRoutePointHere(); }},
    {"mnuPUInsert", "Insert Route Point", "", "Insert a route point here", "Insert",
     kNeedsThreePoints, [](Context& c) { c.route.InsertPoint(); }},
    {"mnuPUDeleteRoutePoint", "Delete Route Point", "delete", "Delete the nearest route point",
     "Delete", kNeedsPoint, [](Context& c) { c.route.DeleteMarked(); }},
};

}  // namespace

std::span<const Command> RouteCommands() { return kCommands; }

}  // namespace skerrow
