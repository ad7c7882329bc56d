#include "ui/main/chart_mouse.h"

#include <utility>

#include "routes/route_editing.h"
#include "routes/waypoint.h"

namespace skerrow {

void ChartMouse::Move(Position place, MouseButtons buttons) {
  view_.cursor = place;
  view_.dividers_fresh = false;
  if (!buttons.left && !buttons.right && !view_.dividers_on) host_.ShowCursorReadout();
  if (view_.snap_to_waypoint) FollowSnap();
  if (view_.route_drag_on) {
    FollowDrag(buttons);
  } else if (buttons.right && view_.marked_kind == MarkedKind::kWaypoint) {
    DragWaypoint(program_.waypoints, static_cast<std::size_t>(view_.marked_waypoint - 1), place);
    view_.marked = place;
    dragging_ = true;
    host_.ShowCursorReadout();
    host_.Redraw();
  }
  if (view_.dividers_on && !view_.route_drag_on) {
    host_.ShowCursorReadout();
    host_.ShowDividersText();
  }
}

void ChartMouse::FollowSnap() {
  const std::optional<Nearest> nearest =
      NearestWaypoint(program_.waypoints.waypoints, view_.cursor, program_.config.search_circle);
  view_.snap_active = nearest.has_value();
  if (!nearest) {
    host_.SetPointer(Pointer::kCross);
    return;
  }
  const Waypoint& waypoint = program_.waypoints.waypoints[nearest->index];
  view_.snap = waypoint.At();
  view_.snap_name = waypoint.name;
  host_.SetPointer(Pointer::kPointing);
}

void ChartMouse::FollowDrag(MouseButtons buttons) {
  if (!buttons.left && !buttons.right) {
    const std::optional<std::size_t> candidate = DragCandidate(program_.route, view_.cursor);
    view_.drag_armed = candidate.has_value();
    view_.drag_index = candidate ? static_cast<std::int16_t>(*candidate + 1) : std::int16_t{0};
    host_.SetPointer(candidate ? Pointer::kHand : Pointer::kCross);
    return;
  }
  if (!buttons.right || !view_.drag_armed) return;
  if (!dragging_) before_drag_ = program_.route;
  dragging_ = true;
  DragRoutePoint(program_.route, static_cast<std::size_t>(view_.drag_index - 1), view_.cursor);
  host_.ShowCursorReadout();
  host_.RouteMoving();
}

bool ChartMouse::RightButtonDrags() const { return view_.route_drag_on && !view_.dividers_on; }

bool ChartMouse::Press(MouseButtons buttons) {
  if (!buttons.left) return buttons.right;
  if (view_.dividers_on) {
    if (buttons.shift) {
      view_.zero_point = view_.cursor;
      view_.divider_end.reset();
    } else {
      view_.divider_end = view_.cursor;
    }
    host_.ShowDividersText();
    host_.Redraw();
    // A plain click sets the end and may begin to drag the chart.
    return buttons.shift;
  }
  if (!buttons.shift) return false;
  host_.SetPointer(Pointer::kCross);
  if (view_.mouse_mode == MouseMode::kWaypointEntry) {
    host_.EnterWaypoint(view_.cursor);
  } else if (view_.mouse_mode == MouseMode::kRouteCreation) {
    AddRoutePointHere();
  }
  return true;
}

bool ChartMouse::Release() {
  if (!dragging_) return false;
  dragging_ = false;
  if (before_drag_) {
    FinishRouteDrag(program_.route, RouteDefaultsOf(program_), messages_);
    host_.RouteEdited("Drag Route Point", *std::exchange(before_drag_, std::nullopt));
  }
  view_.drag_armed = false;
  if (view_.marked_kind == MarkedKind::kWaypoint) {
    view_.marked_point_on = false;
    host_.WaypointMoved();
  }
  view_.marked_kind = MarkedKind::kNothing;
  host_.ModeChanged();
  return true;
}

void ChartMouse::AddRoutePointHere() {
  std::optional<RouteSnap> snap;
  if (view_.snap_active) snap = RouteSnap{view_.snap_name, view_.snap};
  RouteState before = program_.route;
  const RouteEdit outcome =
      AddRoutePoint(program_.route, view_.cursor, snap, RouteDefaultsOf(program_), messages_);
  if (outcome != RouteEdit::kDone) {
    messages_.Show(RouteEditText(outcome), MessageIcon::kWarning, kProgramTitle);
    return;
  }
  view_.last_click = program_.route.points.back().At();
  view_.route_entry_on = true;
  host_.RouteEdited("Add Route Point", std::move(before));
}

void ChartMouse::Mark() {
  const float circle = program_.config.search_circle;
  if (const auto waypoint = NearestWaypoint(program_.waypoints.waypoints, view_.cursor, circle)) {
    view_.marked_point_on = true;
    view_.marked_kind = MarkedKind::kWaypoint;
    view_.marked_waypoint = static_cast<std::int16_t>(waypoint->index + 1);
    view_.marked = program_.waypoints.waypoints[waypoint->index].At();
    view_.mouse_mode = MouseMode::kRouteCreation;
  } else if (const auto point = NearestRoutePoint(program_.route, view_.cursor, circle)) {
    view_.marked_point_on = true;
    view_.marked_kind = MarkedKind::kRoutePoint;
    view_.drag_index = static_cast<std::int16_t>(point->index + 1);
    view_.marked = program_.route.points[point->index].At();
    view_.mouse_mode = MouseMode::kPointMarked;
  }
  host_.ModeChanged();
}

}  // namespace skerrow
