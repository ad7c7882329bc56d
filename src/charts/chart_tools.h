#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "charts/chart_files.h"
#include "core/folders.h"
#include "core/record_edit.h"
#include "core/result.h"

// The maintenance of a set of charts: writing calibrations, editing the index of a sea area, and
// the texts that tell of its charts. What is written goes to the user's own copy where the
// program's folder is read-only, and what an edit does not touch keeps its bytes.
namespace skerrow {

// ---------------------------------------------------------------- calibrations

// What a calibration that WorkOutChart refuses is told with.
Error NotCalibrated(const Error& refusal);

enum class Calibration { kWorking, kDelivered };

// The working calibration of a chart, or that as delivered; empty where the file has no such
// record. Of a working one that is cut short, what is missing is 0. Errors: the file is missing
// (told with `operation`) or cannot be read.
Result<std::optional<ChartFileRecord>> ReadCalibration(
    const Folders& folders, std::string_view chart_path, Calibration which,
    std::string_view operation = kReadChartSettings);

// Whether the first change of a calibration keeps the one before as the one delivered.
enum class Delivered { kKept, kAsItIs };

// Writes lines, rows, columns, scale and size of `calibration` into the working record of a chart's
// file; issue and spare fields stay. With kKept, a file of one record first gets a copy of it as
// its second. Errors, with the file as it was: WorkOutChart refuses it, the file is missing (told
// with `operation`), WritableCalibration, ReplaceFile.
Status SaveCalibration(const Folders& folders, std::string_view chart_path,
                       const ChartFileRecord& calibration, Delivered delivered,
                       std::string_view operation = kReadChartSettings);

// `record` with lines, rows, columns, scale and size of `calibration`.
ChartFileRecord WithCalibration(ChartFileRecord record, const ChartFileRecord& calibration);

// ---------------------------------------------------------------- the index of a sea area

// An entry that can be edited, and where it stands in the file. Its numbers may be damaged.
struct IndexRow {
  std::size_t record = 0;  // from 0
  ChartIndexEntry entry;
};

// The entries of an index that have a title, as they were when they were listed.
struct IndexList {
  std::string sea_area;
  SeenFile file;
  std::vector<IndexRow> rows;
};

// Errors: a missing file ("Does not exist in List Click Settings"), SeeFile.
Result<IndexList> ListIndex(const Folders& folders, std::string_view sea_area);

// Why an entry cannot be one of an index: its key is empty, too long or no name of a file, its
// title is empty or too long, a number is none, its borders hold nothing. Texts are as code page
// 1252 has them.
Status CheckIndexEntry(const ChartIndexEntry& entry);

// Edits of an index by the rows of its list, which follows. Flags and whatever else an entry holds
// beside its fields stay. Errors, with file and list as they were: CheckIndexEntry, no such row,
// the file has changed since it was listed, WritableData, ReplaceFile.
//
// A new entry stands behind row `after`; without one, or in an empty list, at the front.
Status InsertIndexEntry(const Folders& folders, IndexList& list, std::optional<std::size_t> after,
                        const ChartIndexEntry& entry);
Status ModifyIndexEntry(const Folders& folders, IndexList& list, std::size_t row,
                        const ChartIndexEntry& entry);
Status DeleteIndexEntry(const Folders& folders, IndexList& list, std::size_t row);
// Stores a scale in a row's entry and leaves the rest of it alone, right or wrong.
Status SetIndexScale(const Folders& folders, IndexList& list, std::size_t row, float scale);

// ---------------------------------------------------------------- texts about the charts

// What a catalogue tells of a chart.
struct CatalogueLine {
  std::string number;  // of the key, what stands before its "-"
  std::string panel;   // what stands between that and a "."
  std::string title;
  std::string provider;
  std::string format;
  std::string issue;       // "5/1200"; empty where the calibration cannot be read
  std::string sheet;       // "Main panel", or "Panel" and its text
  float lower_lat = 0.0F;  // degrees
  float lower_lon = 0.0F;
  float upper_lat = 0.0F;
  float upper_lon = 0.0F;
};

// The catalogue of an index, in its order.
std::vector<CatalogueLine> ChartCatalogue(const Folders& folders,
                                          const std::vector<ChartIndexEntry>& index);

// The catalogue as comma-separated lines (RFC 4180): the fields in the order of CatalogueLine, the
// borders south, west, north, east in degrees with five decimals.
std::string CatalogueText(const std::vector<CatalogueLine>& lines);

// The charts from the last to the first, a line each: key, tab, title, tab, scale.
std::string ChartListText(const std::vector<ChartIndexEntry>& charts);

}  // namespace skerrow
