#include "core/forecast.h"

#include "core/calendar.h"

namespace skerrow {

double GribRecord::Time() const {
  return JulianDate(day, month, year, 0, 0, 0) - JulianDate(1, 1, 2000, 0, 0, 0) +
         valid_hour / 24.0;
}

std::size_t MostGribPoints(std::size_t size) { return 4 * size + 65536; }

}  // namespace skerrow
