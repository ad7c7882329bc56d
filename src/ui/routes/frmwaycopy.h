#pragma once

#include <QLineEdit>

#include "ui/routes/waypoint_picker.h"
#include "ui/widgets/dialog.h"

namespace skerrow {

// "Copy Waypoints": makes a waypoint file of entries of others.
class frmwaycopy : public Dialog {
  Q_OBJECT

 public:
  frmwaycopy(Desktop& desktop, QWidget* parent);

  // The file written; empty before the dialog was accepted.
  const std::string& file_name() const { return file_name_; }

 private:
  void Add();
  void Remove();
  void Save();

  WaypointPicker* picker_;
  WaypointList* copied_;
  QLineEdit* name_;
  std::string file_name_;
};

}  // namespace skerrow
