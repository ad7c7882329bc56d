#pragma once

#include <optional>
#include <string>

#include "app/program.h"
#include "platform/printing.h"
#include "tides/diamond_report.h"
#include "ui/plot/plot.h"

// The graph of a diamond's rate over a day.
namespace skerrow {

// A day of a diamond's stream and the line of the report that it was asked for at.
struct RateGraph {
  DayAndYear date;
  DayStream stream;
  std::optional<float> threshold;  // knots, drawn across
  std::string line;
};

// "Graph of Time versus Rate " and the line.
std::string RateGraphTitle(const RateGraph& graph);

// The rate from entry to entry: 0 to 144 across, entry 0 being the first one's value, and up to a
// knot above the highest rate, which is rounded.
Plot DiamondRatePlot(const Diamond& diamond, const RateGraph& graph);

// The entry, 1 to 144, at a place across the graph.
int RateEntry(double x);

// "Time: 03:20     Rate: 1.4Kn.    Dir: 274 °T" of an entry, from 1.
std::string RateReadout(const DayStream& stream, int entry);

// The two lines below the graph.
extern const char* const kRateGraphNotes[2];

// The graph as a page.
PrintDocument DiamondRatePage(const Program& program, const Diamond& diamond,
                              const RateGraph& graph, const Picture& picture);

}  // namespace skerrow
