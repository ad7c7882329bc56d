#include "passage/drift.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr float kFarAway = 9999.0F;
constexpr float kLastLatitude = 89.0F;
constexpr int kStepsBetweenProgress = 64;

std::string OneDecimal(float value) { return FormatFixed(value, 1, 1); }
std::string ThreeDigits(float value) { return FormatFixed(value, 3, 0); }

bool InReach(Position place) {
  return std::fabs(place.latitude) <= kLastLatitude && std::isfinite(place.longitude);
}

// Why a request cannot be worked out; empty when it can.
std::string Refusal(const DriftRequest& request) {
  if (!(request.speed >= 0.0F && request.speed <= kMaxDriftSpeed)) {
    return "The speed is not between 0 and 100 knots.";
  }
  if (!std::isfinite(request.heading) || !std::isfinite(request.hours)) {
    return "The heading or the time is no number.";
  }
  if (!InReach(request.start) || (request.destination && !InReach(*request.destination))) {
    return "No track can be worked out beyond latitude 89.";
  }
  return "";
}

EastNorth Sum(EastNorth a, EastNorth b) { return {a.east + b.east, a.north + b.north}; }

std::string PlaceText(Position place, std::string_view name) {
  return std::string(name) + (name.empty() ? "" : "   ") + LatToText(place.latitude) + " , " +
         LongToText(place.longitude);
}

// The length of the track from the start to the end of the duration, nautical miles.
float TrackLength(const std::vector<TrackPoint>& track) {
  float length = 0.0F;
  for (std::size_t i = 1; i < track.size(); ++i) {
    length += RangeOnly(track[i - 1].position, track[i].position);
  }
  return length;
}

std::string TimesLine(const DriftRequest& request, const std::string& completion) {
  return "Starting at " + HoursToClock(request.hours) + " Completion Time " + completion;
}

// The time `hours` after the start, with its date when that is another one. Two seconds more keep
// the minutes, which are cut off, from falling one short.
std::string TimeAfter(const DriftRequest& request, float hours) {
  constexpr float kTwoSeconds = 0.0006F;
  return AddHours(request.date, request.hours, hours + kTwoSeconds).text;
}

// What both reports tell at their end: the place reached, and what the prediction could not know.
void AddEnd(const TideState& tides, const DriftRequest& request, const Drift& drift,
            std::vector<std::string>& lines) {
  const Position end = drift.track.back().position;
  const RangeAndBearing made_good = RangeBearing(request.start, end);
  lines.push_back(DriftEndText(request, drift));
  lines.push_back("Made good from the start : " + FormatFixed(made_good.range, 1, 2) + "nm @ " +
                  ThreeDigits(made_good.bearing) + "°T");
  if (request.destination) {
    const std::optional<Nearest> closest =
        NearestOf(drift.track.size(), *request.destination, kFarAway,
                  [&](std::size_t i) { return drift.track[i].position; });
    if (closest) {
      lines.push_back("Closest to the destination : " + FormatFixed(closest->range, 1, 2) +
                      "nm at " +
                      TimeAfter(request, static_cast<float>(closest->index) * drift.time_step));
    }
  }
  if (drift.gaps.steps > 0) {
    lines.push_back("No tidal stream at " + std::to_string(drift.gaps.steps) + " of " +
                    std::to_string(drift.steps + 1) +
                    " steps : " + ReplaceAll(NoTideText(tides, drift.gaps.diamonds), "\n", ", "));
  }
}

}  // namespace

Result<int> DriftSteps(float duration, float interval_minutes) {
  const auto step = static_cast<float>(interval_minutes / 60.0);
  if (!(duration >= 0.0F) || !(step > 0.0F) || !std::isfinite(step)) {
    return Error{"", "The duration is no number of hours."};
  }
  const double steps = static_cast<double>(duration) / static_cast<double>(step);
  if (!(duration <= kMaxDriftHours) || !(steps <= kMaxDriftSteps)) {
    const double most =
        std::min<double>(kMaxDriftHours, kMaxDriftSteps * static_cast<double>(step));
    return Error{"", "The duration is too long: at a calculation interval of " +
                         ShortText(interval_minutes) + " minutes no more than " +
                         ShortText(static_cast<float>(WholePartDown(most * 10.0) / 10.0)) +
                         " hours can be predicted."};
  }
  return static_cast<int>(RoundToInteger(steps));
}

Result<std::optional<Drift>> PredictCourseOverGround(const TideState& tides,
                                                     const DriftRequest& request,
                                                     const LegSettings& settings,
                                                     Progress& progress) {
  if (std::string refusal = Refusal(request); !refusal.empty()) return Error{"", refusal};
  const Result<int> steps = DriftSteps(request.duration, settings.calc_interval_minutes);
  if (!steps) return steps.error();
  Drift drift;
  drift.steps = *steps;
  drift.time_step = static_cast<float>(settings.calc_interval_minutes / 60.0);
  const EastNorth water = Resolve(request.heading, request.speed * drift.time_step);

  StreamReader reader(tides);
  StreamReading stream;
  TrackPoint at{request.start, request.hours, request.date};
  EastNorth water_run;
  EastNorth stream_run;
  float best = kFarAway;
  for (int i = 0; i <= drift.steps; ++i) {
    if (i % kStepsBetweenProgress == 0 && !progress.Step(100.0 * i / (drift.steps + 1.0))) {
      return std::optional<Drift>();
    }
    const StreamFault fault = reader.CalculateTidalStreams(at.position, at.hours, at.date, stream);
    if (fault != StreamFault::kNone) drift.fault = fault;
    if (stream.no_tide >= 0) {
      ++drift.gaps.steps;
      AddDiamonds({stream.no_tide}, drift.gaps.diamonds);
    }
    drift.streams.push_back({stream.rate, stream.direction, at.hours, StreamLabel(tides, stream)});
    const EastNorth set = Resolve(stream.direction, stream.rate * drift.time_step);
    water_run = Sum(water_run, water);
    stream_run = Sum(stream_run, set);
    drift.track.push_back(at);
    const Position next = MoveByMiles(at.position, Sum(water, set));
    if (!InReach(next)) {
      return Error{"", "The track leaves the latitudes up to 89 where it can be worked out."};
    }
    drift.ground_distance += RangeOnly(at.position, next);
    if (!request.destination) {
      drift.water_sum = water_run;
      drift.stream_sum = stream_run;
    } else if (const float range = RangeOnly(next, *request.destination); range < best) {
      best = range;
      drift.closest_step = i;
      drift.water_sum = water_run;
      drift.stream_sum = stream_run;
    }
    at.position = next;
    AdvanceTime(at.hours, at.date, drift.time_step);
  }
  progress.Step(100.0);
  return std::optional(std::move(drift));
}

float CourseThroughWater(float heading, float leeway, Tack tack) {
  // The helmsman's heading is the course with the leeway taken out of it; this puts it back.
  if (tack == Tack::kPort) return HeadingToSteer(heading, 0.0F, leeway, Tack::kStarboard);
  if (tack == Tack::kStarboard) return HeadingToSteer(heading, 0.0F, leeway, Tack::kPort);
  return HeadingToSteer(heading, 0.0F, 0.0F, Tack::kNone);
}

std::vector<std::string> CourseOverGroundReport(const TideState& tides, const DriftRequest& request,
                                                const Drift& drift,
                                                const CourseOverGroundNames& names) {
  const float run = TrackLength(drift.track);
  const float run_hours = static_cast<float>(drift.steps) * drift.time_step;
  std::vector<std::string> lines = {"Course Over Ground Calculation for " + DateText(request.date),
                                    "From \t" + PlaceText(request.start, names.start)};
  if (request.destination) {
    lines.push_back("To \t" + PlaceText(*request.destination, names.destination));
  }
  lines.push_back("Steer " + ThreeDigits(names.steer) + "°M\t Time taken=" +
                  HoursToDuration(request.duration) + " at " + OneDecimal(request.speed) + " kt.");
  lines.push_back(TimesLine(request, AddHours(request.date, request.hours, request.duration).text));
  if (request.destination) {
    const RangeAndBearing direct = RangeBearing(request.start, *request.destination);
    lines.push_back("Range and bearing between waypoints : " + OneDecimal(direct.range) + "nm @ " +
                    ThreeDigits(direct.bearing) + "°T ");
  }
  lines.push_back("Speed Over Ground = " + OneDecimal(run_hours > 0.0F ? run / run_hours : 0.0F) +
                  "kt. Water Track Distance " + OneDecimal(run) + "nm.");
  if (!names.leeway_line.empty()) lines.push_back(names.leeway_line);
  AddEnd(tides, request, drift, lines);
  return lines;
}

std::vector<std::string> DriftReport(const TideState& tides, const DriftRequest& request,
                                     const Drift& drift) {
  std::vector<std::string> lines = {"Drift Prediction for " + DateText(request.date),
                                    "From \t" + PlaceText(request.start, ""),
                                    TimesLine(request, TimeAfter(request, request.duration))};
  if (request.speed > 0.0F) {
    lines.push_back("Heading " + ThreeDigits(request.heading) + "°T at " +
                    OneDecimal(request.speed) + " kt.");
  }
  AddEnd(tides, request, drift, lines);
  return lines;
}

std::string DriftEndText(const DriftRequest& request, const Drift& drift) {
  const float run_hours = static_cast<float>(drift.steps) * drift.time_step;
  return "Position at " + TimeAfter(request, run_hours) + " : " +
         PlaceText(drift.track.back().position, "");
}

void ShowDrift(Drift drift, std::vector<std::string> report, std::string summary,
               PassageState& passage) {
  DropTrack(passage);
  passage.route_track = std::move(drift.track);
  passage.route_streams = std::move(drift.streams);
  passage.result_lines = std::move(report);
  passage.route_summary_text = std::move(summary);
  passage.calc_mode = kCalcModeDrift;
}

}  // namespace skerrow
