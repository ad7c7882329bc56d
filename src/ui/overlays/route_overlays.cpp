#include "ui/overlays/route_overlays.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"

namespace skerrow {
namespace {

constexpr double kSelectedRadius = 6.0;
constexpr double kVectorEndRadius = 3.0;
constexpr double kLeastHead = 5.0;
constexpr double kMostHead = 12.0;

int LineWidthOf(const Program& program) {
  return static_cast<int>(std::clamp<std::int64_t>(
      RoundToInteger(static_cast<double>(program.config.line_width)), 1, 50));
}

void DrawRoutePoint(DrawingSurface& surface, const OverlayView& view, const Program& program,
                    std::size_t index) {
  const RoutePoint& point = program.route.points[index];
  const std::optional<SurfacePoint> place = view.Place(point.At());
  if (!place) return;
  std::string label = point.name;
  if (index == 0) {
    label = "Start";
  } else if (label.find_first_not_of(' ') == std::string::npos) {
    label = "Waypoint " + std::to_string(index);
  }
  if (view.Seen(*place, view.marker_radius)) {
    surface.SetPen(1, index == 0 ? kRed : kBlue);
    surface.Ring(*place, view.marker_radius);
  }
  DrawLabel(surface, view, *place, view.marker_radius, label, program.config.font_colour,
            index == 0 ? LabelSide::kLeft : LabelSide::kRight);
  if (kDrawInWind != nullptr && program.config.show_wind_over_route != 0) {
    kDrawInWind(surface, view, program, point.At(), {point.wind_direction, point.wind_speed});
  }
}

// The head and the end mark of a drift. The head follows the last part of the drift that is long
// enough to have a direction.
void DrawVectorEnd(DrawingSurface& surface, const std::vector<SurfacePoint>& points) {
  const SurfacePoint end = points.back();
  const auto distance = [&end](SurfacePoint from) {
    return std::hypot(end.x - from.x, end.y - from.y);
  };
  const double head = std::clamp(distance(points.front()) / 8.0, kLeastHead, kMostHead);
  const auto from = std::find_if(points.rbegin(), points.rend(),
                                 [&](SurfacePoint point) { return distance(point) >= head; });
  if (from != points.rend()) DrawArrow(surface, *from, end, head, kRed);
  surface.Arc(end, kVectorEndRadius, 0.0, 360.0);
}

}  // namespace

void DrawRoute(DrawingSurface& surface, const OverlayView& view, const Program& program,
               const ViewState&) {
  for (std::size_t i = 0; i < program.route.points.size(); ++i) {
    DrawRoutePoint(surface, view, program, i);
  }
}

void DrawInterRtePoints(DrawingSurface& surface, const OverlayView& view, const Program& program,
                        const ViewState&) {
  const std::vector<Position>& track = program.route.track;
  if (track.size() < 2) return;
  surface.SetPen(LineWidthOf(program), kBlue);
  DrawRuns(surface, view, track.size(), [&track](std::size_t i) { return track[i]; });
}

void DrawCOG(DrawingSurface& surface, const OverlayView& view, const Program& program,
             const ViewState&) {
  const std::vector<TrackPoint>& track = program.passage.route_track;
  if (track.size() < 2) return;
  surface.SetPen(LineWidthOf(program), program.config.cog_colour);
  const std::optional<SurfacePoint> start = view.Place(track.front().position);
  if (start && view.Seen(*start, view.marker_radius)) surface.Ring(*start, view.marker_radius);
  DrawRuns(surface, view, track.size(), [&track](std::size_t i) { return track[i].position; });

  const std::size_t selected = program.animation.index;
  if (selected < 1 || selected >= track.size()) return;
  const std::optional<SurfacePoint> at = view.Place(track[selected].position);
  if (!at) return;
  surface.SetPen(1, kRed);
  surface.Ring(*at, kSelectedRadius);
  if (program.animation.label.empty()) return;
  TextStyle style;
  style.size_pt = view.text_size;
  surface.Text({at->x - kSelectedRadius, at->y + kSelectedRadius}, program.animation.label, kRed,
               style);
}

void DrawVectors(DrawingSurface& surface, const OverlayView& view, const Program& program,
                 const ViewState&) {
  const std::vector<RoutePoint>& points = program.route.points;
  if (points.size() < 2) return;
  std::vector<SurfacePoint> drift;
  for (std::size_t leg = 0; leg + 1 < points.size(); ++leg) {
    if (!view.InChart(points[leg].At())) continue;
    drift.clear();
    bool whole = true;
    for (const Position& position : points[leg].tide_vector) {
      const std::optional<SurfacePoint> place = view.Place(position);
      whole = place.has_value();
      if (!whole) break;
      drift.push_back(*place);
    }
    if (drift.size() < 2) continue;
    surface.SetPen(1, kRed);
    surface.Polyline(drift);
    if (whole) DrawVectorEnd(surface, drift);
  }
}

}  // namespace skerrow
