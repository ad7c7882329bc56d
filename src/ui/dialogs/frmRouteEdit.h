#pragma once

#include <QLineEdit>
#include <QRadioButton>

#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"
#include "ui/widgets/record_file_view.h"

namespace skerrow {

// "Edit Route Points": the legs of the route by keyboard, with waypoints of any file to put in.
class FrmRouteEdit : public Dialog {
  Q_OBJECT

 public:
  FrmRouteEdit(Desktop& desktop, QWidget* parent);

  void done(int result) override;

 private:
  QWidget* MakeLegBox();
  QLayout* MakeInsertion();
  void Load();
  void LoadLeg(std::size_t leg);
  void ChangeLeg();
  void InsertPoint();
  void DeletePoint();
  void ApplySpeed();
  // Shows a refusal, or the changed route.
  void Finish(RouteFormRefusal refusal);

  std::size_t leg_ = 0;  // from 1; 0 while none is chosen
  TextList* legs_;
  RecordFileView* view_;
  QRadioButton* before_;
  QRadioButton* after_;
  QLineEdit* start_name_;
  FilteredEdit* start_latitude_;
  FilteredEdit* start_longitude_;
  QLineEdit* end_name_;
  FilteredEdit* end_latitude_;
  FilteredEdit* end_longitude_;
  FilteredEdit* speed_;
};

}  // namespace skerrow
