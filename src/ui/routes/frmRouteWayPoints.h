#pragma once

#include "ui/routes/waypoint_picker.h"
#include "ui/widgets/dialog.h"

namespace skerrow {

// "Route by Waypoint List": makes the route from waypoints of any files.
class frmRouteWayPoints : public Dialog {
  Q_OBJECT

 public:
  frmRouteWayPoints(Desktop& desktop, QWidget* parent);

 private:
  void Add();
  void Remove();
  void ShowLength();
  void Accept();

  WaypointPicker* picker_;
  WaypointList* route_;
  QLabel* length_;
};

}  // namespace skerrow
