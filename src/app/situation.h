#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "app/program.h"
#include "core/progress.h"
#include "passage/route_calculation.h"

// Operations on the situation shown: results at another time, places along a track, man overboard.
namespace skerrow {

// Solves a result on show anew for the selected time, as the roll of the tides asks it. Nothing to
// rework counts as done. Cancelled: everything as it was.
RouteOutcome ReworkResult(Program& program, Progress& progress);

// The point of the calculated track nearest to a place; empty without a track, or when all of it is
// more than 25,000 nautical miles away.
std::optional<std::size_t> NearestTrackPoint(const Program& program, Position place);

// Back to how the program starts: no route, the clock's time, the default wind. One step that can
// be taken back, time and all.
void ResetSituation(Program& program, Messages& messages);

// Holds a man-overboard mark at a place, at the clock's time.
void MarkManOverboard(Program& program, Position place);

// What is told of the mark beside its position: the time of it and the time since, and range and
// bearing to it from the boat, or from the cursor where there is no boat; that line is left out
// without either.
std::vector<std::string> ManOverboardLines(const Program& program, std::optional<Position> cursor);

}  // namespace skerrow
