#include "ui/forms/calc_route_form.h"

#include "app/edits.h"
#include "core/numbers.h"
#include "passage/optimum.h"
#include "ui/forms/wind_form.h"

namespace skerrow {

CalcRouteTexts CalcRouteTextsOf(const Program& program) {
  const float hours =
      program.selected_time.override_ ? program.selected_time.hours : program.clock->Now().Hours();
  return {HoursToClock(hours), DateText(program.selected_time.Day()), program.use_leeway,
          ShortText(program.config.leeway_angle),
          "Route = " + FormatFixed(RouteLengthOf(program.route.points), 1, 1) + "Nm"};
}

std::optional<GpsReading> GpsReadingOf(const Program& program) {
  const bool receiving = program.link.gps_enabled ||
                         (program.link.ais_enabled && program.config.gps_through_ais != 0) ||
                         program.replay.replay_active;
  if (!receiving || !program.nmea.fix.HasPosition()) return std::nullopt;
  return GpsReading{program.nmea.fix.At(), program.nmea.fix.speed_over_ground};
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

DepartureWind DepartureWindOf(const Program& program, PolarDatabase& polars) {
  DepartureWind result;
  const std::shared_ptr<const WindStore> store = program.wind_store.Get(program.folders);
  const Result<std::vector<std::string>> names = polars.SetUps();
  if (!names) {
    result.note = names.error().Text();
    return result;
  }
  const std::optional<std::size_t> chosen = SelectedSetUp(program.wind_config, *names);
  if (!chosen || store->last_time() == 0.0) {
    result.note = std::string("Needs ") +
                  (store->last_time() == 0.0 ? "an imported forecast" : "") +
                  (!chosen && store->last_time() == 0.0 ? " and " : "") +
                  (chosen ? "" : "a set-up of the boat, which the wind calculation chooses");
    return result;
  }
  const std::string& name = (*names)[*chosen];
  const Result<PolarRows> rows = polars.Read(name);
  if (!rows) {
    result.note = rows.error().Text();
    return result;
  }
  result.polar.emplace(*rows);
  result.source = "Speeds by \"" + name + "\" and the forecast wind of each departure";
  result.note = "By \"" + name + "\" and the forecast from " + DaysText(store->first_time()) +
                " to " + DaysText(store->last_time()) +
                ". A departure that it does not cover to the last leg, or that the boat can not "
                "sail, is left out, and the results say why.";
  result.wind.closest = program.config.closest_sailing_angle;
  result.wind.constant_wind = false;
  result.wind.wind_at = LookupIn(store);
  return result;
}

RouteOutcome RunDepartureSearch(Program& program, std::size_t slot, Messages& messages,
                                Progress& progress, const DepartureWind* wind) {
  OptimumRequest request;
  request.slot = kDepartureSlots.at(slot);
  request.date = program.selected_time.Day();
  if (wind != nullptr && wind->polar) {
    RouteWindRequest at = wind->wind;
    at.date = request.date;
    request.speeds_at = SpeedsByDeparture(program.route.points, *wind->polar, at);
    request.speeds_from = wind->source;
  }
  const RouteOutcome outcome = SearchDeparture(request, program.config, program.tides,
                                               program.route, program.passage, messages, progress);
  if (outcome == RouteOutcome::kDone) {
    for (RoutePoint& point : program.route.points) point.calculated = false;
  }
  return outcome;
}

}  // namespace skerrow
