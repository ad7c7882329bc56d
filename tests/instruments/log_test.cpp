#include "instruments/log.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "core/text.h"
#include "instruments/nmea_sentences.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

using testing::AsPlainUser;
using testing::FileBytes;
using testing::GpsSentence;
using testing::OnFullDisk;
using testing::RmcAt;
using testing::TempFolder;

class Notices final : public Messages {
 public:
  void Show(std::string_view text, MessageIcon, std::string_view) override {
    ADD_FAILURE() << text;
  }
  bool Ask(std::string_view, std::string_view) override { return false; }
  void Notice(std::string_view text) override { texts.emplace_back(text); }
  std::vector<std::string> texts;
};

class Log : public ::testing::Test {
 protected:
  Log() {
    log_.logging_on = true;
    log_.log_file_name = "voyage";
    fix_.boat_latitude = 50.504166F;
    fix_.boat_longitude = -1.3375F;
    fix_.fix_date = "051226";
    fix_.fix_time = "063020.00";
  }
  bool Write() { return WriteLogRecord(log_, folder_.path(), notices_).ok(); }
  std::string File() const { return FileBytes(Path()); }
  std::string Path() const { return folder_.File("voyage.nmea"); }
  std::vector<CommentRecord> Comments(const std::string& content) {
    std::vector<CommentRecord> comments(1);
    EXPECT_TRUE(LoadCommentsFromLog(folder_.Write("c.nmea", content), comments, progress_).ok());
    return comments;
  }
  GpsTrack Track(const std::string& content) {
    GpsTrack track;
    EXPECT_TRUE(LoadTrackFromLog(folder_.Write("t.nmea", content), read_, track, progress_).ok());
    return track;
  }

  TempFolder folder_;
  LogState log_;
  GpsFix fix_;   // of the boat
  GpsFix read_;  // out of logs
  Notices notices_;
  NoProgress progress_;
};

TEST_F(Log, NamesAreCutAtTheFirstPoint) {
  const ClockReading day{2026, 3, 7, 6, 30, 20};
  EXPECT_EQ(LogFileNameOf("channel.old.nmea", day), "channel");
  EXPECT_EQ(LogFileNameOf("  two words ", day), "two words");
  for (const char* empty : {"", "  ", ".nmea"}) EXPECT_EQ(LogFileNameOf(empty, day), "Mar072026");
  EXPECT_EQ(LogFileNameOf("a/b\\c", day), "a-b-c");
  EXPECT_EQ(LogPath("/tracks", "Mar072026 "), "/tracks/Mar072026.nmea");
}

TEST_F(Log, RecordsAreAddedLineByLine) {
  folder_.Write("voyage.nmea", "$OLD*00\r\n");
  QueueSentence(log_, "$A*11 and more");
  QueueSentence(log_, "!B*22");
  QueueSentence(log_, "$C\n*33");  // would break its line
  QueueSentence(log_, "$D*4\r");
  ASSERT_TRUE(Write());
  ASSERT_TRUE(Write());  // nothing is queued
  EXPECT_EQ(File(), "$OLD*00\r\n$A*11\r\n!B*22\r\n");
  EXPECT_TRUE(log_.queue.empty());

  for (const bool on : {false, true}) {
    log_.logging_on = on;
    log_.log_file_name = on ? "  " : "voyage";
    QueueSentence(log_, "$A*11");
    ASSERT_TRUE(Write());
  }
  EXPECT_EQ(log_.queue.size(), 1U);
  EXPECT_EQ(folder_.EntryCount(), 1U);
}

TEST_F(Log, WhatCannotBeWrittenWaits) {
  QueueSentence(log_, "$A*11");
  MakeComment(log_, fix_, {"one"});
  folder_.Write("voyage.nmea", "");
  std::filesystem::permissions(Path(), std::filesystem::perms::owner_read);
  AsPlainUser([&] { EXPECT_FALSE(Write()); });
  std::filesystem::permissions(Path(), std::filesystem::perms::owner_all);
  ASSERT_EQ(notices_.texts.size(), 1U);
  EXPECT_EQ(notices_.texts[0].substr(0, 38), "The log voyage.nmea cannot be written:");
  EXPECT_EQ(log_.queue.size(), 1U);
  EXPECT_EQ(log_.pending_comment.size(), 6U);
  ASSERT_TRUE(Write());
  EXPECT_EQ(Comments(File()), log_.comments);
  EXPECT_TRUE(File().ends_with("\r\n$A*11\r\n"));
}

// Wherever the disk is full, every line is in the file once whole, and in its order.
TEST_F(Log, FullDiskLosesAndDoublesNothing) {
  const CommentRecord comment{
      50.504166F, -1.3375F, "063020.0", "051226", {"first", "second", "third", "4", "5"}};
  constexpr rlim_t kWhole = 295;  // bytes of all lines
  for (rlim_t room = 1; room < kWhole; ++room) {
    log_ = LogState();
    log_.logging_on = true;
    log_.log_file_name = "voyage";
    std::filesystem::remove(Path());
    MakeComment(log_, fix_, comment.lines);
    std::vector<std::string> wanted = log_.pending_comment;
    for (const char* time : {"063020", "063050"}) wanted.push_back(RmcAt(time));
    QueueSentence(log_, wanted[6]);
    QueueSentence(log_, wanted[7]);
    OnFullDisk(room, [&] { EXPECT_FALSE(Write()); });
    EXPECT_EQ(std::filesystem::file_size(Path()), room);
    OnFullDisk(room + 3 + room % 90,
               [&] { (void)Write(); });  // and once more, behind a broken line
    ASSERT_TRUE(Write());
    std::vector<std::string> found;
    auto lines = LogLines::Open(Path());
    ASSERT_TRUE(lines.ok());
    for (auto line = lines.value().Next(); line.ok() && *line; line = lines.value().Next()) {
      if (ChecksumGood(**line)) found.emplace_back(**line);
    }
    EXPECT_EQ(found, wanted) << room;
    EXPECT_EQ(Comments(File()).back(), comment) << room;
    EXPECT_EQ(Track(File()).size(), 2U) << room;
  }
}

TEST_F(Log, CutLastLineIsClosedBeforeMoreIsAdded) {
  folder_.Write("voyage.nmea", RmcAt("063020") + "\r\n" + RmcAt("063050").substr(0, 30));
  EXPECT_EQ(Track(File()).size(), 1U);
  QueueSentence(log_, RmcAt("063120"));
  ASSERT_TRUE(Write());
  EXPECT_EQ(Track(File()).size(), 2U);
  EXPECT_TRUE(Comments("$PSKLOG,6,1,50").empty());
}

TEST_F(Log, QueueIsBounded) {
  const std::string big = std::string(kMostQueued / 4 - 3, 'x') + "*00";
  for (int i = 0; i < 7; ++i) QueueSentence(log_, big);
  EXPECT_EQ(log_.queue.size(), 4U);
  EXPECT_EQ(log_.lost, 3U);
  ASSERT_TRUE(Write());
  QueueSentence(log_, big);
  EXPECT_EQ(log_.queue.size(), 1U);
}

TEST_F(Log, CommentsAreSentencesOfOurOwn) {
  const auto block = CommentBlock(
      fix_, {"  reefed, 2 * down ", "", "\xC3\xA9t\xC3\xA9\n", std::string(50, 'x'), "5"});
  EXPECT_EQ(block[0], GpsSentence("PSKLOG,6,1,5030.250,N,00120.250,W,051226,063020.00"));
  EXPECT_EQ(block[1], GpsSentence("PSKLOG,6,2,reefed, 2 * down"));
  EXPECT_EQ(block[2], GpsSentence("PSKLOG,6,3,"));
  EXPECT_EQ(block[3], GpsSentence("PSKLOG,6,4,\xE9t\xE9"));
  EXPECT_EQ(block[4], GpsSentence("PSKLOG,6,5," + std::string(40, 'x')));
  fix_.boat_latitude = -5.25F;
  fix_.boat_longitude = 12.5F;
  EXPECT_EQ(CommentBlock(fix_, {})[0].substr(0, 35), "$PSKLOG,6,1,0515.000,S,01230.000,E,");

  // It stands in the table at once, waits while logging is off, and the next waits behind it.
  log_.logging_on = false;
  MakeComment(log_, fix_, {"a, b * c", "\xC3\xA9"});
  MakeComment(log_, fix_, {"again"});
  ASSERT_TRUE(Write());
  EXPECT_EQ(folder_.EntryCount(), 0U);
  log_.logging_on = true;
  ASSERT_TRUE(Write());
  EXPECT_TRUE(log_.pending_comment.empty());
  ASSERT_EQ(log_.comments.size(), 2U);
  EXPECT_EQ(log_.comments[0].time, "063020.0");
  EXPECT_EQ(log_.comments[0].lines[1], "\xC3\xA9");
  EXPECT_EQ(Comments(File()), log_.comments);
}

TEST_F(Log, DamagedCommentsAreReadAsFarAsTheyGo) {
  const std::string place = "$PSKLOG,6,1,5030.000,N,00120.000,W,051226,063020*00\r\n";
  const auto comments =
      Comments("$PSKLOG,6,2,nobody's*00\n" + place +
               "$PSKLOG,6,2,one\x01*00\r\n$PSKLOG,6,3,no end\r\n$PSKLOG,6,7,x*00\r\n"
               "$PSKLOG,6,0,x*00\r\n$PSKLOG\r\n$PSKLOG,6,6,five*\r\n$PSKLOG,6,4*\r\n$PSKLOG,6,1\r" +
               ReplaceAll(place, "051226", "05122699"));
  ASSERT_EQ(comments.size(), 3U);
  EXPECT_EQ(comments[0].lines, (std::array<std::string, 5>{"one", "", "", "", "five"}));
  EXPECT_EQ(comments[0].latitude, 50.5F);
  EXPECT_EQ(comments[0].longitude, static_cast<float>(-1.0 - 20.0 / 60.0));
  EXPECT_EQ(comments[0].date, "051226");
  EXPECT_EQ(comments[0].time, "063020");
  EXPECT_EQ(comments[1], CommentRecord());
  EXPECT_EQ(comments[2].latitude, 50.5F);
  EXPECT_EQ(comments[2].date, "051226");
}

TEST_F(Log, TrackIsReadFromGoodFixes) {
  const std::string bad = RmcAt("063100").replace(20, 1, "9");
  const GpsTrack track =
      Track("!AIVDM,1,1,,B,RMC*00\r\n" + RmcAt("063020.6") + "\r" + bad + "\n" +
            GpsSentence("GPGLL,4916.45,N,12311.12,W,225444,A") + "\r\n\r\n" + RmcAt("06302") +
            "\n" + GpsSentence("GPRMC,070000,V,5030.250,N,00120.250,E,1.5,090,051226,,") + "\n" +
            RmcAt("070102", "31.0000"));
  ASSERT_EQ(track.size(), 2U);
  EXPECT_EQ(track[0], (GpsTrackPoint{.latitude = static_cast<float>(50.0 + 30.25 / 60.0),
                                     .longitude = static_cast<float>(-1.0 - 20.25 / 60.0),
                                     .hour = 6,
                                     .minute = 30,
                                     .second = 21,
                                     .speed = 5.2F,
                                     .course = 271.5F}));
  EXPECT_EQ(track[1].minute, 1);
  EXPECT_EQ(read_.fix_time, "070102");
  EXPECT_TRUE(read_.position_good);
  Track(RmcAt("070102") + "\n" + GpsSentence("PSKLOG,6,2,no RMC"));
  EXPECT_TRUE(read_.position_good);
  Track(RmcAt("070102") + "\n" + GpsSentence("GPRMC,070103,V,,,,,,,051226,,"));
  EXPECT_FALSE(read_.position_good);
  EXPECT_EQ(read_.course_over_ground, 271.5F);
}

TEST_F(Log, OddFilesGiveWhatTheyHave) {
  GpsTrack track(3);
  EXPECT_TRUE(LoadTrackFromLog(folder_.File("missing"), read_, track, progress_).ok());
  EXPECT_FALSE(LoadTrackFromLog(folder_.path(), read_, track, progress_).ok());
  EXPECT_EQ(track.size(), 3U);
  for (const char* content : {"", "$", "\r", "\n"}) EXPECT_TRUE(Track(content).empty());
  EXPECT_TRUE(Track(std::string(300000, '$')).empty());
  EXPECT_EQ(Track(std::string(200000, 'x') + "\r\n" + RmcAt("063020")).size(), 1U);
  EXPECT_EQ(Track(RmcAt("063020") + RmcAt("063021")).size(), 1U);  // without line ends

  // The user stops a long reading: all stays as it was.
  class Stopped final : public Progress {
   public:
    bool Step(double percent) override { return percent < 50.0; }
  } stopped;
  std::string content;
  for (int i = 0; i < 20000; ++i) content += RmcAt("063020") + "\r\n";
  const GpsFix before = read_;
  const std::string path = folder_.Write("long.nmea", content);
  EXPECT_TRUE(LoadTrackFromLog(path, read_, track, stopped).ok());
  EXPECT_EQ(track.size(), 3U);
  EXPECT_EQ(read_, before);
  EXPECT_TRUE(LoadTrackFromLog(path, read_, track, progress_).ok());
  EXPECT_EQ(track.size(), 20003U);
}

TEST_F(Log, LinesAreTheSameWhateverIsReadAtATime) {
  const std::string path = folder_.Write("l", "\r\none\r\n\ntwo\rthree\n\r\nfour");
  const std::vector<std::string> wanted = {"", "one", "", "two", "three", "", "four"};
  for (std::size_t block = 1; block < 30; ++block) {
    std::vector<std::string> found;
    std::int64_t position = 0;
    for (;;) {  // opened anew for each line, as the replay does
      auto lines = LogLines::Open(path, position, block);
      ASSERT_TRUE(lines.ok());
      const auto line = lines.value().Next();
      ASSERT_TRUE(line.ok());
      if (!*line) break;
      EXPECT_EQ(lines.value().closed(), **line != "four");
      found.emplace_back(**line);
      position = lines.value().position();
    }
    EXPECT_EQ(found, wanted) << block;
  }
}

}  // namespace
}  // namespace skerrow
