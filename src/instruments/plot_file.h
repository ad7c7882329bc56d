#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/clock.h"
#include "core/file_stamp.h"
#include "core/messages.h"
#include "core/position.h"
#include "core/record.h"
#include "core/result.h"

// Plot files: positions that the user enters or edits by hand, each with a time, a date and a
// comment; and the names of the files in the tracks folder.
namespace skerrow {

struct PlotRecord {
  float latitude = 0.0F;
  float longitude = 0.0F;
  std::string time;     // 5 bytes in the file; longer texts are cut
  std::string date;     // 16
  std::string comment;  // 35

  friend bool operator==(const PlotRecord&, const PlotRecord&) = default;
};

inline constexpr std::size_t kPlotRecordSize = 64;
inline constexpr std::array<RecordField<PlotRecord>, 5> kPlotFields = {{
    {0, 4, FieldType::kFloat, "Latitude", &PlotRecord::latitude, "decimal degrees, north positive"},
    {4, 4, FieldType::kFloat, "Longitude", &PlotRecord::longitude,
     "decimal degrees, east positive"},
    {8, 5, FieldType::kText, "Time", &PlotRecord::time, "as typed; HH:MM of the clock at first"},
    {13, 16, FieldType::kText, "Date", &PlotRecord::date,
     "as typed; day, short month name and year at first"},
    {29, 35, FieldType::kText, "Comment", &PlotRecord::comment, "free text"},
}};
static_assert(IsPacked(kPlotFields, kPlotRecordSize));

// The records of a plot file, damaged ones left out. Errors: missing, unreadable, more records than
// a 16-bit number counts.
Result<RecordFile<PlotRecord>> ReadPlotFile(const std::string& path);

// A plot file in memory, for a chart that is drawn many times a second.
class StoredPlot {
 public:
  // The records of the file at `path` as it stands now, damaged ones left out; none of one that
  // cannot be read. Valid until the next call.
  const std::vector<PlotRecord>& Get(const std::string& path) const;

 private:
  mutable std::vector<PlotRecord> records_;
  mutable std::string path_;
  mutable FileStamp stamp_;
};

// Writes a record behind the last whole one, creating the file when it is missing. Errors, with the
// file as it was: a position that is no number, a file that is full, and what stands in the way of
// reading or writing.
Status AppendPlotRecord(const std::string& path, const PlotRecord& record);

// A row of the list of manual entries: latitude, longitude, time, date and comment in columns.
std::string ManualPlotRow(const PlotRecord& record);

// A row of the historical plot: the same, joined by ",".
std::string PlotRow(const PlotRecord& record);

// The texts of a row of the historical plot, as its five boxes show them.
struct PlotRowTexts {
  std::string latitude, longitude, time, date, comment;
};
PlotRowTexts SplitPlotRow(std::string_view row);
// A comment keeps its commas; those of the other texts, which would part the row elsewhere, become
// points in a position and blanks in time and date.
std::string JoinPlotRow(const PlotRowTexts& texts);

// Makes the rows the records of the file, in order: rows that were deleted leave it too. Nothing is
// written when the file has no record or the list no row. A row that shows a record as it is keeps
// its position to the last bit, since a text holds but hundredths of a minute. Errors: those of
// ReadPlotFile and WriteRecords, and a row whose position cannot be.
Status SavePlotRows(const std::string& path, std::span<const std::string> rows);

// What "Insert" refuses: "click where to insert", "No Latitude Entry", "No Longitude Entry"; empty
// when it may go on.
std::string PlotInsertFault(bool row_selected, const PlotRowTexts& texts);

// What manual entry starts with.
struct PlotDefaults {
  std::string time;
  std::string date;
};
PlotDefaults DefaultPlotTexts(const ClockReading& now);

inline constexpr std::string_view kManualEntryHint =
    "Enter data  as follows eg 50.42.05N  001.03.34W,  default data can be overtyped.";
inline constexpr std::string_view kManualEntryWhileGps =
    "GPS is configured to write data to file  - Disable GPS (from GPS menu) then use this option";
inline constexpr std::string_view kHistoricalWhileGps =
    "GPS is configured to write data to file  - Disable GPS (from GPS menu) before viewing "
    "historical tracks.";
inline constexpr std::string_view kTrackLayerQuestion =
    "The track layer is turned off and the track would not show. Do you want to turn it ON?";

// The record of what was typed for a manual entry. Errors: "No longitude entry!", "No latitude
// entry!", and a position that cannot be.
Result<PlotRecord> ManualPlotRecord(const PlotRowTexts& typed);

// A new track's file name as typed, trimmed. Errors as frmNewTrackName words them; a name with a
// folder in it is invalid too.
Result<std::string> CheckTrackName(std::string_view typed);

// The name up to its first ".". Errors as frmTrackSelect words them.
Result<std::string> CheckTrackChoice(std::string_view name);

// Which files of the tracks folder a dialog lists.
enum class TrackKind {
  kNewTrack,  // t*.jan .. t*.dec
  kLog,       // *.nmea
  kPlot,      // *.trk and *.jan .. *.dec
  kDelete     // TRAK*.*
};
// Their names in alphabetical order; neither case counts. A folder that cannot be read gives none.
std::vector<std::string> ListTracks(const std::string& folder, TrackKind kind);

// The plot file of a track by its name without an extension, for the table: name.trk, or else the
// first of name.jan .. name.dec. Empty when there is none.
std::string FindPlotFile(const std::string& folder, std::string_view name);

// Deletes a track file after asking. Messages as frmTrackDelete words them. True when it is gone.
bool DeleteTrackFile(const std::string& folder, std::string_view name, Messages& messages);

}  // namespace skerrow
