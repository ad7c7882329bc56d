#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "charts/chart_files.h"
#include "core/chart_source.h"
#include "core/folders.h"
#include "core/progress.h"
#include "core/result.h"

// The user's own charts: bringing one in and taking it away again. They lie in the user's charts
// folder, which may hold an index of the same name as the program's: that begins as a copy of it.
namespace skerrow {

// The scales that a chart may have, denominators.
inline constexpr double kLargestChartScale = 100.0;
inline constexpr double kSmallestChartScale = 100'000'000.0;

// The sea areas there are: the names of the indexes in both chart folders, sorted.
std::vector<std::string> SeaAreas(const Folders& folders);

// Whether a text can be the key of a chart. Error: the reason. A key is the name of the chart's
// files: 1 to 16 bytes in code page 1252, without separators and signs that file systems keep for
// themselves, and with no blank or point at its ends.
Status CheckChartKey(std::string_view key);

// Whether a text can be the name of a sea area, by the same rules in up to 100 bytes.
Status CheckAreaName(std::string_view area);

// Whether a text can be a title: 1 to 64 bytes in code page 1252.
Status CheckChartTitle(std::string_view title);

// Whether any chart of the program or the user has that key, in either case: an entry of an index,
// or one of the files of a chart.
bool ChartKeyTaken(const Folders& folders, std::string_view key);

// A key that is free: "1001-1", "1002-1" .. All have one length, since the title of a chart is
// looked up by the first key that occurs in its path: "1-1" would be found in "11-1".
std::string FreeChartKey(const Folders& folders);

// What a chart that is brought in is to be called and where it belongs.
struct ImportRequest {
  std::string area;
  std::string key;
  std::string title;
  double scale = 0.0;  // denominator
};

// Whether a request can be met as far as it can be told beforehand. Errors, with no path: the
// rules above, a key that is taken, a scale out of range, a folder whose name the settings cannot
// hold.
Status CheckImport(const Folders& folders, const ImportRequest& request);

// Brings a chart in: its picture, preview, calibration and the entry of its area. Either all of it
// is there afterwards or nothing of it. A plain scan gets a calibration that is to be replaced: a
// small sheet about latitude 0, longitude 0, where no chart at sea is looked for. Gives the chart's
// path without extension. Errors: those of CheckImport and ChartSource::WriteSheet, files that
// cannot be written.
Result<std::string> ImportChart(const Folders& folders, ChartSource& source,
                                const ImportRequest& request, Progress& progress);

// Whether the settings name that chart as the current one.
bool IsChartOnShow(const Folders& folders, const AppConfig& config, std::string_view key);

// Whether a chart is the user's own and not one of the program's.
bool IsOwnChart(const Folders& folders, std::string_view key);

// Takes one of the user's own charts away: its entries first, then its files. An own index that
// holds no more than the program's is removed with it, and an empty one. Errors: not an own chart,
// an index that cannot be read or written, a file that cannot be removed.
Status RemoveChart(const Folders& folders, std::string_view key);

}  // namespace skerrow
