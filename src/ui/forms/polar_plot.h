#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "ui/plot/plot.h"
#include "ui/plot/polar_diagram.h"
#include "wind/polar.h"

// What the pictures of a boat's polar show.
namespace skerrow {

// The wind speeds that the plots offer: option 0 for 2 knots, 14 for 30.
struct WindOption {
  const char* caption;
  std::int32_t colour;  // on paper; the night turns it
  bool cased;           // drawn with a rim, as paper would swallow it
};
extern const std::array<WindOption, kPolarCurves> kWindOptions;

// The wind of an option, knots, and its column in kPolarColumns.
constexpr int WindOfOption(std::size_t option) { return 2 * (static_cast<int>(option) + 1); }
constexpr std::size_t ColumnOfOption(std::size_t option) { return option + 2; }

// The option whose wind is nearest to a wind speed in knots.
std::size_t OptionOfWind(double wind);

// A wind and what the boat makes of it, marked on the polar.
struct PolarEstimate {
  double wind = 0.0;   // knots
  double angle = 0.0;  // degrees
  std::string speed;   // knots
};

// The polar of all wind speeds, the curve of the selected option strong.
PolarDiagram BoatPolar(const PolarRows& rows, std::optional<std::size_t> option,
                       const std::optional<PolarEstimate>& estimate);

// Boat speed against the true wind angle at the wind speed of an option, and against the wind speed
// at an angle of the table.
Plot SpeedByAngle(const PolarRows& rows, std::size_t option);
Plot SpeedByWind(const PolarRows& rows, int angle);

// What stands at a place of the polar: the nearest curve at that angle, and the boat's speed on it.
struct PolarReadout {
  std::size_t option = 0;
  PolarPlace at;       // on the curve
  std::string cursor;  // "Wind 12kn, boat speed 6.3kn"
  std::string angle;   // "True wind angle 075°"
};
// `option` chooses the curve, or else the nearest to the place. Empty where no curve reaches.
std::optional<PolarReadout> ReadPolar(const PolarRows& rows, PolarPlace place,
                                      std::optional<std::size_t> option = std::nullopt);

// The angle of the table nearest to an angle.
int NearestPolarAngle(double angle);

}  // namespace skerrow
