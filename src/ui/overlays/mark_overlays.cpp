#include "ui/overlays/mark_overlays.h"

#include "core/numbers.h"
#include "core/plane_sailing.h"

namespace skerrow {
namespace {

constexpr float kFarthestDividers = 3000.0F;  // nautical miles
constexpr const char* kDividerReference = "Divider Ref.";

void DrawReference(DrawingSurface& surface, const OverlayView& view, const Program& program,
                   Position zero) {
  DrawCircle(surface, view, zero, view.marker_radius, kRed);
  if (const std::optional<SurfacePoint> at = view.Place(zero)) {
    DrawLabel(surface, view, *at, view.marker_radius, kDividerReference,
              program.config.font_colour);
  }
}

std::string_view WithoutTrailingBlanks(std::string_view text) {
  const std::size_t last = text.find_last_not_of(' ');
  return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

}  // namespace

void DrawDividers(DrawingSurface& surface, const OverlayView& view, const Program& program,
                  const ViewState& state) {
  if (!state.zero_point) return;
  const Position zero = *state.zero_point;
  if (!state.divider_end) {
    DrawReference(surface, view, program, zero);
    return;
  }
  const Position end = *state.divider_end;
  const std::optional<SurfacePoint> from = view.Place(zero);
  const std::optional<SurfacePoint> to = view.Place(end);
  if (from && to) {
    surface.SetPen(1, kRed);
    surface.Line(*from, *to);
  }
  const RangeAndBearing between = RangeBearing(zero, end);
  if (to && between.range > 0.0F && between.range < kFarthestDividers) {
    const std::string text = FormatFixed(static_cast<double>(between.range), 1, 1) + "nm@" +
                             FormatFixed(static_cast<double>(between.bearing), 3, 0) + "°T";
    DrawLabel(surface, view, *to, view.marker_radius, text, program.config.font_colour);
  }
  DrawReference(surface, view, program, zero);
  DrawCircle(surface, view, end, view.marker_radius, kBlue);
}

void DrawWaypoints(DrawingSurface& surface, const OverlayView& view, const Program& program,
                   const ViewState&) {
  if (program.waypoints.waypoints.empty()) return;
  surface.SetPen(1, kBlue);
  const double radius = view.marker_radius;
  for (const Waypoint& waypoint : program.waypoints.waypoints) {
    if (!view.InChart(waypoint.At())) continue;
    const std::int32_t col = view.chart.LongToCol(waypoint.longitude);
    const std::int32_t row = view.chart.LatToRow(waypoint.latitude);
    if (col < 1 || row < 1 || !view.chart.OnImage(col, row)) continue;
    const ViewPoint place =
        view.geometry.ToView({static_cast<double>(col), static_cast<double>(row)});
    const SurfacePoint at{place.x, place.y};
    if (view.Seen(at, radius)) {
      surface.Ring(at, radius);
      surface.Ellipse(at, 1.0, radius);
    }
    DrawLabel(surface, view, at, radius, WithoutTrailingBlanks(waypoint.name),
              program.config.font_colour);
  }
}

void DrawMob(DrawingSurface& surface, const OverlayView& view, const Program& program,
             const ViewState&) {
  const std::optional<SurfacePoint> at = view.Place(program.mob.position);
  const double reach = 2.0 * view.marker_radius;
  if (!at || !view.Seen(*at, reach)) return;
  surface.SetPen(1, kRed);
  surface.Ring(*at, reach);
  surface.SetPen(3, kBlack);
  DrawCross(surface, *at, reach);
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

void DrawAisMark(DrawingSurface& surface, const OverlayView& view, const Program& program,
                 const ViewState&) {
  if (program.ais.mark) DrawCircle(surface, view, *program.ais.mark, view.marker_radius, kRed);
}

}  // namespace skerrow
