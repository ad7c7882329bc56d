#include "ui/dialogs/frmtimdat.h"
#include "ui/main/frmChart.h"

namespace skerrow {
namespace {

bool UsesTides(const FrmChart& w) { return w.program().config.use_tides != 0; }

constexpr Command kCommands[] = {
    {"mnudate", "&Date and Time", "time", "Set the time that tides and streams are shown for", "",
     kNoNeed,
     [](FrmChart& w) {
       if (FrmTimDat(w.desktop(), &w).exec() == QDialog::Accepted) w.Changed(kAllChanged);
     }},
    {"mnuselrealtime", "&Realtime Mode", "", "Follow the clock again", "", kNoNeed,
     [](FrmChart& w) { w.ToRealtime(); },
     [](const FrmChart& w) { return !w.program().selected_time.override_; }},
    {"tbResetTime", "Reset Time", "resettime", "End any animation and follow the clock again", "",
     kNoNeed, [](FrmChart& w) { w.ToRealtime(); }},
    {"mnuTideRollPlus", "   Tides >> ", "", "Half an hour forward", "", kNoNeed,
     [](FrmChart& w) { w.RollTheTides(Roll::kForward); }, nullptr, UsesTides},
    {"mnuTideRollMinus", "   << Tides   ", "", "Half an hour back", "", kNoNeed,
     [](FrmChart& w) { w.RollTheTides(Roll::kBack); }, nullptr, UsesTides},
};

}  // namespace

std::span<const Command> TimeCommands() { return kCommands; }

}  // namespace skerrow
