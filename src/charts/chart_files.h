#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/config.h"
#include "core/folders.h"
#include "core/messages.h"
#include "core/position.h"
#include "core/record.h"
#include "core/result.h"

// Chart settings, the index of a sea area, and the choice of a chart by position.
namespace skerrow {

// The calibration of a chart as its file holds it. A file has one record, or a second one with the
// calibration as delivered. Rows and columns are image pixels from the top and from the left.
struct ChartFileRecord {
  float upper_lat = 0.0F;
  float top_pix = 0.0F;
  float lower_lat = 0.0F;
  float bottom_pix = 0.0F;
  float lower_lon = 0.0F;
  float left_pix = 0.0F;
  float upper_lon = 0.0F;
  float right_pix = 0.0F;
  float scale = 0.0F;
  float spare1 = 0.0F;
  float issue = 0.0F;
  float spare2 = 0.0F;
  float width = 0.0F;
  float height = 0.0F;
  std::string spare3;
};

inline constexpr std::size_t kChartFileSize = 64;
inline constexpr std::array<RecordField<ChartFileRecord>, 15> kChartFileFields = {{
    {0, 4, FieldType::kFloat, "UpperLat", &ChartFileRecord::upper_lat,
     "latitude of the upper calibration line, decimal degrees"},
    {4, 4, FieldType::kFloat, "TopPix", &ChartFileRecord::top_pix, "image row of that line"},
    {8, 4, FieldType::kFloat, "LowerLat", &ChartFileRecord::lower_lat,
     "latitude of the lower calibration line"},
    {12, 4, FieldType::kFloat, "BottomPix", &ChartFileRecord::bottom_pix, "image row of that line"},
    {16, 4, FieldType::kFloat, "LowerLon", &ChartFileRecord::lower_lon,
     "longitude of the left calibration line"},
    {20, 4, FieldType::kFloat, "LeftPix", &ChartFileRecord::left_pix, "image column of that line"},
    {24, 4, FieldType::kFloat, "UpperLon", &ChartFileRecord::upper_lon,
     "longitude of the right calibration line"},
    {28, 4, FieldType::kFloat, "RightPix", &ChartFileRecord::right_pix,
     "image column of that line"},
    {32, 4, FieldType::kFloat, "Scale", &ChartFileRecord::scale,
     "natural scale, as the denominator"},
    {36, 4, FieldType::kFloat, "Spare1", &ChartFileRecord::spare1, "carried unchanged"},
    {40, 4, FieldType::kFloat, "Issue", &ChartFileRecord::issue, "chart issue mark"},
    {44, 4, FieldType::kFloat, "Spare2", &ChartFileRecord::spare2, "carried unchanged"},
    {48, 4, FieldType::kFloat, "Width", &ChartFileRecord::width, "image width, pixels"},
    {52, 4, FieldType::kFloat, "Height", &ChartFileRecord::height, "image height, pixels"},
    {56, 8, FieldType::kRawText, "Spare3", &ChartFileRecord::spare3, "carried unchanged"},
}};
static_assert(IsPacked(kChartFileFields, kChartFileSize));

// The calibration in force: the record as read and what follows from it.
struct ChartRecord {
  ChartFileRecord file;
  float top_lat = 0.0F;     // degrees
  float top_row = 0.0F;     // pixels
  float bottom_lat = 0.0F;  // degrees
  float bottom_row = 0.0F;  // pixels
  float west_lon = 0.0F;    // degrees, of image column 0
  float west_col = 0.0F;    // pixels, of the left calibration line
  float east_lon = 0.0F;    // degrees, of the image's right edge
  float east_col = 0.0F;    // pixels, of the right calibration line
  float top_merc = 0.0F;    // meridional values, radians
  float bottom_merc = 0.0F;
  float merc_span = 0.0F;  // top_merc - bottom_merc
  float row_span = 0.0F;   // bottom_row - top_row
  float scale = 0.0F;      // denominator
  float spare1 = 0.0F;
  float issue = 0.0F;
  float spare2 = 0.0F;
  double lat_per_row = 0.0;
  double lon_per_col = 0.0;
};

// One chart of a sea area.
struct ChartIndexEntry {
  std::string chart_key;
  std::string title;
  float scale = 0.0F;
  float lower_lat = 0.0F;
  float lower_lon = 0.0F;
  float upper_lat = 0.0F;
  float upper_lon = 0.0F;
  std::string flag1;
  std::string flag2;
};

inline constexpr std::size_t kChartIndexSize = 102;
inline constexpr std::array<RecordField<ChartIndexEntry>, 9> kChartIndexFields = {{
    {0, 16, FieldType::kText, "ChartKey", &ChartIndexEntry::chart_key,
     "file name of the chart without extension"},
    {16, 64, FieldType::kText, "ChartTitle", &ChartIndexEntry::title, "title"},
    {80, 4, FieldType::kFloat, "Scale", &ChartIndexEntry::scale, "denominator"},
    {84, 4, FieldType::kFloat, "LowerLat", &ChartIndexEntry::lower_lat, "southern border"},
    {88, 4, FieldType::kFloat, "LowerLon", &ChartIndexEntry::lower_lon, "western border"},
    {92, 4, FieldType::kFloat, "UpperLat", &ChartIndexEntry::upper_lat, "northern border"},
    {96, 4, FieldType::kFloat, "UpperLon", &ChartIndexEntry::upper_lon, "eastern border"},
    {100, 1, FieldType::kRawText, "Flag1", &ChartIndexEntry::flag1, "carried unchanged"},
    {101, 1, FieldType::kRawText, "Flag2", &ChartIndexEntry::flag2, "carried unchanged"},
}};
static_assert(IsPacked(kChartIndexFields, kChartIndexSize));

// The charts of the program's state.
struct ChartState {
  ChartRecord chart;
  std::vector<ChartIndexEntry> index;     // the sea area's charts, in file order
  std::vector<ChartIndexEntry> at_point;  // those at the point last asked for, by scale
  std::vector<std::string> history;       // chart paths, the current one last
};

// The endings of a chart's files: its image, the small image of it for the lists.
inline constexpr std::string_view kChartImage = ".l55";
inline constexpr std::string_view kChartPreview = ".tif";

// The path of a chart of that key, without extension: where its image lies, in the user's charts or
// the program's.
std::string ChartPathOf(const Folders& folders, std::string_view chart_key);

// Works the values of a calibration out. Error (without a path): a value that is no number, equal
// rows, columns, latitudes or longitudes, a latitude at or beyond a pole, a longitude beyond 360
// degrees, no width.
Result<ChartRecord> WorkOutChart(const ChartFileRecord& file);

// Whether a calibration places anything: its values are finite and its spans are not zero. One that
// no chart has been read into doesn't.
bool IsCalibrated(const ChartRecord& chart);

// The file that the calibration of a chart is read from. For a chart of the program's that is the
// user's own copy if there is one.
std::string CalibrationFile(const Folders& folders, std::string_view chart_path);

// The file that the calibration of a chart is written to. Errors: those of WritableData.
Result<std::string> WritableCalibration(const Folders& folders, std::string_view chart_path);

// The file that the index of a sea area is read from.
std::string AreaIndexFile(const Folders& folders, std::string_view sea_area);

// What a missing file is told with: "Does not exist in " and the operation, and the path on a new
// line.
inline constexpr std::string_view kReadChartSettings = "Mod. ReadChartSettings";
inline constexpr std::string_view kListClickSettings = "List Click Settings";
Error MissingChartFile(std::string_view operation, const std::string& path);

// Reads the settings of the chart of ChartPath, trimming that field, and adds the path to the
// history. Fields beyond the end of a short file keep what the record held. Errors, with record
// and history as they were: a missing file (MissingChartFile); an unreadable file; "the chart is
// not calibrated" with the reason, for an empty file and for one that WorkOutChart refuses.
Status ReadChartSettings(const Folders& folders, AppConfig& config, ChartState& state);

// Reads the index of the sea area of `config`, trimming that field. Titles and keys end at their
// first NUL; entries without a title at the end of the file are dropped. A missing file gives an
// empty index. Broken records are left out, and a message says so. Error, with an empty index: a
// file that cannot be read.
Status LoadChartIndex(const Folders& folders, AppConfig& config, ChartState& state,
                      Messages& messages);

// Whether a point lies inside a chart's borders; one on a border does not.
bool ChartContains(Position position, const ChartIndexEntry& entry);

// Sorts ascending by scale; equal scales keep the order of the index, so that the choice between
// them does not change from run to run.
void SortChartsByScale(std::vector<ChartIndexEntry>& charts);

// Refills the charts at a point, the most detailed one first.
void ChartsAtPoint(Position position, ChartState& state);

// The key of the most detailed chart at the point, if any chart there has a larger scale than the
// current one.
std::optional<std::string> LargerScaleChart(Position position, ChartState& state);

// The key of the first chart at the point, in the order of scale, with a smaller scale than the
// current one.
std::optional<std::string> SmallerScaleChart(Position position, ChartState& state);

// Makes `chart_path` (without extension) the current chart and reads its settings. On an error
// ChartPath is as it was.
Status OpenChart(const Folders& folders, std::string_view chart_path, AppConfig& config,
                 ChartState& state);

// Goes back to the chart before the current one. With one chart in the history that is read again.
// On an error ChartPath stays, and the chart that could not be opened is forgotten. Error without
// text: the history is empty.
Status OpenPreviousChart(const Folders& folders, AppConfig& config, ChartState& state);

// "5/1200" from the issue mark 5.12, and "Chart issued 5/1200"; both empty for a chart without a
// mark, as those are that a skipper brings in: 0, or no number.
std::string IssueMark(float issue);
std::string ChartIssueText(float issue);

// The title of the first chart of the index whose key occurs in the part of `chart_path` behind
// "Charts"; empty when there is none.
std::string ChartTitleOf(const ChartState& state, std::string_view chart_path);

}  // namespace skerrow
