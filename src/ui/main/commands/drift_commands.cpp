#include "ui/main/chart_controller.h"
#include "ui/main/chart_mouse.h"
#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/look_controller.h"
#include "ui/main/mob_controller.h"
#include "ui/main/route_controller.h"
#include "ui/main/time_controller.h"

namespace skerrow {
namespace {

constexpr Command kCommands[] = {
    {"mnuCalcCOG", "Course Over &Ground Prediction", "", "", "", kNoNeed, nullptr, nullptr,
     [](const Context& c) { return c.program.config.use_tides != 0; }},
    {"mnuCalcMOB", "&Man Overboard Prediction", "mobplot", "", "", kNeedsMob},
};

}  // namespace

std::span<const Command> DriftCommands() { return kCommands; }

}  // namespace skerrow
