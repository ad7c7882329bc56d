#include "ui/routes/frmWaySave.h"

#include "ui/routes/route_commands.h"

namespace skerrow {

FrmWaySave::FrmWaySave(Desktop& desktop, EditSession& session, QWidget* parent)
    : NameDialog(desktop, "frmWaySave", tr("Save Waypoints"), NameEntry::kWaypointSave, parent),
      session_(session) {}

Status FrmWaySave::Write(const std::string& file_name) {
  const Program& program = desktop().program;
  Status saved = SaveWaypointsAs(program.folders, file_name, program.waypoints);
  if (saved) {
    session_.saved_waypoints = WaypointContent(program.waypoints);
    KeepMovedWaypoints(desktop(), session_);
  }
  return saved;
}

}  // namespace skerrow
