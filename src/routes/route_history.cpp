#include "routes/route_history.h"

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

void RouteHistory::Remember(std::string name, const RouteState& before) {
  redo_.clear();
  if (undo_.size() == kDepth) undo_.erase(undo_.begin());
  undo_.push_back({std::move(name), WithoutResults(before)});
}

bool RouteHistory::Step(std::vector<Snapshot>& from, std::vector<Snapshot>& onto,
                        RouteState& state) {
  if (from.empty()) return false;
  Snapshot snapshot = std::move(from.back());
  from.pop_back();
  onto.push_back({snapshot.name, WithoutResults(state)});
  state = std::move(snapshot.route);
  return true;
}

void RouteHistory::Forget() {
  undo_.clear();
  redo_.clear();
}

}  // namespace skerrow
