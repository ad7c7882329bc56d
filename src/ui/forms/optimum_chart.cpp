#include "ui/forms/optimum_chart.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"

namespace skerrow {
namespace {

std::string HourText(float hours) { return FormatFixed(hours, 2, 0) + ":00"; }

}  // namespace

OptimumChart::OptimumChart(std::vector<float> times, float start_hour)
    : times_(std::move(times)), start_hour_(start_hour), extremes_(ExtremesOf(times_)) {}

std::vector<OptimumChart::HourLabel> OptimumChart::HourLabels() const {
  std::vector<HourLabel> labels;
  const std::size_t entries = times_.size() + 1;
  for (std::size_t j = 0; j < entries; j += entries >= 9 ? 3 : 1) {
    labels.push_back({j, HourText(DepartureHours(j))});
  }
  return labels;
}

std::string OptimumChart::LongestLabel() const {
  return HoursToDuration(longest()) + " (Max. time) ";
}

std::string OptimumChart::ShortestLabel() const {
  return HoursToDuration(shortest()) + " (Min. time)";
}

double OptimumChart::LabelLeft(std::size_t index, double label_width, double width) const {
  constexpr double kGap = 6.0;
  const double bar = width / static_cast<double>(std::max<std::size_t>(times_.size(), 1));
  const double left = static_cast<double>(index) * bar;
  const double behind = left + bar + kGap;
  if (behind + label_width + kGap <= width) return behind;
  return std::max(0.0, left - label_width - kGap);
}

std::optional<std::size_t> OptimumChart::BarAt(double x, double width) const {
  if (empty() || !(width > 0.0) || x < 0.0 || x >= width) return std::nullopt;
  const auto index = static_cast<std::size_t>(x / width * static_cast<double>(times_.size()));
  return std::min(index, times_.size() - 1);
}

std::string OptimumChart::HoverText(std::size_t index) const {
  if (!std::isfinite(times_.at(index))) {
    return HourText(DepartureHours(index)) + " is left out: see the list";
  }
  return "Time taken " + HoursToDuration(times_.at(index)) + " departing at " +
         HourText(DepartureHours(index));
}

bool TakeDepartureSpeeds(const PassageState& passage, std::size_t index, RouteState& route) {
  if (index >= passage.optimum_speeds.size()) return false;
  const std::vector<float>& speeds = passage.optimum_speeds[index];
  if (speeds.empty() || speeds.size() + 1 != route.points.size()) return false;
  for (std::size_t i = 0; i < speeds.size(); ++i) route.points[i].speed = speeds[i];
  return true;
}

void SelectDeparture(Program& program, float hours, Messages& messages) {
  program.selected_time.hours = hours;
  program.selected_time.override_ = true;
  ForgetCalculation(program);
  RebuildTides(program, messages);
}

}  // namespace skerrow
