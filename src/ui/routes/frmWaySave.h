#pragma once

#include "ui/routes/name_dialog.h"

namespace skerrow {

// "Save Waypoints": writes the waypoints in memory, moved ones where they are now, to a file.
class frmWaySave : public NameDialog {
  Q_OBJECT

 public:
  frmWaySave(Desktop& desktop, QWidget* parent);

 protected:
  Status Write(const std::string& file_name) override;

 private:
};

}  // namespace skerrow
