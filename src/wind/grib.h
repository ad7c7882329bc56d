#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "core/forecast.h"
#include "core/messages.h"
#include "core/progress.h"

// Forecast files in the GRIB form of the World Meteorological Organization (FM 92), edition 1.
namespace skerrow {

// What a file gives.
struct GribFile {
  std::vector<GribRecord> records;
  bool whole = false;  // false: the reading stopped at a fault, or was told to
};

// Reads the messages of a file's content one after the other. A fault is shown, ends the reading
// and leaves what came before. `progress` is asked once a message.
GribFile DecodeGrib(std::string_view content, Messages& messages, Progress& progress);

// The edition number of the first message: 1 or 2, 0 when the content is too short to tell.
int GribEdition(std::string_view content);

// The largest forecast file that is read.
inline constexpr std::size_t kMaxGribSize = std::size_t{512} * 1024 * 1024;

}  // namespace skerrow
