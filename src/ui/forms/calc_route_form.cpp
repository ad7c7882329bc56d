#include "ui/forms/calc_route_form.h"

#include <cmath>

#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/text.h"
#include "passage/optimum.h"
#include "routes/route_editing.h"

namespace skerrow {
namespace {

bool Within(float value, float limit) { return std::fabs(value) <= limit; }

}  // namespace

CalcRouteTexts CalcRouteTextsOf(const Program& program) {
  const float hours =
      program.selected_time.override_ ? program.selected_time.hours : program.clock->Now().Hours();
  return {HoursToClock(hours), DateText(program.selected_time.Day()), program.use_leeway,
          ShortText(program.config.leeway_angle),
          "Route = " + FormatFixed(RouteLengthOf(program.route.points), 1, 1) + "Nm"};
}

std::string_view LegRefusalText(LegRefusal refusal) {
  switch (refusal) {
    case LegRefusal::kLatitude:
      return "Error - Latitude entry";
    case LegRefusal::kLongitude:
      return "Error - Longitude entry";
    case LegRefusal::kNone:
    case LegRefusal::kNoLeg:
      break;
  }
  return "";
}

LegRefusal AcceptLeg(Program& program, std::size_t leg, const LegEntry& entry, Messages& messages) {
  std::vector<RoutePoint>& points = program.route.points;
  if (leg < 1 || leg >= points.size()) return LegRefusal::kNoLeg;
  const float start_latitude = TextToLat(entry.start_latitude);
  const float start_longitude = TextToLong(entry.start_longitude);
  const float end_latitude = TextToLat(entry.end_latitude);
  const float end_longitude = TextToLong(entry.end_longitude);
  for (const float latitude : {start_latitude, end_latitude}) {
    if (latitude == 0.0F || !Within(latitude, 90.0F)) return LegRefusal::kLatitude;
  }
  if (end_longitude == 0.0F || !Within(end_longitude, 180.0F) || !Within(start_longitude, 180.0F)) {
    return LegRefusal::kLongitude;
  }
  RoutePoint& start = points[leg - 1];
  RoutePoint& end = points[leg];
  // A text left as it stood keeps the coordinate to its last bit.
  const LegEntry shown = EntryOfLeg(program.route, leg);
  if (entry.start_latitude != shown.start_latitude) start.latitude = start_latitude;
  if (entry.start_longitude != shown.start_longitude) start.longitude = start_longitude;
  if (entry.end_latitude != shown.end_latitude) end.latitude = end_latitude;
  if (entry.end_longitude != shown.end_longitude) end.longitude = end_longitude;
  start.name = Trim(entry.start_name);
  start.speed = static_cast<float>(TextToNumber(entry.speed));
  end.name = Trim(entry.end_name);
  const RouteDefaults defaults = RouteDefaultsOf(program);
  RouteChanged(program.route);
  RecomputeWinds(program.route, defaults, messages);
  ForgetCalculation(program);
  return LegRefusal::kNone;
}

bool ApplyRouteSpeed(Program& program, std::string_view speed_text) {
  const auto speed = static_cast<float>(TextToNumber(speed_text));
  if (!(speed > 0.0F) || !std::isfinite(speed)) return false;
  SetAllSpeeds(program.route, speed);
  ForgetCalculation(program);
  return true;
}

void ReverseCurrentRoute(Program& program, Messages& messages) {
  ReverseRoute(program.route, RouteDefaultsOf(program), messages);
  ForgetCalculation(program);
}

bool WindOnStarboard(float wind_direction, float course) {
  double angle = std::fmod(static_cast<double>(wind_direction) - course, 360.0);
  if (angle < 0.0) angle += 360.0;
  return angle > 0.0 && angle < 180.0;
}

void SetTacks(Program& program) {
  const float wind = program.wind_config.Default().direction;
  std::vector<RoutePoint>& points = program.route.points;
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    const float course = RangeBearing(points[i].At(), points[i].Next()).bearing;
    points[i].tack =
        static_cast<std::int16_t>(WindOnStarboard(wind, course) ? Tack::kStarboard : Tack::kPort);
  }
}

std::optional<GpsReading> GpsReadingOf(const Program& program) {
  const bool receiving = program.gps_enabled ||
                         (program.ais_enabled && program.config.gps_through_ais != 0) ||
                         program.replay_active;
  if (!receiving || !program.boat.HasPosition()) return std::nullopt;
  return GpsReading{program.boat.position, std::nullopt};
}

void UseGpsForStart(Program& program, const GpsReading& gps, bool use_speed, Messages& messages) {
  if (program.route.points.empty()) return;
  RoutePoint& start = program.route.points.front();
  start.latitude = gps.position.latitude;
  start.longitude = gps.position.longitude;
  start.name.clear();  // it stands on no waypoint any more
  if (use_speed && gps.speed_over_ground) {
    for (RoutePoint& point : program.route.points) point.speed = *gps.speed_over_ground;
  }
  const RouteDefaults defaults = RouteDefaultsOf(program);
  RouteChanged(program.route);
  RecomputeWinds(program.route, defaults, messages);
  ForgetCalculation(program);
}

std::string RoutePlanText(std::string_view time, std::string_view date,
                          const std::vector<std::string>& lines) {
  std::string text =
      "Route Plan \n\nDeparture Time " + std::string(time) + " on " + std::string(date) + "\n\n";
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

DepartureTimeRefusal CheckCalculation(const CalculationEntry& entry) {
  float hours = 0.0F;
  return CheckDepartureTime(entry.time, hours);
}

RouteOutcome RunCalculation(Program& program, const CalculationEntry& entry, Messages& messages,
                            Progress& progress) {
  RouteRequest request;
  if (CheckDepartureTime(entry.time, request.hours) != DepartureTimeRefusal::kNone) {
    return RouteOutcome::kRefused;
  }
  request.date = program.selected_time.Day();
  request.use_leeway = entry.use_leeway;
  request.leeway_text = entry.leeway;
  const RouteOutcome outcome = CalculateRoute(request, program.config, program.tides, program.route,
                                              program.passage, messages, progress);
  // The roll of the result through the hours goes on with the leeway of the calculation.
  if (outcome == RouteOutcome::kDone) program.use_leeway = entry.use_leeway;
  return outcome;
}

RouteOutcome RunDepartureSearch(Program& program, std::size_t slot, Messages& messages,
                                Progress& progress) {
  OptimumRequest request;
  request.slot = kDepartureSlots.at(slot);
  request.date = program.selected_time.Day();
  const RouteOutcome outcome = SearchDeparture(request, program.config, program.tides,
                                               program.route, program.passage, messages, progress);
  if (outcome == RouteOutcome::kDone) {
    for (RoutePoint& point : program.route.points) point.calculated = false;
  }
  return outcome;
}

}  // namespace skerrow
