#pragma once

#include <QLabel>

#include "ui/forms/dia_rate_form.h"
#include "ui/plot/plot_widget.h"
#include "ui/widgets/dialog.h"

namespace skerrow {

// The graph of a diamond's rate over a day, with a readout under the mouse or the arrow keys.
class frmDiaRate : public Dialog {
  Q_OBJECT

 public:
  frmDiaRate(Desktop& desktop, const Diamond& diamond, const RateGraph& graph, QWidget* parent);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void ShowEntry(double x);
  void FollowLook();

  Diamond diamond_;
  RateGraph graph_;
  PlotWidget* picture_;
  QLabel* readout_;
};

}  // namespace skerrow
