#include "routes/route.h"

#include <algorithm>
#include <cmath>

#include "core/files.h"
#include "core/plane_sailing.h"

namespace skerrow {
namespace {

constexpr float kHoursOfAYear = 24.0F * 365.0F;

// Why a record cannot be a route point; empty for a good one.
std::string RecordFault(const std::optional<RouteRecord>& record) {
  if (!record) return "is damaged";
  if (std::fabs(record->latitude) > 90.0F) return "has a latitude beyond 90 degrees";
  if (std::fabs(record->longitude) > 180.0F) return "has a longitude beyond 180 degrees";
  if (record->speed < 0.0F) return "has no valid speed";
  return "";
}

void DropResults(RoutePoint& point) {
  point.calculated = false;
  point.course_to_steer = 0.0F;
  point.leg_time = 0.0F;
  point.steps = 0;
  point.tide_vector.clear();
}

// Time for the leg between two points at the speed of the first; infinite or no number without one.
float LegHours(const RoutePoint& from, const RoutePoint& to) {
  return RangeOnly(from.At(), to.At()) / from.speed;
}

// The wind at a point that is reached `hours` after the departure.
std::optional<Wind> WindAfter(const RoutePoint& point, float hours, const RouteDefaults& defaults) {
  // A leg without speed never arrives: the sum is infinite, of either sign, or no number.
  if (!defaults.wind_at || !(hours >= 0.0F && hours <= kHoursOfAYear)) return std::nullopt;
  const LaterTime arrival = AddHours(defaults.departure_day, defaults.departure_hours, hours);
  return defaults.wind_at(point.At(), arrival.date, arrival.hours);
}

std::int16_t AtMost(std::int16_t selected, std::size_t count) {
  return static_cast<std::size_t>(selected) > count ? std::int16_t{0} : selected;
}

}  // namespace

float RouteLengthOf(std::span<const RoutePoint> points) {
  float total = 0.0F;
  for (std::size_t i = 1; i < points.size(); ++i) {
    total += RangeOnly(points[i - 1].At(), points[i].At());
  }
  return total;
}

void RelinkRoute(std::vector<RoutePoint>& points) {
  for (std::size_t i = 0; i < points.size(); ++i) {
    const RoutePoint end;
    const RoutePoint& next = i + 1 < points.size() ? points[i + 1] : end;
    points[i].next_latitude = next.latitude;
    points[i].next_longitude = next.longitude;
    points[i].next_name = next.name;
  }
}

std::vector<Position> RouteTrackOf(std::span<const RoutePoint> points) {
  std::vector<Position> track;
  if (points.size() < 2) return track;
  track.reserve((kTrackPiecesPerLeg + 1) * (points.size() - 1));
  for (std::size_t i = 1; i < points.size(); ++i) {
    const Position from = points[i - 1].At();
    const Position to = points[i].At();
    const RangeAndBearing leg = RangeBearing(from, to);
    const auto step = static_cast<float>(leg.range * 5.0 / 100.0);
    const EastNorth way = Resolve(leg.bearing, step);
    track.push_back(from);
    for (std::size_t k = 1; k < kTrackPiecesPerLeg; ++k) {
      track.push_back(MoveByMiles(track.back(), way));
    }
    track.push_back(to);
  }
  return track;
}

void RouteChanged(RouteState& state) {
  RelinkRoute(state.points);
  for (RoutePoint& point : state.points) DropResults(point);
  state.track = RouteTrackOf(state.points);
  state.distance = RouteLengthOf(state.points);
  state.selected_point = AtMost(state.selected_point, state.points.size());
  state.selected_leg =
      AtMost(state.selected_leg, state.points.empty() ? 0 : state.points.size() - 1);
}

std::optional<Wind> WindAtPoint(std::span<const RoutePoint> points, std::size_t index,
                                const RouteDefaults& defaults) {
  float hours = 0.0F;
  for (std::size_t i = 1; i <= index; ++i) hours += LegHours(points[i - 1], points[i]);
  return WindAfter(points[index], hours, defaults);
}

void RecomputeWinds(RouteState& state, const RouteDefaults& defaults, Messages& messages) {
  if (defaults.constant_wind) return;
  bool missed = false;
  float hours = 0.0F;
  for (std::size_t i = 0; i < state.points.size(); ++i) {
    RoutePoint& point = state.points[i];
    if (i > 0) hours += LegHours(state.points[i - 1], point);
    if (const std::optional<Wind> wind = WindAfter(point, hours, defaults)) {
      point.wind_speed = wind->speed_kn;
      point.wind_direction = wind->from_deg;
    } else {
      missed = true;
    }
  }
  if (missed) {
    messages.Show("GRIB Wind file data coverage incorrect - using last good wind values");
  }
}

std::string RoutePath(const Folders& folders, std::string_view file_name) {
  return JoinPath(folders.Routes(), file_name);
}

Result<std::vector<RouteRecord>> ReadRouteFile(const std::string& path) {
  const Result<RecordFile<RouteRecord>> file = ReadRecords(path, kRouteFields);
  if (!file) return file.error();
  return file->Sound();
}

Status WriteRouteFile(const std::string& path, std::span<const RouteRecord> records) {
  return WriteRecords(path, records, kRouteFields);
}

Status SaveRoute(const std::string& path, const RouteState& state, float default_speed) {
  if (state.points.empty()) return Error{"", "No route set-up"};
  std::vector<RouteRecord> records;
  for (const RoutePoint& point : state.points) {
    const float speed = point.speed >= 1.0F ? point.speed : default_speed;
    records.push_back({Trim(point.name), point.latitude, point.longitude, speed});
  }
  return WriteRouteFile(path, records);
}

Status LoadRoute(const std::string& path, RouteSpeeds speeds, const RouteDefaults& defaults,
                 RouteState& state, Messages& messages) {
  if (path.empty()) return Error{"", "Enter a new file name and then click the OK button"};
  const Result<RecordFile<RouteRecord>> file = ReadRecords(path, kRouteFields);
  if (!file) return file.error();
  for (std::size_t i = 0; i < file->records.size(); ++i) {
    const std::string fault = RecordFault(file->records[i]);
    if (!fault.empty()) return Error{path, "point " + std::to_string(i + 1) + " " + fault};
  }

  RouteState loaded;
  Wind last_good = defaults.wind;
  bool missed = false;
  float hours = 0.0F;
  for (const RouteRecord& record : file->Sound()) {
    RoutePoint point;
    point.latitude = record.latitude;
    point.longitude = record.longitude;
    point.name = record.name;
    point.speed = record.speed;
    loaded.points.push_back(point);
    if (!defaults.constant_wind) {
      const std::size_t count = loaded.points.size();
      if (count > 1) hours += LegHours(loaded.points[count - 2], point);
      const auto wind = WindAfter(point, hours, defaults);
      missed = missed || !wind;
      last_good = wind.value_or(last_good);
    }
    RoutePoint& added = loaded.points.back();
    added.wind_speed = last_good.speed_kn;
    added.wind_direction = last_good.from_deg;
    if (speeds == RouteSpeeds::kProgramDefault) added.speed = defaults.speed;
  }
  RouteChanged(loaded);
  state = std::move(loaded);
  TellLeftOut(path, file->left_out, messages);
  if (file->records.empty()) return Error{"", "No entries in this file"};
  if (missed) {
    messages.Show("GRIB Wind file data coverage incorrect - using default values");
  }
  return Done{};
}

}  // namespace skerrow
