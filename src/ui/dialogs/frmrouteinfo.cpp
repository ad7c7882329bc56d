#include "ui/dialogs/frmrouteinfo.h"

namespace skerrow {

frmrouteinfo::frmrouteinfo(Desktop& desktop, QWidget* parent)
    : ReportDialog(desktop, "frmrouteinfo", "Route Calculations", "List1", parent) {
  SetReport(desktop.program.passage.result_lines);
}

}  // namespace skerrow
