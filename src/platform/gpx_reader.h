#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "core/gpx_document.h"
#include "core/progress.h"
#include "core/result.h"

namespace skerrow {

// Files beyond this are refused: a year of fixes, one a second, is not passage planning.
inline constexpr std::size_t kMostGpxBytes = std::size_t{256} * 1024 * 1024;

inline constexpr const char* kGpxStopped = "the reading was stopped";

// Reads a document of GPX 1.0 or 1.1, in any of the encodings that XML declares. Points without a
// place on the globe are left out and counted; entities that the document defines are not expanded.
// Errors: text that is no XML, or no GPX; kGpxStopped after a stop by `progress`.
Result<GpxDocument> ReadGpx(std::string_view text, Progress& progress);
Result<GpxDocument> ReadGpx(std::string_view text);

// The same of a file. Errors: also missing, unreadable, too large.
Result<GpxDocument> ReadGpxFile(const std::string& path, Progress& progress);
Result<GpxDocument> ReadGpxFile(const std::string& path);

}  // namespace skerrow
