#include "ui/instruments/frmAISLog.h"

namespace skerrow {

frmAISLog::frmAISLog(Desktop& desktop, QWidget* parent)
    : LinkDialog(desktop, "frmAISLog",
                 desktop.program.config.gps_through_ais != 0 ? "AIS/GPS Connection and Log"
                                                             : "AIS Connection and Log",
                 LinkKind::kAis, parent) {}

}  // namespace skerrow
