#pragma once

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

#include "app/edits.h"
#include "routes/file_forms.h"
#include "support/recording_messages.h"
#include "support/temp_folder.h"
#include "tests/ui/dialogs/dialog_fixture.h"

// A program on the sample data with strict messages, and hands for its dialogs.
namespace skerrow::testing {

class RouteBench : public ::testing::Test {
 protected:
  RouteBench()
      : desktop{desk_.program,   messages,     desk_.settings,
                desk_.clipboard, desk_.window, desk_.view} {
    for (const char* name : {"Sample.rte", "Portland Bill.rte"}) {
      EXPECT_TRUE(ImportFiles(program.folders, FileKind::kRoute,
                              {program.folders.Samples() + "/" + name}, messages));
    }
  }

  // The sample route, as a load from its file leaves it.
  void LoadSample() {
    ASSERT_TRUE(desk_.LoadSampleRoute());
    program.edits.saved_route.Mark(program.route);
  }

  std::string RouteFile(const std::string& name) const { return RoutePath(program.folders, name); }
  std::string WayFile(const std::string& name) const { return WaypointPath(program.folders, name); }
  FakeWindow& window() { return desk_.window; }
  SettingsStore& settings() { return desk_.settings; }

 private:
  SampleDesk desk_;

 public:
  RecordingMessages messages;
  Program& program = desk_.program;
  Desktop desktop;
};

template <typename Widget = QWidget>
Widget* Find(QWidget& form, const char* name) {
  auto* widget = form.findChild<Widget*>(QString::fromUtf8(name));
  EXPECT_NE(widget, nullptr) << name;
  return widget;
}

inline void Click(QWidget& form, const char* button) {
  QTest::mouseClick(Find<QPushButton>(form, button), Qt::LeftButton);
}

inline void Type(QWidget& form, const char* box, const char* text) {
  auto* edit = Find<QLineEdit>(form, box);
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

// Runs `act` on the modal dialog that comes up next. The dialog is rejected if it is still open
// afterwards, so that a failure cannot hang.
inline void WithNextDialog(std::function<void(QDialog&)> act, int tries = 200) {
  QTimer::singleShot(10, [act = std::move(act), tries] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible()) {
      if (tries == 0) {
        ADD_FAILURE() << "no dialog came up";
      } else {
        WithNextDialog(act, tries - 1);
      }
      return;
    }
    act(*dialog);
    if (dialog->isVisible()) dialog->reject();
  });
}

// Shows a form and waits until it takes events.
template <typename Form>
void Show(Form& form) {
  form.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
}

}  // namespace skerrow::testing
