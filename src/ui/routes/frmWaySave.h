#pragma once

#include "ui/routes/name_dialog.h"

namespace skerrow {

// "Save Waypoints": writes the waypoints in memory, moved ones where they are now, to a file.
class FrmWaySave : public NameDialog {
  Q_OBJECT

 public:
  FrmWaySave(Desktop& desktop, QWidget* parent);

 protected:
  Status Write(const std::string& file_name) override;

 private:
};

}  // namespace skerrow
