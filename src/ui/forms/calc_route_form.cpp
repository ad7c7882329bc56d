#include "ui/forms/calc_route_form.h"

#include "app/edits.h"
#include "core/numbers.h"
#include "passage/optimum.h"

namespace skerrow {

CalcRouteTexts CalcRouteTextsOf(const Program& program) {
  const float hours =
      program.selected_time.override_ ? program.selected_time.hours : program.clock->Now().Hours();
  return {HoursToClock(hours), DateText(program.selected_time.Day()), program.use_leeway,
          ShortText(program.config.leeway_angle),
          "Route = " + FormatFixed(RouteLengthOf(program.route.points), 1, 1) + "Nm"};
}

std::optional<GpsReading> GpsReadingOf(const Program& program) {
  const bool receiving = program.gps_enabled ||
                         (program.ais_enabled && program.config.gps_through_ais != 0) ||
                         program.replay_active;
  if (!receiving || !program.boat.HasPosition()) return std::nullopt;
  return GpsReading{program.boat.position, std::nullopt};
}

void UseGpsForStart(RouteState& route, const GpsReading& gps, bool use_speed,
                    const RouteDefaults& defaults, Messages& messages) {
  if (route.points.empty()) return;
  RoutePoint& start = route.points.front();
  start.latitude = gps.position.latitude;
  start.longitude = gps.position.longitude;
  start.name.clear();  // it stands on no waypoint any more
  if (use_speed && gps.speed_over_ground) {
    for (RoutePoint& point : route.points) point.speed = *gps.speed_over_ground;
  }
  RouteChanged(route);
  RecomputeWinds(route, defaults, messages);
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
  const RouteState before = program.route;
  const RouteOutcome outcome = CalculateRoute(request, program.config, program.tides, program.route,
                                              program.passage, messages, progress);
  // The roll of the result through the hours goes on with the leeway of the calculation.
  if (outcome == RouteOutcome::kDone) {
    program.use_leeway = entry.use_leeway;
    RememberRouteEdit(program, messages, "Route Calculation", before);
  }
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
