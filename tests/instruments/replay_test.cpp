#include "instruments/replay.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "instruments/nmea_sentences.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

using testing::GpsSentence;
using testing::KeptAis;
using testing::RmcAt;
using testing::StillClock;
using testing::TempFolder;

constexpr const char* kAis = "!AIVDM,1,1,,B,177KQJ5000G?tO`K>RA1wUbN0TKH,0*5C";

class Replay : public ::testing::Test {
 protected:
  bool Start(const std::string& content, const ReplayRequest& request = {.name = "voyage"}) {
    folder_.Write("voyage.nmea", content);

    return StartReplay(request, folder_.path(), replay_, plot_, nmea_).ok();
  }
  ReplayStep Tick() { return ReplayTick(replay_, plot_, nmea_, sink_, clock_); }
  // The waits before each line of the log, up to its end.
  std::vector<int> Waits(const std::string& content, ReplayPace pace) {
    EXPECT_TRUE(Start(content, {.name = "voyage", .pace = pace}));
    std::vector<int> waits;
    for (;;) {
      const int wait = ReplayWait(replay_);
      if (Tick().ended) return waits;
      waits.push_back(wait);
    }
  }

  TempFolder folder_;
  ReplayState replay_;
  PlotState plot_;
  NmeaState nmea_;
  KeptAis sink_;
  StillClock clock_;
};

TEST_F(Replay, LogThatGrowsIsNotPlayedForEver) {
  nmea_.log.logging_on = true;
  nmea_.log.log_file_name = "voyage";
  ASSERT_TRUE(Start(RmcAt("063020") + "\r\n"));
  EXPECT_FALSE(nmea_.log.logging_on);
  nmea_.log.logging_on = true;  // by the user, into the same log
  NoMessages messages;
  for (int tick = 1; !Tick().ended; ++tick) {
    ASSERT_EQ(tick, 1);
    ASSERT_TRUE(WriteLogRecord(nmea_.log, folder_.path(), messages).ok());
    ClearSeenKinds(nmea_.log);
  }
}

TEST_F(Replay, LinesGoThroughTheDecodersOneEachTick) {
  nmea_.track.resize(2);
  ASSERT_TRUE(Start(std::string(kAis) + "\r\n" + RmcAt("063020.7") + "\r\n" +
                    GpsSentence("PSKLOG,6,1,5030.250,N,00120.250,W,051226,063020") + "\r\n"));
  EXPECT_EQ(plot_.plot_file_name, folder_.File("replay.trk"));
  EXPECT_FALSE(plot_.track_plot_on);
  Tick();
  EXPECT_EQ(sink_.sentences, std::vector<std::string>{kAis});
  EXPECT_EQ(nmea_.track.size(), 2U);
  Tick();
  EXPECT_TRUE(nmea_.fix.position_good);
  EXPECT_TRUE(plot_.track_plot_on);
  ASSERT_EQ(nmea_.track.size(), 3U);
  EXPECT_EQ(nmea_.track[2], (GpsTrackPoint{.latitude = nmea_.fix.boat_latitude,
                                           .longitude = nmea_.fix.boat_longitude,
                                           .hour = 6,
                                           .minute = 30,
                                           .second = 21,
                                           .day = 5,
                                           .month = 12,
                                           .year = 26,
                                           .speed = 5.2F,
                                           .course = 271.5F}));
  Tick();  // a comment: no fix any more, and no point
  EXPECT_FALSE(nmea_.fix.position_good);
  EXPECT_EQ(nmea_.track.size(), 3U);
  const ReplayStep end = Tick();
  EXPECT_TRUE(end.ended && end.repaint);
  EXPECT_EQ(end.message, "End of Log file reached");
  EXPECT_TRUE(replay_.replay_active);
  EXPECT_FALSE(Tick().ended);  // told once
}

TEST_F(Replay, StartIsThatOfItsKind) {
  folder_.Write("replay.trk", "old");
  nmea_.track.resize(2);
  nmea_.fix.position_good = true;
  plot_.track_plot_on = true;
  ASSERT_TRUE(Start("", {.kind = ReplayKind::kAis, .name = "VOYAGE.NMEA"}) ||
              Start("", {.kind = ReplayKind::kAis, .name = "voyage.nmea", .interval = 1}));
  EXPECT_EQ(replay_.interval, 5);
  EXPECT_TRUE(nmea_.track.empty());
  EXPECT_FALSE(nmea_.fix.position_good || plot_.track_plot_on);
  EXPECT_EQ(plot_.plot_file_name, "");
  EXPECT_EQ(folder_.EntryCount(), 2U);
  ASSERT_TRUE(Start("", {.name = "voyage", .interval = 1000}));
  EXPECT_EQ(replay_.interval, 150);
  EXPECT_EQ(folder_.EntryCount(), 1U);  // the old plot is gone
  ASSERT_TRUE(Start("", {.name = folder_.File("voyage")}));
  EXPECT_TRUE(Tick().ended);

  const Status none = StartReplay({.name = " "}, folder_.path(), replay_, plot_, nmea_);
  ASSERT_FALSE(none.ok());
  EXPECT_EQ(none.error().Text(), "No file name selected");
  EXPECT_FALSE(StartReplay({.name = "missing"}, folder_.path(), replay_, plot_, nmea_).ok());
}

TEST_F(Replay, RepaintsEveryHalfSecond) {
  std::string content;
  for (int i = 0; i < 60; ++i) content += "x\r\n";
  for (const auto& [interval, ticks] : {std::pair{40, 13}, {150, 4}, {100, 6}}) {
    ASSERT_TRUE(
        Start(content, {.name = "voyage", .interval = interval}));  // 12.5 is 12, half to even
    for (int tick = 1; tick <= 2 * ticks; ++tick) {
      EXPECT_EQ(Tick().repaint, tick % ticks == 0) << interval << " " << tick;
    }
  }
}

TEST_F(Replay, PausesGoesOnAndHalts) {
  ASSERT_TRUE(Start(RmcAt("063020") + "\r\n" + RmcAt("063021") + "\r\n"));
  Tick();
  EXPECT_EQ(PauseReplay(replay_), "Resume Log Replay");
  Tick();
  EXPECT_EQ(nmea_.fix.fix_time, "063020");
  EXPECT_EQ(PauseReplay(replay_), "Pause Log Replay");
  nmea_.log.logging_on = true;
  Tick();
  EXPECT_EQ(nmea_.fix.fix_time, "063021");
  EXPECT_EQ(nmea_.log.queue.size(), 1U);  // what is replayed can be logged
  HaltReplay(replay_, plot_, nmea_);
  EXPECT_FALSE(replay_.replay_active || replay_.running || plot_.track_plot_on);
  EXPECT_EQ(plot_.plot_file_name, "");
  EXPECT_FALSE(nmea_.log.logging_on);
  EXPECT_TRUE(nmea_.log.queue.empty());
}

TEST_F(Replay, LogThatGoesAwayEndsIt) {
  ASSERT_TRUE(Start(RmcAt("063020") + "\r\n" + RmcAt("063021") + "\r\n"));
  Tick();
  std::filesystem::remove(folder_.File("voyage.nmea"));
  const ReplayStep end = Tick();
  EXPECT_TRUE(end.ended);
  EXPECT_EQ(end.message, "The log can no longer be read: the file does not exist");
  ASSERT_TRUE(Start(RmcAt("063020") + "\r\nx"));
  Tick();
  folder_.Write("voyage.nmea", "x");  // shorter than what was played
  EXPECT_EQ(Tick().message, "End of Log file reached");
}

TEST_F(Replay, LogTimeSharesTheWaitAmongTheLinesBetween) {
  const std::string other = "x\r\n";
  const std::string log = other + RmcAt("235950") + "\r\n" + other + other + other +
                          RmcAt("235958.5") + "\r\n" + RmcAt("235958.5") + "\r\n" + other;
  EXPECT_EQ(Waits(log, ReplayPace::kInterval), std::vector<int>(8, 40));
  EXPECT_EQ(Waits(log, ReplayPace::kLogTime),
            (std::vector<int>{40, 40, 2125, 2125, 2125, 2125, 0, 40}));
  const std::vector<int> fast = Waits(log, ReplayPace::kLogTime60);
  EXPECT_EQ(fast[2] + fast[3] + fast[4] + fast[5], 141);  // 141.67, with nothing lost between
  EXPECT_EQ(Waits(log, ReplayPace::kLogTime10)[3], 213);  // 212.5 and the half before it

  const auto gll = [](const char* time) {
    return GpsSentence(std::string("GPGLL,4916.45,N,12311.12,W,") + time + ",A") + "\r\n";
  };
  const auto rmc = [](const char* time, const char* date) {
    return GpsSentence(std::string("GPRMC,") + time + ",V,,,,,,," + date + ",,") + "\r\n";
  };
  const struct {
    std::string log;
    int wait;  // before its second line
  } rows[] = {{gll("235959") + gll("000001"), 2000},
              {rmc("235959", "311226") + rmc("000001", "010127"), 2000},
              {rmc("235959", "311226") + rmc("235959", "010127"), 40},  // another voyage
              {rmc("120000", "311226") + rmc("115959", "311226"), 40},
              {rmc("120000", "311226") + rmc("130000", "311226"), 3600000},
              {rmc("120000", "") + rmc("120001", "991326"), 1000},
              {gll("12000") + gll("120001"), 40},
              {gll("120000") + gll("12x001"), 40}};
  for (const auto& row : rows) {
    const std::vector<int> waits = Waits(row.log, ReplayPace::kLogTime);
    ASSERT_EQ(waits.size(), 2U) << row.log;
    EXPECT_EQ(waits[1], row.wait) << row.log;
  }
  EXPECT_TRUE(Waits("", ReplayPace::kLogTime).empty());
}

}  // namespace
}  // namespace skerrow
