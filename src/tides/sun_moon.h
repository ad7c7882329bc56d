#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

// Sunrise, sunset and twilights of a place and date, and the phases of the moon about a month, by
// closed series.
namespace skerrow {

// The events of a day in the order of SunTimes.
enum SunEvent : std::size_t {
  kAstroMorning,     // the sun 18 degrees below the horizon
  kNauticalMorning,  // 12 degrees
  kCivilMorning,     // 6 degrees
  kSunrise,          // 50 minutes of arc, for refraction and the upper limb
  kSunset,
  kCivilEvening,
  kNauticalEvening,
  kAstroEvening,
  kSunEvents,
};

// What an event is called: "Sunrise", "Nautical twilight begins" ..
const char* SunEventName(SunEvent event);

// The events of one date.
struct SunTimes {
  // Hours of the clock. With summer time one can lie past 24. An event that does not happen on that
  // day has the time that 0 h of universal time gives, which is no event: see `happens`.
  std::array<double, kSunEvents> hours{};
  std::array<bool, kSunEvents> happens{};
};

// The day of the year that the sun's series count from; every fourth year is a leap year to them.
int SunDayOfYear(int day, int month, int year);

// The events at a place, degrees north and east positive, on a clock `zone_hours` behind universal
// time (the hours of a port's time zone), an hour ahead of that with summer time.
SunTimes SunCalc(double latitude, double longitude, int day, int month, int year, int zone_hours,
                 bool summer_time);

// A row of a month's table.
struct SunDay {
  std::string date_text;  // "Jan 1"
  SunTimes times;
};

// The sun on every day of a month.
std::vector<SunDay> SunTable(double latitude, double longitude, int month, int year, int zone_hours,
                             bool summer_time);

// Days of a month by the Gregorian rule; 0 outside 1 .. 12.
int DaysInMonth(int month, int year);

// The four phases from the new moon nearest to the middle of a month on, a line each, such as
// "   09 Dec 2026       NEW MOON     ", by day of the month. A phase has the month and the year
// that it falls in. Formulas: J. Meeus, Astronomical Formulae for Calculators, shortened.
std::vector<std::string> MoonLines(int month, int year);

}  // namespace skerrow
