#include "ui/routes/frmRouteLoad.h"

#include "core/files.h"
#include "ui/edits.h"
#include "ui/routes/record_rows.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

bool OpenSampleRoute(Desktop& desktop) {
  const Folders& folders = desktop.program.folders;
  constexpr const char* kSample = "Sample.rte";
  Status done = Done{};
  for (const std::string& name : ListFiles(folders.Samples(), FileKind::kRoute)) {
    if (!done || ExistingFile(folders.Routes(), FileKind::kRoute, name)) continue;
    const Result<std::string> content = ReadFile(JoinPath(folders.Samples(), name));
    done = content ? ReplaceFile(RoutePath(folders, name), *content) : Status(content.error());
  }
  if (done) {
    done = LoadRouteFile(desktop.program, desktop.messages, RoutePath(folders, kSample),
                         RouteSpeeds::kStored);
    desktop.window.Changed(kRouteChanged);
  }
  if (!done) desktop.messages.Show(done.error().Text(), MessageIcon::kWarning);
  return done.ok();
}

frmRouteLoad::frmRouteLoad(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmRouteLoad", "Load Route", parent),
      files_(new FileList),
      count_(Named<QLabel>("labelnoofpoints")),
      records_(new TextList(desktop.clipboard, "List1")),
      use_default_speed_(Named<QCheckBox>("chkUseDefaultSpeed",
                                          "Check to use program &default speed between legs")) {
  auto* columns = new QHBoxLayout;
  columns->setSpacing(12);
  auto* left = new QVBoxLayout;
  left->setSpacing(4);
  left->addWidget(MakeLabel("Route &files", files_));
  left->addWidget(files_, 1);
  columns->addLayout(left, 1);
  auto* right = new QVBoxLayout;
  right->setSpacing(4);
  right->addWidget(count_);
  right->addWidget(records_, 1);
  columns->addLayout(right, 2);
  body()->addLayout(columns, 1);
  QLabel* note = MakeHint(
      "By default the program will use the stored speed in its calculations "
      "unless the box below is checked");
  note->setObjectName(QStringLiteral("lblSpeedNote"));
  body()->addSpacing(4);
  body()->addWidget(note);
  body()->addWidget(use_default_speed_);
  records_->setSelectionMode(QAbstractItemView::NoSelection);
  records_->setFocusPolicy(Qt::NoFocus);
  sample_ = AddLeftButton("cmdSample", "Open a &sample route",
                          "Brings the sample routes into the list and opens the first of them");
  QPushButton* ok = AddButton("cmdOK", "OK");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  files_->Fill(desktop.program.folders.Routes(), FileKind::kRoute);
  connect(files_, &QListWidget::itemSelectionChanged, this, [this] { ShowFile(); });
  connect(files_, &QListWidget::itemDoubleClicked, this, [this] { Accept(); });
  sample_->setVisible(files_->count() == 0);
  connect(sample_, &QPushButton::clicked, this, [this] {
    if (OpenSampleRoute(this->desktop())) accept();
  });
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  ShowFile();
  files_->setFocus();
  resize(740, 400);
}

void frmRouteLoad::ShowFile() {
  const std::string name = files_->Selected();
  const Folders& folders = desktop().program.folders;
  if (name.empty()) {
    count_->setText(files_->count() == 0 ? "There are no route files yet." : QString());
    records_->SetLines({});
    return;
  }
  count_->setText(ToQt(CountText(CountRecords(RoutePath(folders, name), kRouteRecordSize))));
  // A file that cannot be read is told when it is to be loaded.
  const Result<std::vector<std::string>> rows = RecordRows(folders, FileKind::kRoute, name);
  records_->SetLines(rows ? rows.value() : std::vector<std::string>{});
}

void frmRouteLoad::Accept() {
  const std::string name = files_->Selected();
  const std::string path = name.empty() ? "" : RoutePath(desktop().program.folders, name);
  const Status loaded = LoadRouteFile(
      desktop().program, desktop().messages, path,
      use_default_speed_->isChecked() ? RouteSpeeds::kProgramDefault : RouteSpeeds::kStored);
  desktop().window.Changed(kRouteChanged);
  if (loaded) {
    accept();
    return;
  }
  // Only the file without entries has taken the route away; the dialog has no more to do then.
  const bool emptied = !name.empty() && loaded.error().path.empty();
  Refuse(loaded.error().Text(), false, files_);
  if (emptied) reject();
}

}  // namespace skerrow
