#include "routes/waypoint.h"

#include <filesystem>
#include <system_error>

#include "core/files.h"
#include "core/plane_sailing.h"

namespace skerrow {

std::string WaypointPath(const Folders& folders, std::string_view file_name) {
  return JoinPath(folders.Waypoints(), file_name);
}

Result<std::vector<Waypoint>> ReadWaypointFile(const std::string& path) {
  return ReadRecords(path, kWaypointFields);
}

Status WriteWaypointFile(const std::string& path, std::span<const Waypoint> waypoints) {
  return ReplaceFile(path, EncodeRecords(waypoints, kWaypointFields));
}

std::optional<std::string> OddLengthNote(const std::string& path, std::size_t file_size,
                                         std::size_t record_size) {
  if (file_size % record_size == 0) return std::nullopt;
  return Error{path, "the length of " + std::to_string(file_size) +
                         " bytes is not a whole number of " + std::to_string(record_size) +
                         "-byte records; check the last entry"}
      .Text();
}

Status LoadCurrentWaypoints(const Folders& folders, AppConfig& config, WaypointState& state,
                            Messages& messages) {
  config.waypoint_file = Trim(config.waypoint_file);
  const std::string path = WaypointPath(folders, config.waypoint_file);
  const Result<std::string> content = ReadFile(path);
  if (!content) return content.error();
  Result<std::vector<Waypoint>> waypoints = DecodeRecords(*content, path, kWaypointFields);
  if (!waypoints) return waypoints.error();
  state.waypoints = std::move(waypoints.value());
  if (const auto note = OddLengthNote(path, content->size(), kWaypointSize)) {
    messages.Show(*note, MessageIcon::kWarning);
  }
  return Done{};
}

Status SaveWaypointsAs(const Folders& folders, std::string_view file_name,
                       const WaypointState& state) {
  return WriteWaypointFile(WaypointPath(folders, file_name), state.waypoints);
}

Status AppendWaypoint(const Folders& folders, const AppConfig& config, const Waypoint& waypoint) {
  const std::string path = WaypointPath(folders, config.waypoint_file);
  std::string content;
  std::error_code error;
  if (std::filesystem::exists(path, error)) {
    Result<std::string> old = ReadFile(path);
    if (!old) return old.error();
    content = std::move(old.value());
  }
  // The record goes where the count says, also in a file cut short. The whole file is replaced, so
  // that a full disk cannot leave half a record behind.
  const auto count = static_cast<std::size_t>(RecordCount(content.size(), kWaypointSize));
  content.resize(count * kWaypointSize, '\0');
  return ReplaceFile(path, content + EncodeRecord(waypoint, kWaypointFields));
}

Status DeleteNearestWaypoint(const Folders& folders, const AppConfig& config,
                             const WaypointState& state, Position position) {
  const std::optional<Nearest> found = NearestWaypoint(state.waypoints, position);
  const std::string path = WaypointPath(folders, config.waypoint_file);
  if (!found) return Error{path, "there is no waypoint to delete"};
  std::vector<Waypoint> rest = state.waypoints;
  rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(found->index));
  return WriteWaypointFile(path, rest);
}

Status CreateSampleWaypoints(const Folders& folders) {
  return WriteWaypointFile(WaypointPath(folders, kSampleWaypointFile), SampleWaypoints());
}

Status EnsureSampleWaypoints(const Folders& folders) {
  if (FileReadable(WaypointPath(folders, kSampleWaypointFile))) return Done{};
  return CreateSampleWaypoints(folders);
}

std::optional<Nearest> NearestWaypoint(std::span<const Waypoint> waypoints, Position position,
                                       float limit) {
  std::optional<Nearest> best;
  for (std::size_t i = 0; i < waypoints.size(); ++i) {
    const float range = RangeOnly(position, waypoints[i].At());
    if (range < (best ? best->range : limit)) best = Nearest{i, range};
  }
  return best;
}

}  // namespace skerrow
