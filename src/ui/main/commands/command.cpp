#include "ui/main/commands/command.h"

namespace skerrow {

std::vector<const Command*> AllCommands() {
  std::vector<const Command*> all;
  for (const std::span<const Command> rows :
       {FileCommands(), ChartCommands(), ChartImportCommands(), ChartToolCommands(),
        RouteCommands(), TimeCommands(), WaypointCommands(), ViewCommands(), TideCommands(),
        StreamCommands(), DriftCommands(), WindCommands(), GpsCommands(), AisCommands(),
        TrackCommands(), ExchangeCommands(), HelpCommands(), LaterCommands()}) {
    for (const Command& command : rows) all.push_back(&command);
  }
  return all;
}

const Command* FindCommand(std::string_view name) {
  for (const Command* command : AllCommands()) {
    if (command->name == name) return command;
  }
  return nullptr;
}

}  // namespace skerrow
