#pragma once

#include <QLineEdit>

#include "ui/routes/waypoint_picker.h"
#include "ui/widgets/dialog.h"

namespace skerrow {

// "Copy Waypoints": makes a waypoint file of entries of others.
class FrmWayCopy : public Dialog {
  Q_OBJECT

 public:
  FrmWayCopy(Desktop& desktop, QWidget* parent);

 private:
  void Add();
  void Remove();
  void Save();

  WaypointPicker* picker_;
  WaypointList* copied_;
  QLineEdit* name_;
};

}  // namespace skerrow
