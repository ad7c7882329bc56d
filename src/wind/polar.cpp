#include "wind/polar.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr int kLastRowRead = 30;
constexpr double kSlowest = 0.5;       // knots, pointing higher than the boat can sail
constexpr double kCloseHauled = 30.0;  // degrees: the angle that the slowing is reckoned from

// Numbers of a line of the shared form; empty when something else stands in it. An empty field at
// the end of a line counts for nothing, one within it is 0.
struct TextLine {
  std::vector<double> numbers;
  bool sound = true;
};

bool IsSeparator(char c) { return c == '\t' || c == ';' || c == ','; }

TextLine NumbersOf(std::string_view line, bool heading) {
  TextLine result;
  std::size_t at = 0;
  bool first = true;
  while (at <= line.size()) {
    std::size_t end = at;
    while (end < line.size() && !IsSeparator(line[end])) ++end;
    const std::string field = Trim(line.substr(at, end - at));
    const bool last = end >= line.size();
    if (!(last && field.empty() && !first)) {
      const double value = TextToNumber(field);
      const bool number = !field.empty() && (std::isdigit(static_cast<unsigned char>(field[0])) ||
                                             field[0] == '.' || field[0] == '-');
      // The corner of the heading has a word such as "TWA\TWS".
      if (!number && !field.empty() && !(heading && first)) result.sound = false;
      result.numbers.push_back(value);
    }
    first = false;
    at = end + 1;
  }
  return result;
}

// The place of `x` in a rising row of numbers: between `below` and `below` + 1, `part` of the way.
struct Place {
  std::size_t below = 0;
  double part = 0.0;
  bool outside = false;
};

Place PlaceIn(const std::vector<double>& row, double x) {
  if (x <= row.front()) return {0, 0.0, x < row.front()};
  if (x >= row.back()) return {row.size() - 2, 1.0, x > row.back()};
  const auto above = std::upper_bound(row.begin(), row.end(), x);
  const auto below = static_cast<std::size_t>(above - row.begin()) - 1;
  return {below, (x - row[below]) / (row[below + 1] - row[below]), false};
}

// The grid of a text.
struct Grid {
  std::vector<double> winds, angles;
  std::vector<std::vector<double>> speeds;  // by angle, by wind
};

Result<Grid> GridOf(std::string_view text) {
  Grid grid;
  int number = 0;
  while (!text.empty()) {
    ++number;
    const std::size_t end = text.find_first_of("\r\n");
    const std::string_view line = text.substr(0, end);
    text = end == std::string_view::npos          ? std::string_view()
           : text.substr(end).starts_with("\r\n") ? text.substr(end + 2)
                                                  : text.substr(end + 1);
    const std::string content = Trim(line);
    if (content.empty() || content[0] == '!' || content[0] == '#') continue;
    const std::string where = "line " + std::to_string(number);
    const bool heading = grid.winds.empty();
    TextLine parsed = NumbersOf(line, heading);
    if (!parsed.sound) return Error{where, "there is something else than a number"};
    const double first = parsed.numbers.empty() ? 0.0 : parsed.numbers[0];
    std::vector<double> rest(parsed.numbers.begin() + (parsed.numbers.empty() ? 0 : 1),
                             parsed.numbers.end());
    if (heading) {
      if (rest.size() < 2) return Error{where, "two wind speeds are the least"};
      grid.winds = std::move(rest);
      continue;
    }
    if (rest.size() != grid.winds.size()) {
      return Error{where, "it has another number of columns than the first line"};
    }
    if (first < 0 || first > kLastPolarAngle) return Error{where, "an angle is from 0 to 180"};
    if (!grid.angles.empty() && first <= grid.angles.back()) {
      return Error{where, "the angles must rise"};
    }
    for (const double speed : rest) {
      if (speed < 0 || speed > kFastestBoat) return Error{where, "no boat has this speed"};
    }
    grid.angles.push_back(first);
    grid.speeds.push_back(std::move(rest));
  }
  if (grid.angles.size() < 2) return Error{"", "there is no table of boat speeds by wind angle"};
  if (!std::is_sorted(grid.winds.begin(), grid.winds.end(), std::less_equal<>()) ||
      grid.winds.front() < 0 || grid.winds.back() > kFastestBoat) {
    return Error{"line 1", "the wind speeds must rise, from 0 on"};
  }
  return grid;
}

}  // namespace

std::size_t PolarColumnOf(double wind_speed) {
  if (wind_speed >= 0 && wind_speed < 30) {
    return 1 + static_cast<std::size_t>(WholePartDown(wind_speed / 2));
  }
  return kPolarColumns.size() - 1;
}

std::optional<std::string> BoatSpeedFromWindEntryAndSpeed(const PolarRows& rows, int row,
                                                          double wind_speed) {
  const auto index = static_cast<std::size_t>(std::clamp(row, 1, kLastRowRead) - 1);
  if (index >= rows.size()) return std::nullopt;
  return rows[index][PolarColumnOf(wind_speed)];
}

AngleBand calcAngle(double angle) {
  const auto lower = static_cast<int>(WholePart(angle / kPolarAngleStep)) * kPolarAngleStep;
  return {lower, lower + kPolarAngleStep, angle - lower};
}

WindBand NearestWindSpeed(double wind_speed) {
  constexpr int kLastBand = 40;
  const int lower = std::clamp(static_cast<int>(WholePartDown(wind_speed / 2)) * 2, 0, kLastBand);
  const double difference = wind_speed - lower;
  return {lower, lower + 2, difference == 0 ? 2.0 : difference};
}

PolarTable::PolarTable(const PolarRows& rows) {
  for (const PolarRow& row : rows) {
    angles_.push_back(row[0] ? TextToNumber(*row[0]) : -1.0);
    auto& cells = cells_.emplace_back();
    for (std::size_t column = 1; column < row.size(); ++column) {
      if (row[column] && !Trim(*row[column]).empty()) cells[column] = TextToNumber(*row[column]);
    }
  }
}

std::optional<double> PolarTable::Cell(int row, double wind_speed) const {
  const auto index = static_cast<std::size_t>(std::clamp(row, 1, kLastRowRead) - 1);
  return index < cells_.size() ? cells_[index][PolarColumnOf(wind_speed)] : std::nullopt;
}

std::optional<double> PolarTable::Estimate(double wind_speed, double angle, double closest) const {
  const AngleBand band = calcAngle(angle);
  int row_below = 0;
  int row_above = 1;
  for (std::size_t i = 0; i < angles_.size(); ++i) {
    if (angles_[i] == band.lower) row_below = static_cast<int>(i) + 1;
    if (angles_[i] == band.upper) row_above = static_cast<int>(i) + 1;
  }
  const std::optional<double> s1 = Cell(row_below, wind_speed);
  const std::optional<double> s2 = Cell(row_above, wind_speed);
  if (!s1 || !s2) return std::nullopt;
  if (angle < closest) {
    return std::max((*s1 + *s2) / 2 * angle / kCloseHauled, kSlowest);
  }
  const std::optional<double> s3 = Cell(row_below, wind_speed + 2);
  const std::optional<double> s4 = Cell(row_above, wind_speed + 2);
  if (!s3 || !s4) return std::nullopt;
  const double t1 = *s1 + (*s2 - *s1) * band.excess / kPolarAngleStep;
  const double t2 = *s3 + (*s4 - *s3) * band.excess / kPolarAngleStep;
  return t1 + (t2 - t1) * NearestWindSpeed(wind_speed).difference / 2;
}

std::optional<std::string> EstimateBoatSpeed(const PolarRows& rows, double wind_speed, double angle,
                                             double closest) {
  const std::optional<double> speed = PolarTable(rows).Estimate(wind_speed, angle, closest);
  if (!speed) return std::nullopt;
  return FormatFixed(*speed, 1, 1);
}

PolarCurve PolarCurveOf(const PolarRows& rows, std::size_t column) {
  PolarCurve curve;
  for (const PolarRow& row : rows) {
    if (curve.points.size() == kPolarAngles) break;
    if (!row[0] || !row[column]) continue;
    const double speed = TextToNumber(*row[column]);
    if (speed <= 0) continue;
    curve.points.push_back({TextToNumber(*row[0]), speed});
    curve.fastest = std::max(curve.fastest, speed);
  }
  return curve;
}

Result<PolarImport> PolarFromText(std::string_view text) {
  const Result<Grid> grid = GridOf(text);
  if (!grid) return grid.error();
  PolarImport result;
  for (int angle = kFirstPolarAngle; angle <= kLastPolarAngle; angle += kPolarAngleStep) {
    PolarRow& row = result.rows.emplace_back();
    row[0] = std::to_string(angle);
    const Place a = PlaceIn(grid->angles, angle);
    for (std::size_t column = 1; column < row.size(); ++column) {
      // Less than 2 knots of wind drive no boat.
      const double wind = 2.0 * static_cast<double>(column - 1);
      const Place w = PlaceIn(grid->winds, wind);
      const auto along = [&](std::size_t i) {
        const std::vector<double>& speeds = grid->speeds[i];
        return speeds[w.below] + (speeds[w.below + 1] - speeds[w.below]) * w.part;
      };
      double speed = along(a.below) + (along(a.below + 1) - along(a.below)) * a.part;
      if (column == 1 && w.outside) {
        speed = 0.0;
      } else if (a.outside || w.outside) {
        ++result.guessed;
      }
      row[column] = FormatFixed(speed, 1, 2);
    }
  }
  return result;
}

std::string PolarToText(const PolarRows& rows) {
  std::string text = "TWA\\TWS";
  for (std::size_t column = 2; column < kPolarColumns.size(); ++column) {
    text += "\t" + std::to_string(2 * (column - 1));
  }
  text += "\r\n";
  for (const PolarRow& row : rows) {
    text += row[0] ? ShortText(static_cast<float>(TextToNumber(*row[0]))) : "0";
    for (std::size_t column = 2; column < row.size(); ++column) {
      text += "\t" + (row[column] ? ShortText(static_cast<float>(TextToNumber(*row[column])))
                                  : std::string("0"));
    }
    text += "\r\n";
  }
  return text;
}

}  // namespace skerrow
