#pragma once

#include <array>
#include <string>
#include <vector>

#include "app/program.h"
#include "ui/overlays/view_state.h"

// What the main window says of its state, as texts.
namespace skerrow {

inline constexpr const char* kProgramName = "Skerrow Helm";

// The window title.
std::string CaptionText(const Program& program, const std::string& route_status);

// The tail of the title for a route: ":  Creating Route", ":  Route = 12.3nm", or empty.
std::string RouteStatusText(const RouteState& route);

// The tail of the title for a route just made from the waypoint list: "Route distance = 12.3nm.".
std::string ListedRouteText(const RouteState& route);

// Behind the title: the name of the route's file, with an asterisk while what it holds is not
// saved. A route of no file is "Unnamed".
std::string RouteNameText(const Program& program);

// The five panels of the status bar. The time along the track stands in panel 3 in place of the
// waypoint file while a track is animated.
std::array<std::string, 5> StatusPanels(const Program& program, const ViewState& view);

// The rows of the readout box: "Cursor", the position, and a range where there is a point to take
// it from. `latitude` and `longitude` are the texts of the cursor.
std::vector<std::string> CursorReadout(const ViewState& view, const std::string& latitude,
                                       const std::string& longitude);

// lblGPS: the boat's position, course and speed and its way to the GPS's waypoint, or with a marked
// point the way there and the time of arrival; empty without reception.
std::string GpsReadout(const Program& program, const ViewState& view);

// What floats beside the cursor while the dividers are on.
std::string DividersText(const ViewState& view);

// The route's legs as text for the clipboard.
std::string RouteText(const RouteState& route);

}  // namespace skerrow
