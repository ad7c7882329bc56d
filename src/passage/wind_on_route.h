#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "core/messages.h"
#include "passage/optimum.h"
#include "routes/route.h"
#include "wind/polar.h"
#include "wind/wind_config.h"

// What the wind makes of a route: the boat's speed on each leg by its polar, and the tack.
namespace skerrow {

inline constexpr const char* kCoverageDefault =
    "Wind file data coverage incorrect - setting default values";

// CalcRouteElement: the speed that a polar gives for a wind on a course, and the side it comes
// over.
struct RouteElement {
  std::string speed_text;  // knots, one decimal
  float speed = 0.0F;      // the number of that text
  std::int16_t tack = 0;   // 1 port, 2 starboard
};

// Empty where a cell of the table that is needed is missing. `closest` is the smallest angle to the
// wind that the boat sails, degrees.
std::optional<RouteElement> CalcRouteElement(const PolarTable& polar, const Wind& wind,
                                             float course, float closest);

// A departure and the winds to sail with.
struct RouteWindRequest {
  float closest = 30.0F;      // degrees
  bool constant_wind = true;  // false: the wind comes from `wind_at`
  Wind default_wind;
  WindLookup wind_at;  // may be empty: nothing is found then
  DayAndYear date;
  float hours = 0.0F;
};

// The wind and what the boat makes of it on a leg.
struct LegWind {
  Wind wind;
  bool found = true;  // false: the default wind stands in for one that is not known
  RouteElement element;
};

enum class RouteWindOutcome {
  kDone,
  kNoRoute,   // fewer than two points
  kNoCell,    // the polar lacks a cell
  kBecalmed,  // the polar gives no speed for a leg, which the boat would never end
};

// The legs of a route one after the other, each begun when the one before ends by range and speed
// alone. Nothing is changed.
struct RouteWinds {
  RouteWindOutcome outcome = RouteWindOutcome::kDone;
  std::vector<LegWind> legs;  // up to the leg that stood in the way
};
RouteWinds WindsOnRoute(const std::vector<RoutePoint>& points, const PolarTable& polar,
                        const RouteWindRequest& request);

// The same, and gives each leg its wind, speed and tack, or leaves all as they are. Shows why not,
// and once, when a wind was not known.
bool SetSpeedsByWind(std::vector<RoutePoint>& points, const PolarTable& polar,
                     const RouteWindRequest& request, Messages& messages);

// The same for one leg, from 0, that begins when the legs before it end at the speeds they have. An
// index outside the route does nothing.
bool SetLegSpeedByWind(std::vector<RoutePoint>& points, std::size_t leg, const PolarTable& polar,
                       const RouteWindRequest& request, Messages& messages);

// Gives each leg the tack that a wind direction makes on its bearing, 1 port or 2 starboard.
void SetTacksByWind(std::vector<RoutePoint>& points, float wind_from);

// The speeds of the legs for a departure at another hour of the request's day. No other wind or
// speed stands in: where the forecast does not reach a leg, the polar lacks a cell, or the boat is
// too slow to calculate with, the departure has that as its trouble. `polar` must outlive it.
std::function<DepartureSpeeds(float hour)> SpeedsByDeparture(const std::vector<RoutePoint>& points,
                                                             const PolarTable& polar,
                                                             const RouteWindRequest& request);

}  // namespace skerrow
