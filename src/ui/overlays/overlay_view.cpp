#include "ui/overlays/overlay_view.h"

#include "core/numbers.h"

namespace skerrow {
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

OverlayView MakeOverlayView(const ChartRecord& chart, const ViewGeometry& shown,
                            const ViewGeometry& area, int text_size) {
  OverlayView view;
  view.chart = MakeChartView(chart, shown.image_width(), shown.image_height());
  view.geometry = area;
  view.top_lat = chart.top_lat;
  view.bottom_lat = chart.bottom_lat;
  view.west_lon = chart.west_lon;
  view.east_lon = chart.east_lon;
  const ImageRect seen = shown.VisibleRect();
  view.view_north = view.chart.RowToLat(seen.top);
  view.view_south = view.chart.RowToLat(seen.top + seen.height);
  view.view_west = view.chart.ColToLong(seen.left);
  view.view_east = view.chart.ColToLong(seen.left + seen.width);
  view.marker_radius = MarkerRadius(shown.view_width(), shown.image_width(), shown.image_height());
  view.text_size = text_size;
  return view;
}

int MarkerRadius(double view_width, int image_width, int image_height) {
  if (image_width < 1 || image_height < 1) return 0;
  const auto base = static_cast<double>(RoundToInteger(view_width * 3.0 / 1000.0));
  const double shape = static_cast<double>(image_height) / image_width;
  return static_cast<int>(RoundToInteger(base / shape));
}

void DrawCircle(DrawingSurface& surface, const OverlayView& view, Position at, double radius,
                std::int32_t colour) {
  const std::optional<SurfacePoint> place = view.Place(at);
  if (!place || !view.Seen(*place, radius)) return;
  surface.SetPen(1, colour);
  surface.Ring(*place, radius);
}

}  // namespace skerrow
