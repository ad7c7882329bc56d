#pragma once

#include <QLineEdit>
#include <optional>

#include "core/position.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"

namespace skerrow {

// The entry of one waypoint, appended to the current file: "Single Waypoint" typed whole, or with
// the position picked on the chart (then called "frmMouseInput").
class FrmSingleWayPoint : public Dialog {
  Q_OBJECT

 public:
  FrmSingleWayPoint(Desktop& desktop, std::optional<Position> picked, QWidget* parent);

 private:
  void Accept();

  QLineEdit* name_;
  FilteredEdit* latitude_;
  FilteredEdit* longitude_;
};

}  // namespace skerrow
