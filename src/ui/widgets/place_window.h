#pragma once

#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace skerrow {

// Room for the desktop's frame and title bar, which are not part of a window's size.
inline constexpr int kFrameWidth = 16;
inline constexpr int kFrameHeight = 48;

// Puts a window that is about to be shown over the middle of its parent, or of the screen, no
// larger than the screen and with its title bar on it. The toolkit reckons without the title bar.
inline void PlaceWindow(QWidget& window, QSize wanted) {
  const QRect room = window.screen()->availableGeometry();
  const QSize frame(kFrameWidth, kFrameHeight);
  window.resize(wanted.expandedTo(window.minimumSizeHint()).boundedTo(room.size() - frame));
  const QSize outer = window.size() + frame;
  const QWidget* parent = window.parentWidget();
  const QPoint middle = parent == nullptr ? room.center() : parent->window()->geometry().center();
  const QPoint at = middle - QPoint(outer.width() / 2, outer.height() / 2);
  window.move(std::clamp(at.x(), room.left(), std::max(room.left(), room.right() - outer.width())),
              std::clamp(at.y(), room.top(), std::max(room.top(), room.bottom() - outer.height())));
}

}  // namespace skerrow
