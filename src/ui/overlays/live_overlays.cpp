#include "ui/overlays/live_overlays.h"

#include "core/numbers.h"
#include "core/plane_sailing.h"

namespace skerrow {
namespace {

constexpr int kCasedWidth = 5;
constexpr double kCursorRoom = 14.0;  // pixels between the cursor and the text

bool RubberBandShown(const Program& program, const ViewState& state) {
  return state.route_entry_on && state.mouse_mode == MouseMode::kRouteCreation &&
         !state.dividers_on && !state.route_drag_on && !state.rectangle_mode &&
         !state.calculation_on_show && !program.route.points.empty();
}

bool OpenDividersShown(const ViewState& state) {
  return state.dividers_on && state.zero_point && !state.divider_end && !state.rectangle_mode;
}

// A dashed line that shows on any ground.
void DrawBand(DrawingSurface& surface, SurfacePoint from, SurfacePoint to, std::int32_t colour) {
  surface.SetPen(kCasedWidth, kGround);
  surface.Line(from, to);
  surface.SetPen(2, colour, LineStyle::kDash);
  surface.Line(from, to);
}

// A text beside the cursor, turned to the side where there is room.
void WriteAtCursor(DrawingSurface& surface, const OverlayView& view, SurfacePoint at,
                   const std::string& text, std::int32_t colour) {
  TextStyle style = ChartText(view);
  const SurfaceRect extent = surface.TextExtent(text, style);
  const bool right = at.x + kCursorRoom + extent.width <= view.geometry.view_width();
  const bool below = at.y + kCursorRoom + extent.height <= view.geometry.view_height();
  style.align_x = right ? AlignX::kLeft : AlignX::kRight;
  style.align_y = below ? AlignY::kTop : AlignY::kBottom;
  surface.Text(
      {at.x + (right ? kCursorRoom : -kCursorRoom), at.y + (below ? kCursorRoom : -kCursorRoom)},
      text, colour, style);
}

}  // namespace

bool LiveOverlaysShown(const Program& program, const ViewState& state) {
  return RubberBandShown(program, state) || OpenDividersShown(state);
}

void DrawLiveOverlays(DrawingSurface& surface, const OverlayView& view, const Program& program,
                      const ViewState& state) {
  if (!view.geometry.HasImage() || !LiveOverlaysShown(program, state)) return;
  const std::optional<SurfacePoint> cursor = view.Place(state.cursor);
  if (!cursor) return;
  if (OpenDividersShown(state)) {
    // Its text stands in the box beside the cursor.
    if (const auto zero = view.Place(*state.zero_point)) DrawBand(surface, *zero, *cursor, kRed);
    return;
  }
  const Position last = program.route.points.back().At();
  const std::optional<SurfacePoint> from = view.Place(last);
  if (!from) return;
  DrawBand(surface, *from, *cursor, kBlue);
  const RangeAndBearing way = RangeBearing(last, state.cursor);
  WriteAtCursor(surface, view, *cursor,
                FormatFixed(static_cast<double>(way.range), 1, 1) + "nm @" +
                    FormatFixed(static_cast<double>(way.bearing), 3, 0) + "°T",
                program.config.font_colour);
}

}  // namespace skerrow
