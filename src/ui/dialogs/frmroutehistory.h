#pragma once

#include "ui/dialogs/report_dialog.h"

namespace skerrow {

// "Calculation History": the summaries of all calculations of this run.
class frmroutehistory : public ReportDialog {
  Q_OBJECT

 public:
  frmroutehistory(Desktop& desktop, QWidget* parent);

 protected:
  std::string PrintHeading() const override { return "Calculation History"; }
};

}  // namespace skerrow
