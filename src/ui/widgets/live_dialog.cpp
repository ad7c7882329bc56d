#include "ui/widgets/live_dialog.h"

#include <QScreen>
#include <QShowEvent>
#include <algorithm>

#include "ui/widgets/place_window.h"

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
  if (!placed_) PlaceBeside();
  placed_ = true;
}

// At the right edge of its parent, below the toolbars, so that the middle of the chart is seen.
void LiveDialog::PlaceBeside() {
  if (parentWidget() == nullptr) return;
  constexpr int kBelow = 120;
  const QRect room = screen()->availableGeometry();
  const QRect parent = parentWidget()->window()->geometry();
  const QSize outer = size() + QSize(kFrameWidth, kFrameHeight);
  const int left = std::min(parent.right(), room.right()) - outer.width();
  const int top = std::min(parent.top() + kBelow, room.bottom() - outer.height());
  move(std::max(left, room.left()), std::max(top, room.top()));
}

void LiveDialog::hideEvent(QHideEvent* event) {
  timer_.stop();
  Dialog::hideEvent(event);
}

void SetTextOf(QLabel& label, const QString& text) {
  if (label.text() != text) label.setText(text);
}

}  // namespace skerrow
