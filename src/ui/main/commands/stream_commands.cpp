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
    {"mnuShowTidalStreams", "Show/Hide Tidal &Streams", "viewstreams", "", "S", kNoNeed, nullptr,
     nullptr, [](const Context& c) { return c.program.config.use_tides != 0; }},
    {"mnuPUTidalStream", "Tidal Stream Details", "", "", "", kNeedsStreams},
    {"mnuSaveTidalDiamonds", "Save Tidal &Diamonds", "", "", ""},
    {"mnuStreamstoCSV", "&Streams to CSV", "", "", ""},
};

}  // namespace

std::span<const Command> StreamCommands() { return kCommands; }

}  // namespace skerrow
