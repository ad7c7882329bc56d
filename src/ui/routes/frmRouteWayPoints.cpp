#include "ui/routes/frmRouteWayPoints.h"

#include "core/numbers.h"
#include "ui/edits.h"
#include "ui/widgets/key_action.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

frmRouteWayPoints::frmRouteWayPoints(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmRouteWayPoints", "Route by Waypoint List", parent),
      picker_(new WaypointPicker(desktop, "List1", Qt::Horizontal)),
      route_(new WaypointList("List2", PickListText)),
      length_(Named<QLabel>("lblroutedist")) {
  auto* columns = new QHBoxLayout;
  columns->setSpacing(12);
  columns->addWidget(picker_, 3);
  auto* add = Named<QPushButton>("cmdAdd", "&Add  \u25b6");
  add->setAutoDefault(false);
  add->setToolTip("Puts the waypoint at the end of the route (double click, Enter)");
  columns->addWidget(add, 0, Qt::AlignVCenter);
  auto* right = new QVBoxLayout;
  right->setSpacing(4);
  auto* head = new QHBoxLayout;
  head->addWidget(MakeLabel("&Route", route_), 1);
  head->addWidget(length_);
  right->addLayout(head);
  right->addWidget(route_, 1);
  auto* remove = Named<QPushButton>("cmdDelete", "&Delete Selected");
  remove->setAutoDefault(false);
  remove->setToolTip("Takes the selected row out of the route (double click, Delete)");
  right->addSpacing(2);
  right->addWidget(remove, 0, Qt::AlignRight);
  columns->addLayout(right, 2);
  body()->addLayout(columns, 1);
  body()->addWidget(
      MakeHint("Double-click a waypoint to put it at the end of the route, and a "
               "row of the route to take it out again."));
  QPushButton* ok = AddButton("cmdOK", "OK", "Makes the route of these waypoints");
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  ok->setDefault(true);
  connect(picker_->list(), &QListWidget::itemDoubleClicked, this, [this] { Add(); });
  KeyAction::Install(picker_->list(), Qt::Key_Return, [this] { Add(); });
  KeyAction::Install(route_, Qt::Key_Delete, [this] { Remove(); });
  connect(route_, &QListWidget::itemDoubleClicked, this, [this] { Remove(); });
  connect(add, &QPushButton::clicked, this, [this] { Add(); });
  connect(remove, &QPushButton::clicked, this, [this] { Remove(); });
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  ShowLength();
  picker_->list()->setFocus();
  resize(1040, 480);
}

void frmRouteWayPoints::Add() {
  if (const std::optional<WaypointRow> row = picker_->list()->SelectedRow()) {
    route_->Append(*row);
    ShowLength();
  }
}

void frmRouteWayPoints::Remove() {
  const std::optional<std::size_t> index = route_->SelectedIndex();
  if (!index) {
    Refuse(RouteFormText(RouteFormRefusal::kNothingToRemove), false, route_);
    return;
  }
  route_->RemoveAt(*index);
  ShowLength();
}

void frmRouteWayPoints::ShowLength() {
  std::vector<RoutePoint> points;
  for (const WaypointRow& row : route_->rows()) {
    const Waypoint waypoint = WaypointOf(row);
    points.emplace_back();
    points.back().latitude = waypoint.latitude;
    points.back().longitude = waypoint.longitude;
  }
  RelinkRoute(points);
  const QString distance = ToQt(FormatFixed(RouteLengthOf(points), 1, 1));
  length_->setText(points.size() == 1 ? "1 point"
                   : points.empty()   ? QString()
                                    : QString("%1 points, %2 nm").arg(points.size()).arg(distance));
}

void frmRouteWayPoints::Accept() {
  const RouteEdit outcome =
      EditRoute(desktop(), "Route by Waypoint List", [this](RouteState& route) {
        return CreateRouteFromRows(route, route_->rows(), RouteDefaultsOf(desktop().program),
                                   desktop().messages);
      });
  if (outcome != RouteEdit::kDone) {
    Refuse(RouteEditText(outcome), false, picker_->list());
    return;
  }
  accept();
}

}  // namespace skerrow
