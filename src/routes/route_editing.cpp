#include "routes/route_editing.h"

#include <algorithm>
#include <array>
#include <limits>

#include "core/plane_sailing.h"

namespace skerrow {
namespace {

constexpr float kSearchLimit = 9999.0F;
constexpr float kDragSearchLimit = 25000.0F;
constexpr std::size_t kMaxListEntries = 99;

struct OutcomeText {
  RouteEdit outcome;
  std::string_view text;
};
constexpr std::array<OutcomeText, 5> kOutcomeTexts = {{
    {RouteEdit::kDoneAnomalous, "Points are anomalous - best guess inserted"},
    {RouteEdit::kTooFewToInsert, "You need to have entered at least 2 points - nothing done"},
    {RouteEdit::kRouteFull, "A route can have at most 100 points - nothing done"},
    {RouteEdit::kTooFewEntries, "Insufficient entries to constitute a route"},
    {RouteEdit::kTooManyEntries, "Max of 99 points allowed"},
}};

RoutePoint NewPoint(const std::string& name, Position at, const RouteDefaults& defaults) {
  RoutePoint point;
  point.latitude = at.latitude;
  point.longitude = at.longitude;
  point.name = name;
  point.speed = defaults.speed;
  point.wind_speed = defaults.wind.speed_kn;
  point.wind_direction = defaults.wind.from_deg;
  return point;
}

// The nearest point that bears no search mark of 1.0.
std::optional<Nearest> NearestUnmarked(const RouteState& state, Position position, float limit) {
  std::optional<Nearest> best;
  for (std::size_t i = 0; i < state.points.size(); ++i) {
    if (state.points[i].search_mark == 1.0F) continue;
    const float range = RangeOnly(position, state.points[i].At());
    if (range < (best ? best->range : limit)) best = Nearest{i, range};
  }
  return best;
}

void Finish(RouteState& state, const RouteDefaults& defaults, Messages& messages) {
  RouteChanged(state);
  RecomputeWinds(state, defaults, messages);
}

}  // namespace

std::string_view RouteEditText(RouteEdit outcome) {
  for (const OutcomeText& row : kOutcomeTexts) {
    if (row.outcome == outcome) return row.text;
  }
  return "";
}

RouteEdit AddRoutePoint(RouteState& state, Position cursor, const std::optional<RouteSnap>& snap,
                        const RouteDefaults& defaults, Messages& messages) {
  if (state.points.size() >= kMaxRoutePoints) return RouteEdit::kRouteFull;
  state.points.push_back(snap ? NewPoint(snap->name, snap->at, defaults)
                              : NewPoint("", cursor, defaults));
  if (!defaults.constant_wind) {
    // Only the new point asks for its wind: those before it have theirs.
    if (const auto wind = WindAtPoint(state.points, state.points.size() - 1, defaults)) {
      state.points.back().wind_speed = wind->speed_kn;
      state.points.back().wind_direction = wind->from_deg;
    } else {
      messages.Show("GRIB Wind file data coverage incorrect - using last good wind values");
    }
  }
  if (state.points.size() >= 2) {
    state.selected_leg = static_cast<std::int16_t>(state.points.size() - 1);
  }
  RouteChanged(state);
  return RouteEdit::kDone;
}

bool RemoveLastRoutePoint(RouteState& state) {
  if (state.points.empty()) return false;
  state.points.pop_back();
  RouteChanged(state);
  return true;
}

RouteEdit InsertRoutePoint(RouteState& state, Position position, const RouteDefaults& defaults,
                           Messages& messages) {
  if (state.points.size() < 2) return RouteEdit::kTooFewToInsert;
  if (state.points.size() >= kMaxRoutePoints) return RouteEdit::kRouteFull;
  for (RoutePoint& point : state.points) {
    point.search_mark = kSearchLimit;
    point.selected = false;
  }
  const std::optional<Nearest> nearest = NearestUnmarked(state, position, kSearchLimit);
  if (!nearest) return RouteEdit::kNothingNear;
  state.points[nearest->index].search_mark = 1.0F;
  const std::optional<Nearest> second = NearestUnmarked(state, position, kSearchLimit);
  const bool neighbours =
      second && (second->index + 1 == nearest->index || nearest->index + 1 == second->index);
  const std::size_t upper =
      neighbours ? std::max(nearest->index, second->index) : nearest->index + 1;
  state.points.insert(state.points.begin() + static_cast<std::ptrdiff_t>(upper),
                      NewPoint("", position, defaults));
  Finish(state, defaults, messages);
  return neighbours ? RouteEdit::kDone : RouteEdit::kDoneAnomalous;
}

RouteEdit InsertRoutePointAt(RouteState& state, std::size_t index, const Waypoint& point,
                             const RouteDefaults& defaults, Messages& messages) {
  if (state.points.size() >= kMaxRoutePoints) return RouteEdit::kRouteFull;
  index = std::min(index, state.points.size());
  state.points.insert(state.points.begin() + static_cast<std::ptrdiff_t>(index),
                      NewPoint(point.name, point.At(), defaults));
  Finish(state, defaults, messages);
  return RouteEdit::kDone;
}

RouteEdit DeleteRoutePoint(RouteState& state, Position position, const RouteDefaults& defaults,
                           Messages& messages) {
  for (RoutePoint& point : state.points) point.selected = false;
  const std::optional<Nearest> nearest = NearestRoutePoint(state, position, kSearchLimit);
  if (!nearest) return RouteEdit::kNothingNear;
  state.points.erase(state.points.begin() + static_cast<std::ptrdiff_t>(nearest->index));
  Finish(state, defaults, messages);
  return RouteEdit::kDone;
}

std::optional<Nearest> NearestRoutePoint(const RouteState& state, Position position, float limit) {
  return NearestOf(state.points.size(), position, limit,
                   [&](std::size_t i) { return state.points[i].At(); });
}

std::optional<std::size_t> DragCandidate(const RouteState& state, Position cursor) {
  const std::optional<Nearest> nearest = NearestRoutePoint(state, cursor, kDragSearchLimit);
  if (!nearest || !(nearest->range < kDragReach)) return std::nullopt;
  return nearest->index;
}

void DragRoutePoint(RouteState& state, std::size_t index, Position cursor) {
  if (index >= state.points.size()) return;
  RoutePoint& point = state.points[index];
  point.latitude = cursor.latitude;
  point.longitude = cursor.longitude;
  point.name.clear();
  RouteChanged(state);
}

void FinishRouteDrag(RouteState& state, const RouteDefaults& defaults, Messages& messages) {
  RecomputeWinds(state, defaults, messages);
}

void DragWaypoint(WaypointState& state, std::size_t index, Position cursor) {
  if (index >= state.waypoints.size()) return;
  state.waypoints[index].latitude = cursor.latitude;
  state.waypoints[index].longitude = cursor.longitude;
}

void ReverseRoute(RouteState& state, const RouteDefaults& defaults, Messages& messages) {
  std::reverse(state.points.begin(), state.points.end());
  Finish(state, defaults, messages);
}

void ClearRoute(RouteState& state) {
  state = RouteState{};
  RouteChanged(state);
}

RouteEdit CreateRouteFromWaypoints(RouteState& state, const std::vector<Waypoint>& waypoints,
                                   const RouteDefaults& defaults, Messages& messages) {
  if (waypoints.size() < 2) return RouteEdit::kTooFewEntries;
  if (waypoints.size() > kMaxListEntries) return RouteEdit::kTooManyEntries;
  RouteState made;
  for (const Waypoint& waypoint : waypoints) {
    made.points.push_back(NewPoint(waypoint.name, waypoint.At(), defaults));
  }
  Finish(made, defaults, messages);
  state = std::move(made);
  return RouteEdit::kDone;
}

void SetAllSpeeds(RouteState& state, float speed) {
  for (RoutePoint& point : state.points) point.speed = speed;
  RouteChanged(state);
}

}  // namespace skerrow
