#include "ui/forms/ais_forms.h"

#include <algorithm>
#include <cmath>

#include "core/calendar.h"
#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/text.h"
#include "instruments/ais_shapes.h"

namespace skerrow {
namespace {

constexpr const char* kLineEnd = "\r\n";

// Whether `a` stands before `b`; values that are missing stand behind all others.
template <typename Value>
bool Before(const std::optional<Value>& a, const std::optional<Value>& b, bool descending) {
  if (!a || !b) return a.has_value() && !b.has_value();
  return descending ? *b < *a : *a < *b;
}

bool RowBefore(const TargetRow& a, const TargetRow& b, TargetOrder order) {
  const auto compare = [&](const auto& of) { return Before(of(a), of(b), order.descending); };
  switch (order.column) {
    case TargetColumn::kIndex:
      return compare([](const TargetRow& row) { return std::optional(row.index); });
    case TargetColumn::kMessageType:
      return compare([](const TargetRow& row) { return std::optional(row.message_type); });
    case TargetColumn::kMmsi:
      return compare([](const TargetRow& row) { return std::optional(row.mmsi); });
    case TargetColumn::kName:
      return compare([](const TargetRow& row) {
        return row.name.empty() ? std::optional<std::string>() : row.name;
      });
    case TargetColumn::kRange:
      return compare([](const TargetRow& row) { return row.range; });
    case TargetColumn::kCpa:
      return compare([](const TargetRow& row) { return row.cpa; });
  }
  return false;
}

const char* ClassText(const AisTarget& target) {
  switch (AisClassOf(target)) {
    case AisClass::kA:
      return "Class A";
    case AisClass::kB:
      return "Class B";
    case AisClass::kSearchAndRescue:
      return "Search and rescue aircraft";
  }
  return "";
}

std::string ApproachText(const AisTarget& target, float now) {
  return Trim(AisDataLines(target, true, now)[0].substr(std::string_view("CPA").size()));
}

std::string JoinedLines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    if (!text.empty()) text += kLineEnd;
    text += line;
  }
  return text;
}

}  // namespace

std::array<std::string, kTargetColumns> TargetHeadings() {
  std::array<std::string, kTargetColumns> headings;
  std::string rest = ReplaceAll(std::string(kAisSummaryHeading), "&&", "&");
  for (std::size_t i = 0; i + 1 < headings.size(); ++i) {
    headings[i] = rest.substr(0, rest.find("  "));
    rest = Trim(rest.substr(headings[i].size()));
  }
  headings.back() = "CPA";
  return headings;
}

std::optional<Position> TargetReference(const Program& program) {
  if ((!program.link.gps_enabled && !program.replay.replay_active) ||
      !program.nmea.fix.HasPosition()) {
    return std::nullopt;
  }
  return program.nmea.fix.At();
}

std::vector<TargetRow> TargetRows(const Program& program, float now) {
  const std::span<const AisTarget> targets = program.ais.targets.All();
  const std::optional<Position> boat = TargetReference(program);
  std::vector<AisSummaryRow> texts = AisSummaryRows(targets, boat);
  std::vector<TargetRow> rows(targets.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const AisTarget& target = targets[i];
    TargetRow& row = rows[i];
    row.mmsi = target.mmsi;
    row.name = ToLowerAscii(Trim(target.vessel_name));
    row.index = i + 1;
    row.message_type = target.message_type;
    if (boat) row.range = RangeBearing(*boat, target.At()).range;
    if (target.cpa_known && target.cpa >= 0.0F) row.cpa = target.cpa;
    row.alarm = InCpaAlarm(target, program.link.gps_enabled, program.config.cpa_alarm_range);
    row.cells = {std::move(texts[i].index),
                 std::move(texts[i].message_type),
                 std::move(texts[i].mmsi),
                 std::move(texts[i].name),
                 std::move(texts[i].range),
                 program.link.gps_enabled && target.cpa_known ? ApproachText(target, now) : ""};
  }
  return rows;
}

std::vector<TargetRow> ArrangedTargets(std::vector<TargetRow> rows, std::string_view filter,
                                       TargetOrder order) {
  const std::string wanted = ToLowerAscii(Trim(std::string(filter)));
  if (!wanted.empty()) {
    std::erase_if(rows, [&](const TargetRow& row) {
      return row.name.find(wanted) == std::string::npos &&
             row.cells[static_cast<std::size_t>(TargetColumn::kMmsi)].find(wanted) ==
                 std::string::npos;
    });
  }
  std::stable_sort(rows.begin(), rows.end(), [order](const TargetRow& a, const TargetRow& b) {
    return RowBefore(a, b, order);
  });
  return rows;
}

std::string TargetCountText(std::size_t shown, std::size_t all) {
  const std::string targets = std::to_string(all) + (all == 1 ? " target" : " targets");
  return shown == all ? targets : std::to_string(shown) + " of " + targets;
}

std::string TargetListText(const Program& program, float now) {
  std::vector<std::string> lines = {ReplaceAll(std::string(kAisSummaryHeading), "&&", "&")};
  for (const AisSummaryRow& row :
       AisSummaryRows(program.ais.targets.All(), TargetReference(program))) {
    lines.push_back(row.Text());
  }
  lines.push_back(HoursToClock(now));
  return JoinedLines(lines);
}

std::string TargetName(const AisTarget& target) {
  const std::string name = Trim(target.vessel_name);
  return name.empty() ? "MMSI " + std::to_string(target.mmsi) : name;
}

std::string TargetHeardText(const AisTarget* target, float now) {
  if (target == nullptr) return "Not heard any more";
  double hours = static_cast<double>(now) - static_cast<double>(target->last_heard);
  if (hours < 0.0) hours += 24.0;
  const auto seconds = RoundToInteger(hours * 3600.0);
  const std::string age =
      seconds < 120 ? std::to_string(seconds) + " s" : std::to_string(seconds / 60) + " min";
  return std::string(ClassText(*target)) + ", heard " + age + " ago";
}

std::string TargetDetailsText(const std::vector<std::string>& rows) { return JoinedLines(rows); }

PrintDocument TargetDetailsPage(const std::string& name, const std::vector<std::string>& rows) {
  PrintDocument page;
  page.title = "AIS Target Details";
  page.items.push_back(PrintLine(page.title + ": " + name, {"", 13.0, true}));
  page.items.push_back(PrintLine(" "));
  for (const std::string& row : rows) page.items.push_back(PrintLine(row, {}, {50.0, 56.0}));
  return page;
}

void MarkTarget(ViewState& view, const AisTarget& target) {
  view.marked_point_on = true;
  view.marked = target.At();
  // No waypoint is marked any more that a drag would move.
  if (view.marked_kind == MarkedKind::kWaypoint) view.marked_kind = MarkedKind::kNothing;
}

void ClearTargetMark(ViewState& view) {
  view.marked_point_on = false;
  if (view.marked_kind == MarkedKind::kWaypoint) view.marked_kind = MarkedKind::kNothing;
}

std::string CloseApproachText(const Program& program, const AisTarget& target, float now) {
  std::string text = "Close approach: " + TargetName(target) + "  " + ApproachText(target, now);
  if (const std::optional<Position> boat = TargetReference(program)) {
    const RangeAndBearing way = RangeBearing(*boat, target.At());
    text +=
        ", now " + FormatFixed(way.range, 1, 1) + " nm @" + FormatFixed(way.bearing, 3, 0) + "°T";
  }
  return text;
}

}  // namespace skerrow
