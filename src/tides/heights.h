#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "tides/constituents.h"
#include "tides/port.h"

// Tide heights at 10-minute steps by the simplified harmonic method: each constituent stands for
// a group whose amplitude factor and phase run linearly from one midnight to the next.
namespace skerrow {

// The terms of a height, metres; their sum in the order of Height() is the height.
struct HeightTerms {
  float m2 = 0.0F, s2 = 0.0F, k1 = 0.0F, o1 = 0.0F;
  float f4 = 0.0F, f6 = 0.0F;
  float z0 = 0.0F;
  float height = 0.0F;
};

// The M2 amplitude and the mean level that a day is computed with.
struct SeasonalValues {
  float m2_amplitude = 0.0F;
  float mean_level = 0.0F;
};

// By day of the year, the months having the lengths of a common year in every year; a day outside
// 0 .. 366 takes the port's yearly values.
SeasonalValues SeasonByDay(const Port& port, int day);

// By month, 1 .. 12; outside, the port's yearly values.
SeasonalValues SeasonByMonth(const Port& port, int month);

// The height of one port as a function of the time since 0 h of the day before a given day. Sample
// i (from 1) lies (i - 1) / 6 hours after that.
class HeightCurve {
 public:
  // `before` and `at` are the groups at 0 h of the day before and of the day itself.
  HeightCurve(const Port& port, const SeasonalValues& season, const DayConstituents& before,
              const DayConstituents& at);
  HeightTerms Sample(int i) const;

 private:
  struct Line {
    GroupLine group;
    double amplitude;
  };
  Line m2_, s2_, k1_, o1_;
  float lf4_, sf4_, lf6_, sf6_, mean_level_;
};

// The first sample of the day itself in a HeightCurve: 24 hours after its start, or 23 with summer
// time, when the clock runs an hour ahead.
constexpr int FirstSampleOfDay(bool summer_time) { return summer_time ? 139 : 145; }

// Entries of a port's day: entry n (from 0 here) is n / 6 hours after midnight on the clock.
inline constexpr int kPortDayEntries = 148;

// The heights of a day of a port, kPortDayEntries of them, metres above chart datum.
std::vector<float> PredictPortDay(const Port& port, int year, int day, bool summer_time);

// As above with the groups given, for callers that predict many ports.
std::vector<float> PredictPortDay(const Port& port, int day, bool summer_time,
                                  const DayConstituents& before, const DayConstituents& at);

// A high or low water.
struct Water {
  bool high = false;
  float hours = 0.0F;
  float height = 0.0F;
};

// The largest number of high and low waters that a day's table has room for. A real tide has at
// most four or five; further ones are left out.
inline constexpr std::size_t kMaxWaters = 15;

// One point of a curve: decimal hours of the clock and metres.
struct CurvePoint {
  float hours = 0.0F;
  float height = 0.0F;
};

// One day of the selected port with the contribution of each term.
struct TideCurve {
  std::vector<CurvePoint> curve;  // kCurveCount entries are drawn; one or more stand behind them
  std::vector<CurvePoint> layer_m2, layer_s2, layer_k1, layer_o1, layer_f4, layer_f6, layer_z0;
  float mean_level = 0.0F;
  std::vector<Water> waters;
  float range = 0.0F;  // highest less lowest height of the day, metres
};
inline constexpr int kCurveCount = 147;

// The curve of `day` of the year for a port; `month` and `year` are those of the selected time.
TideCurve PredictHeights(const Port& port, int day, int month, int year, bool summer_time);

}  // namespace skerrow
