#include "routes/route_rows.h"

#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/position.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr std::string_view kFromMark = "From   :";
constexpr std::string_view kToMark = "To      :";
constexpr std::string_view kRangeMark = "Speed : ";

std::string TackText(std::int16_t tack) {
  if (tack == 1) return " Port Tack";
  if (tack == 2) return " Starboard Tack";
  return "";
}

}  // namespace

std::string PickListText(const WaypointRow& row) {
  return row.name + "," + row.latitude_text + " : " + row.longitude_text;
}

std::vector<std::string> LegRows(const RouteState& state, std::size_t leg) {
  if (leg == 0 || leg >= state.points.size()) return {};
  const RoutePoint& from = state.points[leg - 1];
  const RoutePoint& to = state.points[leg];
  const RangeAndBearing way = RangeBearing(from.At(), to.At());
  return {
      from.name + "\t" + std::string(kFromMark) + LatToText(from.latitude) + "," +
          LongToText(from.longitude),
      to.name + "\t" + std::string(kToMark) + LatToText(to.latitude) + " , " +
          LongToText(to.longitude),
      std::string(kRangeMark) + ShortText(from.speed) +
          " Kn.  Range = " + FormatFixed(way.range, 1, 1) +
          "  Bearing = " + FormatFixed(way.bearing, 3, 0) + "\u00b0T" + TackText(from.tack),
      "",
  };
}

std::vector<std::string> RouteRows(const RouteState& state) {
  std::vector<std::string> rows;
  for (std::size_t leg = 1; leg < state.points.size(); ++leg) {
    for (std::string& row : LegRows(state, leg)) rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<std::string> RouteComboRows(const RouteState& state) {
  if (state.points.size() == 1) {
    const RoutePoint& only = state.points.front();
    return {"Start " + LatToText(only.latitude) + " , " + LongToText(only.longitude)};
  }
  std::vector<std::string> rows = RouteRows(state);
  for (std::string& row : rows) row = Trim(ReplaceAll(std::move(row), "\t", " "));
  return rows;
}

std::string_view PositionPartOf(std::string_view row) {
  for (const std::string_view mark : {kFromMark, kToMark}) {
    const std::size_t at = row.rfind(mark);
    if (at != std::string_view::npos) return row.substr(at + mark.size());
  }
  return {};
}

}  // namespace skerrow
