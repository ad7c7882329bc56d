#include "tides/constituents.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "core/calendar.h"
#include "core/numbers.h"
#include "core/plane_sailing.h"

namespace skerrow {
namespace {

// Mean longitudes in degrees: of the moon (s), the sun (h), the lunar perigee (p), the lunar
// ascending node (n) and the solar perigee (p1).
struct Longitudes {
  double s, h, p, n, p1;
};

constexpr int kFirstTableYear = 1991;
constexpr int kBaseYear = 1992;
constexpr std::array<Longitudes, 10> kJanuaryFirst = {{{100.91, 280.15, 77.11, 299.13, 282.78},
                                                       {230.3, 279.91, 117.78, 279.8, 282.8},
                                                       {12.86, 280.66, 158.55, 260.42, 282.82},
                                                       {142.24, 280.42, 199.21, 241.09, 282.84},
                                                       {271.63, 280.18, 239.87, 221.76, 282.85},
                                                       {41.01, 279.94, 280.54, 202.44, 282.87},
                                                       {183.57, 280.69, 321.31, 183.06, 282.89},
                                                       {312.96, 280.45, 1.97, 163.73, 282.9},
                                                       {82.34, 280.21, 42.64, 144.4, 282.92},
                                                       {211.73, 279.97, 83.3, 125.07, 282.94}}};
// Degrees a day.
constexpr Longitudes kRate = {13.176396, 0.985647, 0.111404, -0.052954, 0.000047};

double InCircle(double degrees) {
  const double rest = std::fmod(degrees, 360.0);
  return rest < 0.0 ? rest + 360.0 : rest;
}

Longitudes Advanced(const Longitudes& from, double days) {
  return {from.s + days * kRate.s, from.h + days * kRate.h, from.p + days * kRate.p,
          from.n + days * kRate.n, from.p1 + days * kRate.p1};
}

Longitudes InCircle(const Longitudes& l) {
  return {InCircle(l.s), InCircle(l.h), InCircle(l.p), InCircle(l.n), InCircle(l.p1)};
}

Longitudes AtJanuaryFirst(int year) {
  if (year >= kFirstTableYear && year < kFirstTableYear + static_cast<int>(kJanuaryFirst.size())) {
    return kJanuaryFirst[static_cast<std::size_t>(year - kFirstTableYear)];
  }
  Longitudes l = kJanuaryFirst[kBaseYear - kFirstTableYear];
  for (int y = kBaseYear; y < year; ++y) l = InCircle(Advanced(l, DaysInYear(y)));
  for (int y = kBaseYear - 1; y >= year; --y) l = InCircle(Advanced(l, -DaysInYear(y)));
  return l;
}

// Nodal corrections: u in degrees, f as factors.
struct NodalTerms {
  double u_m2, u_o1, u_k1, u_j1, u_k2, u_l2;
  double f_m2, f_o1, f_k1, f_j1, f_k2, f_l2;
};

NodalTerms NodalTermsFor(double n_deg, double p_deg) {
  const double n = n_deg * kPi / 180.0;
  const auto sin_n = [n](int k) { return std::sin(k * n); };
  const auto cos_n = [n](int k) { return std::cos(k * n); };
  NodalTerms t{};
  t.u_m2 = -2.14 * sin_n(1);
  t.u_o1 = 10.8 * sin_n(1) - 1.34 * sin_n(2) + 0.19 * sin_n(3);
  t.u_k1 = -8.86 * sin_n(1) + 0.68 * sin_n(2) - 0.07 * sin_n(3);
  t.u_j1 = -12.94 * sin_n(1) + 1.34 * sin_n(2) - 0.19 * sin_n(3);
  t.u_k2 = -17.74 * sin_n(1) + 0.68 * sin_n(2) - 0.04 * sin_n(3);
  t.f_m2 = 1.0004 - 0.0373 * cos_n(1) + 0.0002 * cos_n(2);
  t.f_o1 = 1.0089 + 0.1871 * cos_n(1) - 0.0147 * cos_n(2) + 0.0014 * cos_n(3);
  t.f_k1 = 1.006 + 0.115 * cos_n(1) - 0.0088 * cos_n(2) + 0.0006 * cos_n(3);
  t.f_j1 = 1.0129 + 0.1676 * cos_n(1) - 0.017 * cos_n(2) + 0.0016 * cos_n(3);
  t.f_k2 = 1.0246 + 0.2863 * cos_n(1) + 0.0083 * cos_n(2) - 0.0015 * cos_n(3);

  const double a = DegToRad(static_cast<float>(InCircle(2 * p_deg)));
  const double b = DegToRad(static_cast<float>(InCircle(2 * p_deg - n_deg)));
  const double c = DegToRad(static_cast<float>(InCircle(2 * p_deg - 2 * n_deg)));
  const double big_p =
      -0.25 * std::sin(a) - 0.1102 * std::sin(b) - 0.0156 * std::sin(c) - 0.037 * sin_n(1);
  const double big_q =
      1 - 0.25 * std::cos(a) - 0.1102 * std::cos(b) - 0.0156 * std::cos(c) - 0.037 * cos_n(1);
  t.u_l2 = VectorDirection(static_cast<float>(big_p), static_cast<float>(big_q));
  // P / sin u is the length of (P, Q); where P is 0 the length is that of Q alone.
  const double sin_u = std::sin(t.u_l2 * kPi / 180.0);
  t.f_l2 = big_p == 0.0 || sin_u == 0.0 ? std::fabs(big_q) : big_p / sin_u;
  return t;
}

struct Member {
  double phase;
  double amplitude;
};

GroupValue SumOf(std::span<const Member> members) {
  double x = 0.0;
  double y = 0.0;
  for (const Member& member : members) {
    const EastNorth parts = Resolve(NormaliseAngle(static_cast<float>(member.phase)),
                                    static_cast<float>(member.amplitude));
    x += parts.east;
    y += parts.north;
  }
  const Polar sum = VectorToPolar(static_cast<float>(x), static_cast<float>(y));
  const auto v = static_cast<float>(RoundToInteger(360.0 - sum.direction));
  return {NormaliseAngle(v), sum.length};
}

}  // namespace

DayConstituents CalcDayConstituents(int year, int day) {
  const Longitudes l = Advanced(AtJanuaryFirst(year), day - 1);
  const double s = NormaliseAngle(static_cast<float>(l.s));
  const double h = NormaliseAngle(static_cast<float>(l.h));
  const double p = NormaliseAngle(static_cast<float>(l.p));
  const double n = NormaliseAngle(static_cast<float>(l.n));
  const double p1 = l.p1;
  const NodalTerms t = NodalTermsFor(n, p);

  // MU2 and SIGMA1, NU2 and RHO1 differ in their last digit between the two groups.
  const std::array<Member, 7> m2 = {{{2 * h - 4 * s + 2 * p + 30 + t.u_m2, 0.02534 * t.f_m2},
                                     {4 * h - 4 * s + 30 + t.u_m2, 0.03057 * t.f_m2},
                                     {2 * h - 3 * s + p + 15 + t.u_m2, 0.19146 * t.f_m2},
                                     {4 * h - 3 * s - p + 15 + t.u_m2, 0.03636 * t.f_m2},
                                     {2 * h - 2 * s + t.u_m2, t.f_m2},
                                     {-s + p + 180 - 15 + t.u_m2, 0.00738 * t.f_m2},
                                     {2 * h - s - p + 180 - 15 + t.u_l2, 0.02827 * t.f_l2}}};
  const std::array<Member, 3> s2 = {
      {{-h + p1, 0.05861}, {0.0, 1.0}, {2 * h + t.u_k2, 0.27215 * t.f_k2}}};
  const std::array<Member, 5> k1 = {{{-2 * h + p1 - 90, 0.01939},
                                     {-h - 90, 0.33093},
                                     {h + 90 + t.u_k1, t.f_k1},
                                     {3 * h + 90, 0.01424},
                                     {h + s - p + 90 + t.u_j1, 0.05591 * t.f_j1}}};
  const std::array<Member, 5> o1 = {{{h - 4 * s + 2 * p - 90 + t.u_o1, 0.02534 * t.f_o1},
                                     {3 * h - 4 * s - 90 + t.u_o1, 0.03056 * t.f_o1},
                                     {h - 3 * s + p - 90 + t.u_o1, 0.1946 * t.f_o1},
                                     {3 * h - 3 * s - p - 90 + t.u_o1, 0.03637 * t.f_o1},
                                     {h - 2 * s - 90 + t.u_o1, t.f_o1}}};
  return {SumOf(m2), SumOf(s2), SumOf(k1), SumOf(o1)};
}

GroupLine LineOf(float g, const GroupValue& before, const GroupValue& at, double least_turn) {
  double turn = static_cast<double>(before.v) - at.v;
  while (turn <= least_turn) turn += 360.0;
  return {static_cast<double>(g) + before.v, static_cast<float>(turn / 24.0), before.f,
          static_cast<float>((static_cast<double>(at.f) - before.f) / 24.0)};
}

}  // namespace skerrow
