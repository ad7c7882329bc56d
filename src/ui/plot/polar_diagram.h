#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "ui/drawing/drawing_surface.h"

// Pictures of values by an angle from a direction that stands up the page, such as a boat's speeds
// by the angle of the wind: half a disc, from 0 at the top over 90 at the right to 180 degrees.
namespace skerrow {

// A place in the data: an angle in degrees, 0 to 180, and a value from 0 on.
struct PolarPlace {
  double angle = 0.0;
  double value = 0.0;

  friend bool operator==(const PolarPlace&, const PolarPlace&) = default;
};

// A curve of rising angles. Its label stands at its end.
struct PolarLine {
  std::vector<PolarPlace> places;
  std::int32_t colour = 0;
  int width = 1;       // pixels
  bool cased = false;  // with a dark rim, for a colour that the paper would swallow
  std::string label;
};

// A marked place with its label.
struct PolarMark {
  PolarPlace at;
  std::int32_t colour = 0;
  std::string label;
};

struct PolarDiagram {
  double rim = 10.0;  // the value at the edge
  std::string unit;   // behind the value of the outermost ring
  std::string caption;
  std::string labels;            // what the labels of the curves are, below them
  std::vector<PolarLine> lines;  // later ones over earlier ones, and their labels first
  std::vector<PolarMark> marks;
};

// What the mouse or the keys point at: a ray, and a dot on it.
struct PolarCursor {
  PolarPlace at;
  std::int32_t colour = 0;

  friend bool operator==(const PolarCursor&, const PolarCursor&) = default;
};

// Where the data of a diagram lie on a surface.
class PolarArea {
 public:
  // `area` is what the diagram takes of the surface, its labels with it.
  PolarArea(const DrawingSurface& surface, SurfaceRect area, const PolarDiagram& diagram);

  SurfacePoint centre() const { return centre_; }
  double radius() const { return radius_; }  // pixels; not below one
  SurfacePoint ToSurface(PolarPlace place) const;
  PolarPlace ToData(SurfacePoint point) const;
  // Whether a place on the surface lies in the half disc.
  bool Holds(SurfacePoint point) const;

 private:
  SurfacePoint centre_;
  double radius_ = 1.0;
  double rim_ = 1.0;
};

// Draws the diagram with its ground into `area`.
void DrawPolar(DrawingSurface& surface, SurfaceRect area, const PolarDiagram& diagram);

// Draws the cursor over it.
void DrawPolarCursor(DrawingSurface& surface, const PolarArea& area, const PolarCursor& cursor);

}  // namespace skerrow
