#include "ui/routes/frmNewWay.h"

namespace skerrow {

frmNewWay::frmNewWay(Desktop& desktop, QWidget* parent, NameEntry entry)
    : NameDialog(desktop, "frmNewWay", "New Waypoint File", entry, parent),
      make_current_(entry == NameEntry::kNewWaypointFile) {}

Status frmNewWay::Write(const std::string& file_name) {
  Program& program = desktop().program;
  // The file in use is made anew too: its waypoints go from the chart with it.
  if (!make_current_ && file_name != program.config.waypoint_file) {
    return WriteWaypointFile(WaypointPath(program.folders, file_name), {});
  }
  return NewWaypointFile(program.folders, file_name, program.config, program.waypoints,
                         desktop().messages);
}

}  // namespace skerrow
