#include "ui/main/route_controller.h"

#include "app/edits.h"
#include "app/situation.h"
#include "ui/dialogs/frmCalcCOG.h"
#include "ui/dialogs/frmCalcMOB.h"
#include "ui/dialogs/frmConfigure.h"
#include "ui/dialogs/frmRouteOptDeparture.h"
#include "ui/dialogs/frmcalcroute.h"
#include "ui/edits.h"
#include "ui/instruments/frmSingwayup.h"
#include "ui/main/chart_controller.h"
#include "ui/main/mob_controller.h"
#include "ui/main/time_controller.h"
#include "ui/routes/frmRouteEdit.h"
#include "ui/routes/frmRouteLoad.h"
#include "ui/routes/frmRouteSave.h"
#include "ui/routes/frmRouteWayPoints.h"
#include "ui/routes/frmSingleWayPoint.h"
#include "ui/routes/frmWayFileLocate.h"
#include "ui/routes/leaving.h"

namespace skerrow {

void RouteController::Load() {
  if (!MayLoseRoute(desktop_, &window_)) return;
  if (frmRouteLoad(desktop_, &window_).exec() == QDialog::Accepted) chart_.FitRoute();
  desktop_.window.Changed(kRouteChanged);
}

void RouteController::LoadFile(const std::string& path) {
  if (!MayLoseRoute(desktop_, &window_)) return;
  const Status loaded =
      LoadRouteFile(desktop_.program, desktop_.messages, path, RouteSpeeds::kStored);
  if (!loaded) {
    desktop_.messages.Show(loaded.error().Text(), MessageIcon::kWarning, kProgramTitle);
  } else {
    chart_.FitRoute();
  }
  desktop_.window.Changed(kRouteChanged);
}

void RouteController::OpenSample() {
  if (!MayLoseRoute(desktop_, &window_)) return;
  if (OpenSampleRoute(desktop_)) chart_.FitRoute();
}

void RouteController::Save() {
  Program& program = desktop_.program;
  const std::string path = program.edits.route_path;
  if (path.empty()) return SaveAs();
  const Status saved = SaveRoute(path, program.route, program.config.vessel_speed);
  if (!saved) {
    desktop_.messages.Show(saved.error().Text(), MessageIcon::kWarning);
    return;
  }
  RouteIsSaved(program, desktop_.messages, path);
  desktop_.window.Tell("Saved: " + path);
  desktop_.window.Changed(kRouteChanged);
}

void RouteController::SaveAs() {
  if (frmRouteSave(desktop_, &window_).exec() == QDialog::Accepted) {
    desktop_.window.Tell("Saved: " + desktop_.program.edits.route_path);
  }
  desktop_.window.Changed(kRouteChanged);
}

void RouteController::ClearMark() {
  ViewState& view = desktop_.view;
  view.mouse_mode = MouseMode::kRouteCreation;
  view.marked_point_on = false;
  view.marked_kind = MarkedKind::kNothing;
  desktop_.window.Changed(kRouteChanged | kViewChanged);
}

void RouteController::InsertPoint() {
  if (!chart_.HasPlaces()) return;
  if (AskInsertRoutePoint(desktop_.program, desktop_.messages, desktop_.view.cursor)) ClearMark();
}

void RouteController::DeleteMarked() {
  const ViewState& view = desktop_.view;
  bool deleted = false;
  if (view.marked_kind == MarkedKind::kWaypoint) {
    if (!MayLoseMovedWaypoints()) return;
    deleted = AskDeleteWaypoint(desktop_.program, desktop_.messages, view.marked);
    WaypointsRead();
  } else if (!desktop_.program.route.points.empty() && chart_.HasPlaces()) {
    deleted = AskDeleteRoutePoint(desktop_.program, desktop_.messages,
                                  view.marked_point_on ? view.marked : view.cursor);
  }
  if (deleted) ClearMark();
}

void RouteController::RemoveLastPoint() {
  EditRoute(desktop_, "Remove Route Point", [](RouteState& route) { RemoveLastRoutePoint(route); });
}

void RouteController::Reverse() {
  EditRoute(desktop_, "Reverse Route", [this](RouteState& route) {
    ReverseRoute(route, RouteDefaultsOf(desktop_.program), desktop_.messages);
  });
}

// Modes and marks as the program starts with them.
void RouteController::ResetModes() {
  ViewState& view = desktop_.view;
  view.route_drag_on = false;
  view.dividers_on = false;
  view.zero_point.reset();
  view.divider_end.reset();
  view.route_entry_on = false;
  view.last_click.reset();
  view.snap_active = false;
  view.calculation_on_show = false;
}

void RouteController::Clear() {
  if (!MayClearRoute(desktop_, &window_)) return;
  Program& p = desktop_.program;
  EditRoute(desktop_, "Clear Route", [](RouteState& route) { ClearRoute(route); });
  RouteIsSaved(p, desktop_.messages, "");
  time_.StopAnimation();
  p.passage.result_lines.clear();
  ResetModes();
  desktop_.view.snap_to_waypoint = false;
  RestoreTime(p);
  desktop_.window.Changed(kTimeChanged);
  ClearMark();
}

void RouteController::Undo() {
  UndoRouteEdit(desktop_.program, desktop_.messages);
  desktop_.window.Changed(kRouteChanged | kTimeChanged);
}

void RouteController::Redo() {
  RedoRouteEdit(desktop_.program, desktop_.messages);
  desktop_.window.Changed(kRouteChanged | kTimeChanged);
}

void RouteController::Escape() {
  if (mob_.GiveUpWaiting()) return;
  ViewState& view = desktop_.view;
  if (view.calculation_on_show) {
    time_.StopAnimation();
    ForgetCalculation(desktop_.program);
    view.calculation_on_show = false;
    desktop_.window.Changed(kRouteChanged);
    return;
  }
  time_.DropAnimation();
  time_.Release();
  ResetSituation(desktop_.program, desktop_.messages);
  ResetModes();
  view.candidate_chart.reset();
  if (view.rectangle_mode) chart_.ToggleRectangle();
  desktop_.window.Changed(kTimeChanged);
  ClearMark();
}

void RouteController::ByWaypointList() {
  if (frmRouteWayPoints(desktop_, &window_).exec() == QDialog::Accepted) {
    listed_route_ = desktop_.program.route;
    desktop_.program.edits.route_path.clear();
    chart_.FitRoute();
  }
  desktop_.window.Changed(kRouteChanged);
}

bool RouteController::Listed() const {
  return !desktop_.program.route.points.empty() && SameRoute(desktop_.program.route, listed_route_);
}

void RouteController::KeyboardEdit() {
  frmRouteEdit(desktop_, &window_).exec();
  desktop_.window.Changed(kRouteChanged);
}

template <typename Dialog, typename... Arguments>
void RouteController::Calculate(Arguments&&... arguments) {
  const Program& program = desktop_.program;
  desktop_.view.route_drag_on = false;
  const bool done =
      Dialog(desktop_, &window_, std::forward<Arguments>(arguments)...).exec() == QDialog::Accepted;
  desktop_.view.calculation_on_show = !program.passage.route_track.empty();
  time_.DropAnimation();
  desktop_.window.Changed(kRouteChanged | kTimeChanged);
  if (done && program.passage.calc_mode == kCalcModeDrift) chart_.ShowTrack();
  if (program.passage.calc_mode != 0) desktop_.window.Tell(program.passage.route_summary_text);
}

void RouteController::CalculateDialog() { Calculate<frmcalcroute>(); }

void RouteController::OptimiseDialog() { Calculate<frmRouteOptDeparture>(); }

void RouteController::CourseOverGroundDialog() {
  Calculate<frmCalcCOG>(
      [this](const UploadPoint& point) { frmSingwayup(desktop_, point, &window_).exec(); });
}

void RouteController::ManOverboardDialog() { Calculate<frmCalcMOB>(); }

void RouteController::SettingsDialog() {
  frmConfigure dialog(
      desktop_,
      [this] {
        desktop_.view.tools_shown = true;
        desktop_.window.Changed(kSettingsChanged);
      },
      &window_);
  dialog.exec();
  desktop_.window.Changed(kAllChanged);
}

void RouteController::ToggleDividers() {
  ViewState& view = desktop_.view;
  view.dividers_on = !view.dividers_on;
  view.route_drag_on = false;
  view.divider_end.reset();
  view.dividers_fresh = view.dividers_on;
  if (view.dividers_on) view.zero_point.reset();
  desktop_.window.Changed(kViewChanged);
}

void RouteController::ToggleRouteDrag() {
  ViewState& view = desktop_.view;
  view.route_drag_on = !view.route_drag_on;
  view.drag_armed = false;
  if (!view.route_drag_on) viewer_.SetPointer(Qt::CrossCursor);
  desktop_.window.Changed(kViewChanged);
}

void RouteController::ToggleSnap() {
  desktop_.view.snap_to_waypoint = !desktop_.view.snap_to_waypoint;
  desktop_.view.snap_active = false;
  viewer_.SetPointer(Qt::CrossCursor);
  desktop_.window.Changed(kViewChanged);
}

void RouteController::ToggleWaypointEntry() {
  ViewState& view = desktop_.view;
  view.mouse_mode = view.mouse_mode == MouseMode::kWaypointEntry ? MouseMode::kRouteCreation
                                                                 : MouseMode::kWaypointEntry;
  desktop_.window.Changed(kViewChanged);
}

bool RouteController::MayLoseMovedWaypoints() { return MayLoseWaypoints(desktop_, &window_); }

void RouteController::WaypointsRead() {
  KeepMovedWaypoints(desktop_.program, desktop_.messages);
  desktop_.window.Changed(kViewChanged);
}

void RouteController::GoToWaypoint() {
  frmWayFileLocate dialog(desktop_, &window_);
  if (dialog.exec() == QDialog::Accepted && dialog.picked()) chart_.GoTo(dialog.picked()->At());
}

void RouteController::EnterWaypoint(Position place) {
  WithWaypoints([&] { EnterWaypointByMouse(desktop_, place, &window_); });
}

}  // namespace skerrow
