#include "ui/instruments/link_dialog.h"

#include <QFormLayout>
#include <QGroupBox>
#include <algorithm>

#include "instruments/log.h"
#include "instruments/plot_file.h"
#include "instruments/serial_link.h"
#include "ui/widgets/live_dialog.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr int kTestInterval = 100;  // ms

// A log's name as the box of the name has it.
QString WithoutEnding(const std::string& file) {
  return ToQt(std::string_view(file).substr(0, file.rfind('.')));
}

}  // namespace

LinkDialog::LinkDialog(Desktop& desktop, const char* name, const QString& title, LinkKind kind,
                       QWidget* parent)
    : Dialog(desktop, name, title, parent),
      kind_(kind),
      port_(new PortBox(desktop.ports, "cmbPort")),
      type_(Named<QComboBox>("cmbGPSType")),
      standard_(Named<QCheckBox>("chkStandardAIS", QString::fromUtf8(kStandardAisCaption))),
      save_(Named<QCheckBox>("chkNmeaLogOn", "&Save data to disk")),
      name_(Named<QLineEdit>("txtFileName")),
      logs_(new TextList(desktop.clipboard, "fillist")),
      test_(Named<QPushButton>("cmdTest", "&Test Port")),
      stop_(Named<QPushButton>("cmdCancelTest", "Sto&p Test")),
      received_(new ReceivedBox("txtNMEA")),
      verdict_(Named<QLabel>("lblTest")) {
  auto* columns = new QHBoxLayout;
  columns->setSpacing(12);
  auto* left = MakeColumn();
  left->setSpacing(12);
  left->addWidget(MakePortBox());
  left->addWidget(MakeLogBox(), 1);
  columns->addLayout(left, 2);
  columns->addWidget(MakeTestBox(), 3);
  body()->addLayout(columns, 1);

  QPushButton* ok = AddButton("cmdOK", "OK");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(test_, &QPushButton::clicked, this, [this] { StartTest(); });
  connect(stop_, &QPushButton::clicked, this, [this] { StopTest(); });
  connect(logs_, &QListWidget::itemSelectionChanged, this, [this] {
    const std::vector<std::string> selected = logs_->SelectedLines();
    if (!selected.empty()) name_->setText(WithoutEnding(selected.front()));
  });
  timer_.setInterval(kTestInterval);
  connect(&timer_, &QTimer::timeout, this, [this] { TestTick(); });

  const LinkEntry entry = LinkEntryOf(desktop.program, desktop.settings, kind);
  port_->Select(PortOfText(entry.port).value_or(0));
  type_->setCurrentIndex(static_cast<int>(entry.gps_type));
  standard_->setChecked(entry.standard_ais);
  save_->setChecked(entry.save);
  name_->setText(ToQt(entry.log_name));
  port_->setFocus();
  resize(820, 460);
}

LinkDialog::~LinkDialog() { StopTest(); }

QWidget* LinkDialog::MakePortBox() {
  auto* box = new QGroupBox(kind_ == LinkKind::kGps ? "GPS" : "AIS");
  auto* form = new QFormLayout(box);
  form->setHorizontalSpacing(12);
  form->setVerticalSpacing(7);
  form->addRow(MakeLabel("P&ort:", port_), port_);
  type_->setParent(box);
  standard_->setParent(box);
  type_->setVisible(kind_ == LinkKind::kGps);
  standard_->setVisible(kind_ == LinkKind::kAis);
  if (kind_ == LinkKind::kGps) {
    for (const GpsType& type : kGpsTypes) type_->addItem(ToQt(type.text));
    form->addRow(MakeLabel("T&ype:", type_), type_);
  } else {
    form->addRow(standard_);
    form->addRow(MakeHint(QString::fromUtf8(kStandardAisMeaning)));
  }
  return box;
}

QWidget* LinkDialog::MakeLogBox() {
  auto* box = new QGroupBox("Log");
  auto* rows = new QVBoxLayout(box);
  rows->setSpacing(7);
  rows->addWidget(save_);
  auto* name = new QHBoxLayout;
  name->setSpacing(8);
  name->addWidget(MakeLabel("&Name:", name_));
  name->addWidget(name_, 1);
  name->addWidget(new QLabel(ToQt(kLogEnding)));
  name_->setPlaceholderText("Today's date");
  name_->setToolTip("The log and the track of this name are gone on with");
  rows->addLayout(name);
  rows->addWidget(MakeLabel("&Logs that are there:", logs_));
  logs_->setSelectionMode(QAbstractItemView::SingleSelection);
  logs_->SetLines(ListTracks(desktop().program.folders.Tracks(), TrackKind::kLog));
  rows->addWidget(logs_, 1);
  return box;
}

QWidget* LinkDialog::MakeTestBox() {
  auto* box = new QGroupBox("Test");
  auto* rows = new QVBoxLayout(box);
  rows->setSpacing(7);
  for (QPushButton* button : {test_, stop_}) button->setAutoDefault(false);
  rows->addLayout(MakeRow({test_, stop_}));
  received_->setAccessibleName("What the port sends");
  rows->addWidget(received_, 1);
  verdict_->setWordWrap(true);
  rows->addWidget(verdict_);
  // A test closes all ports.
  const LinkState& link = desktop().program.link;
  const bool connected = link.gps_enabled || link.ais_enabled;
  test_->setEnabled(!connected);
  stop_->setEnabled(false);
  verdict_->setText(connected ? "A port can be tested while neither GPS nor AIS is connected."
                              : "The text that comes shows whether port and type are right.");
  return box;
}

LinkEntry LinkDialog::Entry() const {
  LinkEntry entry;
  entry.port = port_->Text();
  entry.gps_type = static_cast<std::size_t>(std::max(type_->currentIndex(), 0));
  entry.save = save_->isChecked();
  entry.log_name = FromQt(name_->text());
  entry.standard_ais = standard_->isChecked();
  return entry;
}

void LinkDialog::StartTest() {
  const LinkEntry entry = Entry();
  const std::optional<std::int16_t> port = PortOfText(entry.port);
  if (!port) {
    Refuse(kNoPortSelected, false, port_);
    return;
  }
  StopTest();
  CloseAllPorts(desktop().ports);
  received_->Empty();
  watch_ = {};
  if (const Status opened = OpenPort(desktop().ports, *port, BaudCodeOf(entry, kind_)); !opened) {
    verdict_->setText("The port cannot be opened: " + ToQt(opened.error().Text()));
    return;
  }
  tested_ = *port;
  test_->setEnabled(false);
  stop_->setEnabled(true);
  stop_->setFocus();
  verdict_->setText(ToQt(watch_.Text()));
  timer_.start();
}

void LinkDialog::StopTest() {
  timer_.stop();
  if (tested_ < 0) return;
  desktop().ports.Done(tested_);
  tested_ = -1;
  const bool had_focus = stop_->hasFocus();
  test_->setEnabled(true);
  stop_->setEnabled(false);
  if (had_focus) test_->setFocus();
}

void LinkDialog::TestTick() {
  const std::string text = ReadAllAndClear(desktop().ports, tested_);
  std::string none;
  if (text.empty() && desktop().ports.Get(tested_, none, 0) < 0) {
    StopTest();
    verdict_->setText("The port has gone.");
    return;
  }
  received_->Add(text);
  watch_.Take(text);
  SetTextOf(*verdict_, ToQt(watch_.Text()));
}

void LinkDialog::Accept() {
  const LinkOutcome outcome =
      CommitLink(desktop().program, desktop().settings, Entry(), kind_, desktop().messages);
  if (outcome.refusal == LinkRefusal::kNoPort) {
    Refuse(kNoPortSelected, false, port_);
    return;
  }
  if (!outcome.saved) {
    desktop().messages.Show(outcome.saved.error().Text(), MessageIcon::kWarning);
  }
  accept();
}

void LinkDialog::done(int result) {
  StopTest();
  Dialog::done(result);
}

}  // namespace skerrow
