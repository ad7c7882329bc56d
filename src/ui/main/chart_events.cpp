#include "ui/main/chart_events.h"

#include <QKeyEvent>

#include "app/edits.h"
#include "ui/main/chart_controller.h"
#include "ui/main/menus.h"
#include "ui/main/mob_controller.h"
#include "ui/main/route_controller.h"
#include "ui/overlays/live_overlays.h"

namespace skerrow {
namespace {

// The published code of a key, as the key table counts them; 0 for keys it does not know.
int KeyCodeOf(const QKeyEvent& event) {
  struct Code {
    int key;
    int code;
  };
  static constexpr Code kCodes[] = {
      {Qt::Key_Backspace, 8}, {Qt::Key_Return, 13}, {Qt::Key_Enter, 13},
      {Qt::Key_Escape, 27},   {Qt::Key_PageUp, 33}, {Qt::Key_PageDown, 34},
      {Qt::Key_Home, 36},     {Qt::Key_Left, 37},   {Qt::Key_Up, 38},
      {Qt::Key_Right, 39},    {Qt::Key_Down, 40},   {Qt::Key_Insert, 45},
      {Qt::Key_Delete, 46},   {Qt::Key_Plus, 107},  {Qt::Key_NumberSign, 222},
  };
  for (const Code& row : kCodes) {
    if (row.key == event.key()) return row.code;
  }
  // With Shift, on boards that still tell of it as "=", it zooms in as the key I does.
  if (event.key() == Qt::Key_Equal) {
    return event.modifiers().testFlag(Qt::ShiftModifier) ? 73 : 187;
  }
  if (event.key() == Qt::Key_Minus) {
    return event.modifiers().testFlag(Qt::KeypadModifier) ? 109 : 189;
  }
  if (event.key() >= Qt::Key_F1 && event.key() <= Qt::Key_F12) {
    return 112 + event.key() - Qt::Key_F1;
  }
  if ((event.key() >= Qt::Key_0 && event.key() <= Qt::Key_9) ||
      (event.key() >= Qt::Key_A && event.key() <= Qt::Key_Z)) {
    return event.key();
  }
  return 0;
}

}  // namespace

ChartEvents::ChartEvents(Desktop& desktop, ChartViewer& viewer, ChartController& chart,
                         RouteController& route, MobController& mob)
    : desktop_(desktop),
      viewer_(viewer),
      chart_(chart),
      route_(route),
      mob_(mob),
      mouse_(desktop.program, desktop.view, desktop.messages, *this) {}

bool ChartEvents::MousePressed(const ViewerMouse& mouse) {
  ViewState& view = desktop_.view;
  if (view.busy || viewer_.image_height() < 1) return true;
  viewer_.setFocus();
  const std::optional<Position> place = chart_.PlaceAt(mouse.image);
  if (place) view.cursor = *place;
  menu_at_release_ = false;
  if (mouse.button == Qt::RightButton) {
    if (mouse_.RightButtonDrags()) return true;
    view.last_click = place;
    // With a marked waypoint the press may begin to drag it: the menu waits for the release.
    if (view.marked_kind == MarkedKind::kWaypoint) {
      menu_at_release_ = true;
    } else {
      emit MenuWanted(mouse.global);
    }
    return true;
  }
  if (mouse.button != Qt::LeftButton) return false;
  if (view.mob_pending && place) {
    mob_.SetAt(*place);
    return true;
  }
  if (view.rectangle_mode) {
    view.rectangle_dragging = true;
    return false;
  }
  const bool shift = mouse.modifiers.testFlag(Qt::ShiftModifier);
  if (place && mouse_.Press({true, false, shift})) {
    desktop_.window.Changed(kViewChanged);
    return true;
  }
  // A plain left button drags the chart.
  viewer_.SetMouseMode(ChartViewer::MouseMode::kPan);
  return false;
}

bool ChartEvents::MouseMoved(const ViewerMouse& mouse) {
  if (desktop_.view.busy) return true;
  if (viewer_.image_height() < 1) {
    chart_.GiveUp();
    return true;
  }
  const std::optional<Position> place = chart_.PlaceAt(mouse.image);
  if (!place) return false;
  mouse_.Move(*place,
              {mouse.buttons.testFlag(Qt::LeftButton), mouse.buttons.testFlag(Qt::RightButton),
               mouse.modifiers.testFlag(Qt::ShiftModifier)});
  if (mouse.buttons == Qt::NoButton) chart_.ChooseSubChart();
  if (LiveOverlaysShown(desktop_.program, desktop_.view)) viewer_.RedrawLive();
  return false;
}

bool ChartEvents::MouseReleased(const ViewerMouse& mouse) {
  if (desktop_.view.rectangle_mode || mouse.buttons != Qt::NoButton) return false;
  const bool dragged = mouse_.Release();
  viewer_.SetMouseMode(ChartViewer::MouseMode::kNone);
  viewer_.SetPointer(Qt::CrossCursor);
  if (menu_at_release_ && !dragged) emit MenuWanted(mouse.global);
  menu_at_release_ = false;
  return false;
}

// The second press of a double click is none of its own: with Shift it would lay a second point.
bool ChartEvents::DoubleClicked(const ViewerMouse& mouse) {
  if (desktop_.view.busy || viewer_.image_height() < 1) return true;
  const std::optional<Position> place = chart_.PlaceAt(mouse.image);
  if (mouse.button != Qt::LeftButton || !place) return true;
  desktop_.view.cursor = *place;
  if (mouse.modifiers.testFlag(Qt::ShiftModifier)) return true;
  desktop_.view.last_click = place;
  for (const std::string_view command : DoubleClickRows()) {
    emit CommandWanted(QString::fromUtf8(command.data(), static_cast<qsizetype>(command.size())));
  }
  return true;
}

bool ChartEvents::Wheel(const ViewerMouse& mouse, int angle) {
  if (desktop_.view.busy || viewer_.image_height() < 1) return true;
  viewer_.ZoomByWheel({mouse.at.x, mouse.at.y}, angle);
  if (const auto place = chart_.PlaceAt(viewer_.ViewToImage({mouse.at.x, mouse.at.y}))) {
    desktop_.view.cursor = *place;
  }
  return true;
}

bool ChartEvents::KeyPressed(QKeyEvent& event) {
  if (desktop_.view.busy || event.modifiers().testFlag(Qt::ControlModifier) ||
      event.modifiers().testFlag(Qt::AltModifier)) {
    return false;
  }
  const int code = KeyCodeOf(event);
  for (const KeyRow& row : KeyRows()) {
    if (code == 0 || row.key != code) continue;
    // With Shift the viewer scrolls by its own steps.
    if (row.shift == ShiftKey::kScrolls && event.modifiers().testFlag(Qt::ShiftModifier)) {
      return false;
    }
    emit CommandWanted(
        QString::fromUtf8(row.command.data(), static_cast<qsizetype>(row.command.size())));
    return true;
  }
  return false;
}

void ChartEvents::SetPointer(Pointer pointer) {
  switch (pointer) {
    case Pointer::kCross:
      return viewer_.SetPointer(Qt::CrossCursor);
    case Pointer::kMove:
      return viewer_.SetPointer(Qt::ClosedHandCursor);
    case Pointer::kHand:
      return viewer_.SetPointer(Qt::OpenHandCursor);
    case Pointer::kPointing:
      return viewer_.SetPointer(Qt::PointingHandCursor);
  }
}

void ChartEvents::RouteMoving() {
  if (!desktop_.program.passage.route_track.empty()) ForgetCalculation(desktop_.program);
  desktop_.window.Changed(kRouteChanged);
}

void ChartEvents::RouteEdited(const char* name, RouteState before) {
  FinishRouteEdit(desktop_.program, desktop_.messages, name, std::move(before));
  desktop_.window.Changed(kRouteChanged | kViewChanged);
}

void ChartEvents::EnterWaypoint(Position place) { route_.EnterWaypoint(place); }

void ChartEvents::WaypointMoved() { KeepMovedWaypoints(desktop_.program, desktop_.messages); }

}  // namespace skerrow
