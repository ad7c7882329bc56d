#include "ui/routes/waypoint_picker.h"

#include <QBoxLayout>

#include "ui/widgets/dialog.h"

namespace skerrow {

Result<std::vector<WaypointRow>> ReadWaypointRows(const Folders& folders, const std::string& name) {
  const Result<std::vector<Waypoint>> waypoints = ReadWaypointFile(WaypointPath(folders, name));
  if (!waypoints) return waypoints.error();
  std::vector<WaypointRow> rows;
  for (const Waypoint& waypoint : *waypoints) rows.push_back(RowOf(waypoint));
  return rows;
}

WaypointPicker::WaypointPicker(Desktop& desktop, const char* list_name, Qt::Orientation orientation,
                               QWidget* parent)
    : QWidget(parent),
      desktop_(desktop),
      files_(new FileList),
      list_(new WaypointList(list_name, PickListText)) {
  const bool across = orientation == Qt::Horizontal;
  auto* parts = new QBoxLayout(across ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom, this);
  parts->setContentsMargins(0, 0, 0, 0);
  parts->setSpacing(across ? 12 : 6);
  const auto add = [&](const QString& title, QListWidget* list, int stretch) {
    auto* part = new QVBoxLayout;
    part->setSpacing(4);
    part->addWidget(MakeLabel(title, list));
    part->addWidget(list, 1);
    parts->addLayout(part, stretch);
  };
  add("Waypoint &files", files_, 1);
  add("&Waypoints", list_, 2);
  connect(files_, &QListWidget::itemSelectionChanged, this, [this] { ShowFile(); });
  files_->Fill(desktop.program.folders.Waypoints(), FileKind::kWaypoint);
  files_->Select(desktop.program.config.waypoint_file);
  setFocusProxy(files_);
}

void WaypointPicker::ShowFile() {
  const std::string name = files_->Selected();
  std::vector<WaypointRow> rows;
  if (!name.empty()) {
    Result<std::vector<WaypointRow>> read = ReadWaypointRows(desktop_.program.folders, name);
    if (!read) desktop_.messages.Show(read.error().Text(), MessageIcon::kWarning);
    if (read) rows = std::move(read.value());
  }
  list_->SetRows(std::move(rows));
}

}  // namespace skerrow
