#pragma once

#include <string>
#include <vector>

#include "app/route_history.h"
#include "routes/route.h"
#include "routes/waypoint.h"

// What of the user's work is in no file yet.
namespace skerrow {

// The route as a file would hold it, leg speeds under 1.0 left as they are.
std::vector<RouteRecord> RouteContent(const RouteState& route);

// Whether two routes have the same points, names, speeds, tacks and winds. Results of a calculation
// and selections do not count.
bool SameRoute(const RouteState& a, const RouteState& b);

// The route as it was when it last came from a file or went into one.
class SavedRoute {
 public:
  void Mark(const RouteState& route) { content_ = RouteContent(route); }

  // Whether `route` would be lost with the program. Fewer than two points are no route yet.
  bool Differs(const RouteState& route) const {
    return route.points.size() >= 2 && RouteContent(route) != content_;
  }

 private:
  std::vector<RouteRecord> content_;
};

// The edits of one run of the program: those that can be taken back, and what is in a file.
struct EditSession {
  RouteHistory history;
  SavedRoute saved_route;
  // The file that the route was last loaded from or saved to; empty for a route of no file.
  std::string route_path;
  // The waypoint table as `frmWaySave` last wrote it, record for record; empty before.
  std::string saved_waypoints;
  // The user has been told that the recovery file cannot be written.
  bool recovery_fault_told = false;
};

// The table as the bytes of a waypoint file.
std::string WaypointContent(const WaypointState& waypoints);

}  // namespace skerrow
