#pragma once

#include <cmath>
#include <cstdint>
#include <optional>
#include <vector>

#include "charts/chart_files.h"
#include "charts/chart_view.h"
#include "core/position.h"
#include "ui/drawing/drawing_surface.h"
#include "ui/viewer/view_geometry.h"

// Where a place stands in the view, and the drawing steps that the overlays share.
namespace skerrow {

inline constexpr std::int32_t kRed = Rgb(255, 0, 0);
inline constexpr std::int32_t kBlue = Rgb(0, 0, 255);
inline constexpr std::int32_t kBlack = Rgb(0, 0, 0);
// The ground under letters and lines that must stand out: paper.
inline constexpr std::int32_t kGround = Rgb(255, 255, 255);
inline constexpr std::int32_t kLightGrey = Rgb(192, 192, 192);

// The chart as it stands in the view during one paint.
struct OverlayView {
  ChartView chart;
  ViewGeometry geometry;  // of what is drawn on
  // The chart's borders, degrees.
  float top_lat = 0.0F;
  float bottom_lat = 0.0F;
  float west_lon = 0.0F;
  float east_lon = 0.0F;
  // Corners of the visible part, degrees.
  float view_north = 0.0F;
  float view_south = 0.0F;
  float view_west = 0.0F;
  float view_east = 0.0F;

  int marker_radius = 0;  // view pixels
  int text_size = 12;     // points

  // Whether a place lies strictly inside the chart; one on a border does not, nor does a place
  // that is no number.
  bool InChart(Position position) const {
    return position.latitude < top_lat && position.latitude > bottom_lat &&
           position.longitude > west_lon && position.longitude < east_lon;
  }
  // Where a place stands in the view, by whole pixels of the picture; it may be off the screen.
  SurfacePoint ToView(Position position) const;
  // The same, and nothing for a place outside the chart.
  std::optional<SurfacePoint> Place(Position position) const;
  // Whether something that reaches `reach` pixels from `at` can be seen.
  bool Seen(SurfacePoint at, double reach) const;
};

// The view of a chart. `shown` knows the picture's size, the zoom and the scroll position; `area`
// is what is drawn on, the view itself or more.
OverlayView MakeOverlayView(const ChartRecord& chart, const ViewGeometry& shown,
                            const ViewGeometry& area, int text_size);

// Base radius of ring marks for a view and a picture of that size; 0 without a picture.
int MarkerRadius(double view_width, int image_width, int image_height);

// A ring at a place. Outside the chart, and off the screen, nothing.
void DrawCircle(DrawingSurface& surface, const OverlayView& view, Position at, double radius,
                std::int32_t colour);

// Whether two places of a line can be told from each other.
inline bool Apart(SurfacePoint a, SurfacePoint b) {
  return std::abs(a.x - b.x) >= 0.5 || std::abs(a.y - b.y) >= 0.5;
}

// Joins places in a row: a line from each to the next wherever both lie inside the chart. `at(i)`
// gives place i of `count`. Places within half a pixel of each other count as one.
template <typename At>
void DrawRuns(DrawingSurface& surface, const OverlayView& view, std::size_t count, const At& at) {
  std::vector<SurfacePoint> run;
  run.reserve(count);
  const auto finish = [&] {
    if (run.size() > 1) surface.Polyline(run);
    run.clear();
  };
  for (std::size_t i = 0; i < count; ++i) {
    const std::optional<SurfacePoint> place = view.Place(at(i));
    if (!place) {
      finish();
    } else if (run.empty() || i + 1 == count || Apart(run.back(), *place)) {
      run.push_back(*place);
    }
  }
  finish();
}

}  // namespace skerrow
