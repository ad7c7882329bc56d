#include "tides/heights.h"

#include <algorithm>
#include <cmath>

#include "core/plane_sailing.h"

namespace skerrow {
namespace {

// The last day of each month for every year, leap or not.
constexpr std::array<int, 12> kMonthEnds = {31,  59,  90,  120, 151, 182,
                                            212, 243, 273, 304, 334, 366};

}  // namespace

SeasonalValues SeasonByDay(const Port& port, int day) {
  if (day < 0 || day > kMonthEnds.back()) return SeasonByMonth(port, 0);
  const auto end = std::lower_bound(kMonthEnds.begin(), kMonthEnds.end(), day);
  return SeasonByMonth(port, static_cast<int>(end - kMonthEnds.begin()) + 1);
}

SeasonalValues SeasonByMonth(const Port& port, int month) {
  if (month < 1 || month > 12) return {port.m2_hm, port.z0};
  const auto i = static_cast<std::size_t>(month - 1);
  return {port.mhm2[i], port.z0 + port.delta_z0[i]};
}

HeightCurve::HeightCurve(const Port& port, const SeasonalValues& season,
                         const DayConstituents& before, const DayConstituents& at)
    : m2_{LineOf(port.m2_g, before.m2, at.m2, kSemidiurnalTurn), season.m2_amplitude},
      s2_{LineOf(port.s2_g, before.s2, at.s2, kSemidiurnalTurn), port.s2_hm},
      k1_{LineOf(port.k1_g, before.k1, at.k1, kDiurnalTurn), port.k1_hm},
      o1_{LineOf(port.o1_g, before.o1, at.o1, kDiurnalTurn), port.o1_hm},
      lf4_(port.lf4),
      sf4_(port.sf4),
      lf6_(port.lf6),
      sf6_(port.sf6),
      mean_level_(season.mean_level) {}

HeightTerms HeightCurve::Sample(int i) const {
  const double t = static_cast<float>((i - 1) / 6.0);
  struct Vector {
    double x, y;
  };
  const auto vector = [t](const Line& line) {
    const double amplitude = line.group.Factor(t) * line.amplitude;
    const double angle = line.group.Degrees(t) * kRadiansPerDegree;
    return Vector{amplitude * std::sin(angle), amplitude * std::cos(angle)};
  };
  const Vector m2 = vector(m2_);
  const Vector s2 = vector(s2_);
  const double k1 = vector(k1_).y;
  const double o1 = vector(o1_).y;
  const double y = m2.y + s2.y;
  const Polar semi = VectorToPolar(static_cast<float>(m2.x + s2.x), static_cast<float>(y));
  const double r = semi.length;
  const double a = semi.direction;
  const double f4 = r * r * lf4_ * std::cos((2 * a + sf4_) * kRadiansPerDegree);
  const double f6 = r * r * r * lf6_ * std::cos((3 * a + sf6_) * kRadiansPerDegree);
  HeightTerms terms;
  terms.m2 = static_cast<float>(m2.y);
  terms.s2 = static_cast<float>(s2.y);
  terms.k1 = static_cast<float>(k1);
  terms.o1 = static_cast<float>(o1);
  terms.f4 = static_cast<float>(f4);
  terms.f6 = static_cast<float>(f6);
  terms.z0 = mean_level_;
  terms.height = static_cast<float>(o1 + k1 + y + mean_level_ + f4 + f6);
  return terms;
}

std::vector<float> PredictPortDay(const Port& port, int year, int day, bool summer_time) {
  return PredictPortDay(port, day, summer_time, CalcDayConstituents(year, day - 1),
                        CalcDayConstituents(year, day));
}

std::vector<float> PredictPortDay(const Port& port, int day, bool summer_time,
                                  const DayConstituents& before, const DayConstituents& at) {
  const HeightCurve curve(port, SeasonByDay(port, day), before, at);
  std::vector<float> heights(kPortDayEntries);
  for (int n = 0; n < kPortDayEntries; ++n) {
    heights[static_cast<std::size_t>(n)] = curve.Sample(FirstSampleOfDay(summer_time) + n).height;
  }
  return heights;
}

TideCurve PredictHeights(const Port& port, int day, int month, int year, bool summer_time) {
  const SeasonalValues season = SeasonByMonth(port, month);
  const HeightCurve heights(port, season, CalcDayConstituents(year, day - 1),
                            CalcDayConstituents(year, day));
  TideCurve result;
  result.mean_level = season.mean_level;
  constexpr int kLastSample = 292;
  for (int i = FirstSampleOfDay(summer_time); i <= kLastSample; ++i) {
    const HeightTerms terms = heights.Sample(i);
    const auto hours = static_cast<float>(static_cast<double>(result.curve.size()) / 6.0);
    result.curve.push_back({hours, terms.height});
    result.layer_m2.push_back({hours, terms.m2});
    result.layer_s2.push_back({hours, terms.s2});
    result.layer_k1.push_back({hours, terms.k1});
    result.layer_o1.push_back({hours, terms.o1});
    result.layer_f4.push_back({hours, terms.f4});
    result.layer_f6.push_back({hours, terms.f6});
    result.layer_z0.push_back({hours, terms.z0});
  }
  const auto h = [&](std::size_t entry) { return result.curve[entry - 1].height; };
  for (std::size_t i = 1; i <= 144 && result.waters.size() < kMaxWaters; ++i) {
    const bool low = h(i) > h(i + 1) && h(i + 1) < h(i + 2);
    const bool high = h(i) < h(i + 1) && h(i + 1) > h(i + 2);
    if (low || high) result.waters.push_back({high, result.curve[i].hours, h(i + 1)});
  }
  const auto [lowest, highest] = std::minmax_element(
      result.curve.begin(), result.curve.begin() + 145,
      [](const CurvePoint& a, const CurvePoint& b) { return a.height < b.height; });
  result.range = highest->height - lowest->height;
  return result;
}

}  // namespace skerrow
