#pragma once

#include <QComboBox>
#include <string>

#include "core/serial_ports.h"

namespace skerrow {

// The list of ports. The number of one that is not there can be typed.
class PortBox : public QComboBox {
  Q_OBJECT

 public:
  // `ports` outlives it.
  PortBox(SerialPorts& ports, const char* name, QWidget* parent = nullptr);

  // Lists the ports as they are now, with one of them, counted from 0, selected.
  void Select(int port);
  // The row selected, or what is typed.
  std::string Text() const;
  void SetText(const std::string& text);

  void showPopup() override;

 private:
  SerialPorts& ports_;
};

}  // namespace skerrow
