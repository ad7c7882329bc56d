#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <functional>

#include "ui/dialogs/leg_box.h"
#include "ui/forms/calc_route_form.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// "Route Calculation": departure, speeds, leeway and tacks of the route, and its calculation.
class frmcalcroute : public Dialog {
  Q_OBJECT

 public:
  frmcalcroute(Desktop& desktop, QWidget* parent);

  // The leg in the boxes, from 1.
  std::size_t leg() const { return leg_; }

 private:
  QWidget* MakeSideColumn();
  void MakeButtons();
  void Load();
  void LoadLeg(std::size_t leg);
  void LoadGps();
  // Changes the route as the edit `name` and shows what came of it, or the refusal.
  void Edit(const char* name, const std::function<RouteFormRefusal(RouteState&)>& edit);
  void SetTacks();
  void Copy();
  void Calculate();

  std::size_t leg_ = 1;
  TextList* legs_;
  QLabel* distance_;
  QLabel* date_;
  TimeEntry* time_;
  QCheckBox* leeway_on_;
  FilteredEdit* leeway_;
  LegBox* leg_box_;
  QGroupBox* gps_box_;
  QLabel* gps_position_;
  QLabel* gps_speed_;
  QCheckBox* use_sog_;
};

}  // namespace skerrow
