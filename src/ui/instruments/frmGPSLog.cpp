#include "ui/instruments/frmGPSLog.h"

namespace skerrow {

frmGPSLog::frmGPSLog(Desktop& desktop, QWidget* parent)
    : LinkDialog(desktop, "frmGPSLog", "GPS Connection and Log", LinkKind::kGps, parent) {}

}  // namespace skerrow
