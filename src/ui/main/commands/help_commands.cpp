#include "ui/dialogs/frmQuickInstructions.h"
#include "ui/main/frmChart.h"

namespace skerrow {
namespace {

constexpr Command kCommands[] = {
    {"mnuQuickHelp", "&Quick Instructions", "help", "The first steps on one page", "", kNoNeed,
     [](FrmChart& w) { FrmQuickInstructions(w.desktop(), &w).exec(); }},
};

}  // namespace

std::span<const Command> HelpCommands() { return kCommands; }

}  // namespace skerrow
