#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/result.h"

// Weather forecasts as fields on a grid, whatever form their file has.
namespace skerrow {

// A point that the bitmap of a message leaves out.
inline constexpr double kGribMissing = 1e30;

// The parameters that make the wind, metres a second at 10 m.
inline constexpr std::int16_t kGribWindU = 33;  // towards the east
inline constexpr std::int16_t kGribWindV = 34;  // towards the north

// The points of a message: row j, column i lies j increments from La1 towards La2 and i increments
// from Lo1 towards Lo2. Degrees, north and east positive.
struct GribGrid {
  float la1 = 0.0F, lo1 = 0.0F;  // first point
  float la2 = 0.0F, lo2 = 0.0F;  // last point
  float dj = 0.0F, di = 0.0F;    // increments
  std::int16_t ni = 0, nj = 0;   // columns and rows
  // Whether rows and columns are lines of latitude and longitude; else the values have no place.
  bool of_degrees = true;

  std::size_t Points() const { return static_cast<std::size_t>(ni) * static_cast<std::size_t>(nj); }
  friend bool operator==(const GribGrid&, const GribGrid&) = default;
};

// One message of a forecast: a field at a time.
struct GribRecord {
  GribGrid grid;
  std::int16_t day = 0, month = 0, year = 0;  // reference date
  float base_minutes = 0.0F;                  // reference time of day
  double forecast_minutes = 0.0;              // from there; kUnhandledTime when it is not known
  float valid_hour = 0.0F;                    // hours of validity, from 0 h of the reference date
  std::int16_t parameter = 0;
  std::int16_t level_type = 0;  // 105: a height above ground, metres; 1: the surface
  std::int16_t level = 0;
  double lowest = 0.0, highest = 0.0;  // of the field, without missing points
  // The field of a wind component, columns fastest. Others are decoded and checked and not kept.
  std::vector<double> values;

  // Days from the beginning of 2000 to the validity.
  double Time() const;
};
inline constexpr double kUnhandledTime = -99.0;

// The most points that fields of a file of `size` bytes together may have. A hostile file claims
// grids that its bytes can not fill.
std::size_t MostGribPoints(std::size_t size);

// What the program does not read itself: forecasts of GRIB edition 2, and compressed files.
class ForecastReader {
 public:
  virtual ~ForecastReader() = default;

  // The messages of a file's content, edition 2. Those of one component of the wind have values.
  virtual Result<std::vector<GribRecord>> ReadEdition2(std::string_view content) = 0;
  // The content of a file compressed by gzip or bzip2; any other content comes back as it is.
  // Errors: damaged, or more than `max_size` bytes.
  virtual Result<std::string> Expand(std::string content, std::size_t max_size) = 0;
};

}  // namespace skerrow
