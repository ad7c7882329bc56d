#include "ui/routes/recovery.h"

#include <QDateTime>
#include <QFileInfo>
#include <span>

#include "core/calendar.h"
#include "routes/file_forms.h"
#include "routes/waypoint.h"
#include "ui/routes/unsaved.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr std::string_view kPrefix = "recovery.";

std::string TimeTextOf(const std::string& path) {
  const QDateTime time = QFileInfo(ToQt(path)).lastModified();
  const QDate date = time.date();
  const DayAndYear day = {DateToDayOfYear(date.day(), date.month(), date.year()),
                          static_cast<std::int16_t>(date.year())};
  return FromQt(time.toString(QStringLiteral("hh:mm"))) + " on " + DateText(day);
}

}  // namespace

std::string RouteRecoveryPath(const Folders& folders) {
  return JoinPath(folders.SettingsData(), "recovery.rte");
}

std::string WaypointRecoveryPath(const Folders& folders, std::string_view file_name) {
  return JoinPath(folders.SettingsData(), std::string(kPrefix) + std::string(file_name));
}

Status KeepRoute(const Folders& folders, const RouteState& route) {
  const std::vector<RouteRecord> records = RouteContent(route);
  return ReplaceFile(RouteRecoveryPath(folders),
                     EncodeRecords(std::span<const RouteRecord>(records), kRouteFields));
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
