#pragma once

#include <optional>
#include <string>

#include "app/program.h"
#include "platform/printing.h"
#include "tides/diamond_report.h"
#include "ui/plot/plot.h"

// The graph of a diamond's rate over a day.
namespace skerrow {

// The rate from entry to entry: 0 to 144 across, entry 0 being the first one's value, and up to a
// knot above the highest rate, which is rounded. `threshold`, in knots, is a line across.
Plot DiamondRatePlot(const DayStream& stream, std::optional<float> threshold);

// The entry, 1 to 144, at a place across the graph.
int RateEntry(double x);

// "Time: 03:20     Rate: 1.4Kn.    Dir: 274 °T" of an entry, from 1.
std::string RateReadout(const DayStream& stream, int entry);

// The two lines below the graph.
extern const char* const kRateGraphNotes[2];

// The graph as a page. `title` is that of the graph.
PrintDocument DiamondRatePage(const Program& program, const Diamond& diamond,
                              const std::string& title, const Picture& picture);

}  // namespace skerrow
