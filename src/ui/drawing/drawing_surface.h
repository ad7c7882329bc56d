#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

// What the overlays draw on: the screen, a printed page, or a record of the calls.
namespace skerrow {

// A place on a surface, in its own pixels (not those of the device behind it): x to the right, y
// down, from the top left corner.
struct SurfacePoint {
  double x = 0.0;
  double y = 0.0;

  friend bool operator==(const SurfacePoint&, const SurfacePoint&) = default;
};

// A rectangle on a surface, in the same pixels.
struct SurfaceRect {
  double left = 0.0;
  double top = 0.0;
  double width = 0.0;
  double height = 0.0;

  friend bool operator==(const SurfaceRect&, const SurfaceRect&) = default;
};

enum class LineStyle { kSolid, kDash, kDot };

// Where a text stands in respect of its point. Across: the point is at the text's left end, middle
// or right end. Up and down: at its top, middle, base line or bottom.
enum class AlignX { kLeft, kCentre, kRight };
enum class AlignY { kTop, kMiddle, kBaseline, kBottom };

// The look of a text. The chart's texts are bold.
struct TextStyle {
  int size_pt = 12;
  bool bold = true;
  std::string family;  // empty: the chart's own, Arial or what has its widths
  AlignX align_x = AlignX::kLeft;
  AlignY align_y = AlignY::kTop;
  std::optional<std::int32_t> background;  // nothing: what is behind shows through
  std::optional<std::int32_t> halo;        // a rim about the letters
};

class DrawingSurface;

// Draws a stamp about a place of a surface.
using StampDrawing = std::function<void(DrawingSurface&, SurfacePoint)>;

// The surface. Colours are those of the records: red in the lowest byte, then green, then blue.
// A shape with a coordinate that is no finite number is not drawn.
class DrawingSurface {
 public:
  virtual ~DrawingSurface() = default;

  // The size of the surface. Left and top are 0.
  virtual SurfaceRect Bounds() const = 0;

  // The pen of the outlines and lines that follow. A width below 1 counts as 1.
  virtual void SetPen(int width, std::int32_t colour, LineStyle style = LineStyle::kSolid) = 0;
  // The fill of the polygons and ellipses that follow; nothing: they are hollow, as at first.
  virtual void SetFill(std::optional<std::int32_t> colour) = 0;

  virtual void Line(SurfacePoint from, SurfacePoint to) = 0;
  // The lines from each point to the next. Fewer than two points draw nothing.
  virtual void Polyline(std::span<const SurfacePoint> points) = 0;
  // A closed outline, filled. Fewer than two points draw nothing.
  virtual void Polygon(std::span<const SurfacePoint> points) = 0;
  // A full circle, never filled. A radius below 0 draws nothing.
  virtual void Ring(SurfacePoint centre, double radius) = 0;
  // An upright ellipse, filled.
  virtual void Ellipse(SurfacePoint centre, double radius_x, double radius_y) = 0;
  // Part of a circle: from `start_deg` on by `span_deg`, clockwise from the top.
  virtual void Arc(SurfacePoint centre, double radius, double start_deg, double span_deg) = 0;

  // A text of one or more lines (parted by "\n"), UTF-8.
  virtual void Text(SurfacePoint at, std::string_view text, std::int32_t colour,
                    const TextStyle& style) = 0;
  // The room that Text takes; left and top are 0.
  virtual SurfaceRect TextExtent(std::string_view text, const TextStyle& style) const = 0;

  // A small drawing that is repeated, no farther than `reach` pixels from its place. A screen keeps
  // it by its key, which tells all that it depends on, and copies it to the nearest of its pixels.
  // It sets its own pen, and leaves the pen and the fill of what follows open.
  virtual void Stamp(SurfacePoint at, std::string_view /*key*/, double /*reach*/,
                     const StampDrawing& draw) {
    draw(*this, at);
  }

  // Confines what follows to a rectangle, within what it is confined to already, until the
  // PopClip that belongs to it.
  virtual void PushClip(SurfaceRect rect) = 0;
  virtual void PopClip() = 0;
};

// A line with a filled head of `head` pixels at its end `to`. The head takes the pen's colour
// `colour`, and the fill is hollow afterwards. A line of no length draws nothing.
void DrawArrow(DrawingSurface& surface, SurfacePoint from, SurfacePoint to, double head,
               std::int32_t colour);

// An upright cross with arms of `arm` pixels.
void DrawCross(DrawingSurface& surface, SurfacePoint centre, double arm);

}  // namespace skerrow
