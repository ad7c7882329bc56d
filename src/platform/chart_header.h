#pragma once

#include <string>

#include "core/system_file.h"

namespace skerrow {

// What the text before the picture of a BSB/KAP chart tells. Fields that are not there are empty
// or 0.
struct ChartHeader {
  std::string name;          // BSB/NA
  double scale = 0.0;        // KNP/SC, denominator
  std::string datum;         // KNP/GD
  double shift_north = 0.0;  // DTM, seconds of latitude and longitude to be added for WGS 84
  double shift_east = 0.0;
};

// The header of an open file; an empty one for a file that is no such chart.
ChartHeader ReadChartHeader(const SystemFile& file);

}  // namespace skerrow
