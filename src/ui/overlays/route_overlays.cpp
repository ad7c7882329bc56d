#include "ui/overlays/route_overlays.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/numbers.h"
#include "ui/overlays/wind_overlays.h"

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

// What is drawn beneath a mark or a line so that it stands out: paper, or the yellow that marks the
// track that the boat will make good.
constexpr int kCasing = 2;  // pixels on each side
constexpr std::int32_t kTrackCasing = Rgb(255, 210, 60);
constexpr double kOuterRing = 4.0;  // pixels between the rings of a route point

// The heads of the arrows along a leg.
constexpr double kArrowStep = 260.0;  // pixels between them at most
constexpr double kLeastLeg = 40.0;    // pixels; a shorter leg has none
constexpr double kArrowHead = 11.0;

void DrawRoutePoint(DrawingSurface& surface, const OverlayView& view, const Program& program,
                    std::size_t index) {
  const RoutePoint& point = program.route.points[index];
  const std::optional<SurfacePoint> place = view.Place(point.At());
  if (!place) return;
  const double radius = view.marker_radius;
  if (view.Seen(*place, radius + kOuterRing + kCasing)) {
    const std::int32_t colour = index == 0 ? kRed : kBlue;
    // The second ring tells a point of the route from a waypoint.
    surface.SetPen(2 + 2 * kCasing, kGround);
    surface.Ring(*place, radius + kOuterRing);
    surface.SetPen(2, colour);
    surface.Ring(*place, radius + kOuterRing);
    surface.SetPen(1, colour);
    surface.Ring(*place, radius);
  }
  if (program.config.show_wind_over_route != 0) {
    DrawInWind(surface, view, program, point.At(),
               {.speed_kn = point.wind_speed, .from_deg = point.wind_direction});
  }
}

std::string NameOf(const RoutePoint& point, std::size_t index) {
  if (index == 0) return "Start";
  const bool unnamed = point.name.find_first_not_of(' ') == std::string::npos;
  return unnamed ? "Waypoint " + std::to_string(index + 1) : point.name;
}

// Arrow heads that say which way a leg leads.
void DrawLegArrows(DrawingSurface& surface, const OverlayView& view, SurfacePoint from,
                   SurfacePoint to) {
  const double length = std::hypot(to.x - from.x, to.y - from.y);
  if (!(length >= kLeastLeg)) return;
  const double along_x = (to.x - from.x) / length;
  const double along_y = (to.y - from.y) / length;
  const double count = std::ceil(length / kArrowStep);
  for (double i = 0.0; i < count; ++i) {
    const double way = length * (i + 0.5) / count + kArrowHead / 2.0;
    const SurfacePoint tip{from.x + way * along_x, from.y + way * along_y};
    if (!view.Seen(tip, kArrowHead)) continue;
    const SurfacePoint neck{tip.x - kArrowHead * along_x, tip.y - kArrowHead * along_y};
    const double half = 0.5 * kArrowHead;
    surface.Polygon(
        std::array<SurfacePoint, 3>{tip,
                                    {neck.x - half * along_y, neck.y + half * along_x},
                                    {neck.x + half * along_y, neck.y - half * along_x}});
  }
}

// Marks of time along a predicted drift.
constexpr double kTimeMarkRadius = 3.0;

// The places along a predicted track whose times are written: every half hour of a short one, up to
// every twelve hours of a long one, and the end.
std::vector<std::size_t> TimeMarks(const PassageState& passage) {
  const std::vector<TrackPoint>& track = passage.route_track;
  std::vector<std::size_t> marks;
  if (passage.calc_mode != kCalcModeDrift || track.size() < 2) return marks;
  double step = static_cast<double>(track[1].hours) - track[0].hours;
  if (step <= 0.0) step += 24.0;
  const std::size_t last = track.size() - 1;
  const double hours = step * static_cast<double>(last);
  const double every = hours <= 3.0 ? 0.5 : hours <= 12.0 ? 1.0 : hours <= 48.0 ? 3.0 : 12.0;
  const auto apart = static_cast<std::size_t>(std::max(1.0, std::round(every / step)));
  for (std::size_t i = 0; i < last; i += apart) marks.push_back(i);
  marks.push_back(last);
  return marks;
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

void NameRoute(LabelList& names, const OverlayView& view, const Program& program,
               const ViewState& state) {
  NameRouteWind(names, view, program, state);
  for (std::size_t i = 0; i < program.route.points.size(); ++i) {
    const RoutePoint& point = program.route.points[i];
    const std::optional<SurfacePoint> at = view.Place(point.At());
    if (!at) continue;
    names.labels.push_back({NameOf(point, i), *at, view.marker_radius + kOuterRing,
                            program.config.font_colour, LabelRank::kRoute,
                            i == 0 ? LabelSide::kLeft : LabelSide::kRight});
  }
}

void DrawInterRtePoints(DrawingSurface& surface, const OverlayView& view, const Program& program,
                        const ViewState&) {
  const std::vector<Position>& track = program.route.track;
  if (track.size() < 2) return;
  surface.SetPen(LineWidthOf(program), kBlue);
  DrawRuns(surface, view, track.size(), [&track](std::size_t i) { return track[i]; });
  const std::vector<RoutePoint>& points = program.route.points;
  surface.SetPen(1, kGround);
  surface.SetFill(kBlue);
  for (std::size_t leg = 0; leg + 1 < points.size(); ++leg) {
    const std::optional<SurfacePoint> from = view.Place(points[leg].At());
    const std::optional<SurfacePoint> to = view.Place(points[leg + 1].At());
    if (from && to) DrawLegArrows(surface, view, *from, *to);
  }
  surface.SetFill(std::nullopt);
}

void DrawCOG(DrawingSurface& surface, const OverlayView& view, const Program& program,
             const ViewState&) {
  const std::vector<TrackPoint>& track = program.passage.route_track;
  if (track.size() < 2) return;
  const auto draw_line = [&] {
    DrawRuns(surface, view, track.size(), [&track](std::size_t i) { return track[i].position; });
  };
  surface.SetPen(LineWidthOf(program) + 2 * kCasing, kTrackCasing);
  draw_line();
  surface.SetPen(LineWidthOf(program), program.config.cog_colour);
  const std::optional<SurfacePoint> start = view.Place(track.front().position);
  if (start && view.Seen(*start, view.marker_radius)) surface.Ring(*start, view.marker_radius);
  draw_line();
  for (const std::size_t mark : TimeMarks(program.passage)) {
    const std::optional<SurfacePoint> at = view.Place(track[mark].position);
    if (!at || !view.Seen(*at, kTimeMarkRadius)) continue;
    surface.SetFill(program.config.cog_colour);
    surface.Ellipse(*at, kTimeMarkRadius, kTimeMarkRadius);
    surface.SetFill(std::nullopt);
  }

  const std::size_t selected = program.animation.index;
  if (selected < 1 || selected >= track.size()) return;
  const std::optional<SurfacePoint> at = view.Place(track[selected].position);
  if (!at) return;
  surface.SetPen(1, kRed);
  surface.Ring(*at, kSelectedRadius);
}

void NameCOG(LabelList& names, const OverlayView& view, const Program& program, const ViewState&) {
  const std::vector<TrackPoint>& track = program.passage.route_track;
  for (const std::size_t mark : TimeMarks(program.passage)) {
    const std::optional<SurfacePoint> at = view.Place(track[mark].position);
    if (!at) continue;
    names.labels.push_back({HoursToClock(track[mark].hours), *at, kTimeMarkRadius,
                            program.config.font_colour, LabelRank::kRoute, LabelSide::kRight});
  }
  const std::size_t selected = program.animation.index;
  if (selected < 1 || selected >= track.size() || program.animation.label.empty()) return;
  if (const std::optional<SurfacePoint> at = view.Place(track[selected].position)) {
    names.fixed.push_back(
        {program.animation.label, {at->x - kSelectedRadius, at->y + kSelectedRadius}, kRed});
  }
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
