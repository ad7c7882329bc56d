#pragma once

#include <QLineEdit>

#include "ui/tides/port_picker.h"
#include "ui/widgets/dialog.h"

namespace skerrow {

// "Enter Tidal Offset": the user's own depth at a port.
class frmChartdepth : public Dialog {
  Q_OBJECT

 public:
  // `area` is the file of the ports; the one at `position` is chosen at first.
  frmChartdepth(Desktop& desktop, const std::string& area, PortList ports, int position,
                QWidget* parent);

 private:
  void ShowPort();
  void Accept();

  std::string area_;
  PortPicker* picker_;
  QLabel* name_;
  QLabel* place_;
  QLineEdit* depth_;
  QPushButton* ok_;
};

}  // namespace skerrow
