#include <algorithm>
#include <optional>

#include <nlohmann/json.hpp>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/polars.h"
#include "core/numbers.h"
#include "core/text.h"
#include "passage/leg.h"
#include "passage/optimum.h"
#include "passage/route_calculation.h"
#include "passage/wind_on_route.h"
#include "wind/wind_store.h"

namespace skerrow::cli {
namespace {

constexpr const char* kSampleRoute = "Sample.rte";

Json TrackJson(const std::vector<TrackPoint>& track) {
  Json list = Json::array();
  for (const TrackPoint& point : track) {
    list.push_back({Number(point.position.latitude), Number(point.position.longitude),
                    Number(point.hours), point.date.day, point.date.year});
  }
  return list;
}

Json StreamsJson(const std::vector<StreamSample>& streams) {
  Json list = Json::array();
  for (const StreamSample& sample : streams) {
    list.push_back(
        {Number(sample.rate), Number(sample.direction), Number(sample.hours), sample.label});
  }
  return list;
}

Json LegJson(const LegResult& leg, bool achieved) {
  return {{"courseToSteer", Number(leg.course_to_steer)},
          {"passageTime", Number(leg.passage_time)},
          {"trackDistance", Number(leg.track_distance)},
          {"closestApproach", Number(leg.closest_approach)},
          {"steps", leg.steps},
          {"speedOverGround", Number(leg.speed_over_ground)},
          {"achieved", achieved}};
}

// Loads the named route, or the sample, and applies its tacks.
std::optional<Failure> OpenRoute(Session& session, const std::string& file) {
  Program& program = session.program;
  const std::string path =
      file.empty() ? JoinPath(program.folders.Samples(), kSampleRoute)
                   : Session::FindFile(file, {program.folders.Routes(), program.folders.Samples()});
  const Status loaded = LoadRoute(path, RouteSpeeds::kStored, RouteDefaultsOf(program),
                                  program.route, session.messages);
  if (!loaded) return Failed(loaded.error());
  if (program.route.points.size() < 2) {
    return Failed({path, "a route needs two points or more"});
  }
  return std::nullopt;
}

std::optional<Failure> ApplyTacks(std::vector<RoutePoint>& points,
                                  const std::vector<std::string>& tacks) {
  for (const std::string& word : tacks) {
    const std::size_t equals = word.find('=');
    const std::string side = equals == std::string::npos ? "" : word.substr(equals + 1);
    const Result<int> leg =
        ParseWhole(word.substr(0, equals), "leg", 1, static_cast<int>(points.size()) - 1);
    if (!leg) return WrongUsage(leg.error());
    if (side != "port" && side != "starboard" && side != "none") {
      return WrongUsage({"", "--tack takes N=port, N=starboard or N=none, not \"" + word + "\""});
    }
    points[static_cast<std::size_t>(*leg - 1)].tack =
        static_cast<std::int16_t>(side == "port"        ? Tack::kPort
                                  : side == "starboard" ? Tack::kStarboard
                                                        : Tack::kNone);
  }
  return std::nullopt;
}

std::vector<std::string> SplitAtTabs(const std::string& line) {
  std::vector<std::string> parts(1);
  for (const char c : line) {
    if (c == '\t') {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

// The lines of a report as they stand, tabs as two blanks.
std::string ReportText(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += TrimRight(ReplaceAll(line, "\t", "  ")) + "\n";
  }
  return text;
}

// The departures in columns, the best and the worst of them marked, then the rest of the report.
std::string OptimumText(const PassageState& passage) {
  const OptimumExtremes extremes = ExtremesOf(passage.optimum_times);
  std::optional<TextTable> table;
  std::vector<std::string> head;
  std::vector<std::string> rest;
  std::size_t departure = 0;
  for (const std::string& line : passage.result_lines) {
    const bool tabled = std::count(line.begin(), line.end(), '\t') == 5;
    if (!tabled) {
      (departure < passage.optimum_times.size() ? head : rest).push_back(line);
      continue;
    }
    const std::vector<std::string> columns = SplitAtTabs(line);
    if (!table) {
      table.emplace(std::vector<std::string>{columns[0], columns[1], columns[2], ">" + columns[3],
                                             ">" + columns[4], ">" + columns[5], ""});
      continue;
    }
    std::vector<std::string> row = columns;
    row.emplace_back(departure == extremes.shortest  ? "shortest"
                     : departure == extremes.longest ? "longest"
                                                     : "");
    table->Add(std::move(row));
    ++departure;
  }
  std::erase_if(head, [](const std::string& line) { return Trim(line).empty(); });
  return ReportText(head) + "\n" + (table ? table->Text() : "") + ReportText(rest);
}

// An angle that the dialog takes, which has no sign; one beyond a right angle is a slip of the
// hand.
Result<float> ParseLeeway(std::string_view text) {
  Result<float> leeway = ParseNumber(text, "leeway");
  if (leeway && !(*leeway >= 0.0F && *leeway <= 90.0F)) {
    return Error{"", "\"" + Trim(text) + "\" is no leeway (0 to 90 degrees)"};
  }
  return leeway;
}

// What a route is sailed by: a polar, and the wind at a departure.
struct Sailing {
  PolarTable polar;
  RouteWindRequest wind;
  WindStore store;  // what wind.wind_at looks into
};

// Reads the polar and the wind; null when the route keeps its own speeds.
Result<std::unique_ptr<Sailing>> ReadSailing(const Session& session, const SailWords& words) {
  if (words.polar.name.empty()) return std::unique_ptr<Sailing>();
  const Result<PolarRows> rows = ReadPolar(session, words.polar.name);
  if (!rows) return rows.error();
  const Result<float> closest = ParseClosest(session, words.polar.closest);
  if (!closest) return closest.error();
  auto sailing = std::make_unique<Sailing>(Sailing{PolarTable(*rows), {}, {}});
  RouteWindRequest& wind = sailing->wind;
  wind.closest = *closest;
  wind.default_wind = session.program.wind_config.Default();
  if (!words.wind_from.empty()) {
    const Result<float> from = ParseNumber(words.wind_from, "wind-from");
    if (!from) return from.error();
    if (*from < 0 || *from > 360) return Error{"", "Invalid Wind Direction"};
    wind.default_wind.from_deg = *from;
  }
  if (!words.wind_speed.empty()) {
    const Result<float> speed = ParseNumber(words.wind_speed, "wind-speed");
    if (!speed) return speed.error();
    if (*speed < 0 || *speed > 40) return Error{"", "Invalid Wind Speed"};
    wind.default_wind.speed_kn = *speed;
  }
  if (words.forecast) {
    Result<std::vector<WindCell>> cells = ReadWindStore(session.program.folders);
    if (!cells) return cells.error();
    sailing->store = WindStore(std::move(cells.value()));
    wind.constant_wind = false;
    wind.wind_at = LookupIn(sailing->store);
  }
  return sailing;
}

Failure NotCalculated(const Session& session) {
  const auto& texts = session.messages.texts();
  return {kFailed, texts.empty() ? "the route could not be calculated" : ""};
}

}  // namespace

Outcome SolveLeg(Session& session, const LegWords& words) {
  const Result<Position> start = ParsePosition(words.place.at(0), words.place.at(1));
  if (!start) return WrongUsage(start.error());
  const Result<Position> destination = ParsePosition(words.place.at(2), words.place.at(3));
  if (!destination) return WrongUsage(destination.error());
  const Result<float> speed = ParseNumber(words.speed, "speed");
  if (!speed) return WrongUsage(speed.error());
  const ClockReading now = session.program.clock->Now();
  const Result<DayAndYear> date = ParseDate(words.when.date, now);
  if (!date) return WrongUsage(date.error());
  const Result<float> hours = ParseTime(words.when.time, now);
  if (!hours) return WrongUsage(hours.error());
  if (*speed <= 0.5F) {
    return Failed({"", "Boat below 0.5kn, Cannot continue - please correct."});
  }
  session.LoadTides(*date);
  LegSolver solver(session.program.tides);
  const LegSolution leg = solver.CalcCourseToSteer({*start, *destination, *speed, *hours, *date},
                                                   LegSettingsOf(session.program.config));
  if (leg.fault != StreamFault::kNone) {
    session.messages.Show(StreamFaultText("CalculateTidalStreams"), MessageIcon::kWarning,
                          kProgramTitle);
  }
  ShowNoTide(session.program.tides, leg.gaps.diamonds, session.messages);
  Answer answer;
  answer.json() = LegJson(leg.result, leg.achieved);
  answer.json()["track"] = TrackJson(leg.track);
  answer.json()["streams"] = StreamsJson(leg.streams);
  answer.json()["drift"] = Json::array();
  for (std::size_t i = 0; i < leg.drift.size() && i <= static_cast<std::size_t>(leg.result.steps);
       ++i) {
    answer.json()["drift"].push_back(Place(leg.drift[i]));
  }
  const LegResult& result = leg.result;
  const LaterTime arrival = AddHours(*date, *hours, result.passage_time);
  answer.text = std::string(kDerivedDataNotice) +
                "\nCOURSE TO STEER = " + FormatFixed(result.course_to_steer, 3, 0) + "°T\n" +
                DateText(*date) + " @ " + HoursToClock(*hours) + "\nFrom " +
                LatToText(start->latitude) + " , " + LongToText(start->longitude) + "\nTo   " +
                LatToText(destination->latitude) + " , " + LongToText(destination->longitude) +
                "\nTime taken " + HoursToDuration(result.passage_time) + " arriving at " +
                arrival.text + "\nSpeed Over Ground " +
                FormatFixed(result.speed_over_ground, 1, 1) + "kt\nCourse Over Ground " +
                FormatFixed(result.track_distance, 1, 1) + "nm\nClosest approach " +
                FormatFixed(result.closest_approach, 1, 2) + "nm" +
                (leg.achieved ? "" : "  NOT ACHIEVED") + "\n";
  return answer;
}

Outcome PlanRoute(Session& session, const PlanWords& words) {
  Program& program = session.program;
  const ClockReading now = program.clock->Now();
  const Result<DayAndYear> date = ParseDate(words.when.date, now);
  if (!date) return WrongUsage(date.error());
  const Result<float> hours = ParseTime(words.when.time, now);
  if (!hours) return WrongUsage(hours.error());
  RouteRequest request{*hours, *date, program.config.use_leeway != 0,
                       ShortText(program.config.leeway_angle)};
  if (!words.leeway.empty()) {
    const Result<float> leeway = ParseLeeway(words.leeway);
    if (!leeway) return WrongUsage(leeway.error());
    request.use_leeway = true;
    request.leeway_text = ShortText(*leeway);
  }
  SetDay(program.selected_time, *date);
  program.selected_time.hours = *hours;
  if (auto failure = OpenRoute(session, words.file)) return *failure;
  if (auto failure = ApplyTacks(program.route.points, words.tacks)) return *failure;
  const Result<std::unique_ptr<Sailing>> sailing = ReadSailing(session, words.sail);
  if (!sailing) return Failed(sailing.error());
  if (*sailing) {
    RouteWindRequest& wind = (*sailing)->wind;
    wind.date = *date;
    wind.hours = *hours;
    if (!SetSpeedsByWind(program.route.points, (*sailing)->polar, wind, session.messages)) {
      return NotCalculated(session);
    }
  }
  session.LoadTides(*date);
  if (CalculateRoute(request, program.config, program.tides, program.route, program.passage,
                     session.messages, session.progress) != RouteOutcome::kDone) {
    return NotCalculated(session);
  }
  const PassageState& passage = program.passage;
  Answer answer;
  Json legs = Json::array();
  for (const LegReport& leg : passage.legs) {
    Json entry = LegJson(leg.result, leg.achieved);
    entry["heading"] = Number(leg.heading);
    entry["start"] = Moment(leg.start_hours, leg.start_date);
    entry["arrival"] = Moment(leg.arrival_hours, leg.arrival_date);
    legs.push_back(std::move(entry));
  }
  answer.json() = {{"lines", passage.result_lines},
                   {"summary", passage.route_summary_text},
                   {"distance", Number(passage.route_distance)},
                   {"hours", Number(passage.route_hours)},
                   {"legs", legs},
                   {"track", TrackJson(passage.route_track)},
                   {"streams", StreamsJson(passage.route_streams)},
                   {"messages", session.messages.texts()}};
  answer.text = ReportText(passage.result_lines);
  return answer;
}

Outcome FindDeparture(Session& session, const OptimumWords& words) {
  Program& program = session.program;
  const Result<DayAndYear> date = ParseDate(words.date, program.clock->Now());
  if (!date) return WrongUsage(date.error());
  const Result<int> slot = ParseWhole(words.slot, "slot", 1, 5);
  if (!slot) return WrongUsage(slot.error());
  SetDay(program.selected_time, *date);
  if (auto failure = OpenRoute(session, words.file)) return *failure;
  session.LoadTides(*date);
  OptimumRequest request;
  request.slot = kDepartureSlots[static_cast<std::size_t>(*slot - 1)];
  request.date = *date;
  const Result<std::unique_ptr<Sailing>> sailing = ReadSailing(session, words.sail);
  if (!sailing) return Failed(sailing.error());
  if (*sailing) {
    RouteWindRequest& wind = (*sailing)->wind;
    wind.date = *date;
    wind.hours = static_cast<float>(request.slot.first_hour);
    if (words.each) {
      request.speeds_at = SpeedsByDeparture(program.route.points, (*sailing)->polar, wind);
      request.speeds_from = "Speeds by \"" + words.sail.polar.name + "\" and the " +
                            (words.sail.forecast ? "forecast wind of each departure" : "wind");
    } else if (!SetSpeedsByWind(program.route.points, (*sailing)->polar, wind, session.messages)) {
      return NotCalculated(session);
    }
  }
  if (SearchDeparture(request, program.config, program.tides, program.route, program.passage,
                      session.messages, session.progress) != RouteOutcome::kDone) {
    return NotCalculated(session);
  }
  const PassageState& passage = program.passage;
  Answer answer;
  Json times = Json::array();
  for (const float time : passage.optimum_times) times.push_back(Number(time));
  answer.json() = {{"startHour", Number(passage.optimum_start_hour)},
                   {"times", times},
                   {"lines", passage.result_lines}};
  answer.text = OptimumText(passage);
  return answer;
}

}  // namespace skerrow::cli
