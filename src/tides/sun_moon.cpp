#include "tides/sun_moon.h"

#include <algorithm>
#include <cmath>

#include "core/calendar.h"
#include "core/numbers.h"

namespace skerrow {
namespace {

// The constants of the sun's series, in their six figures.
constexpr double kQuarterTurn = 1.5708;
constexpr double kHalfTurn = 3.14159;
constexpr double kThreeQuarterTurn = 4.71239;
constexpr double kFullTurn = 6.28319;
constexpr double kRadiansPerDegree = 0.0174533;
constexpr double kHoursPerRadian = 3.81972;

// The cosines of the sun's distances from the zenith, in the order of SunEvent.
constexpr std::array<double, kSunEvents> kZenithCosines = {
    -0.309017,  -0.207912, -0.104528, -0.0145439,  //
    -0.0145439, -0.104528, -0.207912, -0.309017};

double WithinTurn(double angle) {
  while (angle < 0) angle += kFullTurn;
  while (angle >= kFullTurn) angle -= kFullTurn;
  return angle;
}

struct SunPlace {
  double t = 0.0;  // days from the beginning of the year
  double right_ascension = 0.0;
  double declination = 0.0;
};

SunPlace PlaceOfSun(double t) {
  const double anomaly = 0.017202 * t - 0.0574039;
  double longitude = WithinTurn(anomaly + 0.0334405 * std::sin(anomaly) +
                                0.000349066 * std::sin(2 * anomaly) + 4.93289);
  const double quarters = longitude / kQuarterTurn;
  if (quarters == std::trunc(quarters)) longitude += 4.84814e-06;
  SunPlace place;
  place.t = t;
  place.right_ascension = std::atan(0.91746 * std::tan(longitude));
  if (longitude > kThreeQuarterTurn) {
    place.right_ascension += kFullTurn;
  } else if (longitude > kQuarterTurn) {
    place.right_ascension += kHalfTurn;
  }
  const double s = 0.39782 * std::sin(longitude);
  place.declination = std::atan(s / std::sqrt(1 - s * s));
  return place;
}

// Hours of universal time at which the sun stands at a distance from the zenith; 0 when it does
// not get there, and `happens` tells. Latitude and longitude in radians, west positive.
double HourAngleTime(double zenith_cosine, const SunPlace& sun, double latitude, double longitude,
                     bool evening, bool& happens) {
  const double x = (zenith_cosine - std::sin(sun.declination) * std::sin(latitude)) /
                   (std::cos(sun.declination) * std::cos(latitude));
  happens = std::abs(x) <= 1;
  if (!happens) return 0.0;
  double hour_angle = kQuarterTurn - std::atan(x / std::sqrt(1 - x * x));
  if (!evening) hour_angle = kFullTurn - hour_angle;
  const double local = hour_angle + sun.right_ascension - 0.0172028 * sun.t - 1.73364;
  return WithinTurn(local + longitude) * kHoursPerRadian;
}

// Days from the beginning of the year to the middle of each month.
constexpr double kMidMonth[2][12] = {
    {15.5, 45, 74.5, 105, 135.5, 166, 196.5, 227.5, 258, 288.5, 319, 349.5},
    {15.5, 45.5, 75, 105.5, 136, 166.5, 197, 228, 258.5, 289, 319.5, 350}};

double MoonRadians(double degrees) { return degrees * 3.14159265358598 / 180.0; }

// `degrees` brought down to below 360 when it is above.
double BelowTurn(double degrees) {
  const double turns = degrees / 360.0;
  return degrees > 360 ? (turns - std::trunc(turns)) * 360.0 : degrees;
}

// The Julian date of phase `k`, counted in lunations from the new moon at the beginning of 1900;
// a fraction of .25, .5 or .75 is a later phase. `quarter` counts those.
double PhaseDate(double k, int quarter) {
  const double t = k / 1236.85;
  const double t2 = t * t;
  const double t3 = t2 * t;
  const double m =
      MoonRadians(BelowTurn(359.2242 + 29.10535608 * k - 0.0000333 * t2 - 0.00000347 * t3));
  const double mm =
      MoonRadians(BelowTurn(306.0253 + 385.81691806 * k + 0.0107306 * t2 + 0.00001236 * t3));
  const double f =
      MoonRadians(BelowTurn(21.2964 + 390.67050646 * k - 0.0016528 * t2 - 0.00000239 * t3));
  double date = 2415020.75933 + 29.53058868 * k + 0.0001178 * t2 - 0.000000155 * t3 +
                0.00033 * std::sin(MoonRadians(166.56 + 132.87 * t)) - MoonRadians(0.009173) * t2;
  if (quarter % 2 == 0) {
    date += (0.1734 - 0.000393 * t) * std::sin(m) + 0.0021 * std::sin(2 * m) -
            0.4068 * std::sin(mm) + 0.0161 * std::sin(2 * mm) - 0.0004 * std::sin(3 * mm) +
            0.0104 * std::sin(2 * f) - 0.0051 * std::sin(m + mm) - 0.0074 * std::sin(m - mm) +
            0.0004 * std::sin(2 * f + m) - 0.0004 * std::sin(2 * f - m) -
            0.0006 * std::sin(2 * f + mm) + 0.001 * std::sin(2 * f - mm) +
            0.0005 * std::sin(m + 2 * mm);
  } else {
    date += (0.1721 - 0.0004 * t) * std::sin(m) + 0.0021 * std::sin(2 * m) - 0.628 * std::sin(mm) +
            0.0089 * std::sin(2 * mm) - 0.0004 * std::sin(3 * mm) + 0.0079 * std::sin(2 * f) -
            0.0119 * std::sin(m + mm) - 0.0047 * std::sin(m - mm) + 0.0003 * std::sin(2 * f + m) -
            0.0004 * std::sin(2 * f - m) - 0.0006 * std::sin(2 * f + mm) +
            0.0021 * std::sin(2 * f - mm) + 0.0003 * std::sin(m + 2 * mm) +
            0.0004 * std::sin(m - 2 * mm) - 0.0003 * std::sin(2 * m - mm);
    const double w = 0.0028 - 0.0004 * std::cos(m) + 0.0003 * std::cos(mm);
    date += quarter == 1 ? w : -w;
  }
  return date;
}

struct CalendarDate {
  int day, month, year;
};

CalendarDate DateOfJulian(double julian) {
  const double z = std::floor(julian + 0.5);
  double a = z;
  if (z >= 2299161) {
    const double century = std::floor((z - 1867216.25) / 36524.25);
    a = z + 1 + century - std::floor(century / 4);
  }
  const double b = a + 1524;
  const double c = std::floor((b - 122.1) / 365.25);
  const double d = std::floor(365.25 * c);
  const double e = std::floor((b - d) / 30.6001);
  const double month = e < 13.5 ? e - 1 : e - 13;
  return {static_cast<int>(b - d - std::floor(30.6001 * e)), static_cast<int>(month),
          static_cast<int>(month > 2.5 ? c - 4716 : c - 4715)};
}

std::string ShortMonth(int month) { return LongMonthName(month).substr(0, 3); }

}  // namespace

const char* SunEventName(SunEvent event) {
  constexpr const char* kNames[kSunEvents] = {"Astronomical twilight begins",
                                              "Nautical twilight begins",
                                              "Civil twilight begins",
                                              "Sunrise",
                                              "Sunset",
                                              "Civil twilight ends",
                                              "Nautical twilight ends",
                                              "Astronomical twilight ends"};
  return kNames[event];
}

int SunDayOfYear(int day, int month, int year) {
  const int c = year % 4 == 0 ? 1 : 2;
  return day + 275 * month / 9 - c * ((month + 9) / 12) - 30;
}

SunTimes SunCalc(double latitude, double longitude, int day, int month, int year, int zone_hours,
                 bool summer_time) {
  const double phi = kRadiansPerDegree * latitude;
  const double lambda = -kRadiansPerDegree * longitude;
  const int day_of_year = SunDayOfYear(day, month, year);
  SunTimes times;
  for (std::size_t event = 0; event < kSunEvents; ++event) {
    const bool evening = event >= kSunset;
    const double a = evening ? kThreeQuarterTurn : kQuarterTurn;
    const SunPlace sun = PlaceOfSun(day_of_year + (a + lambda) / kFullTurn);
    double hours =
        HourAngleTime(kZenithCosines[event], sun, phi, lambda, evening, times.happens[event]);
    hours -= zone_hours;
    if (hours > 24) {
      hours -= 24;
    } else if (hours < 0) {
      hours += 24;
    }
    if (summer_time) hours += 1;
    times.hours[event] = hours;
  }
  return times;
}

std::vector<SunDay> SunTable(double latitude, double longitude, int month, int year, int zone_hours,
                             bool summer_time) {
  std::vector<SunDay> table;
  for (int day = 1; day <= DaysInMonth(month, year); ++day) {
    table.push_back({ShortMonth(month) + " " + std::to_string(day),
                     SunCalc(latitude, longitude, day, month, year, zone_hours, summer_time)});
  }
  return table;
}

int DaysInMonth(int month, int year) {
  if (month < 1 || month > 12) return 0;
  for (int day = 31; day > 28; --day) {
    if (DateToDayOfYear(day, month, year) != 0) return day;
  }
  return 28;
}

std::vector<std::string> MoonLines(int month, int year) {
  if (month < 1 || month > 12) return {};
  const double middle = kMidMonth[IsLeapYear(year) ? 1 : 0][month - 1];
  const auto first = static_cast<double>(RoundToInteger((year + middle / 365.25 - 1900) * 12.3685));
  constexpr const char* kWords[] = {"NEW MOON     ", "FIRST QUARTER", "FULL MOON    ",
                                    "LAST QUARTER "};
  std::vector<std::string> lines;
  for (int quarter = 0; quarter < 4; ++quarter) {
    const double k = first + 0.25 * quarter;
    const CalendarDate date = DateOfJulian(PhaseDate(k, quarter));
    std::string line = "   " + FormatFixed(date.day, 2, 0) + " " + ShortMonth(date.month) + " " +
                       std::to_string(date.year) + "       " + kWords[quarter];
    // Before 1900 two of the words are a blank longer.
    if (k < 0 && quarter % 2 == 0) line += " ";
    lines.push_back(std::move(line));
  }
  std::stable_sort(lines.begin(), lines.end(), [](const std::string& a, const std::string& b) {
    return TextToNumber(a) < TextToNumber(b);
  });
  return lines;
}

}  // namespace skerrow
