#include "ui/drawing/drawing_surface.h"

#include <array>
#include <cmath>

namespace skerrow {

void DrawArrow(DrawingSurface& surface, SurfacePoint from, SurfacePoint to, double head,
               std::int32_t colour) {
  const double length = std::hypot(to.x - from.x, to.y - from.y);
  if (!(length > 0.0) || !std::isfinite(length)) return;
  const double along_x = (to.x - from.x) / length;
  const double along_y = (to.y - from.y) / length;
  const SurfacePoint neck{to.x - head * along_x, to.y - head * along_y};
  const double half = head * 0.4;
  surface.Line(from, to);
  surface.SetFill(colour);
  surface.Polygon(std::array<SurfacePoint, 3>{to,
                                              {neck.x - half * along_y, neck.y + half * along_x},
                                              {neck.x + half * along_y, neck.y - half * along_x}});
  surface.SetFill(std::nullopt);
}

void DrawCross(DrawingSurface& surface, SurfacePoint centre, double arm) {
  surface.Line({centre.x - arm, centre.y}, {centre.x + arm, centre.y});
  surface.Line({centre.x, centre.y - arm}, {centre.x, centre.y + arm});
}

}  // namespace skerrow
