#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/instrument_controller.h"

namespace skerrow {
namespace {

constexpr Command kCommands[] = {
    {"mnuAISTargetList", "&Target List", "", "", ""},
    {"mnuShowAISDetails", "&Show Details", "", "", ""},
    {"mnuShowHistorical", "Show &History", "", "", ""},
    {"mnuAISDisplayPredicted", "Show &Predicted Track", "", "", ""},
    {"mnuAISShowHeadVect", "Show Heading &Vector", "", "", ""},
    {"mnuPUAISDetails", "AIS Target Details", "", "", ""},
    {"keyAisDialog", "Details of the Nearest Target", "", "", "F2"},
    {"keyAisDetails", "Details Beside the Nearest Target", "", "", "F3"},
    {"keyAisHistory", "History of the Nearest Target", "", "", "F4"},
    {"keyAisPredicted", "Predicted Track of the Nearest Target", "", "", "F5"},
    {"keyAisHeading", "Heading Vector of the Nearest Target", "", "", "F6"},
    {"tbShowAis", "Show AIS Targets", "showais", "", ""},
    {"tbAisDetails", "AIS Details", "aisdetails", "", ""},
};

}  // namespace

std::span<const Command> AisCommands() { return kCommands; }

}  // namespace skerrow
