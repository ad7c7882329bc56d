#include "ui/dialogs/frmWayEdit.h"

#include <QGroupBox>
#include <QListWidget>

#include "routes/file_forms.h"
#include "ui/dialogs/file_dialogs.h"
#include "ui/dialogs/frmwaycopy.h"
#include "ui/widgets/print_lines.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

FrmWayEdit::FrmWayEdit(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmWayEdit", tr("Select a File to Edit"), parent),
      files_(Named<QListWidget>("fillist")),
      list_(new TextList(desktop.clipboard, "List1")),
      count_(Named<QLabel>("labelnoofpoints")),
      name_(Named<QLineEdit>("txtname")),
      latitude_(MakeLatitudeEdit(desktop.messages, "txtlat")),
      longitude_(MakeLongitudeEdit(desktop.messages, "txtlong")) {
  auto* columns = new QHBoxLayout;
  columns->setSpacing(12);
  QVBoxLayout* left = MakeColumn();
  left->addWidget(MakeHeading(tr("Files")));
  left->addWidget(files_, 1);
  columns->addLayout(left, 2);
  QVBoxLayout* right = MakeColumn();
  right->addWidget(count_);
  right->addWidget(list_, 1);
  right->addWidget(MakeEntryBox());
  columns->addLayout(right, 5);
  body()->addLayout(columns, 1);
  QPushButton* create = AddLeftButton("cmdNew", tr("Create Ne&w"), tr("Makes an empty file"));
  QPushButton* copy = AddLeftButton("cmdCopy", tr("Co&py..."), tr("Picks waypoints for a file"));
  QPushButton* print = AddLeftButton("cmdPrint", tr("P&rint..."),
                                     tr("Prints the selected rows, or all when none is"));
  QPushButton* save = AddButton("cmdSave", tr("&Save && Exit"));
  QPushButton* cancel = AddButton("cmdCancel", tr("Cancel"));
  connect(files_, &QListWidget::itemSelectionChanged, this, [this] { OpenFile(); });
  connect(list_, &QListWidget::itemSelectionChanged, this,
          [this] { ShowEntry(SelectedRow(*list_)); });
  connect(create, &QPushButton::clicked, this, [this] { CreateNew(); });
  connect(copy, &QPushButton::clicked, this, [this] {
    FrmWayCopy(this->desktop(), this).exec();
    LoadFiles(file_);
  });
  connect(print, &QPushButton::clicked, this, [this] {
    const std::vector<std::string> selected = list_->SelectedLines();
    PrintLines(this->desktop(), this, file_, selected.size() > 1 ? selected : list_->lines());
  });
  connect(save, &QPushButton::clicked, this, [this] { Save(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  LoadFiles(desktop.program.config.waypoint_file);
  files_->setFocus();
  resize(860, 520);
}

QWidget* FrmWayEdit::MakeEntryBox() {
  auto* box = new QGroupBox(tr("Waypoint"));
  auto* rows = new QVBoxLayout(box);
  QHBoxLayout* fields = MakeRow({MakeLabel(tr("&Name:"), name_), name_, latitude_, longitude_});
  fields->setStretch(1, 1);
  fields->setStretch(fields->count() - 1, 0);
  rows->addLayout(fields);
  const auto key = [](const char* name, const QString& text) {
    auto* button = Named<QPushButton>(name, text);
    button->setAutoDefault(false);
    return button;
  };
  QPushButton* add = key("cmdAdd", tr("&Add New Point"));
  add->setDefault(true);  // Enter behind a typed position
  QPushButton* insert = key("cmdInsert", tr("&Insert Entry"));
  QPushButton* change = key("cmdChange", tr("&Change Entry"));
  QPushButton* remove = key("cmdDelete", tr("&Delete Entry"));
  rows->addLayout(MakeRow({add, insert, change, remove}));
  const auto row_or_none = [this] {
    const int row = SelectedRow(*list_);
    return row < 0 ? editor_.rows().size() : static_cast<std::size_t>(row);
  };
  connect(add, &QPushButton::clicked, this,
          [this] { Finish(editor_.Add(Entry()), static_cast<int>(editor_.rows().size())); });
  connect(insert, &QPushButton::clicked, this, [this, row_or_none] {
    const std::size_t row = row_or_none();
    Finish(editor_.Insert(row, Entry()), static_cast<int>(row));
  });
  connect(change, &QPushButton::clicked, this, [this, row_or_none] {
    const std::size_t row = row_or_none();
    Finish(editor_.Change(row, Entry()), static_cast<int>(row));
  });
  connect(remove, &QPushButton::clicked, this, [this, row_or_none] {
    const std::size_t row = row_or_none();
    Finish(editor_.Delete(row), static_cast<int>(row));
  });
  return box;
}

void FrmWayEdit::LoadFiles(const std::string& file) {
  const QSignalBlocker quiet(files_);
  files_->clear();
  const std::string folder = FolderOfKind(desktop().program.folders, FileKind::kWaypoint);
  for (const std::string& name : ListFiles(folder, FileKind::kWaypoint)) {
    files_->addItem(ToQt(name));
    if (name == file) files_->setCurrentRow(files_->count() - 1);
  }
  if (file != file_) OpenFile();
}

void FrmWayEdit::OpenFile() {
  const int row = SelectedRow(*files_);
  const std::string name = row < 0 ? "" : FromQt(files_->item(row)->text());
  if (name.empty() || name == file_) return;
  if (!LoseChanges()) {
    LoadFiles(file_);
    return;
  }
  if (const Status opened = editor_.Open(WaypointPath(desktop().program.folders, name)); !opened) {
    Refuse(opened.error().Text());
    LoadFiles(file_);
    return;
  }
  file_ = name;
  ShowRows(-1);
}

void FrmWayEdit::ShowRows(int row) {
  std::vector<std::string> lines;
  for (const WaypointRow& entry : editor_.rows()) lines.push_back(WaypointEditText(entry));
  list_->SetLines(lines);
  count_->setText(ToQt(CountText(static_cast<std::int64_t>(lines.size()))));
  if (!lines.empty() && row >= 0) {
    list_->setCurrentRow(std::min(row, static_cast<int>(lines.size()) - 1));
  }
}

void FrmWayEdit::ShowEntry(int row) {
  if (row < 0 || static_cast<std::size_t>(row) >= editor_.rows().size()) return;
  const WaypointRow& entry = editor_.rows()[static_cast<std::size_t>(row)];
  name_->setText(ToQt(entry.name));
  latitude_->SetText(entry.latitude_text);
  longitude_->SetText(entry.longitude_text);
}

CheckedWaypoint FrmWayEdit::Entry() const {
  return CheckWaypointEntry(FromQt(name_->text()), latitude_->Text(), longitude_->Text());
}

void FrmWayEdit::Finish(WaypointRefusal refusal, int row) {
  if (refusal != WaypointRefusal::kNone) {
    Refuse(WaypointRefusalText(refusal), false,
           refusal == WaypointRefusal::kBadLongitude ? longitude_ : latitude_);
    return;
  }
  ShowRows(row);
  name_->clear();
  latitude_->clear();
  longitude_->clear();
}

bool FrmWayEdit::LoseChanges() {
  return !editor_.changed() ||
         desktop().messages.Ask("The changes to " + file_ + " are not saved. Lose them?");
}

void FrmWayEdit::reject() {
  if (LoseChanges()) Dialog::reject();
}

void FrmWayEdit::Save() {
  Program& program = desktop().program;
  if (!file_.empty()) {
    if (const Status saved = editor_.Save(); !saved) {
      Refuse(saved.error().Text());
      return;
    }
    if (file_ == program.config.waypoint_file) {
      (void)LoadCurrentWaypoints(program.folders, program.config, program.waypoints,
                                 desktop().messages);
    }
  }
  accept();
  desktop().window.StateChanged();
}

void FrmWayEdit::CreateNew() {
  if (!LoseChanges()) return;
  FileNameDialog dialog(desktop(), NameEntry::kWaypointEditNew, this);
  if (dialog.exec() == QDialog::Accepted && !dialog.file_name().empty()) {
    LoadFiles(dialog.file_name());
  }
}

}  // namespace skerrow
