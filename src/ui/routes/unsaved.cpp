#include "ui/routes/unsaved.h"

#include <algorithm>

namespace skerrow {

std::vector<RouteRecord> RouteContent(const RouteState& route) {
  std::vector<RouteRecord> records;
  for (const RoutePoint& point : route.points) {
    records.push_back({point.name, point.latitude, point.longitude, point.speed});
  }
  return records;
}

bool SameRoute(const RouteState& a, const RouteState& b) {
  return std::equal(a.points.begin(), a.points.end(), b.points.begin(), b.points.end(),
                    [](const RoutePoint& left, const RoutePoint& right) {
                      return left.name == right.name && left.At() == right.At() &&
                             left.speed == right.speed && left.tack == right.tack &&
                             left.wind_speed == right.wind_speed &&
                             left.wind_direction == right.wind_direction;
                    });
}

std::string WaypointContent(const WaypointState& waypoints) {
  return EncodeRecords(std::span<const Waypoint>(waypoints.waypoints), kWaypointFields);
}

bool WaypointsUnsaved(const Program& program, const EditSession& session) {
  if (program.waypoints.waypoints.empty()) return false;
  const std::string content = WaypointContent(program.waypoints);
  if (content == session.saved_waypoints) return false;
  const Result<std::vector<Waypoint>> stored =
      ReadWaypointFile(WaypointPath(program.folders, program.config.waypoint_file));
  return !stored || WaypointContent({stored.value()}) != content;
}

}  // namespace skerrow
