#include "core/plane_sailing.h"

#include <cmath>

#include "core/numbers.h"

namespace skerrow {
namespace {

constexpr float kSouth = 3.1415927F;

// Parts of the way from one point to another, nautical miles.
struct Departure {
  double east = 0.0;
  float north = 0.0F;
};

inline Departure DepartureBetween(float lat1, float long1, float lat2, float long2) {
  const auto d_lat = static_cast<float>((static_cast<double>(lat2) - lat1) * 60.0);
  const auto d_long = static_cast<float>(static_cast<double>(long2) - long1);
  const auto mean_lat = static_cast<float>((static_cast<double>(lat1) + lat2) / 2.0);
  return {d_long * std::cos(mean_lat * kPi / 180.0) * 60.0, d_lat};
}

inline float Length(double east, double north) {
  return static_cast<float>(std::sqrt(east * east + north * north));
}

// The angle of a vector, chosen by the signs of its parts, in radians.
double AngleBySigns(double east, double north) {
  if (east > 0) {
    if (north > 0) return std::atan(east / north);
    if (north < 0) return std::atan(std::fabs(north / east)) + kPi / 2;
    return kPi / 2;
  }
  if (east < 0) {
    if (north > 0) return std::atan(std::fabs(north / east)) + kThreePi / 2;
    if (north < 0) return std::atan(std::fabs(east / north)) + kPi;
    return kThreePi / 2;
  }
  return north < 0 ? static_cast<double>(kSouth) : 0.0;
}

}  // namespace

RangeAndBearing RangeBearing(float lat1, float long1, float lat2, float long2) {
  const Departure way = DepartureBetween(lat1, long1, lat2, long2);
  auto bearing = static_cast<float>(AngleBySigns(way.east, way.north) * kDegreesPerRadian);
  if (RoundToInteger(bearing) >= 360) bearing = std::floor(bearing);
  return {Length(way.east, way.north), bearing};
}

RangeAndBearing RangeBearing(Position from, Position to) {
  return RangeBearing(from.latitude, from.longitude, to.latitude, to.longitude);
}

float RangeOnly(Position from, Position to) {
  const Departure way = DepartureBetween(from.latitude, from.longitude, to.latitude, to.longitude);
  return Length(way.east, way.north);
}

Position MoveByMiles(Position from, EastNorth miles) {
  return {static_cast<float>(from.latitude + miles.north / 60.0),
          static_cast<float>(from.longitude +
                             miles.east / std::cos(from.latitude * kPi / 180.0) / 60.0)};
}

EastNorth Resolve(float bearing, float length) {
  const auto radians = static_cast<float>((bearing / 360.0 + bearing / 360.0) * kPi);
  return {static_cast<float>(length * std::sin(static_cast<double>(radians))),
          static_cast<float>(length * std::cos(static_cast<double>(radians)))};
}

Polar VectorToPolar(float east, float north) {
  return {Length(east, north), VectorDirection(east, north)};
}

float VectorDirection(float east, float north) {
  return static_cast<float>(AngleBySigns(east, north) * kDegreesPerRadian);
}

float DegToRad(float degrees) { return static_cast<float>(degrees * kPi / 180.0); }

float NormaliseAngle(float degrees) {
  if (!std::isfinite(degrees)) return 0.0F;
  if (degrees == 360.0F) return 0.0F;
  // A huge angle is brought near by its remainder first, since a turn taken from it may be lost in
  // rounding; below the limit each turn is taken off by itself, whose rounding the results have.
  constexpr float kStepLimit = 360000.0F;
  if (std::fabs(degrees) > kStepLimit) degrees = std::fmod(degrees, 360.0F);
  if (degrees < 0.0F) {
    while (degrees < 0.0F) degrees += 360.0F;
  } else {
    while (degrees > 360.0F) degrees -= 360.0F;
  }
  return degrees;
}

float MercatorY(float latitude) {
  return static_cast<float>(std::log(std::tan(latitude / 360.0 * kPi + kPi / 4)));
}

float MercatorPartsSin(float latitude) {
  const double sign = latitude < 0.0F ? -1.0 : 1.0;
  const double angle = latitude * kRadiansPerDegree * sign;
  const double sine = std::sin(angle);
  return static_cast<float>(std::log((1 + sine) / (1 - sine)) / 2 * sign);
}

float MercatorInverse(float meridional) {
  return static_cast<float>(std::atan(static_cast<double>(Sinh(meridional))) * kDegreesPerRadian);
}

float Sinh(float x) {
  const auto e = static_cast<float>(std::exp(static_cast<double>(x)));
  return static_cast<float>((e - 1.0 / e) / 2.0);
}

}  // namespace skerrow
