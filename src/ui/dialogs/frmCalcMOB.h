#pragma once

#include <QRadioButton>

#include "ui/forms/drift_forms.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"

namespace skerrow {

// "Calculate Course Over Ground": where a body or an object in the water drifts.
class frmCalcMOB : public Dialog {
  Q_OBJECT

 public:
  frmCalcMOB(Desktop& desktop, QWidget* parent);

 private:
  QWidget* MakeObject();
  QWidget* MakeStart();
  QWidget* MakeGps();
  void LoadGps();
  MobEntry Entry() const;
  QWidget* BoxOf(DriftField field) const;
  void Predict();

  FilteredEdit* start_latitude_;
  FilteredEdit* start_longitude_;
  FilteredEdit* duration_;
  FilteredEdit* heading_;
  FilteredEdit* speed_;
  QRadioButton* at_mark_time_;
  QRadioButton* at_selected_time_;
  QLineEdit* gps_north_;
  QLineEdit* gps_east_;
  QLineEdit* gps_heading_;
  QPushButton* gps_to_start_;
  QPushButton* use_sog_;
  QWidget* gps_box_ = nullptr;
};

}  // namespace skerrow
