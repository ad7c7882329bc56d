#pragma once

#include "ui/dialogs/report_dialog.h"

namespace skerrow {

// "Route Calculations": the report of the last route.
class FrmRouteInfo : public ReportDialog {
  Q_OBJECT

 public:
  FrmRouteInfo(Desktop& desktop, QWidget* parent);
};

}  // namespace skerrow
