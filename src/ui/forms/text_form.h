#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "core/result.h"
#include "exchange/user_files.h"
#include "routes/record_files.h"

// The export of routes, waypoints and the calculated course as text, and the import of such tables.
namespace skerrow {

// Larger files are no tables of routes or waypoints.
inline constexpr std::size_t kMostTableBytes = std::size_t{16} * 1024 * 1024;

// The bytes of a stored file as a table. Errors: missing, unreadable.
Result<std::string> TableOfFile(const Folders& folders, FileKind kind, const std::string& file);
// The bytes of the calculated course as a table, and its rows for a list, columns parted by tabs.
std::string CourseTableFile(const PassageState& passage);
std::vector<std::string> CourseRows(const PassageState& passage);

// The tables in a folder: names with ".csv" or ".txt" in either case, by name.
std::vector<std::string> ListTables(const std::string& folder);

// A table that has been read.
struct ImportedTable {
  FileKind kind = FileKind::kRoute;
  std::vector<RouteRecord> route;
  std::vector<Waypoint> waypoints;
  Taken taken;

  std::size_t points() const { return kind == FileKind::kRoute ? route.size() : waypoints.size(); }
  // Name, position and, of a route, speed in columns.
  std::vector<std::string> Rows() const;
  // What is done to it, a sentence each.
  std::vector<std::string> Remarks() const;
};
// Errors: missing, unreadable, too large; those of ReadRouteTable and ReadWaypointTable.
Result<ImportedTable> ReadTable(const Program& program, FileKind kind, const std::string& path);

// Writes it under `name`; see SaveRouteFiles.
Result<std::vector<std::string>> SaveTable(const Folders& folders, const ImportedTable& table,
                                           std::string_view name, const MayReplace& may_replace);

}  // namespace skerrow
