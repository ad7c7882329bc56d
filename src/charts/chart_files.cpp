#include "charts/chart_files.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <initializer_list>
#include <system_error>

#include "core/data_files.h"
#include "core/files.h"
#include "core/plane_sailing.h"

namespace skerrow {
namespace {

// Two records; a maintenance tool may have left more.
constexpr std::size_t kMaxChartFileBytes = 64 * kChartFileSize;

Error Refused(const char* reason) { return Error{"", reason}; }

Error NotCalibrated(const std::string& path, const std::string& reason) {
  return {path, "the chart is not calibrated, " + reason};
}

// What a calibration is refused for; null for a good one.
const char* CalibrationFault(const ChartFileRecord& file) {
  for (const float value :
       {file.upper_lat, file.top_pix, file.lower_lat, file.bottom_pix, file.lower_lon,
        file.left_pix, file.upper_lon, file.right_pix, file.scale, file.width, file.height}) {
    if (!std::isfinite(value)) return "a calibration value is no number";
  }
  if (std::fabs(file.upper_lat) >= 90.0F || std::fabs(file.lower_lat) >= 90.0F) {
    return "a calibration latitude lies at or beyond a pole";
  }
  if (std::fabs(file.upper_lon) > 360.0F || std::fabs(file.lower_lon) > 360.0F) {
    return "a calibration longitude lies beyond 360 degrees";
  }
  if (file.top_pix == file.bottom_pix) return "the two calibration rows are equal";
  if (file.left_pix == file.right_pix) return "the two calibration columns are equal";
  if (file.upper_lat == file.lower_lat) return "the two calibration latitudes are equal";
  if (file.upper_lon == file.lower_lon) return "the two calibration longitudes are equal";
  if (file.width <= 0.0F) return "the image has no width";
  return nullptr;
}

}  // namespace

std::string ChartPathOf(const Folders& folders, std::string_view chart_key) {
  const std::string image =
      FindData(folders, DataFolder::kCharts, std::string(chart_key) + std::string(kChartImage));
  return image.substr(0, image.size() - kChartImage.size());
}

Result<ChartRecord> WorkOutChart(const ChartFileRecord& file) {
  if (const char* fault = CalibrationFault(file)) return Refused(fault);
  ChartRecord chart;
  chart.file = file;
  chart.top_lat = file.upper_lat;
  chart.top_row = file.top_pix;
  chart.bottom_lat = file.lower_lat;
  chart.bottom_row = file.bottom_pix;
  chart.west_col = file.left_pix;
  chart.east_col = file.right_pix;
  chart.top_merc = MercatorPartsSin(chart.top_lat);
  chart.bottom_merc = MercatorPartsSin(chart.bottom_lat);
  chart.merc_span = chart.top_merc - chart.bottom_merc;
  chart.row_span = chart.bottom_row - chart.top_row;
  chart.scale = file.scale;
  chart.spare1 = file.spare1;
  chart.issue = file.issue;
  chart.spare2 = file.spare2;
  chart.lat_per_row = (static_cast<double>(file.upper_lat) - file.lower_lat) /
                      (static_cast<double>(file.bottom_pix) - file.top_pix);
  chart.lon_per_col = (static_cast<double>(file.upper_lon) - file.lower_lon) /
                      (static_cast<double>(file.right_pix) - file.left_pix);
  chart.west_lon = static_cast<float>(file.lower_lon - file.left_pix * chart.lon_per_col);
  chart.east_lon = static_cast<float>(
      (static_cast<double>(file.width) - file.right_pix) * chart.lon_per_col + file.upper_lon);
  // Lines that differ only beyond the precision of the worked-out values place nothing either.
  if (!IsCalibrated(chart)) return Refused("the calibration lines lie too close together");
  return chart;
}

bool IsCalibrated(const ChartRecord& chart) {
  return std::isnormal(chart.merc_span) && std::isnormal(chart.row_span) &&
         std::isnormal(chart.lat_per_row) && std::isnormal(chart.lon_per_col) &&
         std::isfinite(chart.top_row) && std::isfinite(chart.top_merc) &&
         std::isfinite(chart.west_lon) && std::isfinite(chart.east_lon) &&
         chart.west_lon != chart.east_lon;
}

std::string CalibrationFile(const Folders& folders, std::string_view chart_path) {
  const std::string path = NativePath(chart_path) + ".cht";
  const bool programs_own = FolderOf(path) == ProgramDataFolder(folders, DataFolder::kCharts);
  return programs_own ? FindData(folders, DataFolder::kCharts, FileNameOf(path)) : path;
}

Result<std::string> WritableCalibration(const Folders& folders, std::string_view chart_path) {
  const std::string path = NativePath(chart_path) + ".cht";
  if (FolderOf(path) != ProgramDataFolder(folders, DataFolder::kCharts)) return path;
  return WritableData(folders, DataFolder::kCharts, FileNameOf(path));
}

std::string AreaIndexFile(const Folders& folders, std::string_view sea_area) {
  return FindData(folders, DataFolder::kCharts, Trim(sea_area) + ".xrf");
}

Error MissingChartFile(std::string_view operation, const std::string& path) {
  std::string text = "Does not exist in ";
  text.append(operation).append("\n").append(path);
  return {"", text};
}

Status ReadChartSettings(const Folders& folders, AppConfig& config, ChartState& state) {
  config.chart_path = Trim(config.chart_path);
  const std::string path = CalibrationFile(folders, config.chart_path);
  const Result<std::string> content = ReadFile(path, kMaxChartFileBytes);
  if (!content && !FileReadable(path)) {
    return MissingChartFile(kReadChartSettings, path);
  }
  if (!content) return content.error();
  if (content->empty()) return NotCalibrated(path, "the file is empty");
  ChartFileRecord file = state.chart.file;
  DecodeRecord(*content, kChartFileFields, file);
  const Result<ChartRecord> chart = WorkOutChart(file);
  if (!chart) return NotCalibrated(path, chart.error().reason);
  state.chart = *chart;
  state.history.push_back(config.chart_path);
  return Done{};
}

Status LoadChartIndex(const Folders& folders, AppConfig& config, ChartState& state,
                      Messages& messages) {
  config.sea_area = Trim(config.sea_area);
  state.index.clear();
  const std::string path = AreaIndexFile(folders, config.sea_area);
  std::error_code error;
  if (!std::filesystem::exists(path, error)) return Done{};
  const Result<RecordFile<ChartIndexEntry>> file = ReadRecords(path, kChartIndexFields);
  if (!file) return file.error();
  state.index = file->Sound();
  while (!state.index.empty() && Trim(state.index.back().title).empty()) state.index.pop_back();
  TellLeftOut(path, file->left_out, messages);
  return Done{};
}

bool ChartContains(Position position, const ChartIndexEntry& entry) {
  return entry.lower_lat < position.latitude && position.latitude < entry.upper_lat &&
         entry.lower_lon < position.longitude && position.longitude < entry.upper_lon;
}

void SortChartsByScale(std::vector<ChartIndexEntry>& charts) {
  std::stable_sort(
      charts.begin(), charts.end(),
      [](const ChartIndexEntry& a, const ChartIndexEntry& b) { return a.scale < b.scale; });
}

void ChartsAtPoint(Position position, ChartState& state) {
  state.at_point.clear();
  for (const ChartIndexEntry& entry : state.index) {
    if (ChartContains(position, entry)) state.at_point.push_back(entry);
  }
  SortChartsByScale(state.at_point);
}

std::optional<std::string> LargerScaleChart(Position position, ChartState& state) {
  ChartsAtPoint(position, state);
  if (state.at_point.empty() || !(state.at_point.front().scale < state.chart.scale)) {
    return std::nullopt;
  }
  return state.at_point.front().chart_key;
}

std::optional<std::string> SmallerScaleChart(Position position, ChartState& state) {
  ChartsAtPoint(position, state);
  for (const ChartIndexEntry& entry : state.at_point) {
    if (entry.scale > state.chart.scale) return entry.chart_key;
  }
  return std::nullopt;
}

Status OpenChart(const Folders& folders, std::string_view chart_path, AppConfig& config,
                 ChartState& state) {
  const std::string before = config.chart_path;
  config.chart_path = Trim(chart_path);
  Status read = ReadChartSettings(folders, config, state);
  if (!read) config.chart_path = before;
  return read;
}

Status OpenPreviousChart(const Folders& folders, AppConfig& config, ChartState& state) {
  if (state.history.empty()) return Error{};
  if (state.history.size() > 1) state.history.pop_back();
  const std::string previous = state.history.back();
  Status opened = OpenChart(folders, previous, config, state);
  if (opened) {
    state.history.pop_back();
  } else {
    state.history.back() = Trim(config.chart_path);
  }
  return opened;
}

std::string IssueMark(float issue) {
  if (!std::isfinite(issue) || issue == 0.0F) return "";
  const double whole = WholePartDown(issue);
  const auto rest = static_cast<float>((issue - whole) * 10000.0);
  return std::to_string(RoundToInteger(whole)) + "/" + std::to_string(RoundToInteger(rest));
}

std::string ChartIssueText(float issue) {
  const std::string mark = IssueMark(issue);
  return mark.empty() ? "" : "Chart issued " + mark;
}

std::string ChartTitleOf(const ChartState& state, std::string_view chart_path) {
  const std::string path = ToLowerAscii(chart_path);
  const std::size_t folder = path.find("charts");
  const std::string tail = folder == std::string::npos ? path : path.substr(folder);
  for (const ChartIndexEntry& entry : state.index) {
    if (!entry.chart_key.empty() && tail.find(ToLowerAscii(entry.chart_key)) != std::string::npos) {
      return entry.title;
    }
  }
  return "";
}

}  // namespace skerrow
