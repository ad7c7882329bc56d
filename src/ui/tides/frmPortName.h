#pragma once

#include "ui/tides/port_picker.h"
#include "ui/widgets/dialog.h"

namespace skerrow {

// "Tidal Port": the port of the tide screen by its name.
class frmPortName : public Dialog {
  Q_OBJECT

 public:
  // The port at `position` is chosen at first.
  frmPortName(Desktop& desktop, PortList ports, int position, QWidget* parent);

  // The record's position of the chosen port; below 1: none.
  int Position() const { return picker_->Position(); }

 private:
  PortPicker* picker_;
};

}  // namespace skerrow
