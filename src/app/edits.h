#pragma once

#include <optional>
#include <string>
#include <type_traits>
#include <utility>

#include "app/program.h"
#include "core/messages.h"
#include "core/position.h"
#include "routes/route_editing.h"

// Every change of the route and of waypoints by the user goes through here: a route edit can be
// taken back by its name and drops the results of a calculation, and all unsaved work is kept for
// recovery.
namespace skerrow {

// Closes an edit that began when the route was `before`, as a drag does at its release, and when
// the time was `time_before`, where the edit moves that too. An edit that has changed nothing is
// forgotten, and the route keeps its results. Whether it changed.
bool FinishRouteEdit(Program& program, Messages& messages, const char* name, RouteState before,
                     std::optional<TimeInForce> time_before = std::nullopt);

// The same for a change that keeps its own results, such as a calculation that moves a point.
bool RememberRouteEdit(Program& program, Messages& messages, const char* name,
                       const RouteState& before);

// Runs `edit` on the route as the edit `name`, and gives what it gives.
template <typename Edit>
auto EditRoute(Program& program, Messages& messages, const char* name, Edit edit) {
  RouteState before = program.route;
  if constexpr (std::is_void_v<std::invoke_result_t<Edit, RouteState&>>) {
    edit(program.route);
    FinishRouteEdit(program, messages, name, std::move(before));
  } else {
    auto outcome = edit(program.route);
    FinishRouteEdit(program, messages, name, std::move(before));
    return outcome;
  }
}

// The route is another one: results go, and what is unsaved is kept for recovery.
void RouteReplaced(Program& program, Messages& messages);

// Takes the last edit back, or makes the last one taken back again. The tides follow a time that
// came with it. False when there is none.
bool UndoRouteEdit(Program& program, Messages& messages);
bool RedoRouteEdit(Program& program, Messages& messages);

// Opens the route of a file as the edit "Load Route"; it is saved work afterwards. An error leaves
// the route as it was, but for a file without entries, which empties it.
Status LoadRouteFile(Program& program, Messages& messages, const std::string& path,
                     RouteSpeeds speeds);

// The route is now as the file `path` has it: no recovery, nothing unsaved. An empty path: it is in
// no file, and nothing of it would be missed.
void RouteIsSaved(Program& program, Messages& messages, const std::string& path);

// Whether the route would be lost with the program.
bool RouteUnsaved(const Program& program);

// Whether waypoints of the table have been moved and are neither in the current file nor in the
// file last saved.
bool WaypointsUnsaved(const Program& program);

// At the release of a dragged waypoint: keeps the moved waypoints for recovery, as rows of the
// current file that are being edited. Forgets what was kept when they are saved.
void KeepMovedWaypoints(Program& program, Messages& messages);

// Appends a waypoint to the current file and loads the file again.
Status AppendAndReload(Program& program, Messages& messages, const Waypoint& waypoint);

// The keys Insert and Delete: the question, then the edit at `position`. False after a No, or when
// nothing was changed.
bool AskInsertRoutePoint(Program& program, Messages& messages, Position position);
bool AskDeleteRoutePoint(Program& program, Messages& messages, Position position);

// The key Delete on a marked waypoint: the question, then the waypoint nearest to `position` goes
// from the current file, which is loaded again.
bool AskDeleteWaypoint(Program& program, Messages& messages, Position position);

}  // namespace skerrow
