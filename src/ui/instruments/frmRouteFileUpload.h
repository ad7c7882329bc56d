#pragma once

#include "ui/instruments/upload_dialog.h"

namespace skerrow {

// Sends a route: its points as waypoints, then the route over them.
class frmRouteFileUpload : public UploadDialog {
  Q_OBJECT

 public:
  frmRouteFileUpload(Desktop& desktop, QWidget* parent);

 protected:
  void FileChosen(const std::string& file_name) override;
  std::vector<UploadStep> Steps() const override;

 private:
  QLineEdit* name_;
};

}  // namespace skerrow
