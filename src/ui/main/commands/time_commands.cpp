#include "ui/dialogs/frmtimdat.h"
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

bool UsesTides(const Context& c) { return c.program.config.use_tides != 0; }

constexpr Command kCommands[] = {
    {"mnudate", "&Date and Time", "time", "Set the time that tides and streams are shown for", "",
     kNoNeed,
     [](Context& c) {
       if (frmtimdat(c.desktop, &c.window).exec() == QDialog::Accepted)
         c.desktop.window.Changed(kAllChanged);
     }},
    {"mnuselrealtime", "&Realtime Mode", "", "Follow the clock again", "", kNoNeed,
     [](Context& c) { c.time.ToRealtime(); },
     [](const Context& c) { return !c.program.selected_time.override_; }},
    {"tbResetTime", "Reset Time", "resettime", "End any animation and follow the clock again", "",
     kNoNeed, [](Context& c) { c.time.ToRealtime(); }},
    {"mnuTideRollPlus", "   Tides >> ", "", "Half an hour forward", "", kNoNeed,
     [](Context& c) { c.time.RollTheTides(Roll::kForward); }, nullptr, UsesTides},
    {"mnuTideRollMinus", "   << Tides   ", "", "Half an hour back", "", kNoNeed,
     [](Context& c) { c.time.RollTheTides(Roll::kBack); }, nullptr, UsesTides},
};

}  // namespace

std::span<const Command> TimeCommands() { return kCommands; }

}  // namespace skerrow
