#include "ui/overlays/overlay_view.h"

#include "core/numbers.h"

namespace skerrow {
namespace {

constexpr double kLabelGap = 4.0;
// Upper bound of a letter's width and a line's height in the size of the text.
constexpr double kLetterRoom = 1.5;

}  // namespace

SurfacePoint OverlayView::ToView(Position position) const {
  const ViewPoint point = geometry.ToView({static_cast<double>(chart.LongToCol(position.longitude)),
                                           static_cast<double>(chart.LatToRow(position.latitude))});
  return {point.x, point.y};
}

std::optional<SurfacePoint> OverlayView::Place(Position position) const {
  if (!InChart(position)) return std::nullopt;
  return ToView(position);
}

bool OverlayView::Seen(SurfacePoint at, double reach) const {
  return at.x >= -reach && at.y >= -reach && at.x <= geometry.view_width() + reach &&
         at.y <= geometry.view_height() + reach;
}

OverlayView MakeOverlayView(const ChartRecord& chart, const ViewGeometry& geometry, int text_size) {
  OverlayView view;
  view.chart = MakeChartView(chart, geometry.image_width(), geometry.image_height());
  view.geometry = geometry;
  view.top_lat = chart.top_lat;
  view.bottom_lat = chart.bottom_lat;
  view.west_lon = chart.west_lon;
  view.east_lon = chart.east_lon;
  const ImageRect seen = geometry.VisibleRect();
  view.view_north = view.chart.RowToLat(seen.top);
  view.view_south = view.chart.RowToLat(seen.top + seen.height);
  view.view_west = view.chart.ColToLong(seen.left);
  view.view_east = view.chart.ColToLong(seen.left + seen.width);
  view.marker_radius =
      MarkerRadius(geometry.view_width(), geometry.image_width(), geometry.image_height());
  view.text_size = text_size;
  return view;
}

int MarkerRadius(double view_width, int image_width, int image_height) {
  if (image_width < 1 || image_height < 1) return 0;
  const auto base = static_cast<double>(RoundToInteger(view_width * 3.0 / 1000.0));
  const double shape = static_cast<double>(image_height) / image_width;
  return static_cast<int>(RoundToInteger(base / shape));
}

void DrawLabel(DrawingSurface& surface, const OverlayView& view, SurfacePoint at, double radius,
               std::string_view text, std::int32_t colour, LabelSide side) {
  if (text.empty()) return;
  const double room = kLetterRoom * view.text_size;
  const double width = room * static_cast<double>(text.size());
  const bool right = side == LabelSide::kRight;
  const double x = right ? at.x + radius + kLabelGap : at.x - radius - kLabelGap;
  const double left = right ? x : x - width;
  if (left > view.geometry.view_width() || left + width < 0.0 || at.y < -room ||
      at.y > view.geometry.view_height() + room) {
    return;
  }
  TextStyle style;
  style.size_pt = view.text_size;
  style.align_x = right ? AlignX::kLeft : AlignX::kRight;
  style.align_y = AlignY::kMiddle;
  surface.Text({x, at.y}, text, colour, style);
}

void DrawCircle(DrawingSurface& surface, const OverlayView& view, Position at, double radius,
                std::int32_t colour) {
  const std::optional<SurfacePoint> place = view.Place(at);
  if (!place || !view.Seen(*place, radius)) return;
  surface.SetPen(1, colour);
  surface.Ring(*place, radius);
}

}  // namespace skerrow
