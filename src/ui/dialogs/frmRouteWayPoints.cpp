#include "ui/dialogs/frmRouteWayPoints.h"

#include "routes/route_editing.h"

namespace skerrow {

FrmRouteWayPoints::FrmRouteWayPoints(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmRouteWayPoints", tr("Route By Waypoint List"), parent),
      view_(new RecordFileView(desktop, FileKind::kWaypoint, "fillist", "List1")),
      route_(new TextList(desktop.clipboard, "List2")),
      count_(Named<QLabel>("lblRouteCount")) {
  body()->addWidget(
      MakeHint(tr("A double click on a waypoint puts it at the end of the route; a "
                  "double click in the route takes it out again.")));
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  columns->addWidget(view_, 5);
  QVBoxLayout* right = MakeColumn();
  right->addWidget(MakeHeading(tr("Route")));
  right->addWidget(route_, 1);
  auto* row = new QHBoxLayout;
  row->addWidget(count_, 1);
  auto* remove = Named<QPushButton>("cmdDelete", tr("&Delete Selected"));
  remove->setAutoDefault(false);
  row->addWidget(remove);
  right->addLayout(row);
  columns->addLayout(right, 3);
  body()->addLayout(columns, 1);
  QPushButton* ok = AddButton("cmdOK", tr("OK"));
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", tr("Cancel"));
  route_->setSelectionMode(QAbstractItemView::SingleSelection);
  connect(view_, &RecordFileView::RowActivated, this, [this](int entry) { Add(entry); });
  connect(route_, &QListWidget::itemDoubleClicked, this, [this] { Remove(); });
  connect(remove, &QPushButton::clicked, this, [this] { Remove(); });
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  view_->Refresh(desktop.program.config.waypoint_file);
  ShowRoute();
  resize(900, 480);
}

void FrmRouteWayPoints::ShowRoute() {
  std::vector<std::string> lines;
  for (const WaypointRow& row : rows_) lines.push_back(PickListText(row));
  route_->SetLines(lines);
  count_->setText(rows_.size() == 1 ? tr("1 point") : tr("%1 points").arg(rows_.size()));
}

void FrmRouteWayPoints::Add(int row) {
  if (row < 0 || static_cast<std::size_t>(row) >= view_->rows().size()) return;
  rows_.push_back(view_->rows()[static_cast<std::size_t>(row)]);
  ShowRoute();
  route_->setCurrentRow(route_->count() - 1);
}

void FrmRouteWayPoints::Remove() {
  const int row = SelectedRow(*route_);
  if (row < 0) {
    Refuse(RouteFormText(RouteFormRefusal::kNothingToRemove), false, route_);
    return;
  }
  rows_.erase(rows_.begin() + row);
  ShowRoute();
}

void FrmRouteWayPoints::Accept() {
  Program& program = desktop().program;
  const RouteEdit made =
      CreateRouteFromRows(program.route, rows_, RouteDefaultsOf(program), desktop().messages);
  if (made != RouteEdit::kDone) {
    Refuse(RouteEditText(made));
    return;
  }
  ForgetCalculation(program);
  accept();
  desktop().window.StateChanged();
}

}  // namespace skerrow
