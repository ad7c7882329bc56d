#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStatusBar>
#include <cmath>
#include <filesystem>

#include "app/edits.h"
#include "routes/route.h"
#include "ui/main/context.h"
#include "ui/main/readout.h"
#include "window_fixture.h"

namespace skerrow {
namespace {

using Window = testing::MainWindowTest;

TEST_F(Window, StandsOnTheSampleChartWithItsPanels) {
  Start();
  EXPECT_GE(window_->viewer().image_width(), 4000);
  EXPECT_NEAR(window_->viewer().zoom(), 0.5, 1e-6);
  const auto panel = [&](int i) {
    return window_->findChild<QLabel*>("StatusBar1Panel" + QString::number(i))->toolTip();
  };
  EXPECT_EQ(panel(1), "Mode = Route Creation (Use Route Menu or Shift + Click using mouse)");
  EXPECT_EQ(panel(2), "Chart in use = English Channel");
  EXPECT_EQ(panel(3), "Waypoints = Sample");
  EXPECT_EQ(panel(4), "");
  EXPECT_TRUE(panel(5).startsWith("Chart issued 2026/"));
  EXPECT_EQ(window_->windowTitle(), "Skerrow Helm - Selected Time = 06:30  5/12/2026  ");
}

// From the first click to the search for a departure, as a user does it.
TEST_F(Window, TheWholeRoad) {
  Start();
  LayRoute();
  EXPECT_TRUE(window_->windowTitle().endsWith(
      "  :  Route = " + QString::number(program_.route.distance, 'f', 1) + "nm  -  Unnamed*"));
  auto* combo = window_->findChild<QComboBox*>("cmbRoute");
  EXPECT_EQ(combo->count(), 8);

  // Calculate, read the results, and see the track.
  OnDialog([&](QWidget* dialog) {
    EXPECT_EQ(dialog->windowTitle(), "Route Calculation");
    auto* time = dialog->findChild<QLineEdit*>("rtedeptime");
    ASSERT_NE(time, nullptr);
    time->setText("08:00");
    Click(dialog, "Cmdrteok");
  });
  OnDialog([&](QWidget* results) {
    EXPECT_EQ(results->windowTitle(), "Results");
    auto* lines = results->findChild<QListWidget*>("lstResults");
    ASSERT_NE(lines, nullptr);
    EXPECT_EQ(lines->item(2)->text(), "Route calculation for 5 Dec 2026");
    QTest::keyClick(results, Qt::Key_Return);
  });
  Command("mnucalcrte");
  ASSERT_EQ(program_.passage.calc_mode, 1);
  EXPECT_TRUE(window_->view().calculation_on_show);
  EXPECT_TRUE(combo->itemText(0).startsWith("Departing 08:00"));
  EXPECT_EQ(combo->currentIndex(), 0);

  // Animate forward: the time runs along the track, and comes back at the exit.
  Command("mnuAnimateStart");
  for (int i = 0; i < 40 && program_.animation.index == 0; ++i) QTest::qWait(50);
  EXPECT_EQ(program_.animation.index, 3U);
  EXPECT_TRUE(program_.selected_time.override_);
  Command("mnuAnimatePause");
  const std::size_t paused_at = program_.animation.index;
  QTest::qWait(700);
  EXPECT_EQ(program_.animation.index, paused_at);
  Command("mnuAnimateStop");
  EXPECT_EQ(program_.selected_time.hours, 6.5F);
  EXPECT_FALSE(program_.selected_time.override_);

  // Roll the tide: the legs are worked anew.
  const std::string first_leg = program_.passage.result_lines[7];
  Command("mnuTideRollPlus");
  EXPECT_EQ(program_.selected_time.hours, 7.0F);
  EXPECT_TRUE(program_.passage.result_lines[5].starts_with("Starting at 07:00"))
      << program_.passage.result_lines[5];

  // Save, clear and load.
  OnDialog([&](QWidget* dialog) {
    auto* name = dialog->findChild<QLineEdit*>();
    ASSERT_NE(name, nullptr);
    QTest::keyClicks(name, "road");
    QTest::keyClick(name, Qt::Key_Return);
  });
  Command("mnuRouteSave");
  const std::string path = RoutePath(program_.folders, "road.rte");
  ASSERT_TRUE(FileReadable(path));
  const std::vector<RoutePoint> saved = program_.route.points;
  messages_.ExpectQuestion("Clear existing route?", true);
  Command("mnurouteclear");
  EXPECT_TRUE(program_.route.points.empty());
  EXPECT_FALSE(window_->action("mnucalcrte")->isEnabled());
  OnDialog([&](QWidget* dialog) {
    auto* list = dialog->findChild<QListWidget*>();
    ASSERT_NE(list, nullptr);
    list->setCurrentRow(0);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                      list->visualItemRect(list->item(0)).center());
    for (auto* button : dialog->findChildren<QPushButton*>()) {
      if (button->isDefault()) return QTest::mouseClick(button, Qt::LeftButton);
    }
    ADD_FAILURE() << "no default button";
  });
  Command("mnuLoadExistRoute");
  ASSERT_EQ(program_.route.points.size(), 3U);
  EXPECT_EQ(program_.route.points[1].latitude, saved[1].latitude);

  // Search the best departure of the morning.
  OnDialog([&](QWidget* dialog) {
    EXPECT_EQ(dialog->windowTitle(), "Optimise Departure");
    Click(dialog, "Option2");
    Click(dialog, "cmdOptimise");
  });
  OnDialog([&](QWidget* results) {
    EXPECT_EQ(results->windowTitle(), "Optimum Results");
    EXPECT_EQ(program_.passage.optimum_times.size(), 8U);
    QTest::keyClick(results, Qt::Key_Escape);
  });
  Command("mnuRouteOptimise");
  EXPECT_EQ(program_.passage.calc_mode, 0);
}

TEST_F(Window, RouteEditsAreTakenBackOneByOne) {
  Start();
  LayRoute();
  Key(Qt::Key_Backspace);
  EXPECT_EQ(program_.route.points.size(), 2U);
  Command("mnuRouteReverse");
  const float first = program_.route.points[0].latitude;
  Command("mnuUndo");
  EXPECT_NE(program_.route.points[0].latitude, first);
  Command("mnuUndo");
  EXPECT_EQ(program_.route.points.size(), 3U);
  Command("mnuRedo");
  EXPECT_EQ(program_.route.points.size(), 2U);
  Command("mnuUndo");
  // Delete and insert ask first; a No changes nothing.
  MoveTo(At({50.0F, -1.9F}));
  messages_.ExpectQuestion("Delete a route point?", false);
  Key(Qt::Key_Delete);
  EXPECT_EQ(program_.route.points.size(), 3U);
  messages_.ExpectQuestion("Delete a route point?", true);
  Key(Qt::Key_Delete);
  ASSERT_EQ(program_.route.points.size(), 2U);
  EXPECT_NEAR(program_.route.points[1].latitude, 49.8F, 0.01);
  messages_.ExpectQuestion("Insert a route point?", true);
  Key(Qt::Key_Insert);
  EXPECT_EQ(program_.route.points.size(), 3U);
  EXPECT_NEAR(program_.route.points[1].latitude, 50.0F, 0.01);
}

// A No to the question leaves the mark and its mode.
TEST_F(Window, AMarkedPointGoesWithItsDeletionOnly) {
  Start();
  LayRoute();
  MoveTo(At({50.0F, -1.9F}));
  Key(Qt::Key_M);
  const auto* mode = window_->findChild<QLabel*>("StatusBar1Panel1");
  const QString marked = "Mode = RoutePoint Marked (Delete (Del Key); Insert (Insert key))";
  EXPECT_EQ(mode->toolTip(), marked);
  messages_.ExpectQuestion("Delete a route point?", false);
  Key(Qt::Key_Delete);
  messages_.ExpectQuestion("Insert a route point?", false);
  Key(Qt::Key_Insert);
  EXPECT_TRUE(window_->view().marked_point_on);
  EXPECT_EQ(mode->toolTip(), marked);
  messages_.ExpectQuestion("Delete a route point?", true);
  Key(Qt::Key_Delete);
  EXPECT_EQ(program_.route.points.size(), 2U);
  EXPECT_FALSE(window_->view().marked_point_on);
  EXPECT_EQ(window_->view().mouse_mode, MouseMode::kRouteCreation);
}

// What shows the time along the track goes when the time is moved otherwise, and the way back to
// the time before stays open.
TEST_F(Window, TheTimeAlongATrackComesAndGoes) {
  Start();
  LayRoute();
  program_.passage.route_track = {{{50.2F, -1.8F}, 8.0F, {339, 2026}},
                                  {{50.0F, -1.9F}, 9.25F, {339, 2026}}};
  window_->view().calculation_on_show = true;
  window_->Changed(kAllChanged);
  const auto panel = [&] { return window_->findChild<QLabel*>("StatusBar1Panel3")->toolTip(); };
  MoveTo(At({50.0F, -1.9F}));
  Key(Qt::Key_T);
  EXPECT_EQ(panel(), "ETA : 09:15");
  EXPECT_EQ(program_.animation.label, "ETA : 09:15  5 Dec");
  Command("mnuTideRollPlus");
  EXPECT_EQ(program_.selected_time.hours, 9.5F);
  EXPECT_EQ(panel(), "Waypoints = Sample");
  EXPECT_TRUE(program_.animation.label.empty());
  Command("mnuAnimateStop");
  EXPECT_EQ(program_.selected_time.hours, 6.5F);
  EXPECT_FALSE(program_.selected_time.override_);
  // An edit of the route takes the track away, and what ran along it.
  Command("mnuAnimateStart");
  for (int i = 0; i < 40 && program_.animation.label.empty(); ++i) QTest::qWait(50);
  EXPECT_TRUE(panel().startsWith("ETA : "));
  Key(Qt::Key_Backspace);
  EXPECT_FALSE(window_->context().time.animating());
  EXPECT_EQ(panel(), "Waypoints = Sample");
  // Back to the clock from wherever the time stands.
  EXPECT_TRUE(program_.selected_time.override_);
  Command("tbResetTime");
  EXPECT_EQ(program_.selected_time.hours, 6.5F);
  EXPECT_FALSE(program_.selected_time.override_);
}

TEST_F(Window, ClearTakesTheResultsAndLeavesTheHistory) {
  Start();
  LayRoute();
  Command("mnuMouseWayPoint");
  program_.passage.result_lines = {"a report"};
  program_.passage.route_history = {"a summary"};
  messages_.ExpectQuestion("Clear existing route?", true);
  OnDialog([](QWidget* unsaved) { Click(unsaved, "cmdDiscard"); });
  Command("mnurouteclear");
  EXPECT_FALSE(window_->action("mnuMouseWayPoint")->isChecked());
  messages_.Expect("No Results to display");
  Command("mnuLastRouteResults");
  program_.passage.result_lines = {"a report"};
  messages_.ExpectQuestion("    Clear Results?", true);
  Command("mnurouteresultsclear");
  EXPECT_TRUE(program_.passage.result_lines.empty());
  EXPECT_EQ(program_.passage.route_history.size(), 1U) << "it lives as long as the program";
}

TEST_F(Window, ARouteFromTheListIsToldInTheTitle) {
  Start();
  OnDialog([](QWidget* dialog) {
    dialog->findChild<QListWidget*>("fillist")->setCurrentRow(0);
    auto* marks = dialog->findChild<QListWidget*>("List1");
    ASSERT_NE(marks, nullptr);
    for (const int row : {0, 1, 2}) {
      marks->setCurrentRow(row);
      emit marks->itemDoubleClicked(marks->item(row));
    }
    Click(dialog, "cmdOK");
  });
  Command("mnuRouteWaypoints");
  ASSERT_EQ(program_.route.points.size(), 3U);
  EXPECT_TRUE(window_->windowTitle().contains(
      "  Route distance = " + QString::number(program_.route.distance, 'f', 1) + "nm.  -"))
      << window_->windowTitle().toStdString();
  Key(Qt::Key_Backspace);
  EXPECT_NE(window_->windowTitle().indexOf("  :  Route = "), -1);
}

TEST_F(Window, ASpeedOfTheSettingsAndAnOpenedRouteAreEdits) {
  Start();
  LayRoute();
  OnDialog([](QWidget* form) {
    form->findChild<QLineEdit*>("Txtboatspeed")->setText("7.5");
    Click(form, "cmdOK");
  });
  Command("mnuConfigProgram");
  EXPECT_EQ(program_.route.points[0].speed, 7.5F);
  Command("mnuUndo");
  EXPECT_EQ(program_.route.points[0].speed, 5.0F);

  const std::string path = RoutePath(program_.folders, "Kept.rte");
  ASSERT_TRUE(SaveRoute(path, program_.route, 5.0F));
  ShiftClick({49.7F, -1.9F});
  OnDialog([](QWidget* unsaved) { Click(unsaved, "cmdCancel"); });
  window_->OpenFile(path);
  EXPECT_EQ(program_.route.points.size(), 4U) << "an unsaved route is not lost without a word";
  OnDialog([](QWidget* unsaved) { Click(unsaved, "cmdDiscard"); });
  window_->OpenFile(path);
  EXPECT_EQ(program_.route.points.size(), 3U);
  Command("mnuUndo");
  EXPECT_EQ(program_.route.points.size(), 4U);
}

TEST_F(Window, TheRollKeepsTheLeewayOfTheCalculation) {
  Start();
  LayRoute();
  for (RoutePoint& point : program_.route.points) point.tack = 2;
  OnDialog([](QWidget* form) {
    form->findChild<QAbstractButton*>("chkLeeway")->setChecked(true);
    form->findChild<QLineEdit*>("txtLeeway")->setText("25");  // 5 in the settings
    Click(form, "Cmdrteok");
  });
  OnDialog([](QWidget* results) { QTest::keyClick(results, Qt::Key_Escape); });
  Command("mnucalcrte");
  ASSERT_EQ(program_.passage.legs.size(), 2U);
  const float heading = program_.passage.legs[0].heading;
  Command("mnuTideRollPlus");
  Command("mnuTideRollMinus");
  ASSERT_EQ(program_.passage.legs.size(), 2U);
  EXPECT_NEAR(program_.passage.legs[0].heading, heading, 2.0F);
}

TEST_F(Window, ADraggedPointIsOneEdit) {
  Start();
  LayRoute();
  Command("mnuRouteDrag");
  EXPECT_EQ(window_->findChild<QLabel*>("StatusBar1Panel1")->toolTip(),
            "Mode = Route Drag; RIGHT Mouse hold & drag");
  const Position target{50.05F, -2.1F};
  MoveTo(At(program_.route.points[1].At()));
  QTest::mousePress(canvas(), Qt::RightButton, Qt::NoModifier, At(program_.route.points[1].At()));
  for (int i = 1; i <= 4; ++i) {
    MoveTo(At({50.0F + 0.0125F * static_cast<float>(i), -1.9F - 0.05F * static_cast<float>(i)}),
           Qt::RightButton);
  }
  QTest::mouseRelease(canvas(), Qt::RightButton, Qt::NoModifier, At(target));
  EXPECT_NEAR(program_.route.points[1].latitude, target.latitude, 0.005);
  EXPECT_NEAR(program_.route.points[0].next_longitude, target.longitude, 0.005);
  Command("mnuUndo");
  EXPECT_NEAR(program_.route.points[1].latitude, 50.0F, 0.005);
  EXPECT_EQ(window_->action("mnuUndo")->text(), "&Undo Add Route Point");
}

// Keys of the chart go on working after the toolbar was used, and Shift + double click lays one
// point.
TEST_F(Window, TheChartKeepsTheKeyboardAndADoubleClickIsOne) {
  Start();
  LayRoute();
  auto* combo = window_->findChild<QComboBox*>("cmbRoute");
  EXPECT_EQ(combo->currentIndex(), 4) << "the row of the leg selected, which is the second";
  QTest::mouseClick(combo, Qt::LeftButton);
  QTest::qWait(50);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  QTest::qWait(50);
  EXPECT_EQ(QApplication::focusWidget(), &window_->viewer());
  combo->setFocus();
  Command("tbZoomIn");
  EXPECT_EQ(QApplication::focusWidget(), &window_->viewer());
  const QPoint at = At({49.9F, -2.2F});
  MoveTo(at);
  QTest::mouseClick(canvas(), Qt::LeftButton, Qt::ShiftModifier, at);
  QTest::mouseDClick(canvas(), Qt::LeftButton, Qt::ShiftModifier, at);
  EXPECT_EQ(program_.route.points.size(), 4U);
}

TEST_F(Window, PointsSnapToWaypoints) {
  Start();
  Command("mnuMouseWayPoint");
  const Waypoint* mark = nullptr;
  for (const Waypoint& waypoint : program_.waypoints.waypoints) {
    if (waypoint.name == "EC2 HFP Buoy") mark = &waypoint;
  }
  ASSERT_NE(mark, nullptr);
  window_->context().chart.LocatePoint(mark->At());
  ShiftClick({mark->latitude + 0.005F, mark->longitude});
  ASSERT_EQ(program_.route.points.size(), 1U);
  EXPECT_EQ(program_.route.points[0].name, "EC2 HFP Buoy");
  EXPECT_EQ(program_.route.points[0].latitude, mark->latitude);
  // Six miles from the mark, not from the click.
  MoveTo(At({mark->latitude + 0.1F, mark->longitude}));
  EXPECT_TRUE(window_->findChild<QLabel*>("Picture1")->text().contains("Range 6.0nm @"));
}

TEST_F(Window, EscHasTwoStages) {
  Start();
  LayRoute();
  program_.passage.route_track = {{{50.2F, -1.8F}, 8.0F, {339, 2026}},
                                  {{50.0F, -1.9F}, 9.0F, {339, 2026}}};
  window_->view().calculation_on_show = true;
  window_->Changed(kAllChanged);
  Key(Qt::Key_Escape);
  EXPECT_TRUE(program_.passage.route_track.empty());
  EXPECT_EQ(program_.route.points.size(), 3U);
  Key(Qt::Key_Escape);
  EXPECT_TRUE(program_.route.points.empty());
  Command("mnuUndo");
  EXPECT_EQ(program_.route.points.size(), 3U);

  // A roll of the tides is a calculation on show too: the first Esc leaves the route alone. The
  // second drops time and route, and one undo brings both back.
  Command("mnuTideRollPlus");
  EXPECT_EQ(program_.selected_time.hours, 7.0F);
  Key(Qt::Key_Escape);
  EXPECT_EQ(program_.route.points.size(), 3U);
  Key(Qt::Key_Escape);
  EXPECT_TRUE(program_.route.points.empty());
  EXPECT_FALSE(program_.selected_time.override_);
  EXPECT_EQ(program_.selected_time.hours, 6.5F);
  Command("mnuUndo");
  EXPECT_EQ(program_.route.points.size(), 3U);
  EXPECT_EQ(program_.selected_time.hours, 7.0F);
  EXPECT_TRUE(program_.selected_time.override_);
  Command("mnuRedo");
  EXPECT_TRUE(program_.route.points.empty());
  EXPECT_EQ(program_.selected_time.hours, 6.5F);
}

TEST_F(Window, DividersMeasure) {
  Start();
  Command("mnuDividersOn");
  auto* text = window_->findChild<QLabel*>("txtDividers");
  EXPECT_TRUE(text->isVisible());
  EXPECT_EQ(text->text(), "No reference pt");
  MoveTo(At({50.0F, -1.9F}));
  EXPECT_EQ(text->text(), "Shift + Click - Ref. point");
  ShiftClick({50.0F, -1.9F});
  MoveTo(At({50.1F, -1.9F}));
  EXPECT_TRUE(program_.route.points.empty());
  EXPECT_NE(text->text().indexOf("Range 6.0nm @"), -1) << text->text().toStdString();
  Command("mnuDividersOn");
  EXPECT_FALSE(text->isVisible());
}

TEST_F(Window, KeysZoomAndPan) {
  Start();
  Key(Qt::Key_0);
  EXPECT_NEAR(window_->viewer().zoom(), 1.0, 1e-6);
  const ImagePoint middle = window_->viewer().ViewToImage(QRectF(canvas()->rect()).center());
  MoveTo(At({50.0F, -2.0F}));
  Command("tbZoomIn");  // the toolbar's zoom is about the middle
  const ImagePoint still = window_->viewer().ViewToImage(QRectF(canvas()->rect()).center());
  EXPECT_NEAR(still.column, middle.column, 2.0);
  EXPECT_NEAR(still.row, middle.row, 2.0);
  Key(Qt::Key_0);
  Key(Qt::Key_I);
  EXPECT_NEAR(window_->viewer().zoom(), 1.3, 1e-6);
  Key(Qt::Key_Equal, Qt::ShiftModifier);
  EXPECT_NEAR(window_->viewer().zoom(), 1.8, 1e-6);
  Key(Qt::Key_O);
  EXPECT_NEAR(window_->viewer().zoom(), 1.3, 1e-6);
  Key(Qt::Key_O);
  EXPECT_NEAR(window_->viewer().zoom(), 0.8, 1e-6);
  Key(Qt::Key_3);
  EXPECT_NEAR(window_->viewer().zoom(), 0.3, 1e-6);
  Key(Qt::Key_0);
  window_->context().chart.LocatePoint({50.0F, -4.0F});
  const ImageRect before = window_->viewer().VisibleRect();
  Key(Qt::Key_Right);
  const ImageRect after = window_->viewer().VisibleRect();
  EXPECT_NEAR(after.left - before.left, before.width * 4 / 5, 3);
  Key(Qt::Key_Left);
  EXPECT_NEAR(window_->viewer().VisibleRect().left, before.left, 3);
  Key(Qt::Key_PageDown);
  EXPECT_NEAR(window_->viewer().VisibleRect().top - before.top, before.height * 4 / 5, 3);
  Key(Qt::Key_PageUp);
  EXPECT_NEAR(window_->viewer().VisibleRect().top, before.top, 3);
  for (int i = 0; i < 9; ++i) Key(Qt::Key_Up);
  EXPECT_EQ(window_->viewer().VisibleRect().top, 0);
  Key(Qt::Key_Home);
  const QPointF range = window_->viewer().ScrollRange();
  EXPECT_NEAR(window_->viewer().ScrollPosition().y(), range.y() / 2, 2.0);
}

TEST_F(Window, ThePlainMouseDragsTheChartAndTheWheelZoomsAboutThePointer) {
  Start();
  const Position grip{50.0F, -2.0F};
  const QPoint from = At(grip);
  QTest::mousePress(canvas(), Qt::LeftButton, Qt::NoModifier, from);
  MoveTo(from + QPoint(120, -60), Qt::LeftButton);
  QTest::mouseRelease(canvas(), Qt::LeftButton, Qt::NoModifier, from + QPoint(120, -60));
  EXPECT_LE((At(grip) - (from + QPoint(120, -60))).manhattanLength(), 2);
  EXPECT_TRUE(program_.route.points.empty());
  const QPoint pointer = At(grip);
  QWheelEvent wheel(pointer, canvas()->mapToGlobal(pointer), {}, {0, 120}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(canvas(), &wheel);
  EXPECT_GT(window_->viewer().zoom(), 0.55);
  EXPECT_LE((At(grip) - pointer).manhattanLength(), 2);
}

TEST_F(Window, LargerAndSmallerScaleWalkTheCharts) {
  Start();
  window_->context().chart.LocatePoint({50.7F, -1.3F});
  MoveTo(At({50.7F, -1.3F}));
  Key(Qt::Key_Equal);
  EXPECT_TRUE(program_.config.chart_path.ends_with("9999-3"));
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(program_.folders, stored));
  EXPECT_TRUE(stored.chart_path.ends_with("9999-3"));
  EXPECT_EQ(stored.chart_file_name, "9999-3.cht");
  Key(Qt::Key_Minus);
  EXPECT_TRUE(program_.config.chart_path.ends_with("9999-1"));
  ASSERT_TRUE(ReadConfig(program_.folders, stored));
  EXPECT_EQ(stored.chart_file_name, "9999-1.cht");
  EXPECT_EQ(NativePath(stored.chart_folder), program_.folders.Charts());
  Key(Qt::Key_Equal);
  Command("mnuPUPrevChart");
  EXPECT_TRUE(program_.config.chart_path.ends_with("9999-1"));
  const ImageRect seen = window_->viewer().VisibleRect();
  EXPECT_NEAR(seen.width, window_->viewer().image_width(), 2) << "fitted to its width";
}

TEST_F(Window, TheRectangleZoomEndsAtTheRelease) {
  Start();
  Key(Qt::Key_0);
  for (const QPoint size : {QPoint(200, 100), QPoint(0, 0)}) {
    const double before = window_->viewer().zoom();
    Command("mnuPUZoomRect");
    EXPECT_TRUE(window_->action("mnuPUZoomRect")->isChecked());
    const QPoint from(300, 200);
    const ImagePoint corner = window_->viewer().ViewToImage(from);
    QTest::mousePress(canvas(), Qt::LeftButton, Qt::NoModifier, from);
    EXPECT_TRUE(window_->view().rectangle_dragging);
    MoveTo(from + size, Qt::LeftButton);
    QTest::mouseRelease(canvas(), Qt::LeftButton, Qt::NoModifier, from + size);
    EXPECT_FALSE(window_->view().rectangle_mode);
    EXPECT_FALSE(window_->view().rectangle_dragging) << "the chart's own marks come back";
    EXPECT_FALSE(window_->action("mnuPUZoomRect")->isChecked());
    if (size.isNull()) {
      EXPECT_EQ(window_->viewer().zoom(), before) << "nothing was drawn";
    } else {
      EXPECT_GT(window_->viewer().zoom(), 2.0);
      const ImageRect seen = window_->viewer().VisibleRect();
      EXPECT_NEAR(seen.left + seen.width / 2.0, corner.column + 100.0, 3.0);
      EXPECT_NEAR(seen.top + seen.height / 2.0, corner.row + 50.0, 3.0);
    }
  }
}

TEST_F(Window, TogglesAreStoredAtOnce) {
  Start();
  const bool waypoints = program_.config.show_waypoints == 1.0F;
  Key(Qt::Key_W);
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(program_.folders, stored));
  EXPECT_EQ(stored.show_waypoints == 1.0F, !waypoints);
  EXPECT_EQ(window_->action("mnuShowWaypoints")->isChecked(), !waypoints);
  Command("mnuToolBarVisible");
  EXPECT_FALSE(window_->findChild<QToolBar*>("tbToolBar")->isVisible());
}

// Vectors go with the tides, and come back with them.
TEST_F(Window, VectorsFollowTheTides) {
  Start();
  ASSERT_TRUE(VectorsShown(program_.config));
  for (const bool tides : {false, true}) {
    OnDialog([](QWidget* dialog) {
      dialog->findChild<QAbstractButton*>("chkUseTides")->toggle();
      for (auto* button : dialog->findChildren<QPushButton*>()) {
        if (button->isDefault()) return button->click();
      }
      ADD_FAILURE() << "no default button";
    });
    Command("mnuConfigProgram");
    EXPECT_EQ(program_.config.use_tides != 0, tides);
    EXPECT_EQ(VectorsShown(program_.config), tides);
    EXPECT_EQ(window_->action("mnuTideRollPlus")->isVisible(), tides);
  }
}

// No bright surface anywhere at night: not even one pixel in a thousand is nearly white.
TEST_F(Window, TheNightViewIsDark) {
  Start();
  LayRoute();
  Key(Qt::Key_F9);
  EXPECT_TRUE(window_->view().night);
  const QColor text = window_->findChild<QComboBox*>("cmbRoute")->palette().color(QPalette::Text);
  EXPECT_EQ(text.red() + text.blue(), 0);
  EXPECT_NEAR(text.green(), 255 * 9 / 10, 1) << "green, and as dim as the chart";
  QTest::qWait(300);
  const QImage picture = window_->grab().toImage();
  qsizetype bright = 0;
  double sum = 0.0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const int value = qGray(picture.pixel(x, y));
      sum += value;
      bright += value > 230 ? 1 : 0;
    }
  }
  const double pixels = static_cast<double>(picture.width()) * picture.height();
  EXPECT_LT(static_cast<double>(bright), pixels / 1000.0);
  EXPECT_LT(sum / pixels, 60.0);
  Command("mnuViewNormal");
  EXPECT_FALSE(window_->view().night);
}

TEST_F(Window, BrightnessGoesDownAndUpByTenths) {
  Start();
  const auto brightness = [&] { return window_->viewer().look().brightness; };
  for (int i = 0; i < 12; ++i) Key(Qt::Key_F9);
  EXPECT_EQ(brightness(), 10);
  for (int i = 0; i < 8; ++i) Key(Qt::Key_F10);
  EXPECT_EQ(brightness(), 90);
  EXPECT_TRUE(window_->view().night);
  Key(Qt::Key_F10);
  EXPECT_EQ(brightness(), 100);
  EXPECT_FALSE(window_->view().night);
}

TEST_F(Window, NightAndBrightnessComeBackAtTheNextStart) {
  Start();
  for (int i = 0; i < 3; ++i) Key(Qt::Key_F9);
  window_->close();
  window_.reset();
  Start();
  EXPECT_TRUE(window_->view().night);
  EXPECT_EQ(window_->viewer().look().brightness, 70);
}

// Ctrl+S writes to the file the route came from; the title tells its name and what is not saved.
TEST_F(Window, SavesUnderTheNameItHas) {
  Start();
  Command("mnuOpenSampleRoute");
  EXPECT_TRUE(window_->windowTitle().endsWith("  -  Sample"));
  Command("mnuRouteReverse");
  EXPECT_TRUE(window_->windowTitle().endsWith("  -  Sample*"));
  Command("mnuSaveRoute");
  EXPECT_TRUE(window_->windowTitle().endsWith("  -  Sample"));
  const auto stored = ReadRouteFile(RoutePath(program_.folders, "Sample.rte"));
  ASSERT_TRUE(stored);
  EXPECT_EQ(stored->front().name, program_.route.points.front().name);
  EXPECT_TRUE(window_->findChild<QStatusBar*>()->currentMessage().startsWith("Saved: "));
  // A route begun anew, or one that came back by undo, never goes over that file unasked.
  Command("mnuRouteReverse");
  Command("mnuUndo");
  EXPECT_EQ(program_.edits.route_path, "");
  Command("mnuRedo");
  program_.edits.route_path = RoutePath(program_.folders, "Sample.rte");
  Key(Qt::Key_Escape);
  EXPECT_TRUE(program_.route.points.empty());
  EXPECT_EQ(program_.edits.route_path, "");
}

// A chart from the list shows the same place at the same ground scale.
TEST_F(Window, AnotherChartKeepsPlaceAndGroundScale) {
  Start();
  Key(Qt::Key_0);
  window_->context().chart.LocatePoint({50.7F, -1.3F});
  const auto ground = [&] {  // view pixels to a degree of longitude
    return At({50.7F, -1.0F}).x() - At({50.7F, -1.6F}).x();
  };
  const QPoint place = At({50.7F, -1.3F});
  const int scale = ground();
  OnDialog([](QWidget* dialog) {
    auto* charts = dialog->findChild<QListWidget*>("List1");
    const auto number = [&] { return dialog->findChild<QLabel*>("lblChartNumber")->text(); };
    for (int row = 0; row < charts->count() && number() != "9999-3"; ++row) {
      charts->setCurrentRow(row);
    }
    QTest::keyClick(dialog, Qt::Key_Return);
  });
  Command("mnuSelectChartVisually");
  ASSERT_TRUE(program_.config.chart_path.ends_with("9999-3"));
  EXPECT_NEAR(ground(), scale, scale / 20);
  EXPECT_LE((At({50.7F, -1.3F}) - place).manhattanLength(), 200);
}

TEST_F(Window, ARightClickBesideTheChartShowsItsMenu) {
  Start();
  auto* menu = window_->findChild<QMenu*>("mnuPopUP");
  // On the chart the press shows it, or the release where the press might have begun a drag.
  const auto showing = [menu] {
    const bool shown = menu->isVisible();
    menu->close();
    return shown;
  };
  QTest::mousePress(canvas(), Qt::RightButton, Qt::NoModifier, QPoint(400, 300));
  EXPECT_TRUE(showing());
  QTest::mouseRelease(canvas(), Qt::RightButton, Qt::NoModifier, QPoint(400, 300));
  const Position mark = program_.waypoints.waypoints.front().At();
  window_->context().chart.LocatePoint(mark);
  MoveTo(At(mark));
  Key(Qt::Key_M);
  QTest::mousePress(canvas(), Qt::RightButton, Qt::NoModifier, QPoint(400, 300));
  EXPECT_FALSE(showing());
  QTest::mouseRelease(canvas(), Qt::RightButton, Qt::NoModifier, QPoint(400, 300));
  EXPECT_TRUE(showing());
  const QPoint at(40, window_->height() - 8);
  QContextMenuEvent click(QContextMenuEvent::Mouse, at, window_->mapToGlobal(at));
  QApplication::sendEvent(window_->childAt(at), &click);
  EXPECT_TRUE(menu->isVisible());
  menu->close();
}

// Nobody guesses where a person is: the boat's place, or the click that is asked for.
TEST_F(Window, ManOverboardIsMarkedWhereItIsPointedOut) {
  Start();
  auto* label = window_->findChild<QLabel*>("lblMOB");
  const auto settle = [&] {
    canvas()->repaint();
    QApplication::processEvents();
  };
  MoveTo(At({50.0F, -2.0F}));
  messages_.ExpectQuestion("Activate Man Overboard?", true);
  Command("tbMob");
  EXPECT_FALSE(program_.mob.on);
  EXPECT_TRUE(label->text().startsWith("Click where the person went over"));
  EXPECT_GT(label->width(), 200);
  EXPECT_GE(label->fontInfo().pixelSize(), 20) << "to be read at arm's length";
  Key(Qt::Key_Escape);
  EXPECT_FALSE(window_->view().mob_pending);
  // The key works whatever has the focus.
  window_->findChild<QComboBox*>("cmbRoute")->setFocus();
  messages_.ExpectQuestion("Activate Man Overboard?", true);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_F7);
  const QPoint there = At({50.1F, -2.1F});
  QTest::mouseClick(canvas(), Qt::LeftButton, Qt::NoModifier, there);
  ASSERT_TRUE(program_.mob.on);
  EXPECT_NEAR(program_.mob.position.latitude, 50.1F, 0.01);
  EXPECT_NEAR(program_.mob.position.longitude, -2.1F, 0.01);
  EXPECT_TRUE(program_.route.points.empty());
  settle();
  EXPECT_TRUE(label->text().startsWith("MOB Position 002.0")) << label->text().toStdString();
  // Twelve miles south of the mark, a minute and a half later: worked out by hand.
  clock_.now = {2026, 12, 5, 6, 31, 50};
  MoveTo(At({program_.mob.position.latitude - 0.2F, program_.mob.position.longitude}));
  EXPECT_TRUE(label->text().contains("At 06:30, 00:01:30 ago")) << label->text().toStdString();
  EXPECT_TRUE(label->text().contains(
      QRegularExpression("From the cursor 1[12]\\.\\d\\dnm @(000|001|359|360)")))
      << label->text().toStdString();
  // On another chart the label goes, the menu still tells.
  program_.mob.position = {40.0F, 10.0F};
  window_->Changed(kTargetsChanged);
  settle();
  EXPECT_FALSE(label->isVisible());
  EXPECT_EQ(window_->action("tbMob")->text(), "Man Overboard: 40.00.00N  010.00.00E\tF7");
  messages_.ExpectQuestion("Cancel Man Overboard?", true);
  Command("tbMob");
  EXPECT_FALSE(program_.mob.on);
  // With a fix it is the boat's place.
  program_.nmea.fix.boat_latitude = 50.5F;
  program_.nmea.fix.boat_longitude = -1.5F;
  messages_.ExpectQuestion("Activate Man Overboard?", true);
  Command("tbMob");
  EXPECT_EQ(program_.mob.position, (Position{50.5F, -1.5F}));
}

TEST_F(Window, MarksAWaypointAndMovesItWithTheRightButton) {
  Start();
  std::size_t mark = 0;
  while (program_.waypoints.waypoints[mark].name != "EC1 HFP Buoy") ++mark;
  const Position place = program_.waypoints.waypoints[mark].At();
  window_->context().chart.LocatePoint(place);
  MoveTo(At(place));
  Key(Qt::Key_M);
  EXPECT_TRUE(window_->view().marked_point_on);
  const Position target{place.latitude + 0.1F, place.longitude};
  QTest::mousePress(canvas(), Qt::RightButton, Qt::NoModifier, At(place));
  MoveTo(At(target), Qt::RightButton);
  QTest::mouseRelease(canvas(), Qt::RightButton, Qt::NoModifier, At(target));
  EXPECT_NEAR(program_.waypoints.waypoints[mark].latitude, target.latitude, 0.01);
  EXPECT_FALSE(window_->view().marked_point_on);
  // The move is kept for recovery, and asked about before the table is read anew.
  const std::string kept = program_.folders.SettingsData() + "/recovery.Sample.way";
  EXPECT_TRUE(FileReadable(kept));
  OnDialog([](QWidget* unsaved) { Click(unsaved, "cmdCancel"); });
  Command("mnuwaychoose");
  EXPECT_TRUE(WaypointsUnsaved(program_));
  Command("mnuWayMouse");
  OnDialog([](QWidget* unsaved) { Click(unsaved, "cmdDiscard"); });
  OnDialog([](QWidget* prompt) {
    EXPECT_EQ(prompt->windowTitle(), "Mouse Entry of Waypoint");
    QTest::keyClick(prompt, Qt::Key_Return);
  });
  ShiftClick({50.0F, -2.0F});
  EXPECT_FALSE(WaypointsUnsaved(program_));
  EXPECT_FALSE(FileReadable(kept));
}

TEST_F(Window, TheViewComesBackAtTheNextStart) {
  Start();
  Key(Qt::Key_7);
  window_->context().chart.LocatePoint({49.5F, -2.5F});
  const ImageRect seen = window_->viewer().VisibleRect();
  window_->close();
  window_.reset();
  settings_ = OpenSettingsStore(user_.File("settings/SkerrowHelm/skerrow.ini"));
  Start();
  const ImageRect again = window_->viewer().VisibleRect();
  EXPECT_NEAR(again.left + again.width / 2, seen.left + seen.width / 2, 12);
  EXPECT_NEAR(again.top + again.height / 2, seen.top + seen.height / 2, 12);
}

// A program that is killed opens where it stood.
TEST_F(Window, TheViewIsKeptAsItChanges) {
  Start();
  Key(Qt::Key_7);
  const int width = window_->viewer().VisibleRect().width;
  for (int i = 0; i < 40 && settings_->GetInt("Settings", "Width", -1) != width; ++i) {
    QTest::qWait(50);
  }
  EXPECT_EQ(settings_->GetInt("Settings", "Width", -1), width);
}

TEST_F(Window, AnUnsavedRouteIsAskedAboutAtTheExit) {
  Start();
  LayRoute();
  OnDialog([](QWidget* unsaved) { Click(unsaved, "cmdCancel"); });
  Command("mnuexit");
  EXPECT_TRUE(window_->isVisible());
  OnDialog([](QWidget* unsaved) { Click(unsaved, "cmdDiscard"); });
  Command("mnuexit");
  EXPECT_FALSE(window_->isVisible());
}

// A chart whose picture cannot be opened does not become the current one, now or later.
TEST_F(Window, AChartThatCannotBeShownIsNotTaken) {
  program_.folders.program = user_.File("program");
  std::filesystem::copy(SKERROW_PROGRAM_FOLDER, program_.folders.program,
                        std::filesystem::copy_options::recursive);
  Start();
  const std::string broken = program_.folders.Charts() + "/9999-3.l55";
  ASSERT_TRUE(ReplaceFile(broken, "no picture").ok());
  const double scale = program_.charts.chart.scale;
  window_->resize(1280, 720);
  OnDialog([](QWidget* dialog) {
    auto* charts = dialog->findChild<QListWidget*>("List1");
    ASSERT_NE(charts, nullptr);
    const auto number = [&] { return dialog->findChild<QLabel*>("lblChartNumber")->text(); };
    for (int row = 0; row < charts->count() && number() != "9999-3"; ++row) {
      charts->setCurrentRow(row);
    }
    ASSERT_EQ(number(), "9999-3");
    QTest::keyClick(dialog, Qt::Key_Return);
  });
  messages_.Expect("error code: 2\n" + broken + ": this is no kind of picture that can be opened");
  Command("mnuSelectChartVisually");
  EXPECT_EQ(program_.charts.chart.scale, scale);
  EXPECT_TRUE(program_.config.chart_path.ends_with("9999-1"));
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(program_.folders, stored));
  EXPECT_TRUE(stored.chart_path.ends_with("9999-1"));
}

// A chart without its calibration is a picture: no readout, no point, and a line that says why.
TEST_F(Window, AChartWithoutCalibrationHasNoPlaces) {
  program_.folders.program = user_.File("program");
  std::filesystem::copy(SKERROW_PROGRAM_FOLDER, program_.folders.program,
                        std::filesystem::copy_options::recursive);
  std::filesystem::remove(program_.folders.Charts() + "/9999-1.cht");
  program_.config = DefaultConfig(program_.folders.program);
  messages_.Expect("Does not exist in Mod. ReadChartSettings\n" + program_.folders.Charts() +
                   "/9999-1.cht");
  Start();
  ASSERT_GT(window_->viewer().image_height(), 0);
  for (const QPoint at : {QPoint(300, 200), QPoint(500, 300)}) {
    MoveTo(at);
    QTest::mouseClick(canvas(), Qt::LeftButton, Qt::ShiftModifier, at);
  }
  Key(Qt::Key_M);
  Key(Qt::Key_I);
  EXPECT_TRUE(program_.route.points.empty());
  EXPECT_FALSE(window_->findChild<QLabel*>("Picture1")->isVisible());
  EXPECT_TRUE(
      window_->findChild<QLabel*>("lblQuietLine")->text().contains("9999-1.cht is missing"));
  EXPECT_FALSE(window_->action("mnuPURouteAdd")->isEnabled());
}

// A route that is opened is brought into view; a waypoint off the chart changes the chart.
TEST_F(Window, WhatIsAskedForIsBroughtIntoView) {
  Start();
  EXPECT_EQ(window_->findChild<QLabel*>("lblQuietLine")->text(), "Shift + click lays a route");
  Key(Qt::Key_0);
  window_->context().chart.LocatePoint({49.0F, -5.0F});
  Command("mnuOpenSampleRoute");
  ASSERT_GT(program_.route.points.size(), 1U);
  for (const RoutePoint& point : program_.route.points) {
    EXPECT_TRUE(canvas()->rect().contains(At(point.At()))) << point.name;
  }
  EXPECT_FALSE(window_->findChild<QLabel*>("lblQuietLine")->isVisible());
  EXPECT_TRUE(window_->windowTitle().endsWith("  -  Sample"));
  window_->context().chart.LocatePoint({50.7F, -1.3F});
  MoveTo(At({50.7F, -1.3F}));
  Key(Qt::Key_Equal);
  ASSERT_TRUE(program_.config.chart_path.ends_with("9999-3"));
  window_->context().chart.GoTo({49.0F, -5.0F});
  EXPECT_TRUE(program_.config.chart_path.ends_with("9999-1"));
  EXPECT_LE((At({49.0F, -5.0F}) - canvas()->rect().center()).manhattanLength(), 400);
  messages_.Expect("No chart of this sea area shows 20.00.00N  030.00.00E");
  window_->context().chart.GoTo({20.0F, 30.0F});
}

TEST_F(Window, FilesOfTheCommandLineAreTakenOrRefused) {
  Start();
  LayRoute();
  const auto write = [&](const char* name, const std::string& bytes) {
    EXPECT_TRUE(ReplaceFile(user_.File(name), bytes).ok());
    return user_.File(name);
  };
  const std::pair<std::string, const char*> bad[] = {
      {write("short.rte", std::string(48, 'x')), ": point 1 has a latitude beyond 90 degrees"},
      {write("bad.cht", "no chart"),
       ": the chart is not calibrated, a calibration latitude lies at or beyond a pole"},
      {write("bad.way", std::string(7, 'x')), ": there is no waypoint in it"},
      {user_.File("gone.way"), ": the file does not exist"},
      {write("notes.txt", ""), ": this is no route, waypoint, GPX, chart or log file"}};
  OnDialog([](QWidget* unsaved) { Click(unsaved, "cmdDiscard"); });
  for (const auto& [file, reason] : bad) {
    messages_.Expect(file + reason);
    window_->OpenFile(file);
  }
  EXPECT_EQ(program_.route.points.size(), 3U);
  EXPECT_TRUE(program_.config.chart_path.ends_with("9999-1"));
  EXPECT_EQ(program_.config.waypoint_file, "Sample.way");
  // A waypoint file from elsewhere becomes the current one of the waypoint folder.
  ASSERT_FALSE(program_.waypoints.waypoints.empty());
  const std::vector<Waypoint> far = {program_.waypoints.waypoints.front()};
  ASSERT_TRUE(WriteWaypointFile(user_.File("Far.way"), far).ok());
  window_->OpenFile(user_.File("Far.way"));
  EXPECT_EQ(program_.waypoints.waypoints.size(), 1U);
  EXPECT_EQ(window_->findChild<QLabel*>("StatusBar1Panel3")->toolTip(), "Waypoints = Far");
  EXPECT_TRUE(FileReadable(WaypointPath(program_.folders, "Far.way")));
}

TEST_F(Window, WithoutAChartTheDefaultsComeBackAndTheProgramEnds) {
  LoadProgram(program_, messages_);
  program_.config.chart_path = user_.File("nothing");
  window_ = std::make_unique<frmChart>(program_, messages_, *settings_, clipboard_, ports_);
  window_->show();
  window_->Start();
  AppConfig own = program_.config;
  own.vessel_speed = 7.25F;
  ASSERT_TRUE(SaveConfig(program_.folders, own));
  const std::string copy = program_.folders.SettingsData() + "/HelmConfig.bak";
  messages_.Expect("Error in Chart File\n" + user_.File("nothing") +
                   "\n\nRestoring defaults to Sample Chart and exiting program"
                   "\n\nThe settings up to now are kept in " +
                   copy);
  MoveTo({200, 200});
  QTest::qWait(100);
  EXPECT_FALSE(window_->isVisible());
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(program_.folders, stored));
  EXPECT_TRUE(stored.chart_path.ends_with("9999-1"));
  EXPECT_EQ(testing::FileBytes(copy), EncodeRecord(own, kAppConfigFields));
}

// Where the sample chart itself is broken, the settings would be lost for nothing.
TEST_F(Window, ABrokenSampleChartCostsNoSettings) {
  program_.folders.program = user_.File("program");
  std::filesystem::copy(SKERROW_PROGRAM_FOLDER, program_.folders.program,
                        std::filesystem::copy_options::recursive);
  program_.config = DefaultConfig(program_.folders.program);
  ASSERT_TRUE(ReplaceFile(program_.folders.Charts() + "/9999-1.l55", "no picture"));
  AppConfig own = program_.config;
  own.vessel_speed = 7.25F;
  ASSERT_TRUE(SaveConfig(program_.folders, own));
  Start();
  messages_.Expect("Error in Chart File\n" + program_.folders.Charts() +
                   "/9999-1\n\nRestoring defaults to Sample Chart and exiting program");
  MoveTo({200, 200});
  QTest::qWait(100);
  EXPECT_FALSE(window_->isVisible());
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(program_.folders, stored));
  EXPECT_EQ(stored.vessel_speed, 7.25F);
}

// By hand: 6 miles south and 0.1 x 60 x cos 50.45 = 3.82 west are 7.1 miles towards 212.
TEST(Readout, TellsRangeAndBearingFromThePlaceInForce) {
  ViewState view;
  view.cursor = {50.4F, -1.6F};
  const Position from{50.5F, -1.5F};
  view.zero_point = view.last_click = from;
  view.marked = from;
  view.dividers_fresh = false;
  EXPECT_EQ(CursorReadout(view, "N", "W"), (std::vector<std::string>{"Cursor", "N  W"}));
  EXPECT_EQ(DividersText(view), "Range 7.1nm @212°T");
  view.route_entry_on = true;
  EXPECT_EQ(CursorReadout(view, "N", "W").back(), "Range 7.1nm @212°T");
  view.marked_point_on = true;
  EXPECT_EQ(CursorReadout(view, "N", "W").back(), "From Mark 7.1nm @212°T");
  view.dividers_on = true;
  EXPECT_EQ(CursorReadout(view, "N", "W").back(), "Range 7.1  @212");
}

TEST(Readout, RecentChartsKeepSixAndTheNewestFirst) {
  std::vector<std::string> recent;
  for (const char* path : {"a", "b", "c", "d", "e", "f", "g"}) AddRecentChart(recent, path);
  EXPECT_EQ(recent, (std::vector<std::string>{"g", "f", "e", "d", "c", "b"}));
  AddRecentChart(recent, "c");
  EXPECT_EQ(recent, (std::vector<std::string>{"c", "g", "f", "e", "d", "b"}));
}

}  // namespace
}  // namespace skerrow
