#pragma once

#include "ui/dialogs/report_dialog.h"

namespace skerrow {

// "Route Calculations": the report of the last route.
class frmrouteinfo : public ReportDialog {
  Q_OBJECT

 public:
  frmrouteinfo(Desktop& desktop, QWidget* parent);
};

}  // namespace skerrow
