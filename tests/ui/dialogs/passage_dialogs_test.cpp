// Calculation, search and results, by real events.

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>

#include "support/hands.h"
#include "support/sample_desk.h"
#include "ui/dialogs/frmOptResults.h"
#include "ui/dialogs/frmRouteOptDeparture.h"
#include "ui/dialogs/frmcalcroute.h"
#include "ui/dialogs/frmresults.h"
#include "ui/forms/calc_route_form.h"

namespace skerrow::testing {
namespace {

class PassageDialogs : public SampleDesk {
 protected:
  void SetUp() override { LoadSample(); }

  void Calculate() {
    NoProgress progress;
    ASSERT_EQ(RunCalculation(program, {"06:00", false, ""}, messages, progress),
              RouteOutcome::kDone);
  }
};

TEST_F(PassageDialogs, ACalculationOpensItsResults) {
  frmcalcroute form(desktop, nullptr);
  Show(form);
  Type(form, "rtedeptime", "06:15");
  // Esc at each step, as an impatient user presses it.
  QTimer escape;
  QObject::connect(&escape, &QTimer::timeout, &form, [&form, this] {
    if (window.steps.empty() || window.steps.back() >= 100) return;
    form.reject();
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(Find<QPushButton>(form, "Cmdrteok")->isEnabled());
  });
  escape.start(0);
  std::string third;
  WithNextDialog([&](QDialog& results) {
    escape.stop();
    EXPECT_EQ(results.objectName(), "frmresults");
    third = TextOf(results, "lstResults", 3);
  });
  Click(form, "Cmdrteok");
  EXPECT_TRUE(third.starts_with("Departing 06:15, Passage time = ")) << third;
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(program.passage.calc_mode, 1);
  EXPECT_GE(window.changes, 1);
}

TEST_F(PassageDialogs, ABadTimeIsRefused) {
  frmcalcroute form(desktop, nullptr);
  Show(form);
  messages.Expect("Please enter a valid time", MessageIcon::kWarning);
  Type(form, "rtedeptime", "12:60");
  Click(form, "Cmdrteok");
  EXPECT_EQ(messages.beeps, 1);
  EXPECT_TRUE(form.isVisible() && program.passage.result_lines.empty());
}

TEST_F(PassageDialogs, ACancelledCalculationLeavesTheLastResult) {
  Calculate();
  const std::vector<std::string> before = program.passage.result_lines;
  frmcalcroute form(desktop, nullptr);
  Show(form);
  Find<QPushButton>(form, "cmdWind")->setEnabled(false);
  window.stop_at = 20.0;
  Type(form, "rtedeptime", "11:00");
  Click(form, "Cmdrteok");
  EXPECT_TRUE(form.isVisible());
  EXPECT_TRUE(Find<QPushButton>(form, "Cmdrteok")->isEnabled());
  EXPECT_FALSE(Find<QPushButton>(form, "cmdWind")->isEnabled()) << "it was not enabled before";
  EXPECT_EQ(program.passage.result_lines, before);
}

TEST_F(PassageDialogs, LegsAreEditedFromTheList) {
  frmcalcroute form(desktop, nullptr);
  Show(form);
  ClickRow(form, "List1", 6);  // the seventh row belongs to the second leg
  EXPECT_EQ(form.leg(), 2U);
  EXPECT_EQ(Find<QLineEdit>(form, "txtroutestartname")->text(), "Needles South West");
  Type(form, "txtroutestartlat", "");
  messages.Expect("Error - Latitude entry", MessageIcon::kWarning);
  Click(form, "cmdModify");
  Type(form, "txtroutestartlat", "50.35.00n");
  Click(form, "cmdModify");
  EXPECT_EQ(form.leg(), 2U) << "the edited leg stays the chosen one";
  Type(form, "txtroutespeed", "0");
  messages.Expect("Must enter a valid speed", MessageIcon::kWarning);
  Click(form, "cmdRouteSpeed");
  const Position end = program.route.points.back().At();
  Click(form, "cmdreverse");
  EXPECT_EQ(program.route.points.front().At(), end);
  Click(form, "cmdCopy");
  EXPECT_TRUE(clipboard.Text().starts_with("Route Plan \n\nDeparture Time 09:30 on 14 Jun"));
}

TEST_F(PassageDialogs, ResultsSwitchCopyAndFinish) {
  messages.Expect("No Results to display", MessageIcon::kInformation);
  frmresults::ShowLast(desktop, nullptr);
  Calculate();
  frmresults form(desktop, nullptr);
  Show(form);
  auto& list = *Find<TextList>(form, "lstResults");
  EXPECT_EQ(list.LookOf(7).number, 1) << "the first leg is numbered beside its words";
  EXPECT_TRUE(list.LookOf(7).bold && list.LookOf(2).bold && list.LookOf(0).dim);
  EXPECT_FALSE(list.LookOf(8).bold);
  Click(form, "cmdClipboardCopy");
  EXPECT_EQ(clipboard.Text(), JoinLines(program.passage.result_lines));
  clipboard.SetText("kept");
  Click(form, "Option2");
  Click(form, "cmdClipboardCopy");
  EXPECT_EQ(clipboard.Text(), "kept") << "nothing is selected";
  list.item(2)->setSelected(true);
  list.item(4)->setSelected(true);
  Click(form, "cmdClipboardCopy");
  EXPECT_EQ(clipboard.Text(),
            program.passage.result_lines[2] + "\n" + program.passage.result_lines[4]);
  Click(form, "optTidalDetails");
  const int thirds = list.count();
  Click(form, "chkDisplayAll");
  EXPECT_EQ(list.count(), static_cast<int>(program.passage.route_streams.size()) + 1);
  EXPECT_EQ(thirds, (list.count() - 1 + 2) / 3 + 1);
}

TEST_F(PassageDialogs, ASearchShowsItsChartAndTakesADeparture) {
  frmRouteOptDeparture form(desktop, nullptr);
  Show(form);
  QTest::qWait(20);
  Click(form, "Option2");
  WithNextDialog([&](QDialog& results) {
    ASSERT_EQ(results.objectName(), "frmOptResults");
    auto& chart = *Find<DepartureChart>(results, "pctResults");
    auto& cursor = *Find<QLabel>(results, "lblCursor");
    const int left = chart.LeftMargin();
    const int bar = (chart.width() - left) / 8;
    QTest::mouseMove(&chart, QPoint(left + bar * 3 + bar / 2, 40));
    EXPECT_EQ(chart.marked(), 3U);
    EXPECT_TRUE(cursor.text().endsWith("departing at 09:00")) << cursor.text().toStdString();
    QTest::mouseMove(&chart, QPoint(2, 40));
    EXPECT_EQ(chart.marked(), 3U) << "the mark stays beside the bars";
    QTest::keyClick(&chart, Qt::Key_Right);
    EXPECT_EQ(chart.marked(), 4U);
    results.findChild<QAction*>("COPYIMG")->trigger();
    EXPECT_FALSE(clipboard.picture().empty());
    results.findChild<QAction*>("COPYTEXT")->trigger();
    EXPECT_EQ(clipboard.Text(), JoinLines(program.passage.result_lines) + "\n");
    WithNextDialog([](QDialog& route) {
      EXPECT_EQ(route.objectName(), "frmcalcroute");
      EXPECT_EQ(Find<QLineEdit>(route, "rtedeptime")->text(), "10:00");
    });
    results.findChild<QAction*>("mnuPopUpCTS")->trigger();
    EXPECT_FALSE(results.isVisible());
  });
  Click(form, "cmdOptimise");
  EXPECT_FLOAT_EQ(program.selected_time.hours, 10.0F);
}

TEST_F(PassageDialogs, ASearchCanBeStoppedAndLeavesNothing) {
  program.config.calc_interval = 1.0F;  // long enough to be caught on its way
  frmRouteOptDeparture form(desktop, nullptr);
  Show(form);
  QTest::qWait(20);
  int presses = 0;
  QTimer press;
  QObject::connect(&press, &QTimer::timeout, &form, [&] {
    if (Find<QPushButton>(form, "cmdOptimise")->isEnabled()) return;
    ++presses;
    Click(form, "cmdrtecancel");
  });
  press.start(0);
  Click(form, "cmdOptimise");
  press.stop();
  EXPECT_GE(presses, 1);
  EXPECT_TRUE(form.isVisible()) << "the first press stops the search, not the dialog";
  EXPECT_TRUE(program.passage.optimum_times.empty());
  EXPECT_TRUE(program.passage.result_lines.empty());
  Click(form, "cmdrtecancel");
  EXPECT_FALSE(form.isVisible());
}

TEST_F(PassageDialogs, TheSearchChecksSpeedsOnOpeningAndAgain) {
  program.route.points[1].speed = 0.5F;
  const std::string text =
      "Boat speed below 0.5kn between waypoints 2 and 3\nCannot continue - please correct.";
  messages.Expect(text);
  frmRouteOptDeparture form(desktop, nullptr);
  Show(form);
  QTest::qWait(20);
  EXPECT_TRUE(messages.AllShown());
  messages.Expect(text);
  Click(form, "cmdOptimise");
  EXPECT_TRUE(form.isVisible());
}

}  // namespace
}  // namespace skerrow::testing
