#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "routes/route.h"
#include "routes/waypoint_editor.h"

// The lines in which a route and waypoints are listed.
namespace skerrow {

// "Lizard,49.56.40N : 005.12.36W", as the lists of waypoints to choose from show a row.
std::string PickListText(const WaypointRow& row);

// The four rows of a leg (from 1): start, end, speed with range and bearing, and a blank.
//   "Lizard<tab>From   :49.56.40N,005.12.36W"
//   "Start Point<tab>To      :50.12.48N , 003.37.80W"
//   "Speed : 5 Kn.  Range = 63.3  Bearing = 075°T"
// The tack's name stands behind the third row when the leg has one.
std::vector<std::string> LegRows(const RouteState& state, std::size_t leg);

// The rows of all legs, as `frmRouteEdit` lists them.
std::vector<std::string> RouteRows(const RouteState& state);

// The rows of the main window's route list: those of RouteRows without tabs; "Start " and the
// position for a single point; none without a route.
std::vector<std::string> RouteComboRows(const RouteState& state);

// The leg (from 1) to which row `row` (from 0) of RouteRows belongs.
constexpr int LegOfRow(int row) { return row / 4 + 1; }

// The part of a row that holds its position, behind the mark; empty for other rows. A name may
// hold anything, so the last mark counts.
std::string_view PositionPartOf(std::string_view row);

}  // namespace skerrow
