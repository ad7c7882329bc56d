#include "ui/dialogs/frmroutehistory.h"

namespace skerrow {

FrmRouteHistory::FrmRouteHistory(Desktop& desktop, QWidget* parent)
    : ReportDialog(desktop, "frmroutehistory", "Calculation History", "lsthistresults", parent) {
  SetReport(desktop.program.passage.route_history);
}

}  // namespace skerrow
