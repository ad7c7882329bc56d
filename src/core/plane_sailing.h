#pragma once

#include <cstddef>
#include <optional>

#include "core/position.h"

// Plane-sailing arithmetic: short legs on a flat sea, one minute of latitude being one nautical
// mile, with a mean-latitude correction for the convergence of the meridians. Routines take and
// give single precision; inner terms are double. Positions either side of the 180th meridian are
// taken the long way round.
namespace skerrow {

// The program's own value of pi. It differs from the mathematical one after the tenth decimal.
inline constexpr double kPi = 3.14159265358598;
inline constexpr double kThreePi = 9.42477796075794;
inline constexpr double kTwoPi = 6.28318530717196;
inline constexpr double kDegreesPerRadian = 57.29577951;
inline constexpr double kRadiansPerDegree = 0.017453293;

// Range in nautical miles and true bearing in degrees, 0 to under 360.
struct RangeAndBearing {
  float range = 0.0F;
  float bearing = 0.0F;
};

// Range and bearing from point 1 to point 2. Identical points give 0 and 0. A bearing that would
// print as 360 is cut to its whole degree: 359.7 comes back as 359.
RangeAndBearing RangeBearing(float lat1, float long1, float lat2, float long2);
RangeAndBearing RangeBearing(Position from, Position to);

// The range of RangeBearing alone, bit for bit, without the arc tangent.
float RangeOnly(Position from, Position to);

// A vector in nautical miles or knots.
struct EastNorth {
  float east = 0.0F;
  float north = 0.0F;
};

// The position moved by `miles`; the cosine is that of the starting latitude.
Position MoveByMiles(Position from, EastNorth miles);

// The parts of a vector of `length` along `bearing` (degrees, any value).
EastNorth Resolve(float bearing, float length);

// A vector by length and direction in degrees true; the zero vector gives 0 and 0.
struct Polar {
  float length = 0.0F;
  float direction = 0.0F;
};
Polar VectorToPolar(float east, float north);

// The direction of VectorToPolar alone.
float VectorDirection(float east, float north);

// Degrees x pi / 180.
float DegToRad(float degrees);

// Brings an angle into 0 to 360. Exactly 360 on entry gives 0, but one reached by subtraction
// stays: 720 gives 360. Not a number and infinities give 0.
float NormaliseAngle(float degrees);

// Meridional value of a latitude, radians: ln(tan(lat / 2 + pi / 4)).
float MercatorY(float latitude);

// The same value by the sine form, used for a chart's two calibration latitudes.
float MercatorPartsSin(float latitude);

// Latitude in degrees of a meridional value.
float MercatorInverse(float meridional);

// Hyperbolic sine, with exp(x) stored in single precision.
float Sinh(float x);

// One of a row of places, by its index, and the range to it in nautical miles.
struct Nearest {
  std::size_t index = 0;
  float range = 0.0F;
};

// The nearest to `from` of `count` places, which `place_of` gives by index; the first of equals.
// Empty when none is nearer than `limit` nautical miles.
template <typename PlaceOf>
std::optional<Nearest> NearestOf(std::size_t count, Position from, float limit, PlaceOf place_of) {
  std::optional<Nearest> best;
  for (std::size_t i = 0; i < count; ++i) {
    const float range = RangeOnly(from, place_of(i));
    if (range < (best ? best->range : limit)) best = Nearest{i, range};
  }
  return best;
}

}  // namespace skerrow
