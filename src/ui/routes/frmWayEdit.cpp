#include "ui/routes/frmWayEdit.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QSignalBlocker>
#include <algorithm>

#include "ui/forms/report_look.h"
#include "ui/routes/frmNewWay.h"
#include "ui/routes/frmwaycopy.h"
#include "ui/widgets/key_action.h"
#include "ui/widgets/print_lines.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

QPushButton* MakeButton(const char* name, const QString& text, const QString& tip = {}) {
  auto* button = Named<QPushButton>(name, text);
  button->setAutoDefault(false);
  button->setToolTip(tip);
  return button;
}

}  // namespace

frmWayEdit::frmWayEdit(Desktop& desktop, QWidget* parent, const std::string& kept_file)
    : Dialog(desktop, "frmWayEdit", "Select a File to Edit", parent),
      work_(desktop.program.folders),
      files_(new FileList),
      entries_(new WaypointList("List1", WaypointEditText)),
      count_(Named<QLabel>("labelnoofpoints")),
      name_(Named<QLineEdit>("txtWayName")),
      latitude_(MakeLatitudeEdit(desktop.messages, "txtWayLat")),
      longitude_(MakeLongitudeEdit(desktop.messages, "txtWayLong")),
      print_all_(Named<QRadioButton>("optAll", "A&ll")),
      print_selected_(Named<QRadioButton>("optSelected", "Selecte&d")) {
  entries_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  name_->setMaxLength(35);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  columns->addWidget(MakeFileColumn(), 2);
  columns->addWidget(MakeEntryColumn(), 5);
  body()->addLayout(columns, 1);
  MakeButtons();
  files_->Fill(desktop.program.folders.Waypoints(), FileKind::kWaypoint);
  connect(files_, &QListWidget::itemSelectionChanged, this, [this] { ShowFile(); });
  connect(entries_, &QListWidget::itemDoubleClicked, this, [this] { LoadEntry(); });
  KeyAction::Install(entries_, Qt::Key_Return, [this] { LoadEntry(); });
  KeyAction::Install(entries_, Qt::Key_Delete, [this] { DeleteEntry(); });
  if (kept_file.empty()) {
    files_->Select(desktop.program.config.waypoint_file);
  } else {
    Open(kept_file, true);
  }
  entries_->setFocus();
  resize(820, 560);
}

QWidget* frmWayEdit::MakeFileColumn() {
  auto* column = new QWidget;
  auto* rows = new QVBoxLayout(column);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(6);
  rows->addWidget(MakeLabel("Waypoint &files", files_));
  rows->addWidget(files_, 1);
  QPushButton* create = MakeButton("cmdCreateNew", "Create &New", "Makes an empty waypoint file");
  QPushButton* copy = MakeButton("cmdCopy", "Cop&y", "Makes a file from waypoints of others");
  QPushButton* print = MakeButton("cmdPrint", "&Print", "Prints the rows of the list");
  auto* choices = new QHBoxLayout;
  choices->setSpacing(12);
  choices->addWidget(print_all_);
  choices->addWidget(print_selected_);
  choices->addStretch(1);
  print_all_->setChecked(true);
  for (QPushButton* button : {create, copy, print}) rows->addWidget(button);
  rows->addLayout(choices);
  connect(print, &QPushButton::clicked, this, [this] { Print(); });
  connect(create, &QPushButton::clicked, this, [this] { CreateNew(); });
  connect(copy, &QPushButton::clicked, this, [this] { Copy(); });
  return column;
}

QWidget* frmWayEdit::MakeEntryColumn() {
  auto* column = new QWidget;
  auto* rows = new QVBoxLayout(column);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(6);
  auto* head = new QHBoxLayout;
  head->addWidget(MakeLabel("Ent&ries", entries_), 1);
  head->addWidget(count_);
  rows->addLayout(head);
  rows->addWidget(entries_, 1);
  rows->addWidget(MakeEntryBox());
  return column;
}

QWidget* frmWayEdit::MakeEntryBox() {
  auto* box = new QGroupBox("Entry");
  auto* grid = new QGridLayout(box);
  grid->setHorizontalSpacing(8);
  grid->addWidget(MakeLabel("Na&me", name_), 0, 0);
  grid->addWidget(MakeLabel("Lat&itude", latitude_), 0, 1);
  grid->addWidget(MakeLabel("Lon&gitude", longitude_), 0, 2);
  grid->addWidget(name_, 1, 0);
  grid->addWidget(latitude_, 1, 1);
  grid->addWidget(longitude_, 1, 2);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  QPushButton* add =
      MakeButton("cmdAdd", "&Add New Point", "Puts the entry at the end of the list (Enter)");
  QPushButton* insert =
      MakeButton("cmdInsert", "Ins&ert Entry", "Puts the entry before the highlighted row");
  QPushButton* change = MakeButton("cmdChange", "&Change Entry", "Replaces the highlighted row");
  QPushButton* remove = MakeButton("cmdDelete", "Dele&te Entry", "Removes the highlighted row");
  for (QPushButton* button : {add, insert, change, remove}) buttons->addWidget(button, 1);
  grid->addLayout(buttons, 2, 0, 1, 3);
  QLabel* hint = MakeHint("Double-click a row to bring it into the boxes.");
  grid->addWidget(hint, 3, 0, 1, 3);
  grid->setColumnStretch(0, 1);
  connect(add, &QPushButton::clicked, this, [this] { AddPoint(); });
  connect(insert, &QPushButton::clicked, this, [this] { InsertEntry(); });
  connect(change, &QPushButton::clicked, this, [this] { ChangeEntry(); });
  connect(remove, &QPushButton::clicked, this, [this] { DeleteEntry(); });
  auto* enter = new KeyAction(this, Qt::Key_Return, [this] { AddPoint(); });
  for (QLineEdit* edit : box->findChildren<QLineEdit*>()) edit->installEventFilter(enter);
  return box;
}

void frmWayEdit::MakeButtons() {
  QPushButton* save = AddButton("cmdSave", "&Save && Exit");
  save->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(save, &QPushButton::clicked, this, [this] { SaveAndExit(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

bool frmWayEdit::MayLeaveFile() {
  return !work_.changed() ||
         desktop().messages.Ask("Leave " + work_.file_name() +
                                " without saving the changes to its waypoints?");
}

void frmWayEdit::Open(const std::string& file_name, bool kept) {
  if (const Status opened = work_.Open(file_name, desktop().messages, kept); !opened) {
    desktop().messages.Show(opened.error().Text(), MessageIcon::kWarning);
  }
  const QSignalBlocker quiet(files_);
  files_->Select(work_.file_name());
  Refresh(work_.rows().size());
}

void frmWayEdit::ShowFile() {
  const std::string name = files_->Selected();
  if (name.empty() || name == work_.file_name()) return;
  if (MayLeaveFile()) {
    Open(name, false);
  } else {
    const QSignalBlocker quiet(files_);
    files_->Select(work_.file_name());
  }
}

void frmWayEdit::Refresh(std::size_t select) {
  entries_->SetRows(work_.rows());
  entries_->SelectIndex(select);
  if (entries_->currentItem() != nullptr) entries_->scrollToItem(entries_->currentItem());
  count_->setText(QString("%1 waypoints").arg(work_.rows().size()));
}

CheckedWaypoint frmWayEdit::Entry() const {
  return CheckWaypointEntry(FromQt(name_->text()), latitude_->Text(), longitude_->Text());
}

void frmWayEdit::Ended(WaypointRefusal refusal, std::size_t select) {
  if (refusal != WaypointRefusal::kNone) {
    QWidget* field = entries_;
    if (refusal == WaypointRefusal::kBadLatitude) field = latitude_;
    if (refusal == WaypointRefusal::kBadLongitude) field = longitude_;
    Refuse(WaypointRefusalText(refusal), false, field);
    return;
  }
  name_->clear();
  latitude_->clear();
  longitude_->clear();
  Refresh(select);
}

WaypointRefusal frmWayEdit::WithEntry(const std::function<bool(const WaypointRow&)>& change) {
  const CheckedWaypoint entry = Entry();
  if (entry.refusal != WaypointRefusal::kNone) return entry.refusal;
  return change(entry.row) ? WaypointRefusal::kNone : WaypointRefusal::kNoRowSelected;
}

void frmWayEdit::AddPoint() {
  if (work_.file_name().empty()) {
    Ended(WaypointRefusal::kNoRowSelected, 0);
    return;
  }
  const std::size_t row = work_.rows().size();
  const WaypointRefusal refusal =
      WithEntry([this](const WaypointRow& entry) { return work_.Add(entry); });
  Ended(refusal, row);
  if (refusal == WaypointRefusal::kNone) name_->setFocus();
}

void frmWayEdit::InsertEntry() {
  const std::size_t row = entries_->SelectedIndex().value_or(work_.rows().size() + 1);
  Ended(WithEntry([&](const WaypointRow& entry) { return work_.Insert(row, entry); }), row);
}

void frmWayEdit::ChangeEntry() {
  const std::size_t row = entries_->SelectedIndex().value_or(work_.rows().size());
  Ended(WithEntry([&](const WaypointRow& entry) { return work_.Change(row, entry); }), row);
}

void frmWayEdit::DeleteEntry() {
  const std::size_t row = entries_->SelectedIndex().value_or(work_.rows().size());
  if (!work_.Delete(row)) {
    Ended(WaypointRefusal::kNoRowSelected, 0);
    return;
  }
  Refresh(work_.rows().empty() ? 0 : std::min(row, work_.rows().size() - 1));
}

void frmWayEdit::LoadEntry() {
  const std::optional<WaypointRow> row = entries_->SelectedRow();
  if (!row) return;
  name_->setText(ToQt(row->name));
  latitude_->SetText(row->latitude_text);
  longitude_->SetText(row->longitude_text);
  name_->setFocus();
  name_->selectAll();
}

void frmWayEdit::CreateNew() {
  if (!MayLeaveFile()) return;
  frmNewWay dialog(desktop(), this, NameEntry::kWaypointEditNew);
  if (dialog.exec() != QDialog::Accepted) return;
  {
    const QSignalBlocker quiet(files_);
    files_->Fill(desktop().program.folders.Waypoints(), FileKind::kWaypoint);
  }
  Open(dialog.file_name(), false);
  name_->setFocus();
}

void frmWayEdit::Copy() {
  frmwaycopy dialog(desktop(), this);
  const bool saved = dialog.exec() == QDialog::Accepted;
  {
    const QSignalBlocker quiet(files_);
    files_->Fill(desktop().program.folders.Waypoints(), FileKind::kWaypoint);
    files_->Select(work_.file_name());
  }
  // A copy over the file on show: its rows are not to be written over the copied ones unasked.
  if (saved && dialog.file_name() == work_.file_name() && MayLeaveFile()) {
    Open(dialog.file_name(), false);
  }
}

void frmWayEdit::Print() {
  const std::vector<std::string> lines = entries_->Texts(print_selected_->isChecked());
  PrintPages(desktop(), this, ReportPage(work_.file_name(), "", lines));
}

void frmWayEdit::SaveAndExit() {
  Program& program = desktop().program;
  if (!work_.file_name().empty()) {
    if (const Status saved = work_.Save(); !saved) {
      Refuse(saved.error().Text(), false, entries_);
      return;
    }
    if (work_.file_name() == program.config.waypoint_file) {
      const Status loaded = LoadCurrentWaypoints(program.folders, program.config, program.waypoints,
                                                 desktop().messages);
      if (!loaded) desktop().messages.Show(loaded.error().Text(), MessageIcon::kWarning);
    }
  }
  accept();
  desktop().window.Changed(kViewChanged);
}

void frmWayEdit::done(int result) {
  if (result == QDialog::Rejected && !MayLeaveFile()) return;
  work_.Abandon();
  Dialog::done(result);
}

}  // namespace skerrow
