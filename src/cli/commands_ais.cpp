#include <algorithm>
#include <cmath>
#include <iostream>
#include <iterator>
#include <optional>

#include <nlohmann/json.hpp>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/ports.h"
#include "core/calendar.h"
#include "core/numbers.h"
#include "core/text.h"
#include "instruments/ais_decoder.h"
#include "instruments/ais_targets.h"
#include "instruments/nmea.h"
#include "instruments/plot_file.h"
#include "instruments/upload.h"
#include "routes/record_files.h"
#include "routes/route.h"
#include "routes/waypoint.h"

namespace skerrow::cli {
namespace {

constexpr std::size_t kMaxLogSize = std::size_t{1} << 30;

Result<std::string> ReadLog(const std::string& file, const Folders& folders) {
  if (file == "-") {
    return std::string(std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>());
  }
  return ReadFile(Session::FindFile(file, {folders.Tracks(), folders.Samples()}), kMaxLogSize);
}

// "12:00", "12:00:30" or decimal hours, as hours.
Result<double> ParseClock(const std::string& text, const ClockReading& now) {
  if (text.empty()) return static_cast<double>(AisHours(now));
  if (text.find(':') == std::string::npos) {
    const Result<float> hours = ParseTime(text, now);
    if (!hours) return hours.error();
    return static_cast<double>(*hours);
  }
  constexpr struct {
    const char* name;
    int most;
    double per_hour;
  } kParts[] = {{"hour", 23, 1.0}, {"minute", 59, 60.0}, {"second", 59, 3600.0}};
  double hours = 0.0;
  std::size_t at = 0;
  for (const auto& part : kParts) {
    const std::size_t colon = part.per_hour < 3600.0 ? text.find(':', at) : std::string::npos;
    const Result<int> value = ParseWhole(text.substr(at, colon - at), part.name, 0, part.most);
    if (!value) return value.error();
    hours += *value / part.per_hour;
    if (colon == std::string::npos) break;
    at = colon + 1;
  }
  return hours;
}

Result<Motion> ParseMotion(const std::string* words) {
  const Result<Position> place = ParsePosition(words[0], words[1]);
  if (!place) return place.error();
  const Result<float> speed = ParseNumber(words[2], "speed");
  if (!speed) return speed.error();
  const Result<float> course = ParseNumber(words[3], "course");
  if (!course) return course.error();
  return Motion{*place, *speed, *course};
}

// The boat by an RMC sentence: its fix is good, or void. Any other line gives false and changes
// nothing.
bool HearBoat(std::string_view line, std::optional<Motion>& boat, bool& good) {
  if (!line.starts_with('$') || line.find("RMC") == std::string_view::npos) return false;
  const Rmc rmc = ParseRmc(line);
  if (rmc.state == SentenceState::kBad) return false;
  good = rmc.state == SentenceState::kGood;
  if (good) {
    boat = Motion{{rmc.latitude, rmc.longitude}, NmeaNumber(rmc.speed), NmeaNumber(rmc.course)};
  }
  return true;
}

// A log on its way into a table of targets.
struct Listening {
  AisTargets targets;
  AisAssembly assembly;
  AisDecoderOptions options;
  AisShown shown;
  std::optional<Motion> boat;
  bool boat_given = false;
  bool fix_good = false;
  float now = 0.0F;

  void Take(std::string_view line, float time) {
    now = time;
    const AisMessage message = DecodeAivdm(line, options, assembly);
    targets.Update(message, options, shown, now);
    // What changed since the last line: all ways to the boat, or that of one target.
    if (!boat_given && HearBoat(line, boat, fix_good)) {
      if (fix_good) ComputeCpa(*boat, targets);
    } else if (message.position && boat && (fix_good || boat_given)) {
      if (AisTarget* target = targets.Find(message.position->mmsi)) ComputeCpa(*boat, *target);
    }
  }
};

Status TakeEvents(Listening& listening, const std::string& content, const ClockReading& now) {
  const Json events = Json::parse(content, nullptr, false);
  const Error wrong{"", "events are a JSON array of [\"HH:MM:SS\", sentence]"};
  if (!events.is_array()) return wrong;
  for (const Json& event : events) {
    if (!event.is_array() || event.size() != 2 || !event[0].is_string() || !event[1].is_string()) {
      return wrong;
    }
    const Result<double> time = ParseClock(event[0].get<std::string>(), now);
    if (!time) return time.error();
    listening.Take(event[1].get<std::string>(), static_cast<float>(*time));
  }
  return Done{};
}

void TakeLines(Listening& listening, std::string_view log, double at, double tick) {
  for (std::size_t line = 0; !log.empty(); ++line) {
    const std::size_t end = log.find('\n');
    const double hours = at + static_cast<double>(line) * tick / 3600.0;
    listening.Take(log.substr(0, end), static_cast<float>(std::fmod(hours, 24.0)));
    log.remove_prefix(end == std::string_view::npos ? log.size() : end + 1);
  }
}

Json TrackJson(const std::array<TimedPosition, kAisTrackLength>& track) {
  Json points = Json::array();
  for (const TimedPosition& point : track) {
    points.push_back({Number(point.latitude), Number(point.longitude), Number(point.time)});
  }
  return points;
}

Json TargetJson(const AisTarget& target, bool gps_enabled, float now) {
  return {{"history", TrackJson(target.history)},
          {"latitude", Number(target.latitude)},
          {"longitude", Number(target.longitude)},
          {"cpa", Number(target.cpa)},
          {"tcpa", Number(target.tcpa)},
          {"mmsi", target.mmsi},
          {"callsign", target.callsign},
          {"vesselName", target.vessel_name},
          {"destination", target.destination},
          {"dimensions", target.dimensions},
          {"shipType", target.ship_type},
          {"eta", target.eta},
          {"speedOverGround", Number(target.speed_over_ground)},
          {"lastHeard", Number(target.last_heard)},
          {"courseOverGround", Number(target.course_over_ground)},
          {"navStatus", target.nav_status},
          {"messageType", target.message_type},
          {"alive", target.alive},
          {"showDetails", target.show_details},
          {"showPredicted", target.show_predicted},
          {"showHeadingVector", target.show_heading_vector},
          {"showHistory", target.show_history},
          {"predicted", TrackJson(target.predicted)},
          {"dataLines", AisDataLines(target, gps_enabled, now)}};
}

Answer TargetsAnswer(const Listening& listening, bool gps_enabled) {
  const auto targets = listening.targets.All();
  const std::optional<Position> boat =
      listening.boat ? std::optional(listening.boat->position) : std::nullopt;
  Answer answer;
  Json list = Json::array();
  TextTable table(
      {">No", ">Type", "MMSI", "Name", "Position", "", "Heading", "Range & bearing", "CPA"});
  const std::vector<AisSummaryRow> rows = AisSummaryRows(targets, boat);
  for (std::size_t i = 0; i < targets.size(); ++i) {
    list.push_back(TargetJson(targets[i], gps_enabled, listening.now));
    const auto lines = AisDataLines(targets[i], gps_enabled, listening.now);
    const auto value = [&](std::size_t line, std::string_view label) {
      return lines[line].substr(std::min(label.size(), lines[line].size()));
    };
    table.Add({rows[i].index, rows[i].message_type, rows[i].mmsi, TrimRight(rows[i].name),
               LatToText(targets[i].latitude), LongToText(targets[i].longitude),
               value(3, "Heading "), rows[i].range, value(0, "CPA    ")});
  }
  answer.json() = {{"targets", list}};
  answer.text = targets.empty() ? "no targets\n" : table.Text();
  return answer;
}

// The points of waypoint or route records.
template <typename Record>
std::vector<UploadPoint> PointsOf(const std::vector<Record>& records) {
  std::vector<UploadPoint> points;
  points.reserve(records.size());
  for (const Record& record : records) {
    points.push_back({record.name, {record.latitude, record.longitude}});
  }
  return points;
}

// A route by its file, without the extension.
std::string RouteName(const std::string& path) {
  const std::string name = FileNameOf(path);
  return name.substr(0, name.rfind('.'));
}

Result<UploadOptions> ParseUpload(const UploadWords& words) {
  const Result<int> type = ParseWhole(words.type, "GPS type", 1, 7);
  if (!type) return type.error();
  if (words.identity != "names" && words.identity != "numbers") {
    return Error{"", "\"" + words.identity + "\" is no identity (names or numbers)"};
  }
  return UploadOptions{
      *type, words.identity == "names" ? UploadIdentity::kNames : UploadIdentity::kNumbers};
}

}  // namespace

Outcome ListTargets(Session& session, const TargetsWords& words) {
  const ClockReading now = session.program.clock->Now();
  const AppConfig& config = session.program.config;
  Listening listening;
  listening.options.standard = words.standard;
  listening.shown = {config.show_ais_details != 0, config.show_ais_history != 0,
                     config.show_ais_predicted != 0, config.show_ais_heading != 0};
  if (!words.boat.empty()) {
    const Result<Motion> boat = ParseMotion(words.boat.data());
    if (!boat) return WrongUsage(boat.error());
    listening.boat = *boat;
    listening.boat_given = true;
  }
  const Result<double> at = ParseClock(words.at, now);
  if (!at) return WrongUsage(at.error());
  const Result<float> tick = ParseNumber(words.tick, "tick");
  if (!tick) return WrongUsage(tick.error());
  if (*tick < 0.0F) return WrongUsage({"", "a tick is 0 seconds or more"});
  const Result<std::string> content = ReadLog(words.file, session.program.folders);
  if (!content) return Failed(content.error());
  listening.now = static_cast<float>(*at);
  if (!words.events) {
    TakeLines(listening, *content, *at, *tick);
    return TargetsAnswer(listening, listening.boat.has_value());
  }
  if (const Status taken = TakeEvents(listening, *content, now); !taken) {
    return Failed(taken.error());
  }
  return TargetsAnswer(listening, words.gps_enabled);
}

Outcome ShowCpa(Session&, const CpaWords& words) {
  const Result<Motion> boat = ParseMotion(&words.words.at(0));
  if (!boat) return WrongUsage(boat.error());
  const Result<Motion> target = ParseMotion(&words.words.at(4));
  if (!target) return WrongUsage(target.error());
  float cpa = 0.0F, tcpa = 0.0F;
  ComputeCpa(*boat, *target, cpa, tcpa);
  Answer answer;
  answer.json() = {{"cpa", Number(cpa)}, {"tcpa", Number(tcpa)}};
  answer.text =
      cpa < 0.0F ? "No Closure\n" : FormatFixed(cpa, 1, 2) + " nm in " + HoursToHHMM(tcpa) + "\n";
  return answer;
}

Outcome ShowPlot(Session& session, const PlotWords& words) {
  const std::string path = Session::FindFile(words.file, {session.program.folders.Tracks()});
  const Result<RecordFile<PlotRecord>> file = ReadPlotFile(path);
  if (!file) return Failed(file.error());
  TellLeftOut(path, file->left_out, session.messages);
  Answer answer;
  Json records = Json::array();
  for (const PlotRecord& record : file->Sound()) {
    records.push_back({{"latitude", Number(record.latitude)},
                       {"longitude", Number(record.longitude)},
                       {"time", record.time},
                       {"date", record.date},
                       {"comment", record.comment}});
    answer.text += TrimRight(ManualPlotRow(record)) + "\n";
  }
  answer.json() = {{"records", records}};
  if (answer.text.empty()) answer.text = "no records\n";
  return answer;
}

Outcome ShowUpload(Session& session, const UploadWords& words) {
  const Result<UploadOptions> options = ParseUpload(words);
  if (!options) return WrongUsage(options.error());
  const Folders& folders = session.program.folders;
  const std::string path =
      Session::FindFile(words.file, {folders.Waypoints(), folders.Routes(), folders.Samples()});
  const bool route = ToLowerAscii(path).ends_with(ExtensionOf(FileKind::kRoute));
  std::vector<UploadPoint> points;
  if (route) {
    const auto records = ReadRouteFile(path);
    if (!records) return Failed(records.error());
    points = PointsOf(*records);
  } else {
    const auto waypoints = ReadWaypointFile(path, session.messages);
    if (!waypoints) return Failed(waypoints.error());
    points = PointsOf(*waypoints);
  }
  if (points.empty()) return Failed({path, std::string(kNothingToTransfer)});
  for (const std::string& shared : SharedIdentities(points, *options)) {
    session.messages.Show("Several places are sent as " + shared +
                              ", of which a GPS keeps the last; send numbers instead",
                          MessageIcon::kWarning, kProgramTitle);
  }
  std::vector<UploadStep> steps = UploadOpening(*options);
  const std::string name = words.route.empty() ? RouteName(path) : words.route;
  for (UploadStep& step :
       route ? UploadRoute(points, name, *options) : UploadWaypoints(points, *options)) {
    steps.push_back(std::move(step));
  }
  if (!words.device.empty()) {
    const Status all = SendSteps(session, words.device, options->gps_type, steps);
    if (!all) return Failed(all.error());
  }
  Answer answer;
  Json sent = Json::array();
  for (const UploadStep& step : steps) {
    sent.push_back(step.text);
    answer.text += TrimRight(ReplaceAll(ReplaceAll(step.text, "\r", ""), "\n", "")) + "\n";
  }
  answer.json() = {{"sent", sent}};
  return answer;
}

}  // namespace skerrow::cli
