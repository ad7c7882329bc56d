#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "platform/printing.h"
#include "ui/overlays/view_state.h"

// The list of targets and the details of one, without the windows.
namespace skerrow {

// The columns of the list: those of the heading, and the closest approach.
enum class TargetColumn : std::uint8_t { kIndex, kMessageType, kMmsi, kName, kRange, kCpa };
inline constexpr std::size_t kTargetColumns = 6;
std::array<std::string, kTargetColumns> TargetHeadings();

// A row of the list, and what it is sorted by.
struct TargetRow {
  std::int32_t mmsi = 0;
  std::array<std::string, kTargetColumns> cells;
  std::string name;  // in small letters; empty when none was received
  std::size_t index = 0;
  std::int16_t message_type = 0;
  std::optional<float> range;  // nautical miles
  std::optional<float> cpa;    // nautical miles, of one that is closing
  bool alarm = false;          // under the alarm range
};

// The boat as the reference of ranges: while the GPS is on or a log is replayed, and it has a
// position.
std::optional<Position> TargetReference(const Program& program);

// The rows of all targets in table order. `now` as AisHours gives it.
std::vector<TargetRow> TargetRows(const Program& program, float now);

// Which column the list is sorted by.
struct TargetOrder {
  TargetColumn column = TargetColumn::kIndex;
  bool descending = false;
};

// The rows whose name or MMSI holds `filter`, capitals and small letters alike, in an order. Equal
// ones stay in table order; those that have no name, range or closest approach come last either
// way.
std::vector<TargetRow> ArrangedTargets(std::vector<TargetRow> rows, std::string_view filter,
                                       TargetOrder order);

// "31 targets", "4 of 31 targets".
std::string TargetCountText(std::size_t shown, std::size_t all);

// The list for the clipboard: heading, rows and the time, joined by CR LF.
std::string TargetListText(const Program& program, float now);

// What a target is called: its name, or its MMSI.
std::string TargetName(const AisTarget& target);

// "Class A, heard 12 s ago". `target` null: "Not heard any more".
std::string TargetHeardText(const AisTarget* target, float now);

// Details for the clipboard, rows joined by CR LF, and for the printer.
std::string TargetDetailsText(const std::vector<std::string>& rows);
PrintDocument TargetDetailsPage(const std::string& name, const std::vector<std::string>& rows);

// Makes a target's place the marked point, and forgets the marked point.
void MarkTarget(ViewState& view, const AisTarget& target);
void ClearTargetMark(ViewState& view);

// What the status bar says of a target that comes too close:
// "Close approach: ATLANTIC STAR  0.12nm @ 14:05, now 3.2 nm @045°T".
std::string CloseApproachText(const Program& program, const AisTarget& target, float now);

}  // namespace skerrow
