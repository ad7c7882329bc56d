#include "platform/serial.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "instruments/nmea_sentences.h"
#include "instruments/serial_link.h"
#include "support/temp_folder.h"
#include "support/wires.h"

namespace skerrow {
namespace {

using namespace std::chrono_literals;
using testing::PseudoTerminal;
using testing::TcpServer;
using testing::TempFolder;
using testing::UdpSender;
using testing::WaitUntil;

constexpr int kLost = -103;

class Ports : public ::testing::Test {
 protected:
  Ports() : ports_(OpenSerialPorts(folder_.path(), {gps_path_, ais_path_})) {}

  int PortOf(const std::string& place) {
    for (const PortSource& source : ports_->Sources()) {
      if (source.place == place) return source.port;
    }
    return -1;
  }
  // What a port gives until it has given `count` bytes.
  std::string Take(int port, std::size_t count) {
    std::string all;
    WaitUntil([&] {
      std::string text;
      if (ports_->Get(port, text, 1024) > 0) all += text;
      return all.size() >= count;
    });
    return all;
  }
  bool Dies(int port) {
    return WaitUntil([&] {
      std::string text;
      return ports_->Get(port, text, 1024) == kLost;
    });
  }
  // How long a call takes, in milliseconds.
  template <typename Call>
  static long Took(Call call) {
    const auto start = std::chrono::steady_clock::now();
    call();
    return static_cast<long>(std::chrono::duration_cast<std::chrono::milliseconds>(
                                 std::chrono::steady_clock::now() - start)
                                 .count());
  }

  const TempFolder folder_;
  const std::string gps_path_ = folder_.File("gps");
  const std::string ais_path_ = folder_.File("ais");
  std::unique_ptr<SerialPorts> ports_;
};

TEST_F(Ports, CarryTextBothWays) {
  PseudoTerminal gps(gps_path_);
  const int port = PortOf(gps_path_);
  ASSERT_GE(port, 0);
  ASSERT_TRUE(OpenPort(*ports_, port, 4).ok());
  gps.Write("$GPRMC,1\r\n");
  EXPECT_EQ(Take(port, 10), "$GPRMC,1\r\n");
  std::string text = "old";
  EXPECT_EQ(ports_->Get(port, text, 1024), 0);
  EXPECT_EQ(text, "");
  // In pieces of the size asked for.
  gps.Write("abcdef");
  EXPECT_TRUE(WaitUntil([&] { return ports_->Get(port, text, 4) == 4; }));
  EXPECT_EQ(text + Take(port, 2), "abcdef");

  EXPECT_EQ(ports_->Put(port, "$GPWPL\r\n"), 0);
  EXPECT_EQ(gps.Read(8), "$GPWPL\r\n");
  // More than the buffer for sending is not taken, and nothing of it is sent.
  EXPECT_LT(ports_->Put(port, std::string(5000, 'x')), 0);
  EXPECT_EQ(ports_->Put(port, std::string(3000, 'y')), 0);
  EXPECT_EQ(gps.Read(3000), std::string(3000, 'y'));

  gps.Write("late");
  EXPECT_TRUE(WaitUntil([&] { return ports_->Get(port, text, 1) == 1; }));
  EXPECT_EQ(ports_->ClearReceived(port), 0);
  EXPECT_EQ(ports_->Get(port, text, 10), 0);
  // A pseudo-terminal has no lines: none is set, and asking does no harm.
  EXPECT_EQ(ports_->ReadLine(port, SerialPorts::InLine::kCts), 0);
  // What waits to be sent leaves before the port closes.
  EXPECT_EQ(ports_->Put(port, "last"), 0);
  ports_->Done(port);
  EXPECT_EQ(gps.Read(4), "last");
  EXPECT_EQ(ports_->Get(port, text, 1), -3);
  EXPECT_EQ(ports_->ReadLine(port, SerialPorts::InLine::kCts), -3);
}

TEST_F(Ports, WrongCallsAreRefused) {
  EXPECT_EQ(ports_->Reset(200, 1024, 1024), -1);
  std::string text;
  EXPECT_EQ(ports_->Get(200, text, 10), -1);
  EXPECT_EQ(ports_->ReadLine(200, SerialPorts::InLine::kRi), -1);
  EXPECT_LT(ports_->Put(-1, "x"), 0);
  PseudoTerminal gps(gps_path_);
  const int port = PortOf(gps_path_);
  EXPECT_LT(ports_->SetBaud(port, 4), 0);  // not open
  ASSERT_EQ(ports_->Reset(port, 1024, 1024), 0);
  EXPECT_EQ(ports_->SetBaud(port, 10), -12);
  EXPECT_EQ(ports_->SetBaud(port, -1), -12);
  for (int code = 0; code < 10; ++code) EXPECT_EQ(ports_->SetBaud(port, code), 0) << code;
  ports_->Done(port);
  ports_->Done(port);
  // A file is no port.
  const Result<int> file = ports_->AddSource(folder_.Write("plain", "x"));
  ASSERT_TRUE(file);
  EXPECT_LT(ports_->Reset(*file, 1024, 1024), 0);
  EXPECT_NE(SerialErrorText(ports_->Reset(*file, 1024, 1024), *ports_), "");
}

TEST_F(Ports, APluggedOutDeviceDiesAndComesBackUnderItsNumber) {
  auto gps = std::make_unique<PseudoTerminal>(gps_path_);
  const PseudoTerminal ais(ais_path_);
  const int port = PortOf(gps_path_);
  const int other = PortOf(ais_path_);
  ASSERT_TRUE(OpenPort(*ports_, port, 4).ok());
  ASSERT_TRUE(OpenPort(*ports_, other, 7).ok());
  gps->Write("before");
  std::this_thread::sleep_for(50ms);
  gps->Pull();
  EXPECT_EQ(Take(port, 6), "before");
  EXPECT_TRUE(Dies(port));
  EXPECT_NE(ports_->LastErrorText(), "");
  EXPECT_LT(ports_->Put(port, "x"), 0);
  ports_->Done(port);
  EXPECT_LT(Took([&] { EXPECT_LT(ports_->Reset(port, 1024, 1024), 0); }), 300);
  ais.Write("still there");
  EXPECT_EQ(Take(other, 11), "still there");
  gps = std::make_unique<PseudoTerminal>(gps_path_);
  EXPECT_TRUE(WaitUntil([&] { return ports_->Reset(port, 1024, 1024) == 0; }));
  EXPECT_EQ(PortOf(gps_path_), port);
  gps->Write("again");
  EXPECT_EQ(Take(port, 5), "again");
}

TEST_F(Ports, APortInUseIsRefusedUnderAnyName) {
  const PseudoTerminal gps(gps_path_);
  std::filesystem::create_symlink(std::filesystem::read_symlink(gps_path_), ais_path_);
  ASSERT_TRUE(OpenPort(*ports_, PortOf(gps_path_), 4).ok());
  EXPECT_EQ(ports_->Reset(PortOf(ais_path_), 1024, 1024), -2);
  const TempFolder elsewhere;
  const auto second = OpenSerialPorts(elsewhere.path(), {gps_path_});
  const int same = *second->AddSource(gps_path_);
  EXPECT_EQ(second->Reset(same, 1024, 1024), -2);
  ports_->Done(PortOf(gps_path_));
  EXPECT_TRUE(WaitUntil([&] { return second->Reset(same, 1024, 1024) == 0; }));
}

TEST_F(Ports, WhatOverflowsIsCountedAndTheLatestIsKept) {
  const PseudoTerminal gps(gps_path_);
  const int port = PortOf(gps_path_);
  ASSERT_TRUE(OpenPort(*ports_, port, 9).ok());
  std::string sent;
  for (int i = 0; sent.size() < 3 * kPortRoom; ++i) sent += std::to_string(i) + "\r\n";
  gps.Write(sent);
  const std::size_t over = sent.size() - kPortRoom;
  EXPECT_TRUE(WaitUntil([&] { return ports_->Lost(port) == over; })) << ports_->Lost(port);
  EXPECT_EQ(Take(port, kPortRoom), sent.substr(over));
  ports_->Done(port);
  EXPECT_EQ(ports_->Lost(port), 0U);
}

TEST_F(Ports, AServerGoesAwayAndComesBack) {
  auto server = std::make_unique<TcpServer>();
  const int number = server->port();
  const int port = *ports_->AddSource(server->source());
  // The check and the opening are one connection.
  ASSERT_TRUE(ports_->Reset(port, 1024, 1024) >= 0);
  ports_->Done(port);
  ASSERT_TRUE(OpenPort(*ports_, port, 7).ok());
  ASSERT_TRUE(server->Accept());
  EXPECT_FALSE(server->Accept(100));
  server->Write("!AIVDM\r\n");
  EXPECT_EQ(Take(port, 8), "!AIVDM\r\n");
  // A server that ends its lines in another way is heard as well.
  server->Write("a\nb\r");
  EXPECT_EQ(Take(port, 5), "a\r\nb\r");
  server->Write("\nc");
  EXPECT_EQ(Take(port, 2), "\nc");
  ports_->Put(port, "$PUBX\r\n");
  EXPECT_EQ(testing::ReadFrom(server->client(), 7), "$PUBX\r\n");

  server->Write("rest");
  server.reset();
  EXPECT_EQ(Take(port, 4), "rest");
  EXPECT_TRUE(Dies(port));
  ports_->Done(port);
  EXPECT_LT(Took([&] { EXPECT_EQ(ports_->Reset(port, 1024, 1024), kLost); }), 300);
  EXPECT_NE(ports_->LastErrorText(), "");
  server = std::make_unique<TcpServer>(number);
  EXPECT_EQ(ports_->Reset(port, 1024, 1024), 0);
  ASSERT_TRUE(server->Accept());
  server->Write("back");
  EXPECT_EQ(Take(port, 4), "back");
  // Held for a second after the end, then let go.
  ports_->Done(port);
  EXPECT_EQ(testing::ReadFrom(server->client(), 1, 3s), "");
  char byte = 0;
  EXPECT_EQ(read(server->client(), &byte, 1), 0);
}

TEST_F(Ports, AServerThatDoesNotAnswerHoldsUpNobody) {
  auto server = std::make_unique<TcpServer>(0, 0);
  const int number = server->port();
  const int port = *ports_->AddSource(server->source());
  // The server answers nobody else.
  auto queue = std::make_unique<testing::SilentClients>(number);
  const long first = Took([&] { EXPECT_EQ(ports_->Reset(port, 1024, 1024), kLost); });
  EXPECT_GE(first, kLongestWait - 50);
  EXPECT_LE(first, kLongestWait + 300);
  EXPECT_EQ(ports_->LastErrorText(), "The port has not answered yet");
  for (int i = 0; i < 3; ++i) {
    EXPECT_LE(Took([&] { EXPECT_LT(ports_->Reset(port, 1024, 1024), 0); }), kLongestWait / 2);
    ports_->Done(port);
  }
  // An answer that comes between two tries is taken up at the next.
  queue.reset();
  while (server->Accept(0)) continue;
  std::this_thread::sleep_for(3500ms);  // the system tries again after 1 s and 3 s
  EXPECT_EQ(ports_->Reset(port, 1024, 1024), 0);
}

TEST_F(Ports, DatagramsAreWholeSentences) {
  int number = 0;
  {
    const TcpServer spare;  // a number that is free
    number = spare.port();
  }
  const int port = *ports_->AddSource("UDP " + std::to_string(number));
  const int own = *ports_->AddSource("UDP 127.0.0.1:" + std::to_string(number));
  ASSERT_TRUE(OpenPort(*ports_, port, 7).ok());
  const UdpSender sender(number);
  sender.Send("$GPGLL*1D");
  EXPECT_EQ(Take(port, 11), "$GPGLL*1D\r\n");
  sender.Send("");
  sender.Send("$GPGLL*1D\r\n");
  EXPECT_EQ(Take(port, 11), "$GPGLL*1D\r\n");
  EXPECT_LT(ports_->Put(port, "x"), 0);
  EXPECT_EQ(ports_->Reset(own, 1024, 1024), -2);
  ports_->Done(port);
  EXPECT_EQ(ports_->Reset(own, 1024, 1024), 0);
  sender.Send("to this address");
  EXPECT_EQ(Take(own, 15), "to this address");
  EXPECT_LT(ports_->Reset(*ports_->AddSource("UDP boat:1"), 1024, 1024), 0);
}

TEST_F(Ports, AScanOfAllNumbersIsQuick) {
  const PseudoTerminal gps(gps_path_);
  const TcpServer server;
  const int added = *ports_->AddSource(server.source());
  std::vector<int> found;
  EXPECT_LT(Took([&] { found = ScanPorts(*ports_); }), 500);
  EXPECT_NE(std::find(found.begin(), found.end(), PortOf(gps_path_)), found.end());
  EXPECT_NE(std::find(found.begin(), found.end(), added), found.end());
  EXPECT_EQ(std::find(found.begin(), found.end(), PortOf(ais_path_)), found.end());
}

TEST_F(Ports, AReceiverAt10HzAndNoiseAtFullSpeedLoseNothing) {
  const PseudoTerminal gps(gps_path_);
  const PseudoTerminal ais(ais_path_);
  AppConfig config = DefaultConfig("");
  config.gps_port = static_cast<std::int16_t>(PortOf(gps_path_));
  config.ais_port = static_cast<std::int16_t>(PortOf(ais_path_));
  LinkState link;
  NmeaState nmea;
  testing::KeptAis sink;
  const testing::StillClock clock;
  ASSERT_TRUE(ConnectGps(link, config, *ports_, 0));
  ASSERT_TRUE(ConnectAis(link, config, *ports_, 0));
  const std::string vessel = "!AIVDM,1,1,,B,177KQJ5000G?tO`K>RA1wUbN0TKH,0*5C\r\n";
  std::size_t step = 0;
  const auto now = [&step] { return static_cast<std::int64_t>(75 * step); };
  // Two seconds: 20 fixes, 80 vessels, and before them noise of a wrong speed.
  std::string noise;
  for (int i = 0; i < 4000; ++i) noise += static_cast<char>(i * 7919 % 251);
  ais.Write(noise + "\r\n");
  for (int i = 0; i < 20; ++i) {
    gps.Write(testing::RmcAt("1200" + std::to_string(10 + i)) + "\r\n");
    for (int k = 0; k < 4; ++k) ais.Write(vessel);
    for (int k = 0; k < 2; ++k, ++step) {
      ReceiveStep(link, nmea, config, *ports_, sink, clock, now());
      std::this_thread::sleep_for(5ms);
    }
  }
  EXPECT_TRUE(WaitUntil([&] {
    ReceiveStep(link, nmea, config, *ports_, sink, clock, now());
    ++step;
    return nmea.positions == 20 && sink.sentences.size() >= 80;
  })) << nmea.positions
      << " " << sink.sentences.size();
  EXPECT_EQ(nmea.fix.fix_time, "120029");
  EXPECT_EQ(ports_->Lost(config.gps_port) + ports_->Lost(config.ais_port), 0U);
}

}  // namespace
}  // namespace skerrow
