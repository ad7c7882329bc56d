#include "app/edits.h"

#include <string>

#include "app/recovery.h"
#include "core/text.h"

namespace skerrow {
namespace {

// Says once in a run that work cannot be kept.
void TellFault(Program& program, Messages& messages, const Status& kept) {
  if (kept || program.edits.recovery_fault_told) return;
  program.edits.recovery_fault_told = true;
  messages.Show("Unsaved work cannot be kept for recovery. " + kept.error().Text(),
                MessageIcon::kWarning);
}

void KeepForRecovery(Program& program, Messages& messages) {
  if (!RouteUnsaved(program)) {
    // One that cannot be deleted is offered back at the next start, which does no harm.
    (void)DropRouteRecovery(program.folders);
    return;
  }
  TellFault(program, messages, KeepRoute(program.folders, program.route));
}

// A step back or forth through the edits.
bool StepThroughEdits(Program& program, Messages& messages,
                      RouteHistory::Moved (RouteHistory::*step)(RouteState&, TimeInForce&)) {
  TimeInForce time{program.selected_time, program.saved_time};
  const RouteHistory::Moved moved = (program.edits.history.*step)(program.route, time);
  if (moved == RouteHistory::Moved::kNothing) return false;
  // The step may lead back behind a load: which file the route belongs to is no longer sure, and a
  // save must not go over another route's file.
  program.edits.route_path.clear();
  RouteReplaced(program, messages);
  if (moved == RouteHistory::Moved::kRouteAndTime) {
    program.selected_time = time.selected;
    program.saved_time = time.saved;
    TimeMoved(program);
  }
  return true;
}

// What the two keys do when the question has been answered.
bool EditAt(Program& program, Messages& messages, const char* name, Position position,
            RouteEdit (*edit)(RouteState&, Position, const RouteDefaults&, Messages&)) {
  const RouteEdit outcome = EditRoute(program, messages, name, [&](RouteState& route) {
    return edit(route, position, RouteDefaultsOf(program), messages);
  });
  if (const std::string_view text = RouteEditText(outcome); !text.empty()) {
    messages.Show(text, MessageIcon::kWarning);
  }
  return outcome == RouteEdit::kDone || outcome == RouteEdit::kDoneAnomalous;
}

}  // namespace

void RouteReplaced(Program& program, Messages& messages) {
  // A route that begins anew belongs to no file yet.
  if (program.route.points.empty()) program.edits.route_path.clear();
  ForgetCalculation(program);
  KeepForRecovery(program, messages);
}

bool FinishRouteEdit(Program& program, Messages& messages, const char* name, RouteState before,
                     std::optional<TimeInForce> time_before) {
  if (SameRoute(before, program.route)) {
    program.route = std::move(before);
    return false;
  }
  program.edits.history.Remember(name, before, time_before);
  RouteReplaced(program, messages);
  return true;
}

bool RememberRouteEdit(Program& program, Messages& messages, const char* name,
                       const RouteState& before) {
  if (SameRoute(before, program.route)) return false;
  program.edits.history.Remember(name, before);
  KeepForRecovery(program, messages);
  return true;
}

bool UndoRouteEdit(Program& program, Messages& messages) {
  return StepThroughEdits(program, messages, &RouteHistory::Undo);
}

bool RedoRouteEdit(Program& program, Messages& messages) {
  return StepThroughEdits(program, messages, &RouteHistory::Redo);
}

Status LoadRouteFile(Program& program, Messages& messages, const std::string& path,
                     RouteSpeeds speeds) {
  Status loaded = EditRoute(program, messages, "Load Route", [&](RouteState& route) {
    return LoadRoute(path, speeds, RouteDefaultsOf(program), route, messages);
  });
  if (loaded || program.route.points.empty()) {
    RouteIsSaved(program, messages, loaded ? path : std::string());
  }
  return loaded;
}

void RouteIsSaved(Program& program, Messages& messages, const std::string& path) {
  program.edits.saved_route.Mark(program.route);
  program.edits.route_path = path;
  KeepForRecovery(program, messages);
}

bool RouteUnsaved(const Program& program) {
  return program.edits.saved_route.Differs(program.route);
}

bool WaypointsUnsaved(const Program& program) {
  if (program.waypoints.waypoints.empty()) return false;
  const std::string content = WaypointContent(program.waypoints);
  if (content == program.edits.saved_waypoints) return false;
  const Result<std::vector<Waypoint>> stored =
      ReadWaypointFile(WaypointPath(program.folders, program.config.waypoint_file));
  return !stored || WaypointContent({stored.value()}) != content;
}

void KeepMovedWaypoints(Program& program, Messages& messages) {
  const std::string path =
      WaypointRecoveryPath(program.folders, Trim(program.config.waypoint_file));
  if (!WaypointsUnsaved(program)) {
    (void)DeleteFile(path);
    return;
  }
  TellFault(program, messages, WriteWaypointFile(path, program.waypoints.waypoints));
}

Status AppendAndReload(Program& program, Messages& messages, const Waypoint& waypoint) {
  Status done = AppendWaypoint(program.folders, program.config, waypoint);
  if (!done) return done;
  return LoadCurrentWaypoints(program.folders, program.config, program.waypoints, messages);
}

bool AskInsertRoutePoint(Program& program, Messages& messages, Position position) {
  if (!messages.Ask(kInsertRoutePointQuestion.text, kInsertRoutePointQuestion.title)) return false;
  return EditAt(program, messages, "Insert Route Point", position, InsertRoutePoint);
}

bool AskDeleteRoutePoint(Program& program, Messages& messages, Position position) {
  if (!messages.Ask(kDeleteRoutePointQuestion.text, kDeleteRoutePointQuestion.title)) return false;
  return EditAt(program, messages, "Delete Route Point", position, DeleteRoutePoint);
}

bool AskDeleteWaypoint(Program& program, Messages& messages, Position position) {
  if (!messages.Ask(kDeleteWaypointQuestion.text, kDeleteWaypointQuestion.title)) return false;
  Status done = DeleteNearestWaypoint(program.folders, program.config, program.waypoints, position);
  if (done) {
    done = LoadCurrentWaypoints(program.folders, program.config, program.waypoints, messages);
  }
  if (!done) messages.Show(done.error().Text(), MessageIcon::kWarning);
  return done.ok();
}

}  // namespace skerrow
