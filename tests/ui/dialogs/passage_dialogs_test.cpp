// Calculation, search and results, by real events.

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>

#include "core/files.h"
#include "passage/wind_on_route.h"
#include "platform/polars.h"
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

// The same wind all over the Channel in the parts of the selected day from `first` to `last`.
std::vector<WindCell> SteadyWind(DayAndYear date, int first, int last, float from) {
  std::vector<WindCell> cells(1);
  for (int part = first; part <= last; ++part) {
    const float time = static_cast<float>(DaysFrom2000(date)) + static_cast<float>(part) / 8.0F;
    for (float latitude = 48.0F; latitude <= 52.0F; latitude += 0.5F) {
      for (float longitude = -6.0F; longitude <= 2.0F; longitude += 0.5F) {
        cells.push_back({time, latitude, longitude, 13.0F, from});
      }
    }
  }
  return cells;
}

TEST_F(PassageDialogs, TheWindOfEachDepartureNeedsAForecastAndASetUp) {
  const auto note = [this] {
    frmRouteOptDeparture form(desktop, nullptr);
    auto* box = Find<QCheckBox>(form, "chkWind");
    EXPECT_FALSE(box->isChecked());
    return (box->isEnabled() ? "+ " : "- ") + Find<QLabel>(form, "lblWind")->text().toStdString();
  };
  const std::string set_up = "a set-up of the boat, which the wind calculation chooses";
  EXPECT_EQ(note(), "- Needs an imported forecast and " + set_up);
  program.wind_config.selected_setup = 1;
  EXPECT_EQ(note(), "- Needs an imported forecast");
  const DayAndYear day = program.selected_time.Day();
  ASSERT_TRUE(WriteWindStore(program.folders, SteadyWind(day, 0, 7, 290.0F)));
  EXPECT_TRUE(note().starts_with("+ By \"")) << note();
  EXPECT_NE(note().find("from 00:00 14/6/2026 to 21:00 14/6/2026"), std::string::npos) << note();
  for (const std::int16_t index : {std::int16_t{0}, std::int16_t{-1}, std::int16_t{99}}) {
    program.wind_config.selected_setup = index;
    EXPECT_EQ(note(), "- Needs " + set_up) << index;
  }
  program.wind_config.selected_setup = 1;
  ASSERT_TRUE(ReplaceFile(program.folders.OwnPolars(), "no database"));
  EXPECT_NE(note().find("the polar database is damaged"), std::string::npos) << note();
}

TEST_F(PassageDialogs, EachDepartureSailsByItsWind) {
  program.config.closest_sailing_angle = 86.0F;  // the first leg lies closer to the wind
  const DayAndYear day = program.selected_time.Day();
  program.wind_config.selected_setup = 1;
  program.working_wind = {.speed_kn = 13.0F, .from_deg = 290.0F};
  ASSERT_TRUE(WriteWindStore(program.folders, SteadyWind(day, 0, 6, 290.0F)));
  const std::vector<RoutePoint> own = program.route.points;
  const auto search = [this](bool by_wind, const std::function<void(QDialog&)>& act) {
    frmRouteOptDeparture form(desktop, nullptr);
    Show(form);
    QTest::qWait(20);
    Click(form, "Option2");
    if (by_wind) Click(form, "chkWind");
    WithNextDialog(act);
    Click(form, "cmdOptimise");
    return program.passage.optimum_times;
  };
  const std::vector<float> by_own = search(false, [](QDialog&) {});
  EXPECT_EQ(program.passage.result_lines[3], " ");
  const std::vector<float> by_wind = search(true, [](QDialog&) {});
  EXPECT_TRUE(program.passage.result_lines[3].starts_with("Speeds by \""));
  ASSERT_EQ(by_wind.size(), 8U);
  EXPECT_NE(by_wind[0], by_own[0]);
  for (std::size_t i = 0; i < own.size(); ++i) {
    EXPECT_EQ(program.route.points[i].speed, own[i].speed) << "the route keeps its speeds";
  }
  // In a wind that never changes a departure takes what the route does with that wind's speeds.
  const auto polars = OpenPolarDatabase(program.folders.InstalledPolars(), "");
  RouteWindRequest request;
  request.closest = program.config.closest_sailing_angle;
  request.default_wind = program.working_wind;
  request.date = day;
  ASSERT_TRUE(SetSpeedsByWind(program.route.points,
                              PolarTable(*polars->Read(polars->SetUps()->front())), request,
                              messages));
  const std::vector<RoutePoint> sailed = program.route.points;
  const std::vector<float> same = search(false, [](QDialog&) {});
  EXPECT_EQ(by_wind[0], same[0]);

  // A forecast that ends at 18:00. What is left out has no bar, and the one taken takes its speeds.
  program.route.points = own;
  ASSERT_TRUE(WriteWindStore(program.folders, SteadyWind(day, 2, 5, 290.0F)));
  const std::vector<float> morning = search(true, [this, &sailed](QDialog& results) {
    auto& chart = *Find<DepartureChart>(results, "pctResults");
    auto& cursor = *Find<QLabel>(results, "lblCursor");
    EXPECT_LT(*chart.marked(), 6U);
    QTest::keyClick(&chart, Qt::Key_End);
    EXPECT_EQ(cursor.text(), "13:00 is left out: see the list");
    EXPECT_FALSE(chart.grab().isNull());
    QTest::keyClick(&chart, Qt::Key_Home);
    EXPECT_TRUE(cursor.text().startsWith("Time taken "));
    WithNextDialog([&](QDialog& route) {
      EXPECT_EQ(Find<QLineEdit>(route, "rtedeptime")->text(), "06:00");
      for (std::size_t i = 0; i + 1 < sailed.size(); ++i) {
        EXPECT_EQ(program.route.points[i].speed, sailed[i].speed) << i;
      }
    });
    QTest::keyClick(&chart, Qt::Key_Return);
  });
  EXPECT_TRUE(std::isnan(morning[7]));
  EXPECT_TRUE(program.edits.history.CanUndo());
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
