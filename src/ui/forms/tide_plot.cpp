#include "ui/forms/tide_plot.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "core/calendar.h"
#include "core/numbers.h"

namespace skerrow {
namespace {

constexpr double kDayHours = 24.0;
constexpr int kHoursApart = 3;
constexpr double kLabelLeftPt = 10.0;  // 200 twentieths of a point
constexpr double kWordsHours = 1.5;
constexpr std::int32_t kBlack = 0x000000;
constexpr std::int32_t kRed = 0x0000FF;
constexpr std::int32_t kBlue = 0xA85F1A;
constexpr std::int32_t kShade = 0x6E6258;  // beneath a line too light for paper
// Solid black lines would outweigh the curve; dotted ones are as black and let it stand out.
constexpr LineStyle kTold = LineStyle::kDot;

constexpr TideTermLook kTerms[kTideTerms] = {
    {"M2", 0xFF0000, false}, {"S2", 0x0000FF, false}, {"K1", kBlack, true},
    {"O1", 0x00FFFF, false}, {"F4", 0x00FF00, false}, {"F6", 0xFF00FF, false},
    {"Z0", 0x0000FF, true},
};

const std::vector<CurvePoint>& TermOf(const TideCurve& tide, std::size_t term) {
  const std::vector<CurvePoint>* layers[kTideTerms] = {
      &tide.layer_m2, &tide.layer_s2, &tide.layer_k1, &tide.layer_o1,
      &tide.layer_f4, &tide.layer_f6, &tide.layer_z0};
  return *layers[term];
}

std::vector<DataPoint> PointsOf(std::span<const CurvePoint> curve, double less = 0.0) {
  std::vector<DataPoint> points;
  points.reserve(curve.size());
  for (const CurvePoint& point : curve) points.push_back({point.hours, point.height - less});
  return points;
}

// The hours under the area, every third with its line and label.
PlotAxis HourAxis() {
  PlotAxis axis{0.0, kDayHours, {}};
  for (int hour = 1; hour < kDayHours; ++hour) {
    if (hour % kHoursApart != 0) axis.ticks.push_back({static_cast<double>(hour), {}});
  }
  for (int hour = kHoursApart; hour < kDayHours; hour += kHoursApart) {
    std::string label = HoursToClock(static_cast<float>(hour));
    if (hour + kHoursApart >= kDayHours) label += " Hours";
    axis.ticks.push_back(
        {static_cast<double>(hour), std::move(label), true, kBlack, kTold, kLabelLeftPt});
  }
  return axis;
}

// The whole metres from `first` to the top, half metres between them where there is room. Those
// below -1 are lighter. `unit` stands behind the topmost.
PlotAxis MetreAxis(double bottom, double top, const char* unit) {
  constexpr double kMostHalves = 8.0;
  constexpr int kMostMetres = 40;  // of a real tide; a damaged record may ask for any number
  PlotAxis axis{bottom, top, {}};
  const double range = top - bottom;
  if (!std::isfinite(range)) return axis;
  const double step = range <= kMostMetres ? 1.0 : NiceStep(range, kMostMetres / 2);
  if (range <= kMostHalves) {
    for (double half = std::ceil(bottom) - 0.5; half < top; half += 1.0) {
      axis.ticks.push_back({half, {}});
    }
  }
  const int steps = static_cast<int>(std::floor(range / step));
  for (int i = 0; i <= steps; ++i) {
    const double metre = top - i * step;
    std::string label = FormatFixed(metre, 1, 0) + (i == 0 ? unit : "");
    const bool told = metre >= -1.0;
    axis.ticks.push_back({metre, std::move(label), true, told ? kBlack : plot_colours::kGrid,
                          told ? kTold : LineStyle::kSolid});
  }
  return axis;
}

// Whether the sun stays above the horizon on a day on which it neither rises nor sets.
bool SunStaysUp(const TideScreen& screen) {
  const bool northern_summer = screen.month_date.month >= 4 && screen.month_date.month <= 9;
  // In the months about midwinter it can be dark all day only where the sun is on the other side.
  return (screen.port.latitude > 0) == northern_summer;
}

double OnTheClock(double hours) {
  const double turned = std::fmod(hours, kDayHours);
  return turned < 0 ? turned + kDayHours : turned;
}

void AddSun(const TideScreen& screen, Plot& plot) {
  plot.bands = NightsOf(screen);
  const auto mark = [&](SunEvent event, const char* words) {
    if (!screen.sun.happens[event]) return;
    const double hours = OnTheClock(screen.sun.hours[event]);
    plot.marks.push_back({true, hours, plot_colours::kGrey, true, words, hours - kWordsHours});
  };
  mark(kSunrise, "Sunrise");
  mark(kSunset, "Sunset");
}

}  // namespace

const TideTermLook& LookOfTerm(std::size_t term) { return kTerms[term]; }

std::vector<PlotBand> NightsOf(const TideScreen& screen) {
  if (!screen.sun.happens[kSunrise] || !screen.sun.happens[kSunset]) {
    if (SunStaysUp(screen)) return {};
    return {{0.0, kDayHours}};
  }
  const double rise = OnTheClock(screen.sun.hours[kSunrise]);
  const double set = OnTheClock(screen.sun.hours[kSunset]);
  if (set < rise) return {{set, rise}};
  return {{0.0, rise}, {set, kDayHours}};
}

Plot TideDayPlot(const TideScreen& screen) {
  const std::span<const CurvePoint> curve = screen.tide.curve;
  Plot plot;
  plot.tags = true;
  plot.x = HourAxis();
  plot.y = MetreAxis(screen.plot_bottom, screen.plot_top, "M");
  AddSun(screen, plot);
  plot.series.push_back({PointsOf(curve.first(kCurveCount - 1)), kBlack, 2});
  plot.series.back().fill_to = screen.plot_bottom;
  if (screen.display.option == 3) {
    plot.series.push_back(
        {PointsOf(curve.first(kCurveCount), screen.Allowance()), kBlack, 2, true});
  }
  for (const Water& water : screen.tide.waters) {
    plot.spots.push_back({{water.hours, water.height},
                          HoursToClock(water.hours) + "\n" + FormatFixed(water.height, 1, 1) + " m",
                          water.high,
                          kBlue});
  }
  plot.captions = {{DepthCaption(screen.display)},
                   {TimeBasisText(screen.display.summer_time), AlignX::kRight}};
  return plot;
}

Plot TideTermsPlot(const TideScreen& screen, const TideTermsShown& shown) {
  double least = 0.0;
  double most = 0.0;
  for (std::size_t term = 0; term < kTideTerms; ++term) {
    for (const CurvePoint& point : std::span(TermOf(screen.tide, term)).first(kCurveCount - 1)) {
      least = std::min(least, static_cast<double>(point.height));
      most = std::max(most, static_cast<double>(point.height));
    }
  }
  Plot plot;
  plot.tags = true;
  plot.x = HourAxis();
  plot.y = MetreAxis(TidePlotBottom(static_cast<float>(least)), WholePart(most) + 1, " Metres");
  AddSun(screen, plot);
  for (std::size_t term = 0; term < kTideTerms; ++term) {
    if (!shown[term]) continue;
    const TideTermLook& look = kTerms[term];
    std::vector<DataPoint> points =
        PointsOf(std::span(TermOf(screen.tide, term)).first(kCurveCount - 1));
    constexpr std::int32_t kYellow = 0x00FFFF;
    if (look.colour == kYellow) plot.series.push_back({points, kShade, 4});
    plot.series.push_back({std::move(points), look.colour, look.dots ? 3 : 2, look.dots});
  }
  plot.captions = {{"Constituents"}, {TimeBasisText(screen.display.summer_time), AlignX::kRight}};
  return plot;
}

double HeightOnLine(const TideCurve& tide, double hours) {
  const std::size_t index = CurveIndex(hours);
  const CurvePoint& here = tide.curve[index];
  const CurvePoint& next = tide.curve[index + 1];
  if (next.hours <= here.hours) return here.height;
  const double share = std::clamp((hours - here.hours) / (next.hours - here.hours), 0.0, 1.0);
  return here.height + share * (static_cast<double>(next.height) - here.height);
}

std::vector<PlotCursor> CursorsOf(const TideScreen& screen, const TideCursors& cursors) {
  const auto dot = [&](double hours) -> std::optional<double> {
    if (cursors.terms) return std::nullopt;
    return HeightOnLine(screen.tide, hours);
  };
  const auto clock = [](double hours) { return HoursToClock(static_cast<float>(hours)); };
  std::vector<PlotCursor> lines;
  if (!cursors.mouse || cursors.today) {
    lines.push_back({cursors.time, kBlack, 1, false, dot(cursors.time),
                     cursors.today ? "Now" : clock(cursors.time)});
  }
  if (cursors.mouse) {
    lines.push_back({*cursors.mouse, kRed, 1, false, dot(*cursors.mouse), clock(*cursors.mouse)});
  }
  return lines;
}

}  // namespace skerrow
