#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "platform/settings_store.h"
#include "support/fake_ports.h"
#include "support/hands.h"
#include "support/memory_clipboard.h"
#include "support/recording_messages.h"
#include "support/still_clock.h"
#include "support/temp_folder.h"
#include "ui/main/frmChart.h"
#include "ui/widgets/theme.h"

namespace skerrow::testing {

// The main window on the sample installation, with user folders of its own.
class MainWindowTest : public ::testing::Test {
 protected:
  MainWindowTest()
      : program_({SKERROW_PROGRAM_FOLDER, user_.File("documents"), user_.File("settings")},
                 clock_) {
    MakeUserFolders(program_.folders);
    settings_ = OpenSettingsStore(user_.File("settings/SkerrowHelm/skerrow.ini"));
    settings_->SetInt("Help", "QuickInstructionsOffered", 1);
  }
  ~MainWindowTest() override { ApplyTheme(false); }

  void Start() {
    LoadProgram(program_, messages_);
    window_ = std::make_unique<frmChart>(program_, messages_, *settings_, clipboard_, ports_);
    window_->resize(1280, 720);
    window_->show();
    window_->Start();
    window_->resize(1280, 720);
    QApplication::processEvents();
  }

  QWidget* canvas() { return window_->viewer().viewport(); }

  // Where a place stands in the view.
  QPoint At(Position place) {
    const ChartView chart = MakeChartView(program_.charts.chart, window_->viewer().image_width(),
                                          window_->viewer().image_height());
    const QPointF at =
        window_->viewer().ImageToView({static_cast<double>(chart.LongToCol(place.longitude)),
                                       static_cast<double>(chart.LatToRow(place.latitude))});
    return at.toPoint();
  }

  void MoveTo(QPoint at, Qt::MouseButtons buttons = Qt::NoButton) {
    QMouseEvent move(QEvent::MouseMove, at, canvas()->mapToGlobal(at), Qt::NoButton, buttons,
                     Qt::NoModifier);
    QApplication::sendEvent(canvas(), &move);
  }

  void ShiftClick(Position place) {
    MoveTo(At(place));
    QTest::mouseClick(canvas(), Qt::LeftButton, Qt::ShiftModifier, At(place));
  }

  void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(&window_->viewer(), static_cast<Qt::Key>(key), modifiers);
  }

  // Works on the next modal windows, one after the other, as they open.
  static void OnDialog(std::function<void(QWidget*)> work) {
    WithNextDialog([work = std::move(work)](QDialog& dialog) { work(&dialog); });
  }

  static void Click(QWidget* window, const char* name) {
    auto* button = window->findChild<QAbstractButton*>(name);
    ASSERT_NE(button, nullptr) << name;
    QTest::mouseClick(button, Qt::LeftButton);
  }

  // Triggers a command the way its menu entry does.
  void Command(const char* name) {
    QAction* action = window_->action(name);
    ASSERT_NE(action, nullptr) << name;
    ASSERT_TRUE(action->isEnabled()) << name;
    action->trigger();
  }

  // Lays a route of three points in mid-Channel.
  void LayRoute() {
    ShiftClick({50.2F, -1.8F});
    ShiftClick({50.0F, -1.9F});
    ShiftClick({49.8F, -1.8F});
    ASSERT_EQ(program_.route.points.size(), 3U);
  }

  TempFolder user_;
  StillClock clock_;
  Program program_;
  RecordingMessages messages_;
  std::unique_ptr<SettingsStore> settings_;
  MemoryClipboard clipboard_;
  FakePorts ports_;
  std::unique_ptr<frmChart> window_;
};

}  // namespace skerrow::testing
