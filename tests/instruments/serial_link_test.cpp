#include "instruments/serial_link.h"

#include <algorithm>
#include <deque>
#include <gtest/gtest.h>
#include <map>

#include "instruments/nmea_sentences.h"
#include "support/fake_ports.h"

namespace skerrow {
namespace {

using testing::KeptAis;
using testing::RmcAt;
using testing::StillClock;

constexpr const char* kAis = "!AIVDM,1,1,,B,177KQJ5000G?tO`K>RA1wUbN0TKH,0*5C";

using Ports = testing::FakePorts;

std::vector<std::string> OpeningOf(const std::string& port, const std::string& baud) {
  std::vector<std::string> calls = {
      "reset 1024 1024", "done", "reset 4096 4096", "baud " + baud, "DTR on",
      "RTS on",          "8N1",  "clear received",  "clear sending"};
  for (std::string& call : calls) call += " @" + port;
  return calls;
}

class Link : public ::testing::Test {
 protected:
  Status Gps(std::int64_t now = 0) { return ConnectGps(link_, config_, ports_, now); }
  Status Ais(std::int64_t now = 0) { return ConnectAis(link_, config_, ports_, now); }
  void Step(std::int64_t now) { ReceiveStep(link_, nmea_, config_, ports_, sink_, clock_, now); }
  // Both phases.
  void Steps(std::int64_t now) {
    Step(now);
    Step(now);
  }
  std::string Text(std::int64_t now) { return LinkStatusText(link_, config_, now); }

  LinkState link_;
  NmeaState nmea_;
  AppConfig config_ = DefaultConfig("");
  Ports ports_;
  KeptAis sink_;
  StillClock clock_;
};

TEST_F(Link, ListsAreThoseOfTheDialogs) {
  for (const auto& [type, code] : {std::pair{"1", 4},
                                   {"4", 4},
                                   {" 5 ", 5},
                                   {"6", 6},
                                   {"7", 7},
                                   {"", 4},
                                   {"0", 4},
                                   {"8", 4},
                                   {"-1", 4}}) {
    EXPECT_EQ(BaudCodeOfGpsType(type), code) << type;
  }
  EXPECT_EQ(BaudCodeOfRate("110"), 0);
  EXPECT_EQ(BaudCodeOfRate("4800"), 4);
  EXPECT_EQ(BaudCodeOfRate("115200"), 9);
  EXPECT_EQ(BaudCodeOfRate("4801"), -1);
  EXPECT_EQ(BaudCodeOfRate(""), -1);
  EXPECT_EQ(kLogIntervals[LogIntervalIndex(900)].text, "15 Mins");
  EXPECT_EQ(kLogIntervals[LogIntervalIndex(7)].text, "30 Secs");
}

TEST_F(Link, OpensAPortInTheToldOrderOrSaysWhyNot) {
  ASSERT_TRUE(OpenPort(ports_, 1, 7).ok());
  std::vector<std::string> calls = OpeningOf("1", "7");
  calls.erase(calls.begin(), calls.begin() + 2);
  EXPECT_EQ(ports_.Calls(), calls);
  const struct {
    int code;
    const char* text;
  } rows[] = {{-106, "Cannot start thread"},  {-103, "Permission denied"},
              {-12, "Unsupported baud rate"}, {-10, "Hardware not present"},
              {-2, "COM port already open"},  {-77, "Error code -77"}};
  for (const auto& row : rows) {
    ports_.there[0] = row.code;
    const Status opened = OpenPort(ports_, 0, 4);
    ASSERT_FALSE(opened.ok());
    EXPECT_EQ(opened.error().Text(), row.text);
    EXPECT_EQ(ports_.Calls().back(), "done @0");
  }
  ports_.there[0] = 0;
  ports_.baud_result = -12;
  EXPECT_EQ(OpenPort(ports_, 0, 4).error().Text(), "Unsupported baud rate");
  ports_.baud_result = 0;
  ports_.parameters_result = -11;
  EXPECT_EQ(OpenPort(ports_, 0, 4).error().Text(), "Unsupported byte size");
  EXPECT_EQ(ports_.Calls().back(), "done @0");
}

TEST_F(Link, ScanFindsAndClosesAllPorts) {
  ports_.there = {{0, 0}, {4, 3}, {7, -2}, {256, 0}, {257, 0}};
  EXPECT_EQ(PortReport(ScanPorts(ports_)), "    COM1\r\n    COM5\r\n    COM257\r\n");
  const std::vector<std::string> calls = ports_.Calls();
  EXPECT_EQ(calls.size(), 2U * 257U);
  EXPECT_EQ(calls[15], "done @7");
}

TEST_F(Link, TestShowsWhatComes) {
  ports_.text[0] = std::string(5000, 'x');
  EXPECT_EQ(ReadAllAndClear(ports_, 0).size(), 4096U);
  EXPECT_EQ(ReadAllAndClear(ports_, 0), "");
  EXPECT_EQ(ReadAllAndClear(ports_, 9), "");
  std::string box(2047, 'x');
  ShowReceived(box, "\xE9");
  EXPECT_EQ(box, std::string(2047, 'x') + "\xC3\xA9");
  ShowReceived(box, "new");
  EXPECT_EQ(box, "new");
  EXPECT_EQ(TestReportHead(12, -3), "Buffer size = 12\r\nGo On Line Code=-3\r\n");

  using In = SerialPorts::InLine;
  using Out = SerialPorts::OutLine;
  ports_.in_lines = {{In::kDcd, 0}, {In::kDsr, 1}, {In::kCts, -1}, {In::kRi, -3}};
  ports_.out_lines = {{Out::kDtr, 1}, {Out::kRts, 0}};
  const std::string ends = "Data In to PC PIN 2\r\nData Out of PC PIN 3\r\nSignal ground PIN 5\r\n";
  EXPECT_EQ(LineStateReport(ports_, 0),
            "DCD Status = CLEAR(Pin 1-IN)\r\nDTR Status = SET (Pin 4-OUT)\r\n"
            "DSR Status = SET (Pin 6-IN)\r\nRTS Status = CLEAR(Pin 7-OUT)\r\n"
            "CTS Port Doesnt exist\r\nRI Port Not Open\r\n" +
                ends);
  ports_.in_lines = {{In::kDcd, -3}, {In::kDsr, 0}, {In::kCts, 0}, {In::kRi, 1}};
  ports_.out_lines = {{Out::kDtr, -3}, {Out::kRts, -1}};
  EXPECT_EQ(LineStateReport(ports_, 0),
            "DCD Port Not Open\r\n Port Not Open\r\nDSR Status = CLEAR(Pin 6-IN)\r\n"
            "RTS Port Doesnt exist\r\nCTS Status = CLEAR(Pin 8-IN)\r\n"
            "RI Status = SET (Pin 9-IN)\r\n" +
                ends);
}

TEST_F(Link, ConnectsAndDisconnects) {
  config_.gps_baud_code = 5;
  ASSERT_TRUE(Gps().ok());
  EXPECT_EQ(ports_.Calls(), OpeningOf("0", "5"));
  EXPECT_TRUE(link_.gps_enabled && !link_.ais_enabled);
  ASSERT_TRUE(Ais().ok());  // opens the GPS port anew with it
  std::vector<std::string> both = OpeningOf("1", "7");
  for (const std::string& call : OpeningOf("0", "5")) both.push_back(call);
  EXPECT_EQ(ports_.Calls(), both);
  nmea_.fix.boat_latitude = nmea_.fix.boat_longitude = 5.0F;
  nmea_.fix.position_good = true;
  nmea_.fix.position_text = nmea_.fix.course_speed_text = nmea_.fix.waypoint_text = "x";
  const GpsFix before = nmea_.fix;
  DisconnectAis(link_, config_, ports_, nmea_.fix);
  EXPECT_EQ(ports_.Calls(), std::vector<std::string>{"done @1"});
  EXPECT_TRUE(link_.gps_enabled && !link_.ais_enabled);
  EXPECT_EQ(nmea_.fix, before);
  DisconnectGps(link_, ports_, nmea_.fix);
  EXPECT_EQ(ports_.Calls(), std::vector<std::string>{"done @0"});
  EXPECT_FALSE(link_.gps_enabled);
  EXPECT_EQ(nmea_.fix, GpsFix());

  config_.gps_through_ais = kTrue;
  ASSERT_TRUE(Ais().ok());
  EXPECT_EQ(ports_.Calls(), OpeningOf("1", "7"));
  EXPECT_TRUE(link_.gps_enabled && link_.ais_enabled);
  ports_.text[1] = RmcAt("063020") + "\r\n";
  Steps(0);
  EXPECT_TRUE(nmea_.fix.position_good);
  EXPECT_EQ(ports_.reads[0], 0);
  DisconnectAis(link_, config_, ports_, nmea_.fix);
  EXPECT_FALSE(link_.gps_enabled || link_.ais_enabled);
  EXPECT_FALSE(nmea_.fix.position_good);
  EXPECT_EQ(nmea_.fix.position_text, "");

  // A change of the settings leaves no port open.
  config_.gps_through_ais = kFalse;
  ASSERT_TRUE(Gps().ok());
  config_.gps_port = 3;
  DisconnectGps(link_, ports_, nmea_.fix);
  EXPECT_EQ(ports_.Calls().back(), "done @0");
}

TEST_F(Link, RefusalNamesThePort) {
  config_.gps_port = -1;
  config_.ais_port = 6;
  EXPECT_EQ(Gps().error().Text(),
            "The Comm Port 0 requested for the GPS does not exist or is in use.\r\n"
            "Use the Configure GPS menu to see what available ports are on this PC.");
  EXPECT_EQ(Ais().error().Text(),
            "The Comm Port 7 requested for the AIS does not exist or is in use.\r\n"
            "Use the Configure GPS/AIS menu to see what available ports are on this PC.");
  EXPECT_EQ(ports_.Calls().back(), "done @6");
  EXPECT_FALSE(link_.gps_enabled || link_.ais_enabled);
  EXPECT_EQ(Text(100000), "");
}

TEST_F(Link, ReadsThePortsInTurnAndLosesNothing) {
  ASSERT_TRUE(Gps().ok());
  Steps(0);
  EXPECT_EQ(ports_.reads[0], 1);
  EXPECT_EQ(ports_.reads[1], 0);
  ASSERT_TRUE(Ais().ok());
  // Blocks of 1024 bytes cut sentences of both ports anywhere.
  std::string gps;
  std::string ais;
  for (int i = 0; i < 300; ++i) ais += std::string(kAis) + "\r\n";
  for (int i = 0; i < 100; ++i) gps += RmcAt("0630" + std::to_string(10 + i % 50)) + "\r\n";
  ports_.text = {{0, gps}, {1, ais}};
  nmea_.log.logging_on = true;
  int fixes = 0;
  for (int i = 0; i < 20; ++i) {
    Steps(i);
    fixes += static_cast<int>(std::count(nmea_.raw_text.begin(), nmea_.raw_text.end(), '$'));
    nmea_.raw_text.clear();
  }
  EXPECT_EQ(fixes, 100);
  EXPECT_EQ(sink_.sentences, std::vector<std::string>(300, kAis));
  EXPECT_EQ(link_.ais_tail, "\n");  // before the next sentence
  // Noise without line ends is not held back for ever.
  for (int i = 0; i < 100; ++i) {
    ports_.text[1] = std::string(1000, 'x');
    Steps(i);
    EXPECT_LE(link_.ais_tail.size(), kMostHeldBack);
  }
}

TEST_F(Link, DeadPortIsOpenedAgainWithGrowingPauses) {
  ASSERT_TRUE(Gps(0).ok());
  ports_.text[0] = RmcAt("063020") + "\r\n";
  Steps(1000);
  Steps(10999);
  EXPECT_EQ(Text(10999), "");
  EXPECT_TRUE(nmea_.fix.position_good);
  Steps(11000);
  EXPECT_FALSE(nmea_.fix.position_good);
  EXPECT_EQ(nmea_.fix.fix_time, "063020");
  EXPECT_EQ(Text(13000), "GPS: no data for 12 s");
  ports_.there.clear();  // the cable is pulled
  Steps(13000);
  EXPECT_EQ(Text(13000), "GPS: reconnecting");
  ports_.calls.clear();
  std::vector<std::int64_t> tries;
  for (std::int64_t now = 13000; now < 60000; now += 100) {
    Steps(now);
    if (!ports_.Calls().empty()) tries.push_back(now);
  }
  EXPECT_EQ(tries, (std::vector<std::int64_t>{14000, 16000, 20000, 28000, 38000, 48000, 58000}));
  ports_.there[0] = 0;
  Steps(68000);
  EXPECT_EQ(ports_.Calls(), OpeningOf("0", "4"));
  EXPECT_EQ(Text(68000), "GPS: no data for 67 s");
  ports_.there.clear();  // and once more, before it has said anything
  Steps(68100);
  Steps(78000);
  ports_.there[0] = 0;
  ports_.calls.clear();
  Steps(78099);
  EXPECT_TRUE(ports_.calls.empty());
  Steps(78100);
  ports_.text[0] = RmcAt("063021") + "\r\n";
  Steps(78200);
  EXPECT_EQ(Text(78200), "");
  EXPECT_EQ(nmea_.fix.fix_time, "063021");
  ports_.there.clear();  // the pauses begin anew
  Steps(80000);
  ports_.calls.clear();
  Steps(81000);
  EXPECT_FALSE(ports_.calls.empty());
}

// What was cut off by the loss of a port does not spoil what comes after.
TEST_F(Link, HalfASentenceIsForgottenWithItsPort) {
  ASSERT_TRUE(Gps(0).ok() && Ais(0).ok());
  ports_.text = {{0, "$GPRMC,06"}, {1, "!AIVDM,1,"}};
  Steps(0);
  ports_.there.clear();
  Steps(100);
  ports_.there = {{0, 0}, {1, 0}};
  Steps(1100);
  ports_.text = {{0, RmcAt("063020") + "\r\n"}, {1, std::string(kAis) + "\r\n"}};
  Steps(1200);
  EXPECT_TRUE(nmea_.fix.position_good);
  EXPECT_EQ(sink_.sentences, std::vector<std::string>{kAis});
}

TEST_F(Link, SilentPortIsOpenedAgainInItsTime) {
  ASSERT_TRUE(Ais(0).ok());
  ASSERT_TRUE(Gps(0).ok());
  ports_.calls.clear();
  Steps(29999);
  EXPECT_TRUE(ports_.calls.empty());
  Steps(30000);
  Steps(31000);
  std::vector<std::string> wanted = OpeningOf("0", "4");
  wanted.insert(wanted.begin(), "done @0");
  EXPECT_EQ(ports_.Calls(), wanted);
  EXPECT_EQ(Text(31000), "GPS: no data for 31 s");
  ports_.nothing = -100;  // "no data" is no failure
  Steps(60999);
  EXPECT_TRUE(ports_.Calls().empty());
  Steps(61000);
  EXPECT_EQ(ports_.Calls(), std::vector<std::string>{"done @0"});
  Steps(63000);
  EXPECT_EQ(Text(120000), "GPS: no data for 120 s  AIS: no data for 120 s");
  DisconnectGps(link_, ports_, nmea_.fix);
  EXPECT_EQ(Text(119999), "");
  // What carries the GPS too is missed sooner.
  config_.gps_through_ais = kTrue;
  ASSERT_TRUE(Ais(0).ok());
  EXPECT_EQ(Text(10000), "AIS/GPS: no data for 10 s");
}

}  // namespace
}  // namespace skerrow
