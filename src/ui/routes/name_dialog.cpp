#include "ui/routes/name_dialog.h"

#include "ui/widgets/qt_text.h"

namespace skerrow {

NameDialog::NameDialog(Desktop& desktop, const char* name, const QString& title, NameEntry entry,
                       QWidget* parent)
    : Dialog(desktop, name, title, parent),
      entry_(entry),
      name_(Named<QLineEdit>("txtFileName")),
      files_(new FileList) {
  const std::string folder = FolderOfKind(desktop.program.folders, kind());
  name_->setMaxLength(120);
  name_->setToolTip(QString("The extension %1 is added").arg(ToQt(ExtensionOf(kind()))));
  body()->addWidget(MakeLabel("File &name:", name_));
  body()->addWidget(name_);
  body()->addSpacing(4);
  body()->addWidget(MakeLabel("&Files in the folder:", files_));
  body()->addWidget(files_, 1);
  body()->addWidget(MakeFolderHint("Folder:", folder));
  QPushButton* ok = AddButton("cmdOK", "OK");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  files_->Fill(folder, kind());
  connect(files_, &QListWidget::itemSelectionChanged, this, [this] {
    const std::string selected = files_->Selected();
    if (!selected.empty()) name_->setText(ToQt(selected.substr(0, selected.find('.'))));
  });
  connect(files_, &QListWidget::itemDoubleClicked, this, [this] { Accept(); });
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  name_->setFocus();
  resize(400, 380);
}

void NameDialog::Accept() {
  const CheckedName checked = CheckFileName(FromQt(name_->text()), entry_);
  if (checked.refusal != FileRefusal::kNone) {
    Refuse(FileRefusalText(checked.refusal, entry_), false, name_);
    return;
  }
  if (!Ready()) return;
  const std::string folder = FolderOfKind(desktop().program.folders, kind());
  const std::optional<std::string> existing = ExistingFile(folder, kind(), checked.file_name);
  if (existing && !desktop().messages.Ask(kOverwriteQuestion)) return;
  const std::string target = existing.value_or(checked.file_name);
  if (const Status written = Write(target); !written) {
    Refuse(written.error().Text(), false, name_);
    return;
  }
  file_name_ = target;
  accept();
  desktop().window.Changed(kRouteChanged | kViewChanged);
}

}  // namespace skerrow
