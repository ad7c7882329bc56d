#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "ui/drawing/drawing_surface.h"

// Pictures of values over time or another quantity: axes, grid, series, marks and a cursor. What is
// to be seen is a plain model; the same code draws it on the screen and on paper. Colours are those
// of the records (red in the lowest byte) by day; a surface turns them to the night's.
namespace skerrow {

// The colours that plots have in common.
namespace plot_colours {
inline constexpr std::int32_t kPaper = 0xFFFFFF;
inline constexpr std::int32_t kInk = 0x000000;
inline constexpr std::int32_t kText = 0x33271C;
inline constexpr std::int32_t kGrid = 0xE9E3DE;        // between the marked lines
inline constexpr std::int32_t kGrey = 0x808080;        // marks such as sunrise
inline constexpr std::int32_t kFrame = 0x9A8E84;       // round the area
inline constexpr std::int32_t kArea = 0xFAEEDC;        // below a curve
inline constexpr std::int32_t kGround = 0xEDE6E2;      // a band, such as the night
inline constexpr std::int32_t kGroundArea = 0xEAD8C8;  // below a curve within a band
}  // namespace plot_colours

// A place in the data.
struct DataPoint {
  double x = 0.0;
  double y = 0.0;

  friend bool operator==(const DataPoint&, const DataPoint&) = default;
};

// A line of the grid with its label outside of the area; either may be missing.
struct PlotTick {
  double at = 0.0;
  std::string label;
  bool line = true;
  std::int32_t colour = plot_colours::kGrid;
  LineStyle style = LineStyle::kSolid;
  // A label under the x axis stands in the middle of its line; or it begins that many points to the
  // left of it.
  std::optional<double> label_left_pt = {};
};

struct PlotAxis {
  double from = 0.0;
  double to = 1.0;
  std::vector<PlotTick> ticks;  // earlier labels go before later ones that would lie on them
};

// A row of values. Values that are no finite numbers are left out.
struct PlotSeries {
  std::vector<DataPoint> points;
  std::int32_t colour = plot_colours::kInk;
  int width = 2;                       // of the line, pixels; the size of the dots
  bool dots = false;                   // a dot at each point in place of a line
  std::optional<double> fill_to = {};  // the area down or up to this y is filled
};

// A stretch of x whose ground is told apart.
struct PlotBand {
  double from = 0.0;
  double to = 0.0;
  std::int32_t colour = plot_colours::kGround;
  std::int32_t area_colour = plot_colours::kGroundArea;  // of the filled areas within
};

// A line across the whole area with words at its end.
struct PlotMark {
  bool upright = true;  // at an x, the words at the top; else at a y, the words at the left
  double at = 0.0;
  std::int32_t colour = plot_colours::kGrey;
  // In short strokes, each a fiftieth of the area's height.
  bool broken = true;
  std::string words;
  // Where the words of an upright mark begin, as x; nothing: just beside the line.
  std::optional<double> words_at = {};
};

// A marked point with a label of its own above or below it.
struct PlotSpot {
  DataPoint at;
  std::string label;  // may have several lines
  bool above = true;
  std::int32_t colour = plot_colours::kInk;
};

// A text over the area.
struct PlotCaption {
  std::string text;
  AlignX align = AlignX::kLeft;
  bool bold = false;
};

struct Plot {
  PlotAxis x, y;
  std::vector<PlotBand> bands;
  std::vector<PlotSeries> series;
  std::vector<PlotMark> marks;
  std::vector<PlotSpot> spots;
  std::vector<PlotCaption> captions;
  int text_pt = 9;
  bool tags = false;  // room for the tags of cursors over the area
};

// A line that moves over the picture, drawn apart from it.
struct PlotCursor {
  double x = 0.0;
  std::int32_t colour = plot_colours::kInk;
  int width = 1;
  bool dotted = false;
  std::optional<double> dot = {};  // a dot on the line at this y
  std::string tag = {};            // over the area, when the plot has room for tags

  friend bool operator==(const PlotCursor&, const PlotCursor&) = default;
};

// Where the data of a plot lie on a surface.
class PlotArea {
 public:
  // `area` is what the plot takes of the surface, its labels and captions with it.
  PlotArea(const DrawingSurface& surface, SurfaceRect area, const Plot& plot);

  // What the grid takes; not below one pixel.
  const SurfaceRect& inner() const { return inner_; }
  SurfacePoint ToSurface(DataPoint point) const;
  DataPoint ToData(SurfacePoint point) const;
  // Whether a place on the surface lies in the grid, its edges with it.
  bool Holds(SurfacePoint point) const;

 private:
  double from_x_, to_x_, from_y_, to_y_;
  SurfaceRect inner_;
};

// Draws the plot with its ground into `area`.
void DrawPlot(DrawingSurface& surface, SurfaceRect area, const Plot& plot);

// Draws cursors over the picture, none whose x lies outside of the plot. Of tags that would lie on
// each other the later cursor's is written.
void DrawPlotCursors(DrawingSurface& surface, const PlotArea& area, const Plot& plot,
                     std::span<const PlotCursor> cursors);

// What a cursor may touch; without width when it is not drawn.
SurfaceRect CursorReach(const DrawingSurface& surface, const PlotArea& area, const Plot& plot,
                        const PlotCursor& cursor);

// Steps of 1, 2 or 5 times a power of ten from a range: the smallest that gives at most `most`
// steps; 1 for a range that is no positive finite number.
double NiceStep(double range, int most);

}  // namespace skerrow
