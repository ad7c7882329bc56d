#include "ui/routes/frmWayFileLocate.h"

namespace skerrow {

frmWayFileLocate::frmWayFileLocate(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmWayFileLocate", "Locate a waypoint", parent),
      picker_(new WaypointPicker(desktop, "List1", Qt::Horizontal)) {
  body()->addWidget(picker_, 1);
  QPushButton* ok = AddButton("cmdOK", "OK", "Moves the chart to the waypoint");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(picker_->list(), &QListWidget::itemDoubleClicked, this, [this] { Accept(); });
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  picker_->list()->setFocus();
  resize(640, 420);
}

void frmWayFileLocate::Accept() {
  const std::optional<std::size_t> selected = picker_->list()->SelectedIndex();
  const WaypointRefusal refusal = CheckLocate(picker_->list()->rows().size(), selected);
  if (refusal != WaypointRefusal::kNone) {
    Refuse(WaypointRefusalText(refusal), false, picker_->list());
    return;
  }
  const Result<std::vector<Waypoint>> read =
      ReadWaypointFile(WaypointPath(desktop().program.folders, picker_->files()->Selected()));
  if (!read || *selected >= read->size()) {
    Refuse(read ? "Select a point" : read.error().Text(), false, picker_->files());
    return;
  }
  picked_ = (*read)[*selected];
  accept();
}

}  // namespace skerrow
