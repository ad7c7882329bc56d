#pragma once

#include "ui/instruments/link_dialog.h"

namespace skerrow {

// Port, test and log of the GPS.
class frmGPSLog : public LinkDialog {
  Q_OBJECT

 public:
  frmGPSLog(Desktop& desktop, QWidget* parent);
};

}  // namespace skerrow
