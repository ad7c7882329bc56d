#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QListWidget>
#include <memory>
#include <optional>

#include "core/polar_database.h"
#include "ui/forms/wind_form.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// "Wind Calculation": the wind entered, the boat's set-up, and the speed and tack that they give
// each leg of the route.
class frmWind : public Dialog {
  Q_OBJECT

 public:
  frmWind(Desktop& desktop, QWidget* parent);

 private:
  QWidget* MakeWind();
  QWidget* MakeBoat();
  QWidget* MakeRoute();
  QWidget* MakeForces();
  QWidget* MakeCompass();

  WindEntry Entry() const;
  // False, with its words, for a refusal.
  bool Passes(WindRefusal refusal);
  // The buttons follow the boxes.
  void FollowBoxes();

  // Lists the set-ups, none of them selected, and gives their names.
  std::vector<std::string> ListSetUps();
  // Selects one of the list by its name; another name selects none.
  void TakeUp(const std::string& name);
  void ChooseSetUp(int row);

  // The entered wind becomes the default one.
  void KeepWind();
  void Estimate();
  void CalculateRoute();
  void CalculateLeg(std::size_t leg);
  void SetLegWind(std::size_t leg);
  void Reset();
  void ShowLegs();
  void ShowPolar();
  void EditPolar();

  std::unique_ptr<PolarDatabase> polars_;
  std::string set_up_;  // empty: none is selected
  PolarRows rows_;
  std::optional<PolarTable> table_;

  FilteredEdit* speed_;
  FilteredEdit* direction_;
  FilteredEdit* heading_;
  QButtonGroup* forces_;
  QButtonGroup* compass_;
  QListWidget* set_ups_;
  QLabel* boat_;
  QLineEdit* result_;
  QLabel* tack_;
  QCheckBox* constant_;
  TextList* legs_;
  QLabel* leg_wind_;
};

}  // namespace skerrow
