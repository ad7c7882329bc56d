#include "ui/instruments/frmWayFileUpload.h"

#include "ui/instruments/frmSingwayup.h"

namespace skerrow {

frmWayFileUpload::frmWayFileUpload(Desktop& desktop, QWidget* parent)
    : UploadDialog(desktop,
                   {"frmWayFileUpload", "Upload Waypoints", "fillist", "Waypoint &files",
                    FileKind::kWaypoint, kWaypointsTransferred},
                   parent) {
  QPushButton* one = AddLeftButton("cmdSingle", "Single &Waypoint...",
                                   "Sends the highlighted waypoint, or one that you type");
  connect(one, &QPushButton::clicked, this, [this] { UploadOne(); });
  connect(this, &UploadDialog::Sending, one, &QPushButton::setDisabled);
}

std::vector<UploadStep> frmWayFileUpload::Steps() const {
  return UploadWaypoints(points(), options());
}

void frmWayFileUpload::UploadOne() {
  const std::optional<UploadPoint> selected = SelectedPoint();
  frmSingwayup(desktop(), selected.value_or(UploadPoint()), this).exec();
}

}  // namespace skerrow
