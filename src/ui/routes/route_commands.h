#pragma once

#include <type_traits>
#include <utility>

#include "core/position.h"
#include "routes/route_editing.h"
#include "ui/desktop.h"
#include "ui/routes/unsaved.h"

// Every change of the route by the user goes through here: it can be taken back by its name, drops
// the results of a calculation, is kept for recovery, and shows in the main window.
namespace skerrow {

// Closes an edit that began when the route was `before`, as a drag does at its release. An edit
// that has changed nothing is forgotten, and the route keeps its results. Whether it changed.
bool FinishRouteEdit(Desktop& desktop, EditSession& session, const char* name, RouteState before);

// The same for a change that keeps its own results, such as a calculation that moves a point.
bool RememberRouteEdit(Desktop& desktop, EditSession& session, const char* name,
                       const RouteState& before);

// Runs `edit` on the route as the edit `name`, and gives what it gives.
template <typename Edit>
auto EditRoute(Desktop& desktop, EditSession& session, const char* name, Edit edit) {
  RouteState before = desktop.program.route;
  if constexpr (std::is_void_v<std::invoke_result_t<Edit, RouteState&>>) {
    edit(desktop.program.route);
    FinishRouteEdit(desktop, session, name, std::move(before));
  } else {
    auto outcome = edit(desktop.program.route);
    FinishRouteEdit(desktop, session, name, std::move(before));
    return outcome;
  }
}

// Takes the last edit back, or makes the last one taken back again. False when there is none.
bool UndoRouteEdit(Desktop& desktop, EditSession& session);
bool RedoRouteEdit(Desktop& desktop, EditSession& session);

// The route is now as a file has it: no recovery, nothing unsaved.
void RouteIsSaved(Desktop& desktop, EditSession& session);

// At the release of a dragged waypoint: keeps the moved waypoints for recovery, as rows of the
// current file that are being edited. Forgets what was kept when they are saved.
void KeepMovedWaypoints(Desktop& desktop, EditSession& session);

// The keys Insert and Delete: the question, then the edit at `position`, then the normal mouse
// mode. False after a No, or when nothing was changed.
bool AskInsertRoutePoint(Desktop& desktop, EditSession& session, Position position);
bool AskDeleteRoutePoint(Desktop& desktop, EditSession& session, Position position);

// The key Delete on a marked waypoint: the question, then the waypoint nearest to `position` goes
// from the current file, which is loaded again.
bool AskDeleteWaypoint(Desktop& desktop, Position position);

}  // namespace skerrow
