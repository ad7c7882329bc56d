#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/folders.h"
#include "core/result.h"
#include "routes/waypoint_editor.h"
#include "ui/forms/file_forms.h"
#include "ui/forms/route_forms.h"

// What the waypoint dialogs check and do.
namespace skerrow {

// Why a waypoint dialog refuses an entry.
enum class WaypointRefusal {
  kNone,
  kBadLatitude,
  kBadLongitude,
  kNoRowSelected,
  kNameMissing,      // single waypoint entry
  kNoDestination,    // copy
  kNothingToCopy,    // copy
  kNothingToRemove,  // copy
  kBadDestination,   // copy
  kEmptyFile,        // locate
  kNoneSelected,     // locate
};

// The text shown for a refusal.
std::string_view WaypointRefusalText(WaypointRefusal refusal);

// A row of `frmWayEdit`: columns by tabs, "Lizard<tab><tab>,49.56.40N : 005.12.36W". Names under 9
// characters have one tab more.
std::string WaypointEditText(const WaypointRow& row);

// An entry of the waypoint editor, checked.
struct CheckedWaypoint {
  WaypointRefusal refusal = WaypointRefusal::kNone;
  WaypointRow row;
};

// Checks typed texts: a latitude of exactly 0 and a longitude without "E" or "W" at its end are
// refused, in this order; so are more than 90 and 180 degrees.
CheckedWaypoint CheckWaypointEntry(std::string_view name, std::string_view latitude,
                                   std::string_view longitude);

// The check before a copy; its file name has the extension ".WAY".
struct CheckedCopy {
  WaypointRefusal refusal = WaypointRefusal::kNone;
  std::string file_name;
};
CheckedCopy CheckWaypointCopy(std::string_view typed_name, std::size_t entries);

// Asked when the file of a copy exists.
inline constexpr std::string_view kCopyOverwriteQuestion = "File exists - Overwrite ?";

// Writes the copied rows to the file of that name.
Status CopyWaypoints(const Folders& folders, std::string_view file_name,
                     const std::vector<WaypointRow>& rows);

// A typed or picked waypoint: the refusal, or the waypoint and the questions to ask in turn, each
// of which a No ends.
struct SingleWaypoint {
  WaypointRefusal refusal = WaypointRefusal::kNone;
  Waypoint waypoint;
  std::vector<std::string_view> questions;
};
SingleWaypoint CheckSingleWaypoint(std::string_view name, std::string_view latitude,
                                   std::string_view longitude);

// The prompt of the mouse entry of a waypoint.
inline constexpr std::string_view kMouseWaypointPrompt = "Enter a Waypoint Name";
inline constexpr std::string_view kMouseWaypointTitle = "Mouse Entry of Waypoint";
inline constexpr std::string_view kMouseWaypointDefault = "Waypoint No";

// The check of `frmWayFileLocate`: `selected` from 0, empty when no row is highlighted.
WaypointRefusal CheckLocate(std::size_t entries, std::optional<std::size_t> selected);

}  // namespace skerrow
