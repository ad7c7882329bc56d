#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "charts/chart_tools.h"
#include "cli/arguments.h"
#include "cli/commands.h"

namespace skerrow::cli {
namespace {

// Sets what `text` tells, if it tells anything.
std::optional<Failure> Take(const std::string& text, const Result<float>& value, float& into) {
  if (text.empty()) return std::nullopt;
  if (!value) return WrongUsage(value.error());
  into = *value;
  return std::nullopt;
}

bool AnyField(const CalibrateWords& words) {
  for (const std::string* text :
       {&words.upper_lat, &words.lower_lat, &words.left_long, &words.right_long, &words.top_row,
        &words.bottom_row, &words.left_column, &words.right_column, &words.scale, &words.width,
        &words.height}) {
    if (!text->empty()) return true;
  }
  return !words.points.empty();
}

struct ChartPoint {
  float row = 0.0F;
  float column = 0.0F;
  Position place;
};

// Two points, the upper one first.
Result<std::array<ChartPoint, 2>> ParsePoints(const std::vector<std::string>& words) {
  std::array<ChartPoint, 2> points;
  if (words.size() != 8) return Error{"", "--point stands twice, each with ROW COLUMN LAT LONG"};
  for (std::size_t i = 0; i < points.size(); ++i) {
    const Result<float> row = ParseNumber(words[4 * i], "row");
    if (!row) return row.error();
    const Result<float> column = ParseNumber(words[4 * i + 1], "column");
    if (!column) return column.error();
    const Result<Position> place = ParsePosition(words[4 * i + 2], words[4 * i + 3]);
    if (!place) return place.error();
    points[i] = {*row, *column, *place};
  }
  if (points[0].row > points[1].row) std::swap(points[0], points[1]);
  return points;
}

// Takes two points for the lines: the upper one's row and latitude, the left one's column and
// longitude, and likewise below and at the right.
void UsePoints(const std::array<ChartPoint, 2>& points, ChartFileRecord& chart) {
  const bool left_first = points[0].column <= points[1].column;
  const ChartPoint& left = points[left_first ? 0 : 1];
  const ChartPoint& right = points[left_first ? 1 : 0];
  chart.top_pix = points[0].row;
  chart.upper_lat = points[0].place.latitude;
  chart.bottom_pix = points[1].row;
  chart.lower_lat = points[1].place.latitude;
  chart.left_pix = left.column;
  chart.lower_lon = left.place.longitude;
  chart.right_pix = right.column;
  chart.upper_lon = right.place.longitude;
}

std::optional<Failure> TakeFields(const CalibrateWords& words, ChartFileRecord& chart) {
  if (!words.points.empty()) {
    const Result<std::array<ChartPoint, 2>> points = ParsePoints(words.points);
    if (!points) return WrongUsage(points.error());
    UsePoints(*points, chart);
  }
  const struct {
    const std::string& text;
    Result<float> (*parse)(std::string_view);
    float ChartFileRecord::*value;
  } positions[] = {
      {words.upper_lat, ParseLatitude, &ChartFileRecord::upper_lat},
      {words.lower_lat, ParseLatitude, &ChartFileRecord::lower_lat},
      {words.left_long, ParseLongitude, &ChartFileRecord::lower_lon},
      {words.right_long, ParseLongitude, &ChartFileRecord::upper_lon},
  };
  for (const auto& field : positions) {
    if (auto failure = Take(field.text, field.parse(field.text), chart.*field.value)) {
      return failure;
    }
  }
  const struct {
    const std::string& text;
    const char* what;
    float ChartFileRecord::*value;
  } numbers[] = {
      {words.top_row, "top row", &ChartFileRecord::top_pix},
      {words.bottom_row, "bottom row", &ChartFileRecord::bottom_pix},
      {words.left_column, "left column", &ChartFileRecord::left_pix},
      {words.right_column, "right column", &ChartFileRecord::right_pix},
      {words.scale, "scale", &ChartFileRecord::scale},
      {words.width, "width", &ChartFileRecord::width},
      {words.height, "height", &ChartFileRecord::height},
  };
  for (const auto& field : numbers) {
    if (auto failure = Take(field.text, ParseNumber(field.text, field.what), chart.*field.value)) {
      return failure;
    }
  }
  return std::nullopt;
}

}  // namespace

Outcome ListChartBounds(Session& session, const NoWords&) {
  Program& program = session.program;
  const Status loaded =
      LoadChartIndex(program.folders, program.config, program.charts, session.messages);
  if (!loaded) return Failed(loaded.error());
  const std::vector<CatalogueLine> lines = ChartCatalogue(program.folders, program.charts.index);
  Answer answer;
  answer.json() = Json::array();
  for (const CatalogueLine& line : lines) {
    answer.json().push_back({{"number", line.number},
                             {"panel", line.panel},
                             {"title", line.title},
                             {"provider", line.provider},
                             {"format", line.format},
                             {"issue", line.issue},
                             {"sheet", line.sheet},
                             {"lowerLat", Number(line.lower_lat)},
                             {"lowerLon", Number(line.lower_lon)},
                             {"upperLat", Number(line.upper_lat)},
                             {"upperLon", Number(line.upper_lon)}});
  }
  answer.text = CatalogueText(lines);
  return answer;
}

Outcome CalibrateChart(Session& session, const CalibrateWords& words) {
  const Folders& folders = session.program.folders;
  const bool fields = AnyField(words);
  if (fields == words.restore) {
    return WrongUsage({"", fields ? "--restore takes no other values" : "nothing to change"});
  }
  const std::string path = ChartPathOf(folders, words.key);
  const Result<std::optional<ChartFileRecord>> stored = ReadCalibration(
      folders, path, words.restore ? Calibration::kDelivered : Calibration::kWorking);
  if (!stored) return Failed(stored.error());
  if (words.restore && !stored.value()) {
    return Failed({CalibrationFile(folders, path), "there is no calibration as delivered"});
  }
  ChartFileRecord chart = stored.value().value_or(ChartFileRecord());
  if (auto failure = TakeFields(words, chart)) return *failure;
  const Status saved = SaveCalibration(folders, path, chart, Delivered::kKept);
  if (!saved) return Failed(saved.error());
  return ShowChart(session, {words.key, ""});
}

}  // namespace skerrow::cli
