#include "tides/streams.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "core/plane_sailing.h"
#include "reference/plain_passage.h"
#include "support/sample_tides.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

using testing::MadeTides;
using testing::RandomDiamonds;
using testing::RandomPort;
using testing::RecordingMessages;
using testing::SampleFolders;
using testing::SampleTides;
using testing::TempFolder;

TEST(TidePhase, FollowsTheHourTables) {
  struct Row {
    int minute, high_water, slot, left;
  };
  const Row rows[] = {{360, 360, 0, 30}, {361, 360, 0, 29}, {390, 360, 0, 0},   {391, 360, 1, 59},
                      {450, 360, 1, 0},  {750, 360, 6, 0},  {751, 360, 6, 59},  {719, 720, 0, 31},
                      {691, 720, 0, 59}, {690, 720, -1, 0}, {689, 720, -1, 1},  {630, 720, -2, 0},
                      {629, 720, -2, 1}, {330, 720, -7, 0}, {329, 720, -6, 59}, {10, 1430, 0, 10},
                      {1430, 10, 0, 50}, {60, 1380, 2, 30}};
  for (const Row& row : rows) {
    const TidePhase phase = PhaseAt(row.minute, row.high_water);
    EXPECT_EQ(phase.slot, row.slot) << row.minute << " about " << row.high_water;
    EXPECT_EQ(phase.minutes_left, row.left) << row.minute << " about " << row.high_water;
  }
}

TEST(MinuteOfDay, RoundsTheFractionsMinutes) {
  EXPECT_EQ(MinuteOfDay(0.0F), 0);
  EXPECT_EQ(MinuteOfDay(6.5F), 390);
  EXPECT_EQ(MinuteOfDay(7.05F), 423);
  EXPECT_EQ(MinuteOfDay(23.9999F), 1440);
  EXPECT_EQ(MinuteOfDay(24.0F), 1440);
}

// A sea with one port and one diamond whose columns are easy to reckon with.
class OneDiamond : public ::testing::Test {
 protected:
  static constexpr DayAndYear kDate = {200, 2026};

  OneDiamond() {
    std::mt19937 random(5);
    ports_ = {RandomPort(random, "Port")};
    diamond_.chart_no = 2045;
    diamond_.dia_no = 7;
    diamond_.ref_port = 1;
    diamond_.np_range = 1000.0F;  // the tide is below neaps: neap rates hold
    diamond_.sp_range = 1001.0F;
    diamond_.latitude = 50.0F;
    diamond_.longitude = -1.0F;
    for (std::size_t c = 1; c < kDiamondColumns; ++c) {
      diamond_.direction[c] = static_cast<float>(10 * c);
      diamond_.neap_rate[c] = static_cast<float>(c);
      diamond_.spring_rate[c] = 100.0F;
    }
  }

  void Make() { state_ = MadeTides({diamond_}, ports_, kDate); }

  StreamReading ReadAt(int minute, Position place = {50.0F, -1.0F}) {
    StreamReader reader(state_);
    StreamReading reading;
    EXPECT_EQ(
        reader.CalculateTidalStreams(place, static_cast<float>(minute / 60.0), kDate, reading),
        StreamFault::kNone);
    return reading;
  }

  // A minute of the day with a given slot and minutes left; the tests need a few of them only.
  int MinuteWith(int slot, int left) {
    const PortTides& port = state_.loaded->ports[0];
    for (int minute = 0; minute < 1440; ++minute) {
      const TidePhase phase = port.phase[static_cast<std::size_t>(minute)];
      if (phase.slot == slot && phase.minutes_left == left) return minute;
    }
    ADD_FAILURE() << "no minute with slot " << slot << " and " << left << " left";
    return 0;
  }

  std::vector<Port> ports_;
  Diamond diamond_;
  TideState state_;
};

TEST_F(OneDiamond, RateRunsStraightAndDirectionJumpsHalfWay) {
  Make();
  const StreamReading at_high_water = ReadAt(MinuteWith(0, 30));
  EXPECT_FLOAT_EQ(at_high_water.rate, 7.5F);
  EXPECT_EQ(at_high_water.direction, 70.0F);
  EXPECT_EQ(StreamLabel(state_, at_high_water), "2045, 7");
  const StreamReading a_minute_later = ReadAt(MinuteWith(0, 29));
  EXPECT_EQ(a_minute_later.direction, 80.0F);
  // Half an hour before high water the rate is that of high water.
  EXPECT_FLOAT_EQ(ReadAt(MinuteWith(-1, 0)).rate, 7.0F);
  // Behind six hours after, the table goes round to six hours before.
  const StreamReading round = ReadAt(MinuteWith(6, 10));
  EXPECT_EQ(round.direction, 10.0F);
  EXPECT_FLOAT_EQ(round.rate, static_cast<float>(13.0 - 50 * (12.0 / 60)));
}

// The table rounds the columns to hundredths before it works between them, and the rate to tenths.
TEST_F(OneDiamond, TheTableOfTheChartRoundsTwice) {
  const struct {
    float here, next;  // rates of the columns at and after high water, knots
    int left;
    float rate;      // of the table
    double reading;  // as the leg solver has it
  } rows[] = {{0.1449F, 0.1449F, 30, 0.1F, 0.1449},
              {0.145F, 0.145F, 30, 0.1F, 0.145},     // 14.5 hundredths as a single: below the half
              {0.055F, 0.045F, 30, 0.1F, 0.05},      // 6 and 4 hundredths: 0.05, the half goes up
              {0.054F, 0.044F, 30, 0.0F, 0.049},     // 5 and 4 hundredths: 0.045
              {0.0551F, 0.0441F, 30, 0.1F, 0.0496},  // 6 and 4 hundredths
              {2.34F, 1.14F, 45, 2.0F, 2.04},
              {2.0F, 3.0F, 6, 2.9F, 2.9},
              {0.2551F, 0.2449F, 30, 0.3F, 0.25}};  // 26 and 24 hundredths: 0.25
  for (const auto& row : rows) {
    diamond_.neap_rate[7] = row.here;
    diamond_.neap_rate[8] = row.next;
    Make();
    const int minute = MinuteWith(0, row.left);
    const auto hours = static_cast<float>(minute / 60.0);
    RefreshTideState(state_, true, hours, {});
    RecordingMessages messages;
    ASSERT_EQ(CalculateTidalStreamTable(state_, messages), 1);
    const TidalStream& stream = state_.tidal_streams[0];
    EXPECT_TRUE(stream.known);
    EXPECT_EQ(stream.rate, row.rate) << row.here;
    EXPECT_NEAR(ReadAt(minute).rate, row.reading, 1e-6) << row.here;
    EXPECT_EQ(stream.ref, "2045-7");
    EXPECT_EQ(stream.direction, row.left >= 30 ? 70.0F : 80.0F);
    EXPECT_FLOAT_EQ(stream.direction_rad, row.left >= 30 ? 1.2217305F : 1.3962634F);
  }
}

// What the chart shows is worked out anew when something has changed, and only then.
TEST_F(OneDiamond, TheTableFollowsItsState) {
  Make();
  RecordingMessages messages;
  const auto shown_at = [&](int minute) {
    RefreshTideState(state_, true, static_cast<float>(minute / 60.0), {});
    UpdateTidalStreams(state_, messages);
    return state_.tidal_streams.at(0).rate;
  };
  EXPECT_EQ(shown_at(MinuteWith(0, 30)), 7.5F);
  state_.tidal_streams[0].rate = 99.0F;
  UpdateTidalStreams(state_, messages);
  EXPECT_EQ(state_.tidal_streams[0].rate, 99.0F);
  EXPECT_EQ(shown_at(MinuteWith(3, 30)), 10.5F);
  const TempFolder folder;
  std::filesystem::create_directory(folder.File("TS"));
  diamond_.latitude = 51.0F;
  folder.Write("TS/Area.l25", EncodeRecord(diamond_, kDiamondFields));
  LoadDiamonds(state_, {folder.path(), "", ""}, "Area", messages);
  UpdateTidalStreams(state_, messages);
  EXPECT_EQ(state_.tidal_streams.at(0).latitude, 51.0);
  EXPECT_EQ(state_.tidal_streams.at(0).rate, 10.5F);
}

TEST_F(OneDiamond, KeepsItsDirectionOnTheWayToSlack) {
  diamond_.direction[8] = diamond_.neap_rate[8] = diamond_.spring_rate[8] = 0.0F;
  Make();
  const StreamReading easing = ReadAt(MinuteWith(0, 15));
  EXPECT_EQ(easing.direction, 70.0F);
  EXPECT_FLOAT_EQ(easing.rate, 7.0F * 0.25F);
  const StreamReading rising = ReadAt(MinuteWith(1, 45));
  EXPECT_EQ(rising.direction, 90.0F);
  // The reading of one diamond has no such rule.
  StreamReader reader(state_);
  StreamReading plain;
  reader.CalcDaysStream(diamond_, static_cast<float>(MinuteWith(0, 15) / 60.0), kDate, plain);
  EXPECT_EQ(plain.direction, 0.0F);
}

TEST_F(OneDiamond, ClampsTheRangeToNeapsAndSprings) {
  Make();
  const float neap = ReadAt(MinuteWith(0, 30)).rate;
  diamond_.np_range = 0.01F;
  diamond_.sp_range = 0.02F;
  Make();
  const float spring = ReadAt(MinuteWith(0, 30)).rate;
  EXPECT_FLOAT_EQ(neap, 7.5F);
  EXPECT_FLOAT_EQ(spring, 100.0F);
}

TEST_F(OneDiamond, EqualRangesLeaveTheReadingAsItWas) {
  diamond_.sp_range = diamond_.np_range;
  Make();
  StreamReader reader(state_);
  StreamReading reading;
  reading.rate = 1.25F;
  EXPECT_EQ(reader.CalculateTidalStreams({50.0F, -1.0F}, 6.0F, kDate, reading),
            StreamFault::kDivideByZero);
  EXPECT_EQ(reading.rate, 1.25F);
  RecordingMessages messages;
  RefreshTideState(state_, true, 6.0F, {});
  messages.Expect(
      "CalculateTidalStreams\n"
      "Divide by Zero (Diamond(iCount)Sprange - Diamond(iCount).Nprange)");
  CalculateTidalStreamTable(state_, messages);
  EXPECT_TRUE(state_.tidal_streams.empty());
}

TEST_F(OneDiamond, APortThatNeverTurnsGivesNoStreamAndSaysSo) {
  ports_[0] = Port{};
  ports_[0].name = "Flat";
  Make();
  const StreamReading reading = ReadAt(600);
  EXPECT_EQ(StreamLabel(state_, reading), "NONE");
  ASSERT_EQ(reading.no_tide, 0);
  EXPECT_EQ(ReadAt(600, {52.0F, -1.0F}).no_tide, -1);
  EXPECT_EQ(NoTideText(state_, {0}), "no high water at Flat (diamond 2045, 7)");
  RecordingMessages messages;
  RefreshTideState(state_, true, 10.0F, {});
  CalculateTidalStreamTable(state_, messages);
  EXPECT_FALSE(state_.tidal_streams.at(0).known);
  state_.ref_port_names = {""};
  EXPECT_EQ(NoTideText(state_, {0, 0}), "no reference port number 1 (diamond 2045, 7; 2045, 7)");
}

TEST(DiamondIndex, FindsWhatAWalkFinds) {
  const unsigned seed = 20260607;
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  for (const int count : {1, 2, 7, 60, 300, 1500}) {
    std::vector<Diamond> diamonds = RandomDiamonds(random, count, 3);
    // Twins, and one beyond any sea.
    diamonds.push_back(diamonds.front());
    diamonds.push_back(diamonds.front());
    diamonds.push_back(diamonds.back());
    diamonds.back().longitude = 4000.0F;
    const DiamondIndex index(diamonds);
    std::uniform_real_distribution<float> latitude(47.0F, 52.5F);
    std::uniform_real_distribution<float> longitude(-7.0F, 3.0F);
    for (int i = 0; i < 3000; ++i) {
      Position place{latitude(random), longitude(random)};
      if (i % 5 == 0) {  // on the line where two mirrored diamonds tie
        const Diamond& d = diamonds[static_cast<std::size_t>(i) % diamonds.size()];
        place = {d.latitude, d.longitude + 0.125F};
      }
      float best = 9999.0F;
      int found = -1;
      for (std::size_t k = 0; k < diamonds.size(); ++k) {
        const float range = RangeBearing(place.latitude, place.longitude, diamonds[k].latitude,
                                         diamonds[k].longitude)
                                .range;
        if (range < best) {
          best = range;
          found = static_cast<int>(k);
        }
      }
      ASSERT_EQ(index.Nearest(place), best <= 30.0F ? found : -1)
          << count << ": " << place.latitude << " " << place.longitude;
    }
  }
}

TEST(Streams, AreThePlainOnesBitForBit) {
  const unsigned seed = 31415926;
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  std::vector<Port> ports;
  for (int i = 0; i < 10; ++i) ports.push_back(RandomPort(random, "P" + std::to_string(i)));
  const std::vector<Diamond> diamonds = RandomDiamonds(random, 300, 10);
  const TideState state = MadeTides(diamonds, ports, {100, 2026});
  reference::PlainTides plain(diamonds, state.ref_ports, ports, false);
  StreamReader reader(state);
  std::uniform_real_distribution<float> latitude(48.2F, 51.3F);
  std::uniform_real_distribution<float> longitude(-5.5F, 2.0F);
  std::uniform_real_distribution<float> hours(0.0F, 24.0F);
  std::uniform_int_distribution<int> day(1, 366);
  DayAndYear date{1, 2026};
  int none = 0;
  for (int i = 0; i < 6000; ++i) {
    // The plain form is slow at building days; a few readings on each.
    if (i % 100 == 0) {
      date = {static_cast<std::int16_t>(day(random)), static_cast<std::int16_t>(1990 + i % 60)};
    }
    const Position place{latitude(random), longitude(random)};
    const float time = std::min(hours(random), 23.99999F);
    float rate = 0;
    float direction = 0;
    int slot = 0;
    std::string label;
    plain.CalculateTidalStreams(place.latitude, place.longitude, time, date.day, date.year, rate,
                                direction, slot, label);
    StreamReading reading;
    reader.CalculateTidalStreams(place, time, date, reading);
    ASSERT_EQ(reading.rate, rate) << i;
    ASSERT_EQ(reading.direction, direction) << i;
    ASSERT_EQ(reading.dep_slot, slot) << i;
    ASSERT_EQ(StreamLabel(state, reading), label) << i;
    none += label == "NONE" ? 1 : 0;
  }
  EXPECT_GT(none, 10);
  EXPECT_LT(none, 3000);
}

TEST(Streams, RefreshShowsThePortsOfTheDay) {
  TideState state = SampleTides({339, 2026});
  RefreshTideState(state, true, 6.5F, {});
  ASSERT_EQ(state.ref_port_states.size(), state.ref_ports.size());
  const RefPortState& dover = state.ref_port_states.front();
  EXPECT_EQ(dover.port_name + dover.hw_time + dover.tides.at(1).first, "Dover08:2008:20");
  EXPECT_EQ(dover.mins_left, 20);  // 110 minutes before: 110 - 90
  // The clock stands in for the time when the time is not overridden.
  ClockReading now;
  now.hour = 6;
  now.minute = 30;
  RefreshTideState(state, false, 20.0F, now);
  EXPECT_EQ(state.ref_port_states.front().hw_time, "08:20");
}

TEST(Diamonds, KeepsThoseOnTheChartAndCountsEveryPort) {
  std::mt19937 random(9);
  std::vector<Diamond> records = RandomDiamonds(random, 5, 2);
  records[0] = Diamond{};
  records[1].latitude = 35.0F;
  records[1].ref_port = 9;
  records[2].latitude = 75.0F;
  const std::vector<Diamond> kept = KeepCharted(records);
  EXPECT_EQ(kept.size(), 2U);
  const std::vector<std::int16_t> ports = FindRefPorts(records);
  EXPECT_EQ(ports, (std::vector<std::int16_t>{0, 9, 1, 2}));
}

TEST(Diamonds, ACleanedCopyLoadsTheSameDiamonds) {
  TempFolder folder;
  std::filesystem::create_directories(folder.path() + "/TS");
  const Folders folders{folder.path(), "", ""};
  std::mt19937 random(3);
  TideState state;
  state.diamonds = RandomDiamonds(random, 6, 2);
  state.diamonds[4].latitude = 71.0F;
  RecordingMessages messages;
  messages.Expect("5 Data records written to file " + folder.File("TS/Area001.l25"));
  EXPECT_TRUE(SaveTidalDiamonds(state, folders, "Area", messages));
  const auto records = ReadDiamonds(folder.File("TS/Area001.l25"));
  ASSERT_TRUE(records);
  ASSERT_EQ(records->records.size(), 6U);
  EXPECT_EQ(records->Sound()[0].latitude, 0.0F);
  EXPECT_EQ(KeepCharted(records->Sound()).size(), 5U);
  EXPECT_EQ(records->Sound()[5].direction, state.diamonds[5].direction);
  std::filesystem::remove_all(folder.path() + "/TS");
  messages.Expect(folder.File("TS/Area001.l25") +
                  ": No such file or directory\nNothing in it has changed.");
  EXPECT_FALSE(SaveTidalDiamonds(state, folders, "Area", messages));
}

TEST(Diamonds, BadFilesAreToldAndLeaveNoHalfTable) {
  TempFolder folder;
  std::filesystem::create_directories(folder.path() + "/TS");
  const Folders folders{folder.path(), "", ""};
  TideState state = SampleTides({339, 2026});
  RecordingMessages messages;

  messages.Expect("LoadDiamondsError " + folder.File("TS/Missing.l25") +
                  ": the file does not exist");
  LoadDiamonds(state, folders, "Missing", messages);
  EXPECT_TRUE(state.diamonds.empty());
  const auto ports = state.ref_ports;
  FindRefPorts(state, folders, "Missing");
  EXPECT_EQ(state.ref_ports, ports);

  messages.Expect("LoadSlDiamondsError " + folder.File("TS/no.l25") + ": the file does not exist");
  LoadSlDiamonds(state, folders, "no.l25", messages);

  // Ports of which there is no file give no stream, and that is told once.
  state = {};
  state.ref_ports = {1};
  messages.Expect("The reference ports cannot be read, there are no tidal streams.\n" +
                  folder.File("RefPorts.hc") + ": the file does not exist");
  for (const int day : {339, 340}) {
    BuildRefPortHeights(state, folders, {static_cast<std::int16_t>(day), 2026}, false, messages);
  }
}

// Whatever is broken in a file of ports or diamonds is left out and told with the file and the
// number; what stands in front of it and behind it keeps its place.
TEST(TideFiles, BrokenRecordsAreLeftOutAndTold) {
  TempFolder folder;
  std::filesystem::create_directories(folder.path() + "/TS");
  const Folders folders{folder.path(), "", ""};
  std::mt19937 random(4);
  const float infinity = std::numeric_limits<float>::infinity();
  std::vector<Port> ports;
  for (const char* name : {"One", "Two", "Three"}) ports.push_back(RandomPort(random, name));
  std::vector<Diamond> diamonds = RandomDiamonds(random, 3, 3);
  const std::string cut = "the last record is left out, it is cut short after ";

  std::vector<Port> damaged_ports = ports;
  damaged_ports[1].mhm2[5] = std::nanf("");
  folder.Write("TS/Area.hc",
               EncodeRecords<Port>(damaged_ports, kPortFields).substr(0, 3 * 197 - 40));
  RecordingMessages messages;
  messages.Expect(folder.File("TS/Area.hc") + ": 1 damaged record is left out, and " + cut +
                  "157 of 197 bytes");
  const std::vector<PortMarker> markers = LoadPortMarkers(folders, "Area.hc", messages);
  ASSERT_EQ(markers.size(), 1U);
  EXPECT_EQ(markers[0].name, "One");
  for (const auto& [position, good] : {std::pair{1, true}, {2, false}, {3, false}, {4, false}}) {
    EXPECT_EQ(ReadAreaPort(folders, "Area.hc", position).ok(), good) << position;
  }

  diamonds[0].neap_rate[13] = infinity;
  folder.Write("TS/Area.l25",
               EncodeRecords<Diamond>(diamonds, kDiamondFields).substr(0, 3 * 196 - 1));
  const std::string told = folder.File("TS/Area.l25") + ": 1 damaged record is left out, and " +
                           cut + "195 of 196 bytes";
  TideState state;
  messages.Expect("LoadDiamondsError " + told);
  LoadDiamonds(state, folders, "Area", messages);
  ASSERT_EQ(state.diamonds.size(), 1U);
  EXPECT_EQ(state.diamonds[0].dia_no, 2.0F);
  messages.Expect("LoadSlDiamondsError " + told);
  LoadSlDiamonds(state, folders, "Area.l25", messages);
  EXPECT_EQ(state.sl_diamonds.size(), 1U);
  FindRefPorts(state, folders, "Area");
  EXPECT_EQ(state.ref_ports, std::vector<std::int16_t>{2});

  // The third port keeps its number behind the damaged second one, which has no tide.
  state.ref_ports = {2, 3};
  state.ref_port_charted = {true, true};
  // With area records its name field runs on through the depth, which is four NULs: they end it.
  folder.Write("RefPorts.hc", EncodeRecords<Port>(damaged_ports, kPortFields));
  messages.Expect(folder.File("RefPorts.hc") + ": 1 damaged record is left out\n" +
                  folder.File("RefPorts.hc") +
                  ": the tidal diamonds refer to ports that this file does not hold (2), they give "
                  "no tidal stream.");
  BuildRefPortHeights(state, folders, {10, 2026}, false, messages);
  EXPECT_EQ(state.ref_port_names, (std::vector<std::string>{"", "Three"}));
  EXPECT_FALSE(state.loaded->ports[0].known);
  EXPECT_TRUE(state.loaded->ports[1].known);
}

TEST(Diamonds, APortThatTheFileLacksGivesNoStreamAndOneMessage) {
  TempFolder folder;
  std::filesystem::create_directories(folder.path() + "/TS");
  std::mt19937 random(2);
  std::vector<Diamond> diamonds = RandomDiamonds(random, 2, 2);
  diamonds[1].ref_port = 50.0F;
  diamonds[1].latitude = diamonds[0].latitude + 0.3F;
  // The empty first record of a cleaned copy and one off the chart count, and are no trouble.
  diamonds.insert(diamonds.begin(), Diamond{});
  diamonds.push_back(diamonds.back());
  diamonds.back().ref_port = 60.0F;
  diamonds.back().latitude = 75.0F;
  folder.Write("TS/Area.l25", EncodeRecords<Diamond>(diamonds, kDiamondFields));
  const std::vector<Port> ports = {RandomPort(random, "One")};
  folder.Write("RefPorts.hc", EncodeRecords<Port>(ports, kRefPortFields));
  const Folders folders{folder.path(), "", ""};
  TideState state;
  RecordingMessages messages;
  FindRefPorts(state, folders, "Area");
  EXPECT_EQ(state.ref_ports, (std::vector<std::int16_t>{0, 1, 50, 60}));
  messages.Expect(folder.File("RefPorts.hc") +
                  ": the tidal diamonds refer to ports that this file does not hold (50), they "
                  "give no tidal stream.");
  BuildRefPortHeights(state, folders, {10, 2026}, false, messages);
  LoadDiamonds(state, folders, "Area", messages);
  StreamReader reader(state);
  StreamReading reading;
  reader.CalculateTidalStreams({diamonds[1].latitude, diamonds[1].longitude}, 5.0F, {10, 2026},
                               reading);
  EXPECT_EQ(reading.diamond, 0);
  reader.CalculateTidalStreams({diamonds[2].latitude, diamonds[2].longitude}, 5.0F, {10, 2026},
                               reading);
  EXPECT_EQ(StreamLabel(state, reading), "NONE");
}

}  // namespace
}  // namespace skerrow
