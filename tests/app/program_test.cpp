#include "app/program.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>

#include "app/reception.h"
#include "app/timers.h"
#include "instruments/nmea_sentences.h"
#include "support/fake_ports.h"
#include "support/recording_messages.h"
#include "support/still_clock.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

using testing::RecordingMessages;
using testing::StillClock;
using testing::TempFolder;

class Window final : public TimerWindow {
 public:
  bool Minimised() const override { return minimised; }
  void Repaint() override { ++repaints; }
  void ServeEvents() override {
    if (on_events) on_events();
  }
  void ShowReadout() override {}
  void ShowEta(const std::string& text) override { eta = text; }
  void LocatePoint(Position position) override { located.push_back(position); }
  std::optional<VisibleChart> Visible() const override { return visible; }

  std::function<void()> on_events;
  bool minimised = false;
  int repaints = 0;
  std::string eta;
  std::vector<Position> located;
  std::optional<VisibleChart> visible;
};

// A program on the sample installation with user folders of its own.
class Started : public ::testing::Test {
 protected:
  Started()
      : folders_{std::string(SKERROW_SOURCE_DIR) + "/program", user_.path() + "/documents",
                 user_.path() + "/settings"},
        program_(folders_, clock_) {}

  void Start() {
    MakeUserFolders(folders_);
    LoadProgram(program_, messages_);
  }

  void Tick() { CommsTick(program_, window_, ports_, messages_, now_ += kCommsInterval); }

  TempFolder user_;
  Folders folders_;
  StillClock clock_;
  Program program_;
  RecordingMessages messages_;
  Window window_;
  testing::FakePorts ports_;
  std::int64_t now_ = 0;
};

TEST_F(Started, FirstStartStandsOnTheSampleChart) {
  Start();
  EXPECT_TRUE(FileReadable(folders_.ConfigFile()));
  EXPECT_EQ(std::filesystem::file_size(folders_.ConfigFile()), kAppConfigSize);
  EXPECT_EQ(std::filesystem::file_size(folders_.WindConfigFile()), kWindConfigSize);
  EXPECT_EQ(program_.waypoints.waypoints.size(), 46U);
  EXPECT_EQ(program_.charts.index.size(), 4U);
  EXPECT_GT(program_.charts.chart.scale, 0.0F);
  EXPECT_GE(program_.tides.diamonds.size(), 48U);
  EXPECT_GE(program_.port_markers.size(), 100U);
  ASSERT_FALSE(program_.tides.ref_port_states.empty());
  EXPECT_EQ(program_.selected_time.day_of_year, 339);
  EXPECT_EQ(program_.selected_time.hours, 6.5F);  // seconds do not count
  EXPECT_EQ(program_.route_speed, 5.0F);
  EXPECT_TRUE(VectorsShown(program_.config));
  for (const char* folder : {"Routes", "Waypoints", "Tracks", "Google Earth"}) {
    EXPECT_TRUE(std::filesystem::is_directory(folders_.UserData() + "/" + folder)) << folder;
  }
  EXPECT_TRUE(std::filesystem::is_directory(folders_.GribData()));
}

TEST_F(Started, LeftoversOfAKilledProgramAreCleared) {
  MakeUserFolders(folders_);
  for (const std::string& folder :
       {folders_.SettingsData(), folders_.Waypoints(), folders_.Routes()}) {
    ASSERT_TRUE(ReplaceFile(folder + "/a.4711-0.new", "half"));
  }
  Start();
  for (const std::string& folder :
       {folders_.SettingsData(), folders_.Waypoints(), folders_.Routes()}) {
    EXPECT_FALSE(FileIsThere(folder + "/a.4711-0.new")) << folder;
  }
}

TEST_F(Started, SettingsSurviveAndTidesOffHidesTheVectors) {
  Start();
  ASSERT_TRUE(ReloadThenSave(folders_, program_.config, [](AppConfig& config) {
    config.use_tides = kFalse;
    config.use_leeway = kTrue;
  }));
  EXPECT_FALSE(program_.use_leeway);
  Program again(folders_, clock_);
  LoadProgram(again, messages_);
  EXPECT_EQ(again.config.use_tides, kFalse);
  EXPECT_FALSE(VectorsShown(again.config));
  EXPECT_TRUE(again.use_leeway);
}

TEST_F(Started, AReadOnlySettingsFolderIsToldAndDoesNotStopTheStart) {
  MakeUserFolders(folders_);
  std::filesystem::remove_all(folders_.SettingsData());
  user_.Write("settings/SkerrowHelm", "a file in the folder's place");
  messages_.Expect("Unable to create a configuration file.");
  LoadProgram(program_, messages_);
  EXPECT_EQ(program_.charts.index.size(), 4U);
  EXPECT_EQ(program_.config.calc_interval, 5.0F);
}

TEST_F(Started, AMissingProgramFolderIsToldStepByStep) {
  Program lost({user_.path() + "/none", folders_.documents, folders_.settings}, clock_);
  MakeUserFolders(lost.folders);
  messages_.Expect("Does not exist in Mod. ReadChartSettings\n" + user_.path() +
                   "/none/Charts/9999-1.cht");
  messages_.Expect("The reference ports cannot be read, there are no tidal streams.\n" +
                   user_.path() + "/none/RefPorts.hc: the file does not exist");
  messages_.Expect("LoadDiamondsError " + user_.path() +
                   "/none/TS/Sample Chart.l25: the file does not exist");
  LoadProgram(lost, messages_);
  EXPECT_TRUE(lost.charts.index.empty());
}

TEST_F(Started, ATypedTimeMovesTheTidesUntilTheClockComesBack) {
  Start();
  EXPECT_EQ(SetSelectedTime(program_, {"12:35", 30, 2, 2026}, messages_),
            SelectedTimeRefusal::kNoSuchDate);
  EXPECT_FALSE(program_.selected_time.override_);
  EXPECT_EQ(SetSelectedTime(program_, {"12:35", 29, 2, 2028}, messages_),
            SelectedTimeRefusal::kNone);
  EXPECT_EQ(program_.selected_time.day_of_year, 60);
  EXPECT_TRUE(program_.selected_time.override_);
  EXPECT_EQ(program_.tides.loaded->date, (DayAndYear{60, 2028}));
  ReturnToRealtime(program_, messages_);
  EXPECT_FALSE(program_.selected_time.override_);
  EXPECT_EQ(program_.selected_time.Day(), (DayAndYear{339, 2026}));
  EXPECT_EQ(program_.tides.loaded->date, (DayAndYear{339, 2026}));
}

TEST_F(Started, Timer1FollowsTheClockOnceAMinuteUnlessTheTimeIsSet) {
  Start();
  clock_.now = {2026, 12, 6, 0, 5, 0};
  for (int i = 0; i < 60; ++i) Timer1Tick(program_, false, window_);
  EXPECT_EQ(program_.selected_time.day_of_year, 339);
  Timer1Tick(program_, false, window_);
  EXPECT_EQ(program_.selected_time.day_of_year, 340);
  EXPECT_EQ(program_.clock_day, 340);
  EXPECT_EQ(window_.repaints, 1);
  EXPECT_EQ(program_.tides.loaded->date, (DayAndYear{340, 2026}));

  SetSelectedTime(program_, {"12:00", 1, 1, 2027}, messages_);
  clock_.now = {2026, 12, 7, 0, 5, 0};
  for (int i = 0; i < 500; ++i) Timer1Tick(program_, false, window_);
  EXPECT_EQ(program_.selected_time.year, 2027);
  EXPECT_EQ(program_.clock_day, 340);
  program_.selected_time.override_ = false;
  for (int i = 0; i < 500; ++i) Timer1Tick(program_, true, window_);
  EXPECT_EQ(program_.clock_day, 340);
}

TEST_F(Started, CommsTicksTakeTurnsAndOverrideTheSetTime) {
  Start();
  NoProgress progress;
  ASSERT_TRUE(StartGps(program_, ports_, 0, progress));
  ASSERT_TRUE(StartAis(program_, ports_, 0, progress));
  program_.config.gps_centre = kTrue;
  ports_.text[0] = testing::RmcAt("063020") + "\r\n";
  ports_.text[1] = "!AIVDM,1,1,,B,177KQJ5000G?tO`K>RA1wUbN0TKH,0*5C\r\n";
  program_.selected_time.override_ = true;
  program_.selected_time.hours = 1.0F;
  // A tick that comes up while another serves events does nothing.
  window_.on_events = [this] { Tick(); };
  Tick();
  window_.on_events = nullptr;
  EXPECT_EQ(program_.selected_time.hours, 6.5F);
  EXPECT_EQ(program_.nmea.fix.At(), (Position{50.0F + 30.25F / 60.0F, -1.3375F}));
  EXPECT_TRUE(program_.ais.targets.All().empty());
  ASSERT_EQ(window_.located.size(), 1U);
  Tick();
  ASSERT_EQ(program_.ais.targets.All().size(), 1U);
  EXPECT_TRUE(program_.ais.targets.All()[0].cpa_known);
  // Behind the decoder's own beginning of the track, one point for one fix, however long it stands.
  ASSERT_EQ(program_.nmea.track.size(), 2U);
  EXPECT_EQ(program_.nmea.track[1],
            (GpsTrackPoint{50.0F + 30.25F / 60.0F, -1.3375F, 6, 30, 20, 5, 12, 26, 5.2F, 271.5F}));
  for (int i = 0; i < 60; ++i) Tick();
  EXPECT_EQ(program_.nmea.track.size(), 2U);
  ports_.text[0] = testing::RmcAt("063025", "30.3000") + "\r\n";
  // The boat is centred again only when it has left the middle third.
  window_.visible = VisibleChart{49.5F, 51.5F, -2.3F, -0.3F};
  for (int i = 0; i < 70; ++i) Tick();
  EXPECT_EQ(program_.nmea.track.size(), 3U);
  EXPECT_EQ(window_.located.size(), 1U);
  EXPECT_GE(window_.repaints, 1);
  window_.visible = VisibleChart{49.5F, 51.5F, -4.0F, -0.5F};
  for (int i = 0; i < 30; ++i) Tick();
  EXPECT_GE(window_.located.size(), 2U);
}

// A record at the first tick and then whenever the interval of the settings has gone by; what was
// logged comes back as a track, once.
TEST_F(Started, TheLogKeepsItsInterval) {
  Start();
  NoProgress progress;
  program_.config.log_interval = 40;
  program_.nmea.log.logging_on = true;
  program_.nmea.log.log_file_name = "Voyage";
  ASSERT_TRUE(StartGps(program_, ports_, 0, progress));
  const std::string path = program_.folders.Tracks() + "/Voyage.nmea";
  const std::pair<int, int> rows[] = {{0, 1}, {39, 1}, {41, 2}, {80, 2}, {82, 3}};
  for (const auto& [seconds, records] : rows) {
    clock_.now.minute = 30 + seconds / 60;
    clock_.now.second = seconds % 60;
    for (int i = 0; i < 30; ++i) {
      ports_.text[0] = testing::RmcAt("063020") + "\r\n";
      Tick();
    }
    const std::string logged = testing::FileBytes(path);
    EXPECT_EQ(std::count(logged.begin(), logged.end(), '\n'), records) << seconds;
  }
  Program again(program_.folders, clock_);
  LoadProgram(again, messages_);
  again.nmea.log.log_file_name = "Voyage";
  ASSERT_TRUE(StartGps(again, ports_, 0, progress));
  ASSERT_TRUE(StartAis(again, ports_, 0, progress));
  EXPECT_EQ(again.nmea.track.size(), 3U);
  EXPECT_FALSE(BoatMotion(again)) << "where the log ended is not where the boat is";
  again.nmea.fix.position_good = true;
  EXPECT_TRUE(BoatMotion(again));
  again.link.gps_enabled = false;
  EXPECT_FALSE(BoatMotion(again)) << "nobody tells her place";
}

TEST_F(Started, AReplayFillsTheChartAndEndsByItself) {
  Start();
  const std::string path = program_.folders.Samples() + "/Channel crossing.nmea";
  ASSERT_TRUE(StartReplay({ReplayKind::kAis, path, 5}, program_.folders.Tracks(), program_.replay,
                          program_.plot, program_.nmea));
  int steps = 0;
  messages_.Expect("End of Log file reached", MessageIcon::kInformation);
  while (program_.replay.running && ++steps < 1'000'000) ReplayStepOf(program_, window_, messages_);
  EXPECT_TRUE(program_.replay.replay_active);
  EXPECT_GT(program_.ais.targets.All().size(), 20U);
  EXPECT_GT(program_.nmea.track.size(), 100U);
  EXPECT_GT(window_.repaints, 10);
  EndReplay(program_);
  EXPECT_FALSE(program_.replay.replay_active);
  EXPECT_TRUE(program_.ais.targets.All().empty());
}

// The clock of summer time runs an hour ahead of the tide, in the heights and in what follows.
TEST_F(Started, SummerTimeMovesTheTides) {
  Start();
  program_.selected_time.override_ = true;
  program_.selected_time.hours = 6.5F;
  RebuildTides(program_, messages_);
  const RefPortState standard = program_.tides.ref_port_states.front();
  const float height = program_.tides.loaded->ports.front().heights[145];
  program_.config.summer_time = kTrue;
  program_.selected_time.hours = 7.5F;
  RebuildTides(program_, messages_);
  const RefPortState summer = program_.tides.ref_port_states.front();
  EXPECT_EQ(standard.hw_time, "08:20");
  EXPECT_EQ(summer.hw_time, "09:20");
  EXPECT_EQ(summer.dep_slot, standard.dep_slot);
  EXPECT_EQ(summer.mins_left, standard.mins_left);
  EXPECT_EQ(program_.tides.loaded->ports.front().heights[151], height);
}

TEST_F(Started, TheTidesRollByHalfHoursThroughMidnight) {
  Start();
  struct Row {
    float from;
    Roll roll;
    float to;
    int day;
  };
  const Row rows[] = {{6.5F, Roll::kForward, 7.0F, 339},
                      {6.2F, Roll::kForward, 6.5F, 339},
                      {6.75F, Roll::kForward, 7.0F, 339},
                      {23.5F, Roll::kForward, 0.0F, 340},
                      {6.5F, Roll::kBack, 6.0F, 339},
                      {6.75F, Roll::kBack, 6.0F, 339},
                      {7.25F, Roll::kBack, 6.5F, 339},
                      {0.5F, Roll::kBack, 23.5F, 338},
                      {0.0F, Roll::kBack, 23.5F, 338},
                      // A thousandth of an hour short of the half counts as the half.
                      {6.9995F, Roll::kBack, 6.5F, 339},
                      {6.9985F, Roll::kBack, 6.0F, 339},
                      {10.4995F, Roll::kBack, 10.0F, 339}};
  for (const Row& row : rows) {
    program_.selected_time.hours = row.from;
    SetDay(program_.selected_time, {339, 2026});
    program_.selected_time.override_ = true;
    RollTides(program_, row.roll);
    EXPECT_EQ(program_.selected_time.hours, row.to) << row.from;
    EXPECT_EQ(program_.selected_time.day_of_year, row.day) << row.from;
    EXPECT_EQ(program_.tides.loaded->date.day, row.day) << row.from;
  }
  // From the clock: its time is taken first and comes back afterwards.
  ReturnToRealtime(program_, messages_);
  clock_.now.hour = 9;
  RollTides(program_, Roll::kForward);
  EXPECT_EQ(program_.selected_time.hours, 10.0F);
  RollTides(program_, Roll::kForward);
  RestoreTime(program_);
  EXPECT_EQ(program_.selected_time.hours, 9.5F);
  EXPECT_FALSE(program_.selected_time.override_);
}

TEST_F(Started, AnimationStepsThroughTheTrackAndRemembersTheTime) {
  Start();
  for (int i = 0; i < 8; ++i) {
    program_.passage.route_track.push_back(
        {{50.0F, -1.0F}, static_cast<float>(i) / 2.0F, {1, 2027}});
  }
  program_.animation.running = true;
  EXPECT_TRUE(AnimateTick(program_, window_));
  EXPECT_EQ(program_.animation.index, 3U);
  EXPECT_EQ(window_.eta, "ETA : 01:30");
  EXPECT_EQ(program_.animation.label, "ETA : 01:30  1 Jan");
  EXPECT_EQ(program_.selected_time.Day(), (DayAndYear{1, 2027}));
  EXPECT_TRUE(program_.selected_time.override_);
  AnimateTick(program_, window_);
  AnimateTick(program_, window_);
  EXPECT_EQ(program_.animation.index, 7U);
  EXPECT_FALSE(AnimateTick(program_, window_));
  EXPECT_FALSE(AnimateTick(program_, window_));

  program_.animation = {AnimationDirection::kReverse, 2, true, ""};
  EXPECT_TRUE(AnimateTick(program_, window_));
  EXPECT_EQ(program_.animation.index, 0U);
  EXPECT_FALSE(AnimateTick(program_, window_));
  EXPECT_EQ(program_.saved_time.time.Day(), (DayAndYear{339, 2026}));
  RestoreSaved(program_.selected_time, program_.saved_time);
  EXPECT_EQ(program_.selected_time.hours, 6.5F);
  EXPECT_FALSE(program_.selected_time.override_);
}

}  // namespace
}  // namespace skerrow
