#include "reference/plain_wind.h"

#include "core/plane_sailing.h"

namespace skerrow::reference {

std::optional<WindFound> PlainFindWind(std::span<const WindCell> cells, Position place,
                                       DayAndYear date, float hours) {
  // Days from 2000 by counting.
  int day = date.day - 1;
  for (int year = 2000; year < date.year; ++year) day += DaysInYear(year);
  for (int year = date.year; year < 2000; ++year) day -= DaysInYear(year);
  int bin = 0;
  while (bin < 7 && hours / 24.0 >= (bin + 1) * 0.125) ++bin;
  const double lower = day + bin * 0.125;
  const double upper = bin == 7 ? day + 0.999999 : day + (bin + 1) * 0.125;
  WindFound best;
  best.range = 24000.0F;
  bool found = false;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const WindCell& cell = cells[i];
    if (!(cell.time >= lower && cell.time < upper && cell.speed < 999.0F)) continue;
    const float range = RangeBearing(place, cell.At()).range;
    if (!(range < best.range)) continue;
    best = {i, cell.speed, cell.direction, range, range < 40.0F};
    found = true;
  }
  if (!found) return std::nullopt;
  return best;
}

}  // namespace skerrow::reference
