// The reception from the menu to the chart, over pseudo-terminals and a server on this computer.

#include <QComboBox>
#include <algorithm>

#include "instruments/nmea_sentences.h"
#include "platform/serial.h"
#include "support/wires.h"
#include "ui/instruments/frmCommsInfo.h"
#include "ui/instruments/frmgpsdetail.h"
#include "ui/main/window_fixture.h"

namespace skerrow::testing {
namespace {

const std::string kVessel = "!AIVDM,1,1,,B,177KQJ5000G?tO`K>RA1wUbN0TKH,0*5C\r\n";

class Reception : public MainWindowTest {
 protected:
  Reception()
      : wires_(OpenSerialPorts(user_.File("settings/SkerrowHelm"), {gps_path_, ais_path_})) {
    LoadProgram(program_, messages_);
    window_ = std::make_unique<frmChart>(program_, messages_, *settings_, clipboard_, *wires_);
    window_->resize(1280, 720);
    window_->show();
    window_->Start();
    QApplication::processEvents();
  }

  // Chooses a port in the dialog of a command and accepts.
  void Connect(const char* command, const std::string& source) {
    OnDialog([source](QWidget* dialog) {
      auto* list = dialog->findChild<QComboBox*>("cmbPort");
      const int row = list->findText(QString::fromStdString(source), Qt::MatchContains);
      ASSERT_GE(row, 0) << source;
      list->setCurrentIndex(row);
      Click(dialog, "cmdOK");
    });
    Command(command);
  }
  bool Enabled(const char* command) { return window_->action(command)->isEnabled(); }
  // Whether a fix of that time arrives from an instrument that says it over and over.
  template <typename Write>
  bool FixArrives(const std::string& time, Write write, int limit_ms = 8000) {
    return QTest::qWaitFor(
        [&] {
          write(RmcAt(time) + "\r\n");
          QTest::qWait(40);
          return program_.nmea.fix.fix_time == time;
        },
        limit_ms);
  }
  bool Says(const std::string& text) {
    return QTest::qWaitFor([&] { return StatusText().find(text) != std::string::npos; }, 8000);
  }
  std::string StatusText() {
    std::string all;
    for (const QLabel* label : window_->statusBar()->findChildren<QLabel*>()) {
      all += label->text().toStdString() + "|";
    }
    return all;
  }

  const std::string gps_path_ = user_.File("gps");
  const std::string ais_path_ = user_.File("ais");
  std::unique_ptr<SerialPorts> wires_;
};

TEST_F(Reception, AGpsIsConnectedPulledPluggedInAgainAndDisconnected) {
  auto gps = std::make_unique<PseudoTerminal>(gps_path_);
  EXPECT_FALSE(Enabled("mnuPosGpsDisconnect"));
  EXPECT_FALSE(Enabled("mnugpsdisplay"));
  Connect("mnuGPSattach", "  gps");
  ASSERT_TRUE(program_.link.gps_enabled);
  EXPECT_FALSE(Enabled("mnuGPSattach"));
  ASSERT_TRUE(FixArrives("120000", [&](const std::string& text) { gps->Write(text); }));
  EXPECT_TRUE(program_.nmea.fix.position_good);
  Command("mnugpsdisplay");
  Command("mnugpsdisplay");
  ASSERT_EQ(window_->findChildren<frmgpsdetail*>().size(), 1);
  auto* monitor = window_->findChild<frmgpsdetail*>();
  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return monitor->findChild<QLabel*>("lblLatitude")->text() == "50.30.25N"; }));

  gps->Pull();
  EXPECT_TRUE(Says("GPS: reconnecting")) << StatusText();
  EXPECT_TRUE(program_.link.gps_enabled);
  gps = std::make_unique<PseudoTerminal>(gps_path_);
  ASSERT_TRUE(FixArrives(
      "120100", [&](const std::string& text) { gps->Write(text); }, 15000));
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return StatusText().find("GPS: ") == std::string::npos; }, 8000));

  Command("mnuPosGpsDisconnect");
  EXPECT_FALSE(program_.link.gps_enabled);
  EXPECT_TRUE(Enabled("mnuGPSattach"));
  std::string none;
  EXPECT_EQ(wires_->Get(program_.config.gps_port, none, 1), -3);
  monitor->close();
  QTest::qWait(1);
  EXPECT_EQ(window_->findChildren<frmgpsdetail*>().size(), 0);
}

TEST_F(Reception, BothPortsAtOnce) {
  const PseudoTerminal gps(gps_path_);
  const PseudoTerminal ais(ais_path_);
  Connect("mnuGPSattach", "  gps");
  Connect("mnuAISEnable", "  ais");
  ASSERT_TRUE(FixArrives("120000", [&](const std::string& text) {
    gps.Write(text);
    ais.Write(kVessel);
  }));
  EXPECT_TRUE(QTest::qWaitFor([&] { return program_.ais.targets.All().size() == 1; }, 5000));
  // GPS sentences of the AIS port do not count, the GPS having a port of its own.
  ais.Write(RmcAt("130000") + "\r\n");
  QTest::qWait(400);
  EXPECT_EQ(program_.nmea.fix.fix_time, "120000");
  messages_.ExpectQuestion("Disable AIS link?", false);
  Command("mnuAISDisable");
  EXPECT_TRUE(program_.link.ais_enabled);
  messages_.ExpectQuestion("Disable AIS link?", true);
  Command("mnuAISDisable");
  EXPECT_FALSE(program_.link.ais_enabled);
  EXPECT_TRUE(program_.link.gps_enabled);
  ASSERT_TRUE(FixArrives("120100", [&](const std::string& text) { gps.Write(text); }));
}

TEST_F(Reception, GpsThroughAisOverAServerThatGoesAwayAndComesBack) {
  auto server = std::make_unique<TcpServer>();
  const int number = server->port();
  ASSERT_TRUE(wires_->AddSource(server->source()));
  program_.config.gps_through_ais = kTrue;
  ASSERT_TRUE(SaveConfig(program_.folders, program_.config));
  Connect("mnuAISEnable", server->source());
  EXPECT_TRUE(program_.link.gps_enabled);
  EXPECT_TRUE(program_.link.ais_enabled);
  ASSERT_TRUE(server->Accept());
  ASSERT_TRUE(FixArrives("120000", [&](const std::string& text) { server->Write(text); }));
  server.reset();
  EXPECT_TRUE(Says("AIS/GPS: reconnecting")) << StatusText();
  QTest::qWait(1500);
  server = std::make_unique<TcpServer>(number);
  ASSERT_TRUE(QTest::qWaitFor([&] { return server->Accept(0); }, 15000));
  ASSERT_TRUE(FixArrives("120100", [&](const std::string& text) { server->Write(text); }));
  messages_.ExpectQuestion("Disable AIS link?", true);
  Command("mnuAISDisable");
  EXPECT_FALSE(program_.link.gps_enabled);
  EXPECT_EQ(program_.nmea.fix.position_text, "");
}

TEST_F(Reception, WhatIsRefusedChangesNothing) {
  OnDialog([](QWidget* dialog) {
    dialog->findChild<QComboBox*>("cmbPort")->setEditText("0");
    Click(dialog, "cmdOK");
  });
  messages_.Expect(
      "The Comm Port 0 requested for the GPS does not exist or is in use.\r\nUse the Configure GPS "
      "menu to see what available ports are on this PC.",
      MessageIcon::kWarning);
  Command("mnuGPSattach");
  EXPECT_FALSE(program_.link.gps_enabled);
  EXPECT_TRUE(Enabled("mnuGPSattach"));
  OnDialog([](QWidget* dialog) { Click(dialog, "cmdCancel"); });
  messages_.Expect("AIS connection cancelled.", MessageIcon::kInformation);
  Command("mnuAISEnable");
  EXPECT_FALSE(program_.link.ais_enabled);
  program_.replay.replay_active = true;
  window_->Changed(kAllChanged);
  EXPECT_FALSE(Enabled("mnuGPSattach"));
  EXPECT_FALSE(Enabled("mnuAISEnable"));
}

TEST_F(Reception, AReceiverAt10HzAndAFloodOfNoiseKeepTheWindowAlive) {
  const PseudoTerminal gps(gps_path_);
  int number = 0;
  {
    const TcpServer spare;
    number = spare.port();
  }
  const std::string source = "UDP " + std::to_string(number);
  const int udp = *wires_->AddSource(source);
  Connect("mnuGPSattach", "  gps");
  Connect("mnuAISEnable", source);
  const UdpSender noise(number);
  std::string block;
  for (int i = 0; i < 1400; ++i) block += static_cast<char>(i * 7919 % 251);
  long longest = 0;
  int fix = 0;
  QElapsedTimer run;
  run.start();
  while (run.elapsed() < 3000) {
    if (run.elapsed() >= fix * 100) {
      gps.Write(RmcAt("12" + std::to_string(1000 + fix++)) + "\r\n");
    }
    for (int i = 0; i < 20; ++i) noise.Send(block);
    QElapsedTimer turn;
    turn.start();
    QApplication::processEvents();
    longest = std::max(longest, static_cast<long>(turn.elapsed()));
    QTest::qWait(5);
  }
  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return program_.nmea.positions >= static_cast<std::size_t>(fix); }, 5000))
      << program_.nmea.positions << " of " << fix;
  EXPECT_EQ(wires_->Lost(program_.config.gps_port), 0U);
  EXPECT_GT(wires_->Lost(udp), 0U);
  EXPECT_LT(longest, 300);
  EXPECT_LE(program_.nmea.ais_line.size(), kMostSentence);
}

}  // namespace
}  // namespace skerrow::testing
