#pragma once

#include "ui/instruments/upload_dialog.h"

namespace skerrow {

// "Upload Waypoints": the waypoints of a file, or one of them.
class frmWayFileUpload : public UploadDialog {
  Q_OBJECT

 public:
  frmWayFileUpload(Desktop& desktop, QWidget* parent);

 protected:
  std::vector<UploadStep> Steps() const override;

 private:
  void UploadOne();
};

}  // namespace skerrow
