#pragma once

#include "app/program.h"
#include "core/messages.h"
#include "core/progress.h"

// The two commands that write the tidal streams to files.
namespace skerrow {

// Writes the components of all diamonds, hour by hour from midnight of the selected day on, and
// tells the end of it. The selected time stays where the export left it, at midnight after its last
// day, and no more follows the clock. Refused, with its words, or cancelled: everything as it was,
// and false.
bool ExportSelectedStreams(Program& program, Messages& messages, Progress& progress);

// Writes the cleaned copy of the area's diamonds, and tells its path. A copy that is there is asked
// about first.
bool SaveAreaDiamonds(Program& program, Messages& messages);

}  // namespace skerrow
