#include "ui/routes/frmWaySave.h"

namespace skerrow {

FrmWaySave::FrmWaySave(Desktop& desktop, EditSession& session, QWidget* parent)
    : NameDialog(desktop, "frmWaySave", tr("Save Waypoints"), NameEntry::kWaypointSave, parent),
      session_(session) {}

Status FrmWaySave::Write(const std::string& file_name) {
  const Program& program = desktop().program;
  Status saved = SaveWaypointsAs(program.folders, file_name, program.waypoints);
  if (saved) session_.saved_waypoints = WaypointContent(program.waypoints);
  return saved;
}

}  // namespace skerrow
