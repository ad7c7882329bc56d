#include <nlohmann/json.hpp>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "core/data_files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "tides/port.h"
#include "tides/sun_moon.h"
#include "tides/tide_screen.h"

// What the tide screen tells: heights of ports, sun and moon.
namespace skerrow::cli {
namespace {

// A port of a constants file and its 1-based position there.
struct FoundPort {
  int number = 0;
  Port port;
};

// 1-based position of a port by its number or its name (case does not matter); 0 when there is
// none. The start of a name will do when only one port has it.
int FindPort(const std::vector<std::optional<Port>>& ports, const std::string& wanted) {
  if (const Result<int> number = ParseWhole(wanted, "port", 1, INT16_MAX)) {
    return static_cast<std::size_t>(*number) <= ports.size() ? *number : 0;
  }
  const std::string lower = ToLowerAscii(Trim(wanted));
  int beginning = 0;
  int matches = 0;
  for (std::size_t i = 0; i < ports.size(); ++i) {
    if (!ports[i]) continue;
    const std::string name = ToLowerAscii(Trim(ports[i]->name));
    if (name == lower) return static_cast<int>(i) + 1;
    if (name.starts_with(lower)) {
      beginning = static_cast<int>(i) + 1;
      ++matches;
    }
  }
  return matches == 1 ? beginning : 0;
}

Result<FoundPort> ReadPort(Session& session, const TideWords& words) {
  const Program& program = session.program;
  const std::string path = Session::FindFile(
      words.file.empty() ? Trim(program.config.tidal_port_file) : words.file,
      {OwnDataFolder(program.folders, DataFolder::kTidalStreams),
       ProgramDataFolder(program.folders, DataFolder::kTidalStreams), program.folders.program});
  const Result<RecordFile<Port>> ports = ReadRecords(path, kPortFields);
  if (!ports) return ports.error();
  const int number = FindPort(ports->records, words.port);
  if (number == 0) {
    // Why there is none may be that its record is one of those left out.
    const std::string left_out = LeftOutText("", ports->left_out);
    return Error{path, "there is no port \"" + words.port + "\"" +
                           (left_out.empty() ? "" : " (" + left_out + ")")};
  }
  const std::optional<Port>& record = ports->records[static_cast<std::size_t>(number - 1)];
  if (!record) return Error{path, "the record of this port is damaged"};
  TellLeftOut(path, ports->left_out, session.messages);
  return FoundPort{number, *record};
}

std::string Metres(float height) { return FormatFixed(height, 1, 1) + " m"; }

Json CurveJson(const std::vector<CurvePoint>& curve) {
  Json list = Json::array();
  for (int i = 0; i < kCurveCount; ++i) {
    const CurvePoint& point = curve[static_cast<std::size_t>(i)];
    list.push_back({Number(point.hours), Number(point.height)});
  }
  return list;
}

Json LayerJson(const std::vector<CurvePoint>& layer) {
  Json list = Json::array();
  for (int i = 0; i < kCurveCount; ++i) {
    list.push_back(Number(layer[static_cast<std::size_t>(i)].height));
  }
  return list;
}

Answer DayAnswer(const FoundPort& found, const TideScreen& screen) {
  const TideCurve& tide = screen.tide;
  Answer answer;
  Json waters = Json::array();
  TextTable table({"", "Time", ">Height"});
  for (const Water& water : tide.waters) {
    waters.push_back({{"kind", water.high ? "high" : "low"},
                      {"hours", Number(water.hours)},
                      {"height", Number(water.height)}});
    table.Add(
        {water.high ? "High water" : "Low water", HoursToClock(water.hours), Metres(water.height)});
  }
  answer.json() = {{"port", found.number},
                   {"name", Trim(found.port.name)},
                   {"curve", CurveJson(tide.curve)},
                   {"layers",
                    {{"M2", LayerJson(tide.layer_m2)},
                     {"S2", LayerJson(tide.layer_s2)},
                     {"K1", LayerJson(tide.layer_k1)},
                     {"O1", LayerJson(tide.layer_o1)},
                     {"F4", LayerJson(tide.layer_f4)},
                     {"F6", LayerJson(tide.layer_f6)},
                     {"Z0", LayerJson(tide.layer_z0)}}},
                   {"meanLevel", Number(tide.mean_level)},
                   {"waters", waters},
                   {"range", Number(tide.range)}};
  answer.text = Trim(found.port.name) + ", " + DateText(screen.date) +
                ", heights in metres above chart datum" +
                (screen.display.summer_time ? ", summer time" : "") + "\n" + table.Text() +
                "Mean level " + Metres(tide.mean_level) + ", range " + Metres(tide.range) + "\n";
  TextTable hourly({"Time", ">Height"});
  for (std::size_t i = 0; i <= 144; i += 6) {
    // The last row is the midnight that ends the day.
    hourly.Add(
        {i == 144 ? "24:00" : HoursToClock(tide.curve[i].hours), Metres(tide.curve[i].height)});
  }
  answer.text += "\n" + hourly.Text();
  return answer;
}

Answer ScreenAnswer(const TideScreen& screen) {
  const TideCurve& tide = screen.tide;
  Answer answer;
  Json cursor = Json::array();
  for (int i = 0; i < kCurveCount; ++i) {
    const std::optional<MouseReading> reading = ReadMouse(tide, i / 6.0);
    if (!reading) continue;
    cursor.push_back({{"hours", Number(reading->hours)},
                      {"height", Number(tide.curve[reading->index].height)},
                      {"state", reading->state},
                      {"rate", Number(reading->rate)}});
  }
  const std::optional<SpringNeap>& state = screen.spring_neap;
  answer.json() = {{"lines", screen.lines},
                   {"plotTop", Number(screen.plot_top)},
                   {"plotBottom", Number(screen.plot_bottom)},
                   {"springNeapHours", state ? Number(state->hours) : Json(nullptr)},
                   {"springNeapLabel", state ? state->label : ""},
                   {"sunrise", Number(screen.sun.hours[kSunrise])},
                   {"sunset", Number(screen.sun.hours[kSunset])},
                   {"cursor", cursor}};
  for (const std::string& line : screen.lines) answer.text += line + "\n";
  answer.text += TimeBasisText(screen.display.summer_time) + "\n";
  if (state) answer.text += state->label + "\n";
  answer.text += "Sunrise " + SunEventText(screen.sun, kSunrise) + ", sunset " +
                 SunEventText(screen.sun, kSunset) + "\n" + DepthCaption(screen.display);
  if (answer.text.back() != '\n') answer.text += "\n";
  return answer;
}

Outcome MonthAnswer(Session& session, const FoundPort& found, const TideScreen& screen) {
  const std::optional<MonthTable> table =
      MakeMonthTable(found.port, screen.month_date.month, screen.date.year,
                     screen.display.summer_time, session.progress);
  if (!table) return Failure{kFailed, "stopped"};
  Answer answer;
  Json days = Json::array();
  for (const std::vector<MonthTable::Row>& day : table->days) {
    Json rows = Json::array();
    for (const MonthTable::Row& row : day) rows.push_back({row.time, row.height});
    days.push_back(rows);
  }
  answer.json() = {{"days", days}};
  for (std::size_t i = 2; i < table->lines.size(); ++i) answer.text += table->lines[i] + "\n";
  answer.text += TimeBasisText(screen.display.summer_time) + "\n";
  return answer;
}

Json TimesJson(const SunTimes& times) {
  Json list = Json::array();
  for (const double hours : times.hours) list.push_back(Number(hours));
  return list;
}

Answer SunMonthAnswer(const std::vector<SunDay>& month) {
  Answer answer;
  Json days = Json::array();
  TextTable table(
      {"Date", ">Sunrise", ">Sunset", ">Civil", ">twilights", ">Nautical", ">twilights"});
  for (const SunDay& day : month) {
    days.push_back(TimesJson(day.times));
    std::vector<std::string> row = {day.date_text};
    for (const SunEvent event :
         {kSunrise, kSunset, kCivilMorning, kCivilEvening, kNauticalMorning, kNauticalEvening}) {
      row.push_back(SunEventText(day.times, event));
    }
    table.Add(std::move(row));
  }
  answer.json() = {{"days", days}};
  answer.text = table.Text();
  return answer;
}

}  // namespace

Outcome ShowTide(Session& session, const TideWords& words) {
  Program& program = session.program;
  const Result<DayAndYear> day = ParseDate(words.date, program.clock->Now());
  if (!day) return WrongUsage(day.error());
  if (words.screen && words.month) {
    return Failure{kWrongUsage, "--screen and --month are two answers: ask for one of them"};
  }
  const Result<FoundPort> found = ReadPort(session, words);
  if (!found) return Failed(found.error());
  const TideScreen screen = MakeTideScreen(found->port, *day, TideDisplayOf(program.config));
  if (words.screen) return ScreenAnswer(screen);
  if (words.month) return MonthAnswer(session, *found, screen);
  return DayAnswer(*found, screen);
}

Outcome ShowSun(Session& session, const SunWords& words) {
  const Result<Position> place = ParsePosition(words.place.latitude, words.place.longitude);
  if (!place) return WrongUsage(place.error());
  const Result<DayAndYear> day = ParseDate(words.date, session.program.clock->Now());
  if (!day) return WrongUsage(day.error());
  int zone = 0;
  if (!words.zone.empty()) {
    const Result<int> hours = ParseWhole(words.zone, "zone", -11, 11);
    if (!hours) return WrongUsage(hours.error());
    zone = *hours;
  }
  const bool summer = session.program.config.summer_time != 0;
  MonthDate date;
  DayOfYearToDate(day->day, day->year, date);
  if (words.month) {
    return SunMonthAnswer(
        SunTable(place->latitude, place->longitude, date.month, day->year, zone, summer));
  }
  const SunTimes times = SunCalc(place->latitude, place->longitude, date.day_of_month, date.month,
                                 day->year, zone, summer);
  Answer answer;
  answer.json() = {{"times", TimesJson(times)},
                   {"dayOfYear", SunDayOfYear(date.day_of_month, date.month, day->year)}};
  TextTable table({DateText(*day), ">Time"});
  for (std::size_t event = 0; event < kSunEvents; ++event) {
    const auto named = static_cast<SunEvent>(event);
    table.Add({SunEventName(named), SunEventText(times, named)});
  }
  answer.text = table.Text();
  return answer;
}

Outcome ShowMoon(Session& session, const DayWords& words) {
  const Result<DayAndYear> day = ParseDate(words.date, session.program.clock->Now());
  if (!day) return WrongUsage(day.error());
  MonthDate date;
  DayOfYearToDate(day->day, day->year, date);
  const std::vector<std::string> lines = MoonLines(date.month, day->year);
  Answer answer;
  answer.json() = {{"lines", lines}};
  for (const std::string& line : lines) answer.text += TrimRight(line) + "\n";
  return answer;
}

}  // namespace skerrow::cli
