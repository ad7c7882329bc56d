#include <QApplication>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

#include "tests/ui/dialogs/dialog_fixture.h"
#include "ui/dialogs/frmOptResults.h"
#include "ui/dialogs/frmRouteOptDeparture.h"
#include "ui/dialogs/frmcalcroute.h"
#include "ui/dialogs/frmresults.h"
#include "ui/forms/calc_route_form.h"

namespace skerrow {
namespace {

// Runs `work` on the next modal dialog of that name, then closes it.
void OnModal(const char* name, std::function<void(QDialog&)> work, bool& seen) {
  QTimer::singleShot(50, [name, work, &seen] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || dialog->objectName() != QLatin1String(name)) {
      if (dialog != nullptr) dialog->reject();
      return;
    }
    seen = true;
    work(*dialog);
    dialog->close();
  });
}

class PassageDialogs : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(desk.LoadSampleRoute()); }

  template <typename Widget>
  static Widget& Find(QWidget& form, const char* name) {
    auto* widget = form.findChild<Widget*>(QString::fromUtf8(name));
    if (widget == nullptr) throw std::runtime_error(std::string("no ") + name);
    return *widget;
  }
  static void Click(QWidget& form, const char* name) {
    QTest::mouseClick(&Find<QPushButton>(form, name), Qt::LeftButton);
  }
  static void Type(QWidget& form, const char* name, const char* text) {
    auto& box = Find<QLineEdit>(form, name);
    box.selectAll();
    box.setFocus();
    if (*text == '\0') QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, QString::fromUtf8(text));
  }

  SampleDesk desk;
};

TEST_F(PassageDialogs, ACalculationOpensItsResults) {
  FrmCalcRoute form(desk.desktop, nullptr);
  form.show();
  Type(form, "rtedeptime", "06:15");
  bool seen = false;
  QString third;
  OnModal(
      "frmresults",
      [&third](QDialog& results) {
        third = Find<QListWidget>(results, "lstResults").item(3)->text();
      },
      seen);
  Click(form, "Cmdrteok");
  EXPECT_TRUE(seen);
  EXPECT_TRUE(third.startsWith("Departing 06:15, Passage time = ")) << third.toStdString();
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(desk.program.passage.calc_mode, 1);
  EXPECT_GE(desk.window.changes, 1);
  EXPECT_TRUE(desk.messages.shown.empty());
}

TEST_F(PassageDialogs, ABadTimeIsRefusedInItsWords) {
  FrmCalcRoute form(desk.desktop, nullptr);
  form.show();
  struct Row {
    const char* typed;
    const char* text;
    int beeps;
  };
  for (const Row& row : {Row{"9:5", "Please enter a valid time i.e. 12:35", 0},
                         Row{"0905", "Please enter a valid time i.e. 12:35", 0},
                         Row{"24:00", "Please enter a valid time", 1},
                         Row{"12:60", "Please enter a valid time", 1}}) {
    desk.messages = {};
    Type(form, "rtedeptime", row.typed);
    Click(form, "Cmdrteok");
    ASSERT_EQ(desk.messages.shown.size(), 1U) << row.typed;
    EXPECT_EQ(desk.messages.shown[0], row.text);
    EXPECT_EQ(desk.messages.titles[0], "Skerrow");
    EXPECT_EQ(desk.messages.beeps, row.beeps);
    EXPECT_TRUE(form.isVisible());
  }
  EXPECT_TRUE(desk.program.passage.result_lines.empty());
}

TEST_F(PassageDialogs, ACancelledCalculationLeavesTheLastResult) {
  NoProgress progress;
  ASSERT_EQ(RunCalculation(desk.program, {"06:00", false, ""}, desk.messages, progress),
            RouteOutcome::kDone);
  const std::vector<std::string> before = desk.program.passage.result_lines;
  FrmCalcRoute form(desk.desktop, nullptr);
  form.show();
  desk.window.stop_at = 20.0;
  Type(form, "rtedeptime", "11:00");
  Click(form, "Cmdrteok");
  EXPECT_TRUE(form.isVisible());
  EXPECT_TRUE(Find<QPushButton>(form, "Cmdrteok").isEnabled());
  EXPECT_FALSE(Find<QPushButton>(form, "cmdWind").isEnabled()) << "it was not enabled before";
  EXPECT_EQ(desk.program.passage.result_lines, before);
}

// Presses Esc in the dialog at each step, as an impatient user does.
TEST_F(PassageDialogs, TheDialogStaysWhileItCalculates) {
  FrmCalcRoute form(desk.desktop, nullptr);
  form.show();
  QTimer escape;
  QObject::connect(&escape, &QTimer::timeout, &form, [&form, this] {
    if (!desk.window.steps.empty() && desk.window.steps.back() < 100) {
      form.reject();
      EXPECT_TRUE(form.isVisible());
      EXPECT_FALSE(Find<QPushButton>(form, "Cmdrteok").isEnabled());
    }
  });
  escape.start(0);
  bool seen = false;
  OnModal(
      "frmresults", [&escape](QDialog&) { escape.stop(); }, seen);
  Click(form, "Cmdrteok");
  EXPECT_TRUE(seen);
}

TEST_F(PassageDialogs, LegsAreEditedFromTheList) {
  FrmCalcRoute form(desk.desktop, nullptr);
  form.show();
  auto& list = Find<QListWidget>(form, "List1");
  // The seventh row belongs to the second leg.
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                    list.visualItemRect(list.item(6)).center());
  EXPECT_EQ(form.leg(), 2U);
  EXPECT_EQ(Find<QLineEdit>(form, "txtroutestartname").text(), "Needles South West");
  Type(form, "txtroutestartlat", "");
  Click(form, "cmdModify");
  EXPECT_EQ(desk.messages.shown.at(0), "Error - Latitude entry");
  Type(form, "txtroutestartlat", "50.35.00n");
  Type(form, "txtroutespeed", "6.5");
  Click(form, "cmdModify");
  EXPECT_NEAR(desk.program.route.points[1].latitude, 50.5833, 1e-4);
  EXPECT_FLOAT_EQ(desk.program.route.points[1].speed, 6.5F);
  EXPECT_EQ(form.leg(), 2U) << "the edited leg stays the chosen one";
  Type(form, "txtroutespeed", "0");
  Click(form, "cmdRouteSpeed");
  EXPECT_EQ(desk.messages.shown.back(), "Must enter a valid speed");
  const Position end = desk.program.route.points.back().At();
  Click(form, "cmdreverse");
  EXPECT_EQ(desk.program.route.points.front().At(), end);
  Click(form, "cmdCopy");
  EXPECT_TRUE(desk.clipboard.Text().starts_with("Route Plan \n\nDeparture Time 09:30 on 14 Jun"));
}

TEST_F(PassageDialogs, ResultsSwitchCopyAndFinish) {
  NoProgress progress;
  ASSERT_EQ(RunCalculation(desk.program, {"06:00", false, ""}, desk.messages, progress),
            RouteOutcome::kDone);
  FrmResults form(desk.desktop, nullptr);
  form.show();
  auto& list = Find<QListWidget>(form, "lstResults");
  Click(form, "cmdClipboardCopy");
  EXPECT_EQ(desk.clipboard.Text(), JoinLines(desk.program.passage.result_lines));
  desk.clipboard.SetText("kept");
  Find<QRadioButton>(form, "Option2").click();
  Click(form, "cmdClipboardCopy");
  EXPECT_EQ(desk.clipboard.Text(), "kept") << "nothing is selected";
  list.item(2)->setSelected(true);
  list.item(4)->setSelected(true);
  Click(form, "cmdClipboardCopy");
  EXPECT_EQ(desk.clipboard.Text(),
            desk.program.passage.result_lines[2] + "\n" + desk.program.passage.result_lines[4]);
  Find<QRadioButton>(form, "optTidalDetails").click();
  const int thirds = list.count();
  Find<QCheckBox>(form, "chkDisplayAll").click();
  EXPECT_EQ(list.count(), static_cast<int>(desk.program.passage.route_streams.size()) + 1);
  EXPECT_EQ(thirds, (list.count() - 1 + 2) / 3 + 1);
}

TEST_F(PassageDialogs, NoResultsAreSaidSo) {
  FrmResults::ShowLast(desk.desktop, nullptr);
  EXPECT_EQ(desk.messages.shown.at(0), "No Results to display");
}

TEST_F(PassageDialogs, ASearchShowsItsChartAndTakesADeparture) {
  FrmRouteOptDeparture form(desk.desktop, nullptr);
  form.show();
  QTest::qWait(20);
  Find<QRadioButton>(form, "Option2").click();
  bool seen = false;
  bool route_seen = false;
  OnModal(
      "frmOptResults",
      [&](QDialog& results) {
        auto& chart = Find<DepartureChart>(results, "pctResults");
        auto& cursor = Find<QLabel>(results, "lblCursor");
        const int left = chart.LeftMargin();
        const int bar = (chart.width() - left) / 8;
        QTest::mouseMove(&chart, QPoint(left + bar * 3 + bar / 2, 40));
        EXPECT_EQ(chart.marked(), 3U);
        EXPECT_TRUE(cursor.text().endsWith("departing at 09:00")) << cursor.text().toStdString();
        QTest::mouseMove(&chart, QPoint(2, 40));
        EXPECT_EQ(chart.marked(), 3U) << "the mark stays beside the bars";
        QTest::keyClick(&chart, Qt::Key_Right);
        EXPECT_EQ(chart.marked(), 4U);
        Find<QAction>(results, "COPYIMG").trigger();
        EXPECT_FALSE(desk.clipboard.picture().empty());
        Find<QAction>(results, "COPYTEXT").trigger();
        EXPECT_EQ(desk.clipboard.Text(), JoinLines(desk.program.passage.result_lines) + "\n");
        OnModal(
            "frmcalcroute",
            [](QDialog& route) { EXPECT_EQ(Find<QLineEdit>(route, "rtedeptime").text(), "10:00"); },
            route_seen);
        Find<QAction>(results, "mnuPopUpCTS").trigger();
        EXPECT_FALSE(results.isVisible());
      },
      seen);
  Click(form, "cmdOptimise");
  EXPECT_TRUE(seen);
  EXPECT_TRUE(route_seen);
  EXPECT_FLOAT_EQ(desk.program.selected_time.hours, 10.0F);
}

TEST_F(PassageDialogs, ASearchCanBeStoppedAndLeavesNothing) {
  desk.program.config.calc_interval = 1.0F;  // long enough to be caught on its way
  FrmRouteOptDeparture form(desk.desktop, nullptr);
  form.show();
  QTest::qWait(20);
  int presses = 0;
  QTimer press;
  QObject::connect(&press, &QTimer::timeout, &form, [&] {
    if (!Find<QPushButton>(form, "cmdOptimise").isEnabled()) {
      ++presses;
      Click(form, "cmdrtecancel");
    }
  });
  press.start(0);
  Click(form, "cmdOptimise");
  press.stop();
  EXPECT_GE(presses, 1);
  EXPECT_TRUE(form.isVisible()) << "the first press stops the search, not the dialog";
  EXPECT_TRUE(desk.program.passage.optimum_times.empty());
  EXPECT_TRUE(desk.program.passage.result_lines.empty());
  Click(form, "cmdrtecancel");
  EXPECT_FALSE(form.isVisible());
}

TEST_F(PassageDialogs, TheSearchChecksSpeedsOnOpeningAndAgain) {
  desk.program.route.points[1].speed = 0.5F;
  FrmRouteOptDeparture form(desk.desktop, nullptr);
  form.show();
  QTest::qWait(20);
  const std::string text =
      "Boat speed below 0.5kn between waypoints 2 and 3\nCannot continue - please correct.";
  EXPECT_EQ(desk.messages.shown, std::vector<std::string>{text});
  Click(form, "cmdOptimise");
  EXPECT_EQ(desk.messages.shown, (std::vector<std::string>{text, text}));
  EXPECT_TRUE(form.isVisible());
}

}  // namespace
}  // namespace skerrow
