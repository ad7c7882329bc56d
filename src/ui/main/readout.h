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

// The five panels of the status bar. `eta` stands in panel 3 in place of the waypoint file while a
// track is animated.
std::array<std::string, 5> StatusPanels(const Program& program, const ViewState& view,
                                        const std::string& eta);

// The rows of the readout box: "Cursor", the position, and a range where there is a point to take
// it from. `latitude` and `longitude` are the texts of the cursor.
std::vector<std::string> CursorReadout(const ViewState& view, const std::string& latitude,
                                       const std::string& longitude);

// What floats beside the cursor while the dividers are on.
std::string DividersText(const ViewState& view);

// The list of recent charts, newest first, at most six paths without doubles.
inline constexpr std::size_t kMaxRecentCharts = 6;
void AddRecentChart(std::vector<std::string>& recent, const std::string& path);

// Makes the chart of a stored ".cht" path the one of the settings.
void ApplyRecentChart(AppConfig& config, const std::string& cht_path);

// The route's legs as text for the clipboard.
std::string RouteText(const RouteState& route);

}  // namespace skerrow
