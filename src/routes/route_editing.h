#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/messages.h"
#include "core/position.h"
#include "routes/route.h"
#include "routes/waypoint.h"

// The operations that change the current route. Each leaves the route linked, measured and cut
// into its drawing pieces. Questions are asked by the caller before the operation: see RouteText.
namespace skerrow {

// How an editing operation ended. kDone and kDoneAnomalous have changed the route; after any other
// it is as it was.
enum class RouteEdit {
  kDone,
  kDoneAnomalous,   // inserted, though the two nearest points are no neighbours
  kTooFewToInsert,  // fewer than two points
  kNothingNear,     // no point within 9999 nm
  kRouteFull,       // kMaxRoutePoints reached
  kTooFewEntries,   // fewer than two list entries
  kTooManyEntries,  // more than 99 list entries
};

// The text shown for an outcome; empty for kDone and kNothingNear.
std::string_view RouteEditText(RouteEdit outcome);

// The questions that go before an operation, with their titles.
struct Question {
  std::string_view text;
  std::string_view title;
};
inline constexpr Question kInsertRoutePointQuestion = {"Insert a route point?", "Insert Point"};
inline constexpr Question kDeleteRoutePointQuestion = {"Delete a route point?",
                                                       "Delete Route Point"};
inline constexpr Question kDeleteWaypointQuestion = {"Delete the waypoint?", "Delete Waypoint"};
inline constexpr Question kClearRouteQuestion = {"Clear existing route?", kProgramTitle};

// The waypoint that the next route point is to sit on.
struct RouteSnap {
  std::string name;
  Position at;
};

// Adds a point at `cursor`, or on the waypoint of `snap`, with the default speed and wind. From
// the second point on there is a route and its last leg is selected.
RouteEdit AddRoutePoint(RouteState& state, Position cursor, const std::optional<RouteSnap>& snap,
                        const RouteDefaults& defaults, Messages& messages);

// Takes the last point off; false when there is none.
bool RemoveLastRoutePoint(RouteState& state);

// Inserts a point between the two points nearest to `position`. When these are no neighbours it
// goes straight behind the nearest, and at the end of the route if that is the last.
RouteEdit InsertRoutePoint(RouteState& state, Position position, const RouteDefaults& defaults,
                           Messages& messages);

// Inserts `point` before the point of `index` (from 0; the number of points appends it).
RouteEdit InsertRoutePointAt(RouteState& state, std::size_t index, const Waypoint& point,
                             const RouteDefaults& defaults, Messages& messages);

// Deletes the point nearest to `position`, the first of equals.
RouteEdit DeleteRoutePoint(RouteState& state, Position position, const RouteDefaults& defaults,
                           Messages& messages);

// The route point nearest to `position` and its range, strictly below `limit`; the first of equals.
std::optional<Nearest> NearestRoutePoint(const RouteState& state, Position position,
                                         float limit = 9999.0F);

// A point nearer than this to the cursor can be dragged, nautical miles.
inline constexpr float kDragReach = 1.0F;

// The point that a drag at `cursor` would take.
std::optional<std::size_t> DragCandidate(const RouteState& state, Position cursor);

// Moves a point to the cursor during a drag; it loses its name, since it no longer stands on a
// waypoint. The winds wait for FinishRouteDrag. An index outside the route does nothing.
void DragRoutePoint(RouteState& state, std::size_t index, Position cursor);

// What the release of a dragged point does.
void FinishRouteDrag(RouteState& state, const RouteDefaults& defaults, Messages& messages);

// Moves a waypoint of the table for this session; a save of the table keeps it. An index outside
// the table does nothing.
void DragWaypoint(WaypointState& state, std::size_t index, Position cursor);

// Turns the route round. Speed, wind and tack travel with their points.
void ReverseRoute(RouteState& state, const RouteDefaults& defaults, Messages& messages);

// Empties the route and what belongs to it.
void ClearRoute(RouteState& state);

// Makes the route from 2 to 99 waypoints, with default speed and wind.
RouteEdit CreateRouteFromWaypoints(RouteState& state, const std::vector<Waypoint>& waypoints,
                                   const RouteDefaults& defaults, Messages& messages);

// Gives every point the speed, knots.
void SetAllSpeeds(RouteState& state, float speed);

}  // namespace skerrow
