#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "core/folders.h"
#include "core/result.h"
#include "routes/route.h"

// The files of the settings folder that bring unsaved work back after the program ended badly.
namespace skerrow {

// Where the unsaved route is kept, in the form of a route file.
std::string RouteRecoveryPath(const Folders& folders);

// Where the unsaved rows of the waypoint file `file_name` are kept: "recovery.Solent.way".
std::string WaypointRecoveryPath(const Folders& folders, std::string_view file_name);

// Keeps the route, its speeds as they are. Error, with what was kept before as it was: those of
// WriteRouteFile.
Status KeepRoute(const Folders& folders, const RouteState& route);

// Forgets the kept route; none is no error.
Status DropRouteRecovery(const Folders& folders);

// Work found at the start of the program.
struct KeptWork {
  std::string path;
  std::string file_name;  // of the waypoint file that was edited; empty for a route
  std::size_t count = 0;  // points or waypoints
  std::string time_text;  // "21:48 on 5 Dec 2026", local time of the last edit
};

// The kept route of at least two points, if there is one that can be read.
std::optional<KeptWork> FindRouteRecovery(const Folders& folders);

// The kept rows of a waypoint file, the first in alphabetical order, that differ from the file's.
// Such as do not differ are removed.
std::optional<KeptWork> FindWaypointRecovery(const Folders& folders);

}  // namespace skerrow
