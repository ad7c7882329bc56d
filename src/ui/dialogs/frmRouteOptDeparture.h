#pragma once

#include <QCheckBox>
#include <QProgressBar>
#include <QRadioButton>
#include <array>

#include "ui/forms/calc_route_form.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// "Optimise Departure": the search for the best hour to leave.
class frmRouteOptDeparture : public Dialog {
  Q_OBJECT

 public:
  frmRouteOptDeparture(Desktop& desktop, QWidget* parent);

  void reject() override;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void Load();
  void Search();
  std::size_t Slot() const;

  TextList* legs_;
  std::array<QRadioButton*, 5> slots_{};
  DepartureWind wind_;
  QCheckBox* use_wind_;
  QProgressBar* bar_;
  QLabel* progress_;
  QPushButton* cancel_ = nullptr;
  bool inputs_checked_ = false;
  bool stop_ = false;
};

}  // namespace skerrow
