// The predictions of the course over the ground and the export of the streams in the main window.

#include "app/situation.h"
#include "tides/stream_export.h"
#include "ui/main/window_fixture.h"

namespace skerrow::testing {
namespace {

class DriftWindow : public MainWindowTest {
 protected:
  void PredictDrift() {
    OnDialog([](QWidget* form) {
      Type(*form, "txtstartlat", "50.55.00N");  // out of view at the start
      Type(*form, "txtstartlon", "001.10.00E");
      Type(*form, "txtDuration", "2");
      Click(form, "cmdOK");
    });
    Command("mnuCalcMOB");
  }
  void ShowTools() {
    window_->view().tools_shown = true;
    window_->Changed(kAllChanged);
  }
};

TEST_F(DriftWindow, TheTrackIsShownAnimatedAndTakenOffByEsc) {
  Start();
  LayRoute();
  EXPECT_FALSE(window_->action("mnuAnimateStart")->isEnabled());
  PredictDrift();
  EXPECT_EQ(program_.passage.calc_mode, kCalcModeDrift);
  ASSERT_EQ(program_.passage.route_track.size(), 25U);
  EXPECT_TRUE(canvas()->rect().contains(At(program_.passage.route_track.back().position)));
  EXPECT_TRUE(window_->action("mnuAnimateStart")->isEnabled());
  Command("mnuAnimateStart");
  QTRY_VERIFY(program_.animation.index > 0);
  Command("mnuAnimateStop");
  // A roll of the tides leaves it as it is.
  Command("mnuTideRollPlus");
  EXPECT_EQ(program_.passage.calc_mode, kCalcModeDrift);
  EXPECT_EQ(program_.passage.route_track.size(), 25U);
  OnDialog([&](QWidget* results) {
    EXPECT_EQ(results->objectName(), "frmresults");
    EXPECT_EQ(Find<QListWidget>(*results, "lstResults")->item(0)->text(),
              "Drift Prediction for 5 Dec 2026");
  });
  Command("mnuLastRouteResults");
  // The first Esc takes the track alone.
  Key(Qt::Key_Escape);
  EXPECT_TRUE(program_.passage.route_track.empty());
  EXPECT_EQ(program_.passage.calc_mode, 0);
  EXPECT_EQ(program_.route.points.size(), 3U);
  EXPECT_FALSE(window_->action("mnuAnimateStart")->isEnabled());
}

TEST_F(DriftWindow, TheMarkOpensItsPrediction) {
  Start();
  MarkManOverboard(program_, {50.0F, -1.5F});
  window_->Changed(kAllChanged);
  std::string start;
  OnDialog([&](QWidget* form) {
    EXPECT_EQ(form->objectName(), "frmCalcMOB");
    start = Find<QLineEdit>(*form, "txtstartlat")->text().toStdString();
  });
  auto* label = window_->findChild<QLabel*>("lblMOB");
  QTest::mouseDClick(label, Qt::LeftButton);
  EXPECT_EQ(start, "50.00.00N");
  OnDialog([](QWidget* form) { EXPECT_EQ(form->objectName(), "frmCalcCOG"); });
  Command("mnuCalcCOG");
}

TEST_F(DriftWindow, TheExportMovesTheTime) {
  Start();
  ShowTools();
  SetDay(program_.selected_time, {1, 2027});
  program_.selected_time.override_ = true;
  TimeMoved(program_);
  messages_.Expect("End of routine");
  Command("mnuStreamstoCSV");
  // 35 days from 1 January.
  EXPECT_EQ(program_.selected_time.Day(), (DayAndYear{36, 2027}));
  EXPECT_EQ(program_.selected_time.hours, 0.0F);
  EXPECT_EQ(program_.selected_time.month, 2);
  EXPECT_EQ(FileBytes(TidalComponentsFolder(program_.folders) + "/9999-1-X.txt").size(),
            kStreamRecordSize * (1 + 35 * 24));
  Command("mnuselrealtime");
  EXPECT_EQ(program_.selected_time.year, 2026);
}

}  // namespace
}  // namespace skerrow::testing
