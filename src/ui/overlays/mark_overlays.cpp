#include "ui/overlays/mark_overlays.h"

#include "core/numbers.h"
#include "core/plane_sailing.h"

namespace skerrow {
namespace {

constexpr float kFarthestDividers = 3000.0F;  // nautical miles
constexpr const char* kDividerReference = "Divider Ref.";

// Where a waypoint stands that is on the chart and its picture.
std::optional<SurfacePoint> PlaceOf(const OverlayView& view, const Waypoint& waypoint) {
  if (!view.InChart(waypoint.At())) return std::nullopt;
  const std::int32_t col = view.chart.LongToCol(waypoint.longitude);
  const std::int32_t row = view.chart.LatToRow(waypoint.latitude);
  if (col < 1 || row < 1 || !view.chart.OnImage(col, row)) return std::nullopt;
  const ViewPoint at = view.geometry.ToView({static_cast<double>(col), static_cast<double>(row)});
  return SurfacePoint{at.x, at.y};
}

std::string_view WithoutTrailingBlanks(std::string_view text) {
  const std::size_t last = text.find_last_not_of(' ');
  return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

}  // namespace

void DrawDividers(DrawingSurface& surface, const OverlayView& view, const Program&,
                  const ViewState& state) {
  if (!state.zero_point) return;
  if (state.divider_end) {
    const std::optional<SurfacePoint> from = view.Place(*state.zero_point);
    const std::optional<SurfacePoint> to = view.Place(*state.divider_end);
    if (from && to) {
      surface.SetPen(1, kRed);
      surface.Line(*from, *to);
    }
  }
  DrawCircle(surface, view, *state.zero_point, view.marker_radius, kRed);
  if (state.divider_end) {
    DrawCircle(surface, view, *state.divider_end, view.marker_radius, kBlue);
  }
}

void NameDividers(LabelList& names, const OverlayView& view, const Program& program,
                  const ViewState& state) {
  if (!state.zero_point) return;
  const auto name = [&](Position position, std::string text) {
    if (const std::optional<SurfacePoint> at = view.Place(position)) {
      names.labels.push_back({std::move(text), *at, static_cast<double>(view.marker_radius),
                              program.config.font_colour, LabelRank::kMark, LabelSide::kRight});
    }
  };
  if (state.divider_end) {
    const RangeAndBearing between = RangeBearing(*state.zero_point, *state.divider_end);
    if (between.range > 0.0F && between.range < kFarthestDividers) {
      name(*state.divider_end, FormatFixed(static_cast<double>(between.range), 1, 1) + "nm@" +
                                   FormatFixed(static_cast<double>(between.bearing), 3, 0) + "°T");
    }
  }
  name(*state.zero_point, kDividerReference);
}

void DrawWaypoints(DrawingSurface& surface, const OverlayView& view, const Program& program,
                   const ViewState&) {
  if (program.waypoints.waypoints.empty()) return;
  surface.SetPen(1, kBlue);
  const double radius = view.marker_radius;
  for (const Waypoint& waypoint : program.waypoints.waypoints) {
    const std::optional<SurfacePoint> at = PlaceOf(view, waypoint);
    if (!at || !view.Seen(*at, radius)) continue;
    surface.Ring(*at, radius);
    surface.Ellipse(*at, 1.0, radius);
  }
}

void NameWaypoints(LabelList& names, const OverlayView& view, const Program& program,
                   const ViewState& state) {
  const std::vector<Waypoint>& waypoints = program.waypoints.waypoints;
  const double radius = view.marker_radius;
  for (std::size_t i = 0; i < waypoints.size(); ++i) {
    const std::optional<SurfacePoint> at = PlaceOf(view, waypoints[i]);
    if (!at) continue;
    const bool marked = state.marked_kind == MarkedKind::kWaypoint &&
                        static_cast<std::size_t>(state.marked_waypoint) == i + 1;
    names.labels.push_back({std::string(WithoutTrailingBlanks(waypoints[i].name)), *at, radius,
                            program.config.font_colour,
                            marked ? LabelRank::kMark : LabelRank::kWaypoint, LabelSide::kRight});
  }
}

void DrawMob(DrawingSurface& surface, const OverlayView& view, const Program& program,
             const ViewState&) {
  const std::optional<SurfacePoint> at = view.Place(program.mob.position);
  const double reach = 2.0 * view.marker_radius;
  if (!at || !view.Seen(*at, 2.0 * reach)) return;
  // A second ring farther out, and paper beneath it all: this mark must be found at a glance.
  surface.SetPen(7, kGround);
  DrawCross(surface, *at, reach);
  surface.Ring(*at, reach);
  surface.Ring(*at, 1.6 * reach);
  surface.SetPen(3, kRed);
  surface.Ring(*at, 1.6 * reach);
  surface.SetPen(1, kRed);
  surface.Ring(*at, reach);
  surface.SetPen(3, kBlack);
  DrawCross(surface, *at, reach);
}

void NameMob(LabelList& names, const OverlayView& view, const Program& program, const ViewState&) {
  if (const std::optional<SurfacePoint> at = view.Place(program.mob.position)) {
    names.labels.push_back(
        {"MOB", *at, 3.2 * view.marker_radius, kRed, LabelRank::kMark, LabelSide::kRight});
  }
}

std::string MobLabelText(const OverlayView& view, const ManOverboard& mob) {
  if (!mob.on || !view.InChart(mob.position)) return {};
  return "\nMOB Position " + LongToText(mob.position.longitude) + ", " +
         LatToText(mob.position.latitude);
}

void DrawMarkedPoint(DrawingSurface& surface, const OverlayView& view, const Program&,
                     const ViewState& state) {
  DrawCircle(surface, view, state.marked, view.marker_radius, kRed);
}

}  // namespace skerrow
