#include "ui/forms/route_forms.h"

#include <array>
#include <cmath>

#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/text.h"

namespace skerrow {
namespace {

struct RefusalText {
  RouteFormRefusal refusal;
  std::string_view text;
};
constexpr std::array<RefusalText, 11> kRefusalTexts = {{
    {RouteFormRefusal::kNoLegSelected,
     "Click on a route leg before trying to insert or delete a waypoint"},
    {RouteFormRefusal::kBadLatitude, "Error - Latitude entry"},
    {RouteFormRefusal::kBadLongitude, "Error - Longitude entry"},
    {RouteFormRefusal::kBadSpeed, "Must enter a valid speed"},
    {RouteFormRefusal::kNoWaypointSelected, "Select a waypoint from the list"},
    {RouteFormRefusal::kNoInsertionSide,
     "Select insertion point Before or After Leg start waypoint"},
    {RouteFormRefusal::kEmptyWaypoint, "Select a waypoint"},
    {RouteFormRefusal::kNoRowSelected, "Highlight a Point before pressing Delete"},
    {RouteFormRefusal::kRowWithoutLongitude, "Point does not contain a longitude"},
    {RouteFormRefusal::kNothingToRemove, "Nothing to remove"},
    {RouteFormRefusal::kRouteFull, "A route can have at most 100 points - nothing done"},
}};

}  // namespace

LegEntry EntryOfLeg(const RouteState& state, std::size_t leg) {
  if (leg == 0 || leg >= state.points.size()) return {};
  const RoutePoint& from = state.points[leg - 1];
  const RoutePoint& to = state.points[leg];
  return {from.name,
          LatToText(from.latitude),
          LongToText(from.longitude),
          to.name,
          LatToText(to.latitude),
          LongToText(to.longitude),
          ShortText(from.speed)};
}

std::string_view RouteFormText(RouteFormRefusal refusal) {
  for (const RefusalText& row : kRefusalTexts) {
    if (row.refusal == refusal) return row.text;
  }
  return "";
}

std::optional<float> ParseLatitudeEntry(std::string_view text) {
  const float latitude = TextToLat(text);
  if (latitude == 0.0F || !(std::fabs(latitude) <= 90.0F)) return std::nullopt;
  return latitude;
}

std::optional<float> ParseLongitudeEntry(std::string_view text) {
  const std::string trimmed = TrimRight(text);
  if (trimmed.empty() || (trimmed.back() != 'E' && trimmed.back() != 'W')) return std::nullopt;
  const float longitude = TextToLong(trimmed);
  if (!(std::fabs(longitude) <= 180.0F)) return std::nullopt;
  return longitude;
}

RouteFormRefusal EditLeg(RouteState& state, std::size_t leg, const LegEntry& entry, LegCheck check,
                         const RouteDefaults& defaults, Messages& messages) {
  if (leg == 0 || leg >= state.points.size()) return RouteFormRefusal::kNoLegSelected;
  const auto start_latitude = ParseLatitudeEntry(entry.start_latitude);
  const auto end_latitude = ParseLatitudeEntry(entry.end_latitude);
  if (!start_latitude || !end_latitude) return RouteFormRefusal::kBadLatitude;
  const float start_longitude = TextToLong(entry.start_longitude);
  const float end_longitude = TextToLong(entry.end_longitude);
  const bool on_earth = std::fabs(start_longitude) <= 180.0F && std::fabs(end_longitude) <= 180.0F;
  const bool told = check == LegCheck::kLetters ? ParseLongitudeEntry(entry.start_longitude) &&
                                                      ParseLongitudeEntry(entry.end_longitude)
                                                : end_longitude != 0.0F;
  if (!on_earth || !told) return RouteFormRefusal::kBadLongitude;
  const auto speed = static_cast<float>(TextToNumber(entry.speed));
  if (!std::isfinite(speed) || speed < 0.0F) return RouteFormRefusal::kBadSpeed;

  RoutePoint& from = state.points[leg - 1];
  RoutePoint& to = state.points[leg];
  // A text that was left as it stood keeps the position to its last bit.
  const LegEntry shown = EntryOfLeg(state, leg);
  if (entry.start_latitude != shown.start_latitude) from.latitude = *start_latitude;
  if (entry.start_longitude != shown.start_longitude) from.longitude = start_longitude;
  if (entry.end_latitude != shown.end_latitude) to.latitude = *end_latitude;
  if (entry.end_longitude != shown.end_longitude) to.longitude = end_longitude;
  from.name = Trim(entry.start_name);
  to.name = Trim(entry.end_name);
  from.speed = speed;
  RouteChanged(state);
  RecomputeWinds(state, defaults, messages);
  return RouteFormRefusal::kNone;
}

RouteFormRefusal InsertWaypointAtLeg(RouteState& state, std::size_t leg,
                                     const std::optional<WaypointRow>& waypoint, InsertSide side,
                                     const RouteDefaults& defaults, Messages& messages) {
  if (leg == 0 || leg >= state.points.size()) return RouteFormRefusal::kNoLegSelected;
  if (!waypoint) return RouteFormRefusal::kNoWaypointSelected;
  if (side == InsertSide::kNotChosen) return RouteFormRefusal::kNoInsertionSide;
  if (Trim(waypoint->latitude_text).empty() || Trim(waypoint->longitude_text).empty()) {
    return RouteFormRefusal::kEmptyWaypoint;
  }
  const std::size_t index = side == InsertSide::kBefore ? leg - 1 : leg;
  const RouteEdit outcome =
      InsertRoutePointAt(state, index, WaypointOf(*waypoint), defaults, messages);
  return outcome == RouteEdit::kRouteFull ? RouteFormRefusal::kRouteFull : RouteFormRefusal::kNone;
}

RouteFormRefusal DeletePointOfRow(RouteState& state, std::string_view row,
                                  const RouteDefaults& defaults, Messages& messages) {
  if (Trim(row).empty()) return RouteFormRefusal::kNoRowSelected;
  const std::string_view position = PositionPartOf(row);
  const std::size_t comma = position.find(',');
  if (comma == std::string_view::npos) return RouteFormRefusal::kRowWithoutLongitude;
  const std::string_view rest = position.substr(comma + 1);
  const std::size_t letter = rest.find_first_of("EW");
  if (letter == std::string_view::npos) return RouteFormRefusal::kRowWithoutLongitude;
  const Position at{TextToLat(Trim(position.substr(0, comma))),
                    TextToLong(Trim(rest.substr(0, letter + 1)))};
  return DeleteRoutePoint(state, at, defaults, messages) == RouteEdit::kDone
             ? RouteFormRefusal::kNone
             : RouteFormRefusal::kNoRowSelected;
}

RouteFormRefusal ApplySpeedToAllLegs(RouteState& state, std::string_view speed_text) {
  const auto speed = static_cast<float>(TextToNumber(speed_text));
  if (!(speed > 0.0F) || !std::isfinite(speed)) return RouteFormRefusal::kBadSpeed;
  SetAllSpeeds(state, speed);
  return RouteFormRefusal::kNone;
}

RouteEdit CreateRouteFromRows(RouteState& state, const std::vector<WaypointRow>& rows,
                              const RouteDefaults& defaults, Messages& messages) {
  std::vector<Waypoint> waypoints;
  waypoints.reserve(rows.size());
  for (const WaypointRow& row : rows) waypoints.push_back(WaypointOf(row));
  return CreateRouteFromWaypoints(state, waypoints, defaults, messages);
}

}  // namespace skerrow
