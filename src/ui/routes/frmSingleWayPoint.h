#pragma once

#include <QLineEdit>
#include <optional>

#include "core/position.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"

namespace skerrow {

// Entry of one waypoint, which is appended to the current file: `frmSingleWayPoint` with a typed
// position, `frmMouseInput` with one picked on the chart, which can still be changed.
class frmSingleWayPoint : public Dialog {
  Q_OBJECT

 public:
  frmSingleWayPoint(Desktop& desktop, std::optional<Position> picked, QWidget* parent);

 private:
  void Accept();

  QLineEdit* name_;
  FilteredEdit* latitude_;
  FilteredEdit* longitude_;
};

// Appends a waypoint to the current file and loads the file again. What goes wrong is shown.
bool AppendAndReload(Desktop& desktop, const Waypoint& waypoint);

// A click in the mouse waypoint mode: asks for a name and appends a waypoint at `position`. An
// empty answer leaves the mode.
void EnterWaypointByMouse(Desktop& desktop, Position position, QWidget* parent);

}  // namespace skerrow
