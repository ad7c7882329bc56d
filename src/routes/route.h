#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/calendar.h"
#include "core/folders.h"
#include "core/messages.h"
#include "core/position.h"
#include "core/record.h"
#include "core/result.h"
#include "wind/wind_config.h"

// The current route and its file.
namespace skerrow {

// One entry of a route file. A name takes 35 bytes; a longer one is cut there.
struct RouteRecord {
  std::string name;
  float latitude = 0.0F;
  float longitude = 0.0F;
  float speed = 0.0F;

  friend bool operator==(const RouteRecord&, const RouteRecord&) = default;
};

inline constexpr std::size_t kRouteRecordSize = 47;
inline constexpr std::array<RecordField<RouteRecord>, 4> kRouteFields = {{
    {0, 35, FieldType::kText, "Name", &RouteRecord::name,
     "point name; blanks when the point has none"},
    {35, 4, FieldType::kFloat, "Latitude", &RouteRecord::latitude,
     "decimal degrees, north positive"},
    {39, 4, FieldType::kFloat, "Longitude", &RouteRecord::longitude,
     "decimal degrees, east positive"},
    {43, 4, FieldType::kFloat, "Speed", &RouteRecord::speed,
     "boat speed for the leg that starts at this point, knots"},
}};
static_assert(IsPacked(kRouteFields, kRouteRecordSize));

// A route point, and with it the leg that starts there.
struct RoutePoint {
  float latitude = 0.0F;
  float longitude = 0.0F;
  std::string name;  // empty for a point that stands on no waypoint
  // The following point; zeros and empty in the last one.
  float next_latitude = 0.0F;
  float next_longitude = 0.0F;
  std::string next_name;
  float speed = 0.0F;           // knots
  float wind_direction = 0.0F;  // degrees true, from
  float wind_speed = 0.0F;      // knots
  bool selected = false;        // work flag of the searches
  float search_mark = 0.0F;     // work value of the searches; 1.0 marks the point found first
  std::int16_t tack = 0;        // 0 none, 1 port, 2 starboard

  // What the route calculation writes for the leg.
  bool calculated = false;
  float course_to_steer = 0.0F;  // degrees, after variation and leeway
  float leg_time = 0.0F;         // hours
  std::int16_t steps = 0;
  std::vector<Position> tide_vector;  // the drift over the leg, entry by step

  Position At() const { return {latitude, longitude}; }
  Position Next() const { return {next_latitude, next_longitude}; }
};

// Most points that a route gets by editing.
inline constexpr std::size_t kMaxRoutePoints = 100;

// A leg is drawn in this many straight pieces.
inline constexpr std::size_t kTrackPiecesPerLeg = 20;

// The current route. Points and legs are counted from 1 in the selections, 0 meaning none.
struct RouteState {
  std::vector<RoutePoint> points;
  // The legs in short pieces for the chart's projection: 21 entries a leg.
  std::vector<Position> track;
  std::int16_t selected_point = 0;
  std::int16_t selected_leg = 0;
  float distance = 0.0F;  // nautical miles, sum of the legs
};

// What route operations need to know about the settings and the time of departure.
struct RouteDefaults {
  float speed = 5.0F;         // the program's default boat speed, knots
  Wind wind;                  // the program's default wind
  bool constant_wind = true;  // false: winds come from `wind_at`
  WindLookup wind_at;         // may be empty: nothing is found then
  DayAndYear departure_day;
  float departure_hours = 0.0F;
};

// Sum of the ranges of the legs, nautical miles; 0 for fewer than two points.
float RouteLengthOf(std::span<const RoutePoint> points);

// Makes each point's following position and name those of the point behind it.
void RelinkRoute(std::vector<RoutePoint>& points);

// The legs cut into straight pieces: for each leg its start, 19 steps of 5 per cent of its range
// along its bearing, and its end.
std::vector<Position> RouteTrackOf(std::span<const RoutePoint> points);

// What every change of a route ends with: links, drawing pieces, distance and selections made anew;
// results of an earlier calculation dropped.
void RouteChanged(RouteState& state);

// The wind at point `index` (from 0) at the time the boat gets there, by the speeds of the legs
// before it; empty where the lookup finds none or the boat would take over a year.
std::optional<Wind> WindAtPoint(std::span<const RoutePoint> points, std::size_t index,
                                const RouteDefaults& defaults);

// Recomputes the wind of each point when the constant wind is off. A miss keeps the wind that the
// point has, and one message says so.
void RecomputeWinds(RouteState& state, const RouteDefaults& defaults, Messages& messages);

// The path of a route file by its name.
std::string RoutePath(const Folders& folders, std::string_view file_name);

// The entries of a route file as they stand, broken ones left out. Errors: missing, unreadable, too
// many records.
Result<std::vector<RouteRecord>> ReadRouteFile(const std::string& path);

// Writes entries as the whole of a route file. Error, with the file as it was: an entry with a
// number that is none, and what stands in the way of writing.
Status WriteRouteFile(const std::string& path, std::span<const RouteRecord> records);

// Writes the route to `path`. A leg speed under 1.0 is written as `default_speed`. Errors: "No
// route set-up" for an empty route, and those of WriteRouteFile.
Status SaveRoute(const std::string& path, const RouteState& state, float default_speed);

// Whether a load keeps the speeds of the file or gives every leg the program's default.
enum class RouteSpeeds { kStored, kProgramDefault };

// Replaces the route by that of the file at `path`. Errors, with the route as it was: missing or
// unreadable file; a point outside 90 degrees of latitude or 180 of longitude; a negative speed; a
// damaged record, since a route with a point left out leads over what it was laid round. A last
// record cut short is left out, and a message says so. A file without entries empties the route and
// gives "No entries in this file". An empty path gives "Enter a new file name and then click the OK
// button". A note about missing wind goes to `messages`.
Status LoadRoute(const std::string& path, RouteSpeeds speeds, const RouteDefaults& defaults,
                 RouteState& state, Messages& messages);

}  // namespace skerrow
