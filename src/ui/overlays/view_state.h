#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "charts/chart_files.h"
#include "charts/chart_view.h"
#include "core/position.h"
#include "ui/drawing/look.h"

// What the chart window knows beside the program's state: where the mouse is, what is marked and
// what is being drawn.
namespace skerrow {

enum class MarkedKind : std::int16_t { kNothing = 0, kWaypoint = 1, kRoutePoint = 2 };

// What a left click on the chart means.
enum class MouseMode : std::int16_t {
  kStarting = 1,
  kWaypointEntry = 2,
  kRouteCreation = 3,
  kPointMarked = 7,
};

struct ViewState {
  MouseMode mouse_mode = MouseMode::kStarting;
  bool dividers_on = false;
  bool route_drag_on = false;

  // The look of the window.
  bool night = false;
  Brightness brightness;
  bool thumbnail_visible = true;
  bool tools_shown = false;
  // Every name over the chart, be there room for it or not.
  bool every_name = false;

  // A calculation runs; timers and commands wait.
  bool busy = false;
  // What is wrong with the instruments; empty when all is well.
  std::string link_status;
  // "ETA : " with the time along the track on show; empty without one.
  std::string eta;

  // The place under the mouse; 0, 0 before it has been over the chart.
  Position cursor;
  // Of the last right click or the last route point entered.
  std::optional<Position> last_click;
  // A route point has been entered since the last clear.
  bool route_entry_on = false;

  // The red ring, and what stands under it.
  bool marked_point_on = false;
  Position marked;
  MarkedKind marked_kind = MarkedKind::kNothing;
  std::int16_t marked_waypoint = 0;  // counted from 1

  // The two points of the dividers.
  std::optional<Position> zero_point;
  std::optional<Position> divider_end;
  // The dividers have been taken up and not been moved yet.
  bool dividers_fresh = false;

  // The vessels around stand on the chart, and the one that a window shows (MMSI; 0 for none).
  bool targets_shown = true;
  std::int32_t shown_target = 0;

  // The next click sets the man-overboard mark.
  bool mob_pending = false;

  // The zoom rectangle: asked for, and being drawn just now.
  bool rectangle_mode = false;
  bool rectangle_dragging = false;

  std::int16_t drag_index = 0;  // route point within reach of a drag, counted from 1
  bool drag_armed = false;

  bool snap_to_waypoint = false;
  bool snap_active = false;
  Position snap;
  std::string snap_name;

  // The diamond on show of those loaded from a chosen file, counted from 0, and what is told of it.
  std::optional<std::size_t> harvest_diamond;
  std::string harvest_text;

  // A calculated course is on show.
  bool calculation_on_show = false;
  // The chart that the chart chooser would open.
  std::optional<ChartIndexEntry> candidate_chart;

  // Height of the display at the start, view pixels: the boat symbol is drawn to this scale.
  double display_height = 1080.0;
};

// The look of what the window draws by itself.
inline Look LookOf(const ViewState& view) {
  return {view.night, view.night ? view.brightness.level : 100};
}

}  // namespace skerrow
