#pragma once

#include <QCheckBox>
#include <QRadioButton>

#include "ui/dialogs/leeway_box.h"
#include "ui/forms/set_leg_form.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// "Single Leg Set-up": one leg between typed positions or waypoints.
class frmSetLeg : public Dialog {
  Q_OBJECT

 public:
  frmSetLeg(Desktop& desktop, QWidget* parent);

 private:
  QWidget* MakeEntries();
  void TakeWaypoint(int row);
  SetLegEntry Entry() const;
  void Calculate();

  FilteredEdit* start_latitude_;
  FilteredEdit* start_longitude_;
  FilteredEdit* end_latitude_;
  FilteredEdit* end_longitude_;
  QRadioButton* fill_start_;
  QRadioButton* fill_end_;
  FilteredEdit* speed_;
  TimeEntry* time_;
  LeewayBox* leeway_;
  TextList* waypoints_;
  TextList* results_;
  QLabel* status_;
};

}  // namespace skerrow
