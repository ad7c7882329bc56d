#pragma once

#include <QEvent>
#include <QKeyEvent>
#include <QObject>
#include <functional>
#include <utility>

namespace skerrow {

// Makes keys without a modifier run an action in the widgets it filters, in the place of what they
// would do there or in the dialog. Qt::Key_Return stands for both Enter keys.
class KeyAction final : public QObject {
 public:
  KeyAction(QObject* parent, Qt::Key key, std::function<void()> action)
      : QObject(parent), key_(key), action_(std::move(action)) {}

  // The same for one widget, which owns the filter.
  static void Install(QObject* widget, Qt::Key key, std::function<void()> action) {
    widget->installEventFilter(new KeyAction(widget, key, std::move(action)));
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress) {
      const auto* press = static_cast<QKeyEvent*>(event);
      const int key = press->key() == Qt::Key_Enter ? int{Qt::Key_Return} : press->key();
      if (key == key_ && (press->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
        action_();
        return true;
      }
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  Qt::Key key_;
  std::function<void()> action_;
};

}  // namespace skerrow
