#pragma once

#include <cstdint>
#include <string>

// Day-of-year dates, times of the day in decimal hours, and their text forms.
namespace skerrow {

// The Gregorian rule: divisible by 4, except centuries, except those divisible by 400.
bool IsLeapYear(int year);

// 365 or 366.
int DaysInYear(int year);

// A day of a year: 1 to 366, and the four-digit year.
struct DayAndYear {
  std::int16_t day = 0;
  std::int16_t year = 0;

  friend bool operator==(const DayAndYear&, const DayAndYear&) = default;
};

// A date by day of the month (1 .. 31) and month (1 .. 12).
struct MonthDate {
  std::int16_t day_of_month = 0;
  std::int16_t month = 0;
  std::string month_name;  // "Jan" .. "Dec"
};

// Puts the date of `day` of `year` into `date`. A day outside the year leaves `date` unchanged
// and gives false.
bool DayOfYearToDate(int day, int year, MonthDate& date);

// Day of the year of a calendar date; 0 when there is no such date.
std::int16_t DateToDayOfYear(int day_of_month, int month, int year);

// "January" .. "December" for 1 .. 12; empty outside.
std::string LongMonthName(int month);

// "Sunday" .. "Saturday" of a calendar date (Zeller's congruence).
std::string WeekdayName(int day_of_month, int month, int year);

// "d month-name yyyy" of a day of the year, as the reports print dates: "5 Dec 2026".
std::string DateText(DayAndYear date);

// "HH:MM", minutes rounded half to even, 24 wrapping to 00: 23.999 gives "00:00".
std::string HoursToClock(float hours);

// "HH:MM" of a duration or running total, not wrapped; the minutes pass through a resolution of
// one hundredth of an hour. 1.999 gives "02:00", 100.5 gives "100:30".
std::string HoursToHHMM(float hours);

// "HHHrs MMMin " with its trailing blank, by the steps of HoursToHHMM: 12.5 gives "12Hrs 30Min ".
std::string HoursToDuration(float hours);

// What AddHours gives.
struct LaterTime {
  DayAndYear date;
  float hours = 0.0F;  // 0 to under 24
  // "HH:MM", minutes cut off, with " (day month)" behind it when the day changed.
  std::string text;
};

// Adds `increment` hours to a time of a day of the year. At most one year's end is passed.
LaterTime AddHours(DayAndYear date, float hours, float increment);

// The Julian date of a calendar date and time, in days. A year under 1000 has 1900 added.
double JulianDate(int day, int month, int year, int hour, int minute, int second);

// "trak" + two-digit year + two-digit day + month suffix: 7 May 2012 gives "trak1207.may".
std::string TrackFileName(int day_of_month, int month, int year);

}  // namespace skerrow
