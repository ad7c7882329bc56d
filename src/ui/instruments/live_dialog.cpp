#include "ui/instruments/live_dialog.h"

#include <QShowEvent>

namespace skerrow {

LiveDialog::LiveDialog(Desktop& desktop, const char* name, const QString& title, QWidget* parent,
                       int interval)
    : Dialog(desktop, name, title, parent) {
  setModal(false);
  timer_.setInterval(interval);
  connect(&timer_, &QTimer::timeout, this, [this] { Follow(); });
}

void LiveDialog::showEvent(QShowEvent* event) {
  Follow();
  timer_.start();
  Dialog::showEvent(event);
}

void LiveDialog::hideEvent(QHideEvent* event) {
  timer_.stop();
  Dialog::hideEvent(event);
}

void SetTextOf(QLabel& label, const QString& text) {
  if (label.text() != text) label.setText(text);
}

}  // namespace skerrow
