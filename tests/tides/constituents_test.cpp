#include "tides/constituents.h"

#include <cmath>
#include <gtest/gtest.h>

#include "core/calendar.h"

namespace skerrow {
namespace {

constexpr double kDegree = M_PI / 180.0;

// Mean longitudes by the polynomials of Meeus, Astronomical Algorithms (2nd ed., chapters 22, 25
// and 47), in degrees at 0 h of a day: an origin apart from the program's yearly table.
struct Sky {
  double s, h, p, n;
};

Sky SkyAt(int day_of_month, int month, int year) {
  const double jd = JulianDate(day_of_month, month, year, 0, 0, 0);
  const double t = (jd - 2451545.0) / 36525.0;
  return {218.3164477 + 481267.88123421 * t, 280.46646 + 36000.76983 * t,
          83.3532465 + 4069.0137287 * t, 125.04452 - 1934.136261 * t};
}

double Apart(double a, double b) {
  const double d = std::fmod(std::fabs(a - b), 360.0);
  return d > 180.0 ? 360.0 - d : d;
}

// The S2 and K1 groups hang on the sun alone but for small nodal terms, the M2 and O1 groups on
// the moon. Phase and factor of each group from the sky, by adding its members as complex vectors.
struct Group {
  double x = 0.0, y = 0.0;
  void Add(double phase, double amplitude) {
    x += amplitude * std::sin(phase * kDegree);
    y += amplitude * std::cos(phase * kDegree);
  }
  double Factor() const { return std::hypot(x, y); }
  double Phase() const { return 360.0 - std::atan2(x, y) / kDegree; }
};

TEST(Constituents, AgreeWithTheSkyOverManyYears) {
  for (int year = 1985; year <= 2040; ++year) {
    for (int month = 1; month <= 12; ++month) {
      const Sky sky = SkyAt(15, month, year);
      const DayConstituents day = CalcDayConstituents(year, DateToDayOfYear(15, month, year));
      const double n = sky.n * kDegree;

      Group s2;
      s2.Add(0, 1);
      s2.Add(282.94 - sky.h, 0.05861);
      s2.Add(2 * sky.h - 17.74 * std::sin(n), 0.27215 * (1.0246 + 0.2863 * std::cos(n)));
      // The program rounds phases to whole degrees and leaves room for its own table and rates.
      EXPECT_LT(Apart(s2.Phase(), day.s2.v), 1.0) << year << "-" << month;
      EXPECT_NEAR(s2.Factor(), day.s2.f, 0.012) << year << "-" << month;

      const double u = -2.14 * std::sin(n);
      const double f = 1.0004 - 0.0373 * std::cos(n);
      Group m2;
      m2.Add(2 * sky.h - 2 * sky.s + u, f);
      m2.Add(2 * sky.h - 3 * sky.s + sky.p + 15 + u, 0.19146 * f);
      m2.Add(4 * sky.h - 3 * sky.s - sky.p + 15 + u, 0.03636 * f);
      m2.Add(4 * sky.h - 4 * sky.s + 30 + u, 0.03057 * f);
      m2.Add(2 * sky.h - 4 * sky.s + 2 * sky.p + 30 + u, 0.02534 * f);
      m2.Add(2 * sky.h - sky.s - sky.p + 165, 0.02827);
      EXPECT_LT(Apart(m2.Phase(), day.m2.v), 3.0) << year << "-" << month;
      EXPECT_NEAR(m2.Factor(), day.m2.f, 0.04) << year << "-" << month;
    }
  }
}

TEST(Constituents, YearsJoinWithoutAJump) {
  for (int year = 1985; year < 2035; ++year) {
    const DayConstituents last = CalcDayConstituents(year, DaysInYear(year) + 1);
    const DayConstituents first = CalcDayConstituents(year + 1, 1);
    EXPECT_LE(Apart(last.m2.v, first.m2.v), 1.0) << year;
    EXPECT_LE(Apart(last.k1.v, first.k1.v), 1.0) << year;
    EXPECT_LE(Apart(last.o1.v, first.o1.v), 1.0) << year;
    EXPECT_NEAR(last.m2.f, first.m2.f, 0.002) << year;
  }
}

}  // namespace
}  // namespace skerrow
