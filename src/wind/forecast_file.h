#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/calendar.h"
#include "core/folders.h"
#include "core/forecast.h"
#include "core/messages.h"
#include "core/progress.h"
#include "wind/grib.h"

// Forecast files, and their way into the wind store.
namespace skerrow {

// The patterns of forecast files, for the lists that offer them.
inline constexpr const char* kForecastPatterns[] = {"*.grb",   "*.grib", "*.grb2",
                                                    "*.grib2", "*.bz2",  "*.gz"};

// Whether the name of a file matches one of them, whatever its case.
bool IsForecastName(std::string_view name);

// Reads a forecast file of either edition, compressed or not. What is wrong is shown, and what came
// before a fault is given. A name of fewer than 5 characters shows "Select a file".
GribFile ReadForecastFile(const std::string& path, ForecastReader& reader, Messages& messages,
                          Progress& progress);

// Moves the times of a forecast by whole days, so that the first one of its wind lies on `day`.
void BeginOn(DayAndYear day, std::vector<GribRecord>& records);

// Puts the wind of a forecast in the place of the store's, and shows "File Imported". False, with
// the store as it was and a message, when there is no wind in the forecast or the store can not be
// written. With `begin_today` the times move by whole days, so that the first one lies on that day;
// nothing: they stay.
bool ImportForecast(const Folders& folders, std::vector<GribRecord> records,
                    std::optional<DayAndYear> begin_today, Messages& messages);

}  // namespace skerrow
