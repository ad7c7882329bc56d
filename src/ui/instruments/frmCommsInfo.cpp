#include "ui/instruments/frmCommsInfo.h"

#include <QFontDatabase>
#include <QFormLayout>
#include <QGroupBox>
#include <QMenuBar>
#include <QProcess>
#include <QStandardPaths>

#include "core/files.h"
#include "instruments/log.h"
#include "instruments/serial_link.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr int kInterval = 100;  // ms

constexpr std::array<const char*, 4> kFirstRates = {"4800", "9600", "19200", "38400"};
constexpr std::array<const char*, 6> kOtherRates = {"110",  "300",   "1200",
                                                    "2400", "57600", "115200"};

// Programs that tell of the computer's parts, the most telling first.
struct InformationProgram {
  const char* name;
  const char* argument;  // null for none
};
constexpr InformationProgram kInformationPrograms[] = {
    {"hardinfo2", nullptr},
    {"hardinfo", nullptr},
    {"kinfocenter", nullptr},
    {"kinfocenter5", nullptr},
    {"gnome-control-center", "info-overview"},
    {"cinnamon-settings", "info"},
    {"mate-system-monitor", nullptr},
    {"lshw-gtk", nullptr},
    {"gnome-system-monitor", nullptr},
};

QPlainTextEdit* MakeText(const char* name) {
  auto* text = Named<QPlainTextEdit>(name);
  text->setReadOnly(true);
  text->setTabChangesFocus(true);
  text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  return text;
}

QString Lines(const std::string& report) { return ToQt(report).remove(QLatin1Char('\r')); }

}  // namespace

frmCommsInfo::frmCommsInfo(Desktop& desktop, QWidget* parent)
    : LiveDialog(desktop, "frmCommsInfo", "Test Configurations", parent, kInterval),
      port_(new PortBox(desktop.ports, "cmbPort")),
      rate_(Named<QComboBox>("cmbBaud")),
      test_(Named<QPushButton>("cmdTest", "&Test Port")),
      stop_(Named<QPushButton>("cmdCancelTest", "Sto&p Test")),
      found_(MakeText("txtPorts")),
      details_(MakeText("txtCommsDetails")),
      received_(new ReceivedBox("txtNMEA")),
      lost_(Named<QLabel>("lblLost")),
      log_name_(Named<QLineEdit>("txtFileName")) {
  MakeMenus();
  auto* port = new QGroupBox("Port");
  auto* form = new QFormLayout(port);
  form->setHorizontalSpacing(12);
  form->setVerticalSpacing(7);
  form->addRow(MakeLabel("P&ort:", port_), port_);
  rate_->setEditable(true);
  rate_->setInsertPolicy(QComboBox::NoInsert);
  for (const char* rate : kFirstRates) rate_->addItem(rate);
  form->addRow(MakeLabel("&Baud:", rate_), MakeRow({rate_}));
  form->addRow(MakeRow({test_, stop_}));
  form->addRow(MakeLabel("Ports &found:", found_), found_);
  found_->setFixedHeight(found_->fontMetrics().lineSpacing() * 4 + 12);
  log_name_->setPlaceholderText("Today's date");
  log_name_->setToolTip("The file of the raw text, which is added to");
  form->addRow(MakeLabel("Raw lo&g:", log_name_), log_name_);
  lost_->setWordWrap(true);
  form->addRow(lost_);

  auto* right = MakeColumn();
  right->addWidget(MakeLabel("&Lines of the port:", details_));
  right->addWidget(details_, 1);
  auto* top = new QHBoxLayout;
  top->setSpacing(12);
  top->addWidget(port, 1);
  top->addLayout(right, 1);
  body()->addLayout(top, 2);
  body()->addWidget(MakeLabel("&Received data:", received_));
  body()->addWidget(received_, 3);
  QPushButton* close = AddButton("cmdCancel", "Close");
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  for (QPushButton* button : {test_, stop_}) button->setAutoDefault(false);
  connect(test_, &QPushButton::clicked, this, [this] { StartTest(); });
  connect(stop_, &QPushButton::clicked, this, [this] { StopTest(); });
  port_->Select(desktop.program.config.gps_port);
  ListPorts();
  port_->setFocus();
  resize(760, 620);
}

frmCommsInfo::~frmCommsInfo() { StopTest(); }

void frmCommsInfo::MakeMenus() {
  auto* bar = new QMenuBar;
  const auto add = [this](QMenu* menu, const char* name, const char* caption, auto act) {
    QAction* action = menu->addAction(caption);
    action->setObjectName(name);
    connect(action, &QAction::triggered, this, act);
    return action;
  };
  QMenu* file = bar->addMenu("F&ile");
  raw_log_ = add(file, "mnuLogRaw", "&Log the Raw Text", [this](bool on) { StartRawLog(on); });
  raw_log_->setCheckable(true);
  add(file, "mnuSystemInfo", "&System Information", [this] { ShowSystemInformation(); });
  QMenu* copy = bar->addMenu("&Copy");
  const auto put = [this](const QString& text) {
    desktop().clipboard.SetText(FromQt(text));
    desktop().window.Tell("Copied to the clipboard");
  };
  add(copy, "mnuCopyData", "&Received Data", [this, put] { put(received_->toPlainText()); });
  add(copy, "mnuCopyDetails", "Lines of the &Port", [this, put] { put(details_->toPlainText()); });
  add(copy, "mnuCopyBoth", "&Both",
      [this, put] { put(details_->toPlainText() + QLatin1Char('\n') + received_->toPlainText()); });
  QMenu* rates = bar->addMenu("R&ates");
  add(rates, "mnuAllBaudRates", "&All Baud Rates", [this] { ShowAllRates(); });
  layout()->setMenuBar(bar);
}

void frmCommsInfo::ShowAllRates() {
  for (const char* rate : kOtherRates) {
    if (rate_->findText(rate) < 0) rate_->addItem(rate);
  }
  desktop().messages.Show(kAllRatesShown, MessageIcon::kInformation);
}

bool frmCommsInfo::Connected() const {
  const LinkState& link = desktop().program.link;
  return link.gps_enabled || link.ais_enabled;
}

void frmCommsInfo::ListPorts() {
  std::vector<int> present;
  for (const PortSource& source : desktop().ports.Sources()) {
    if (source.present) present.push_back(source.port);
  }
  SetTextOf(*found_, present.empty() ? "No ports found" : Lines(PortReport(present)));
}

void frmCommsInfo::StartTest() {
  const std::optional<std::int16_t> port = PortOfText(port_->Text());
  if (!port) {
    Refuse(kNoPortSelected, false, port_);
    return;
  }
  const int baud_code = BaudCodeOfRate(FromQt(rate_->currentText()));
  if (baud_code < 0) {
    Refuse("Unsupported baud rate", false, rate_);
    return;
  }
  StopTest();
  SetTextOf(*found_, Lines(PortReport(ScanPorts(desktop().ports))));
  received_->Empty();
  watch_ = {};
  if (const Status opened = OpenPort(desktop().ports, *port, baud_code); !opened) {
    received_->Say(opened.error().Text());
    return;
  }
  tested_ = *port;
  Follow();
  stop_->setFocus();
}

void frmCommsInfo::StopTest() {
  if (tested_ < 0) return;
  desktop().ports.Done(tested_);
  tested_ = -1;
}

void frmCommsInfo::Follow() {
  const bool had_focus = stop_->hasFocus();
  test_->setEnabled(tested_ < 0 && !Connected());
  stop_->setEnabled(tested_ >= 0);
  if (had_focus && tested_ < 0) test_->setFocus();
  if (tested_ >= 0) TestTick();
  std::string lost = Connected() ? "A port can be tested while neither GPS nor AIS is connected.\n"
                                 : watch_.Text() + "\n";
  if (tested_ >= 0) {
    lost += "Lost in this test: " + std::to_string(desktop().ports.Lost(tested_)) + " bytes";
  } else if (Connected()) {
    lost += "Lost: " + LostReport(desktop().program, desktop().ports);
  }
  SetTextOf(*lost_, ToQt(lost).trimmed());
}

void frmCommsInfo::TestTick() {
  if (Connected()) return StopTest();  // It closed the port.
  const std::string text = ReadAllAndClear(desktop().ports, tested_);
  std::string none;
  if (text.empty() && desktop().ports.Get(tested_, none, 0) < 0) {
    received_->Say("The port has gone");
    return StopTest();
  }
  received_->Add(text);
  watch_.Take(text);
  KeepRaw(text);
  SetTextOf(*details_, Lines(TestReportHead(static_cast<int>(text.size()), 0) +
                             LineStateReport(desktop().ports, tested_)));
}

void frmCommsInfo::StartRawLog(bool on) {
  log_path_.clear();
  log_name_->setEnabled(!on);
  if (!on) return;
  const Program& program = desktop().program;
  const std::string name = LogFileNameOf(FromQt(log_name_->text()), program.clock->Now());
  log_name_->setText(ToQt(name));
  log_path_ = LogPath(program.folders.Tracks(), name);
}

void frmCommsInfo::KeepRaw(const std::string& text) {
  if (log_path_.empty() || text.empty()) return;
  if (AppendToFile(log_path_, text)) return;
  received_->Say(kRawLogFailed);
  raw_log_->setChecked(false);
  StartRawLog(false);
}

void frmCommsInfo::ShowSystemInformation() {
  for (const InformationProgram& program : kInformationPrograms) {
    const QString path = QStandardPaths::findExecutable(program.name);
    if (path.isEmpty()) continue;
    const QStringList arguments =
        program.argument == nullptr ? QStringList() : QStringList(program.argument);
    if (QProcess::startDetached(path, arguments)) return;
  }
  desktop().messages.Show(kNoSystemInformation, MessageIcon::kInformation);
}

void frmCommsInfo::done(int result) {
  StopTest();
  LiveDialog::done(result);
}

}  // namespace skerrow
