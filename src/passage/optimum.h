#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "core/config.h"
#include "core/messages.h"
#include "core/progress.h"
#include "passage/passage_state.h"
#include "passage/route_calculation.h"
#include "routes/route.h"
#include "tides/streams.h"

// The search for the best hour to leave: the whole route calculated for every whole hour of a slot.
namespace skerrow {

struct DepartureSlot {
  const char* caption;
  int first_hour;
  int last_hour;  // tried too
};

// The five slots, in the order of their option buttons.
inline constexpr std::array<DepartureSlot, 5> kDepartureSlots = {{
    {"Midnight to 07:00hrs", 0, 7},
    {"06:00hrs to 13:00hrs", 6, 13},
    {"13:00hrs to 19:00 hrs", 12, 19},
    {"18:00hrs to 23:00 hrs", 18, 23},
    {"Full 24 hours", 0, 23},
}};

// What one departure sails with.
struct DepartureSpeeds {
  std::vector<float> legs;  // knots
  std::string trouble;      // why it can not be sailed, "no wind on leg 2"; empty: it can
};

struct OptimumRequest {
  DepartureSlot slot = kDepartureSlots[4];
  DayAndYear date;
  // Departures calculated side by side; 0 takes as many as the machine has processors.
  unsigned threads = 0;
  // The speeds of the legs for a departure at an hour, where they depend on it; null keeps those of
  // the route. Asked for on the caller's thread, once a departure.
  std::function<DepartureSpeeds(float hour)> speeds_at;
  std::string speeds_from;  // what they come from, for the report
};

// Searches the departures of a slot. A leg that cannot be achieved counts with the time that the
// solver gives, and the route is not changed but for the steps of its points. The results do not
// depend on the number of threads. A departure that can not be sailed is left out: its time is no
// number, and a line says why; where that is so with all of them the search is refused with the
// reason. A search refused or cancelled leaves everything as it was.
RouteOutcome SearchDeparture(const OptimumRequest& request, const AppConfig& config,
                             TideState& tides, RouteState& route, PassageState& passage,
                             Messages& messages, Progress& progress);

// Indices of the earliest longest and earliest shortest time, of those that are numbers; both 0
// without any.
struct OptimumExtremes {
  std::size_t longest = 0;
  std::size_t shortest = 0;
};
OptimumExtremes ExtremesOf(const std::vector<float>& times);

}  // namespace skerrow
