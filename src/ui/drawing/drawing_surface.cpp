#include "ui/drawing/drawing_surface.h"

#include <algorithm>
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

std::int32_t NightColour(std::int32_t colour) {
  // Lightness is turned over by the same step for each channel, so that the hue stays; then the
  // colour is lifted to a brightness that can be read on black, and dimmed.
  constexpr double kLeastLuma = 125.0;
  constexpr double kDim = 0.75;
  std::array<double, 3> channel{};
  for (std::size_t i = 0; i < 3; ++i) channel[i] = (colour >> (8 * i)) & 0xff;
  const auto [least, most] = std::minmax_element(channel.begin(), channel.end());
  const double shift = 255.0 - *least - *most;
  // The paper's own white must come out dark; everything that could be ink must not.
  const bool is_paper = *least >= 200.0;
  for (double& value : channel) value = std::clamp(value + shift, 0.0, 255.0);
  const double luma = 0.299 * channel[0] + 0.587 * channel[1] + 0.114 * channel[2];
  if (!is_paper && luma < kLeastLuma) {
    const double white = (kLeastLuma - luma) / (255.0 - luma);
    for (double& value : channel) value += (255.0 - value) * white;
  }
  std::int32_t result = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    result |= static_cast<std::int32_t>(std::lround(channel[i] * kDim)) << (8 * i);
  }
  return result;
}

}  // namespace skerrow
