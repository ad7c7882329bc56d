// The windows of the link, with the real library of ports and pseudo-terminals behind them.

#include <QCheckBox>
#include <QComboBox>
#include <QMenuBar>
#include <QPlainTextEdit>

#include "instruments/nmea_sentences.h"
#include "platform/serial.h"
#include "support/hands.h"
#include "support/sample_desk.h"
#include "support/wires.h"
#include "ui/instruments/frmAISGPSConfig.h"
#include "ui/instruments/frmAISLog.h"
#include "ui/instruments/frmCommsInfo.h"
#include "ui/instruments/frmGPSLog.h"
#include "ui/instruments/frmgpsdetail.h"

namespace skerrow::testing {
namespace {

class LinkWindows : public SampleDesk {
 protected:
  LinkWindows()
      : ports_(OpenSerialPorts(program.folders.SettingsData(), {gps_path_, ais_path_})),
        real_{program, messages, settings, clipboard, *ports_, window, view} {}

  int PortOf(const std::string& place) {
    for (const PortSource& source : ports_->Sources()) {
      if (source.place == place) return source.port;
    }
    return -1;
  }
  // Chooses a port in a list by the text of its row.
  static void Choose(QWidget& form, const char* list, const std::string& part) {
    auto* box = Find<QComboBox>(form, list);
    const int row = box->findText(QString::fromStdString(part), Qt::MatchContains);
    ASSERT_GE(row, 0) << part;
    box->setCurrentIndex(row);
  }
  static std::string Shown(QWidget& form, const char* box) {
    return Find<QPlainTextEdit>(form, box)->toPlainText().toStdString();
  }
  static std::string Label(QWidget& form, const char* label) {
    return Find<QLabel>(form, label)->text().toStdString();
  }
  static bool ShowsSoon(QWidget& form, const char* box, const std::string& part) {
    return QTest::qWaitFor([&] { return Shown(form, box).find(part) != std::string::npos; }, 5000);
  }

  const std::string gps_path_ = user_.File("gps");
  const std::string ais_path_ = user_.File("ais");
  std::unique_ptr<SerialPorts> ports_;
  Desktop real_;
};

const std::string kRmc = RmcAt("120000") + "\r\n";

TEST_F(LinkWindows, APortIsTestedChosenAndKept) {
  const PseudoTerminal gps(gps_path_);
  frmGPSLog form(real_, nullptr);
  Show(form);
  Choose(form, "cmbPort", "  gps");
  Choose(form, "cmbGPSType", "USB 38400 Baud");
  EXPECT_FALSE(Find<QPushButton>(form, "cmdCancelTest")->isEnabled());
  Click(form, "cmdTest");
  EXPECT_FALSE(Find<QPushButton>(form, "cmdTest")->isEnabled());
  gps.Write(kRmc);
  EXPECT_TRUE(ShowsSoon(form, "txtNMEA", "$GPRMC,120000,A"));
  EXPECT_EQ(Label(form, "lblTest"), std::to_string(kRmc.size()) + " bytes, 1 good sentences.");
  // The box is emptied once it holds more than 2047 characters, and stands at its end.
  for (int i = 0; i < 40; ++i) gps.Write(kRmc);
  gps.Write("last\r\n");
  EXPECT_TRUE(ShowsSoon(form, "txtNMEA", "last"));
  EXPECT_LT(Shown(form, "txtNMEA").size(), 2048U + 4096U);
  auto* bar = Find<QPlainTextEdit>(form, "txtNMEA")->verticalScrollBar();
  EXPECT_EQ(bar->value(), bar->maximum());
  Click(form, "cmdCancelTest");
  EXPECT_TRUE(Find<QPushButton>(form, "cmdTest")->isEnabled());
  std::string none;
  EXPECT_EQ(ports_->Get(PortOf(gps_path_), none, 1), -3);

  Click(form, "cmdTest");
  Find<QCheckBox>(form, "chkNmeaLogOn")->setChecked(true);
  Type(form, "txtFileName", "Solent.x.y");
  Click(form, "cmdOK");
  EXPECT_EQ(form.result(), QDialog::Accepted);
  EXPECT_EQ(ports_->Get(PortOf(gps_path_), none, 1), -3);  // OK ends a test
  AppConfig stored;
  ASSERT_TRUE(ReadConfig(program.folders, stored));
  EXPECT_EQ(stored.gps_port, PortOf(gps_path_));
  EXPECT_EQ(stored.gps_baud_code, 7);
  EXPECT_EQ(Trim(stored.gps_type_text), "7");
  EXPECT_EQ(stored.nmea_log_on, kTrue);
  EXPECT_EQ(program.nmea.log.log_file_name, "Solent");
  EXPECT_TRUE(program.nmea.log.logging_on);
  EXPECT_EQ(LinkEntryOf(program, settings, LinkKind::kGps).log_name, "Solent");
}

TEST_F(LinkWindows, ATestSaysWhatIsWrong) {
  auto gps = std::make_unique<PseudoTerminal>(gps_path_);
  frmAISLog form(real_, nullptr);
  Show(form);
  Find<QComboBox>(form, "cmbPort")->setEditText("  ");
  messages.Expect("No comms port selected", MessageIcon::kWarning);
  Click(form, "cmdTest");
  messages.Expect("No comms port selected", MessageIcon::kWarning);
  Click(form, "cmdOK");
  EXPECT_TRUE(form.isVisible());
  Find<QComboBox>(form, "cmbPort")->setEditText("99");
  Click(form, "cmdTest");
  EXPECT_EQ(Label(form, "lblTest"), "The port cannot be opened: Invalid COM port name");
  Choose(form, "cmbPort", "  gps");
  {
    const auto other = OpenSerialPorts("", {gps_path_});
    ASSERT_EQ(other->Reset(*other->AddSource(gps_path_), 1024, 1024), 0);
    Click(form, "cmdTest");
    EXPECT_EQ(Label(form, "lblTest"), "The port cannot be opened: COM port already open");
  }
  Click(form, "cmdTest");
  EXPECT_EQ(Label(form, "lblTest"), "Nothing has come yet.");
  gps->Write(std::string("\x01\xfe$GP", 5));
  EXPECT_TRUE(ShowsSoon(form, "txtNMEA", "\u00b7\u00fe$GP"));
  EXPECT_EQ(Label(form, "lblTest"), "5 bytes, but no sentence: the speed may be another.");
  gps->Pull();
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return Label(form, "lblTest") == "The port has gone."; }, 5000));
  EXPECT_TRUE(Find<QPushButton>(form, "cmdTest")->isEnabled());
}

TEST_F(LinkWindows, ALogIsChosenFromThoseThatAreThere) {
  ASSERT_TRUE(ReplaceFile(LogPath(program.folders.Tracks(), "Lyme Bay"), "x\n"));
  ASSERT_TRUE(ReplaceFile(LogPath(program.folders.Tracks(), "a.b"), "x\n"));
  program.link.gps_enabled = true;
  program.nmea.log.logging_on = true;
  program.nmea.log.log_file_name = "before";
  program.nmea.log.queue = {"$GPGLL*00"};
  frmAISLog form(real_, nullptr);
  Show(form);
  EXPECT_FALSE(Find<QPushButton>(form, "cmdTest")->isEnabled());  // it would close the GPS
  EXPECT_EQ(Find<QLineEdit>(form, "txtFileName")->text(), "before");
  ClickRow(form, "fillist", RowOfText(form, "fillist", "Lyme"));
  EXPECT_EQ(Find<QLineEdit>(form, "txtFileName")->text(), "Lyme Bay");
  Find<QCheckBox>(form, "chkNmeaLogOn")->setChecked(true);
  Find<QCheckBox>(form, "chkStandardAIS")->setChecked(true);
  Choose(form, "cmbPort", "2  ");
  Click(form, "cmdOK");
  // What waited for the log before is in it, and none of it in the new one.
  EXPECT_EQ(FileBytes(LogPath(program.folders.Tracks(), "before")), "$GPGLL*00\r\n");
  EXPECT_TRUE(program.nmea.log.queue.empty());
  EXPECT_EQ(program.nmea.log.log_file_name, "Lyme Bay");
  EXPECT_TRUE(program.ais.options.standard);
  EXPECT_EQ(settings.GetInt("Instruments", "StandardAis", 0), 1);
  EXPECT_GT(program.timers.next_log_time, 0.0);
  EXPECT_EQ(program.config.ais_port, 1);
}

TEST_F(LinkWindows, SettingsGoToTheirFields) {
  const TcpServer server;
  frmAISGPSConfig form(real_, nullptr);
  Show(form);
  // Each control, what is put into it, and where it has to arrive.
  const struct {
    const char* control;
    const char* text;  // of a list; empty for a mark that is turned over
    std::function<bool(const AppConfig&)> arrived;
  } kRows[] = {
      {"cmbVHFRange", "11", [](const AppConfig& c) { return c.vhf_range == 11.0F; }},
      {"cmbRadarRange", "13", [](const AppConfig& c) { return c.radar_range == 13.0F; }},
      {"cmbHorizion", "7", [](const AppConfig& c) { return c.horizon_range == 7.0F; }},
      {"chkEnableRings", "", [](const AppConfig& c) { return c.range_rings_on == 0; }},
      {"cmbAheadVector", "6", [](const AppConfig& c) { return c.heading_vector_length == 6.0F; }},
      {"cmbBoatLineWidth", "3", [](const AppConfig& c) { return c.boat_line_width == 3; }},
      {"chkBoatFutureTidePlot", "",
       [](const AppConfig& c) { return c.boat_future_tide_plot == kTrue; }},
      {"cmbAheadIntervals", "25", [](const AppConfig& c) { return c.ahead_interval == 25.0F; }},
      {"chkGPSCentre", "", [](const AppConfig& c) { return c.gps_centre == kTrue; }},
      {"chktracklayer", "", [](const AppConfig& c) { return c.track_layer_on == 0.0F; }},
      {"chkcomments", "", [](const AppConfig& c) { return c.track_comments == 0.0F; }},
      {"chkGPSThroAIS", "", [](const AppConfig& c) { return c.gps_through_ais == kTrue; }},
      {"cmbCPAAlarm", "0.75", [](const AppConfig& c) { return c.cpa_alarm_range == 0.75F; }},
      {"cmbAISSpeed", "1.5", [](const AppConfig& c) { return c.ais_min_speed == 1.5F; }},
      {"chkDisplayAISAsBoat", "", [](const AppConfig& c) { return c.ais_as_boat == 0; }},
      {"chkAISHeadingVector", "", [](const AppConfig& c) { return c.show_ais_heading == kTrue; }},
      {"chkAISHistTrack", "", [](const AppConfig& c) { return c.show_ais_history == 0; }},
      {"chkAISPredTrack", "", [](const AppConfig& c) { return c.show_ais_predicted == kTrue; }},
      {"cmbAISLineWidth", "4", [](const AppConfig& c) { return c.ais_line_width == 4; }},
      {"cmbGPSType", "USB 9600 Baud",
       [](const AppConfig& c) { return c.gps_baud_code == 5 && Trim(c.gps_type_text) == "5"; }},
      {"cmbGPSInterval", "2 Mins", [](const AppConfig& c) { return c.log_interval == 120; }},
      {"chkNmeaLogOn", "", [](const AppConfig& c) { return c.nmea_log_on == 0; }},
      {"cmbGPSPort", "12", [](const AppConfig& c) { return c.gps_port == 11; }},
      {"cmbAISPort", "0", [](const AppConfig& c) { return c.ais_port == -1; }},
      {"cmbAISLine1", "Ship Type", [](const AppConfig& c) { return c.ais_label_items[0] == 8; }},
      {"cmbAISLine2", "NONE", [](const AppConfig& c) { return c.ais_label_items[1] == 0; }},
      {"cmbAISLine7", "CPA", [](const AppConfig& c) { return c.ais_label_items[6] == 1; }},
  };
  for (const auto& row : kRows) {
    if (*row.text == '\0') {
      Find<QCheckBox>(form, row.control)->toggle();
    } else if (auto* list = Find<QComboBox>(form, row.control); list->isEditable()) {
      list->setEditText(row.text);
    } else {
      list->setCurrentText(row.text);
    }
  }
  EXPECT_FALSE(Find<QComboBox>(form, "cmbGPSPort")->isEnabled());  // the GPS comes through the AIS
  Find<QCheckBox>(form, "chkStandardAIS")->setChecked(true);
  Find<QCheckBox>(form, "chkAlarmSound")->setChecked(false);

  // A refusal shows its field; a network source is there at once, without OK.
  Find<QComboBox>(form, "cmbAheadIntervals")->setEditText("0.5");
  messages.Expect("Enter an interval of at least 1 minute", MessageIcon::kWarning);
  Click(form, "cmdOK");
  EXPECT_TRUE(Find<QComboBox>(form, "cmbAheadIntervals")->isVisible());
  EXPECT_EQ(program.config.vhf_range, 10.0F);
  Find<QComboBox>(form, "cmbAheadIntervals")->setEditText("25");
  // Another window has changed the stored settings meanwhile.
  AppConfig stored = program.config;
  stored.draught = 1.75F;
  ASSERT_TRUE(SaveConfig(program.folders, stored));
  Click(form, "cmdOK");
  ASSERT_TRUE(ReadConfig(program.folders, stored));
  for (const auto& row : kRows) {
    EXPECT_TRUE(row.arrived(stored)) << row.control;
    EXPECT_TRUE(row.arrived(program.config)) << row.control;
  }
  EXPECT_EQ(stored.draught, 1.75F);
  EXPECT_EQ(stored.ais_label_items[2], 5);
  EXPECT_TRUE(program.ais.options.standard);
  EXPECT_EQ(settings.GetInt("Instruments", "AlarmSound", 1), 0);
  EXPECT_NE(window.changed & kSettingsChanged, 0U);
  // What was stored shows again.
  frmAISGPSConfig again(real_, nullptr);
  EXPECT_EQ(Find<QComboBox>(again, "cmbAISLine1")->currentText(), "Ship Type");
  EXPECT_EQ(Find<QComboBox>(again, "cmbGPSInterval")->currentText(), "2 Mins");
  EXPECT_TRUE(Find<QComboBox>(again, "cmbGPSPort")->currentText().startsWith("12  "));
  EXPECT_TRUE(Find<QCheckBox>(again, "chkStandardAIS")->isChecked());
}

TEST_F(LinkWindows, NetworkSourcesAreAddedAndTakenAway) {
  frmAISGPSConfig form(real_, nullptr);
  Show(form);
  auto* list = Find<QListWidget>(form, "lstSources");
  const int before = list->count();
  Type(form, "txtSource", "10110");
  messages.Expect(
      "A source is \"TCP host:port\", \"UDP port\", \"UDP address:port\" or the path of a device",
      MessageIcon::kWarning);
  Click(form, "cmdAddSource");
  Type(form, "txtSource", "UDP 10110");
  QTest::keyClick(Find<QLineEdit>(form, "txtSource"), Qt::Key_Return);  // not OK
  EXPECT_TRUE(form.isVisible());
  ASSERT_EQ(list->count(), before + 1);
  EXPECT_TRUE(list->currentItem()->text().endsWith("  UDP 10110"));
  const int port = PortOf("UDP 10110");
  // It stands in the lists of the ports as they open.
  auto* gps = Find<QComboBox>(form, "cmbGPSPort");
  gps->showPopup();
  EXPECT_GE(gps->findText("UDP 10110", Qt::MatchContains), 0);
  gps->hidePopup();
  program.link.ais.number = port;
  messages.Expect("This port is connected", MessageIcon::kWarning);
  Click(form, "cmdRemoveSource");
  program.link.ais.number = -1;
  list->setFocus();
  QTest::keyClick(list, Qt::Key_Delete);
  EXPECT_EQ(list->count(), before);
  EXPECT_EQ(PortOf("UDP 10110"), -1);
}

TEST_F(LinkWindows, ConfigurationsAreTestedLoggedAndCopied) {
  const PseudoTerminal gps(gps_path_);
  frmCommsInfo form(real_, nullptr);
  Show(form);
  EXPECT_NE(Shown(form, "txtPorts").find("    COM" + std::to_string(PortOf(gps_path_) + 1)),
            std::string::npos);
  auto* rates = Find<QComboBox>(form, "cmbBaud");
  EXPECT_EQ(rates->count(), 4);
  messages.Expect("All rates are now available from the dropdown box");
  form.findChild<QAction*>("mnuAllBaudRates")->trigger();
  EXPECT_EQ(rates->count(), 10);
  EXPECT_EQ(rates->itemText(9), "115200");
  rates->setEditText("1234");
  messages.Expect("Unsupported baud rate", MessageIcon::kWarning);
  Choose(form, "cmbPort", "  gps");
  Click(form, "cmdTest");
  rates->setEditText("115200");
  Type(form, "txtFileName", "raw.x");
  form.findChild<QAction*>("mnuLogRaw")->trigger();
  ASSERT_TRUE(ReplaceFile(LogPath(program.folders.Tracks(), "raw"), "old\r\n"));
  Click(form, "cmdTest");
  gps.Write(std::string("$GP\x00\xff\r\n", 7));
  EXPECT_TRUE(ShowsSoon(form, "txtNMEA", "$GP\u00b7\u00ff\n"));
  EXPECT_EQ(FileBytes(LogPath(program.folders.Tracks(), "raw")),
            std::string("old\r\n$GP\x00\xff\r\n", 12));
  EXPECT_EQ(
      Shown(form, "txtCommsDetails").find("Buffer size = 7\nGo On Line Code=0\nDCD Status = "), 0U);
  EXPECT_TRUE(ShowsSoon(form, "txtCommsDetails", "Buffer size = 0\n"));
  form.findChild<QAction*>("mnuCopyData")->trigger();
  EXPECT_EQ(clipboard.Text(), "$GP\u00b7\u00ff\n");
  form.findChild<QAction*>("mnuCopyBoth")->trigger();
  EXPECT_NE(clipboard.Text().find("Signal ground PIN 5\n\n$GP"), std::string::npos);
  // A log that cannot be written ends, and says so where the user looks.
  ASSERT_TRUE(DeleteFile(LogPath(program.folders.Tracks(), "raw")));
  ASSERT_TRUE(MakeFolder(LogPath(program.folders.Tracks(), "raw")));
  gps.Write("x");
  EXPECT_TRUE(ShowsSoon(form, "txtNMEA", "***** Error in writing Log File *****"));
  EXPECT_FALSE(form.findChild<QAction*>("mnuLogRaw")->isChecked());
  // A connection ends the test, and none begins while it stands.
  program.link.gps_enabled = true;
  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return !Find<QPushButton>(form, "cmdCancelTest")->isEnabled(); }, 5000));
  EXPECT_FALSE(Find<QPushButton>(form, "cmdTest")->isEnabled());
  program.nmea.overflowed = 17;
  EXPECT_TRUE(QTest::qWaitFor(
      [&] {
        return Label(form, "lblLost").find("Overlong lines: 17 characters") != std::string::npos;
      },
      5000));
}

TEST_F(LinkWindows, SystemInformationThatIsNotThere) {
  frmCommsInfo form(real_, nullptr);
  const QByteArray path = qgetenv("PATH");
  qputenv("PATH", user_.path().c_str());
  messages.Expect("System Information Is Unavailable At This Time");
  form.findChild<QAction*>("mnuSystemInfo")->trigger();
  // The first program of the list that is there is started.
  const std::string program_file = user_.Write("hardinfo", "#!/bin/sh\necho yes >\"$0.ran\"\n");
  std::filesystem::permissions(program_file, std::filesystem::perms::owner_all);
  form.findChild<QAction*>("mnuSystemInfo")->trigger();
  EXPECT_TRUE(QTest::qWaitFor([&] { return FileIsThere(program_file + ".ran"); }, 5000));
  qputenv("PATH", path);
}

TEST_F(LinkWindows, TheMonitorShowsFixTextLinesAndDestination) {
  const PseudoTerminal gps(gps_path_);
  program.config.gps_port = static_cast<std::int16_t>(PortOf(gps_path_));
  ASSERT_TRUE(ConnectGps(program.link, program.config, *ports_, 0));
  frmgpsdetail form(real_, nullptr);
  Show(form);
  EXPECT_EQ(Label(form, "lblLatitude"), "\u2013");
  EXPECT_FALSE(Find<QPushButton>(form, "cmdSave")->isEnabled());
  gps.Write(kRmc +
            GpsSentence("GPRMB,A,0.66,L,003,Old Harry,5037.20,N,00155.50,W,12.3,052.5,5.5,V") +
            "\r\n");
  KeptAis sink;
  const auto receive = [&] {
    ReceiveStep(program.link, program.nmea, program.config, *ports_, sink, clock, 0);
  };
  ASSERT_TRUE(QTest::qWaitFor(
      [&] {
        receive();
        return !program.nmea.destination.name.empty();
      },
      5000));
  EXPECT_TRUE(ShowsSoon(form, "txtNMEA", "$GPRMC,120000"));
  EXPECT_TRUE(ShowsSoon(form, "txtCommsDetails", "RI Status = CLEAR(Pin 9-IN)\n"));
  // A block is shown once, however often the dialog looks.
  QTest::qWait(300);
  EXPECT_EQ(Find<QPlainTextEdit>(form, "txtNMEA")->toPlainText().count("$GPRMC"), 1);
  // 50 30.25 N, 1 20.25 W, 5.2 kn, 271.5 degrees: half to even.
  const struct {
    const char* label;
    const char* text;
  } kRows[] = {
      {"lblLatitude", "50.30.25N"},
      {"lblLongitude", "001.20.25W"},
      {"lblSpeed", "5.2"},
      {"lblCourse", "272"},
      {"lblTime", "120000"},
      {"lblDestName", "Old Harry"},
      {"lblDestLatitude", "50\u00b037.20N"},
      {"lblDestLongitude", "001\u00b055.50W"},
      {"lblRange", "12.3"},
      {"lblBearing", "052.5"},
      {"lblCrossTrack", "0.66"},
      {"lblSteer", "Port"},
  };
  for (const auto& row : kRows) EXPECT_EQ(Label(form, row.label), row.text) << row.label;
  const std::size_t count = program.waypoints.waypoints.size();
  Click(form, "cmdSave");
  ASSERT_EQ(program.waypoints.waypoints.size(), count + 1);
  const Waypoint saved = program.waypoints.waypoints.back();
  EXPECT_EQ(saved.name, "Old Harry");
  EXPECT_FLOAT_EQ(saved.latitude, 50.62F);
  EXPECT_FLOAT_EQ(saved.longitude, -1.925F);
  // Closing reads the current waypoints again.
  program.waypoints.waypoints.clear();
  QTest::keyClick(&form, Qt::Key_Escape);
  EXPECT_EQ(program.waypoints.waypoints.size(), count + 1);
}

TEST(Destinations, ReadBackAsDecimalDegrees) {
  const struct {
    const char* text;
    std::optional<float> degrees;
  } kRows[] = {
      {"50\u00b030.00N", 50.5F},
      {" 001\u00b030.00W ", -1.5F},
      {"33\u00b000.00S", -33.0F},
      {"179\u00b059.99E", 179.99983F},
      {"90\u00b000.00N", 90.0F},
      {"90\u00b000.01N", std::nullopt},
      {"180\u00b000.01E", std::nullopt},
      {"50\u00b060.00N", std::nullopt},
      {"\u00b0N", std::nullopt},
      {"50\u00b0N", std::nullopt},
      {"50\u00b030.0", std::nullopt},
      {"50.5N", std::nullopt},
      {"5x\u00b030.0N", std::nullopt},
      {"50\u00b030.0X", std::nullopt},
      {"", std::nullopt},
  };
  for (const auto& row : kRows) EXPECT_EQ(DestinationDegrees(row.text), row.degrees) << row.text;
}

TEST_F(LinkWindows, ListsOfPortsHaveTheChosenOneAlways) {
  EXPECT_EQ(PortRows(*ports_, 41).back(), "42  (nothing plugged in)");
  const int udp = *ports_->AddSource("UDP 10110");
  std::vector<std::string> rows = PortRows(*ports_, udp);
  EXPECT_EQ(rows.back(), std::to_string(udp + 1) + "  UDP 10110");
  {
    const PseudoTerminal gps(gps_path_);
    (void)PortRows(*ports_, udp);
  }
  const int gone = PortOf(gps_path_);
  rows = PortRows(*ports_, gone);
  EXPECT_EQ(RowOfPort(rows, gone), std::to_string(gone + 1) + "  gps, not plugged in");
  EXPECT_EQ(RowOfPort(PortRows(*ports_, udp), gone), "");
  EXPECT_EQ(PortOfText("12  ttyUSB0 (u-blox 7)"), 11);
  EXPECT_EQ(PortOfText("x"), -1);
  EXPECT_EQ(PortOfText("-5"), -1);
  EXPECT_EQ(PortOfText("99999"), 32766);
  EXPECT_EQ(PortOfText(" "), std::nullopt);
}

}  // namespace
}  // namespace skerrow::testing
