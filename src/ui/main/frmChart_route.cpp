#include "core/plane_sailing.h"
#include "core/text.h"
#include "passage/route_calculation.h"
#include "ui/dialogs/frmRouteOptDeparture.h"
#include "ui/dialogs/frmcalcroute.h"
#include "ui/forms/file_forms.h"
#include "ui/main/frmChart.h"
#include "ui/main/readout.h"
#include "ui/routes/frmLoadWay.h"
#include "ui/routes/frmRouteLoad.h"
#include "ui/routes/frmRouteWayPoints.h"
#include "ui/routes/frmSingleWayPoint.h"
#include "ui/routes/leaving.h"
#include "ui/widgets/qt_text.h"

// The main window's route: editing, calculation, results, and the time that goes with them.
namespace skerrow {

void FrmChart::RouteMoving() {
  if (!program().passage.route_track.empty()) ForgetCalculation(program());
  Changed(kAllChanged);
}

void FrmChart::RouteEdited(const char* name, RouteState before) {
  FinishRouteEdit(program(), messages(), name, std::move(before));
  Changed(kAllChanged);
}

void FrmChart::EnterWaypoint(Position place) { EnterWaypointByMouse(desktop_, place, this); }

void FrmChart::ClearMark() {
  view_.mouse_mode = MouseMode::kRouteCreation;
  view_.marked_point_on = false;
  view_.marked_kind = MarkedKind::kNothing;
  Changed(kAllChanged);
}

void FrmChart::InsertPoint() {
  if (AskInsertRoutePoint(program(), messages(), view_.cursor)) ClearMark();
}

void FrmChart::DeleteMarked() {
  bool deleted = false;
  if (view_.marked_kind == MarkedKind::kWaypoint) {
    deleted = AskDeleteWaypoint(program(), messages(), view_.marked);
  } else if (!program().route.points.empty()) {
    deleted = AskDeleteRoutePoint(program(), messages(),
                                  view_.marked_point_on ? view_.marked : view_.cursor);
  }
  if (deleted) ClearMark();
}

void FrmChart::ClearTheRoute() {
  if (!MayClearRoute(desktop_, this)) return;
  Program& p = program();
  EditRoute(desktop_, "Clear Route", [&](RouteState& route) { ClearRoute(route); });
  RouteIsSaved(program(), messages(), "");
  StopAnimation();
  p.passage.result_lines.clear();
  view_.route_drag_on = false;
  view_.snap_to_waypoint = false;
  view_.snap_active = false;
  view_.dividers_on = false;
  view_.zero_point.reset();
  view_.divider_end.reset();
  view_.route_entry_on = false;
  view_.last_click.reset();
  RestoreTime(p);
  ShowDividersText();
  ClearMark();
}

// The first stage takes a calculated track off the chart, the second resets everything.
void FrmChart::Escape() {
  Program& p = program();
  if (view_.calculation_on_show) {
    StopAnimation();
    ForgetCalculation(p);
    view_.calculation_on_show = false;
    Changed(kAllChanged);
    return;
  }
  EditRoute(desktop_, "Clear Route", [&](RouteState& route) { ClearRoute(route); });
  StopAnimation();
  view_.last_click.reset();
  view_.route_entry_on = false;
  view_.mouse_mode = MouseMode::kRouteCreation;
  view_.dividers_on = false;
  view_.route_drag_on = false;
  view_.zero_point.reset();
  view_.divider_end.reset();
  view_.marked_point_on = false;
  view_.marked_kind = MarkedKind::kNothing;
  view_.candidate_chart.reset();
  if (view_.rectangle_mode) ToggleRectangle();
  p.working_wind = p.wind_config.Default();
  p.selected_time.override_ = false;
  ReturnToRealtime(p, messages());
  ShowDividersText();
  Changed(kAllChanged);
}

void FrmChart::ToggleDividers() {
  view_.dividers_on = !view_.dividers_on;
  view_.route_drag_on = false;
  view_.divider_end.reset();
  if (view_.dividers_on) view_.zero_point.reset();
  ShowDividersText();
  if (view_.dividers_on) dividers_->setText("No reference pt");
  Changed(kAllChanged);
}

void FrmChart::ToggleRouteDrag() {
  view_.route_drag_on = !view_.route_drag_on;
  view_.drag_armed = false;
  if (!view_.route_drag_on) SetPointer(Pointer::kCross);
  Changed(kAllChanged);
}

void FrmChart::ToggleSnap() {
  view_.snap_to_waypoint = !view_.snap_to_waypoint;
  view_.snap_active = false;
  SetPointer(Pointer::kCross);
  Changed(kAllChanged);
}

void FrmChart::ToggleWaypointEntry() {
  view_.mouse_mode = view_.mouse_mode == MouseMode::kWaypointEntry ? MouseMode::kRouteCreation
                                                                   : MouseMode::kWaypointEntry;
  Changed(kAllChanged);
}

void FrmChart::ToggleMob() {
  constexpr std::string_view kTitle = "MAN OVERBOARD";
  if (program().mob.on) {
    if (!messages().Ask("Cancel Man Overboard?", kTitle)) return;
    program().mob.on = false;
  } else {
    if (!messages().Ask("Activate Man Overboard?", kTitle)) return;
    // Without a fix the boat is where the user last pointed, which is better than nowhere.
    program().mob.position = program().boat.HasPosition() ? program().boat.position : view_.cursor;
    program().mob.on = true;
  }
  Changed(kAllChanged);
}

void FrmChart::RouteByWaypointList() {
  if (FrmRouteWayPoints(desktop_, this).exec() == QDialog::Accepted) {
    listed_route_ = program().route;
  }
  Changed(kAllChanged);
}

void FrmChart::CalculateRouteDialog() {
  view_.route_drag_on = false;
  FrmCalcRoute(desktop_, this).exec();
  view_.calculation_on_show = !program().passage.route_track.empty();
  DropAnimation();
  Changed(kAllChanged);
}

void FrmChart::OptimiseDialog() {
  view_.route_drag_on = false;
  FrmRouteOptDeparture(desktop_, this).exec();
  view_.calculation_on_show = !program().passage.route_track.empty();
  DropAnimation();
  Changed(kAllChanged);
}

void FrmChart::Animate(AnimationDirection direction) {
  Program& p = program();
  if (p.passage.route_track.empty()) return;
  LeaveClock(p);
  const std::size_t end = p.passage.route_track.size() - 1;
  p.animation.direction = direction;
  if (direction == AnimationDirection::kForward) {
    if (p.animation.index >= end) p.animation.index = 0;
  } else if (p.animation.index == 0) {
    p.animation.index = end;
  }
  p.animation.running = true;
  animate_timer_.start();
  UpdateActions();
}

void FrmChart::PauseAnimation() {
  Animation& animation = program().animation;
  if (animate_timer_.isActive()) {
    animate_timer_.stop();
  } else if (!animation.label.empty() || animation.running) {
    animation.running = true;
    animate_timer_.start();
  }
  UpdateActions();
}

void FrmChart::DropAnimation() {
  animate_timer_.stop();
  program().animation = {};
  eta_.clear();
}

void FrmChart::ExitAnimation() {
  StopAnimation();
  // A roll of the tides remembers the time too, and this is the way back from it.
  RestoreTime(program());
  Changed(kAllChanged);
}

void FrmChart::StopAnimation() {
  Program& p = program();
  const bool was_on = p.animation.running || !p.animation.label.empty();
  DropAnimation();
  if (was_on) RestoreTime(p);
  UpdateStatusBar();
  UpdateCaption();
  UpdateActions();
  Repaint();
}

// Solves a result on show anew for the time rolled to. False when the user stopped it.
bool FrmChart::ReworkResult() {
  Program& p = program();
  if (p.passage.calc_mode != 1 || p.passage.route_track.empty()) return true;
  RouteRequest request;
  request.hours = p.selected_time.hours;
  request.date = p.selected_time.Day();
  request.use_leeway = p.use_leeway;
  request.leeway_text = p.passage.leeway_text;
  const std::unique_ptr<Progress> progress = StartProgress("Reworking the route");
  const RouteOutcome outcome =
      ReworkRoute(request, p.config, p.tides, p.route, p.passage, *progress);
  if (outcome == RouteOutcome::kDone) view_.calculation_on_show = true;
  return outcome != RouteOutcome::kCancelled;
}

void FrmChart::RollTheTides(Roll roll) {
  DropAnimation();
  RollTides(program(), roll);
  ReworkResult();
  Changed(kAllChanged);
}

void FrmChart::NearestTrackPoint() {
  Program& p = program();
  float best = 25000.0F;
  for (std::size_t i = 0; i < p.passage.route_track.size(); ++i) {
    const float range = RangeOnly(view_.cursor, p.passage.route_track[i].position);
    if (range < best) {
      best = range;
      p.animation.index = i;
    }
  }
  if (p.passage.route_track.empty()) return;
  ShowTrackPoint(p, *this);
  UpdateCaption();
}

void FrmChart::ToRealtime() {
  DropAnimation();
  ReturnToRealtime(program(), messages());
  Changed(kAllChanged);
}

void FrmChart::OpenFile(const std::string& path) {
  const std::string kind = ToLowerAscii(path.substr(std::min(path.size(), path.rfind('.'))));
  if (kind == ".rte") {
    const Status loaded = LoadRouteFile(program(), messages(), path, RouteSpeeds::kStored);
    if (!loaded) messages().Show(loaded.error().Text(), MessageIcon::kWarning, kProgramTitle);
  } else if (kind == ".way") {
    const Status opened = OpenWaypointFile(desktop_, path);
    if (!opened) messages().Show(opened.error().Text(), MessageIcon::kWarning, kProgramTitle);
  } else if (kind == ".cht" || kind == ".l55") {
    OpenRecentChart(path.substr(0, path.rfind('.')) + ".cht");
  } else {
    messages().Show(path + ": this is no route, waypoint or chart file", MessageIcon::kWarning,
                    kProgramTitle);
  }
  Changed(kAllChanged);
}

void FrmChart::ShowTools() {
  view_.tools_shown = true;
  UpdateActions();
}

}  // namespace skerrow
