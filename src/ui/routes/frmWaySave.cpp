#include "ui/routes/frmWaySave.h"

#include "ui/edits.h"

namespace skerrow {

frmWaySave::frmWaySave(Desktop& desktop, QWidget* parent)
    : NameDialog(desktop, "frmWaySave", "Save Waypoints", NameEntry::kWaypointSave, parent) {}

Status frmWaySave::Write(const std::string& file_name) {
  Program& program = desktop().program;
  Status saved = SaveWaypointsAs(program.folders, file_name, program.waypoints);
  if (saved) {
    program.edits.saved_waypoints = WaypointContent(program.waypoints);
    KeepMovedWaypoints(program, desktop().messages);
  }
  return saved;
}

}  // namespace skerrow
