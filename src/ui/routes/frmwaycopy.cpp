#include "ui/routes/frmwaycopy.h"

#include "ui/widgets/key_action.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

frmwaycopy::frmwaycopy(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmwaycopy", "Copy Waypoints", parent),
      picker_(new WaypointPicker(desktop, "List1", Qt::Horizontal)),
      copied_(new WaypointList("List2", PickListText)),
      name_(Named<QLineEdit>("txtFileName")) {
  auto* columns = new QHBoxLayout;
  columns->setSpacing(12);
  columns->addWidget(picker_, 3);
  auto* right = new QVBoxLayout;
  right->setSpacing(4);
  right->addWidget(MakeLabel("&Copied", copied_));
  right->addWidget(copied_, 1);
  columns->addLayout(right, 2);
  body()->addLayout(columns, 1);
  body()->addWidget(
      MakeHint("Click a waypoint to copy it; double-click a copied one to take it "
               "out again."));
  auto* target = new QHBoxLayout;
  name_->setMaxLength(120);
  target->addWidget(MakeLabel("&Destination file:", name_));
  target->addWidget(name_, 1);
  body()->addLayout(target);
  QPushButton* save = AddButton("cmdSave", "&Save");
  save->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(picker_->list(), &QListWidget::itemClicked, this, [this] { Add(); });
  KeyAction::Install(picker_->list(), Qt::Key_Return, [this] { Add(); });
  KeyAction::Install(copied_, Qt::Key_Delete, [this] { Remove(); });
  connect(copied_, &QListWidget::itemDoubleClicked, this, [this] { Remove(); });
  connect(save, &QPushButton::clicked, this, [this] { Save(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  picker_->list()->setFocus();
  resize(980, 480);
}

void frmwaycopy::Add() {
  if (const std::optional<WaypointRow> row = picker_->list()->SelectedRow()) copied_->Append(*row);
}

void frmwaycopy::Remove() {
  const std::optional<std::size_t> index = copied_->SelectedIndex();
  if (!index) {
    Refuse(WaypointRefusalText(WaypointRefusal::kNothingToRemove), false, copied_);
    return;
  }
  copied_->RemoveAt(*index);
}

void frmwaycopy::Save() {
  const CheckedCopy checked = CheckWaypointCopy(FromQt(name_->text()), copied_->rows().size());
  if (checked.refusal != WaypointRefusal::kNone) {
    Refuse(WaypointRefusalText(checked.refusal), false,
           checked.refusal == WaypointRefusal::kNothingToCopy
               ? static_cast<QWidget*>(picker_->list())
               : name_);
    return;
  }
  Program& program = desktop().program;
  const std::optional<std::string> existing =
      ExistingFile(program.folders.Waypoints(), FileKind::kWaypoint, checked.file_name);
  if (existing && !desktop().messages.Ask(kCopyOverwriteQuestion)) return;
  const std::string target = existing.value_or(checked.file_name);
  Status done = CopyWaypoints(program.folders, target, copied_->rows());
  if (!done) {
    Refuse(done.error().Text(), false, name_);
    return;
  }
  if (target == program.config.waypoint_file) {
    done = LoadCurrentWaypoints(program.folders, program.config, program.waypoints,
                                desktop().messages);
    if (!done) desktop().messages.Show(done.error().Text(), MessageIcon::kWarning);
  }
  file_name_ = target;
  accept();
  desktop().window.Changed(kViewChanged);
}

}  // namespace skerrow
