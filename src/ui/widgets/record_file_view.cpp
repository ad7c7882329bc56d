#include "ui/widgets/record_file_view.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "core/position.h"
#include "routes/waypoint.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

RecordFileView::RecordFileView(Desktop& desktop, FileKind kind, const char* files_name,
                               const char* rows_name, QWidget* parent)
    : QWidget(parent),
      desktop_(desktop),
      kind_(kind),
      files_(Named<QListWidget>(files_name)),
      list_(new TextList(desktop.clipboard, rows_name)),
      count_(Named<QLabel>("lblCount")) {
  auto* columns = new QHBoxLayout(this);
  columns->setContentsMargins(0, 0, 0, 0);
  columns->setSpacing(10);
  QVBoxLayout* left = MakeColumn();
  left->addWidget(MakeHeading(tr("Files")));
  left->addWidget(files_, 1);
  columns->addLayout(left, 3);
  QVBoxLayout* right = MakeColumn();
  right->addWidget(MakeHeading(kind == FileKind::kRoute ? tr("Route points") : tr("Waypoints")));
  right->addWidget(list_, 1);
  right->addWidget(count_);
  columns->addLayout(right, 7);
  list_->setSelectionMode(QAbstractItemView::SingleSelection);
  count_->setProperty("hint", true);
  connect(files_, &QListWidget::itemSelectionChanged, this, [this] { LoadFile(); });
  connect(list_, &QListWidget::itemClicked, this,
          [this](QListWidgetItem* item) { emit RowClicked(list_->row(item)); });
  connect(list_, &QListWidget::itemDoubleClicked, this,
          [this](QListWidgetItem* item) { emit RowActivated(list_->row(item)); });
  Refresh();
}

void RecordFileView::Refresh(const std::string& file) {
  {
    const QSignalBlocker quiet(files_);
    files_->clear();
    for (const std::string& name :
         ListFiles(FolderOfKind(desktop_.program.folders, kind_), kind_)) {
      files_->addItem(ToQt(name));
      if (name == file) files_->setCurrentRow(files_->count() - 1);
    }
  }
  LoadFile();
}

std::string RecordFileView::file() const {
  const int row = SelectedRow(*files_);
  return row < 0 ? "" : FromQt(files_->item(row)->text());
}

std::optional<std::size_t> RecordFileView::selected_row() const {
  const int row = SelectedRow(*list_);
  if (row < 0) return std::nullopt;
  return static_cast<std::size_t>(row);
}

void RecordFileView::LoadFile() {
  entries_.clear();
  count_->clear();
  const std::string name = file();
  std::vector<std::string> lines;
  if (!name.empty()) {
    const Folders& folders = desktop_.program.folders;
    std::string problem;
    if (kind_ == FileKind::kRoute) {
      const auto records = ReadRouteFile(RoutePath(folders, name));
      if (!records) problem = records.error().Text();
      for (const RouteRecord& record : records ? *records : std::vector<RouteRecord>()) {
        entries_.push_back({record.name, LatToText(record.latitude), LongToText(record.longitude)});
      }
    } else {
      const auto waypoints = ReadWaypointFile(WaypointPath(folders, name));
      if (!waypoints) problem = waypoints.error().Text();
      for (const Waypoint& waypoint : waypoints ? *waypoints : std::vector<Waypoint>()) {
        entries_.push_back(RowOf(waypoint));
      }
    }
    count_->setText(
        ToQt(problem.empty() ? CountText(static_cast<std::int64_t>(entries_.size())) : problem));
    for (const WaypointRow& row : entries_) {
      lines.push_back(row.name + "\t" + row.latitude_text + "\t" + row.longitude_text);
    }
  }
  list_->SetLines(lines);
  emit FileChosen();
}

}  // namespace skerrow
