#include "wind/relative_wind.h"

#include <array>
#include <cmath>
#include <cstddef>

#include "core/plane_sailing.h"

namespace skerrow {
namespace {

// The last whole knot of each force but the twelfth.
constexpr std::array kForceEnds = {0, 3, 6, 10, 16, 21, 27, 33, 40, 47, 55, 63};
constexpr int kHurricane = 64;

WindOnBow FromParts(double along, double across) {
  const double speed = std::hypot(along, across);
  if (speed == 0) return {};
  return {speed, std::abs(std::atan2(across, along)) * 180.0 / kPi};
}

// The parts of a wind along the boat's axis, from ahead positive, and across it.
double Along(const WindOnBow& wind) { return wind.speed * std::cos(wind.angle * kPi / 180.0); }
double Across(const WindOnBow& wind) { return wind.speed * std::sin(wind.angle * kPi / 180.0); }

}  // namespace

RelativeWind RelativeWindOf(double from, double course) {
  double difference = std::fmod(from - course, 360.0);
  if (difference < 0) difference += 360.0;
  return {difference > 180.0 ? 360.0 - difference : difference,
          difference > 0.0 && difference < 180.0};
}

WindOnBow ApparentWind(const WindOnBow& true_wind, double boat_speed) {
  return FromParts(Along(true_wind) + boat_speed, Across(true_wind));
}

WindOnBow TrueWind(const WindOnBow& apparent, double boat_speed) {
  return FromParts(Along(apparent) - boat_speed, Across(apparent));
}

std::optional<int> BeaufortSpeed(int force) {
  if (force < 0 || force > static_cast<int>(kForceEnds.size())) return std::nullopt;
  if (force == 0) return 0;
  if (force == static_cast<int>(kForceEnds.size())) return kHurricane;
  const auto at = static_cast<std::size_t>(force);
  return (kForceEnds[at - 1] + 1 + kForceEnds[at]) / 2;
}

int BeaufortForce(double speed) {
  int force = 0;
  for (const int end : kForceEnds) {
    if (speed < end + 0.5 || (force == 0 && speed < 1)) return force;
    ++force;
  }
  return force;
}

}  // namespace skerrow
