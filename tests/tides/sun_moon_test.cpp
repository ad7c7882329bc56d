#include "tides/sun_moon.h"

#include <cmath>
#include <gtest/gtest.h>

namespace skerrow {
namespace {

constexpr double kNone = -1.0;

struct AlmanacDay {
  double latitude, longitude;
  int day, month, year;
  double hours[kSunEvents];  // universal time; kNone for an event that does not happen
};

// From PyEphem 4.1 (libastro, a full solar theory): centre of the sun 18, 12 and 6 degrees and 50
// minutes below the horizon, no further refraction.
constexpr AlmanacDay kAlmanac[] = {
    {50.9, -1.4, 5, 1, 2026, {6.111, 6.777, 7.477, 8.126, 16.245, 16.893, 17.594, 18.260}},
    {50.9, -1.4, 14, 2, 2026, {5.488, 6.122, 6.765, 7.334, 17.336, 17.906, 18.550, 19.185}},
    {50.9, -1.4, 21, 3, 2026, {4.237, 4.911, 5.558, 6.105, 18.336, 18.885, 19.535, 20.212}},
    {50.9, -1.4, 30, 4, 2026, {2.305, 3.269, 4.067, 4.689, 19.422, 20.048, 20.852, 21.831}},
    {50.9, -1.4, 21, 6, 2026, {kNone, 1.908, 3.085, 3.859, 20.388, 21.162, 22.339, kNone}},
    {50.9, -1.4, 9, 8, 2026, {2.237, 3.265, 4.090, 4.725, 19.628, 20.260, 21.078, 22.089}},
    {50.9, -1.4, 23, 9, 2026, {4.018, 4.692, 5.339, 5.888, 18.029, 18.575, 19.220, 19.890}},
    {50.9, -1.4, 2, 11, 2026, {5.118, 5.755, 6.406, 6.986, 16.641, 17.221, 17.870, 18.507}},
    {50.9, -1.4, 17, 5, 2027, {1.266, 2.622, 3.549, 4.231, 19.851, 20.537, 21.473, 22.870}},
    {50.9, -1.4, 29, 2, 2028, {5.030, 5.668, 6.301, 6.853, 17.762, 18.314, 18.949, 19.589}},
    {50.9, -1.4, 12, 10, 2030, {4.567, 5.207, 5.843, 6.395, 17.326, 17.877, 18.511, 19.149}},
    {50.9, -1.4, 31, 12, 2031, {6.110, 6.779, 7.484, 8.139, 16.146, 16.801, 17.506, 18.175}},
    {60.15, -1.15, 5, 1, 2026, {6.368, 7.221, 8.156, 9.093, 15.246, 16.183, 17.118, 17.972}},
    {60.15, -1.15, 14, 2, 2026, {5.408, 6.212, 7.029, 7.767, 16.874, 17.613, 18.432, 19.238}},
    {60.15, -1.15, 21, 3, 2026, {3.608, 4.522, 5.361, 6.056, 18.359, 19.058, 19.901, 20.826}},
    {60.15, -1.15, 30, 4, 2026, {kNone, 1.839, 3.196, 4.078, 20.011, 20.904, 22.298, kNone}},
    {60.15, -1.15, 21, 6, 2026, {kNone, kNone, 0.784, 2.644, 21.570, 23.429, kNone, kNone}},
    {60.15, -1.15, 9, 8, 2026, {kNone, 1.606, 3.135, 4.057, 20.251, 21.163, 22.642, kNone}},
    {60.15, -1.15, 23, 9, 2026, {3.401, 4.315, 5.153, 5.851, 18.026, 18.720, 19.553, 20.457}},
    {60.15, -1.15, 2, 11, 2026, {5.099, 5.906, 6.737, 7.499, 16.091, 16.851, 17.681, 18.486}},
    {60.15, -1.15, 17, 5, 2027, {kNone, kNone, 2.270, 3.365, 20.696, 21.808, kNone, kNone}},
    {60.15, -1.15, 29, 2, 2028, {4.759, 5.577, 6.380, 7.082, 17.505, 18.208, 19.014, 19.836}},
    {60.15, -1.15, 12, 10, 2030, {4.282, 5.104, 5.911, 6.613, 17.069, 17.770, 18.573, 19.392}},
    {60.15, -1.15, 31, 12, 2031, {6.384, 7.244, 8.189, 9.147, 15.106, 16.063, 17.009, 17.869}},
    {-32.05, 115.75, 5, 1, 2026, {19.633, 20.248, 20.818, 21.286, 11.453, 11.919, 12.489, 13.102}},
    {-32.05, 115.75, 14, 2, 2026, {20.428, 20.956, 21.464, 21.892, 11.138, 11.564, 12.071, 12.596}},
    {-32.05, 115.75, 21, 3, 2026, {20.985, 21.464, 21.938, 22.345, 10.454, 10.861, 11.334, 11.812}},
    {-32.05, 115.75, 30, 4, 2026, {21.419, 21.896, 22.378, 22.800, 9.669, 10.090, 10.573, 11.049}},
    {-32.05, 115.75, 21, 6, 2026, {21.829, 22.327, 22.837, 23.288, 9.337, 9.788, 10.298, 10.796}},
    {-32.05, 115.75, 9, 8, 2026, {21.606, 22.085, 22.569, 22.993, 9.765, 10.189, 10.674, 11.152}},
    {-32.05, 115.75, 23, 9, 2026, {20.737, 21.215, 21.689, 22.096, 10.229, 10.636, 11.111, 11.590}},
    {-32.05, 115.75, 2, 11, 2026, {19.830, 20.367, 20.882, 21.313, 10.714, 11.146, 11.663, 12.202}},
    {-32.05, 115.75, 17, 5, 2027, {21.579, 22.064, 22.558, 22.993, 9.449, 9.883, 10.377, 10.863}},
    {-32.05, 115.75, 29, 2, 2028, {20.688, 21.190, 21.679, 22.094, 10.879, 11.293, 11.781, 12.281}},
    {-32.05,
     115.75,
     12,
     10,
     2030,
     {20.289, 20.787, 21.274, 21.688, 10.439, 10.853, 11.342, 11.842}},
    {-32.05,
     115.75,
     31,
     12,
     2031,
     {19.552, 20.173, 20.748, 21.218, 11.437, 11.907, 12.480, 13.100}},
};

// Minutes between two times of the day.
double MinutesApart(double a, double b) {
  const double hours = std::fmod(a - b + 36.0, 24.0) - 12.0;
  return std::abs(hours) * 60.0;
}

TEST(SunMoon, SunAgreesWithAnAlmanacToTwoMinutes) {
  for (const AlmanacDay& row : kAlmanac) {
    SCOPED_TRACE(::testing::Message()
                 << row.latitude << " on " << row.day << "." << row.month << "." << row.year);
    const SunTimes sun =
        SunCalc(row.latitude, row.longitude, row.day, row.month, row.year, 0, false);
    for (std::size_t event = 0; event < kSunEvents; ++event) {
      EXPECT_EQ(sun.happens[event], row.hours[event] != kNone) << event;
      if (row.hours[event] == kNone) {
        EXPECT_EQ(sun.hours[event], 0.0) << event;
        continue;
      }
      // In the north the summer's sun runs almost along the line of nautical twilight.
      const bool grazing = row.latitude > 60 && (event == 1 || event == 6);
      EXPECT_LT(MinutesApart(sun.hours[event], row.hours[event]), grazing ? 4.0 : 2.0) << event;
    }
  }
}

TEST(SunMoon, ZoneAndSummerTimeMoveTheClock) {
  const SunTimes universal = SunCalc(-32.05, 115.75, 5, 1, 2026, 0, false);
  const SunTimes perth = SunCalc(-32.05, 115.75, 5, 1, 2026, -8, false);
  EXPECT_NEAR(perth.hours[kSunrise], universal.hours[kSunrise] + 8 - 24, 1e-9);
  EXPECT_NEAR(perth.hours[kSunset], universal.hours[kSunset] + 8, 1e-9);
  const SunTimes west = SunCalc(50.9, -1.4, 21, 6, 2026, 6, true);
  EXPECT_NEAR(west.hours[kSunrise],
              SunCalc(50.9, -1.4, 21, 6, 2026, 0, false).hours[kSunrise] + 24 - 6 + 1, 1e-9);
  // The hour of summer time comes after the wrap. No twilight: the zone's offset from midnight.
  EXPECT_GT(SunCalc(60.15, -1.15, 21, 6, 2026, -2, true).hours[kSunset], 24.0);
  const SunTimes night = SunCalc(70, 20, 21, 12, 2026, -1, true);
  EXPECT_FALSE(night.happens[kSunrise]);
  EXPECT_EQ(night.hours[kSunrise], 2.0);
}

TEST(SunMoon, DayOfTheYearCountsEveryFourthYearAsLeap) {
  EXPECT_EQ(SunDayOfYear(1, 1, 2026), 1);
  EXPECT_EQ(SunDayOfYear(1, 3, 2026), 60);
  EXPECT_EQ(SunDayOfYear(1, 3, 2028), 61);
  EXPECT_EQ(SunDayOfYear(31, 12, 2027), 365);
  EXPECT_EQ(SunDayOfYear(31, 12, 2100), 366);
}

TEST(SunMoon, MonthTableHasTheDaysOfTheMonth) {
  const std::vector<SunDay> february = SunTable(50.9, -1.4, 2, 2028, 0, false);
  ASSERT_EQ(february.size(), 29U);
  EXPECT_EQ(february[28].date_text, "Feb 29");
  EXPECT_LT(MinutesApart(february[28].times.hours[kSunset], 17.762), 2.0);
  EXPECT_EQ(DaysInMonth(2, 2100), 28);
  EXPECT_EQ(DaysInMonth(4, 2026), 30);
  EXPECT_EQ(DaysInMonth(13, 2026), 0);
}

TEST(SunMoon, PhasesFallOnTheAlmanacsDays) {
  // Dates in universal time from PyEphem 4.1.
  const struct {
    int month, year;
    std::vector<std::string> lines;
  } rows[] = {
      {1,
       2000,
       {"   06 Jan 2000       NEW MOON     ", "   14 Jan 2000       FIRST QUARTER",
        "   21 Jan 2000       FULL MOON    ", "   28 Jan 2000       LAST QUARTER "}},
      {1,
       2024,
       {"   02 Feb 2024       LAST QUARTER ", "   11 Jan 2024       NEW MOON     ",
        "   18 Jan 2024       FIRST QUARTER", "   25 Jan 2024       FULL MOON    "}},
      {11,
       2026,
       {"   01 Dec 2026       LAST QUARTER ", "   09 Nov 2026       NEW MOON     ",
        "   17 Nov 2026       FIRST QUARTER", "   24 Nov 2026       FULL MOON    "}},
      {12,
       2030,
       {"   08 Jan 2031       FULL MOON    ", "   16 Jan 2031       LAST QUARTER ",
        "   24 Dec 2030       NEW MOON     ", "   31 Dec 2030       FIRST QUARTER"}},
      {4,
       1912,
       {"   01 May 1912       FULL MOON    ", "   09 May 1912       LAST QUARTER ",
        "   17 Apr 1912       NEW MOON     ", "   24 Apr 1912       FIRST QUARTER"}},
      {12,
       2100,
       {"   07 Jan 2101       FIRST QUARTER", "   15 Jan 2101       FULL MOON    ",
        "   22 Jan 2101       LAST QUARTER ", "   30 Dec 2100       NEW MOON     "}},
  };
  for (const auto& row : rows) EXPECT_EQ(MoonLines(row.month, row.year), row.lines) << row.year;
  EXPECT_TRUE(MoonLines(0, 2026).empty());
  // Before 1900 the words of new and full moon are a blank longer.
  int longer = 0;
  for (const std::string& line : MoonLines(6, 1898)) longer += line.size() == 35 ? 1 : 0;
  EXPECT_EQ(longer, 2);
}

}  // namespace
}  // namespace skerrow
