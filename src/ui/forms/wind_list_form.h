#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "wind/grib_winds.h"
#include "wind/stored_wind.h"

// What the dialogs that list the imported wind show: the records of one time after the other.
namespace skerrow {

// A list longer than this is cut, and says so: nobody reads more, and the window stays quick.
inline constexpr std::size_t kMostWindRows = 20000;

// The records of one forecast time.
struct WindTime {
  float time = 0.0F;                 // days from the beginning of 2000
  std::vector<std::size_t> records;  // in file order, from 0
};

// The times of a store, without its placeholder, and those of the viewer's file; the earliest
// first.
std::vector<WindTime> TimesOf(const std::vector<WindCell>& cells);
std::vector<WindTime> TimesOf(const std::vector<GribWind>& winds);

// The index of the time whose wind serves a date and time of day, or of the one nearest to it; 0
// without any.
std::size_t TimeFor(const std::vector<WindTime>& times, DayAndYear date, float hours);

// The records of a time under a heading, columns parted by tabs: latitude, longitude, knots,
// direction and Beaufort force.
std::vector<std::string> WindRows(const std::vector<WindCell>& cells, const WindTime& time);
// The same with the number of the time, and the components in metres a second for the force.
std::vector<std::string> WindRows(const std::vector<GribWind>& winds, const WindTime& time);

// "1,107 records", or how many of them are shown.
std::string WindCountText(const WindTime& time);

}  // namespace skerrow
