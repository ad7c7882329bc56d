#include "ui/instruments/frmAISGPSConfig.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <algorithm>

#include "instruments/serial_link.h"
#include "ui/forms/link_form.h"
#include "ui/widgets/key_action.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

QFormLayout* MakeForm(QGroupBox* box) {
  auto* form = new QFormLayout(box);
  form->setHorizontalSpacing(12);
  form->setVerticalSpacing(7);
  form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  return form;
}

// Boxes in two columns.
QWidget* MakePage(std::initializer_list<QWidget*> left, std::initializer_list<QWidget*> right) {
  auto* page = new QWidget;
  auto* columns = new QHBoxLayout(page);
  columns->setSpacing(12);
  for (const auto& boxes : {left, right}) {
    auto* column = MakeColumn();
    column->setSpacing(12);
    for (QWidget* box : boxes) column->addWidget(box);
    column->addStretch(1);
    columns->addLayout(column, 1);
  }
  return page;
}

}  // namespace

frmAISGPSConfig::frmAISGPSConfig(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmAISGPSConfig", "Instruments (GPS & AIS)", parent),
      controls_(InstrumentFields(), desktop.messages),
      pages_(new QTabWidget),
      gps_port_(new PortBox(desktop.ports, "cmbGPSPort")),
      ais_port_(new PortBox(desktop.ports, "cmbAISPort")),
      gps_type_(Named<QComboBox>("cmbGPSType")),
      interval_(Named<QComboBox>("cmbGPSInterval")),
      save_(Named<QCheckBox>("chkNmeaLogOn", "&Save data to disk")),
      standard_(Named<QCheckBox>("chkStandardAIS", QString::fromUtf8(kStandardAisCaption))),
      sound_(Named<QCheckBox>("chkAlarmSound", "Alarm so&und")),
      sources_(Named<QListWidget>("lstSources")),
      source_(Named<QLineEdit>("txtSource")),
      remove_(Named<QPushButton>("cmdRemoveSource", "Re&move")) {
  auto* ports = new QWidget;
  auto* columns = new QHBoxLayout(ports);
  columns->setSpacing(12);
  columns->addWidget(MakePorts(), 1);
  columns->addWidget(MakeSources(), 1);
  pages_->addTab(ports, "&Ports");
  pages_->addTab(
      MakePage({controls_.MakeBox(
                    "Boat", {"cmbAheadVector", "cmbBoatLineWidth", "pctGPSCol", "chkGPSCentre"}),
                controls_.MakeBox("Tide", {"chkBoatFutureTidePlot", "cmbAheadIntervals"})},
               {controls_.MakeBox("Range rings", {"chkEnableRings", "cmbVHFRange", "cmbRadarRange",
                                                  "cmbHorizion"}),
                controls_.MakeBox("Tracks", {"chktracklayer", "chkcomments"})}),
      "&Boat");
  QGroupBox* alarm = controls_.MakeBox("Close approach", {"cmbCPAAlarm"});
  sound_->setToolTip("When a vessel first comes under the range; silent while the boat is moored");
  qobject_cast<QFormLayout*>(alarm->layout())->addRow(sound_);
  QGroupBox* decoding = new QGroupBox("Decoding");
  QFormLayout* decoding_form = MakeForm(decoding);
  decoding_form->addRow(standard_);
  decoding_form->addRow(MakeHint(QString::fromUtf8(kStandardAisMeaning)));
  pages_->addTab(
      MakePage({alarm, controls_.MakeBox("Vessels shown", {"cmbAISSpeed", "chkDisplayAISAsBoat",
                                                           "chkAISHeadingVector", "chkAISHistTrack",
                                                           "chkAISPredTrack"})},
               {controls_.MakeBox("Look", {"cmbAISLineWidth", "pctClassACol", "pctClassBCol"}),
                decoding}),
      "&Vessels");
  pages_->addTab(MakeLabels(), "&Text beside vessels");
  body()->addWidget(pages_, 1);
  setTabOrder(ais_port_, through_);

  QPushButton* ok = AddButton("cmdOK", "OK");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  AppConfig config = desktop.program.config;
  (void)ReadConfig(desktop.program.folders, config);
  Show(InstrumentSettingsOf(config, desktop.settings));
  FillSources();
  gps_port_->setFocus();
  resize(760, 430);
}

QWidget* frmAISGPSConfig::MakePorts() {
  auto* page = new QWidget;
  auto* rows = new QVBoxLayout(page);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(12);
  auto* gps = new QGroupBox("GPS");
  QFormLayout* gps_form = MakeForm(gps);
  for (const GpsType& type : kGpsTypes) gps_type_->addItem(ToQt(type.text));
  gps_form->addRow(MakeLabel("&GPS port:", gps_port_), gps_port_);
  gps_form->addRow(MakeLabel("GPS t&ype:", gps_type_), gps_type_);
  rows->addWidget(gps);
  // The row of the table stands with the port that it is about.
  QGroupBox* ais = controls_.MakeBox("AIS", {"chkGPSThroAIS"});
  auto* ais_form = qobject_cast<QFormLayout*>(ais->layout());
  ais_form->insertRow(0, MakeLabel("&AIS port:", ais_port_), ais_port_);
  through_ = ais->findChild<QCheckBox*>("chkGPSThroAIS");
  const LinkState& link = desktop().program.link;
  if (link.gps_enabled || link.ais_enabled) {
    through_->setEnabled(false);
    through_->setToolTip("Disable GPS and AIS before this is changed");
  }
  connect(through_, &QCheckBox::toggled, this, [this] { ShowInput(); });
  rows->addWidget(ais);
  auto* log = new QGroupBox("Log");
  QFormLayout* log_form = MakeForm(log);
  for (const LogInterval& interval : kLogIntervals) interval_->addItem(ToQt(interval.text));
  log_form->addRow(MakeLabel("GPS Recording &Interval:", interval_), interval_);
  log_form->addRow(save_);
  rows->addWidget(log);
  rows->addStretch(1);
  return page;
}

QWidget* frmAISGPSConfig::MakeSources() {
  auto* box = new QGroupBox("Ports and network sources");
  auto* rows = new QVBoxLayout(box);
  rows->setSpacing(7);
  sources_->setAccessibleName("Ports and network sources");
  rows->addWidget(sources_, 1);
  auto* line = new QHBoxLayout;
  line->setSpacing(8);
  source_->setPlaceholderText("TCP 192.168.1.5:10110");
  source_->setAccessibleName("A new network source");
  auto* add = Named<QPushButton>("cmdAddSource", "A&dd");
  for (QPushButton* button : {add, remove_}) button->setAutoDefault(false);
  line->addWidget(source_, 1);
  line->addWidget(add);
  line->addWidget(remove_);
  rows->addLayout(line);
  rows->addWidget(
      MakeHint("\"TCP host:port\" for a server, \"UDP port\" for what is broadcast in the boat's "
               "network, or the path of a device."));
  connect(add, &QPushButton::clicked, this, [this] { AddSource(); });
  connect(remove_, &QPushButton::clicked, this, [this] { RemoveSource(); });
  connect(sources_, &QListWidget::itemSelectionChanged, this,
          [this] { remove_->setEnabled(!sources_->selectedItems().isEmpty()); });
  KeyAction::Install(source_, Qt::Key_Return, [this] { AddSource(); });
  KeyAction::Install(sources_, Qt::Key_Delete, [this] { RemoveSource(); });
  return box;
}

QWidget* frmAISGPSConfig::MakeLabels() {
  auto* box = new QGroupBox("Lines of text beside a vessel");
  QFormLayout* form = MakeForm(box);
  for (std::size_t i = 0; i < kLabelPlaces; ++i) {
    labels_[i] = Named<QComboBox>(("cmbAISLine" + std::to_string(i + 1)).c_str());
    for (const std::string_view item : kLabelItems) labels_[i]->addItem(ToQt(item));
    const QString place = i == 0                  ? "AIS Target &uppermost line of data:"
                          : i + 1 == kLabelPlaces ? "AIS Target &lowest line of data:"
                                                  : QString("Line &%1:").arg(i + 1);
    form->addRow(MakeLabel(place, labels_[i]), MakeRow({labels_[i]}));
  }
  form->addRow(MakeHint("NONE leaves a line away, without a gap."));
  return MakePage({box}, {});
}

void frmAISGPSConfig::Show(const InstrumentSettings& shown) {
  controls_.Show(shown.texts);
  gps_port_->Select(PortOfText(shown.gps_port).value_or(0));
  ais_port_->Select(PortOfText(shown.ais_port).value_or(0));
  gps_type_->setCurrentIndex(static_cast<int>(shown.gps_type));
  interval_->setCurrentIndex(static_cast<int>(shown.interval));
  save_->setChecked(shown.save);
  standard_->setChecked(shown.standard_ais);
  sound_->setChecked(shown.alarm_sound);
  for (std::size_t i = 0; i < kLabelPlaces; ++i) {
    labels_[i]->setCurrentIndex(static_cast<int>(shown.labels[i]));
  }
  ShowInput();
}

InstrumentSettings frmAISGPSConfig::Shown() const {
  const auto index = [](const QComboBox* list) {
    return static_cast<std::size_t>(std::max(list->currentIndex(), 0));
  };
  InstrumentSettings shown;
  shown.texts = controls_.Texts();
  shown.gps_port = gps_port_->Text();
  shown.ais_port = ais_port_->Text();
  shown.gps_type = index(gps_type_);
  shown.interval = index(interval_);
  shown.save = save_->isChecked();
  shown.standard_ais = standard_->isChecked();
  shown.alarm_sound = sound_->isChecked();
  for (std::size_t i = 0; i < kLabelPlaces; ++i) shown.labels[i] = index(labels_[i]);
  return shown;
}

// The GPS port is not read where the GPS comes through the AIS.
void frmAISGPSConfig::ShowInput() { gps_port_->setEnabled(!through_->isChecked()); }

void frmAISGPSConfig::FillSources() {
  sources_->clear();
  for (const PortSource& source : desktop().ports.Sources()) {
    auto* item = new QListWidgetItem(ToQt(source.text + (source.present ? "" : ", not plugged in")),
                                     sources_);
    item->setData(Qt::UserRole, source.port);
  }
  remove_->setEnabled(false);
}

void frmAISGPSConfig::AddSource() {
  const Result<int> added = desktop().ports.AddSource(FromQt(source_->text()));
  if (!added) {
    Refuse(added.error().Text(), false, source_);
    return;
  }
  source_->clear();
  FillSources();
  for (int row = 0; row < sources_->count(); ++row) {
    if (sources_->item(row)->data(Qt::UserRole).toInt() == *added) sources_->setCurrentRow(row);
  }
}

void frmAISGPSConfig::RemoveSource() {
  const QListWidgetItem* item = sources_->currentItem();
  if (item == nullptr) return;
  const int port = item->data(Qt::UserRole).toInt();
  const LinkState& link = desktop().program.link;
  if (port == link.gps.number || port == link.ais.number) {
    Refuse("This port is connected", false, sources_);
    return;
  }
  if (const Status removed = desktop().ports.RemoveSource(port); !removed) {
    Refuse(removed.error().Text(), false, sources_);
    return;
  }
  FillSources();
  sources_->setFocus();
}

void frmAISGPSConfig::Accept() {
  const InstrumentSettings shown = Shown();
  AppConfig changed = desktop().program.config;
  if (const auto refusal = TakeInstrumentSettings(shown, changed)) {
    QWidget* field = refusal->row == kGpsPortRow   ? gps_port_
                     : refusal->row == kAisPortRow ? ais_port_
                                                   : controls_.control(refusal->row);
    for (int page = 0; page < pages_->count(); ++page) {
      if (pages_->widget(page)->isAncestorOf(field)) pages_->setCurrentIndex(page);
    }
    Refuse(refusal->text, false, field);
    return;
  }
  const Status saved = CommitInstrumentSettings(desktop().program, desktop().settings, shown);
  if (!saved) desktop().messages.Show(saved.error().Text(), MessageIcon::kWarning);
  accept();
  desktop().window.Changed(kSettingsChanged | kTargetsChanged);
}

}  // namespace skerrow
