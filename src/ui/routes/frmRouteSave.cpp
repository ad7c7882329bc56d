#include "ui/routes/frmRouteSave.h"

#include "ui/edits.h"

namespace skerrow {

frmRouteSave::frmRouteSave(Desktop& desktop, QWidget* parent)
    : NameDialog(desktop, "frmRouteSave", "Save Route", NameEntry::kRouteSave, parent) {}

bool frmRouteSave::Ready() {
  if (!desktop().program.route.points.empty()) return true;
  reject();
  desktop().messages.Show("No route set-up", MessageIcon::kWarning);
  return false;
}

Status frmRouteSave::Write(const std::string& file_name) {
  Program& program = desktop().program;
  const std::string path = RoutePath(program.folders, file_name);
  Status saved = SaveRoute(path, program.route, program.config.vessel_speed);
  if (saved) RouteIsSaved(program, desktop().messages, path);
  return saved;
}

}  // namespace skerrow
