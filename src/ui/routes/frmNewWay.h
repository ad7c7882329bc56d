#pragma once

#include "ui/routes/name_dialog.h"

namespace skerrow {

// "New Waypoint File": makes an empty waypoint file. Opened by itself it makes the file the current
// one; opened from the waypoint editor (NameEntry::kWaypointEditNew) it does not.
class frmNewWay : public NameDialog {
  Q_OBJECT

 public:
  frmNewWay(Desktop& desktop, QWidget* parent, NameEntry entry = NameEntry::kNewWaypointFile);

 protected:
  Status Write(const std::string& file_name) override;

 private:
  bool make_current_;
};

}  // namespace skerrow
