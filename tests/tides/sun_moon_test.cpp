#include "tides/sun_moon.h"

#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <string>

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
    {-32.1, 115.7, 5, 1, 2026, {19.633, 20.248, 20.819, 21.287, 11.458, 11.925, 12.495, 13.109}},
    {-32.1, 115.7, 14, 2, 2026, {20.429, 20.957, 21.466, 21.894, 11.142, 11.568, 12.076, 12.602}},
    {-32.1, 115.7, 21, 3, 2026, {20.987, 21.466, 21.941, 22.348, 10.458, 10.864, 11.338, 11.816}},
    {-32.1, 115.7, 30, 4, 2026, {21.422, 21.900, 22.382, 22.804, 9.671, 10.093, 10.575, 11.052}},
    {-32.1, 115.7, 21, 6, 2026, {21.834, 22.332, 22.842, 23.293, 9.338, 9.790, 10.300, 10.798}},
    {-32.1, 115.7, 9, 8, 2026, {21.610, 22.089, 22.574, 22.998, 9.767, 10.191, 10.676, 11.155}},
    {-32.1, 115.7, 23, 9, 2026, {20.740, 21.218, 21.692, 22.099, 10.232, 10.639, 11.114, 11.594}},
    {-32.1, 115.7, 2, 11, 2026, {19.831, 20.368, 20.884, 21.315, 10.718, 11.151, 11.668, 12.208}},
    {-32.1, 115.7, 17, 5, 2027, {21.583, 22.069, 22.563, 22.998, 9.451, 9.885, 10.380, 10.866}},
    {-32.1, 115.7, 29, 2, 2028, {20.690, 21.192, 21.682, 22.097, 10.883, 11.297, 11.786, 12.286}},
    {-32.1, 115.7, 12, 10, 2030, {20.290, 20.789, 21.277, 21.690, 10.443, 10.858, 11.346, 11.847}},
    {-32.1, 115.7, 31, 12, 2031, {19.552, 20.174, 20.749, 21.219, 11.442, 11.912, 12.487, 13.108}},
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
  // The last two months have a quarter within four minutes of midnight.
  const struct {
    int month, year;
    const char* phases;  // the day, month, year and letter of each
  } rows[] = {
      {4, 1912, "01 May 1912 F, 09 May 1912 L, 17 Apr 1912 N, 24 Apr 1912 Q"},
      {1, 2000, "06 Jan 2000 N, 14 Jan 2000 Q, 21 Jan 2000 F, 28 Jan 2000 L"},
      {1, 2024, "02 Feb 2024 L, 11 Jan 2024 N, 18 Jan 2024 Q, 25 Jan 2024 F"},
      {11, 2026, "01 Dec 2026 L, 09 Nov 2026 N, 17 Nov 2026 Q, 24 Nov 2026 F"},
      {12, 2030, "08 Jan 2031 F, 16 Jan 2031 L, 24 Dec 2030 N, 31 Dec 2030 Q"},
      {12, 2100, "07 Jan 2101 Q, 15 Jan 2101 F, 22 Jan 2101 L, 30 Dec 2100 N"},
      {12, 2031, "05 Jan 2032 L, 14 Dec 2031 N, 21 Dec 2031 Q, 28 Dec 2031 F"},
      {7, 2045, "05 Aug 2045 L, 14 Jul 2045 N, 21 Jul 2045 Q, 28 Jul 2045 F"},
  };
  const std::map<std::string, std::string> letters = {{"NEW MOON     ", " N"},
                                                      {"FIRST QUARTER", " Q"},
                                                      {"FULL MOON    ", " F"},
                                                      {"LAST QUARTER ", " L"}};
  for (const auto& row : rows) {
    std::string phases;
    for (const std::string& line : MoonLines(row.month, row.year)) {
      EXPECT_EQ(line.substr(0, 3) + line.substr(14, 7), std::string(10, ' '));
      if (!phases.empty()) phases += ", ";
      phases += line.substr(3, 11) + letters.at(line.substr(21));
    }
    EXPECT_EQ(phases, row.phases);
  }
  EXPECT_TRUE(MoonLines(0, 2026).empty());
  // Before 1900 the words of new and full moon are a blank longer.
  int longer = 0;
  for (const std::string& line : MoonLines(6, 1898)) longer += line.size() == 35 ? 1 : 0;
  EXPECT_EQ(longer, 2);
}

}  // namespace
}  // namespace skerrow
