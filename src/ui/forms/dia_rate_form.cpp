#include "ui/forms/dia_rate_form.h"

#include <algorithm>
#include <limits>

#include "core/numbers.h"
#include "ui/forms/dia_info_form.h"

namespace skerrow {
namespace {

constexpr std::int32_t kRateColour = 0x0000FF;       // red
constexpr std::int32_t kRateArea = 0xE4E4FC;         // a light red
constexpr std::int32_t kThresholdColour = 0xFF0000;  // blue
constexpr int kEntriesAnHour = 6;
const PrintFont kTitleFont = {"", 14.0, true};
const PrintFont kHeadFont = {"", 10.0, true};
const PrintFont kPlainFont = {"", 9.0, false};

// Entry `i` counted from 0, where 0 stands for the first one too.
const DayStreamEntry& EntryAt(const DayStream& stream, std::size_t i) {
  return stream[i == 0 ? 0 : i - 1];
}

}  // namespace

const char* const kRateGraphNotes[2] = {
    "This graph displays tidal diamond data in a simplified presentation of rate and direction. "
    "Linear interpolation is used between rates and tidal stream direction is preserved until half "
    "way between hourly slots whereby it adopts the rate direction of the next slot.",
    "The graph can often look erratic, always refer to the tidal diamond data."};

std::string RateGraphTitle(const RateGraph& graph) {
  return "Graph of Time versus Rate " + graph.line;
}

Plot DiamondRatePlot(const Diamond& diamond, const RateGraph& graph) {
  const DayStream& stream = graph.stream;
  const std::optional<float> threshold = graph.threshold;
  Plot plot;
  plot.captions.push_back({"Diamond " + DiamondRef(diamond)});
  plot.captions.push_back({DateText(graph.date), AlignX::kRight});
  PlotSeries rates;
  rates.colour = kRateColour;
  rates.fill_to = 0.0;
  float highest = 0.0F;
  for (std::size_t i = 0; i <= kDayStreamEntries; ++i) {
    const DayStreamEntry& entry = EntryAt(stream, i);
    const double rate =
        entry.known ? static_cast<double>(entry.rate) : std::numeric_limits<double>::quiet_NaN();
    rates.points.push_back({static_cast<double>(i), rate});
    if (entry.known) highest = std::max(highest, entry.rate);
  }
  plot.x.to = static_cast<double>(kDayStreamEntries);
  // Entry 1 is midnight, so a whole hour stands one entry behind its multiple of six.
  for (int hour = 0; hour < 24; ++hour) {
    PlotTick tick;
    tick.at = hour * kEntriesAnHour + 1;
    if (hour % 3 == 0) tick.label = HoursToClock(static_cast<float>(hour));
    plot.x.ticks.push_back(std::move(tick));
  }
  PlotTick end;
  end.at = plot.x.to;
  end.label = "TIME";
  end.line = false;
  plot.x.ticks.push_back(std::move(end));
  plot.y.to = static_cast<double>(RoundToInteger(highest)) + 1.0;
  const double step = NiceStep(plot.y.to, 6);
  for (double at = 0.0; at <= plot.y.to + 1e-9; at += step) {
    PlotTick tick;
    tick.at = at;
    tick.label = FormatFixed(at, 1, step < 1.0 ? 1 : 0) + (at + step > plot.y.to ? " kn" : "");
    plot.y.ticks.push_back(std::move(tick));
  }
  plot.series.push_back(std::move(rates));
  plot.bands.push_back({0.0, plot.x.to, plot_colours::kPaper, kRateArea});
  if (threshold) {
    PlotMark mark;
    mark.upright = false;
    mark.at = *threshold;
    mark.colour = kThresholdColour;
    mark.broken = false;
    mark.words = ShortText(*threshold) + " kn";
    plot.marks.push_back(std::move(mark));
  }
  return plot;
}

int RateEntry(double x) {
  return static_cast<int>(
      std::clamp<std::int64_t>(RoundToInteger(x), 1, static_cast<std::int64_t>(kDayStreamEntries)));
}

std::string RateReadout(const DayStream& stream, int entry) {
  const std::size_t i = static_cast<std::size_t>(std::clamp(entry, 1, 144)) - 1;
  const std::string time = "Time: " + HoursToClock(DayStreamHours(i));
  if (!stream[i].known) return time + "     No high water to count from";
  return time + "     Rate: " + FormatFixed(stream[i].rate, 1, 1) +
         "Kn.    Dir: " + FormatFixed(stream[i].direction, 3, 0) + " °T";
}

PrintDocument DiamondRatePage(const Program& program, const Diamond& diamond,
                              const RateGraph& graph, const Picture& picture) {
  const std::string ref = DiamondRef(diamond);
  const std::string port = RefPortName(program.tides, diamond);
  PrintDocument page;
  page.title = "Tidal Diamond " + ref + " Rate";
  page.foot = "Tidal Diamond " + ref;
  page.items.push_back(PrintLine(RateGraphTitle(graph), kTitleFont));
  page.items.push_back(PrintLine(" ", kPlainFont));
  page.items.push_back(PrintPicture(picture));
  page.items.push_back(PrintLine(" ", kPlainFont));
  page.items.push_back(PrintLine("Prediction for Tidal Diamond Reference: " + ref, kHeadFont));
  page.items.push_back(PrintLine(
      "Diamond Position " + LatToText(diamond.latitude) + ", " + LongToText(diamond.longitude),
      kPlainFont));
  page.items.push_back(PrintLine("Diamond Referenced to: " + port, kPlainFont));
  page.items.push_back(PrintLine(" ", kPlainFont));
  page.items.push_back(PrintLine("TIDAL DIAMOND DETAILS", kHeadFont));
  for (PrintItem& item : DiamondTableItems(diamond, port)) page.items.push_back(std::move(item));
  page.items.push_back(PrintLine(" ", kPlainFont));
  page.items.push_back(PrintLine(DiamondTimeBasis(program.config.summer_time != 0), kPlainFont));
  page.items.push_back(PrintLine(DiamondDataNotice(), kPlainFont));
  return page;
}

}  // namespace skerrow
