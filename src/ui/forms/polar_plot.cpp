#include "ui/forms/polar_plot.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"

namespace skerrow {
namespace {

// The told colours as paper shows them: yellow strong enough to be seen in the sun, and white with
// a rim.
constexpr std::int32_t kRed = 0x2A1FC8;
constexpr std::int32_t kYellow = 0x0099CC;
constexpr std::int32_t kBlue = 0xC06018;
constexpr std::int32_t kMauve = 0xA83A98;
constexpr std::int32_t kWhite = 0xFFFFFF;
constexpr std::int32_t kEstimate = 0x1E1E1E;

constexpr int kMostTicks = 8;
constexpr int kDotSize = 7;
constexpr double kLeastRim = 2.0;  // knots

double RimOf(double fastest) {
  const double top = std::max(fastest, kLeastRim);
  const double step = NiceStep(top, kMostTicks);
  return std::ceil(top / step - 1e-9) * step;
}

double Fastest(const PolarRows& rows) {
  double fastest = 0.0;
  for (std::size_t option = 0; option < kPolarCurves; ++option) {
    fastest = std::max(fastest, PolarCurveOf(rows, ColumnOfOption(option)).fastest);
  }
  return fastest;
}

PlotAxis SpeedAxis(double fastest) {
  PlotAxis axis;
  axis.to = RimOf(fastest);
  const double step = NiceStep(axis.to, kMostTicks);
  for (int i = 0; i * step <= axis.to * (1.0 + 1e-9); ++i) {
    axis.ticks.push_back({i * step, FormatFixed(i * step, 1, step < 1.0 ? 1 : 0)});
  }
  return axis;
}

// A line with its dots, and as much of a rim as the paper asks for.
void AddSeries(Plot& plot, const std::vector<DataPoint>& points, const WindOption& look) {
  if (look.cased) plot.series.push_back({points, plot_colours::kGrey, 4});
  plot.series.push_back({points, look.colour, 2});
  plot.series.push_back({points, look.cased ? plot_colours::kGrey : look.colour, kDotSize, true});
}

// The boat's speed on a curve at an angle; empty beyond its ends.
std::optional<double> SpeedAt(const PolarCurve& curve, double angle) {
  const auto above =
      std::find_if(curve.points.begin(), curve.points.end(),
                   [angle](const PolarPoint& point) { return point.angle >= angle - 1e-9; });
  if (above == curve.points.end()) return std::nullopt;
  if (std::abs(above->angle - angle) <= 1e-9) return above->speed;
  if (above == curve.points.begin()) return std::nullopt;
  const auto below = std::prev(above);
  const double part = (angle - below->angle) / (above->angle - below->angle);
  return below->speed + (above->speed - below->speed) * part;
}

}  // namespace

const std::array<WindOption, kPolarCurves> kWindOptions = {{
    {"2Kn Wind (Red on Polar)", kRed, false},
    {"4Kn Wind (Yellow)", kYellow, false},
    {"6kn (Blue)", kBlue, false},
    {"8kn (Mauve)", kMauve, false},
    {"10kn (White)", kWhite, true},
    {"12kn (Red)", kRed, false},
    {"14Kn (Yellow)", kYellow, false},
    {"16kn (Blue)", kBlue, false},
    {"18kn (Mauve)", kMauve, false},
    {"20kn (White)", kWhite, true},
    {"22kn (Red)", kRed, false},
    {"24kn (Yellow)", kYellow, false},
    {"26kn (Blue)", kBlue, false},
    {"28kn (Mauve)", kMauve, false},
    {"30kn (White)", kWhite, true},
}};

std::size_t OptionOfWind(double wind) {
  constexpr auto kLast = static_cast<std::int64_t>(kPolarCurves);
  return static_cast<std::size_t>(std::clamp<std::int64_t>(RoundToInteger(wind / 2.0), 1, kLast) -
                                  1);
}

PolarDiagram BoatPolar(const PolarRows& rows, std::optional<std::size_t> option,
                       const std::optional<PolarEstimate>& estimate) {
  PolarDiagram diagram;
  diagram.rim = RimOf(Fastest(rows));
  diagram.unit = "kn";
  diagram.caption = "True Wind Angle";
  diagram.labels = "Wind, kn";
  const auto add = [&](std::size_t i, int width) {
    PolarLine line;
    for (const PolarPoint& point : PolarCurveOf(rows, ColumnOfOption(i)).points) {
      line.places.push_back({point.angle, point.speed});
    }
    line.colour = kWindOptions[i].colour;
    line.cased = kWindOptions[i].cased;
    line.width = width;
    line.label = std::to_string(WindOfOption(i));
    diagram.lines.push_back(std::move(line));
  };
  for (std::size_t i = 0; i < kPolarCurves; ++i) {
    if (i != option) add(i, 1);
  }
  if (option) add(*option, 3);
  if (estimate) {
    diagram.marks.push_back(
        {{estimate->angle, TextToNumber(estimate->speed)}, kEstimate, estimate->speed + "kn"});
  }
  return diagram;
}

Plot SpeedByAngle(const PolarRows& rows, std::size_t option) {
  Plot plot;
  plot.x = {0.0, kLastPolarAngle, {}};
  for (int angle = 0; angle <= kLastPolarAngle; angle += 30) {
    plot.x.ticks.push_back({static_cast<double>(angle), std::to_string(angle) + "\u00b0"});
  }
  const PolarCurve curve = PolarCurveOf(rows, ColumnOfOption(option));
  plot.y = SpeedAxis(curve.fastest);
  std::vector<DataPoint> points;
  for (const PolarPoint& point : curve.points) points.push_back({point.angle, point.speed});
  AddSeries(plot, points, kWindOptions[option]);
  plot.captions = {{"Boat speed, kn", AlignX::kLeft},
                   {"Wind " + std::to_string(WindOfOption(option)) + "kn", AlignX::kCentre, true},
                   {"True wind angle", AlignX::kRight}};
  return plot;
}

Plot SpeedByWind(const PolarRows& rows, int angle) {
  Plot plot;
  plot.x = {0.0, 30.0, {}};
  for (int wind = 0; wind <= 30; wind += 2) {
    plot.x.ticks.push_back({static_cast<double>(wind), std::to_string(wind)});
  }
  std::vector<DataPoint> points;
  double fastest = 0.0;
  for (std::size_t option = 0; option < kPolarCurves; ++option) {
    const auto speed = SpeedAt(PolarCurveOf(rows, ColumnOfOption(option)), angle);
    if (!speed) continue;
    points.push_back({static_cast<double>(WindOfOption(option)), *speed});
    fastest = std::max(fastest, *speed);
  }
  plot.y = SpeedAxis(fastest);
  AddSeries(plot, points, {"", kBlue, false});
  plot.captions = {{"Boat speed, kn", AlignX::kLeft},
                   {"Angle " + std::to_string(angle) + "\u00b0", AlignX::kCentre, true},
                   {"Wind, kn", AlignX::kRight}};
  return plot;
}

std::optional<PolarReadout> ReadPolar(const PolarRows& rows, PolarPlace place,
                                      std::optional<std::size_t> option) {
  std::optional<PolarReadout> nearest;
  double least = 0.0;
  for (std::size_t i = option.value_or(0); i < (option ? *option + 1 : kPolarCurves); ++i) {
    const auto speed = SpeedAt(PolarCurveOf(rows, ColumnOfOption(i)), place.angle);
    if (!speed) continue;
    const double off = std::abs(*speed - place.value);
    if (nearest && off >= least) continue;
    least = off;
    nearest = PolarReadout{i, {place.angle, *speed}, "", ""};
  }
  if (!nearest) return std::nullopt;
  nearest->cursor = "Wind " + std::to_string(WindOfOption(nearest->option)) + "kn, boat speed " +
                    FormatFixed(nearest->at.value, 1, 1) + "kn";
  nearest->angle = "True wind angle " + FormatFixed(place.angle, 3, 0) + "\u00b0";
  return nearest;
}

int NearestPolarAngle(double angle) {
  const auto nearest = static_cast<int>(RoundToInteger(angle / kPolarAngleStep)) * kPolarAngleStep;
  return std::clamp(nearest, kFirstPolarAngle, kLastPolarAngle);
}

}  // namespace skerrow
