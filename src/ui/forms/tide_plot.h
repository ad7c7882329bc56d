#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "tides/tide_screen.h"
#include "ui/plot/plot.h"

// The pictures of the tide screen: a day's curve, and its terms one by one.
namespace skerrow {

// The terms of the constituents view in the order of their check boxes.
inline constexpr std::size_t kTideTerms = 7;
using TideTermsShown = std::array<bool, kTideTerms>;

// How a term is named and drawn.
struct TideTermLook {
  const char* name;  // "M2"
  std::int32_t colour;
  bool dots;
};
const TideTermLook& LookOfTerm(std::size_t term);

// The curve from 0 to 24 hours between the day's scale: the told lines and labels, the dotted curve
// of option 3, the sun's marks, the night's ground, and the high and low waters.
Plot TideDayPlot(const TideScreen& screen);

// The terms that are shown. The scale is that of all of them, by the rule of the curve's, so that a
// term that swings below the lowest water is seen whole, and none moves when another is switched.
Plot TideTermsPlot(const TideScreen& screen, const TideTermsShown& shown);

// The nights of a day as stretches of hours within 0 .. 24: between sunset and sunrise, or the
// whole day where the sun does not rise. Nothing where it does not set.
std::vector<PlotBand> NightsOf(const TideScreen& screen);

// The height on the drawn line at a time, metres.
double HeightOnLine(const TideCurve& tide, double hours);

// What moves over the curve.
struct TideCursors {
  double time = 0.0;            // ScreenHours
  bool today = false;           // the time is the present moment
  std::optional<double> mouse;  // hours, where the mouse or the keys are on the curve
  bool terms = false;           // over the constituents
};

// The time cursor, and the red line of the mouse, for which a time cursor that is not the present
// moment makes room.
std::vector<PlotCursor> CursorsOf(const TideScreen& screen, const TideCursors& cursors);

}  // namespace skerrow
