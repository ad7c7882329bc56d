#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "app/program.h"
#include "passage/optimum.h"

// The bar chart of a departure search: what stands where, without the drawing.
namespace skerrow {

// The chart of `times`, the passage times in hours of the departures from `start_hour` on; one that
// is no number has been left out of the search and has no bar. Its x
// runs from 0 to the number of departures, one unit each; behind the last one the spare entry has
// its place on the axis and a bar of no height.
class OptimumChart {
 public:
  OptimumChart(std::vector<float> times, float start_hour);

  const std::vector<float>& times() const { return times_; }
  bool empty() const { return times_.empty(); }
  OptimumExtremes extremes() const { return extremes_; }
  float longest() const { return empty() ? 0.0F : times_[extremes_.longest]; }
  float shortest() const { return empty() ? 0.0F : times_[extremes_.shortest]; }

  // The height of the chart in hours: a quarter more than the longest time.
  float Top() const { return 1.25F * longest(); }

  // Labels of the hour axis, "06:00": every third hour from nine entries on, the spare one counted.
  struct HourLabel {
    std::size_t index = 0;
    std::string text;
  };
  std::vector<HourLabel> HourLabels() const;

  // "12Hrs 30Min  (Max. time) " and "11Hrs 06Min  (Min. time)".
  std::string LongestLabel() const;
  std::string ShortestLabel() const;

  // The left edge of a label of `label_width` for bar `index` in a chart `width` wide: behind the
  // bar where it fits there, or else in front of it, and always inside the chart.
  double LabelLeft(std::size_t index, double label_width, double width) const;

  // The bar under a place of the chart; empty beside the bars.
  std::optional<std::size_t> BarAt(double x, double width) const;

  // "Time taken 12Hrs 30Min  departing at 06:00", or that the departure has been left out.
  std::string HoverText(std::size_t index) const;

  // The departure of a bar, hours of the day.
  float DepartureHours(std::size_t index) const { return start_hour_ + static_cast<float>(index); }

 private:
  std::vector<float> times_;
  float start_hour_;
  OptimumExtremes extremes_;
};

// Gives the legs of the route the speeds that departure `index` of the search was calculated with,
// where they were not the route's own. False where that is nothing: a search by the route's own
// speeds, a departure left out, another route.
bool TakeDepartureSpeeds(const PassageState& passage, std::size_t index, RouteState& route);

// Makes the departure of a bar the selected time; the day stays. A calculated track goes.
void SelectDeparture(Program& program, float hours, Messages& messages);

}  // namespace skerrow
