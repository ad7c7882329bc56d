#include "ui/instruments/port_box.h"

#include <QLineEdit>

#include "ui/forms/link_form.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr int kCharacters = 24;

}  // namespace

PortBox::PortBox(SerialPorts& ports, const char* name, QWidget* parent)
    : QComboBox(parent), ports_(ports) {
  setObjectName(QString::fromUtf8(name));
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  setCompleter(nullptr);
  setMinimumContentsLength(kCharacters);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setToolTip("The ports by their numbers. A device keeps its number when it is plugged in again.");
}

void PortBox::Select(int port) {
  const std::vector<std::string> rows = PortRows(ports_, port);
  clear();
  for (const std::string& row : rows) addItem(ToQt(row));
  SetText(RowOfPort(rows, port));
}

std::string PortBox::Text() const { return FromQt(currentText()); }

void PortBox::SetText(const std::string& text) {
  const QString wanted = ToQt(text);
  setCurrentIndex(findText(wanted));
  setEditText(wanted);
  lineEdit()->setCursorPosition(0);
}

void PortBox::showPopup() {
  // What was plugged in since stands in the list too.
  if (const auto port = PortOfText(Text())) Select(*port);
  QComboBox::showPopup();
}

}  // namespace skerrow
