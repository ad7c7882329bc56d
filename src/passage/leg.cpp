#include "passage/leg.h"

#include <algorithm>
#include <cmath>

#include "core/plane_sailing.h"

namespace skerrow {
namespace {

constexpr int kPasses = 8;
constexpr float kFarAway = 9999.0F;

// The calculation interval in hours, cut to a tenth when the leg is shorter than it in still water.
float TimeStep(float range, float speed, float interval_minutes) {
  const auto step = static_cast<float>(interval_minutes / 60.0);
  return range / static_cast<double>(speed) < step ? static_cast<float>(step / 10.0) : step;
}

bool IsUsable(const LegRequest& leg) {
  return std::isfinite(leg.start.latitude) && std::isfinite(leg.start.longitude) &&
         std::isfinite(leg.destination.latitude) && std::isfinite(leg.destination.longitude) &&
         std::isfinite(leg.hours) && std::isfinite(leg.speed) && leg.speed > 0.0F;
}

}  // namespace

void AdvanceTime(float& hours, DayAndYear& date, float step) {
  hours += step;
  if (hours < 24.0F) return;
  hours -= 24.0F;
  ++date.day;
  if (date.day > DaysInYear(date.year)) {
    date.day = static_cast<std::int16_t>(date.day - DaysInYear(date.year));
    ++date.year;
  }
}

LegSettings LegSettingsOf(const AppConfig& config) {
  LegSettings settings;
  // A damaged settings file must not stop time.
  if (config.calc_interval > 0.0F && std::isfinite(config.calc_interval)) {
    settings.calc_interval_minutes = config.calc_interval;
  }
  settings.error_circle = config.error_circle;
  return settings;
}

LegSolver::Pass LegSolver::CalcLegPass(const LegRequest& leg, float time_step, float heading) {
  steps_[0] = {{leg.start, leg.hours, leg.date}, leg.start, {}, 0.0F, 0.0F, 0.0F};
  const RangeAndBearing direct = RangeBearing(leg.start, leg.destination);
  const EastNorth boat = Resolve(heading, leg.speed * time_step);

  Position position = leg.start;
  float hours = leg.hours;
  DayAndYear date = leg.date;
  StreamReading stream;
  float run_out = 0.0F;
  int taken = 0;
  while (2.0 * direct.range > run_out && taken < kMaxSteps) {
    Step& before = steps_[static_cast<std::size_t>(taken)];
    Step& step = steps_[static_cast<std::size_t>(++taken)];
    const StreamFault fault = reader_.CalculateTidalStreams(position, hours, date, stream);
    if (fault != StreamFault::kNone) fault_ = fault;
    step.stream = stream;
    step.stream_hours = hours;
    const EastNorth set = Resolve(stream.direction, stream.rate * time_step);
    step.drift = MoveByMiles(before.drift, set);
    const Position next = MoveByMiles(position, {boat.east + set.east, boat.north + set.north});
    step.track = {next, hours, date};
    before.range_to_dest = RangeOnly(position, leg.destination);
    step.track_run = before.track_run + RangeOnly(position, next);
    run_out = RangeOnly(leg.start, next);
    position = next;
    AdvanceTime(hours, date, time_step);
  }

  Pass pass;
  pass.steps = taken;
  pass.closest_approach = kFarAway;
  for (int i = 1; i < taken; ++i) {
    const float range = steps_[static_cast<std::size_t>(i)].range_to_dest;
    if (range < pass.closest_approach) {
      pass.closest_approach = range;
      pass.best_step = i;
    }
  }
  const Step& best = steps_[static_cast<std::size_t>(pass.best_step)];
  pass.track_distance = best.track_run;
  pass.new_heading = RangeBearing(best.drift, leg.destination).bearing;
  const float miss = RangeOnly(leg.destination, best.track.position);
  pass.bearing_over_ground = RangeBearing(leg.start, best.track.position).bearing;
  float angle = std::fabs(direct.bearing - pass.bearing_over_ground);
  if (angle >= 360.0F) angle -= 360.0F;
  const EastNorth offset = Resolve(angle, miss);
  pass.time_to_closest = static_cast<float>(pass.best_step * static_cast<double>(time_step) +
                                            std::fabs(offset.east) / leg.speed);
  return pass;
}

void LegSolver::FindGaps() {
  for (int i = 1; i <= last_.best_step; ++i) {
    const std::int32_t diamond = steps_[static_cast<std::size_t>(i)].stream.no_tide;
    if (diamond < 0) continue;
    ++gaps_.steps;
    AddDiamonds({diamond}, gaps_.diamonds);
  }
}

LegResult LegSolver::CalcResultOnly(const LegRequest& leg, const LegSettings& settings) {
  fault_ = StreamFault::kNone;
  gaps_ = {};
  achieved_ = false;
  last_ = {};
  LegResult result;
  result.speed_over_ground = leg.speed;
  if (!IsUsable(leg)) {
    result.closest_approach = kFarAway;
    return result;
  }
  const RangeAndBearing direct = RangeBearing(leg.start, leg.destination);
  if (direct.range == 0.0F) {
    achieved_ = true;
    return result;
  }
  const float time_step = TimeStep(direct.range, leg.speed, settings.calc_interval_minutes);
  float heading = direct.bearing;
  for (int i = 0; i < kPasses; ++i) {
    last_ = CalcLegPass(leg, time_step, heading);
    // A pass depends on its heading alone: on the same one those to come only repeat it.
    if (last_.new_heading == heading) break;
    heading = last_.new_heading;
  }
  FindGaps();
  const Step& best = steps_[static_cast<std::size_t>(last_.best_step)];
  const float run = RangeOnly(leg.start, best.track.position);
  result.course_to_steer = heading;
  result.passage_time = static_cast<float>((static_cast<double>(direct.range) - run) / leg.speed +
                                           last_.time_to_closest);
  result.track_distance = last_.track_distance;
  result.closest_approach = last_.closest_approach;
  result.steps = static_cast<std::int16_t>(last_.best_step);
  result.speed_over_ground =
      static_cast<float>(static_cast<double>(direct.range) / result.passage_time);
  achieved_ = result.closest_approach <= settings.error_circle && last_.steps < kMaxSteps;
  return result;
}

LegSolution LegSolver::CalcCourseToSteer(const LegRequest& leg, const LegSettings& settings) {
  LegSolution solution;
  solution.result = CalcResultOnly(leg, settings);
  solution.achieved = achieved_;
  solution.fault = fault_;
  solution.gaps = gaps_;
  solution.no_passes = last_.steps == 0;
  if (solution.no_passes) return solution;
  const auto steps = static_cast<std::size_t>(last_.steps);
  const auto best = static_cast<std::size_t>(last_.best_step);
  for (std::size_t i = 0; i <= steps; ++i) {
    const Step& step = steps_[i];
    if (i <= best) solution.track.push_back(step.track);
    solution.drift.push_back(step.drift);
    if (i == 0) continue;
    solution.streams.push_back({step.stream.rate, step.stream.direction, step.stream_hours,
                                StreamLabel(reader_.state(), step.stream)});
  }
  return solution;
}

void AddDiamonds(const std::vector<std::int32_t>& more, std::vector<std::int32_t>& diamonds) {
  for (const std::int32_t diamond : more) {
    if (std::find(diamonds.begin(), diamonds.end(), diamond) == diamonds.end()) {
      diamonds.push_back(diamond);
    }
  }
}

void AppendLeg(const LegSolution& leg, std::vector<TrackPoint>& track,
               std::vector<StreamSample>& streams) {
  if (!leg.track.empty()) {
    if (!track.empty()) track.pop_back();
    track.insert(track.end(), leg.track.begin(), leg.track.end());
  }
  const auto best = std::min(leg.streams.size(), static_cast<std::size_t>(leg.result.steps));
  streams.insert(streams.end(), leg.streams.begin(),
                 leg.streams.begin() + static_cast<std::ptrdiff_t>(best));
}

float HeadingToSteer(float course_to_steer, float variation, float leeway, Tack tack) {
  float heading = course_to_steer - variation;
  if (tack == Tack::kPort) heading -= leeway;
  if (tack == Tack::kStarboard) heading += leeway;
  if (heading >= 360.0F) {
    heading -= 360.0F;
  } else if (heading < 0.0F) {
    heading += 360.0F;
  }
  return heading;
}

}  // namespace skerrow
