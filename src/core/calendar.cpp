#include "core/calendar.h"

#include <array>
#include <cmath>

#include "core/numbers.h"

namespace skerrow {
namespace {

constexpr std::array<const char*, 12> kShortMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::array<const char*, 12> kLongMonths = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};
constexpr std::array<const char*, 7> kWeekdays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                  "Thursday", "Friday", "Saturday"};
// Days before the first of each month in a common year; the last entry is the year's length.
constexpr std::array<int, 13> kDaysBefore = {0,   31,  59,  90,  120, 151, 181,
                                             212, 243, 273, 304, 334, 365};

int DaysBeforeMonth(int month, int year) {
  return kDaysBefore[static_cast<std::size_t>(month - 1)] + (month > 2 && IsLeapYear(year) ? 1 : 0);
}

std::string TwoDigits(std::int64_t value) {
  std::string text = std::to_string(value);
  if (value >= 0 && value < 10) text.insert(0, 1, '0');
  return text;
}

// Hours and minutes as texts, through the hundredth-of-an-hour step of the running totals.
struct HoursMinutesText {
  std::string hours;
  std::string minutes;
};

HoursMinutesText RunningTotalText(float hours) {
  double whole = WholePartDown(hours + 0.0001);
  const float fraction = static_cast<float>(hours - whole);
  const std::int64_t hundredths = RoundToInteger(fraction * 100.0);
  std::int64_t minutes = RoundToInteger(static_cast<double>(hundredths) / 100.0 * 60.0);
  if (minutes >= 60) {
    whole += 1;
    minutes -= 60;
  }
  return {TwoDigits(RoundToInteger(whole)), TwoDigits(minutes).substr(0, 2)};
}

}  // namespace

bool IsLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int DaysInYear(int year) { return IsLeapYear(year) ? 366 : 365; }

bool DayOfYearToDate(int day, int year, MonthDate& date) {
  if (day < 1 || day > DaysInYear(year)) return false;
  int month = 12;
  while (DaysBeforeMonth(month, year) >= day) --month;
  date.day_of_month = static_cast<std::int16_t>(day - DaysBeforeMonth(month, year));
  date.month = static_cast<std::int16_t>(month);
  date.month_name = kShortMonths[static_cast<std::size_t>(month - 1)];
  return true;
}

std::int16_t DateToDayOfYear(int day_of_month, int month, int year) {
  if (month < 1 || month > 12 || day_of_month < 1) return 0;
  const int month_end = month == 12 ? DaysInYear(year) : DaysBeforeMonth(month + 1, year);
  const int day = DaysBeforeMonth(month, year) + day_of_month;
  return day > month_end ? std::int16_t{0} : static_cast<std::int16_t>(day);
}

std::string LongMonthName(int month) {
  return month < 1 || month > 12 ? "" : kLongMonths[static_cast<std::size_t>(month - 1)];
}

std::string WeekdayName(int day_of_month, int month, int year) {
  const int shifted_month = month < 3 ? month + 12 : month;
  const int shifted_year = month < 3 ? year - 1 : year;
  // Counted from Saturday = 0.
  const int zeller = (day_of_month + 13 * (shifted_month + 1) / 5 + shifted_year +
                      shifted_year / 4 - shifted_year / 100 + shifted_year / 400) %
                     7;
  return kWeekdays[static_cast<std::size_t>((zeller + 6) % 7)];
}

std::string DateText(DayAndYear date) {
  MonthDate month_date;
  DayOfYearToDate(date.day, date.year, month_date);
  return std::to_string(month_date.day_of_month) + " " + month_date.month_name + " " +
         std::to_string(date.year);
}

std::string HoursToClock(float hours) {
  double whole = WholePartDown(hours);
  std::int64_t minutes = RoundToInteger((hours - whole) * 60.0);
  if (minutes >= 60) {
    whole += 1;
    minutes = 0;
  }
  if (whole == 24) whole = 0;
  return TwoDigits(RoundToInteger(whole)) + ":" + TwoDigits(minutes);
}

std::string HoursToHHMM(float hours) {
  const HoursMinutesText text = RunningTotalText(hours);
  return text.hours + ":" + text.minutes;
}

std::string HoursToDuration(float hours) {
  const HoursMinutesText text = RunningTotalText(hours);
  return text.hours + "Hrs " + text.minutes + "Min ";
}

LaterTime AddHours(DayAndYear date, float hours, float increment) {
  const float total = hours + increment;
  const double days = WholePartDown(total / 24.0);
  LaterTime later;
  int day = date.day + static_cast<int>(RoundToInt16(days));
  int year = date.year;
  if (day > DaysInYear(year)) {
    day -= DaysInYear(year);
    ++year;
  }
  later.date = {static_cast<std::int16_t>(day), static_cast<std::int16_t>(year)};
  later.hours = static_cast<float>(total - days * 24.0);
  const double whole_hours = WholePart(later.hours);
  const std::int64_t minutes = RoundToInteger(WholePart((later.hours - whole_hours) * 60.0));
  later.text = TwoDigits(RoundToInteger(whole_hours)) + ":" + TwoDigits(minutes);
  if (later.date.day != date.day) {
    MonthDate month_date;
    DayOfYearToDate(day, year, month_date);
    later.text +=
        " (" + std::to_string(month_date.day_of_month) + " " + month_date.month_name + ")";
  }
  return later;
}

double JulianDate(int day, int month, int year, int hour, int minute, int second) {
  if (year < 1000) year += 1900;
  const double hours = hour + minute / 60.0 + second / 3600.0;
  const double sign = 100.0 * year + month - 190002.5 <= 0 ? -1.0 : 1.0;
  return 367.0 * year - WholePartDown(7.0 * (year + WholePartDown((month + 9) / 12.0)) / 4.0) +
         WholePartDown(275.0 * month / 9.0) + day + hours / 24.0 + 1721013.5 - 0.5 * sign + 0.5;
}

std::string TrackFileName(int day_of_month, int month, int year) {
  std::string suffix;
  if (month >= 1 && month <= 12) {
    suffix = kShortMonths[static_cast<std::size_t>(month - 1)];
    suffix[0] = static_cast<char>(suffix[0] - 'A' + 'a');
  }
  return "trak" + TwoDigits(year % 100) + TwoDigits(day_of_month) + "." + suffix;
}

}  // namespace skerrow
