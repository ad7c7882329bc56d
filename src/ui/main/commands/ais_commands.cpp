#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/instrument_controller.h"
#include "ui/main/target_controller.h"

namespace skerrow {
namespace {

constexpr Command kCommands[] = {
    {"mnuAISTargetList", "&Target List", "", "All vessels heard, with ranges and details", "",
     kNeedsTargets, [](Context& c) { c.targets.ShowList(); }},
    {"mnuShowAISDetails", "&Show Details", "", "The data lines beside all vessels", "",
     kNeedsTargets,
     [](Context& c) {
       c.targets.ToggleAll(&AppConfig::show_ais_details, &AisTarget::show_details);
     },
     [](const Context& c) { return c.program.config.show_ais_details != 0; }},
    {"mnuShowHistorical", "Show &History", "", "Where all vessels came from, half an hour back", "",
     kNeedsTargets,
     [](Context& c) {
       c.targets.ToggleAll(&AppConfig::show_ais_history, &AisTarget::show_history);
     },
     [](const Context& c) { return c.program.config.show_ais_history != 0; }},
    {"mnuAISDisplayPredicted", "Show &Predicted Track", "",
     "Where all vessels will be, half an hour ahead", "", kNeedsTargets,
     [](Context& c) {
       c.targets.ToggleAll(&AppConfig::show_ais_predicted, &AisTarget::show_predicted);
     },
     [](const Context& c) { return c.program.config.show_ais_predicted != 0; }},
    {"mnuAISShowHeadVect", "Show Heading &Vector", "", "The way of all vessels in half an hour", "",
     kNeedsTargets,
     [](Context& c) {
       c.targets.ToggleAll(&AppConfig::show_ais_heading, &AisTarget::show_heading_vector);
     },
     [](const Context& c) { return c.program.config.show_ais_heading != 0; }},
    {"mnuPUAISDetails", "AIS Target Details", "", "The vessel nearest to this place", "",
     kNeedsTargets,
     [](Context& c) {
       if (c.view.last_click) c.targets.ShowDetailsNear(*c.view.last_click);
     }},
    {"dblAisDetails", "Details of the Target Here", "", "", "", kNeedsTargetsShown,
     [](Context& c) {
       if (c.view.last_click) {
         c.targets.ShowDetailsNear(*c.view.last_click, c.program.config.search_circle);
       }
     }},
    {"keyAisDialog", "Details of the Nearest Target", "", "", "F2", kNeedsTargets,
     [](Context& c) { c.targets.ShowDetailsNear(c.view.cursor); }},
    {"keyAisDetails", "Details Beside the Nearest Target", "", "", "F3", kNeedsTargets,
     [](Context& c) { c.targets.ToggleNearest(&AisTarget::show_details); }},
    {"keyAisHistory", "History of the Nearest Target", "", "", "F4", kNeedsTargets,
     [](Context& c) { c.targets.ToggleNearest(&AisTarget::show_history); }},
    {"keyAisPredicted", "Predicted Track of the Nearest Target", "", "", "F5", kNeedsTargets,
     [](Context& c) { c.targets.ToggleNearest(&AisTarget::show_predicted); }},
    {"keyAisHeading", "Heading Vector of the Nearest Target", "", "", "F6", kNeedsTargets,
     [](Context& c) { c.targets.ToggleNearest(&AisTarget::show_heading_vector); }},
    {"tbShowAis", "Show AIS Targets", "showais", "Show or hide the vessels on the chart", "",
     kNeedsTargets, [](Context& c) { c.targets.ToggleShown(); },
     [](const Context& c) { return c.view.targets_shown; }},
    // The toolbar's form of mnuShowAISDetails; it rests while the vessels are hidden.
    {"tbAisDetails", "AIS Details", "aisdetails", "The data lines beside all vessels", "",
     kNeedsTargetsShown,
     [](Context& c) {
       c.targets.ToggleAll(&AppConfig::show_ais_details, &AisTarget::show_details);
     },
     [](const Context& c) { return c.program.config.show_ais_details != 0; }},
};

}  // namespace

std::span<const Command> AisCommands() { return kCommands; }

}  // namespace skerrow
