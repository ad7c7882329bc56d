#include "ui/forms/text_form.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "exchange/text_table.h"

namespace skerrow {
namespace {

std::string PointRow(std::string_view name, Position place) {
  std::string row(name);
  return row.append("\t")
      .append(LatToText(place.latitude))
      .append("\t")
      .append(LongToText(place.longitude));
}

}  // namespace

Result<std::string> TableOfFile(const Folders& folders, FileKind kind, const std::string& file) {
  if (kind == FileKind::kRoute) {
    const auto records = ReadRouteFile(RoutePath(folders, file));
    if (!records) return records.error();
    return TableFile(RouteTable(*records));
  }
  const auto waypoints = ReadWaypointFile(WaypointPath(folders, file));
  if (!waypoints) return waypoints.error();
  return TableFile(WaypointTable(*waypoints));
}

std::string CourseTableFile(const PassageState& passage) { return TableFile(CourseTable(passage)); }

std::vector<std::string> CourseRows(const PassageState& passage) {
  std::vector<std::string> rows;
  for (const CourseStep& step : CourseSteps(passage)) {
    rows.push_back(step.when.substr(11) + "\t" + PointRow(step.steer, step.place) + "\t" +
                   (step.course.empty() ? "" : step.speed + " kn @ " + step.course) + "\t" +
                   (step.rate.empty() ? "" : step.rate + "@" + step.direction) + "\t" +
                   step.diamond);
  }
  return rows;
}

std::vector<std::string> ListTables(const std::string& folder) {
  namespace fs = std::filesystem;
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    const std::string name = it->path().filename().string();
    const std::string lower = ToLowerAscii(name);
    if ((lower.ends_with(".csv") || lower.ends_with(".txt")) && FileReadable(it->path().string())) {
      names.push_back(name);
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<std::string> ImportedTable::Rows() const {
  std::vector<std::string> rows;
  rows.reserve(points());
  for (const Waypoint& waypoint : waypoints) rows.push_back(PointRow(waypoint.name, waypoint.At()));
  for (const RouteRecord& record : route) {
    rows.push_back(PointRow(record.name, {record.latitude, record.longitude}) + "\t" +
                   ShortText(record.speed) + " kn");
  }
  return rows;
}

std::vector<std::string> ImportedTable::Remarks() const {
  std::vector<std::string> remarks = TakenTexts(taken);
  if (const std::size_t parts = RoutePartsOf(route.size()); parts > 1) {
    remarks.push_back("A route holds 100 points; this one makes " + std::to_string(parts) +
                      " routes.");
  }
  return remarks;
}

Result<ImportedTable> ReadTable(const Program& program, FileKind kind, const std::string& path) {
  const Result<std::string> text = ReadFile(path, kMostTableBytes);
  if (!text) return text.error();
  ImportedTable table;
  table.kind = kind;
  if (kind == FileKind::kRoute) {
    auto route = ReadRouteTable(*text, program.route_speed, table.taken);
    if (!route) return Error{FileNameOf(path), route.error().reason};
    table.route = std::move(route.value());
  } else {
    auto waypoints = ReadWaypointTable(*text, table.taken);
    if (!waypoints) return Error{FileNameOf(path), waypoints.error().reason};
    table.waypoints = std::move(waypoints.value());
  }
  return table;
}

Result<std::vector<std::string>> SaveTable(const Folders& folders, const ImportedTable& table,
                                           std::string_view name, const MayReplace& may_replace) {
  return table.kind == FileKind::kRoute
             ? SaveRouteFiles(folders, table.route, name, may_replace)
             : SaveWaypointFiles(folders, table.waypoints, name, may_replace);
}

}  // namespace skerrow
