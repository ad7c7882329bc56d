#pragma once

#include <array>
#include <span>
#include <vector>

#include "instruments/ais_targets.h"

// What stands for a target on the chart, in pixels: x to the right, y down. The drawing itself is
// the chart's.
namespace skerrow {

struct PixelPoint {
  double x = 0.0;
  double y = 0.0;
};

enum class AisClass { kA, kB, kSearchAndRescue };

// By the type of the last report; types 3 and 19 are those of the standard.
AisClass AisClassOf(const AisTarget& target);

// How a target is drawn.
struct AisSymbol {
  bool drawn = false;  // else neither symbol nor text
  bool filled = false;
  AisClass ais_class = AisClass::kA;
};

// Those in alarm are filled and always drawn; class A below the speed filter is not; aircraft are
// filled. History and prediction are drawn whether or not the symbol is.
AisSymbol AisSymbolOf(const AisTarget& target, bool gps_enabled, float alarm_range,
                      float speed_filter);

inline constexpr double kAisCircleRadius = 5.0;  // of a target that is not shown as a boat
inline constexpr double kAisCentreRadius = 4.0;  // in a hull
inline constexpr double kAircraftRingRadius = 8.0;

// The hull, closed: the centre, abeam to the left, ahead of that, the bow, the same down the right
// side, and the centre. `scale` is half of its beam in pixels; `course` in degrees.
std::array<PixelPoint, 7> AisHull(PixelPoint centre, double scale, float course);

// An aircraft in plan, turned to its course: the outline of the fuselage, to be filled, and lines
// along fuselage, wing and tail.
struct AircraftShape {
  std::array<PixelPoint, 6> outline;
  std::array<std::array<PixelPoint, 2>, 3> lines;
};
AircraftShape AisAircraft(PixelPoint centre, double scale, float course);

// Where the course vector ends: the place in 30 minutes.
Position AisVectorEnd(const AisTarget& target);

// The places of the track behind or ahead, from where the target is.
std::vector<Position> AisTrackFrom(const AisTarget& target, std::span<const TimedPosition> track);

}  // namespace skerrow
