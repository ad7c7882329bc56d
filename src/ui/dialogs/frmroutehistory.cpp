#include "ui/dialogs/frmroutehistory.h"

namespace skerrow {

frmroutehistory::frmroutehistory(Desktop& desktop, QWidget* parent)
    : ReportDialog(desktop, "frmroutehistory", "Calculation History", "lsthistresults", parent) {
  SetReport(desktop.program.passage.route_history);
}

}  // namespace skerrow
