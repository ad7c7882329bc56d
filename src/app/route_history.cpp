#include "app/route_history.h"

#include <utility>

namespace skerrow {
namespace {

// Results can be large and no longer hold once the route changes.
RouteState WithoutResults(const RouteState& state) {
  RouteState kept = state;
  for (RoutePoint& point : kept.points) {
    point.calculated = false;
    point.course_to_steer = 0.0F;
    point.leg_time = 0.0F;
    point.steps = 0;
    point.tide_vector = {};
  }
  return kept;
}

}  // namespace

void RouteHistory::Remember(std::string name, const RouteState& before,
                            std::optional<TimeInForce> time_before) {
  redo_.clear();
  if (undo_.size() == kDepth) undo_.erase(undo_.begin());
  undo_.push_back({std::move(name), WithoutResults(before), time_before});
}

RouteHistory::Moved RouteHistory::Step(std::vector<Snapshot>& from, std::vector<Snapshot>& onto,
                                       RouteState& route, TimeInForce& time) {
  if (from.empty()) return Moved::kNothing;
  Snapshot snapshot = std::move(from.back());
  from.pop_back();
  onto.push_back({snapshot.name, WithoutResults(route), std::nullopt});
  route = std::move(snapshot.route);
  if (!snapshot.time) return Moved::kRoute;
  onto.back().time = std::exchange(time, *snapshot.time);
  return Moved::kRouteAndTime;
}

}  // namespace skerrow
