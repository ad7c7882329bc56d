#pragma once

#include <functional>
#include <optional>

#include "app/program.h"
#include "routes/route_history.h"
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
  virtual void RouteEdited() = 0;
  // Asks for the name of a waypoint laid by mouse; empty ends that mode.
  virtual std::string AskWaypointName() = 0;
  virtual void WaypointLaid(const std::string& name, Position place) = 0;
};

struct MouseButtons {
  bool left = false;
  bool right = false;
  bool shift = false;
};

class ChartMouse {
 public:
  ChartMouse(Program& program, ViewState& view, RouteHistory& history, Messages& messages,
             ChartMouseHost& host)
      : program_(program), view_(view), history_(history), messages_(messages), host_(host) {}

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
  RouteHistory& history_;
  Messages& messages_;
  ChartMouseHost& host_;
  bool dragging_ = false;  // the point in reach is being dragged
};

}  // namespace skerrow
