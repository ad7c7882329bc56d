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

// The start of a view of `seen` pixels over an image of `whole`.
double HoldStart(double start, double seen, double whole) {
  if (seen >= whole) return (whole - seen) / 2.0;
  return std::clamp(start, 0.0, whole - seen);
}

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

std::optional<PixelRect> ChartView::LocatePoint(Position position, const PixelRect& visible) const {
  const std::int32_t col = LongToCol(position.longitude);
  const std::int32_t row = LatToRow(position.latitude);
  if (!OnImage(col, row)) return std::nullopt;
  PixelRect moved = visible;
  moved.left = HoldInside(RoundToInteger(col - visible.width / 2.0), visible.width, image_width);
  moved.top = HoldInside(RoundToInteger(row - visible.height / 2.0), visible.height, image_height);
  return moved;
}

Position ChartView::MiddleOf(const PixelRect& visible) const {
  return {RowToLat(visible.top + visible.height / 2.0),
          ColToLong(visible.left + visible.width / 2.0)};
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

PixelRect PanHome(const PixelRect& visible, std::int32_t image_width, std::int32_t image_height) {
  PixelRect moved = visible;
  moved.left =
      HoldInside(RoundToInteger((image_width - visible.width) / 2.0), visible.width, image_width);
  moved.top = HoldInside(RoundToInteger((image_height - visible.height) / 2.0), visible.height,
                         image_height);
  return moved;
}

float ZoomIn(float zoom) {
  const double larger = zoom > 1.0F ? zoom + 0.5 : zoom + 0.25;
  return OneDecimal(std::min<double>(larger, kLargestZoom));
}

float ZoomOut(float zoom) { return OneDecimal(std::max<double>(zoom - 0.5, kSmallestZoom)); }

int ZoomPercentOfKey(int digit) { return digit == 0 ? 100 : digit * 10; }

std::optional<PixelRect> StoredView(const PixelRect& stored) {
  if (stored.width <= 0 || stored.height <= 0) return std::nullopt;
  return stored;
}

PixelRect Viewport::Visible(std::int32_t image_width, std::int32_t image_height) const {
  const double right = std::min<double>(image_width, left + width / zoom);
  const double bottom = std::min<double>(image_height, top + height / zoom);
  PixelRect seen;
  seen.left = ToPixel(std::max(left, 0.0));
  seen.top = ToPixel(std::max(top, 0.0));
  seen.width = std::max(ToPixel(right) - seen.left, 0);
  seen.height = std::max(ToPixel(bottom) - seen.top, 0);
  return seen;
}

Viewport ZoomToSelection(const Viewport& viewport, const PixelRect& selection) {
  if (selection.width <= 0 || selection.height <= 0 || viewport.width <= 0 ||
      viewport.height <= 0) {
    return viewport;
  }
  Viewport fitted = viewport;
  fitted.zoom = std::min(viewport.width / static_cast<double>(selection.width),
                         viewport.height / static_cast<double>(selection.height));
  fitted.left = selection.left + selection.width / 2.0 - viewport.width / fitted.zoom / 2.0;
  fitted.top = selection.top + selection.height / 2.0 - viewport.height / fitted.zoom / 2.0;
  return fitted;
}

Viewport ZoomAbout(const Viewport& viewport, double x, double y, double zoom) {
  Viewport zoomed = viewport;
  zoomed.zoom = zoom;
  zoomed.left = viewport.ImageCol(x) - x / zoom;
  zoomed.top = viewport.ImageRow(y) - y / zoom;
  return zoomed;
}

Viewport HoldOnImage(const Viewport& viewport, std::int32_t image_width,
                     std::int32_t image_height) {
  Viewport held = viewport;
  held.left = HoldStart(viewport.left, viewport.width / viewport.zoom, image_width);
  held.top = HoldStart(viewport.top, viewport.height / viewport.zoom, image_height);
  return held;
}

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
