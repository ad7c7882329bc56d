#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "core/polar_database.h"
#include "core/progress.h"
#include "passage/route_calculation.h"
#include "passage/wind_on_route.h"
#include "wind/polar.h"

// What the route calculation and departure search dialogs show, check and do.
namespace skerrow {

// The texts and marks of `frmcalcroute` as it opens.
struct CalcRouteTexts {
  std::string time;  // "hh:mm": the user's selected time, or else the clock's
  std::string date;  // of the selected time, "5 Dec 2026"
  bool use_leeway = false;
  std::string leeway;          // degrees
  std::string route_distance;  // "Route = 12.3Nm"
};
CalcRouteTexts CalcRouteTextsOf(const Program& program);

// The boat as the GPS has it.
struct GpsReading {
  Position position;
  std::optional<float> speed_over_ground;  // knots
};
// The latest reading; empty without reception or before the first fix.
std::optional<GpsReading> GpsReadingOf(const Program& program);

// Makes the GPS position the start of the route, and its speed that of every point where asked and
// known.
void UseGpsForStart(RouteState& route, const GpsReading& gps, bool use_speed,
                    const RouteDefaults& defaults, Messages& messages);

// What "Copy" puts on the clipboard.
std::string RoutePlanText(std::string_view time, std::string_view date,
                          const std::vector<std::string>& lines);

// What OK starts the calculation with.
struct CalculationEntry {
  std::string time;
  bool use_leeway = false;
  std::string leeway;
};

// Checks the time of departure.
DepartureTimeRefusal CheckCalculation(const CalculationEntry& entry);

// Calculates the route on the day of the selected time. A point that it has to move is an edit of
// the route, which keeps its results.
RouteOutcome RunCalculation(Program& program, const CalculationEntry& entry, Messages& messages,
                            Progress& progress);

// What "Use wind for each departure" sails by: the set-up that is selected, and the imported
// forecast.
struct DepartureWind {
  std::optional<PolarTable> polar;  // empty: it can not be had
  RouteWindRequest wind;
  std::string source;  // "Speeds by "Cruiser" and the forecast wind of each departure"
  std::string note;    // for the form: what will be used, or what is missing
};
DepartureWind DepartureWindOf(const Program& program, PolarDatabase& polars);

// Searches the best departure of the selected day in slot `slot` (from 0), by the speeds of the
// route or, with `wind`, which must have its polar, by those that the wind of each departure gives.
RouteOutcome RunDepartureSearch(Program& program, std::size_t slot, Messages& messages,
                                Progress& progress, const DepartureWind* wind = nullptr);

}  // namespace skerrow
