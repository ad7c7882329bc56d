#include "app/recovery.h"

#include <chrono>
#include <filesystem>

#include "app/edit_session.h"
#include "core/calendar.h"
#include "core/clock.h"
#include "core/files.h"
#include "routes/record_files.h"
#include "routes/waypoint.h"

namespace skerrow {
namespace {

constexpr std::string_view kPrefix = "recovery.";

std::string TimeTextOf(const std::string& path) {
  std::error_code error;
  const std::filesystem::file_time_type written = std::filesystem::last_write_time(path, error);
  if (error) return "an unknown time";
  const auto time =
      std::chrono::time_point_cast<std::chrono::seconds>(std::chrono::file_clock::to_sys(written));
  const ClockReading local = LocalTime(time.time_since_epoch().count());
  return HoursToClock(local.Hours()) + " on " + DateText(local.Day());
}

}  // namespace

std::string RouteRecoveryPath(const Folders& folders) {
  return JoinPath(folders.SettingsData(), "recovery.rte");
}

std::string WaypointRecoveryPath(const Folders& folders, std::string_view file_name) {
  return JoinPath(folders.SettingsData(), std::string(kPrefix) + std::string(file_name));
}

Status KeepRoute(const Folders& folders, const RouteState& route) {
  return WriteRouteFile(RouteRecoveryPath(folders), RouteContent(route));
}

Status DropRouteRecovery(const Folders& folders) { return DeleteFile(RouteRecoveryPath(folders)); }

std::optional<KeptWork> FindRouteRecovery(const Folders& folders) {
  const std::string path = RouteRecoveryPath(folders);
  const Result<std::vector<RouteRecord>> records = ReadRouteFile(path);
  if (!records || records->size() < 2) return std::nullopt;
  return KeptWork{path, "", records->size(), TimeTextOf(path)};
}

std::optional<KeptWork> FindWaypointRecovery(const Folders& folders) {
  for (const std::string& name : ListFiles(folders.SettingsData(), FileKind::kWaypoint)) {
    if (!name.starts_with(kPrefix) || name.size() <= kPrefix.size() + 4) continue;
    const std::string file_name = name.substr(kPrefix.size());
    const std::string path = WaypointRecoveryPath(folders, file_name);
    const Result<std::vector<Waypoint>> kept = ReadWaypointFile(path);
    if (!kept) continue;
    const Result<std::vector<Waypoint>> stored = ReadWaypointFile(WaypointPath(folders, file_name));
    if (stored && WaypointContent({*stored}) == WaypointContent({*kept})) {
      (void)DeleteFile(path);
      continue;
    }
    return KeptWork{path, file_name, kept->size(), TimeTextOf(path)};
  }
  return std::nullopt;
}

}  // namespace skerrow
