#include "ui/forms/drift_forms.h"

#include <cmath>
#include <functional>
#include <utility>

#include "app/situation.h"
#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/text.h"
#include "ui/forms/calc_route_form.h"
#include "ui/forms/route_forms.h"

namespace skerrow {
namespace {

constexpr const char* kBadCoordinates = "Error in start and destination coordinates";
constexpr const char* kNoDuration = "Duration not set";
constexpr std::size_t kShortestLatitude = 5;

std::string ThreeDigits(float value) { return FormatFixed(value, 3, 0); }

float NumberOf(const std::string& text) { return static_cast<float>(TextToNumber(text)); }

std::optional<Position> PlaceOf(const std::string& latitude, const std::string& longitude) {
  if (Trim(latitude).size() < kShortestLatitude) return std::nullopt;
  const std::optional<float> lat = ParseLatitudeEntry(latitude);
  const std::optional<float> lon = ParseLongitudeEntry(longitude);
  if (!lat || !lon) return std::nullopt;
  return Position{*lat, *lon};
}

bool Blank(const std::string& text) { return Trim(text).empty(); }

CheckedDrift Refused(std::string words, DriftField field) {
  CheckedDrift checked;
  checked.refusal = std::move(words);
  checked.field = field;
  return checked;
}

// What both forms ask of the numbers of a request; the words of a refusal go into `checked`.
CheckedDrift WithinBounds(const Program& program, CheckedDrift checked) {
  const DriftRequest& request = checked.request;
  const LegSettings settings = LegSettingsOf(program.config);
  if (!(request.speed <= kMaxDriftSpeed)) {
    return Refused("The speed is above 100 knots - please correct.", DriftField::kSpeed);
  }
  if (!(request.heading >= 0.0F && request.heading <= 360.0F)) {
    return Refused("The heading is not between 0 and 360 degrees - please correct.",
                   DriftField::kHeading);
  }
  const Result<int> steps = DriftSteps(request.duration, settings.calc_interval_minutes);
  if (!steps) return Refused(steps.error().Text(), DriftField::kDuration);
  if (*steps == 0) {
    return Refused("The duration is shorter than half of the calculation interval of " +
                       ShortText(settings.calc_interval_minutes) + " minutes.",
                   DriftField::kDuration);
  }
  return checked;
}

// The selected time, which is the clock's where the user has chosen none.
float StartHours(const Program& program) {
  return program.selected_time.override_ ? program.selected_time.hours
                                         : program.clock->Now().Hours();
}

// "H:mm" as hours.
float DurationOf(const std::string& text) {
  const std::size_t colon = text.find(':');
  return static_cast<float>(TextToNumber(text.substr(0, colon)) +
                            TextToNumber(text.substr(colon + 1)) / 60.0);
}

using ReportOf = std::function<std::vector<std::string>(const Drift&)>;

RouteOutcome Run(Program& program, const DriftRequest& request, const ReportOf& report,
                 Messages& messages, Progress& progress) {
  Result<std::optional<Drift>> predicted =
      PredictCourseOverGround(program.tides, request, LegSettingsOf(program.config), progress);
  if (!predicted) {
    messages.Show(predicted.error().Text(), MessageIcon::kWarning);
    return RouteOutcome::kRefused;
  }
  if (!predicted.value()) return RouteOutcome::kCancelled;
  Drift drift = std::move(*predicted.value());
  if (drift.fault != StreamFault::kNone) {
    messages.Show(StreamFaultText("CalculateTidalStreams"), MessageIcon::kWarning);
  }
  ShowNoTide(program.tides, drift.gaps.diamonds, messages);
  std::vector<std::string> lines = report(drift);
  std::string summary = DriftEndText(request, drift);
  ForgetCalculation(program);
  ShowDrift(std::move(drift), std::move(lines), std::move(summary), program.passage);
  TimeMoved(program);
  return RouteOutcome::kDone;
}

}  // namespace

std::string OfferedHeading(const CogEntry& entry) {
  const std::optional<Position> start = PlaceOf(entry.start_latitude, entry.start_longitude);
  const std::optional<Position> destination =
      PlaceOf(entry.destination_latitude, entry.destination_longitude);
  if (!start || !destination) return "";
  const float bearing = RangeBearing(*start, *destination).bearing;
  const double tenths = static_cast<double>(RoundToInteger(bearing * 10.0)) / 10.0;
  return FormatFixed(static_cast<double>(RoundToInteger(tenths)), 3, 0);
}

std::optional<UploadPoint> DestinationOf(const CogEntry& entry) {
  const std::optional<Position> place =
      PlaceOf(entry.destination_latitude, entry.destination_longitude);
  if (!place) return std::nullopt;
  const std::string name = Trim(entry.destination_name);
  return UploadPoint{name.empty() ? "DEST" : name, *place};
}

CheckedDrift CheckCourseOverGround(const Program& program, const CogEntry& entry) {
  if (Blank(entry.speed)) return Refused("Enter boat speed", DriftField::kSpeed);
  const std::string heading = Blank(entry.heading) ? OfferedHeading(entry) : entry.heading;
  const std::string duration = Trim(entry.duration);
  if (duration.empty()) return Refused(kNoDuration, DriftField::kDuration);
  if (const std::size_t colon = duration.find(':'); colon == std::string::npos || colon == 0) {
    return Refused("Duration entry ambiguous", DriftField::kDuration);
  }
  if (Blank(heading)) return Refused("Direction not set", DriftField::kHeading);
  CheckedDrift checked;
  DriftRequest& request = checked.request;
  const std::optional<Position> start = PlaceOf(entry.start_latitude, entry.start_longitude);
  if (!start) return Refused(kBadCoordinates, DriftField::kStart);
  request.start = *start;
  if (!Blank(entry.destination_latitude) || !Blank(entry.destination_longitude)) {
    request.destination = PlaceOf(entry.destination_latitude, entry.destination_longitude);
    if (!request.destination) return Refused(kBadCoordinates, DriftField::kDestination);
  }
  Tack tack = Tack::kNone;
  float leeway = 0.0F;
  if (entry.use_leeway) {
    if (!entry.wind_port && !entry.wind_starboard) {
      return Refused("Select windside for Leeway", DriftField::kLeeway);
    }
    if (Blank(entry.leeway)) {
      return Refused("You have selected to use Leeway but have not entered a value",
                     DriftField::kLeeway);
    }
    tack = entry.wind_port ? Tack::kPort : Tack::kStarboard;
    leeway = NumberOf(entry.leeway);
    if (!(leeway <= 90.0F)) return Refused("The leeway is above 90 degrees.", DriftField::kLeeway);
  }
  request.speed = NumberOf(entry.speed);
  request.heading = NumberOf(heading);
  request.duration = DurationOf(duration);
  request.hours = StartHours(program);
  request.date = program.selected_time.Day();
  checked.names.start = Trim(entry.start_name);
  checked.names.destination = Trim(entry.destination_name);
  checked = WithinBounds(program, std::move(checked));
  if (!checked.refusal.empty()) return checked;
  checked.names.steer =
      HeadingToSteer(checked.request.heading, program.config.variation, 0.0F, Tack::kNone);
  checked.request.heading = CourseThroughWater(checked.request.heading, leeway, tack);
  if (tack != Tack::kNone) {
    checked.names.leeway_line = "(Leeway of " + Trim(entry.leeway) + "° from wind on " +
                                (tack == Tack::kPort ? "port" : "starboard") +
                                ", course through the water " +
                                ThreeDigits(checked.request.heading) + "°T)";
  }
  return checked;
}

CheckedDrift CheckManOverboard(const Program& program, const MobEntry& entry) {
  const std::optional<Position> start = PlaceOf(entry.start_latitude, entry.start_longitude);
  if (!start) return Refused(kBadCoordinates, DriftField::kStart);
  if (Blank(entry.duration)) return Refused(kNoDuration, DriftField::kDuration);
  CheckedDrift checked;
  DriftRequest& request = checked.request;
  request.start = *start;
  request.duration = NumberOf(entry.duration);
  request.heading = NumberOf(entry.heading);
  request.speed = NumberOf(entry.speed);
  request.hours = StartHours(program);
  request.date = program.selected_time.Day();
  if (entry.from_mark_time && program.mob.on) {
    request.hours = program.mob.time.Hours();
    request.date = program.mob.time.Day();
  }
  return WithinBounds(program, std::move(checked));
}

MobEntry FirstManOverboardEntry(const Program& program) {
  MobEntry entry;
  const std::optional<GpsReading> gps = GpsReadingOf(program);
  if (!program.mob.on && !gps) return entry;
  const Position start = program.mob.on ? program.mob.position : gps->position;
  entry.start_latitude = LatToText(start.latitude);
  entry.start_longitude = LongToText(start.longitude);
  // The body has drifted since the mark was set; a time that the user has chosen is his choice.
  entry.from_mark_time = program.mob.on && !program.selected_time.override_;
  return entry;
}

std::string MarkTimeText(const Program& program) {
  if (!program.mob.on) return "";
  const ClockReading& time = program.mob.time;
  return "Start at the time of the &mark: " + HoursToClock(time.Hours()) + ", " +
         DateText(time.Day());
}

std::string SelectedStartText(const Program& program) {
  return "Start at the &selected time: " + HoursToClock(StartHours(program)) + ", " +
         DateText(program.selected_time.Day());
}

RouteOutcome RunCourseOverGround(Program& program, const CheckedDrift& checked, Messages& messages,
                                 Progress& progress) {
  return Run(
      program, checked.request,
      [&](const Drift& drift) {
        return CourseOverGroundReport(program.tides, checked.request, drift, checked.names);
      },
      messages, progress);
}

RouteOutcome RunManOverboard(Program& program, const CheckedDrift& checked, Messages& messages,
                             Progress& progress) {
  return Run(
      program, checked.request,
      [&](const Drift& drift) { return DriftReport(program.tides, checked.request, drift); },
      messages, progress);
}

Status KeepSetLegOption(Program& program, bool destination_first) {
  const std::int16_t option = Bool16(destination_first);
  if (program.config.set_leg_option == option) return Done{};
  return ReloadThenSave(program.folders, program.config,
                        [&](AppConfig& config) { config.set_leg_option = option; });
}

}  // namespace skerrow
