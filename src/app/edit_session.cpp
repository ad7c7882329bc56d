#include "app/edit_session.h"

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

}  // namespace skerrow
