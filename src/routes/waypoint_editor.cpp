#include "routes/waypoint_editor.h"

#include <utility>

#include "core/text.h"

namespace skerrow {
namespace {

template <typename T>
auto At(std::vector<T>& items, std::size_t index) {
  return items.begin() + static_cast<std::ptrdiff_t>(index);
}

}  // namespace

WaypointRow RowOf(const Waypoint& waypoint) {
  return {waypoint.name, LatToText(waypoint.latitude), LongToText(waypoint.longitude)};
}

Waypoint WaypointOf(const WaypointRow& row) {
  return {Trim(row.name), TextToLat(row.latitude_text), TextToLong(row.longitude_text)};
}

Status WaypointEditor::Open(const std::string& path, Messages& messages) {
  Result<std::vector<Waypoint>> waypoints = ReadWaypointFile(path, messages);
  if (!waypoints) return waypoints.error();
  path_ = path;
  waypoints_ = std::move(waypoints.value());
  rows_.clear();
  for (const Waypoint& waypoint : waypoints_) rows_.push_back(RowOf(waypoint));
  changed_ = false;
  return Done{};
}

bool WaypointEditor::Add(const WaypointRow& entry) { return Insert(rows_.size(), entry); }

bool WaypointEditor::Insert(std::size_t before, const WaypointRow& entry) {
  if (before > rows_.size()) return false;
  rows_.insert(At(rows_, before), entry);
  waypoints_.insert(At(waypoints_, before), WaypointOf(entry));
  changed_ = true;
  return true;
}

bool WaypointEditor::Change(std::size_t row, const WaypointRow& entry) {
  if (row >= rows_.size()) return false;
  rows_[row] = entry;
  waypoints_[row] = WaypointOf(entry);
  changed_ = true;
  return true;
}

bool WaypointEditor::Delete(std::size_t row) {
  if (row >= rows_.size()) return false;
  rows_.erase(At(rows_, row));
  waypoints_.erase(At(waypoints_, row));
  changed_ = true;
  return true;
}

Status WaypointEditor::Save() {
  Status written = WriteWaypointFile(path_, waypoints_);
  if (written) changed_ = false;
  return written;
}

}  // namespace skerrow
