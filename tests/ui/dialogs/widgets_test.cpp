#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include "support/sample_desk.h"
#include "ui/dialogs/frmtimdat.h"
#include "ui/widgets/date_services.h"
#include "ui/widgets/desktop_messages.h"
#include "ui/widgets/field_edits.h"
#include "ui/widgets/progress_dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow::testing {
namespace {

class DialogTestOnDesk : public SampleDesk {};

QDialog* ProgressWindow() {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->objectName() == "ProgressDialog" && widget->isVisible()) {
      return qobject_cast<QDialog*>(widget);
    }
  }
  return nullptr;
}

TEST(ProgressDialogTest, StaysAwayFromShortWorkAndCancelsLongWork) {
  ProgressDialog progress(nullptr, "Working");
  EXPECT_TRUE(progress.Step(5));
  EXPECT_EQ(ProgressWindow(), nullptr);
  QTest::qSleep(ProgressDialog::kShowAfterMs + 20);
  EXPECT_TRUE(progress.Step(40));
  QDialog* window = ProgressWindow();
  ASSERT_NE(window, nullptr);
  QTimer::singleShot(0, [window] {
    QTest::mouseClick(window->findChild<QPushButton*>("cmdCancel"), Qt::LeftButton);
  });
  EXPECT_FALSE(progress.Step(50)) << "the step serves the click";
  EXPECT_FALSE(progress.Step(60)) << "and the wish stays";
  EXPECT_EQ(ProgressWindow(), nullptr);
}

TEST(FilteredEditTest, APasteKeepsWhatPasses) {
  RecordingMessages messages;
  FilteredEdit edit(KeyFilter::kLongitude, messages, "x");
  QApplication::clipboard()->setText(QStringLiteral("W 001\u00b005.40'w"));
  edit.paste();
  EXPECT_EQ(edit.Text(), "W00105.40W");
  edit.clear();
  QTest::keyClicks(&edit, "001.05.40w");
  QTest::keyClick(&edit, Qt::Key_Backspace);
  EXPECT_EQ(edit.Text(), "001.05.40");
  EXPECT_EQ(messages.beeps, 0);
}

TEST(TimeEntryTest, TextAndListsFollowEachOther) {
  RecordingMessages messages;
  TimeEntry entry(messages, "text", "hours", "minutes");
  entry.SetText("09:05");
  auto* hours = entry.findChild<QComboBox*>("hours");
  auto* minutes = entry.findChild<QComboBox*>("minutes");
  EXPECT_EQ(hours->currentText(), "09");
  EXPECT_EQ(minutes->currentText(), "05");
  hours->setCurrentIndex(17);
  emit hours->activated(17);
  EXPECT_EQ(entry.Text(), "17:05");
  entry.text_box()->selectAll();
  QTest::keyClicks(entry.text_box(), "6:4");
  EXPECT_EQ(entry.Text(), "6:4") << "typing is left as it stands";
  EXPECT_EQ(hours->currentText(), "06");
}

TEST(TextListTest, LinesColumnsUpByTheirNumberOfTabs) {
  MemoryClipboard clipboard;
  TextList list(clipboard, "x");
  list.SetLines({"no columns", "short\t1", "a much longer name\t2", "a\tb\tc", "pad\t\t3"});
  const auto width = [&list](const char* text) {
    return list.fontMetrics().horizontalAdvance(QString::fromUtf8(text));
  };
  ASSERT_EQ(list.ColumnsOf(1).size(), 2U);
  EXPECT_GT(list.ColumnsOf(1)[1], width("a much longer name"));
  EXPECT_LT(list.ColumnsOf(2)[1], list.ColumnsOf(1)[1]);
  list.item(4)->setSelected(true);
  QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(clipboard.Text(), "pad\t\t3") << "the copy keeps every tab";
  list.SetLines({});
  EXPECT_FALSE(list.CopyAll());
  EXPECT_EQ(clipboard.Text(), "pad\t\t3");
}

TEST(DesktopMessagesTest, ShowsUnderTheProgramsTitleAndTakesEscForNo) {
  DesktopMessages desktop_messages;
  Messages& messages = desktop_messages;
  QString title;
  QString text;
  const auto press = [&](int key) {
    QTimer::singleShot(30, [&title, &text, key] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      title = box->windowTitle();
      text = box->text();
      if (key == 0) {
        QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
      } else {
        QTest::keyClick(box, static_cast<Qt::Key>(key));
      }
    });
  };
  press(Qt::Key_Return);
  messages.Show("<b>5\u00b0</b> & more", MessageIcon::kWarning);
  EXPECT_EQ(title, "Skerrow");
  EXPECT_EQ(text, QString::fromUtf8("<b>5\u00b0</b> & more"));
  press(Qt::Key_Escape);
  EXPECT_FALSE(messages.Ask("Really?", "Insert Point"));
  EXPECT_EQ(title, "Insert Point");
  press(Qt::Key_Return);
  EXPECT_FALSE(messages.Ask("Really?")) << "Return takes the harmless answer";
  press(0);
  EXPECT_TRUE(messages.Ask("Really?"));
}

TEST_F(DialogTestOnDesk, OpensAtTheSizeItWasLeftAt) {
  {
    frmtimdat form(desktop, nullptr);
    form.show();
    form.resize(form.width() + 120, form.height() + 60);
    form.reject();
    EXPECT_EQ(settings.Get("Windows", "frmtimdat"),
              std::to_string(form.width()) + "x" + std::to_string(form.height()));
  }
  const std::string kept = settings.Get("Windows", "frmtimdat");
  frmtimdat form(desktop, nullptr);
  form.show();
  EXPECT_EQ(std::to_string(form.width()) + "x" + std::to_string(form.height()), kept);
  // A stored size beyond the screen is brought back onto it.
  settings.Set("Windows", "frmtimdat", "9000x9000");
  frmtimdat large(desktop, nullptr);
  large.show();
  EXPECT_LT(large.width(), 9000);
  settings.Set("Windows", "frmtimdat", "x-1");
  frmtimdat odd(desktop, nullptr);
  odd.show();
  EXPECT_GT(odd.width(), 100);
}

TEST(WidenedDateFormat, KeepsTheOrderOfTheLocale) {
  for (const auto& [given, widened] : {std::pair{"d/M/yy", "dd/MM/yyyy"},
                                       {"M/d/yy", "MM/dd/yyyy"},
                                       {"d. M. yyyy", "dd.MM.yyyy"},
                                       {"yyyy-MM-dd", "yyyy-MM-dd"},
                                       {"d MMM yyyy", "dd-MM-yyyy"},
                                       {"yy/M/d", "yyyy/MM/dd"},
                                       {"dd.MM.yy", "dd.MM.yyyy"},
                                       {"", "yyyy-MM-dd"}}) {
    EXPECT_EQ(WidenedDateFormat(given), widened) << given;
  }
  EXPECT_NE(DetectDateOrder(LocaleDateServices()), "") << "this machine passes the gate";
}

}  // namespace
}  // namespace skerrow::testing
