#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "core/progress.h"
#include "tides/streams.h"

// What is told of one diamond: its table, its stream over a day, the reports of a day and of a
// month, and the changes of its record in the file of its sea area.
namespace skerrow {

inline constexpr std::size_t kDayStreamEntries = 144;

// The stream at a diamond at one time of a day.
struct DayStreamEntry {
  float rate = 0.0F;       // knots
  float direction = 0.0F;  // degrees true
  std::int16_t dep_slot = 0;
  bool known = false;  // false without a high water to count from; the others are 0 then
};

// A day of a diamond: entry i (from 0) lies i / 6 hours after midnight.
using DayStream = std::array<DayStreamEntry, kDayStreamEntries>;

// Hours of the day of an entry, from 0.
float DayStreamHours(std::size_t entry);

// Fills `stream` with a day of a diamond, which need not be in the table of the sea area. With
// equal spring and neap ranges it stays as it was.
StreamFault FillDayStream(StreamReader& reader, const Diamond& diamond, DayAndYear date,
                          DayStream& stream);

enum class DiamondReport { kSlack, kFlood, kAboveAndBelow };

// A line of a report.
struct DiamondLine {
  std::string text;
  std::optional<DayAndYear> date = {};  // the day that it tells of
  bool heading = false;
};

// What a report is asked for.
struct DiamondRequest {
  Diamond diamond;
  DiamondReport report = DiamondReport::kSlack;
  float threshold = 0.0F;  // knots, of kAboveAndBelow
  DayAndYear date;
  float hours = 0.0F;  // of the day: the time of the line that tells the stream now
};

struct DiamondDay {
  StreamFault fault = StreamFault::kNone;  // anything else: the rest is empty
  DayStream stream{};
  std::vector<DiamondLine> lines;
};

// "chart number-diamond number".
std::string DiamondRef(const Diamond& diamond);

// The name of a diamond's reference port; empty for one that is not in use or not in RefPorts.hc.
std::string RefPortName(const TideState& state, const Diamond& diamond);

// The rows of a diamond's table: head lines, and from kFirstSlotRow on one for each hour slot from
// -6 to +6, its columns parted by tabs.
std::vector<std::string> DiamondDataLines(const Diamond& diamond, const std::string& port_name);
inline constexpr std::size_t kFirstSlotRow = 6;

// "HW -6" to "HW +6", for columns 1 to 13.
std::string SlotName(int column);

// The head of a report; empty for kAboveAndBelow, whose lines say it all.
std::string ReportHead(DiamondReport report);

// The times of a day that a report is about, a line each.
std::vector<std::string> ReportLines(const DayStream& stream, DiamondReport report,
                                     float threshold);

// The report of a day: the times, the stream at the request's time, and the state of the tide at
// the reference ports, the diamond's own first.
DiamondDay MakeDiamondDay(const TideState& state, const DiamondRequest& request);

// The times of each day of the request's month. Nothing when `progress` says to stop; with equal
// spring and neap ranges there are no lines.
std::optional<std::vector<DiamondLine>> MakeDiamondMonth(const TideState& state,
                                                         const DiamondRequest& request,
                                                         Progress& progress);

// The writers below rewrite the file of a sea area as it is on the disk; what stands in it beside
// the diamond at hand, damaged and cut records too, keeps its bytes. `index` is the diamond's place
// in TideState::diamonds and `before` its record there. Errors, with the file as it was: those of
// reading and writing, a record with a field that is no number, and a file that has changed so that
// `before` is no longer in its place.
Status ReplaceDiamond(const std::string& path, std::size_t index, const Diamond& before,
                      const Diamond& after);
// Adds a record behind the last whole one.
Status AppendDiamond(const std::string& path, const Diamond& diamond);
Status DeleteDiamond(const std::string& path, std::size_t index, const Diamond& before);

}  // namespace skerrow
