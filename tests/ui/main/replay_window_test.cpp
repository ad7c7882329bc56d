// Logs replayed in the main window, over real files and with the timers running.

#include <filesystem>
#include <map>

#include "core/files.h"
#include "instruments/nmea_sentences.h"
#include "ui/main/window_fixture.h"

namespace skerrow::testing {
namespace {

class ReplayWindow : public MainWindowTest {
 protected:
  std::string Track(const std::string& name) const {
    return JoinPath(program_.folders.Tracks(), name);
  }
  std::string Log(int lines) const {
    std::string log;
    for (int i = 0; i < lines; ++i) {
      log += RmcAt("0930" + std::to_string(10 + i % 50), "30." + std::to_string(1000 + i)) + "\r\n";
    }
    return log;
  }
  void StartReplayOf(const char* name, const char* command = "mnuGPSReplay") {
    OnDialog([name](QWidget* dialog) {
      dialog->findChild<QLineEdit*>("txtFileName")->setText(name);
      dialog->findChild<QAbstractSlider*>("HScroll1")->setValue(5);
      Click(dialog, "cmdOK");
    });
    Command(command);
  }
  bool Enabled(const char* name) { return window_->action(name)->isEnabled(); }
};

TEST_F(ReplayWindow, RunsPausesAndIsHalted) {
  Start();
  ASSERT_TRUE(ReplaceFile(Track("Voyage.nmea"), Log(400)));
  ASSERT_TRUE(ReplaceFile(Track("replay.trk"), std::string(64, ' ')));
  EXPECT_FALSE(Enabled("mnuGPSReplayHalt") || Enabled("mnuGPSReplayPause") ||
               Enabled("mnugpscomment") || Enabled("mnurtegpsupload") ||
               Enabled("mnuStopGPSDataLog"));
  StartReplayOf("Voyage");
  EXPECT_TRUE(Enabled("mnuGPSReplayHalt") && Enabled("mnuGPSReplayPause"));
  EXPECT_FALSE(Enabled("mnuGPSReplay") || Enabled("mnuAISReplay") || Enabled("mnuhistPlot") ||
               Enabled("mnuposmanual") || Enabled("mnuDemonstration"));
  EXPECT_FALSE(FileIsThere(Track("replay.trk")));
  ASSERT_TRUE(QTest::qWaitFor([this] { return program_.nmea.track.size() > 3; }, 5000));
  EXPECT_TRUE(program_.plot.track_plot_on);
  EXPECT_EQ(window_->windowTitle(), "Skerrow Helm - Replay of Voyage.nmea");
  Command("mnuGPSReplayPause");
  EXPECT_EQ(window_->action("mnuGPSReplayPause")->text(), "Resume Log Replay");
  const std::size_t points = program_.nmea.track.size();
  QTest::qWait(100);
  EXPECT_EQ(program_.nmea.track.size(), points);
  Command("mnuAISReplayPause");
  EXPECT_EQ(window_->action("mnuGPSReplayPause")->text(), "Pause Log Replay");
  ASSERT_TRUE(QTest::qWaitFor([&] { return program_.nmea.track.size() > points; }, 5000));
  Command("mnuGPSReplayHalt");
  EXPECT_FALSE(program_.replay.replay_active || program_.plot.track_plot_on);
  EXPECT_TRUE(program_.nmea.track.empty());
  EXPECT_FALSE(program_.nmea.fix.HasPosition());
  EXPECT_TRUE(Enabled("mnuGPSReplay") && Enabled("mnuDemonstration"));
  EXPECT_TRUE(window_->windowTitle().contains("Selected Time"));
}

TEST_F(ReplayWindow, EndsOnceAndTheMenusStay) {
  Start();
  for (const auto& [name, log] :
       std::map<std::string, std::string>{{"Empty", ""}, {"One", "x"}, {"Short", Log(3)}}) {
    ASSERT_TRUE(ReplaceFile(Track(name + ".nmea"), log));
    messages_.Expect("End of Log file reached", MessageIcon::kInformation);
    StartReplayOf(name.c_str(), "mnuAISReplay");
    ASSERT_TRUE(QTest::qWaitFor([this] { return messages_.AllShown(); }, 5000)) << name;
    EXPECT_TRUE(Enabled("mnuAISReplayHalt"));
    EXPECT_FALSE(program_.replay.running);
    Command("mnuAISReplayHalt");
  }
}

TEST_F(ReplayWindow, ALogThatGoesAwayEndsIt) {
  Start();
  ASSERT_TRUE(ReplaceFile(Track("Voyage.nmea"), Log(4000)));
  StartReplayOf("Voyage");
  ASSERT_TRUE(QTest::qWaitFor([this] { return program_.nmea.track.size() > 1; }, 5000));
  messages_.Expect("The log can no longer be read: the file does not exist",
                   MessageIcon::kInformation);
  ASSERT_TRUE(DeleteFile(Track("Voyage.nmea")));
  EXPECT_TRUE(QTest::qWaitFor([this] { return messages_.AllShown(); }, 5000));
  EXPECT_FALSE(program_.replay.running);
}

TEST_F(ReplayWindow, TheDemonstrationLeavesAllAsItWas) {
  Start();
  program_.nmea.track = {{.latitude = 50.5F, .longitude = -1.5F}};
  program_.nmea.log.comments = {{50.5F, -1.5F, "", "", {"Mine"}}};
  program_.nmea.log.logging_on = true;
  program_.nmea.log.log_file_name = "Mine";
  program_.plot = {Track("mine.trk"), true, false};
  const std::string chart = program_.config.chart_path;
  const std::size_t files =
      std::filesystem::exists(program_.folders.Tracks())
          ? static_cast<std::size_t>(
                std::distance(std::filesystem::directory_iterator(program_.folders.Tracks()),
                              std::filesystem::directory_iterator()))
          : 0;
  Command("mnuDemonstration");
  EXPECT_TRUE(window_->action("mnuDemonstration")->isChecked());
  EXPECT_FALSE(program_.nmea.log.logging_on);
  ASSERT_TRUE(QTest::qWaitFor([this] { return program_.ais.targets.All().size() > 5; }, 10000));
  EXPECT_TRUE(program_.nmea.fix.HasPosition());
  const std::optional<VisibleChart> seen = window_->context().chart.Visible();
  ASSERT_TRUE(seen.has_value());
  const Position boat = program_.nmea.fix.At();
  EXPECT_TRUE(boat.latitude > seen->south && boat.latitude < seen->north &&
              boat.longitude > seen->west && boat.longitude < seen->east);
  EXPECT_EQ(window_->view().link_status, "Help > Demonstration ends it");
  Command("mnuDemonstration");
  EXPECT_FALSE(program_.replay.replay_active || window_->action("mnuDemonstration")->isChecked());
  EXPECT_EQ(program_.nmea.track.size(), 1U);
  EXPECT_EQ(program_.nmea.log.comments.size(), 1U);
  EXPECT_TRUE(program_.nmea.log.logging_on);
  EXPECT_EQ(program_.plot.plot_file_name, Track("mine.trk"));
  EXPECT_EQ(program_.config.chart_path, chart);
  EXPECT_EQ(window_->view().link_status, "");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(program_.folders.Tracks()),
                          std::filesystem::directory_iterator()),
            static_cast<std::ptrdiff_t>(files));
}

TEST_F(ReplayWindow, ALogOfTheCommandLinePlaysWhereItLies) {
  Start();
  window_->ReplayFile("Channel crossing.nmea");
  EXPECT_TRUE(program_.replay.running);
  const std::optional<VisibleChart> seen = window_->context().chart.Visible();
  EXPECT_TRUE(seen && 50.245F > seen->south && 50.245F < seen->north && -1.645F > seen->west &&
              -1.645F < seen->east);
}

}  // namespace
}  // namespace skerrow::testing
