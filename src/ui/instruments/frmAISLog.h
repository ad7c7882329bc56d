#pragma once

#include "ui/instruments/link_dialog.h"

namespace skerrow {

// Port, test and log of the AIS receiver.
class frmAISLog : public LinkDialog {
  Q_OBJECT

 public:
  frmAISLog(Desktop& desktop, QWidget* parent);
};

}  // namespace skerrow
