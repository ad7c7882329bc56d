#include "core/selected_time.h"

namespace skerrow {

void SetFromClock(SelectedTime& time, const ClockReading& now) {
  time.hours = now.Hours();
  time.day_of_year = now.Day().day;
  time.year = now.Day().year;
  time.month = static_cast<std::int16_t>(now.month);
  time.day_of_month = static_cast<std::int16_t>(now.day_of_month);
}

void SetDay(SelectedTime& time, DayAndYear date) {
  time.day_of_year = date.day;
  time.year = date.year;
  MonthDate month_date;
  if (DayOfYearToDate(date.day, date.year, month_date)) {
    time.month = month_date.month;
    time.day_of_month = month_date.day_of_month;
  }
}

void SaveOnce(const SelectedTime& time, SavedTime& saved) {
  if (saved.valid) return;
  saved = {time, true};
}

void RestoreSaved(SelectedTime& time, SavedTime& saved) {
  if (!saved.valid) return;
  time = saved.time;
  saved.valid = false;
}

}  // namespace skerrow
