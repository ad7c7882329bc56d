#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/route_controller.h"

namespace skerrow {
namespace {

bool UsesTides(const Context& c) { return c.program.config.use_tides != 0; }

constexpr Command kCommands[] = {
    {"mnuCalcCOG", "Course Over &Ground Prediction", "", "Where a boat goes that holds its heading",
     "", kNoNeed, [](Context& c) { c.route.CourseOverGroundDialog(); }, nullptr, UsesTides},
    {"mnuCalcMOB", "&Man Overboard Prediction", "mobplot",
     "Where a person or an object in the water drifts", "", kNoNeed,
     [](Context& c) { c.route.ManOverboardDialog(); }, nullptr, UsesTides},
};

}  // namespace

std::span<const Command> DriftCommands() { return kCommands; }

}  // namespace skerrow
