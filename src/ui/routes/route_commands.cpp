#include "ui/routes/route_commands.h"

#include <string>

#include "core/text.h"
#include "ui/routes/recovery.h"

namespace skerrow {
namespace {

// Says once in a run that work cannot be kept.
void TellFault(Desktop& desktop, EditSession& session, const Status& kept) {
  if (kept || session.recovery_fault_told) return;
  session.recovery_fault_told = true;
  desktop.messages.Show("Unsaved work cannot be kept for recovery. " + kept.error().Text(),
                        MessageIcon::kWarning);
}

void KeepForRecovery(Desktop& desktop, EditSession& session) {
  const Program& program = desktop.program;
  if (!session.saved_route.Differs(program.route)) {
    // One that cannot be deleted is offered back at the next start, which does no harm.
    (void)DropRouteRecovery(program.folders);
    return;
  }
  TellFault(desktop, session, KeepRoute(program.folders, program.route));
}

void RouteReplaced(Desktop& desktop, EditSession& session) {
  ForgetCalculation(desktop.program);
  desktop.window.StateChanged();
  KeepForRecovery(desktop, session);
}

// What the two keys do when the question has been answered.
bool EditAt(Desktop& desktop, EditSession& session, const char* name, Position position,
            RouteEdit (*edit)(RouteState&, Position, const RouteDefaults&, Messages&)) {
  const RouteEdit outcome = EditRoute(desktop, session, name, [&](RouteState& route) {
    return edit(route, position, RouteDefaultsOf(desktop.program), desktop.messages);
  });
  if (const std::string_view text = RouteEditText(outcome); !text.empty()) {
    desktop.messages.Show(text, MessageIcon::kWarning);
  }
  if (outcome != RouteEdit::kDone && outcome != RouteEdit::kDoneAnomalous) return false;
  desktop.program.mouse_mode = MouseMode::kRouteCreation;
  desktop.window.UpdateStatusBar();
  return true;
}

}  // namespace

bool FinishRouteEdit(Desktop& desktop, EditSession& session, const char* name, RouteState before) {
  if (SameRoute(before, desktop.program.route)) {
    desktop.program.route = std::move(before);
    return false;
  }
  session.history.Remember(name, before);
  RouteReplaced(desktop, session);
  return true;
}

bool RememberRouteEdit(Desktop& desktop, EditSession& session, const char* name,
                       const RouteState& before) {
  if (SameRoute(before, desktop.program.route)) return false;
  session.history.Remember(name, before);
  KeepForRecovery(desktop, session);
  return true;
}

bool UndoRouteEdit(Desktop& desktop, EditSession& session) {
  if (!session.history.Undo(desktop.program.route)) return false;
  RouteReplaced(desktop, session);
  return true;
}

bool RedoRouteEdit(Desktop& desktop, EditSession& session) {
  if (!session.history.Redo(desktop.program.route)) return false;
  RouteReplaced(desktop, session);
  return true;
}

void RouteIsSaved(Desktop& desktop, EditSession& session) {
  session.saved_route.Mark(desktop.program.route);
  KeepForRecovery(desktop, session);
}

void KeepMovedWaypoints(Desktop& desktop, EditSession& session) {
  const Program& program = desktop.program;
  const std::string path =
      WaypointRecoveryPath(program.folders, Trim(program.config.waypoint_file));
  if (!WaypointsUnsaved(program, session)) {
    (void)DeleteFile(path);
    return;
  }
  TellFault(desktop, session, WriteWaypointFile(path, program.waypoints.waypoints));
}

bool AskInsertRoutePoint(Desktop& desktop, EditSession& session, Position position) {
  if (!desktop.messages.Ask(kInsertRoutePointQuestion.text, kInsertRoutePointQuestion.title)) {
    return false;
  }
  return EditAt(desktop, session, "Insert Route Point", position, InsertRoutePoint);
}

bool AskDeleteRoutePoint(Desktop& desktop, EditSession& session, Position position) {
  if (!desktop.messages.Ask(kDeleteRoutePointQuestion.text, kDeleteRoutePointQuestion.title)) {
    return false;
  }
  return EditAt(desktop, session, "Delete Route Point", position, DeleteRoutePoint);
}

bool AskDeleteWaypoint(Desktop& desktop, Position position) {
  if (!desktop.messages.Ask(kDeleteWaypointQuestion.text, kDeleteWaypointQuestion.title)) {
    return false;
  }
  Program& program = desktop.program;
  Status done = DeleteNearestWaypoint(program.folders, program.config, program.waypoints, position);
  if (done) {
    done =
        LoadCurrentWaypoints(program.folders, program.config, program.waypoints, desktop.messages);
  }
  if (!done) desktop.messages.Show(done.error().Text(), MessageIcon::kWarning);
  desktop.window.StateChanged();
  return done.ok();
}

}  // namespace skerrow
