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
    {"mnuFileRouteTextExport", "&Route as Text", "", "", ""},
    {"mnuFileWaypointTextExport", "Wa&ypoints as Text", "", "", ""},
    {"mnuFileCOGExport", "&Course Over Ground as Text", "", "", ""},
    {"mnutxtRouteImport", "&Routes from Text", "", "", ""},
    {"mnutxtWayImport", "Wa&ypoints from Text", "", "", ""},
};

}  // namespace

std::span<const Command> LaterCommands() { return kCommands; }

}  // namespace skerrow
