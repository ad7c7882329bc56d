#pragma once

#include <QLineEdit>

#include "ui/dialogs/polar_pictures.h"
#include "ui/widgets/dialog.h"

namespace skerrow {

// "Polar Plot": the boat's speeds in all winds, to look at, and an estimate among them.
class frmPolarPlot : public Dialog {
  Q_OBJECT

 public:
  frmPolarPlot(Desktop& desktop, const std::string& set_up, const PolarRows& rows,
               const std::optional<PolarEstimate>& estimate, QWidget* parent);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Print();

  std::string set_up_;
  PolarPictures* pictures_;
};

}  // namespace skerrow
