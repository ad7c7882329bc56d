#pragma once

#include <functional>
#include <optional>

#include "app/program.h"
#include "ui/overlays/view_state.h"

// What the mouse does on the chart, as a machine over the program's and the view's state: laying a
// route, marking and dragging, the dividers, snapping to waypoints. It knows no widget; what it
// wants of the window goes through ChartMouseHost.
namespace skerrow {

enum class Pointer { kCross, kMove, kHand, kPointing };

class ChartMouseHost {
 public:
  virtual ~ChartMouseHost() = default;
  virtual void SetPointer(Pointer pointer) = 0;
  virtual void Redraw() = 0;
  virtual void ShowCursorReadout() = 0;
  // The floating text beside the cursor follows it.
  virtual void ShowDividersText() = 0;
  // The mode or the marks have changed.
  virtual void ModeChanged() = 0;
  // The route is being changed by a drag that goes on.
  virtual void RouteMoving() = 0;
  // The edit `name` of the route, which was `before`, is complete.
  virtual void RouteEdited(const char* name, RouteState before) = 0;
  // A waypoint of the table has been dragged to another place.
  virtual void WaypointMoved() = 0;
  // A click in the waypoint mode: asks for a name and lays the waypoint, or leaves the mode.
  virtual void EnterWaypoint(Position place) = 0;
};

struct MouseButtons {
  bool left = false;
  bool right = false;
  bool shift = false;
};

class ChartMouse {
 public:
  ChartMouse(Program& program, ViewState& view, Messages& messages, ChartMouseHost& host)
      : program_(program), view_(view), messages_(messages), host_(host) {}

  // The cursor has come to `place`.
  void Move(Position place, MouseButtons buttons);
  // A button went down at the cursor. True when the event is dealt with; otherwise the left button
  // drags the chart.
  bool Press(MouseButtons buttons);
  // All buttons are up again. True when a drag of a route point or waypoint has ended.
  bool Release();
  // Whether the right button belongs to a drag, so that no menu is to be shown.
  bool RightButtonDrags() const;

  // AddRoutePoint at the cursor or, when it is snapped, on the waypoint.
  void AddRoutePointHere();
  // Marks the waypoint, or else the route point, within the search circle of the cursor.
  void Mark();

 private:
  void FollowSnap();
  void FollowDrag(MouseButtons buttons);

  Program& program_;
  ViewState& view_;
  Messages& messages_;
  ChartMouseHost& host_;
  bool dragging_ = false;  // a route point or waypoint is being dragged
  std::optional<RouteState> before_drag_;
};

}  // namespace skerrow
