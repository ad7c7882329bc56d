#pragma once

#include <string>

#include "app/program.h"
#include "core/progress.h"
#include "core/result.h"

// An earlier voyage on the chart, from its log.
namespace skerrow {

// Puts the track of a log in the tracks folder and its comments on the chart, in the place of a
// track before: two voyages are not joined by a line. False when the user cancels. Then, and on an
// error, all is as it was.
Result<bool> ShowHistoricalTrack(Program& program, const std::string& file_name,
                                 Progress& progress);

// Ends every plot of a track. An earlier voyage takes with it its points, its comments and the
// position that its last fix had given the boat; a live track stays in memory.
void RemoveHistoricalPlot(Program& program);

}  // namespace skerrow
