#include "ui/dialogs/frmwaycopy.h"

#include "core/files.h"
#include "routes/waypoint_forms.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

FrmWayCopy::FrmWayCopy(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmwaycopy", tr("Copy Waypoints"), parent),
      view_(new RecordFileView(desktop, FileKind::kWaypoint, "fillist", "List1")),
      picked_(new TextList(desktop.clipboard, "List2")),
      name_(Named<QLineEdit>("txtFileName")) {
  body()->addWidget(
      MakeHint(tr("A click on a waypoint copies it; a double click on a copied one "
                  "takes it out again.")));
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  columns->addWidget(view_, 5);
  QVBoxLayout* right = MakeColumn();
  right->addWidget(MakeHeading(tr("Copied")));
  right->addWidget(picked_, 1);
  right->addWidget(MakeLabel(tr("&Destination file:"), name_));
  right->addWidget(name_);
  columns->addLayout(right, 3);
  body()->addLayout(columns, 1);
  QPushButton* save = AddButton("cmdSave", tr("&Save"));
  save->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", tr("Cancel"));
  picked_->setSelectionMode(QAbstractItemView::SingleSelection);
  connect(view_, &RecordFileView::RowClicked, this, [this](int row) {
    rows_.push_back(view_->rows().at(static_cast<std::size_t>(row)));
    ShowPicked();
  });
  connect(picked_, &QListWidget::itemDoubleClicked, this, [this] { Remove(); });
  connect(save, &QPushButton::clicked, this, [this] { Save(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  view_->files()->setFocus();
  resize(880, 460);
}

void FrmWayCopy::ShowPicked() {
  std::vector<std::string> lines;
  for (const WaypointRow& row : rows_) lines.push_back(PickListText(row));
  picked_->SetLines(lines);
}

void FrmWayCopy::Remove() {
  const int row = SelectedRow(*picked_);
  if (row < 0) {
    Refuse(WaypointRefusalText(WaypointRefusal::kNothingToRemove));
    return;
  }
  rows_.erase(rows_.begin() + row);
  ShowPicked();
}

void FrmWayCopy::Save() {
  const CheckedCopy checked = CheckWaypointCopy(FromQt(name_->text()), rows_.size());
  if (checked.refusal != WaypointRefusal::kNone) {
    Refuse(WaypointRefusalText(checked.refusal), false,
           checked.refusal == WaypointRefusal::kNothingToCopy ? nullptr : name_);
    return;
  }
  const Folders& folders = desktop().program.folders;
  if (FileReadable(WaypointPath(folders, checked.file_name)) &&
      !desktop().messages.Ask(kCopyOverwriteQuestion)) {
    return;
  }
  if (const Status written = CopyWaypoints(folders, checked.file_name, rows_); !written) {
    Refuse(written.error().Text());
    return;
  }
  accept();
}

}  // namespace skerrow
