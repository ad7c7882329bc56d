#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>

#include "ui/forms/calc_route_form.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// "Route Calculation": departure, speeds, leeway and tacks of the route, and its calculation.
class FrmCalcRoute : public Dialog {
  Q_OBJECT

 public:
  FrmCalcRoute(Desktop& desktop, QWidget* parent);

  // The leg in the boxes, from 1.
  std::size_t leg() const { return leg_; }

 private:
  QWidget* MakeLegBox();
  QWidget* MakeSideColumn();
  void MakeButtons();
  void Load();
  void LoadLeg(std::size_t leg);
  void LoadGps();
  void RouteEdited();
  void AcceptLegEntry();
  void ApplySpeed();
  void UseGps();
  void Copy();
  void Calculate();

  std::size_t leg_ = 1;
  TextList* legs_;
  QLabel* distance_;
  QLabel* date_;
  TimeEntry* time_;
  QCheckBox* leeway_on_;
  FilteredEdit* leeway_;
  QLabel* leg_title_;
  QLineEdit* start_name_;
  FilteredEdit* start_latitude_;
  FilteredEdit* start_longitude_;
  QLineEdit* end_name_;
  FilteredEdit* end_latitude_;
  FilteredEdit* end_longitude_;
  FilteredEdit* speed_;
  QGroupBox* gps_box_;
  QLabel* gps_position_;
  QLabel* gps_speed_;
  QCheckBox* use_sog_;
};

}  // namespace skerrow
