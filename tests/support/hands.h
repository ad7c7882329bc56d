#pragma once

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <string>

// A user's hands: widgets found by their published names, clicked and typed into by real events.
namespace skerrow::testing {

template <typename Widget = QWidget>
Widget* Find(QWidget& form, const char* name) {
  auto* widget = form.findChild<Widget*>(QString::fromUtf8(name));
  EXPECT_NE(widget, nullptr) << name;
  return widget;
}

inline void Click(QWidget& form, const char* button) {
  auto* found = Find<QAbstractButton>(form, button);
  ASSERT_NE(found, nullptr);
  // A box or an option takes its click on the mark, not in the middle of its row.
  const bool push = qobject_cast<QPushButton*>(found) != nullptr;
  QTest::mouseClick(found, Qt::LeftButton, {}, push ? QPoint() : QPoint(8, found->height() / 2));
}

inline void Type(QWidget& form, const char* box, const char* text) {
  auto* edit = Find<QLineEdit>(form, box);
  ASSERT_NE(edit, nullptr);
  edit->setFocus();
  QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(edit, Qt::Key_Delete);
  QTest::keyClicks(edit, QString::fromUtf8(text));
}

// Clicks a row by the mouse; twice for a double click, with the events that a desktop sends.
inline void ClickRow(QWidget& form, const char* list_name, int row, int times = 1) {
  auto* list = Find<QListWidget>(form, list_name);
  ASSERT_LT(row, list->count());
  list->scrollToItem(list->item(row));
  const QPoint at = list->visualItemRect(list->item(row)).center();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
  if (times == 2) {
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, at);
  }
}

inline int RowOfText(QWidget& form, const char* list_name, const char* start) {
  auto* list = Find<QListWidget>(form, list_name);
  for (int row = 0; row < list->count(); ++row) {
    if (list->item(row)->text().startsWith(QString::fromUtf8(start))) return row;
  }
  ADD_FAILURE() << "no row " << start << " in " << list_name;
  return 0;
}

inline std::string TextOf(QWidget& form, const char* list_name, int row) {
  return Find<QListWidget>(form, list_name)->item(row)->text().toStdString();
}

// Shows a form and waits until it takes events.
inline void Show(QWidget& form) {
  form.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
}

// What is to be done with the modal dialogs to come, one after the other.
class NextDialogs {
 public:
  static void Add(std::function<void(QDialog&)> act) {
    waiting_.push_back(std::move(act));
    if (waiting_.size() == 1) Wait(kTries);
  }

 private:
  static constexpr int kTries = 500;
  static constexpr int kPauseMs = 10;

  static void Wait(int tries) {
    QTimer::singleShot(kPauseMs, qApp, [tries] {
      if (waiting_.empty()) return;
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (dialog == nullptr || !dialog->isVisible() || dialog == at_work_) {
        if (tries > 0) return Wait(tries - 1);
        ADD_FAILURE() << "no dialog came up";
        waiting_.clear();
        if (dialog != nullptr) dialog->reject();
        return;
      }
      const std::function<void(QDialog&)> act = std::move(waiting_.front());
      waiting_.pop_front();
      if (!waiting_.empty()) Wait(kTries);
      const QPointer<QDialog> before = at_work_;
      const QPointer<QDialog> held(dialog);
      at_work_ = dialog;
      act(*dialog);
      if (held != nullptr && held->isVisible()) held->reject();
      at_work_ = before;
    });
  }

  static inline std::deque<std::function<void(QDialog&)>> waiting_;
  static inline QPointer<QDialog> at_work_;
};

// Runs `act` on the modal dialog that comes up next; several calls stand in line. A dialog that is
// still open afterwards is rejected, and one that never comes is a failure, so that no fault can
// hang.
inline void WithNextDialog(std::function<void(QDialog&)> act) { NextDialogs::Add(std::move(act)); }

}  // namespace skerrow::testing
