#include <algorithm>
#include <cmath>

#include <nlohmann/json.hpp>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/text.h"
#include "platform/forecasts.h"
#include "wind/forecast_file.h"
#include "wind/relative_wind.h"
#include "wind/wind_store.h"

namespace skerrow::cli {
namespace {

// "2026-12-05 06:00" of days from the beginning of 2000.
std::string TimeText(double days) {
  DayAndYear date{1, 2000};
  auto whole = static_cast<int>(std::floor(days));
  if (whole < 0 || whole > 80000) return "unknown";
  while (whole >= DaysInYear(date.year)) {
    whole -= DaysInYear(date.year);
    ++date.year;
  }
  date.day = static_cast<std::int16_t>(whole + 1);
  MonthDate month;
  DayOfYearToDate(date.day, date.year, month);
  return FormatFixed(date.year, 4, 0) + "-" + FormatFixed(month.month, 2, 0) + "-" +
         FormatFixed(month.day_of_month, 2, 0) + " " +
         HoursToClock(static_cast<float>((days - std::floor(days)) * 24));
}

std::string WindText(float speed, float direction) {
  return FormatFixed(speed, 1, 1) + " kn from " + FormatFixed(direction, 3, 0) + "°T";
}

Json MessagesShown(const Session& session) { return session.messages.texts(); }

// The store of the user; an error says what to do about a missing one.
Result<WindStore> OpenStore(const Session& session) {
  Result<std::vector<WindCell>> cells = ReadWindStore(session.program.folders);
  if (!cells) {
    return Error{cells.error().path, cells.error().reason + "; grib import FILE makes it"};
  }
  return WindStore(std::move(cells.value()));
}

std::string OldForecastText(const WindStore& store, const When& when) {
  const double asked = DaysFrom2000(when.date) + when.hours / 24.0;
  if (store.empty()) return "no wind has been imported";
  if (asked > store.last_time()) {
    return "no wind data: the forecast ends " + TimeText(store.last_time());
  }
  if (asked < store.first_time()) {
    return "no wind data: the forecast begins " + TimeText(store.first_time());
  }
  return "no wind data within " + FormatFixed(kWindReach, 1, 0) + " nm of this place and time";
}

}  // namespace

Outcome ShowGrib(Session& session, const GribWords& words) {
  const std::unique_ptr<ForecastReader> reader = MakeForecastReader();
  const GribFile file = ReadForecastFile(words.file, *reader, session.messages, session.progress);
  if (file.records.empty()) return Failure{kFailed, ""};
  Answer answer;
  Json list = Json::array();
  TextTable table({">Rec No", ">Param Number", "Time", ">Grid", ">Least", ">Most"});
  int number = 0;
  for (const GribRecord& record : file.records) {
    list.push_back({{"parameter", record.parameter},
                    {"time", Number(record.Time())},
                    {"ni", record.grid.ni},
                    {"nj", record.grid.nj},
                    {"min", Number(record.lowest)},
                    {"max", Number(record.highest)}});
    table.Add({std::to_string(++number), std::to_string(record.parameter),
               record.forecast_minutes == kUnhandledTime ? "unknown" : TimeText(record.Time()),
               std::to_string(record.grid.ni) + " x " + std::to_string(record.grid.nj),
               FormatFixed(record.lowest, 1, 2), FormatFixed(record.highest, 1, 2)});
  }
  answer.json() = {{"messages", list}, {"messagesShown", MessagesShown(session)}};
  answer.text = table.Text();
  return answer;
}

Outcome ImportGrib(Session& session, const GribWords& words) {
  Program& program = session.program;
  const std::unique_ptr<ForecastReader> reader = MakeForecastReader();
  GribFile file = ReadForecastFile(words.file, *reader, session.messages, session.progress);
  std::optional<DayAndYear> today;
  if (words.today) {
    const ClockReading now = program.clock->Now();
    const Result<DayAndYear> day = ParseDate("", now);
    if (!day) return WrongUsage(day.error());
    today = *day;
  }
  if (file.records.empty() ||
      !ImportForecast(program.folders, std::move(file.records), today, session.messages)) {
    return Failure{kFailed, ""};
  }
  const Result<WindStore> store = OpenStore(session);
  if (!store) return Failed(store.error());
  Answer answer;
  answer.json() = {{"records", store->cells().size()},
                   {"first", Number(store->first_time())},
                   {"last", Number(store->last_time())},
                   {"messagesShown", MessagesShown(session)}};
  answer.text = "wind from " + TimeText(store->first_time()) + " to " +
                TimeText(store->last_time()) + ", " + std::to_string(store->cells().size()) +
                " records\n";
  return answer;
}

Outcome ShowWind(Session& session, const StreamWords& words) {
  const Result<Position> place = ParsePosition(words.place.latitude, words.place.longitude);
  if (!place) return WrongUsage(place.error());
  const Result<When> when =
      ParseWhen(words.when.date, words.when.time, session.program.clock->Now());
  if (!when) return WrongUsage(when.error());
  const Result<WindStore> store = OpenStore(session);
  if (!store) return Failed(store.error());
  const std::optional<WindFound> found = store->Find(*place, when->date, when->hours);
  Answer answer;
  answer.json() = {{"found", found && found->near},
                   {"speed", found ? Number(found->speed) : Json(nullptr)},
                   {"direction", found ? Number(found->direction) : Json(nullptr)},
                   {"range", found ? Number(found->range) : Json(nullptr)}};
  answer.text = found && found->near ? WindText(found->speed, found->direction) + ", " +
                                           FormatFixed(found->range, 1, 1) + " nm off\n"
                                     : OldForecastText(*store, *when) + "\n";
  return answer;
}

Outcome ListWind(Session& session, const WindListWords& words) {
  const Result<When> when =
      ParseWhen(words.when.date, words.when.time, session.program.clock->Now());
  if (!when) return WrongUsage(when.error());
  float box[4] = {-90.0F, -180.0F, 90.0F, 180.0F};  // south, west, north, east
  if (!words.box.empty()) {
    std::string_view rest = words.box;
    for (float& side : box) {
      const std::size_t end = rest.find(',');
      const Result<float> number = ParseNumber(rest.substr(0, end), "box");
      if (!number) return WrongUsage(number.error());
      side = *number;
      if ((end == std::string_view::npos) != (&side == &box[3])) {
        return Failure{kWrongUsage, "the box is S,W,N,E"};
      }
      if (end != std::string_view::npos) rest.remove_prefix(end + 1);
    }
  }
  const Result<WindStore> store = OpenStore(session);
  if (!store) return Failed(store.error());
  Answer answer;
  Json list = Json::array();
  TextTable table({"Time", "Latitude", "Longitude", ">Wind"});
  for (const std::size_t index : store->Serving(when->date, when->hours)) {
    const WindCell& cell = store->cells()[index];
    if (cell.latitude < box[0] || cell.longitude < box[1] || cell.latitude > box[2] ||
        cell.longitude > box[3]) {
      continue;
    }
    list.push_back({Number(cell.time), Number(cell.latitude), Number(cell.longitude),
                    Number(cell.speed), Number(cell.direction)});
    table.Add({TimeText(cell.time), LatToText(cell.latitude), LongToText(cell.longitude),
               WindText(cell.speed, cell.direction)});
  }
  answer.text = list.empty() ? OldForecastText(*store, *when) + "\n" : table.Text();
  answer.json() = {{"records", list}};
  return answer;
}

Outcome ShowWindStore(Session& session, const NoWords&) {
  const Result<std::vector<WindCell>> cells = ReadWindStore(session.program.folders);
  if (!cells) return Failed(cells.error());
  Answer answer;
  Json list = Json::array();
  for (const WindCell& cell : *cells) {
    list.push_back({Number(cell.time), Number(cell.latitude), Number(cell.longitude),
                    Number(cell.speed), Number(cell.direction)});
    answer.text +=
        TimeText(cell.time) + "  " + LatToText(cell.latitude) + "  " + LongToText(cell.longitude) +
        "  " + (cell.speed == kNoWind ? "no wind" : WindText(cell.speed, cell.direction)) + "\n";
  }
  answer.json() = {{"records", list}};
  return answer;
}

Outcome ShowRelativeWind(Session&, const RelativeWords& words) {
  const Result<float> from = ParseNumber(words.from, "from");
  if (!from) return WrongUsage(from.error());
  const Result<float> course = ParseNumber(words.course, "course");
  if (!course) return WrongUsage(course.error());
  const RelativeWind wind = RelativeWindOf(*from, *course);
  Answer answer;
  answer.json() = {{"angle", Number(wind.angle)}, {"starboard", wind.starboard}};
  const bool either = wind.angle == 0 || wind.angle == 180;
  answer.text = FormatFixed(wind.angle, 1, 1) + "° " +
                (either           ? (wind.angle == 0 ? "dead ahead" : "dead astern")
                 : wind.starboard ? "from starboard"
                                  : "from port") +
                "\n";
  return answer;
}

Outcome ConvertWind(Session&, const ConvertWords& words) {
  WindOnBow given;
  const Result<float> speed = ParseNumber(words.speed, "speed");
  if (!speed) return WrongUsage(speed.error());
  const Result<float> angle = ParseNumber(words.angle, "angle");
  if (!angle) return WrongUsage(angle.error());
  const Result<float> boat = ParseNumber(words.boat, "boat");
  if (!boat) return WrongUsage(boat.error());
  if (*speed < 0 || *boat < 0 || *angle < 0 || *angle > 180) {
    return Failure{kWrongUsage, "speeds are 0 or more, and the angle is from 0 to 180"};
  }
  given.speed = *speed;
  given.angle = *angle;
  const WindOnBow result = words.to_true ? TrueWind(given, *boat) : ApparentWind(given, *boat);
  Answer answer;
  answer.json() = {{"speed", Number(result.speed)}, {"angle", Number(result.angle)}};
  answer.text = std::string(words.to_true ? "true" : "apparent") + " wind " +
                FormatFixed(result.speed, 1, 1) + " kn at " + FormatFixed(result.angle, 1, 0) +
                "° from the bow\n";
  return answer;
}

}  // namespace skerrow::cli
