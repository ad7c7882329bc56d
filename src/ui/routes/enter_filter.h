#pragma once

#include <QEvent>
#include <QKeyEvent>
#include <QObject>
#include <functional>
#include <utility>

namespace skerrow {

// Makes Enter in a box run `action` instead of the dialog's default button.
class EnterFilter final : public QObject {
 public:
  EnterFilter(QObject* parent, std::function<void()> action)
      : QObject(parent), action_(std::move(action)) {}

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress) {
      const int key = static_cast<QKeyEvent*>(event)->key();
      if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        action_();
        return true;
      }
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  std::function<void()> action_;
};

}  // namespace skerrow
