#pragma once

#include "app/program.h"
#include "core/messages.h"
#include "core/result.h"

// The wind in use: one for the whole passage, as entered, or that of the imported forecast.
namespace skerrow {

// Gives the points of the route the wind in use. What the forecast does not reach is told.
void WindMoved(Program& program, Messages& messages);

// Makes an entered wind the program's default, and keeps it for later runs; the points of the route
// follow it while one wind is in use. An error: it could not be kept.
Status EnterWind(Program& program, const Wind& wind, Messages& messages);

// Makes the entered wind the one in use, or else that of the forecast. An error: the choice could
// not be kept.
Status UseEnteredWind(Program& program, bool entered, Messages& messages);

}  // namespace skerrow
