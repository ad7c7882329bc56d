#include <QStatusBar>

#include "app/boat_ahead.h"
#include "core/plane_sailing.h"
#include "ui/instruments/frmAISSummary.h"
#include "window_fixture.h"

namespace skerrow::testing {
namespace {

class CountedAlarm final : public Alarm {
 public:
  explicit CountedAlarm(int& count) : count_(count) {}
  void Sound() override { ++count_; }

 private:
  int& count_;
};

class TargetCommands : public MainWindowTest {
 protected:
  void StartWithTargets() {
    Start();
    program_.link.ais_enabled = true;
    Add(1, {50.2F, -1.8F});
    Add(2, {50.0F, -1.9F});
    window_->context().targets.SetAlarm(std::make_unique<CountedAlarm>(sounds));
    window_->Changed(kAllChanged);
  }
  AisTarget& Add(std::int32_t mmsi, Position at) {
    program_.ais.targets.UpdateAisPosition({.message_type = 1,
                                            .mmsi = mmsi,
                                            .position = at,
                                            .course = 0.0F,
                                            .speed = 5.0F,
                                            .nav_status = 0},
                                           {}, AisHours(clock_.now));
    return *program_.ais.targets.Find(mmsi);
  }
  AisTarget& Target(std::int32_t mmsi) { return *program_.ais.targets.Find(mmsi); }
  void SetBoat(Position at, float speed, float course) {
    program_.link.gps_enabled = true;
    program_.nmea.fix.position_good = true;
    program_.nmea.fix.boat_latitude = at.latitude;
    program_.nmea.fix.boat_longitude = at.longitude;
    program_.nmea.fix.speed_over_ground = speed;
    program_.nmea.fix.course_over_ground = course;
  }
  void DoubleClick(QPoint at) {
    MoveTo(at);
    QTest::mouseClick(canvas(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(canvas(), Qt::LeftButton, {}, at);
    QTest::mouseRelease(canvas(), Qt::LeftButton, {}, at);
  }
  frmAisDetails* Details() {
    auto* window = window_->findChild<frmAisDetails*>();
    return window != nullptr && window->isVisible() ? window : nullptr;
  }
  std::string GpsBox() { return window_->findChild<QLabel*>("lblGPS")->text().toStdString(); }

  int sounds = 0;
};

TEST_F(TargetCommands, NeedReceptionOrAReplay) {
  Start();
  for (const char* name : {"mnuAISTargetList", "mnuShowAISDetails", "keyAisDialog", "tbShowAis"}) {
    EXPECT_FALSE(window_->action(name)->isEnabled()) << name;
  }
  EXPECT_FALSE(window_->action("mnuGPSCentre")->isEnabled());
  program_.replay.replay_active = true;
  window_->Changed(0);
  EXPECT_TRUE(window_->action("mnuAISTargetList")->isEnabled());
  EXPECT_TRUE(window_->action("mnuGPSCentre")->isEnabled());
  program_.replay.replay_active = false;
  window_->Changed(0);
  // A key without targets does nothing.
  program_.link.ais_enabled = true;
  window_->Changed(0);
  MoveTo(At({50.0F, -1.8F}));
  Key(Qt::Key_F2);
  Key(Qt::Key_F3);
  EXPECT_EQ(Details(), nullptr);
  // The details button rests while the vessels are hidden.
  EXPECT_TRUE(window_->action("tbAisDetails")->isEnabled());
  Command("tbShowAis");
  EXPECT_FALSE(window_->view().targets_shown);
  EXPECT_FALSE(window_->action("tbAisDetails")->isEnabled());
}

TEST_F(TargetCommands, KeysActOnTheNearestToTheCursor) {
  StartWithTargets();
  MoveTo(At({50.15F, -1.8F}));
  struct Row {
    Qt::Key key;
    bool AisTarget::*what;
  };
  const Row rows[] = {{Qt::Key_F3, &AisTarget::show_details},
                      {Qt::Key_F4, &AisTarget::show_history},
                      {Qt::Key_F5, &AisTarget::show_predicted},
                      {Qt::Key_F6, &AisTarget::show_heading_vector}};
  for (const Row& row : rows) {
    Key(row.key);
    for (const Row& other : rows) {
      EXPECT_EQ(Target(1).*other.what, other.key == row.key) << row.key << " " << other.key;
      EXPECT_FALSE(Target(2).*other.what);
    }
    Key(row.key);
    EXPECT_FALSE(Target(1).*row.what);
  }
  Key(Qt::Key_F2);
  ASSERT_NE(Details(), nullptr);
  EXPECT_EQ(Details()->target(), 1);
  EXPECT_EQ(window_->view().shown_target, 1);
  MoveTo(At({50.02F, -1.9F}));
  Key(Qt::Key_F2);
  EXPECT_EQ(Details()->target(), 2);
}

TEST_F(TargetCommands, ADoubleClickNeedsATargetInReachAndThePopUpDoesNot) {
  StartWithTargets();
  program_.config.show_tide_heights = kFalse;
  program_.config.show_streams = 0.0F;
  program_.config.search_circle = 2.0F;
  window_->Changed(kAllChanged);
  DoubleClick(At({50.1F, -1.8F}));  // six miles off
  EXPECT_EQ(Details(), nullptr);
  Command("mnuPUAISDetails");
  ASSERT_NE(Details(), nullptr);
  EXPECT_EQ(Details()->target(), 1);
  Details()->close();
  DoubleClick(At({50.01F, -1.9F}));
  ASSERT_NE(Details(), nullptr);
  EXPECT_EQ(Details()->target(), 2);
}

TEST_F(TargetCommands, TheMenuSetsAllTargetsTheSettingAndThoseToCome) {
  StartWithTargets();
  struct Row {
    const char* name;
    std::int16_t AppConfig::*setting;
    bool AisTarget::*what;
  };
  const Row rows[] = {
      {"mnuShowAISDetails", &AppConfig::show_ais_details, &AisTarget::show_details},
      {"mnuShowHistorical", &AppConfig::show_ais_history, &AisTarget::show_history},
      {"mnuAISDisplayPredicted", &AppConfig::show_ais_predicted, &AisTarget::show_predicted},
      {"mnuAISShowHeadVect", &AppConfig::show_ais_heading, &AisTarget::show_heading_vector},
      {"tbAisDetails", &AppConfig::show_ais_details, &AisTarget::show_details}};
  for (const Row& row : rows) {
    for (int turn = 0; turn < 2; ++turn) {
      const bool on = program_.config.*row.setting == 0;
      Target(2).*row.what = on;  // one of them had it already
      Command(row.name);
      EXPECT_EQ(program_.config.*row.setting != 0, on) << row.name;
      EXPECT_EQ(window_->action(row.name)->isChecked(), on) << row.name;
      for (const AisTarget& target : program_.ais.targets.All()) {
        EXPECT_EQ(target.*row.what, on) << row.name;
      }
      AppConfig stored = DefaultConfig("");
      LoadProgram(program_, messages_);
      stored = program_.config;
      EXPECT_EQ(stored.*row.setting != 0, on) << row.name;
    }
  }
}

TEST_F(TargetCommands, TheListOpensOnceAndShowsOnTheChart) {
  StartWithTargets();
  Command("mnuAISTargetList");
  Command("mnuAISTargetList");
  ASSERT_EQ(window_->findChildren<frmAISSummary*>().size(), 1);
  auto* list = window_->findChild<frmAISSummary*>()->findChild<QTreeView*>("lstAISTargets");
  Key(Qt::Key_I);
  Key(Qt::Key_I);
  list->setCurrentIndex(list->model()->index(1, 0));
  QTest::keyClick(list, Qt::Key_Return);
  ASSERT_NE(Details(), nullptr);
  EXPECT_EQ(Details()->target(), 2);
  const QPoint middle = canvas()->rect().center();
  EXPECT_LE((At({50.0F, -1.9F}) - middle).manhattanLength(), 8);
}

TEST_F(TargetCommands, AnApproachIsToldAndSounded) {
  StartWithTargets();
  SetBoat({50.1F, -1.8F}, 5.0F, 0.0F);
  Target(1).cpa = 0.2F;
  Target(1).tcpa = 0.5F;
  Target(1).cpa_known = true;
  Target(1).vessel_name = "ATLANTIC STAR";
  const auto told = [this] { return window_->statusBar()->currentMessage().toStdString(); };
  window_->context().targets.Step();
  EXPECT_EQ(told(), "Close approach: ATLANTIC STAR  0.20nm @ 07:00, now 6.0 nm @000°T");
  EXPECT_EQ(sounds, 1);
  window_->context().targets.Step();
  EXPECT_EQ(sounds, 1);
  // The sound can be turned off, the line stays.
  settings_->SetInt("Instruments", "AlarmSound", 0);
  Target(2).cpa = 0.1F;
  Target(2).tcpa = 0.25F;
  Target(2).cpa_known = true;
  window_->context().targets.Step();
  EXPECT_TRUE(told().starts_with("Close approach: MMSI 2  0.10nm @ 06:45")) << told();
  EXPECT_EQ(sounds, 1);
}

TEST_F(TargetCommands, ALineOfTheStatusBarOutlivesAChangeOfTheLook) {
  Start();
  window_->Tell("Close approach");
  Command("mnuViewNight");
  QTest::qWait(100);
  EXPECT_EQ(window_->statusBar()->currentMessage(), "Close approach");
  EXPECT_FALSE(window_->findChild<QLabel*>("StatusBar1Panel1")->isVisible());
}

TEST_F(TargetCommands, TheBoxOfTheGpsTellsOfTheBoatOrOfTheWayToTheMark) {
  StartWithTargets();
  EXPECT_EQ(GpsBox(), "");
  SetBoat({50.0F, -1.8F}, 5.0F, 90.0F);
  program_.config.gps_centre = kFalse;
  program_.nmea.fix.position_text = "50 00.000N  001 48.000W";
  program_.nmea.fix.course_speed_text = "Heading 090.0°T @ 005.0 Kn";
  window_->Changed(kTargetsChanged);
  EXPECT_EQ(GpsBox(), "GPS\n50 00.000N  001 48.000W\nHeading 090.0°T @ 005.0 Kn");
  Key(Qt::Key_G);
  EXPECT_NE(program_.config.gps_centre, 0);
  EXPECT_TRUE(GpsBox().starts_with("GPS(Located on Screen)\n"));
  window_->view().marked_point_on = true;
  window_->view().marked = {50.25F, -1.8F};  // 15 miles, 3 hours from 06:30
  window_->Changed(kViewChanged);
  EXPECT_EQ(GpsBox(), "From Boat To Marked Point 15.0nm @000°T\nETA at Marked Point 09:30");
  program_.nmea.fix.speed_over_ground = 0.0F;
  window_->Changed(kTargetsChanged);
  EXPECT_TRUE(GpsBox().ends_with("\nETA at Marked Point Not calculated"));
}

TEST_F(TargetCommands, TheTideSetsTheBoatAhead) {
  Start();
  SetBoat({50.0F, -1.8F}, 6.0F, 90.0F);
  program_.config.ahead_interval = 30.0F;
  program_.config.boat_future_tide_plot = kFalse;
  EXPECT_TRUE(PredictBoatAhead(program_).empty());
  program_.config.boat_future_tide_plot = kTrue;
  program_.config.use_tides = kFalse;
  // Without tides three miles east each half hour.
  std::vector<Position> ahead = PredictBoatAhead(program_);
  ASSERT_EQ(ahead.size(), 7U);
  for (std::size_t i = 0; i < ahead.size(); ++i) {
    const RangeAndBearing way = RangeBearing({50.0F, -1.8F}, ahead[i]);
    EXPECT_NEAR(way.range, 3.0 * static_cast<double>(i), 0.02);
  }
  // With them the first step goes as the GPS has it, and the stream's change moves the later ones.
  program_.config.use_tides = kTrue;
  const std::vector<Position> set = PredictBoatAhead(program_);
  ASSERT_EQ(set.size(), 7U);
  EXPECT_GT(RangeBearing(set[6], ahead[6]).range, 0.3F);
  program_.config.ahead_interval = 6.0F;
  EXPECT_NEAR(RangeBearing(PredictBoatAhead(program_)[1], ahead[0]).range, 0.6, 0.01);
  program_.nmea.fix.position_good = false;
  EXPECT_TRUE(PredictBoatAhead(program_).empty());
}

TEST(AlarmTone, GoesToThePlayerThatIsThere) {
  const TempFolder folder;
  const std::string heard = folder.File("heard");
  const std::string player =
      folder.Write("paplay", "#!/bin/sh\ncp \"$1\" '" + heard + ".part'\nmv '" + heard +
                                 ".part' '" + heard + "'\n");
  QFile(QString::fromStdString(player))
      .setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  const QByteArray path = qgetenv("PATH");
  // The script itself needs the system's programs, which stand behind it.
  qputenv("PATH", QByteArray::fromStdString(folder.path()) + ":" + path);
  const std::unique_ptr<Alarm> alarm = MakeAlarm();
  alarm->Sound();
  EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(QString::fromStdString(heard)); }, 5000));
  qputenv("PATH", path);
  QFile file(QString::fromStdString(heard));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll().toStdString(), AlarmWave());
}

TEST(AlarmTone, IsAPlainWaveOfLessThanASecond) {
  const std::string wave = AlarmWave();
  EXPECT_EQ(wave.substr(0, 4) + wave.substr(8, 8) + wave.substr(36, 4), "RIFFWAVEfmt data");
  const auto number = [&](std::size_t at) {
    return static_cast<unsigned char>(wave[at]) | static_cast<unsigned char>(wave[at + 1]) << 8 |
           static_cast<unsigned char>(wave[at + 2]) << 16 |
           static_cast<unsigned char>(wave[at + 3]) << 24;
  };
  EXPECT_EQ(number(4), static_cast<int>(wave.size()) - 8);
  EXPECT_EQ(number(40), static_cast<int>(wave.size()) - 44);
  EXPECT_EQ(number(24), 22050);
  const int samples = number(40) / 2;
  EXPECT_GT(samples, 22050 / 2);
  EXPECT_LT(samples, 22050);
  // The first beep is an a5: it rises through zero 880 times a second.
  int rises = 0;
  const auto sample = [&](int i) {
    return static_cast<std::int16_t>(number(static_cast<std::size_t>(44 + 2 * i)) & 0xffff);
  };
  for (int i = 1; i < 2205; ++i) rises += sample(i - 1) <= 0 && sample(i) > 0 ? 1 : 0;
  EXPECT_NEAR(rises, 88, 1);
}

}  // namespace
}  // namespace skerrow::testing
