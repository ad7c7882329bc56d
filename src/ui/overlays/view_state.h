#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "charts/chart_files.h"
#include "core/position.h"

// What the chart window knows beside the program's state: where the mouse is, what is marked and
// what is being drawn.
namespace skerrow {

enum class MarkedKind : std::int16_t { kNothing = 0, kWaypoint = 1, kRoutePoint = 2 };

// A recorded or entered position of a track, with the remark made there.
struct PlotPoint {
  Position position;
  std::string comment;
};
using PlotTrack = std::vector<PlotPoint>;

struct ViewState {
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

  // The two points of the dividers; Program::dividers_on tells whether they are in use.
  std::optional<Position> zero_point;
  std::optional<Position> divider_end;

  // The zoom rectangle: asked for, and being drawn just now.
  bool rectangle_mode = false;
  bool rectangle_dragging = false;

  std::int16_t drag_index = 0;  // route point within reach of a drag, counted from 1
  bool drag_armed = false;

  bool snap_to_waypoint = false;
  bool snap_active = false;
  Position snap;
  std::string snap_name;

  bool mob_on = false;
  Position mob;

  // Names show even where there is no room for them.
  bool every_name = false;

  // A calculated course is on show.
  bool calculation_on_show = false;
  // The chart that the chart chooser would open.
  std::optional<ChartIndexEntry> candidate_chart;

  // The boat; its position is Program::boat_latitude and boat_longitude.
  bool fix_valid = false;
  float course_over_ground = 0.0F;  // degrees true
  std::vector<Position> future_positions;

  // The vessel pointed out by the list of targets.
  std::optional<Position> ais_mark;

  bool track_plot_on = false;
  PlotTrack live_track;
  std::vector<PlotTrack> historical_tracks;

  // Height of the display at the start, view pixels: the boat symbol is drawn to this scale.
  double display_height = 1080.0;
};

}  // namespace skerrow
