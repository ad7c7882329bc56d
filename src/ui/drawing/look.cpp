#include "ui/drawing/look.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace skerrow {
namespace {

// Lightness is turned over by the same step for each channel, so that the hue stays; then the
// colour is lifted to a brightness that can be read on black.
void TurnOver(std::array<double, 3>& channel) {
  constexpr double kLeastLuma = 145.0;
  const auto [least, most] = std::minmax_element(channel.begin(), channel.end());
  const double shift = 255.0 - *least - *most;
  // The paper's own white must come out dark; everything that could be ink must not.
  const bool is_paper = *least >= 200.0;
  for (double& value : channel) value = std::clamp(value + shift, 0.0, 255.0);
  const double luma = 0.299 * channel[0] + 0.587 * channel[1] + 0.114 * channel[2];
  if (is_paper || luma >= kLeastLuma) return;
  const double white = (kLeastLuma - luma) / (255.0 - luma);
  for (double& value : channel) value += (255.0 - value) * white;
}

}  // namespace

double CeilingOf(const Look& look) {
  return (look.night ? kNightCeiling : 255) * std::clamp(look.brightness, 10, 100) / 100.0;
}

std::int32_t ShownColour(std::int32_t colour, const Look& look) {
  std::array<double, 3> channel{};
  for (std::size_t i = 0; i < 3; ++i) channel[i] = (colour >> (8 * i)) & 0xff;
  if (look.night) TurnOver(channel);
  std::int32_t result = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    const double shown = channel[i] * CeilingOf(look) / 255.0;
    result |= static_cast<std::int32_t>(std::floor(shown + 1e-9)) << (8 * i);
  }
  return result;
}

}  // namespace skerrow
