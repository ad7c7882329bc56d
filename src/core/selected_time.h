#pragma once

#include <cstdint>

#include "core/clock.h"

namespace skerrow {

// The time that the display and all tidal work refer to.
struct SelectedTime {
  std::int16_t day_of_year = 1;
  std::int16_t year = 2000;
  std::int16_t month = 1;
  std::int16_t day_of_month = 1;
  float hours = 0.0F;      // decimal hours of the clock's local time
  bool override_ = false;  // the user, a calculation or an animation has set the time

  DayAndYear Day() const { return {day_of_year, year}; }
};

// The copy of SelectedTime taken when it is first moved away from.
struct SavedTime {
  SelectedTime time;
  bool valid = false;
};

// Sets every field but override_ from a clock reading.
void SetFromClock(SelectedTime& time, const ClockReading& now);

// Sets day of the year and year, and month and day of the month with them.
void SetDay(SelectedTime& time, DayAndYear date);

// Keeps `time` in `saved` unless an earlier departure is still remembered.
void SaveOnce(const SelectedTime& time, SavedTime& saved);

// Brings back the remembered time, if there is one, and forgets it.
void RestoreSaved(SelectedTime& time, SavedTime& saved);

}  // namespace skerrow
