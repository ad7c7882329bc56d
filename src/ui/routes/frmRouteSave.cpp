#include "ui/routes/frmRouteSave.h"

#include "ui/routes/route_commands.h"

namespace skerrow {

FrmRouteSave::FrmRouteSave(Desktop& desktop, EditSession& session, QWidget* parent)
    : NameDialog(desktop, "frmRouteSave", tr("Save Route"), NameEntry::kRouteSave, parent),
      session_(session) {}

bool FrmRouteSave::Ready() {
  if (!desktop().program.route.points.empty()) return true;
  reject();
  desktop().messages.Show("No route set-up", MessageIcon::kWarning);
  return false;
}

Status FrmRouteSave::Write(const std::string& file_name) {
  const Program& program = desktop().program;
  Status saved =
      SaveRoute(RoutePath(program.folders, file_name), program.route, program.config.vessel_speed);
  if (saved) RouteIsSaved(desktop(), session_);
  return saved;
}

}  // namespace skerrow
