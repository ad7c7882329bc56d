#pragma once

#include <QRadioButton>

#include "ui/dialogs/leg_box.h"
#include "ui/routes/waypoint_picker.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// "Edit Route Points": the route's legs by keyboard. Each change is made at once and can be taken
// back in the main window.
class frmRouteEdit : public Dialog {
  Q_OBJECT

 public:
  frmRouteEdit(Desktop& desktop, QWidget* parent);

 private:
  QWidget* MakeWaypointBox();
  void Load();
  void LoadLeg();
  std::optional<int> SelectedRow() const;
  void SelectRow(int row);
  // Shows the refusal of an edit, or the route as it is after it.
  void Ended(RouteFormRefusal refusal);
  void AcceptLegEntry();
  void InsertPoint();
  void DeletePoint();
  void ApplySpeed();
  void Reverse();

  std::size_t leg_ = 0;  // in the boxes, from 1; 0 for none
  TextList* legs_;
  QLabel* distance_;
  LegBox* leg_box_;
  WaypointPicker* picker_;
  QRadioButton* before_;
  QRadioButton* after_;
};

}  // namespace skerrow
