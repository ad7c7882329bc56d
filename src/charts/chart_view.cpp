#include "charts/chart_view.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "core/plane_sailing.h"

namespace skerrow {
namespace {

std::int32_t ToPixel(double value) {
  return static_cast<std::int32_t>(
      std::clamp<std::int64_t>(RoundToInteger(value), INT32_MIN, INT32_MAX));
}

// A start along one axis, held so that start + length stays inside; a length beyond the whole
// starts at 0.
std::int32_t HoldInside(std::int64_t start, std::int32_t length, std::int32_t whole) {
  start = std::min<std::int64_t>(start, static_cast<std::int64_t>(whole) - length);
  return static_cast<std::int32_t>(std::max<std::int64_t>(start, 0));
}

float OneDecimal(double zoom) { return static_cast<float>(std::round(zoom * 10.0) / 10.0); }

}  // namespace

std::int32_t ChartView::LatToRow(float latitude) const {
  const double along = (static_cast<double>(MercatorY(latitude)) - bottom_merc) * row_span;
  const auto from_top = static_cast<double>(RoundToInteger(row_span - along / merc_span));
  return ToPixel(top_row + from_top);
}

std::int32_t ChartView::LongToCol(float longitude) const {
  return ToPixel((static_cast<double>(longitude) - west_lon) * pixels_per_degree);
}

float ChartView::RowToLat(double row) const {
  return MercatorInverse(static_cast<float>(top_merc - (row - top_row) / row_span * merc_span));
}

float ChartView::ColToLong(double col) const {
  return static_cast<float>(col * degrees_per_pixel + west_lon);
}

bool ChartView::OnImage(std::int32_t col, std::int32_t row) const {
  return col >= 0 && col < image_width && row >= 0 && row < image_height;
}

ChartView MakeChartView(const ChartRecord& chart, std::int32_t image_width,
                        std::int32_t image_height) {
  ChartView view;
  view.top_row = chart.top_row;
  view.row_span = chart.row_span;
  view.top_merc = chart.top_merc;
  view.bottom_merc = chart.bottom_merc;
  view.merc_span = chart.merc_span;
  view.west_lon = chart.west_lon;
  const double degrees = static_cast<double>(chart.east_lon) - chart.west_lon;
  view.pixels_per_degree = image_width / degrees;
  view.degrees_per_pixel = degrees / image_width;
  view.image_width = image_width;
  view.image_height = image_height;
  return view;
}

PixelRect Pan(const PixelRect& visible, PanDirection direction, std::int32_t image_width,
              std::int32_t image_height) {
  const bool upright = direction == PanDirection::kUp || direction == PanDirection::kDown;
  const double seen = upright ? visible.height : visible.width;
  const std::int64_t step = RoundToInteger(seen - seen / 5.0);
  PixelRect moved = visible;
  switch (direction) {
    case PanDirection::kUp:
      moved.top = HoldInside(visible.top - step, visible.height, image_height);
      break;
    case PanDirection::kDown:
      moved.top = HoldInside(visible.top + step, visible.height, image_height);
      break;
    case PanDirection::kLeft:
      moved.left = HoldInside(visible.left - step, visible.width, image_width);
      break;
    case PanDirection::kRight:
      moved.left = HoldInside(visible.left + step, visible.width, image_width);
      break;
  }
  return moved;
}

float ZoomIn(float zoom) {
  const double larger = zoom > 1.0F ? zoom + 0.5 : zoom + 0.25;
  return OneDecimal(std::min<double>(larger, kLargestZoom));
}

float ZoomOut(float zoom) { return OneDecimal(std::max<double>(zoom - 0.5, kSmallestZoom)); }

int Brightness::Decrease() {
  if (level <= 10) return 0;
  level -= 10;
  return -10;
}

int Brightness::Increase() {
  if (level >= 100) return 0;
  const int step = level + 10 > 95 ? 100 - level : 10;
  level += step;
  return step;
}

int Brightness::Reset() {
  const int step = 100 - level;
  level = 100;
  return step;
}

}  // namespace skerrow
