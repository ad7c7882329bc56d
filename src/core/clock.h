#pragma once

#include <cstdint>

#include "core/calendar.h"

namespace skerrow {

// One reading of the computer's clock, local time.
struct ClockReading {
  int year = 2000;
  int month = 1;
  int day_of_month = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;

  // Decimal hours of the day; seconds do not count.
  float Hours() const { return static_cast<float>(hour + minute / 60.0); }
  DayAndYear Day() const {
    return {DateToDayOfYear(day_of_month, month, year), static_cast<std::int16_t>(year)};
  }
  // Julian date, seconds included.
  double Julian() const { return JulianDate(day_of_month, month, year, hour, minute, second); }
};

// A moment of the world's clock, in seconds since 1970, as local time.
ClockReading LocalTime(std::int64_t unix_seconds);

// The only source of the present time.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual ClockReading Now() const = 0;
};

// The computer's own clock.
class SystemClock final : public Clock {
 public:
  ClockReading Now() const override;
};

}  // namespace skerrow
