#include "app/situation.h"

#include <cmath>

#include "app/edits.h"
#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr float kFarthestTrackPoint = 25000.0F;  // nautical miles

std::string TwoDigits(std::int64_t number) {
  return FormatFixed(static_cast<double>(number), 2, 0);
}

}  // namespace

RouteOutcome ReworkResult(Program& program, Progress& progress) {
  if (program.passage.calc_mode != kCalcModeRoute || program.passage.route_track.empty()) {
    return RouteOutcome::kDone;
  }
  RouteRequest request;
  request.hours = program.selected_time.hours;
  request.date = program.selected_time.Day();
  request.use_leeway = program.use_leeway;
  request.leeway_text = program.passage.leeway_text;
  return ReworkRoute(request, program.config, program.tides, program.route, program.passage,
                     progress);
}

std::optional<std::size_t> NearestTrackPoint(const Program& program, Position place) {
  const std::vector<TrackPoint>& track = program.passage.route_track;
  const std::optional<Nearest> nearest = NearestOf(
      track.size(), place, kFarthestTrackPoint, [&](std::size_t i) { return track[i].position; });
  return nearest ? std::optional(nearest->index) : std::nullopt;
}

void ResetSituation(Program& program, Messages& messages) {
  const TimeInForce time{program.selected_time, program.saved_time};
  RouteState before = program.route;
  ClearRoute(program.route);
  program.working_wind = program.wind_config.Default();
  program.selected_time.override_ = false;
  ReturnToRealtime(program, messages);
  const bool had_route = !before.points.empty();
  if (had_route || time.selected.override_) {
    program.edits.history.Remember("Reset", before, time);
  }
  if (had_route) RouteReplaced(program, messages);
}

void MarkManOverboard(Program& program, Position place) {
  program.mob = {true, place, program.clock->Now()};
}

std::vector<std::string> ManOverboardLines(const Program& program, std::optional<Position> cursor) {
  const ManOverboard& mob = program.mob;
  const ClockReading now = program.clock->Now();
  const auto seconds =
      std::max<std::int64_t>(0, std::llround((now.Julian() - mob.time.Julian()) * 86400.0));
  std::vector<std::string> lines = {"At " + HoursToClock(mob.time.Hours()) + ", " +
                                    TwoDigits(seconds / 3600) + ":" + TwoDigits(seconds / 60 % 60) +
                                    ":" + TwoDigits(seconds % 60) + " ago"};
  const std::optional<Position> from =
      program.nmea.fix.HasPosition() ? std::optional(program.nmea.fix.At()) : cursor;
  if (from) {
    const RangeAndBearing way = RangeBearing(*from, mob.position);
    lines.push_back(
        std::string(program.nmea.fix.HasPosition() ? "From the boat " : "From the cursor ") +
        FormatFixed(way.range, 1, 2) + "nm @" + FormatFixed(way.bearing, 3, 0) + "°T");
  }
  return lines;
}

}  // namespace skerrow
