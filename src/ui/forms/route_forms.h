#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/messages.h"
#include "routes/route.h"
#include "routes/route_editing.h"
#include "routes/route_rows.h"
#include "routes/waypoint_editor.h"

// What the route dialogs and the route list of the main window show, check and do.
namespace skerrow {

// What the text boxes of a leg hold.
struct LegEntry {
  std::string start_name;
  std::string start_latitude;
  std::string start_longitude;
  std::string end_name;
  std::string end_latitude;
  std::string end_longitude;
  std::string speed;
};

// The texts of a leg (from 1); empty ones outside the route.
LegEntry EntryOfLeg(const RouteState& state, std::size_t leg);

// Why `frmRouteEdit` refuses an entry.
enum class RouteFormRefusal {
  kNone,
  kNoLegSelected,
  kBadLatitude,
  kBadLongitude,
  kBadSpeed,
  kNoWaypointSelected,
  kNoInsertionSide,
  kEmptyWaypoint,
  kNoRowSelected,
  kRowWithoutLongitude,
  kNothingToRemove,  // from the list of `frmRouteWayPoints`
  kRouteFull,
};

// The text shown for a refusal.
std::string_view RouteFormText(RouteFormRefusal refusal);

// Latitude of a typed text. Empty for a text that gives exactly 0 or more than 90 degrees.
std::optional<float> ParseLatitudeEntry(std::string_view text);

// Longitude of a typed text. Empty for one that does not end in "E" or "W" or gives more than 180.
std::optional<float> ParseLongitudeEntry(std::string_view text);

// How the two dialogs that edit a leg check its longitudes.
enum class LegCheck {
  kLetters,          // both end in "E" or "W"
  kDestinationZero,  // that of the destination isn't 0
};

// Gives leg `leg` (from 1) the typed ends, names and speed. Refused: latitudes of 0, what lies
// beyond 90 and 180 degrees, longitudes as `check` says, a speed below 0.
RouteFormRefusal EditLeg(RouteState& state, std::size_t leg, const LegEntry& entry, LegCheck check,
                         const RouteDefaults& defaults, Messages& messages);

// The side of the leg's starting point on which a waypoint goes in.
enum class InsertSide { kNotChosen, kBefore, kAfter };

// "Insert Selected Point": `leg` from 1, 0 when none is selected; `waypoint` empty when no row of
// the list is selected.
RouteFormRefusal InsertWaypointAtLeg(RouteState& state, std::size_t leg,
                                     const std::optional<WaypointRow>& waypoint, InsertSide side,
                                     const RouteDefaults& defaults, Messages& messages);

// "Delete Selected Point": the position is that of the row's text; empty when no row is selected.
RouteFormRefusal DeletePointOfRow(RouteState& state, std::string_view row,
                                  const RouteDefaults& defaults, Messages& messages);

// "Apply Speed to all Legs". A speed of 0 changes nothing.
RouteFormRefusal ApplySpeedToAllLegs(RouteState& state, std::string_view speed_text);

// OK of `frmRouteWayPoints`: the route of the listed rows.
RouteEdit CreateRouteFromRows(RouteState& state, const std::vector<WaypointRow>& rows,
                              const RouteDefaults& defaults, Messages& messages);

}  // namespace skerrow
