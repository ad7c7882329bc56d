#include "exchange/text_table.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

#include "core/calendar.h"
#include "core/csv.h"
#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/position.h"
#include "core/text.h"
#include "exchange/exact_text.h"

namespace skerrow {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kPlaceHeadings =
    "Latitude,Longitude,Latitude (DD.MM.mm),Longitude (DDD.MM.mm)";
// Two forms of one coordinate agree within the hundredths of a minute that the shorter one shows.
constexpr float kSamePlaceDegrees = 0.0004F;

// ---- Writing

std::string Place(Position place) {
  std::string text = ExactText(place.latitude);
  text.append(",").append(ExactText(place.longitude));
  text.append(",").append(LatToText(place.latitude));
  text.append(",").append(LongToText(place.longitude));
  return text;
}

struct Moment {
  float hours = 0.0F;
  DayAndYear date;
};

DayAndYear NextDay(DayAndYear date) { return AddHours(date, 0.0F, 24.0F).date; }

// Through at most one midnight, as steps are.
float HoursBetween(const Moment& from, const Moment& to) {
  const float hours = to.hours - from.hours;
  return hours < 0.0F ? hours + 24.0F : hours;
}

// The number of steps of a leg; of a prediction all of them.
std::size_t StepsOf(const PassageState& passage, std::size_t leg) {
  return leg < passage.legs.size() ? static_cast<std::size_t>(passage.legs[leg].result.steps)
                                   : passage.route_track.size();
}

// When the boat is at each point of the track: its stream is read there as the step from it begins.
// The track's own times would not do, since the first point of a leg has taken the place of the end
// of the leg before, and with it the time at which the last step of that leg began.
std::vector<Moment> MomentsOf(const PassageState& passage) {
  const std::vector<TrackPoint>& track = passage.route_track;
  std::vector<Moment> moments;
  moments.reserve(track.size());
  for (std::size_t i = 0; i + 1 < track.size(); ++i) {
    const bool read = i < passage.route_streams.size();
    Moment moment{read ? passage.route_streams[i].hours : track[i + 1].hours, track[0].date};
    if (!moments.empty()) {
      moment.date = moments.back().date;
      if (moment.hours < moments.back().hours) moment.date = NextDay(moment.date);
    }
    moments.push_back(moment);
  }
  if (track.empty()) return moments;
  // The track ends with a whole step, past the destination or short of it.
  Moment end{track.back().hours, track.back().date};
  const std::size_t steps = StepsOf(passage, std::max<std::size_t>(passage.legs.size(), 1) - 1);
  if (steps >= 2 && moments.size() >= 2) {
    end = moments.back();
    AdvanceTime(end.hours, end.date, HoursBetween(moments[moments.size() - 2], end));
  } else if (!passage.legs.empty()) {
    end = {passage.legs.back().arrival_hours, passage.legs.back().arrival_date};
  }
  moments.push_back(end);
  return moments;
}

// ---- Reading

struct Cell {
  std::string text;
  bool quoted = false;
};
struct Row {
  std::size_t line = 0;  // where it begins, from 1
  std::vector<Cell> cells;
};

// The lines of a table as fields. Empty lines are none.
class Rows {
 public:
  Rows(std::string_view text, char separator) : text_(text), separator_(separator) {}

  // Error: a quotation mark that is never closed.
  Result<std::optional<Row>> Next() {
    while (at_ < text_.size()) {
      Row row{line_, {}};
      if (!TakeRow(row)) {
        return Error{"", "line " + std::to_string(row.line) + ": a quotation mark is not closed"};
      }
      if (row.cells.size() > 1 || !Trim(row.cells.front().text).empty()) return std::optional(row);
    }
    return std::optional<Row>();
  }

 private:
  bool TakeRow(Row& row) {
    while (true) {
      row.cells.emplace_back();
      if (!TakeCell(row.cells.back())) return false;
      if (at_ >= text_.size()) return true;
      const char end = text_[at_++];
      if (end == separator_) continue;
      if (end == '\r' && at_ < text_.size() && text_[at_] == '\n') ++at_;
      ++line_;
      return true;
    }
  }

  // Up to the separator or the end of the line.
  bool TakeCell(Cell& cell) {
    const std::size_t blanks = text_.find_first_not_of(' ', at_);
    if (blanks < text_.size() && text_[blanks] == '"') {
      cell.quoted = true;
      at_ = blanks + 1;
      while (true) {
        if (at_ >= text_.size()) return false;
        const char c = text_[at_++];
        if (c == '"') {
          if (at_ >= text_.size() || text_[at_] != '"') break;
          ++at_;
        }
        // A line break of any kind counts once.
        if (c == '\n' || (c == '\r' && (at_ >= text_.size() || text_[at_] != '\n'))) ++line_;
        cell.text += c;
      }
    }
    while (at_ < text_.size() && text_[at_] != separator_ && text_[at_] != '\r' &&
           text_[at_] != '\n') {
      if (!cell.quoted || text_[at_] != ' ') cell.text += text_[at_];
      ++at_;
    }
    return true;
  }

  std::string_view text_;
  char separator_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
};

// What tells latitudes from longitudes.
struct Axis {
  const char* what;
  char positive;
  char negative;
  float limit;
};
constexpr Axis kLatitude = {"latitude", 'N', 'S', 90.0F};
constexpr Axis kLongitude = {"longitude", 'E', 'W', 180.0F};

std::optional<float> NumberOf(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  float value = 0.0F;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
  if (read.ec != std::errc() || read.ptr != text.data() + text.size() || !std::isfinite(value)) {
    return std::nullopt;
  }
  return value;
}

bool AllDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// The words of a text without the signs of degrees, minutes and seconds.
std::vector<std::string> WordsOf(std::string text) {
  for (const char* sign : {"\u00b0", "\u00ba", "\u2032", "\u2033", "'", "\""}) {
    text = ReplaceAll(std::move(text), sign, " ");
  }
  std::vector<std::string> words;
  std::size_t at = 0;
  while ((at = text.find_first_not_of(' ', at)) != std::string::npos) {
    const std::size_t end = std::min(text.find(' ', at), text.size());
    words.push_back(text.substr(at, end - at));
    at = end;
  }
  return words;
}

// "50.30.25" and a hemisphere, or degrees, minutes and seconds as words.
std::optional<float> Sexagesimal(const std::vector<std::string>& words, char hemisphere,
                                 const Axis& axis) {
  const float sign = hemisphere == axis.negative ? -1.0F : 1.0F;
  if (words.size() == 1) {
    // One point would be degrees and minutes in this program and decimal degrees in others.
    const std::string& word = words.front();
    const std::size_t first = word.find('.');
    const std::size_t second = first == std::string::npos ? first : word.find('.', first + 1);
    if (second == std::string::npos || !AllDigits(word.substr(0, first)) ||
        !AllDigits(word.substr(second + 1)) ||
        !AllDigits(word.substr(first + 1, second - first - 1)) ||
        TextToNumber(word.substr(first + 1)) >= 60.0) {
      return std::nullopt;
    }
    return sign * TextToLat(word);
  }
  if (words.size() > 3) return std::nullopt;
  double degrees = 0.0;
  double unit = 1.0;
  for (std::size_t i = 0; i < words.size(); ++i, unit /= 60.0) {
    const bool last = i + 1 == words.size();
    const std::size_t point = std::min(words[i].find('.'), words[i].size());
    const bool shaped =
        AllDigits(words[i].substr(0, point)) &&
        (point == words[i].size() || (last && AllDigits(words[i].substr(point + 1))));
    const double part = TextToNumber(words[i]);
    if (!shaped || (i > 0 && part >= 60.0)) return std::nullopt;
    degrees += part * unit;
  }
  return sign * static_cast<float>(degrees);
}

// Degrees of a field; empty for one that is no coordinate of the axis.
std::optional<float> DegreesOf(std::string_view cell, const Axis& axis, bool decimal_comma) {
  std::string text = Trim(decimal_comma ? ReplaceAll(std::string(cell), ",", ".") : cell);
  for (char& c : text) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  const auto is_hemisphere = [&](char c) { return c == axis.positive || c == axis.negative; };
  std::optional<float> degrees;
  if (!text.empty() && (is_hemisphere(text.front()) || is_hemisphere(text.back()))) {
    const bool front = is_hemisphere(text.front());
    const char hemisphere = front ? text.front() : text.back();
    text.erase(front ? 0 : text.size() - 1, 1);
    degrees = Sexagesimal(WordsOf(std::move(text)), hemisphere, axis);
  } else if (const auto words = WordsOf(std::move(text)); words.size() == 1) {
    degrees = NumberOf(words.front());
  }
  if (degrees && std::fabs(*degrees) > axis.limit) return std::nullopt;
  return degrees;
}

// Knots of a field, with or without the unit; empty for one that is no speed.
std::optional<float> SpeedOf(std::string text, bool decimal_comma) {
  if (decimal_comma) text = ReplaceAll(std::move(text), ",", ".");
  const std::size_t end = std::min(text.find_first_not_of("+-.0123456789"), text.size());
  const std::string unit = ToLowerAscii(Trim(text.substr(end)));
  if (!unit.empty() && unit != "kn" && unit != "kt" && unit != "kts" && unit != "knots") {
    return std::nullopt;
  }
  const std::optional<float> speed = NumberOf(text.substr(0, end));
  return speed && *speed >= 0.0F ? speed : std::nullopt;
}

// Which columns hold what.
struct Layout {
  std::vector<std::size_t> latitudes;
  std::vector<std::size_t> longitudes;
  std::optional<std::size_t> name;
  std::optional<std::size_t> speed;
  bool heading = false;
  bool decimal_comma = false;
};

// By the words of a heading line.
std::optional<Layout> HeadingLayout(const Row& row) {
  Layout layout;
  layout.heading = true;
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    const std::string word = ToLowerAscii(Trim(row.cells[i].text));
    const auto begins = [&](std::string_view start) { return word.starts_with(start); };
    if (begins("lat")) {
      layout.latitudes.push_back(i);
    } else if (begins("lon") || begins("lng")) {
      layout.longitudes.push_back(i);
    } else if (!layout.name && (begins("name") || begins("waypoint") || begins("mark"))) {
      layout.name = i;
    } else if (!layout.speed && (begins("speed") || begins("boat speed") || begins("sog"))) {
      layout.speed = i;
    }
  }
  if (layout.latitudes.empty() || layout.longitudes.empty()) return std::nullopt;
  return layout;
}

// By what the first line of a table without headings holds. A third number without a text may be a
// name as well as a speed, and is not guessed at.
std::optional<Layout> GuessedLayout(const Row& row, bool decimal_comma) {
  Layout layout;
  std::vector<std::size_t> numbers;
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    const std::string& text = row.cells[i].text;
    const bool latitude = DegreesOf(text, kLatitude, decimal_comma).has_value();
    const bool longitude = DegreesOf(text, kLongitude, decimal_comma).has_value();
    const bool paired = longitude && layout.latitudes.size() > layout.longitudes.size();
    if (latitude && !longitude) {
      layout.latitudes.push_back(i);
    } else if (!latitude && paired) {
      layout.longitudes.push_back(i);
    } else if (longitude) {
      numbers.push_back(i);  // either, or a number beyond 90
    } else if (!layout.speed && SpeedOf(Trim(text), decimal_comma)) {
      layout.speed = i;
    } else if (!layout.name) {
      layout.name = i;
    }
  }
  std::size_t next = 0;
  if (numbers.size() >= 2) {
    // Ahead of a position in the other form, which the table may have behind it.
    layout.latitudes.insert(layout.latitudes.begin(), numbers[0]);
    layout.longitudes.insert(layout.longitudes.begin(), numbers[1]);
    next = 2;
  }
  if (layout.latitudes.empty() || layout.latitudes.size() != layout.longitudes.size()) {
    return std::nullopt;
  }
  if (next < numbers.size()) {
    if (!layout.name || layout.speed || numbers.size() > next + 1) return std::nullopt;
    layout.speed = numbers[next];
  }
  return layout;
}

class TableReader {
 public:
  // Errors: no text, no columns.
  static Result<TableReader> Open(std::string_view bytes) {
    if (bytes.find('\0') != std::string_view::npos || bytes.starts_with("\xFF\xFE") ||
        bytes.starts_with("\xFE\xFF")) {
      return Error{"", "this is no text in UTF-8 or of single bytes; save it as \"CSV\" in UTF-8"};
    }
    TableReader reader;
    reader.text_ = IsUtf8(bytes) ? bytes : FromAnsi(bytes);
    if (reader.text_.starts_with(kByteOrderMark)) reader.text_.erase(0, kByteOrderMark.size());
    if (Trim(ReplaceAll(ReplaceAll(reader.text_, "\r", " "), "\n", " ")).empty()) {
      return Error{"", "there is nothing in it"};
    }
    for (const char separator : {'\t', ';', ','}) {
      reader.separator_ = separator;
      Rows rows(reader.text_, separator);
      const Result<std::optional<Row>> first = rows.Next();
      if (!first) continue;
      const bool decimal_comma = separator != ',';
      std::optional<Layout> layout = HeadingLayout(**first);
      if (!layout) layout = GuessedLayout(**first, decimal_comma);
      if (!layout) continue;
      reader.layout_ = *layout;
      reader.layout_.decimal_comma = decimal_comma;
      return reader;
    }
    return Error{"",
                 "its first line tells no columns: let it read Name,Latitude,Longitude, and Speed "
                 "for a route"};
  }

  // Gives each line as a record with its speed, or why it is none, to `take`; an error of `take`
  // ends the reading and comes back.
  template <typename Take>
  Status ForEach(Taken& taken, Take take) const {
    Rows rows(text_, separator_);
    bool heading = layout_.heading;
    while (true) {
      const Result<std::optional<Row>> row = rows.Next();
      if (!row) return row.error();
      if (!*row) return Done{};
      if (heading) {
        heading = false;
        continue;
      }
      Status went_on = take(RecordOf(**row, taken));
      if (!went_on) return went_on;
    }
  }

  struct Record {
    std::string name;
    Position place;
    std::optional<float> speed;
  };

 private:
  static const Cell& CellAt(const Row& row, std::optional<std::size_t> column) {
    static const Cell kEmpty;
    return column && *column < row.cells.size() ? row.cells[*column] : kEmpty;
  }

  Result<Record> RecordOf(const Row& row, Taken& taken) const {
    const std::string line = "line " + std::to_string(row.line) + ": ";
    const Result<float> latitude = Coordinate(row, layout_.latitudes, kLatitude);
    if (!latitude) return Error{"", line + latitude.error().reason};
    const Result<float> longitude = Coordinate(row, layout_.longitudes, kLongitude);
    if (!longitude) return Error{"", line + longitude.error().reason};
    const Cell& name = CellAt(row, layout_.name);
    Record record{"", {*latitude, *longitude}, std::nullopt};
    if (const std::string typed = Trim(CellAt(row, layout_.speed).text); !typed.empty()) {
      record.speed = SpeedOf(typed, layout_.decimal_comma);
      if (!record.speed) return Error{"", line + "\"" + typed + "\" is no speed"};
    }
    record.name = RecordName(name.text, taken, name.quoted);
    return record;
  }

  // The coordinate of a line by all columns that have it; the first, in decimal degrees, is the
  // most exact.
  Result<float> Coordinate(const Row& row, const std::vector<std::size_t>& columns,
                           const Axis& axis) const {
    std::optional<float> found;
    std::string found_text;
    for (const std::size_t column : columns) {
      const std::string text = Trim(CellAt(row, column).text);
      if (text.empty()) continue;
      const std::optional<float> degrees = DegreesOf(text, axis, layout_.decimal_comma);
      if (!degrees) return Error{"", "\"" + text + "\" is no " + axis.what};
      if (found && std::fabs(*degrees - *found) > kSamePlaceDegrees) {
        std::string reason = std::string("the ") + axis.what;
        reason.append("s \"").append(found_text).append("\" and \"").append(text);
        return Error{"", reason.append("\" are not the same")};
      }
      if (!found) {
        found = degrees;
        found_text = text;
      }
    }
    if (!found) return Error{"", std::string("there is no ") + axis.what};
    return *found;
  }

  std::string text_;
  char separator_ = ',';
  Layout layout_;
};

constexpr const char* kNoLines = "it has no points";

}  // namespace

std::string RouteTable(std::span<const RouteRecord> records) {
  std::string table = "Name," + std::string(kPlaceHeadings) + ",Speed (kn)\r\n";
  for (const RouteRecord& record : records) {
    table.append(CsvField(record.name)).append(",");
    table.append(Place({record.latitude, record.longitude})).append(",");
    table.append(ExactText(record.speed)).append("\r\n");
  }
  return table;
}

std::string WaypointTable(std::span<const Waypoint> waypoints) {
  std::string table = "Name," + std::string(kPlaceHeadings) + "\r\n";
  for (const Waypoint& waypoint : waypoints) {
    table.append(CsvField(waypoint.name)).append(",").append(Place(waypoint.At())).append("\r\n");
  }
  return table;
}

std::vector<CourseStep> CourseSteps(const PassageState& passage) {
  const std::vector<TrackPoint>& track = passage.route_track;
  const std::vector<Moment> moments = MomentsOf(passage);
  std::vector<CourseStep> steps;
  steps.reserve(track.size());
  std::size_t leg = 0;
  std::size_t leg_end = StepsOf(passage, leg);
  for (std::size_t i = 0; i < track.size(); ++i) {
    const bool last = i + 1 == track.size();
    while (!last && i >= leg_end && leg + 1 < passage.legs.size()) {
      leg_end += StepsOf(passage, ++leg);
    }
    CourseStep step;
    step.when = DateAndMinute(moments[i].date, moments[i].hours);
    step.place = track[i].position;
    if (leg < passage.legs.size()) {
      step.leg = std::to_string(leg + 1);
      if (!last) step.steer = FormatFixed(passage.legs[leg].heading, 3, 0);
    }
    if (!last) {
      const RangeAndBearing run = RangeBearing(track[i].position, track[i + 1].position);
      const float hours = HoursBetween(moments[i], moments[i + 1]);
      step.course = FormatFixed(run.bearing, 3, 0);
      if (hours > 0.0F) step.speed = FormatFixed(run.range / hours, 1, 1);
    }
    if (!last && i < passage.route_streams.size()) {
      const StreamSample& stream = passage.route_streams[i];
      step.rate = FormatFixed(stream.rate, 1, 1);
      step.direction = FormatFixed(stream.direction, 3, 0);
      step.diamond = stream.label;
    }
    steps.push_back(std::move(step));
  }
  return steps;
}

std::string CourseTable(const PassageState& passage) {
  std::string table = "Leg,Date,Time,Steer," + std::string(kPlaceHeadings) +
                      ",Course over ground,Speed over ground (kn),Stream rate (kn),"
                      "Stream direction,Diamond\r\n";
  for (const CourseStep& step : CourseSteps(passage)) {
    const std::string fields[] = {step.leg,
                                  step.when.substr(0, 10),
                                  step.when.substr(11),
                                  step.steer,
                                  Place(step.place),
                                  step.course,
                                  step.speed,
                                  step.rate,
                                  step.direction};
    for (const std::string& field : fields) table.append(field).append(",");
    table.append(CsvField(step.diamond)).append("\r\n");
  }
  return table;
}

std::string TableFile(std::string_view table) {
  const bool plain = table.find_first_not_of(
                         "\r\n\t !\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                         "[\\]^_`abcdefghijklmnopqrstuvwxyz{|}~") == std::string_view::npos;
  return (plain ? std::string() : std::string(kByteOrderMark)) + std::string(table);
}

Result<std::vector<Waypoint>> ReadWaypointTable(std::string_view text, Taken& taken) {
  const Result<TableReader> reader = TableReader::Open(text);
  if (!reader) return reader.error();
  std::vector<Waypoint> waypoints;
  const Status read =
      reader->ForEach(taken, [&](const Result<TableReader::Record>& record) -> Status {
        if (record) {
          waypoints.push_back({record->name, record->place.latitude, record->place.longitude});
        } else if (++taken.left_out == 1) {
          taken.first_fault = record.error().reason;
        }
        return Done{};
      });
  if (!read) return read.error();
  if (waypoints.empty()) {
    return Error{"", taken.first_fault.empty() ? kNoLines : taken.first_fault};
  }
  return waypoints;
}

Result<std::vector<RouteRecord>> ReadRouteTable(std::string_view text, float speed, Taken& taken) {
  const Result<TableReader> reader = TableReader::Open(text);
  if (!reader) return reader.error();
  std::vector<RouteRecord> records;
  const Status read =
      reader->ForEach(taken, [&](const Result<TableReader::Record>& record) -> Status {
        if (!record) return record.error();
        records.push_back({record->name, record->place.latitude, record->place.longitude,
                           record->speed.value_or(speed)});
        return Done{};
      });
  if (!read) return read.error();
  if (records.empty()) return Error{"", kNoLines};
  return records;
}

}  // namespace skerrow
