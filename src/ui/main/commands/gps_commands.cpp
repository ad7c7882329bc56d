#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/instrument_controller.h"

namespace skerrow {
namespace {

constexpr Command kCommands[] = {
    {"mnuGPSattach", "GPS &Enable", "gps", "", ""},
    {"mnuPosGpsDisconnect", "GPS &Disable", "", "", ""},
    {"mnuGPSCentre", "GPS &Find Position on Chart", "boatsnap", "Keep the boat on the chart", "G",
     kNoNeed, nullptr, [](const Context& c) { return c.program.config.gps_centre != 0; }},
    {"mnugpsdisplay", "GPS &Monitor", "", "", ""},
    {"mnuAISEnable", "AIS &Enable", "ais", "", ""},
    {"mnuAISDisable", "AIS &Disable", "", "", ""},
    {"mnuGPSAISConfig", "Instruments (GPS && AIS)", "configgps", "", ""},
    {"mnuCommsMonitor", "Comms Ports Diagnostics", "", "", ""},
};

}  // namespace

std::span<const Command> GpsCommands() { return kCommands; }

}  // namespace skerrow
