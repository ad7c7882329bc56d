#pragma once

#include <optional>

// The wind as the boat meets it.
namespace skerrow {

// The angle between the direction that a wind blows from and a course, and its side.
struct RelativeWind {
  double angle = 0.0;      // degrees, 0 to 180
  bool starboard = false;  // false for a wind from port, from dead ahead and from dead astern
};

// Both in degrees true.
RelativeWind RelativeWindOf(double from, double course);

// A wind by its speed, knots, and its angle from the bow, degrees, 0 to 180.
struct WindOnBow {
  double speed = 0.0;
  double angle = 0.0;
};

// The apparent wind on a boat that makes `boat_speed` knots through a true wind, without leeway; a
// calm on board has the angle 0.
WindOnBow ApparentWind(const WindOnBow& true_wind, double boat_speed);

// The true wind behind an apparent one.
WindOnBow TrueWind(const WindOnBow& apparent, double boat_speed);

// The middle of a Beaufort force, 0 to 12, in whole knots; empty outside.
// World Meteorological Organization, Manual on Codes, No. 306, table 1100.
std::optional<int> BeaufortSpeed(int force);

// The force of a wind speed in knots.
int BeaufortForce(double speed);

}  // namespace skerrow
