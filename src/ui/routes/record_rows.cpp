#include "ui/routes/record_rows.h"

#include "core/numbers.h"
#include "routes/route.h"
#include "routes/waypoint.h"

namespace skerrow {
namespace {

std::string RowText(const std::string& name, float latitude, float longitude) {
  return name + "\t" + LatToText(latitude) + "\t" + LongToText(longitude);
}

}  // namespace

Result<std::vector<std::string>> RecordRows(const Folders& folders, FileKind kind,
                                            const std::string& file_name) {
  std::vector<std::string> rows;
  if (kind == FileKind::kWaypoint) {
    const Result<std::vector<Waypoint>> waypoints =
        ReadWaypointFile(WaypointPath(folders, file_name));
    if (!waypoints) return waypoints.error();
    for (const Waypoint& w : *waypoints) rows.push_back(RowText(w.name, w.latitude, w.longitude));
    return rows;
  }
  const Result<std::vector<RouteRecord>> records = ReadRouteFile(RoutePath(folders, file_name));
  if (!records) return records.error();
  for (const RouteRecord& r : *records) {
    rows.push_back(RowText(r.name, r.latitude, r.longitude) + "\t" + ShortText(r.speed) + " kn");
  }
  return rows;
}

}  // namespace skerrow
