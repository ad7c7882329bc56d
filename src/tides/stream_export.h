#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/folders.h"
#include "core/messages.h"
#include "core/progress.h"
#include "core/result.h"
#include "tides/streams.h"

// The export of the streams: for each diamond two text files with the east (X) and the north (Y)
// component of its stream for each hour, from which harmonic constants can be worked out.
namespace skerrow {

// Each file is a run of records of this many bytes. The first has the position:
//   latitude, 9 characters in a field of 10 · "," · longitude, 9 characters or 10 of a negative
//   one, in a field of 10 · five blanks · carriage return and line feed
// The others have a reading each:
//   "YYYY/MM/DD" · "," · "HH:MM:SS" · "," · the component in knots, "0.0000" cut to 6 characters ·
//   carriage return and line feed
inline constexpr std::size_t kStreamRecordSize = 28;

// The first record of a file.
std::string StreamPositionRecord(double latitude, double longitude);

// The record of a reading at a whole hour of a day.
std::string StreamValueRecord(DayAndYear date, int hour, double value);

// The folder of the files.
std::string TidalComponentsFolder(const Folders& folders);

// The number of days that the export of the desktop covers: its counter starts at 0 and runs past
// the selected day of the year and 33 days more.
int ExportDays(std::int16_t day_of_year);

struct StreamExport {
  std::size_t diamonds = 0;           // with a pair of files each
  std::vector<std::string> left_out;  // refs of those without a tide, or named like another one
  DayAndYear end;                     // the day after the last one
};

// What is told of diamonds that were left out.
std::string LeftOutStreamsText(const std::vector<std::string>& left_out);

// The most days of one export: two years.
inline constexpr int kMaxExportDays = 732;

// Writes the components of every diamond for each hour of `days` days from `start` on, in the clock
// of the tides. Records are added to files that are there already. The files are written when all
// is worked out; where one cannot be, or the export is cancelled, those written before are as they
// were. Empty when cancelled. Errors: no diamonds, a number of days out of range, a file that is no
// such export, a file or folder that cannot be written.
Result<std::optional<StreamExport>> ExportStreams(const TideState& tides, const Folders& folders,
                                                  DayAndYear start, int days, Messages& messages,
                                                  Progress& progress);

}  // namespace skerrow
