#pragma once

#include "ui/widgets/dialog.h"
#include "ui/widgets/record_file_view.h"

namespace skerrow {

// "Route By Waypoint List": a route of waypoints picked from any file.
class FrmRouteWayPoints : public Dialog {
  Q_OBJECT

 public:
  FrmRouteWayPoints(Desktop& desktop, QWidget* parent);

 private:
  void ShowRoute();
  void Add(int row);
  void Remove();
  void Accept();

  RecordFileView* view_;
  TextList* route_;
  QLabel* count_;
  std::vector<WaypointRow> rows_;
};

}  // namespace skerrow
