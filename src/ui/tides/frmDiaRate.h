#pragma once

#include <QLabel>
#include <optional>
#include <string>

#include "ui/forms/dia_rate_form.h"
#include "ui/plot/plot_widget.h"
#include "ui/widgets/dialog.h"

namespace skerrow {

// The graph of a diamond's rate over a day, with a readout under the mouse or the arrow keys.
class frmDiaRate : public Dialog {
  Q_OBJECT

 public:
  // `line` is the line of the report that was chosen; `threshold`, in knots, is drawn across.
  frmDiaRate(Desktop& desktop, const Diamond& diamond, const DayStream& stream,
             std::optional<float> threshold, const std::string& line, QWidget* parent);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void ShowEntry(double x);
  void FollowLook();

  Diamond diamond_;
  DayStream stream_;
  std::string title_;
  PlotWidget* graph_;
  QLabel* readout_;
};

}  // namespace skerrow
