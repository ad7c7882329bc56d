#include "ui/tides/frmharmedit.h"

#include <QGridLayout>
#include <QGroupBox>
#include <algorithm>

#include "core/numbers.h"
#include "core/text.h"
#include "tides/tidal_files.h"
#include "ui/dialogs/report_write.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr int kLongestNumber = 5;
constexpr int kLongestName = 31;
// The published names of the boxes of kPortNumbers.
constexpr std::array<const char*, kPortNumbers.size()> kNumberBoxes = {
    "txtz0",  "txtm2g",  "txtm2hm", "txts2g", "txts2hm", "txtk1g", "txtk1hm",
    "txto1g", "txto1hm", "txtsf4",  "txtlf4", "txtsf6",  "txtlf6"};
constexpr std::size_t kM2hm = 2;  // in that list
constexpr std::array<const char*, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::string MonthBox(std::size_t month, const char* ending) {
  return "txt" + ToLowerAscii(kMonths[month]) + ending;
}

}  // namespace

frmharmedit::frmharmedit(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmharmedit", "Harmonic Constants", parent),
      files_(Named<QListWidget>("fileList")),
      list_(Named<QListWidget>("portlist")),
      number_(Named<QLineEdit>("txtportno")),
      name_(Named<QLineEdit>("txtportname")),
      latitude_(MakeLatitudeEdit(desktop.messages, "txtportlat")),
      longitude_(MakeLongitudeEdit(desktop.messages, "txtportlong")),
      zone_(MakeNumber("txtTimeZone")) {
  for (std::size_t i = 0; i < numbers_.size(); ++i) numbers_[i] = MakeNumber(kNumberBoxes[i]);
  for (std::size_t month = 0; month < 12; ++month) {
    delta_z0_[month] = MakeNumber(MonthBox(month, "dz0").c_str());
    mhm2_[month] = MakeNumber(MonthBox(month, "m2").c_str());
  }
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  columns->addWidget(MakeLists(), 1);
  auto* middle = new QVBoxLayout;
  middle->setSpacing(10);
  middle->addWidget(MakePort());
  middle->addWidget(MakeConstituents());
  middle->addStretch(1);
  columns->addLayout(middle);
  auto* right = new QVBoxLayout;
  right->addWidget(MakeMonths());
  right->addStretch(1);
  columns->addLayout(right);
  body()->addLayout(columns, 1);
  MakeButtons();

  // Queued, so that a list has taken its click whole when the question puts the selection back.
  connect(
      files_, &QListWidget::currentRowChanged, this, [this] { OpenFile(files_->currentRow()); },
      Qt::QueuedConnection);
  connect(
      list_, &QListWidget::currentRowChanged, this, [this] { ChoosePort(list_->currentRow()); },
      Qt::QueuedConnection);
  connect(files_, &QListWidget::itemDoubleClicked, this, [this] {
    if (!MayDrop()) return;
    ShowEntry({});
    file_row_ = -1;
    OpenFile(files_->currentRow());
  });
  // The year's amplitude goes to all months, January's to the year. Only what was typed does, so
  // that passing through a field changes nothing.
  FilteredEdit* m2 = numbers_[kM2hm];
  connect(m2, &QLineEdit::editingFinished, this, [this, m2] {
    if (!m2->isModified()) return;
    m2->setModified(false);
    for (FilteredEdit* month : mhm2_) month->setText(m2->text());
  });
  connect(mhm2_[0], &QLineEdit::editingFinished, this, [this, m2] {
    if (!mhm2_[0]->isModified()) return;
    mhm2_[0]->setModified(false);
    m2->setText(mhm2_[0]->text());
  });
  ListFiles();
  list_->setFocus();
  resize(980, 560);
}

FilteredEdit* frmharmedit::MakeNumber(const char* name) {
  auto* box = new FilteredEdit(KeyFilter::kSignedNumber, desktop().messages, name);
  box->SetColumns(7);
  box->setMaxLength(16);
  return box;
}

QWidget* frmharmedit::MakeLists() {
  auto* side = new QWidget;
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(4);
  column->addWidget(MakeLabel("Area &files", files_));
  files_->setToolTip("A double click lists the file again");
  column->addWidget(files_, 1);
  column->addWidget(MakeLabel("&Ports", list_));
  column->addWidget(list_, 3);
  side->setMinimumWidth(170);
  return side;
}

QWidget* frmharmedit::MakePort() {
  auto* box = new QGroupBox("Port");
  auto* grid = new QGridLayout(box);
  number_->setMaxLength(kLongestNumber);
  number_->setToolTip("The port's number as text; nothing is looked up by it");
  name_->setMaxLength(kLongestName);
  grid->addWidget(MakeLabel("N&umber:", number_), 0, 0);
  grid->addWidget(number_, 0, 1);
  grid->addWidget(MakeLabel("&Name:", name_), 1, 0);
  grid->addWidget(name_, 1, 1, 1, 3);
  grid->addWidget(MakeLabel("&Latitude:", latitude_), 2, 0);
  grid->addWidget(latitude_, 2, 1);
  grid->addWidget(MakeLabel("Lon&gitude:", longitude_), 2, 2);
  grid->addWidget(longitude_, 2, 3);
  grid->addWidget(MakeHint("Enter coordinates as  50.45.00N   001.23.00W"), 3, 0, 1, 4);
  grid->addWidget(MakeLabel("&Time zone:", zone_), 4, 0);
  zone_->setToolTip("Whole hours, -11 to 11; anything else is stored as 0");
  grid->addLayout(MakeRow({zone_, new QLabel("h")}), 4, 1);
  grid->addWidget(MakeLabel("&Z0:", numbers_[0]), 4, 2);
  numbers_[0]->setToolTip("Mean level above chart datum, metres");
  grid->addLayout(MakeRow({numbers_[0], new QLabel("m")}), 4, 3);
  return box;
}

QWidget* frmharmedit::MakeConstituents() {
  auto* box = new QGroupBox("Constituents");
  auto* grid = new QGridLayout(box);
  constexpr std::array<const char*, 4> kNames = {"&M2", "&S2", "&K1", "&O1"};
  grid->addWidget(new QLabel(QStringLiteral("g, \u00b0")), 0, 1);
  grid->addWidget(new QLabel("H, m"), 0, 2);
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    const int row = static_cast<int>(i) + 1;
    FilteredEdit* g = numbers_[1 + 2 * i];
    FilteredEdit* h = numbers_[2 + 2 * i];
    g->setToolTip("Phase lag, degrees");
    h->setToolTip(i == 0 ? "Amplitude, metres; goes to all twelve months" : "Amplitude, metres");
    grid->addWidget(MakeLabel(kNames[i], g), row, 0);
    grid->addWidget(g, row, 1);
    grid->addWidget(h, row, 2);
  }
  constexpr std::array<const char*, 2> kShallow = {"f&4", "f&6"};
  grid->addWidget(new QLabel(QStringLiteral("f, \u00b0")), 0, 4);
  grid->addWidget(new QLabel("F"), 0, 5);
  for (std::size_t i = 0; i < kShallow.size(); ++i) {
    const int row = static_cast<int>(i) + 1;
    FilteredEdit* phase = numbers_[9 + 2 * i];
    FilteredEdit* factor = numbers_[10 + 2 * i];
    phase->setToolTip("Phase of the shallow water correction, degrees");
    factor->setToolTip("Factor of the shallow water correction");
    grid->addWidget(MakeLabel(kShallow[i], phase), row, 3);
    grid->addWidget(phase, row, 4);
    grid->addWidget(factor, row, 5);
  }
  grid->setColumnMinimumWidth(3, 34);
  return box;
}

QWidget* frmharmedit::MakeMonths() {
  auto* box = new QGroupBox("Months");
  auto* grid = new QGridLayout(box);
  grid->addWidget(new QLabel(QStringLiteral("\u0394Z0, m")), 0, 1);
  grid->addWidget(new QLabel("M2, m"), 0, 2);
  grid->setVerticalSpacing(3);
  for (std::size_t month = 0; month < 12; ++month) {
    const int row = static_cast<int>(month) + 1;
    delta_z0_[month]->setToolTip("Seasonal change of Z0, metres");
    mhm2_[month]->setToolTip(month == 0 ? "Amplitude of M2, metres; goes to M2 too"
                                        : "Amplitude of M2, metres");
    grid->addWidget(new QLabel(kMonths[month]), row, 0);
    grid->addWidget(delta_z0_[month], row, 1);
    grid->addWidget(mhm2_[month], row, 2);
  }
  // Down the column of a kind, as the figures are published.
  for (std::size_t month = 1; month < 12; ++month) {
    QWidget::setTabOrder(delta_z0_[month - 1], delta_z0_[month]);
  }
  QWidget::setTabOrder(delta_z0_[11], mhm2_[0]);
  for (std::size_t month = 1; month < 12; ++month) {
    QWidget::setTabOrder(mhm2_[month - 1], mhm2_[month]);
  }
  return box;
}

void frmharmedit::MakeButtons() {
  QPushButton* add = AddLeftButton("cmdAdd", "A&dd", "Appends these values as a new port");
  QPushButton* insert =
      AddLeftButton("cmdInsert", "&Insert", "Puts these values before the selected port");
  QPushButton* remove = AddLeftButton("cmdDelete", "Delet&e", "Removes the selected port");
  QPushButton* clear = AddLeftButton("cmdClear", "&Clear", "Empties all fields");
  QPushButton* accept =
      AddButton("chartok", "&Accept", "Writes these values into the selected port");
  accept->setDefault(true);
  QPushButton* close = AddButton("cmdCancel", "Close");
  connect(add, &QPushButton::clicked, this, [this] { Add(); });
  connect(insert, &QPushButton::clicked, this, [this] { Insert(); });
  connect(remove, &QPushButton::clicked, this, [this] { Delete(); });
  connect(clear, &QPushButton::clicked, this, [this] {
    for (QLineEdit* box : findChildren<QLineEdit*>()) box->clear();
    number_->setFocus();
  });
  connect(accept, &QPushButton::clicked, this, [this] { Accept(); });
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

void frmharmedit::ListFiles() {
  {
    const QSignalBlocker quiet(files_);
    for (const std::string& name : ListTidalFiles(desktop().program.folders, ".hc")) {
      files_->addItem(ToQt(name));
      if (files_->count() == 1 || InUse(desktop().program, name)) {
        files_->setCurrentRow(files_->count() - 1);
      }
    }
  }
  OpenFile(files_->currentRow());
}

void frmharmedit::OpenFile(int row) {
  if (row == file_row_) return;
  if (!MayDrop()) {
    files_->setCurrentRow(file_row_);
    return;
  }
  file_row_ = row;
  editor_.reset();
  int port = 0;
  if (row >= 0) {
    const Program& program = desktop().program;
    Result<PortEditor> opened =
        PortEditor::Open(program.folders, FromQt(files_->item(row)->text()));
    if (opened) {
      editor_ = std::move(opened.value());
      TellLeftOut(editor_->path(), editor_->left_out(), desktop().messages);
      if (InUse(program, editor_->file_name())) port = program.config.tide_port_number - 1;
    } else {
      desktop().messages.Show(opened.error().Text(), MessageIcon::kWarning);
    }
  }
  ShowPorts(port);
}

void frmharmedit::ShowPorts(int selected) {
  {
    const QSignalBlocker quiet(list_);
    list_->clear();
    if (editor_) {
      for (const std::string& name : editor_->Names()) list_->addItem(ToQt(name));
    }
    list_->setCurrentRow(std::clamp(selected, 0, std::max(0, list_->count() - 1)));
  }
  port_row_ = -1;
  shown_ = {};
  if (list_->currentRow() >= 0) {
    ChoosePort(list_->currentRow());
  } else {
    ShowEntry({});
  }
}

void frmharmedit::ChoosePort(int row) {
  if (row == port_row_ || !editor_ || row < 0) return;
  if (port_row_ >= 0 && !MayDrop()) {
    const QSignalBlocker quiet(list_);
    list_->setCurrentRow(port_row_);
    return;
  }
  port_row_ = row;
  const std::optional<Port>& port = editor_->ports()[static_cast<std::size_t>(row)];
  ShowEntry(port ? EntryOf(*port) : PortEntry{});
}

void frmharmedit::ShowEntry(const PortEntry& entry) {
  number_->setText(ToQt(entry.number));
  name_->setText(ToQt(entry.name));
  latitude_->SetText(entry.latitude);
  longitude_->SetText(entry.longitude);
  zone_->SetText(entry.time_zone);
  for (std::size_t i = 0; i < numbers_.size(); ++i) numbers_[i]->SetText(entry.numbers[i]);
  for (std::size_t i = 0; i < 12; ++i) {
    delta_z0_[i]->SetText(entry.delta_z0[i]);
    mhm2_[i]->SetText(entry.mhm2[i]);
  }
  shown_ = Entry();
}

PortEntry frmharmedit::Entry() const {
  PortEntry entry;
  entry.number = FromQt(number_->text());
  entry.name = FromQt(name_->text());
  entry.latitude = latitude_->Text();
  entry.longitude = longitude_->Text();
  entry.time_zone = zone_->Text();
  for (std::size_t i = 0; i < numbers_.size(); ++i) entry.numbers[i] = numbers_[i]->Text();
  for (std::size_t i = 0; i < 12; ++i) {
    entry.delta_z0[i] = delta_z0_[i]->Text();
    entry.mhm2[i] = mhm2_[i]->Text();
  }
  return entry;
}

bool frmharmedit::MayDrop() {
  if (Entry() == shown_ || Entry() == PortEntry{}) return true;
  return desktop().messages.Ask("What is typed here is in no file yet. Leave it?");
}

std::optional<std::size_t> frmharmedit::Selected() {
  if (port_row_ >= 0) return static_cast<std::size_t>(port_row_);
  Refuse("Select a port of the list first.", false, list_);
  return std::nullopt;
}

std::optional<Port> frmharmedit::Built(const std::optional<Port>& before) {
  const Result<Port> port = BuildPort(Entry(), editor_.has_value(), before);
  if (port) return *port;
  const std::string text = port.error().Text();
  QWidget* field = !editor_                             ? static_cast<QWidget*>(files_)
                   : text == "Error - Latitude entry"   ? latitude_
                   : text == "Error - Longitude entry"  ? longitude_
                   : text == "Error - No port selected" ? static_cast<QWidget*>(name_)
                                                        : nullptr;
  Refuse(text, false, field);
  return std::nullopt;
}

void frmharmedit::Accept() {
  const std::optional<Port> before = editor_ && port_row_ >= 0
                                         ? editor_->ports()[static_cast<std::size_t>(port_row_)]
                                         : std::nullopt;
  const std::optional<Port> port = Built(before);
  if (!port) return;
  const std::optional<std::size_t> index = Selected();
  if (!index || !Written(editor_->Accept(*index, *port), desktop().messages)) return;
  AfterWrite(PortsChange::kInPlace, *index);
}

void frmharmedit::Add() {
  const std::optional<Port> port = Built(std::nullopt);
  if (!port) return;
  const std::size_t index = editor_->ports().size();
  if (!Written(editor_->Add(*port), desktop().messages)) return;
  AfterWrite(PortsChange::kAdded, index);
}

void frmharmedit::Insert() {
  const std::optional<Port> port = Built(std::nullopt);
  if (!port) return;
  const std::optional<std::size_t> index = Selected();
  if (!index) return;
  if (InUse(desktop().program, editor_->file_name()) &&
      !desktop().messages.Ask(InsertPortQuestion(*editor_, *index))) {
    return;
  }
  if (!Written(editor_->Insert(*index, *port), desktop().messages)) return;
  AfterWrite(PortsChange::kInserted, *index);
}

void frmharmedit::Delete() {
  if (!editor_) {
    static_cast<void>(Built(std::nullopt));
    return;
  }
  const std::optional<std::size_t> index = Selected();
  if (!index || !desktop().messages.Ask(DeletePortQuestion(desktop().program, *editor_, *index))) {
    return;
  }
  if (!Written(editor_->Delete(*index), desktop().messages)) return;
  AfterWrite(PortsChange::kDeleted, *index);
}

void frmharmedit::AfterWrite(PortsChange change, std::size_t index) {
  const std::string told =
      FollowPorts(desktop().program, desktop().messages, *editor_, change, index);
  ShowPorts(static_cast<int>(index));
  desktop().window.Tell(told.empty() ? "Saved: " + editor_->path() : told);
  desktop().window.Changed(kSettingsChanged | kViewChanged);
}

void frmharmedit::done(int result) {
  if (!MayDrop()) return;
  Dialog::done(result);
}

}  // namespace skerrow
