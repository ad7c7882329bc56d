#include "ui/main/chart_controller.h"
#include "ui/main/chart_mouse.h"
#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/look_controller.h"
#include "ui/main/mob_controller.h"
#include "ui/main/route_controller.h"
#include "ui/main/time_controller.h"
#include "ui/routes/frmFileDelete.h"
#include "ui/routes/frmLoadWay.h"
#include "ui/routes/frmNewWay.h"
#include "ui/routes/frmSingleWayPoint.h"
#include "ui/routes/frmWayEdit.h"
#include "ui/routes/frmWayFileLocate.h"
#include "ui/routes/frmWaySave.h"
#include "ui/routes/frmwaycopy.h"
#include "ui/routes/frmwayimport.h"

namespace skerrow {
namespace {

void Load(Context& c) {
  c.route.WithWaypoints([&c] { frmLoadWay(c.desktop, &c.window).exec(); });
}

void Save(Context& c) {
  frmWaySave(c.desktop, &c.window).exec();
  c.desktop.window.Changed(kViewChanged);
}

// Entry of one waypoint, typed or at the place last clicked.
void Enter(Context& c, std::optional<Position> picked) {
  c.route.WithWaypoints([&] { frmSingleWayPoint(c.desktop, picked, &c.window).exec(); });
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
     [](Context& c) {
       frmFileDelete(c.desktop, FileKind::kWaypoint, &c.window).exec();
       c.desktop.window.Changed(kViewChanged);
     }},
    {"mnuwaypointimport", "Waypoint Files from Another Folder", "", "", "", kNoNeed,
     [](Context& c) { frmwayimport(c.desktop, FileKind::kWaypoint, &c.window).exec(); }},
    {"mnuExportWaypoints", "Waypoint Files to Another Folder", "", "", "", kNoNeed,
     [](Context& c) {
       frmwayimport(c.desktop, FileKind::kWaypoint, &c.window, frmwayimport::Direction::kExport)
           .exec();
     }},
    {"mnuGoToWaypoint", "&Go To Waypoint", "search", "Show a stored waypoint on the chart", "",
     kNoNeed, [](Context& c) { c.route.GoToWaypoint(); }},
    {"mnuwayedit", "&Edit", "edit", "Change the marks of a waypoint file", "", kNoNeed,
     [](Context& c) {
       c.route.WithWaypoints([&c] { frmWayEdit(c.desktop, &c.window).exec(); });
       c.view.mouse_mode = MouseMode::kRouteCreation;
       c.desktop.window.Changed(kViewChanged);
     }},
    {"mnuwaycopy", "C&opy", "copy", "Make a waypoint file from marks of others", "", kNoNeed,
     [](Context& c) { frmwaycopy(c.desktop, &c.window).exec(); }},
    {"mnuWayCreateNew", "Create &New", "add", "Make an empty waypoint file", "", kNoNeed,
     [](Context& c) { c.route.WithWaypoints([&c] { frmNewWay(c.desktop, &c.window).exec(); }); }},
    {"mnuWayMouse", "By &Mouse", "", "Lay waypoints with Shift and the left button", "", kNoNeed,
     [](Context& c) { c.route.ToggleWaypointEntry(); },
     [](const Context& c) { return c.view.mouse_mode == MouseMode::kWaypointEntry; }},
    {"mnuWaySingle", "By &Keyboard", "", "Type the name and the position of a waypoint", "",
     kNoNeed, [](Context& c) { Enter(c, std::nullopt); }},
    {"mnuPUAddWaypoint", "Add Waypoint", "add", "Lay a waypoint here", "", kNeedsPlaces,
     [](Context& c) { Enter(c, c.view.last_click); }},
};

}  // namespace

std::span<const Command> WaypointCommands() { return kCommands; }

}  // namespace skerrow
