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
    {"mnuTidesCalculate", "Calculate", "tides", "", ""},
    {"mnuPUTidalHeights", "Tidal Height Prediction", "", "", ""},
};

}  // namespace

std::span<const Command> TideCommands() { return kCommands; }

}  // namespace skerrow
