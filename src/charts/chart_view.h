#pragma once

#include <cstdint>

#include "charts/chart_files.h"
#include "core/position.h"

// The arithmetic of the chart on screen: position and image pixel, the visible part, zoom steps.
namespace skerrow {

// A rectangle in image pixels.
struct PixelRect {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;

  friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

// The conversions of a chart over its image. Latitude runs on a Mercator scale, longitude evenly.
struct ChartView {
  float top_row = 0.0F;
  float row_span = 1.0F;
  float top_merc = 0.0F;
  float bottom_merc = 0.0F;
  float merc_span = 1.0F;
  float west_lon = 0.0F;
  double pixels_per_degree = 1.0;
  double degrees_per_pixel = 1.0;
  std::int32_t image_width = 0;
  std::int32_t image_height = 0;

  // Image row and column of a place, rounded half to even and held within the 32-bit range.
  std::int32_t LatToRow(float latitude) const;
  std::int32_t LongToCol(float longitude) const;
  // Place of an image row and column; fractions of a pixel count.
  float RowToLat(double row) const;
  float ColToLong(double col) const;

  // Whether an image pixel exists.
  bool OnImage(std::int32_t col, std::int32_t row) const;
};

// The view of a chart whose image has that size in pixels. The longitude scale comes from the
// image's width, so that an image of another size than the settings tell still fits its edges.
ChartView MakeChartView(const ChartRecord& chart, std::int32_t image_width,
                        std::int32_t image_height);

enum class PanDirection { kUp, kDown, kLeft, kRight };

// The visible rectangle moved by four fifths of its height or width, held inside the image.
PixelRect Pan(const PixelRect& visible, PanDirection direction, std::int32_t image_width,
              std::int32_t image_height);

inline constexpr float kSmallestZoom = 0.2F;
inline constexpr float kLargestZoom = 2.5F;

// The zoom factor after the In and Out commands, 1.0 being 100 %: 1.0 -> 1.3, 1.3 -> 1.8,
// 2.4 -> 2.5; 0.6 -> 0.2, 0.2 -> 0.2. Steps are rounded to one decimal, halves away from zero.
float ZoomIn(float zoom);
float ZoomOut(float zoom);

// The zoom percent of a chart without a stored view.
inline constexpr int kStartZoomPercent = 50;

// The brightness of the chart image, 100 by day, in steps of 10.
struct Brightness {
  int level = 100;

  // One step down or up, and back to day. Each gives the percentage by which the image is to be
  // adjusted; 0 when there is nothing to do.
  int Decrease();
  int Increase();
  int Reset();
  bool Day() const { return level == 100; }
};

}  // namespace skerrow
