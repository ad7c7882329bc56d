#include "ui/forms/waypoint_forms.h"

#include <array>
#include <utility>

#include "core/text.h"

namespace skerrow {
namespace {

struct RefusalText {
  WaypointRefusal refusal;
  std::string_view text;
};
constexpr std::array<RefusalText, 10> kRefusalTexts = {{
    {WaypointRefusal::kBadLatitude, "Error - Latitude entry"},
    {WaypointRefusal::kBadLongitude, "Error - Longitudes entry"},
    {WaypointRefusal::kNoRowSelected, "Select a point"},
    {WaypointRefusal::kNameMissing, "Point Must have a name"},
    {WaypointRefusal::kNoDestination, "Enter a name for your destination file"},
    {WaypointRefusal::kNothingToCopy, "No waypoints selected"},
    {WaypointRefusal::kNothingToRemove, "Nothing to remove"},
    {WaypointRefusal::kBadDestination, "Check Waypoint file name"},
    {WaypointRefusal::kEmptyFile, "Empty file - nothing to go to"},
    {WaypointRefusal::kNoneSelected, "Select a point"},
}};

// Characters of a UTF-8 text.
std::size_t CharacterCount(std::string_view text) {
  std::size_t count = 0;
  for (const char c : text) {
    if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) ++count;
  }
  return count;
}

}  // namespace

std::string_view WaypointRefusalText(WaypointRefusal refusal) {
  for (const RefusalText& row : kRefusalTexts) {
    if (row.refusal == refusal) return row.text;
  }
  return "";
}

std::string WaypointEditText(const WaypointRow& row) {
  const std::string_view tabs = CharacterCount(row.name) < 9 ? "\t\t" : "\t";
  return row.name + std::string(tabs) + "," + row.latitude_text + " : " + row.longitude_text;
}

CheckedWaypoint CheckWaypointEntry(std::string_view name, std::string_view latitude,
                                   std::string_view longitude) {
  const auto lat = ParseLatitudeEntry(latitude);
  if (!lat) return {WaypointRefusal::kBadLatitude, {}};
  const auto lon = ParseLongitudeEntry(longitude);
  if (!lon) return {WaypointRefusal::kBadLongitude, {}};
  return {WaypointRefusal::kNone, {Trim(name), LatToText(*lat), LongToText(*lon)}};
}

CheckedCopy CheckWaypointCopy(std::string_view typed_name, std::size_t entries) {
  const CheckedName name = CheckFileName(typed_name, NameEntry::kWaypointSave);
  if (name.refusal == FileRefusal::kNameEmpty) return {WaypointRefusal::kNoDestination, ""};
  if (name.refusal != FileRefusal::kNone) return {WaypointRefusal::kBadDestination, ""};
  if (entries == 0) return {WaypointRefusal::kNothingToCopy, ""};
  const std::string base = name.file_name.substr(0, name.file_name.find('.'));
  return {WaypointRefusal::kNone, base + ".WAY"};
}

Status CopyWaypoints(const Folders& folders, std::string_view file_name,
                     const std::vector<WaypointRow>& rows) {
  std::vector<Waypoint> waypoints;
  waypoints.reserve(rows.size());
  for (const WaypointRow& row : rows) waypoints.push_back(WaypointOf(row));
  return WriteWaypointFile(WaypointPath(folders, file_name), waypoints);
}

SingleWaypoint CheckSingleWaypoint(std::string_view name, std::string_view latitude,
                                   std::string_view longitude) {
  SingleWaypoint entry;
  entry.waypoint = {Trim(name), TextToLat(latitude), TextToLong(longitude)};
  if (entry.waypoint.name.empty()) {
    entry.refusal = WaypointRefusal::kNameMissing;
    return entry;
  }
  if (entry.waypoint.longitude == 0.0F) {
    entry.questions.push_back("Longitude = Zero - CONTINUE ANYWAY?");
  }
  if (entry.waypoint.latitude == 0.0F) {
    entry.questions.push_back("Latitude = Zero - CONTINUE ANYWAY?");
  }
  return entry;
}

WaypointRefusal CheckLocate(std::size_t entries, std::optional<std::size_t> selected) {
  if (entries == 0) return WaypointRefusal::kEmptyFile;
  if (!selected || *selected >= entries) return WaypointRefusal::kNoneSelected;
  return WaypointRefusal::kNone;
}

}  // namespace skerrow
