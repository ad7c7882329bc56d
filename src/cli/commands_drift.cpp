#include <optional>

#include <nlohmann/json.hpp>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "core/numbers.h"
#include "core/text.h"
#include "passage/drift.h"
#include "passage/route_calculation.h"
#include "tides/stream_export.h"

namespace skerrow::cli {
namespace {

// [north, east], as positions are.
Json Vector(EastNorth vector) { return {Number(vector.north), Number(vector.east)}; }

// The words as a request; a usage error says which of them is none.
Result<DriftRequest> ParseRequest(const DriftWords& words, const ClockReading& now) {
  DriftRequest request;
  const Result<Position> start = ParsePosition(words.place.latitude, words.place.longitude);
  if (!start) return start.error();
  request.start = *start;
  if (!words.to.empty()) {
    const Result<Position> to = ParsePosition(words.to.at(0), words.to.at(1));
    if (!to) return to.error();
    request.destination = *to;
  }
  const Result<float> duration = ParseNumber(words.duration, "duration");
  if (!duration) return duration.error();
  request.duration = *duration;
  if (!words.heading.empty()) {
    const Result<float> heading = ParseNumber(words.heading, "heading");
    if (!heading) return heading.error();
    request.heading = *heading;
  }
  if (!words.speed.empty()) {
    const Result<float> speed = ParseNumber(words.speed, "speed");
    if (!speed) return speed.error();
    request.speed = *speed;
  }
  const Result<DayAndYear> date = ParseDate(words.when.date, now);
  if (!date) return date.error();
  request.date = *date;
  const Result<float> hours = ParseTime(words.when.time, now);
  if (!hours) return hours.error();
  request.hours = *hours;
  return request;
}

}  // namespace

Outcome PredictDrift(Session& session, const DriftWords& words) {
  const Result<DriftRequest> request = ParseRequest(words, session.program.clock->Now());
  if (!request) return WrongUsage(request.error());
  session.LoadTides(request->date);
  const TideState& tides = session.program.tides;
  const Result<std::optional<Drift>> predicted = PredictCourseOverGround(
      tides, *request, LegSettingsOf(session.program.config), session.progress);
  if (!predicted) return Failed(predicted.error());
  const Drift& drift = **predicted;
  if (drift.fault != StreamFault::kNone) {
    session.messages.Show(StreamFaultText("CalculateTidalStreams"), MessageIcon::kWarning,
                          kProgramTitle);
  }
  ShowNoTide(tides, drift.gaps.diamonds, session.messages);
  Json track = Json::array();
  for (const TrackPoint& point : drift.track) {
    track.push_back(
        {Number(point.position.latitude), Number(point.position.longitude), Number(point.hours)});
  }
  Answer answer;
  answer.json() = {{"track", track},
                   {"steps", drift.steps},
                   {"groundDistance", Number(drift.ground_distance)},
                   {"closestStep", request->destination ? Json(drift.closest_step) : Json()},
                   {"waterSum", Vector(drift.water_sum)},
                   {"streamSum", Vector(drift.stream_sum)}};
  for (const std::string& line : DriftReport(tides, *request, drift)) {
    answer.text += TrimRight(ReplaceAll(line, "\t", " ")) + "\n";
  }
  return answer;
}

Outcome ExportStreamFiles(Session& session, const ExportStreamsWords& words) {
  const Result<DayAndYear> date = ParseDate(words.date, session.program.clock->Now());
  if (!date) return WrongUsage(date.error());
  const Result<int> days = ParseWhole(words.days, "number of days", 1, kMaxExportDays);
  if (!days) return WrongUsage(days.error());
  session.LoadTides(*date);
  const Folders& folders = session.program.folders;
  const Result<std::optional<StreamExport>> exported = ExportStreams(
      session.program.tides, folders, *date, *days, session.messages, session.progress);
  if (!exported) return Failed(exported.error());
  const StreamExport& done = **exported;
  const std::string folder = TidalComponentsFolder(folders);
  Answer answer;
  answer.json() = {
      {"folder", folder}, {"diamonds", done.diamonds}, {"days", *days}, {"leftOut", done.left_out}};
  answer.text = "End of routine\n" + std::to_string(done.diamonds) + " diamonds, " +
                std::to_string(*days) + " days, in " + folder + "\n";
  if (!done.left_out.empty()) answer.text += LeftOutStreamsText(done.left_out) + "\n";
  return answer;
}

Outcome ExportDiamonds(Session& session, const NoWords&) {
  Program& program = session.program;
  LoadDiamonds(program.tides, program.folders, program.config.tidal_area, session.messages);
  if (program.tides.diamonds.empty()) return Failed({"", "There are no tidal diamonds to export."});
  if (!SaveTidalDiamonds(program.tides, program.folders, program.config.tidal_area,
                         session.messages)) {
    return Failure{kFailed, ""};
  }
  Answer answer;
  answer.text = session.messages.texts().back() + "\n";
  answer.json() = {{"messages", session.messages.texts()}};
  return answer;
}

}  // namespace skerrow::cli
