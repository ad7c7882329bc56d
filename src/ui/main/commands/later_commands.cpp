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

// Each of these gets its handler, and moves to the file of its subject, with its subsystem.
constexpr Command kCommands[] = {
    {"keyChartInfo", "Calibrate Chart", "", "", "C", kNeedsTools},
    {"mnuChartEdit", "Chart &Settings", "", "", "", kNeedsTools},
    {"mnuXrfEdit", "Sea Area &Index", "", "", ""},
    {"mnuChartBoundaries", "Chart &Boundaries", "", "", ""},
    {"keyLoadDiamonds", "Load Diamonds", "", "", "F8", kNeedsTools},
    {"keyNextDiamond", "Next Diamond", "", "", "F11", kNeedsTools},
    {"keyKeepDiamond", "Keep Diamond", "", "", "F12", kNeedsTools},
};

}  // namespace

std::span<const Command> LaterCommands() { return kCommands; }

}  // namespace skerrow
