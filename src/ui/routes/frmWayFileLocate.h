#pragma once

#include <optional>

#include "ui/routes/waypoint_picker.h"
#include "ui/widgets/dialog.h"

namespace skerrow {

// "Locate a waypoint": picks a waypoint of any file for the chart to go to.
class frmWayFileLocate : public Dialog {
  Q_OBJECT

 public:
  frmWayFileLocate(Desktop& desktop, QWidget* parent);

  // What OK has picked, as the file has it.
  const std::optional<Waypoint>& picked() const { return picked_; }

 private:
  void Accept();

  WaypointPicker* picker_;
  std::optional<Waypoint> picked_;
};

}  // namespace skerrow
