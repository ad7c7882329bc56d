#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/polar_database.h"
#include "core/result.h"

// Boat speeds by true wind speed and angle: the estimate from a set-up's table, and the text form
// that routing programs share.
namespace skerrow {

inline constexpr int kPolarAngleStep = 5;
inline constexpr int kFirstPolarAngle = 30;
inline constexpr int kLastPolarAngle = 180;
inline constexpr std::size_t kPolarAngles = 31;
// The curves that the plots show, of 2 to 30 knots of wind.
inline constexpr std::size_t kPolarCurves = 15;
inline constexpr double kFastestBoat = 100.0;  // knots; what is faster is no boat

inline constexpr const char* kPolarCellFault = "Error in database for this wind and angle";
inline constexpr const char* kNoSetUp = "Select a set up";

// The column, in kPolarColumns, of a wind speed in knots.
std::size_t PolarColumnOf(double wind_speed);

// BoatSpeedFromWindEntryAndSpeed: the text of one cell. `row` counts from 1; 0 reads the first row
// and a row above 30 the 30th. Empty where the cell or its row is missing.
std::optional<std::string> BoatSpeedFromWindEntryAndSpeed(const PolarRows& rows, int row,
                                                          double wind_speed);

// calcAngle: the row angles about an angle, degrees, and what it exceeds the lower one by.
struct AngleBand {
  int lower = 0;
  int upper = 0;
  double excess = 0.0;
};
AngleBand calcAngle(double angle);

// NearestWindSpeed: the table speeds about a wind speed, knots, and the difference from the lower
// one that the interpolation uses: 2 for a speed that is in the table.
struct WindBand {
  int lower = 0;
  int upper = 0;
  double difference = 0.0;
};
WindBand NearestWindSpeed(double wind_speed);

// The boat's speed, knots, as text with one decimal, for a true wind speed in knots and a true wind
// angle from 0 to 180. Below the angle `closest`, which the boat can not sail, it is slowed in
// proportion, to 0.5 knots at the least. Empty where a cell that is needed is missing.
std::optional<std::string> EstimateBoatSpeed(const PolarRows& rows, double wind_speed, double angle,
                                             double closest);

// The same from numbers, for callers that ask often: a table read once.
class PolarTable {
 public:
  explicit PolarTable(const PolarRows& rows);
  // As EstimateBoatSpeed, unrounded.
  std::optional<double> Estimate(double wind_speed, double angle, double closest) const;

 private:
  std::optional<double> Cell(int row, double wind_speed) const;
  std::vector<double> angles_;
  std::vector<std::array<std::optional<double>, kPolarColumns.size()>> cells_;
};

// The boat speeds of one column as the plots show them: pairs of angle and speed, those of speed 0
// left out.
struct PolarPoint {
  double angle = 0.0;
  double speed = 0.0;
};
struct PolarCurve {
  std::vector<PolarPoint> points;
  double fastest = -1.0;  // knots; -1 without points
};
PolarCurve PolarCurveOf(const PolarRows& rows, std::size_t column);

// A table read from the shared text form: the first row has the wind speeds, the first column the
// angles, parted by tabs, semicolons or commas, for any grid of speeds and angles.
struct PolarImport {
  PolarRows rows;
  // Cells that lie outside the grid of the text, and take the value of its edge.
  int guessed = 0;
};
// Errors: no numbers, fewer than two speeds or angles, rows of different lengths, values that no
// boat has. Each names the line.
Result<PolarImport> PolarFromText(std::string_view text);

// The shared text form of a table, parted by tabs, with a column for each wind speed from 2 knots
// on. A missing cell is 0.
std::string PolarToText(const PolarRows& rows);

}  // namespace skerrow
