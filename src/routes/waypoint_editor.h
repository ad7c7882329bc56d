#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "core/result.h"
#include "routes/waypoint.h"

namespace skerrow {

// A waypoint as the pick lists hold it: its position in texts, to a hundredth of a minute.
struct WaypointRow {
  std::string name;
  std::string latitude_text;   // "50.30.25N"
  std::string longitude_text;  // "001.05.40W"
};

WaypointRow RowOf(const Waypoint& waypoint);

// The waypoint that a row stands for, its position read from the texts.
Waypoint WaypointOf(const WaypointRow& row);

// The rows of a waypoint file while it is edited; nothing reaches the file before Save.
class WaypointEditor {
 public:
  // Takes the rows of a file; a message tells what was left out. On an error the editor keeps what
  // it has.
  Status Open(const std::string& path, Messages& messages);

  // Makes Save write over another file than the one that was opened.
  void WriteTo(const std::string& path) { path_ = path; }

  const std::vector<WaypointRow>& rows() const { return rows_; }
  // Whether rows differ from the file as opened or saved.
  bool changed() const { return changed_; }

  // Rows count from 0. Each is false, and changes nothing, when there is no such row.
  bool Add(const WaypointRow& entry);
  bool Insert(std::size_t before, const WaypointRow& entry);
  bool Change(std::size_t row, const WaypointRow& entry);
  bool Delete(std::size_t row);

  // Writes all rows in list order over the file that was opened or named since. Rows that were not
  // touched keep their position to the last bit; the others get that of their texts.
  Status Save();

 private:
  std::string path_;
  std::vector<WaypointRow> rows_;
  std::vector<Waypoint> waypoints_;  // beside rows_, entry by entry
  bool changed_ = false;
};

}  // namespace skerrow
