#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/config.h"
#include "core/folders.h"
#include "core/messages.h"
#include "core/plane_sailing.h"
#include "core/position.h"
#include "core/record.h"
#include "core/result.h"

// The user's stored marks: waypoint files and the table of the current one.
namespace skerrow {

// A stored mark. In a file the name takes 35 bytes; a longer one is cut there.
struct Waypoint {
  std::string name;
  float latitude = 0.0F;
  float longitude = 0.0F;

  Position At() const { return {latitude, longitude}; }
  friend bool operator==(const Waypoint&, const Waypoint&) = default;
};

inline constexpr std::size_t kWaypointSize = 43;
inline constexpr std::array<RecordField<Waypoint>, 3> kWaypointFields = {{
    {0, 35, FieldType::kText, "Name", &Waypoint::name, "waypoint name"},
    {35, 4, FieldType::kFloat, "Latitude", &Waypoint::latitude, "decimal degrees, north positive"},
    {39, 4, FieldType::kFloat, "Longitude", &Waypoint::longitude, "decimal degrees, east positive"},
}};
static_assert(IsPacked(kWaypointFields, kWaypointSize));

// The current waypoint file as of its last load, in file order.
struct WaypointState {
  std::vector<Waypoint> waypoints;
};

inline constexpr std::string_view kSampleWaypointFile = "Sample.way";

// The path of a waypoint file by its name.
std::string WaypointPath(const Folders& folders, std::string_view file_name);

// The marks of a file, broken records left out. Errors: missing, unreadable, more records than a
// 16-bit number counts.
Result<std::vector<Waypoint>> ReadWaypointFile(const std::string& path);

// The same; a message tells what was left out.
Result<std::vector<Waypoint>> ReadWaypointFile(const std::string& path, Messages& messages);

// Writes marks as the whole of a file. Error, with the file as it was: a position that is no
// number, and what stands in the way of writing.
Status WriteWaypointFile(const std::string& path, std::span<const Waypoint> waypoints);

// Trims the current file name in `config` and loads that file into `state`. On an error the table
// stays as it was, so that a file lost for a moment does not take the marks off the chart. Broken
// records are left out, and a message says so.
Status LoadCurrentWaypoints(const Folders& folders, AppConfig& config, WaypointState& state,
                            Messages& messages);

// Writes the whole table to the file of that name.
Status SaveWaypointsAs(const Folders& folders, std::string_view file_name,
                       const WaypointState& state);

// Writes one record behind the last whole one of the current file, creating the file when it is
// missing. The table in memory is not touched. Error, with the file as it was: a position that is
// no number, and what stands in the way of reading or writing.
Status AppendWaypoint(const Folders& folders, const AppConfig& config, const Waypoint& waypoint);

// Takes the entry of the table that lies nearest to `position`, the first of equals, out of the
// current file; the table in memory is not touched. Error: no entry within 9999 nm.
Status DeleteNearestWaypoint(const Folders& folders, const AppConfig& config,
                             const WaypointState& state, Position position);

// The 46 marks of the sample file, in order.
std::span<const Waypoint> SampleWaypoints();

// Writes the sample file.
Status CreateSampleWaypoints(const Folders& folders);

// Creates the sample file if it is missing, as the start of the program does. Error: it cannot be
// written, or there is one that cannot be read, which stays as it is.
Status EnsureSampleWaypoints(const Folders& folders);

// The waypoint with the smallest range from `position` that lies strictly below `limit`; the first
// of equals.
std::optional<Nearest> NearestWaypoint(std::span<const Waypoint> waypoints, Position position,
                                       float limit = 9999.0F);

}  // namespace skerrow
