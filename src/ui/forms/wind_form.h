#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "passage/wind_on_route.h"
#include "wind/polar.h"
#include "wind/relative_wind.h"

// What `frmWind` shows and checks: the wind entered, the boat's set-up, and what they make of the
// legs of the route.
namespace skerrow {

// What the boxes hold.
struct WindEntry {
  std::string speed;      // knots
  std::string direction;  // degrees true, from
  std::string heading;    // degrees true
};

// The entry as the form opens: the default wind.
WindEntry WindEntryOf(const Program& program);

enum class WindRefusal { kNone, kSpeed, kDirection, kSetUp, kHeading };
std::string_view WindRefusalText(WindRefusal refusal);

// Checks the wind alone: a speed from 0 to 40, a direction from 0 to 360. An empty box is refused.
WindRefusal CheckWind(const WindEntry& entry);
// Checks all that an estimate needs.
WindRefusal CheckEstimate(const WindEntry& entry, bool has_set_up);

// The wind of a checked entry.
Wind EnteredWind(const WindEntry& entry);

// "Starboard Tack, 65° off the bow": the side and angle of a wind on a heading.
std::string WindSideText(const RelativeWind& wind);

// The points of the compass, by 22.5 degrees from north on.
inline constexpr std::size_t kCompassPoints = 16;
extern const char* const kCompassNames[kCompassPoints];
// The direction of a point, whole degrees as text: "23" for NNE.
std::string CompassText(std::size_t point);
// The point nearest to a direction in degrees.
std::size_t NearestCompassPoint(double degrees);

// The set-up that was selected last, by its index among `names`.
std::optional<std::size_t> SelectedSetUp(const WindConfig& config,
                                         const std::vector<std::string>& names);

// What the calculation of leg speeds goes by: the settings, the selected time and the wind in use.
RouteWindRequest RouteWindRequestOf(const Program& program);

// "Wind Direction for Route Leg 2 Set To 225°", leg from 1.
std::string LegWindText(std::size_t leg, std::string_view direction);
// "Leg 2: wind 12.0 kn from 225°, 65° off the port bow", leg from 1; empty outside the route.
std::string LegWindDetail(const RouteState& route, std::size_t leg);

// Gives every point of the route the configured speed.
void ResetLegSpeeds(RouteState& route, float speed);

}  // namespace skerrow
