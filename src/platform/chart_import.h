#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/chart_source.h"
#include "core/result.h"

// Charts of other makers: GeoTIFF, BSB/KAP, MBTiles, and PNG and JPEG with or without a world file.
// Nothing is read but the file and those beside it, never a network.
namespace skerrow {

// The most pixels that the sheet of a chart may have; a larger one is made smaller. It is what the
// viewer opens (platform/images.h).
inline constexpr std::int64_t kMaxSheetPixels = std::int64_t{512} * 1024 * 1024;

// Opens a chart and finds out what is to be made of it. A chart whose file tells its place becomes
// a Mercator sheet: without any resampling where the file's own pixels already lie so to a quarter
// of one, else warped with about as many pixels. Errors: missing, no file, none of the kinds above,
// damaged, more than 8 bits a colour, no place on a Mercator sheet, a chart that crosses the 180th
// meridian.
Result<std::unique_ptr<ChartSource>> OpenChartSource(const std::string& path,
                                                     std::int64_t max_pixels = kMaxSheetPixels);

}  // namespace skerrow
