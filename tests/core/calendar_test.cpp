#include "core/calendar.h"

#include <chrono>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace skerrow {
namespace {

namespace chr = std::chrono;

// Every day of 40 years, and of the century that is no leap year, against the standard library.
TEST(Calendar, EveryDayAgreesWithTheStandardLibrary) {
  for (const int first_year : {1899, 1999, 2095}) {
    for (int year = first_year; year < first_year + 15; ++year) {
      const chr::sys_days new_year = chr::year(year) / 1 / 1;
      const auto days = (chr::sys_days(chr::year(year + 1) / 1 / 1) - new_year).count();
      ASSERT_EQ(DaysInYear(year), days);
      for (int day = 1; day <= static_cast<int>(days); ++day) {
        const chr::sys_days at = new_year + chr::days(day - 1);
        const chr::year_month_day expected(at);
        MonthDate date;
        ASSERT_TRUE(DayOfYearToDate(day, year, date));
        ASSERT_EQ(date.day_of_month, static_cast<int>(static_cast<unsigned>(expected.day())));
        ASSERT_EQ(date.month, static_cast<int>(static_cast<unsigned>(expected.month())));
        ASSERT_EQ(DateToDayOfYear(date.day_of_month, date.month, year), day);
        const char* weekdays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                  "Thursday", "Friday", "Saturday"};
        ASSERT_EQ(WeekdayName(date.day_of_month, date.month, year),
                  weekdays[chr::weekday(at).c_encoding()]);
        if (year > 1900 && year < 2100) {  // where the formula of the Julian date holds
          ASSERT_EQ(JulianDate(date.day_of_month, date.month, year, 6, 0, 0),
                    static_cast<double>(at.time_since_epoch().count()) + 2440587.5 + 0.25);
        }
      }
    }
  }
}

TEST(Calendar, DaysOutsideTheYearChangeNothing) {
  for (const int day : {0, -1, 366, 400}) {
    MonthDate date{9, 9, "kept"};
    EXPECT_FALSE(DayOfYearToDate(day, 2025, date));
    EXPECT_EQ(date.day_of_month, 9);
    EXPECT_EQ(date.month_name, "kept");
  }
  MonthDate date;
  EXPECT_TRUE(DayOfYearToDate(366, 2024, date));
  EXPECT_EQ(date.month_name, "Dec");
  EXPECT_EQ(DateToDayOfYear(29, 2, 2025), 0);
  EXPECT_EQ(DateToDayOfYear(31, 4, 2025), 0);
  EXPECT_EQ(DateToDayOfYear(1, 13, 2025), 0);
  EXPECT_EQ(DateToDayOfYear(0, 1, 2025), 0);
}

TEST(Calendar, ClockTimes) {
  const struct {
    float hours;
    const char* clock;
    const char* running;
    const char* duration;
  } rows[] = {
      {0.0F, "00:00", "00:00", "00Hrs 00Min "},       {23.999F, "00:00", "24:00", "24Hrs 00Min "},
      {7.0833335F, "07:05", "07:05", "07Hrs 05Min "}, {12.5F, "12:30", "12:30", "12Hrs 30Min "},
      {1.999F, "02:00", "02:00", "02Hrs 00Min "},     {9.99999F, "10:00", "10:00", "10Hrs 00Min "},
      {0.25F, "00:15", "00:15", "00Hrs 15Min "}};
  for (const auto& row : rows) {
    EXPECT_EQ(HoursToClock(row.hours), row.clock);
    EXPECT_EQ(HoursToHHMM(row.hours), row.running);
    EXPECT_EQ(HoursToDuration(row.hours), row.duration);
  }
  EXPECT_EQ(HoursToHHMM(100.5F), "100:30");
  // 4 minutes and a half go through 0.08 hours: 4.8 minutes, 5.
  EXPECT_EQ(HoursToHHMM(0.075F), "00:05");
}

TEST(Calendar, AddHours) {
  const struct {
    DayAndYear from;
    float hours;
    float increment;
    DayAndYear to;
    float left;
    const char* text;
  } rows[] = {{{100, 2025}, 10.0F, 2.5F, {100, 2025}, 12.5F, "12:30"},
              {{100, 2025}, 22.0F, 3.25F, {101, 2025}, 1.25F, "01:15 (11 Apr)"},
              {{365, 2025}, 0.0F, 24.0F, {1, 2026}, 0.0F, "00:00 (1 Jan)"},
              {{365, 2024}, 12.0F, 12.0F, {366, 2024}, 0.0F, "00:00 (31 Dec)"},
              {{366, 2024}, 23.5F, 1.0F, {1, 2025}, 0.5F, "00:30 (1 Jan)"},
              {{59, 2024}, 23.0F, 1.0F, {60, 2024}, 0.0F, "00:00 (29 Feb)"}};
  for (const auto& row : rows) {
    const LaterTime later = AddHours(row.from, row.hours, row.increment);
    EXPECT_EQ(later.date, row.to) << row.text;
    EXPECT_FLOAT_EQ(later.hours, row.left) << row.text;
    EXPECT_EQ(later.text, row.text);
  }
}

TEST(Calendar, AddHoursSurvivesWhatIsNoTime) {
  for (const float odd : {std::numeric_limits<float>::infinity(),
                          -std::numeric_limits<float>::infinity(), std::nanf("")}) {
    EXPECT_FALSE(AddHours({100, 2025}, 6.0F, odd).text.empty());
  }
}

TEST(Calendar, NamesOfTrackFilesAndDates) {
  EXPECT_EQ(TrackFileName(7, 5, 2012), "trak1207.may");
  EXPECT_EQ(TrackFileName(31, 12, 2005), "trak0531.dec");
  EXPECT_EQ(TrackFileName(1, 1, 2100), "trak0001.jan");
  EXPECT_EQ(DateText({DateToDayOfYear(5, 12, 2026), 2026}), "5 Dec 2026");
  EXPECT_EQ(LongMonthName(9), "September");
  EXPECT_EQ(LongMonthName(13), "");
  EXPECT_EQ(JulianDate(1, 1, 99, 12, 0, 0), 2451180.0);  // 1 January 1999, noon
}

}  // namespace
}  // namespace skerrow
