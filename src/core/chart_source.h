#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/progress.h"
#include "core/result.h"

// A picture of a chart in a foreign form, as the import sees it. Who can read such files stands
// behind this interface.
namespace skerrow {

// Borders in degrees, WGS 84.
struct ChartBounds {
  double south = 0.0;
  double west = 0.0;
  double north = 0.0;
  double east = 0.0;
};

// A Mercator sheet: a picture whose upper and lower edge are parallels and whose left and right
// edge are meridians, held in single precision as the calibration of a chart stores them.
struct ChartSheet {
  int width = 0;   // pixels
  int height = 0;  // pixels
  float top_lat = 0.0F;
  float bottom_lat = 0.0F;
  float west_lon = 0.0F;
  float east_lon = 0.0F;
};

// What can be known of a chart's picture before it is brought in.
struct ChartSourceInfo {
  int width = 0;        // pixels
  int height = 0;       // pixels
  std::string kind;     // "GeoTIFF", "BSB/KAP" ..
  std::string title;    // the chart's own, else the file's name
  bool placed = false;  // whether the file tells where its pixels lie; a plain scan does not
  ChartBounds bounds;   // of what is brought in; of a placed one
  double scale = 0.0;   // denominator, a guess where the file does not tell it; 0 when unknown
  bool scale_is_told = false;
  ChartSheet sheet;                // what is made of it; of a plain scan the size alone
  std::vector<std::string> notes;  // what the user should know, a sentence each
};

// A picture of three bytes a pixel: red, green, blue, row by row without gaps.
struct RgbPicture {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> pixels;
};

// One file that was opened. Its calls may come from any thread, one at a time.
class ChartSource {
 public:
  virtual ~ChartSource() = default;

  virtual const ChartSourceInfo& info() const = 0;

  // The file's picture as it is, reduced so that its longer side has at most `longest` pixels.
  // Errors: kImportCancelled, unreadable.
  virtual Result<RgbPicture> Preview(int longest, Progress& progress) = 0;

  // Writes the sheet's picture, and a small one of it, over the files at the two paths. Errors:
  // kImportCancelled, an unreadable source, a file that cannot be written. What was written up to
  // then is left for the caller to remove.
  virtual Status WriteSheet(const std::string& picture, const std::string& preview,
                            Progress& progress) = 0;
};

// The reason of the error of an import that the user stopped.
inline constexpr char kImportCancelled[] = "the import was cancelled";

}  // namespace skerrow
