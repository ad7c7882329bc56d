#include "ui/routes/frmFileDelete.h"

#include "routes/route.h"
#include "ui/routes/record_rows.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

frmFileDelete::frmFileDelete(Desktop& desktop, FileKind kind, QWidget* parent)
    : Dialog(desktop, kind == FileKind::kRoute ? "frmRouteDelete" : "frmWayDelete",
             kind == FileKind::kRoute ? "Delete Route File" : "Delete Waypoint File", parent),
      kind_(kind),
      files_(new FileList),
      count_(Named<QLabel>("labelnoofpoints")),
      records_(new TextList(desktop.clipboard, "List1")) {
  auto* columns = new QHBoxLayout;
  columns->setSpacing(12);
  auto* left = new QVBoxLayout;
  left->setSpacing(4);
  left->addWidget(MakeLabel(kind == FileKind::kRoute ? "Route &files" : "Waypoint &files", files_));
  left->addWidget(files_, 1);
  columns->addLayout(left, 1);
  auto* right = new QVBoxLayout;
  right->setSpacing(4);
  right->addWidget(count_);
  right->addWidget(records_, 1);
  columns->addLayout(right, 2);
  body()->addLayout(columns, 1);
  records_->setSelectionMode(QAbstractItemView::NoSelection);
  records_->setFocusPolicy(Qt::NoFocus);
  QPushButton* ok = AddButton("cmdOK", "&Delete", "Deletes the highlighted file");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  files_->Fill(FolderOfKind(desktop.program.folders, kind), kind);
  connect(files_, &QListWidget::itemSelectionChanged, this, [this] { ShowFile(); });
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  ShowFile();
  files_->setFocus();
  resize(660, 380);
}

void frmFileDelete::ShowFile() {
  const std::string name = files_->Selected();
  if (name.empty()) {
    count_->setText(files_->count() == 0 ? "There are no files." : QString());
    records_->SetLines({});
    return;
  }
  const Folders& folders = desktop().program.folders;
  const std::string path = JoinPath(FolderOfKind(folders, kind_), name);
  const std::size_t size = kind_ == FileKind::kRoute ? kRouteRecordSize : kWaypointSize;
  count_->setText(ToQt(CountText(CountRecords(path, size))));
  const Result<std::vector<std::string>> rows = RecordRows(folders, kind_, name);
  records_->SetLines(rows ? rows.value() : std::vector<std::string>{});
}

void frmFileDelete::Accept() {
  const std::string name = files_->Selected();
  const Folders& folders = desktop().program.folders;
  const FileRefusal refusal = CheckDelete(folders, kind_, name);
  if (refusal != FileRefusal::kNone) {
    Refuse(FileRefusalText(refusal), false, files_);
    return;
  }
  if (!desktop().messages.Ask(DeleteQuestion(kind_, name))) return;
  if (const Status deleted = DeleteRecordFile(folders, kind_, name); !deleted) {
    Refuse(deleted.error().Text(), false, files_);
    return;
  }
  accept();
  desktop().window.Changed(kViewChanged);
}

}  // namespace skerrow
