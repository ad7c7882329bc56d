#include "routes/waypoint.h"

#include "core/files.h"
#include "core/plane_sailing.h"

namespace skerrow {

std::string WaypointPath(const Folders& folders, std::string_view file_name) {
  return JoinPath(folders.Waypoints(), file_name);
}

Result<std::vector<Waypoint>> ReadWaypointFile(const std::string& path) {
  NoMessages nobody;
  return ReadWaypointFile(path, nobody);
}

Result<std::vector<Waypoint>> ReadWaypointFile(const std::string& path, Messages& messages) {
  const Result<RecordFile<Waypoint>> file = ReadRecords(path, kWaypointFields);
  if (!file) return file.error();
  TellLeftOut(path, file->left_out, messages);
  return file->Sound();
}

Status WriteWaypointFile(const std::string& path, std::span<const Waypoint> waypoints) {
  return WriteRecords(path, waypoints, kWaypointFields);
}

Status LoadCurrentWaypoints(const Folders& folders, AppConfig& config, WaypointState& state,
                            Messages& messages) {
  config.waypoint_file = Trim(config.waypoint_file);
  Result<std::vector<Waypoint>> waypoints =
      ReadWaypointFile(WaypointPath(folders, config.waypoint_file), messages);
  if (!waypoints) return waypoints.error();
  state.waypoints = std::move(waypoints.value());
  return Done{};
}

Status SaveWaypointsAs(const Folders& folders, std::string_view file_name,
                       const WaypointState& state) {
  return WriteWaypointFile(WaypointPath(folders, file_name), state.waypoints);
}

Status AppendWaypoint(const Folders& folders, const AppConfig& config, const Waypoint& waypoint) {
  const std::string path = WaypointPath(folders, config.waypoint_file);
  if (Status sound = CheckRecords<Waypoint>(path, {&waypoint, 1}, kWaypointFields); !sound) {
    return sound;
  }
  std::string content;
  if (FileIsThere(path)) {
    Result<std::string> old = ReadFile(path);
    if (!old) return old.error();
    content = std::move(old.value());
  }
  // What is left of a record that was cut short goes: filled up, it would be a mark somewhere else.
  // The whole file is replaced, so that a full disk cannot leave half a record behind.
  content.resize(content.size() / kWaypointSize * kWaypointSize);
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
  const std::string path = WaypointPath(folders, kSampleWaypointFile);
  if (!FileIsThere(path)) return CreateSampleWaypoints(folders);
  // One that is there and cannot be read is the user's all the same.
  if (const Result<std::string> content = ReadFile(path); !content) return content.error();
  return Done{};
}

std::optional<Nearest> NearestWaypoint(std::span<const Waypoint> waypoints, Position position,
                                       float limit) {
  return NearestOf(waypoints.size(), position, limit,
                   [&](std::size_t i) { return waypoints[i].At(); });
}

}  // namespace skerrow
