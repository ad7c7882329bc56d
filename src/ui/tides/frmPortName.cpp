#include "ui/tides/frmPortName.h"

#include <QtWidgets/QLineEdit>

namespace skerrow {

frmPortName::frmPortName(Desktop& desktop, PortList ports, int position, QWidget* parent)
    : Dialog(desktop, "frmPortName", "Tidal Port", parent), picker_(new PortPicker("lstPorts")) {
  picker_->SetPorts(std::move(ports), position);
  body()->addWidget(picker_, 1);
  QPushButton* ok = AddButton("cmdOK", "OK");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(picker_, &PortPicker::Taken, this, &QDialog::accept);
  picker_->setFocus();
  resize(340, 440);
}

}  // namespace skerrow
