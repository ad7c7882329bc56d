#include "charts/chart_tools.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

#include "charts/chart_library.h"
#include "charts/chart_view.h"
#include "core/csv.h"
#include "core/data_files.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/position.h"
#include "core/record.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr std::string_view kIndexEnding = ".xrf";

// The provider of charts that are a skipper's own, and the format of their images.
constexpr const char* kProvider = "Skerrow Helm";
constexpr const char* kImageFormat = "Raster";

// Borders that share less are those of another calibration, not of a corrected one.
constexpr double kLeastSharedBorders = 0.5;

// The bytes of a record in which the fields that differ between `before` and `after` are new. All
// others stay as they are, down to what is hidden behind the end of a text.
template <typename R, std::size_t N>
std::string Patched(std::string_view bytes, const R& before, const R& after,
                    const std::array<RecordField<R>, N>& table) {
  const std::string was = EncodeRecord(before, table);
  const std::string is = EncodeRecord(after, table);
  std::string patched(bytes);
  for (const RecordField<R>& field : table) {
    if (was.compare(field.offset, field.size, is, field.offset, field.size) != 0) {
      patched.replace(field.offset, field.size, is, field.offset, field.size);
    }
  }
  return patched;
}

void FillRows(IndexList& list) {
  list.rows.clear();
  for (std::size_t i = 0; i < list.file.Count(); ++i) {
    IndexRow row{i, {}};
    DecodeRecord(list.file.Record(i), kChartIndexFields, row.entry);
    if (!Trim(row.entry.title).empty()) list.rows.push_back(std::move(row));
  }
}

Status EditIndex(const Folders& folders, IndexList& list, std::size_t record, std::size_t removed,
                 std::string_view records) {
  const Result<std::string> path =
      WritableData(folders, DataFolder::kCharts, list.sea_area + std::string(kIndexEnding));
  if (!path) return path.error();
  // A copy of the user's begins as what was listed, too.
  SeenFile file = list.file;
  file.path = *path;
  if (Status edited = SpliceRecords(file, record, removed, records); !edited) return edited;
  list.file = std::move(file);
  FillRows(list);
  return Done{};
}

Error NoRow(const IndexList& list) {
  return {list.file.path, "no entry of the index is highlighted"};
}

Status PatchEntry(const Folders& folders, IndexList& list, std::size_t row,
                  const ChartIndexEntry& entry) {
  const IndexRow& before = list.rows[row];
  return EditIndex(
      folders, list, before.record, 1,
      Patched(list.file.Record(before.record), before.entry, entry, kChartIndexFields));
}

// The share of the larger of two entries' borders that both have in common, 0 to 1.
double SharedBorders(const ChartIndexEntry& a, const ChartIndexEntry& b) {
  const auto span = [](float low, float high) {
    return std::max(static_cast<double>(high) - low, 0.0);
  };
  const auto area = [&](const ChartIndexEntry& entry) {
    return span(entry.lower_lat, entry.upper_lat) * span(entry.lower_lon, entry.upper_lon);
  };
  const double shared =
      span(std::max(a.lower_lat, b.lower_lat), std::min(a.upper_lat, b.upper_lat)) *
      span(std::max(a.lower_lon, b.lower_lon), std::min(a.upper_lon, b.upper_lon));
  const double larger = std::max(area(a), area(b));
  return larger > 0.0 ? shared / larger : 0.0;
}

std::string BordersText(const ChartIndexEntry& entry) {
  return LatToText(entry.lower_lat) + "  " + LongToText(entry.lower_lon) + "  to  " +
         LatToText(entry.upper_lat) + "  " + LongToText(entry.upper_lon);
}

// Whether a text fits into so many bytes of a record without a loss.
bool Fits(const std::string& text, std::size_t size) {
  const std::string bytes = ToAnsi(text);
  return bytes.size() <= size && FromAnsi(bytes) == text;
}

// The issue mark of a chart as its file has it.
std::string IssueOf(const Folders& folders, std::string_view chart_key) {
  const Result<std::optional<ChartFileRecord>> chart =
      ReadCalibration(folders, ChartPathOf(folders, chart_key), Calibration::kWorking);
  return chart && chart.value() ? IssueMark(chart.value()->issue) : "";
}

}  // namespace

Error NotCalibrated(const Error& refusal) {
  return {refusal.path, "The chart is not calibrated, " + refusal.reason};
}

Result<std::optional<ChartFileRecord>> ReadCalibration(const Folders& folders,
                                                       std::string_view chart_path,
                                                       Calibration which,
                                                       std::string_view operation) {
  const std::string path = CalibrationFile(folders, chart_path);
  if (!FileIsThere(path)) return MissingChartFile(operation, path);
  const Result<SeenFile> file = SeeFile(path, kChartFileSize);
  if (!file) return file.error();
  ChartFileRecord record;
  if (which == Calibration::kDelivered) {
    if (file->Count() < 2) return std::optional<ChartFileRecord>();
    DecodeRecord(file->Record(1), kChartFileFields, record);
  } else {
    if (file->content.empty()) return std::optional<ChartFileRecord>();
    DecodeRecord(file->Record(0), kChartFileFields, record);
  }
  return std::optional<ChartFileRecord>(std::move(record));
}

ChartFileRecord WithCalibration(ChartFileRecord record, const ChartFileRecord& calibration) {
  for (float ChartFileRecord::*field :
       {&ChartFileRecord::upper_lat, &ChartFileRecord::top_pix, &ChartFileRecord::lower_lat,
        &ChartFileRecord::bottom_pix, &ChartFileRecord::lower_lon, &ChartFileRecord::left_pix,
        &ChartFileRecord::upper_lon, &ChartFileRecord::right_pix, &ChartFileRecord::scale,
        &ChartFileRecord::width, &ChartFileRecord::height}) {
    record.*field = calibration.*field;
  }
  return record;
}

Status SaveCalibration(const Folders& folders, std::string_view chart_path,
                       const ChartFileRecord& calibration, Delivered delivered,
                       std::string_view operation) {
  if (const Result<ChartRecord> chart = WorkOutChart(calibration); !chart) {
    return NotCalibrated(chart.error());
  }
  const std::string path = CalibrationFile(folders, chart_path);
  if (!FileIsThere(path)) return MissingChartFile(operation, path);
  const Result<std::string> target = WritableCalibration(folders, chart_path);
  if (!target) return target.error();
  Result<SeenFile> file = SeeFile(*target, kChartFileSize);
  if (!file) return file.error();
  const std::size_t records = file->Count();
  std::string before(file->content.substr(0, kChartFileSize));
  // A first record that is cut short has no spare fields; as the one delivered it is completed by
  // the calibration that it was read into.
  if (records == 0) before += EncodeRecord(calibration, kChartFileFields).substr(before.size());
  ChartFileRecord was;
  DecodeRecord(before, kChartFileFields, was);
  std::string written = Patched(before, was, WithCalibration(was, calibration), kChartFileFields);
  if (records == 0) {
    if (delivered == Delivered::kKept && !file->content.empty()) written += before;
    return ReplaceFile(*target, written);
  }
  if (delivered == Delivered::kKept && records == 1) written += before;
  return SpliceRecords(file.value(), 0, 1, written);
}

Result<IndexList> ListIndex(const Folders& folders, std::string_view sea_area) {
  IndexList list{Trim(sea_area), {}, {}};
  const std::string path = AreaIndexFile(folders, sea_area);
  if (!FileIsThere(path)) return MissingChartFile(kListClickSettings, path);
  Result<SeenFile> file = SeeFile(path, kChartIndexSize);
  if (!file) return file.error();
  list.file = std::move(file.value());
  FillRows(list);
  return list;
}

Status CheckIndexEntry(const ChartIndexEntry& entry) {
  const std::string& key = entry.chart_key;
  if (Trim(key).empty()) return Error{"", "The chart has no number"};
  if (Trim(entry.title).empty()) return Error{"", "The chart has no name"};
  if (key.find_first_of(std::string_view("/\\:\0", 4)) != std::string::npos || key.front() == '.') {
    return Error{"", "\"" + key + "\" cannot be the name of a file"};
  }
  if (!Fits(key, kChartIndexFields[0].size)) {
    return Error{"", "The chart number holds more than 16 characters, or one that its file cannot"};
  }
  if (!Fits(entry.title, kChartIndexFields[1].size)) {
    return Error{"", "The chart name holds more than 64 characters, or one that its file cannot"};
  }
  if (DamagedField(entry, kChartIndexFields) != nullptr || !(entry.scale > 0.0F)) {
    return Error{"", "The scale and the borders of the chart are not all numbers"};
  }
  if (!(entry.lower_lat < entry.upper_lat)) {
    return Error{"", "The lower latitude does not lie south of the upper one"};
  }
  if (!(entry.lower_lon < entry.upper_lon)) {
    return Error{"", "The left longitude does not lie west of the right one"};
  }
  return Done{};
}

Status InsertIndexEntry(const Folders& folders, IndexList& list, std::optional<std::size_t> after,
                        const ChartIndexEntry& entry) {
  if (Status sound = CheckIndexEntry(entry); !sound) return sound;
  if (after && *after >= list.rows.size() && !list.rows.empty()) return NoRow(list);
  const bool behind = after && !list.rows.empty();
  return EditIndex(folders, list, behind ? list.rows[*after].record + 1 : 0, 0,
                   EncodeRecord(entry, kChartIndexFields));
}

Status ModifyIndexEntry(const Folders& folders, IndexList& list, std::size_t row,
                        const ChartIndexEntry& entry) {
  if (row >= list.rows.size()) return NoRow(list);
  if (Status sound = CheckIndexEntry(entry); !sound) return sound;
  ChartIndexEntry modified = entry;
  modified.flag1 = list.rows[row].entry.flag1;
  modified.flag2 = list.rows[row].entry.flag2;
  return PatchEntry(folders, list, row, modified);
}

Status DeleteIndexEntry(const Folders& folders, IndexList& list, std::size_t row) {
  if (row >= list.rows.size()) return NoRow(list);
  return EditIndex(folders, list, list.rows[row].record, 1, {});
}

Status SetIndexScale(const Folders& folders, IndexList& list, std::size_t row, float scale) {
  if (row >= list.rows.size()) return NoRow(list);
  ChartIndexEntry entry = list.rows[row].entry;
  entry.scale = scale;
  return PatchEntry(folders, list, row, entry);
}

std::optional<StrayEntry> FindStrayEntry(const Folders& folders, std::string_view chart_key,
                                         const ChartRecord& chart) {
  // A size that was typed may be beyond any picture's.
  const auto pixels = [](float size) {
    return static_cast<std::int32_t>(std::clamp(size, 1.0F, 1.0e9F));
  };
  const ChartView view = MakeChartView(chart, pixels(chart.file.width), pixels(chart.file.height));
  const auto [south, north] =
      std::minmax({view.RowToLat(0.0), view.RowToLat(static_cast<double>(chart.file.height))});
  const auto [west, east] = std::minmax({chart.west_lon, chart.east_lon});
  for (const std::string& area : SeaAreas(folders)) {
    Result<IndexList> list = ListIndex(folders, area);
    if (!list) continue;
    for (std::size_t row = 0; row < list->rows.size(); ++row) {
      const ChartIndexEntry& entry = list->rows[row].entry;
      if (Trim(entry.chart_key) != chart_key) continue;
      ChartIndexEntry placed = entry;
      placed.scale = chart.scale;
      placed.lower_lat = south;
      placed.lower_lon = west;
      placed.upper_lat = north;
      placed.upper_lon = east;
      if (SharedBorders(entry, placed) >= kLeastSharedBorders) continue;
      return StrayEntry{std::move(list.value()), row, std::move(placed)};
    }
  }
  return std::nullopt;
}

std::string StrayEntryQuestion(const StrayEntry& stray) {
  return "The index of " + stray.list.sea_area + " has this chart elsewhere,\n" +
         BordersText(stray.list.rows[stray.row].entry) +
         "\nShall it have the borders of this calibration?\n" + BordersText(stray.placed);
}

std::vector<CatalogueLine> ChartCatalogue(const Folders& folders,
                                          const std::vector<ChartIndexEntry>& index) {
  std::vector<CatalogueLine> lines;
  lines.reserve(index.size());
  for (const ChartIndexEntry& entry : index) {
    const std::string key = Trim(entry.chart_key);
    const std::size_t dash = key.find('-');
    CatalogueLine line;
    line.number = Trim(key.substr(0, dash));
    if (dash != std::string::npos) {
      const std::string rest = key.substr(dash + 1);
      line.panel = Trim(rest.substr(0, rest.find('.')));
    }
    line.title = Trim(entry.title);
    line.provider = kProvider;
    line.format = kImageFormat;
    line.issue = IssueOf(folders, key);
    // The first sheet of a number is the chart itself, the others are plans on it.
    const bool main = line.panel.empty() || line.panel == "0" || line.panel == "1";
    line.sheet = main ? "Main panel" : "Panel " + line.panel;
    line.lower_lat = entry.lower_lat;
    line.lower_lon = entry.lower_lon;
    line.upper_lat = entry.upper_lat;
    line.upper_lon = entry.upper_lon;
    lines.push_back(std::move(line));
  }
  return lines;
}

std::string CatalogueText(const std::vector<CatalogueLine>& lines) {
  std::string text;
  for (const CatalogueLine& line : lines) {
    for (const std::string* field : {&line.number, &line.panel, &line.title, &line.provider,
                                     &line.format, &line.issue, &line.sheet}) {
      text.append(CsvField(*field)).append(",");
    }
    for (const float border : {line.lower_lat, line.lower_lon, line.upper_lat}) {
      text.append(FormatFixed(border, 1, 5)).append(",");
    }
    text.append(FormatFixed(line.upper_lon, 1, 5)).append("\n");
  }
  return text;
}

std::string ChartListText(const std::vector<ChartIndexEntry>& charts) {
  std::string text;
  for (auto chart = charts.rbegin(); chart != charts.rend(); ++chart) {
    text.append(Trim(chart->chart_key)).append("\t").append(Trim(chart->title)).append("\t");
    text.append(ShortText(chart->scale)).append("\n");
  }
  return text;
}

}  // namespace skerrow
