#include "app/wind_field.h"

#include <algorithm>
#include <set>
#include <utility>

#include "app/program.h"

namespace skerrow {
namespace {

// The distinct values of one coordinate in order.
template <typename Of>
std::vector<float> Lines(const std::vector<FieldWind>& winds, const Of& of) {
  std::vector<float> lines;
  lines.reserve(winds.size());
  for (const FieldWind& wind : winds) lines.push_back(of(wind));
  std::sort(lines.begin(), lines.end());
  lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
  return lines;
}

float StepOf(const std::vector<float>& lines) {
  return lines.size() < 2 ? 0.0F
                          : (lines.back() - lines.front()) / static_cast<float>(lines.size() - 1);
}

std::int32_t IndexIn(const std::vector<float>& lines, float value) {
  return static_cast<std::int32_t>(std::lower_bound(lines.begin(), lines.end(), value) -
                                   lines.begin());
}

}  // namespace

void UpdateWindField(Program& program) {
  const std::shared_ptr<const WindStore> store = program.wind_store.Get(program.folders);
  const DayAndYear date = program.selected_time.Day();
  const float hours = program.selected_time.hours;
  const ChartRecord& chart = program.charts.chart;
  WindField& field = program.wind_field;
  constexpr float kBinsOfDay = 8.0F;
  const WindField::Key key{program.wind_store.revision(),
                           date,
                           static_cast<int>(hours / 24.0F * kBinsOfDay),
                           chart.top_lat,
                           chart.bottom_lat,
                           chart.west_lon,
                           chart.east_lon};
  if (field.key == key) return;
  field = WindField{};
  field.key = key;
  std::set<std::pair<float, float>> taken;
  for (const std::size_t index : store->Serving(date, hours)) {
    const WindCell& cell = store->cells()[index];
    if (!(cell.latitude > chart.bottom_lat && cell.latitude < chart.top_lat &&
          cell.longitude > chart.west_lon && cell.longitude < chart.east_lon) ||
        !taken.insert({cell.latitude, cell.longitude}).second) {
      continue;
    }
    field.winds.push_back({cell.At(), {.speed_kn = cell.speed, .from_deg = cell.direction}});
  }
  const std::vector<float> rows =
      Lines(field.winds, [](const FieldWind& wind) { return wind.at.latitude; });
  const std::vector<float> columns =
      Lines(field.winds, [](const FieldWind& wind) { return wind.at.longitude; });
  for (FieldWind& wind : field.winds) {
    wind.row = IndexIn(rows, wind.at.latitude);
    wind.column = IndexIn(columns, wind.at.longitude);
  }
  field.row_step = StepOf(rows);
  field.column_step = StepOf(columns);
}

std::string WindCaption(const Program& program) {
  const AppConfig& config = program.config;
  if (config.use_manual_wind != 0 ||
      (config.show_wind_grid == 0 && config.show_wind_over_route == 0)) {
    return "";
  }
  const ClockReading now = program.clock->Now();
  return ForecastText(*program.wind_store.Get(program.folders), program.selected_time.Day(),
                      program.selected_time.hours, DaysFrom2000(now.Day()) + now.Hours() / 24.0);
}

}  // namespace skerrow
