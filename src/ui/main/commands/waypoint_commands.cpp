#include "ui/main/frmChart.h"

namespace skerrow {
namespace {

constexpr Command kCommands[] = {
    {"mnuWayMouse", "By &Mouse", "", "Lay waypoints with Shift and the left button", "", kNoNeed,
     [](FrmChart& w) { w.ToggleWaypointEntry(); },
     [](const FrmChart& w) { return w.program().mouse_mode == MouseMode::kWaypointEntry; }},
};

}  // namespace

std::span<const Command> WaypointCommands() { return kCommands; }

}  // namespace skerrow
