#pragma once

#include <cstdint>

namespace skerrow {

// How the chart and all that stands over it is shown.
struct Look {
  bool night = false;    // white paper dark, black ink light, the hues kept, nothing bright
  int brightness = 100;  // percent, 10 to 100

  friend bool operator==(const Look&, const Look&) = default;
};

// The brightest that a channel of a chart or an overlay gets at night, at full brightness.
inline constexpr int kNightCeiling = 165;

// The brightest that a channel gets in a look.
double CeilingOf(const Look& look);

// The colour (that of the records) in which something of colour `colour` is shown: by night dark
// colours turn light and light ones dark, the hue stays, and nothing is brighter than the ceiling.
std::int32_t ShownColour(std::int32_t colour, const Look& look);

}  // namespace skerrow
