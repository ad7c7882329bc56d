#include "ui/routes/frmRouteEdit.h"

#include <QGridLayout>
#include <algorithm>

#include "core/numbers.h"
#include "ui/edits.h"
#include "ui/routes/key_action.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

FrmRouteEdit::FrmRouteEdit(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmRouteEdit", tr("Edit Route Points"), parent),
      legs_(new TextList(desktop.clipboard, "List1")),
      distance_(Named<QLabel>("lblroutedist")),
      leg_box_(new QGroupBox(tr("Selected leg"))),
      start_name_(Named<QLineEdit>("txtroutestartname")),
      start_latitude_(MakeLatitudeEdit(desktop.messages, "txtroutestartlat")),
      start_longitude_(MakeLongitudeEdit(desktop.messages, "txtroutestartlong")),
      end_name_(Named<QLineEdit>("txtroutedestname")),
      end_latitude_(MakeLatitudeEdit(desktop.messages, "txtroutedestlat")),
      end_longitude_(MakeLongitudeEdit(desktop.messages, "txtroutedestlong")),
      speed_(MakeSpeedEdit(desktop.messages, "txtroutespeed")),
      picker_(new WaypointPicker(desktop, "List2", Qt::Vertical)),
      before_(Named<QRadioButton>("optBefore", tr("&Before"))),
      after_(Named<QRadioButton>("optAfter", tr("Af&ter"))) {
  legs_->setSelectionMode(QAbstractItemView::SingleSelection);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  auto* left = new QVBoxLayout;
  left->setSpacing(4);
  auto* head = new QHBoxLayout;
  head->addWidget(MakeLabel(tr("&Legs of the route"), legs_), 1);
  head->addWidget(distance_);
  left->addLayout(head);
  left->addWidget(legs_, 1);
  left->addSpacing(4);
  left->addWidget(MakeLegBox());
  columns->addLayout(left, 3);
  columns->addWidget(MakeWaypointBox(), 2);
  body()->addLayout(columns, 1);

  QPushButton* remove = AddLeftButton("cmdDelete", tr("&Delete Selected Point"),
                                      tr("Takes the point of the highlighted row out"));
  QPushButton* reverse =
      AddLeftButton("cmdreverse", tr("&Reverse Route"), tr("Turns the route round"));
  QPushButton* exit = AddButton("cmdExit", tr("E&xit"));
  exit->setDefault(true);
  connect(remove, &QPushButton::clicked, this, [this] { DeletePoint(); });
  connect(reverse, &QPushButton::clicked, this, [this] { Reverse(); });
  connect(exit, &QPushButton::clicked, this, &QDialog::accept);
  connect(legs_, &QListWidget::itemSelectionChanged, this, [this] { LoadLeg(); });
  connect(legs_, &QListWidget::itemDoubleClicked, this, [this] {
    LoadLeg();
    start_name_->setFocus();
  });
  for (QLineEdit* box : {start_name_, end_name_}) box->setMaxLength(35);
  // Enter in a box accepts the leg instead of leaving the dialog.
  auto* enter = new KeyAction(this, Qt::Key_Return, [this] { AcceptLegEntry(); });
  for (QLineEdit* box : leg_box_->findChildren<QLineEdit*>()) box->installEventFilter(enter);
  KeyAction::Install(legs_, Qt::Key_Return, [this] { start_name_->setFocus(); });
  KeyAction::Install(legs_, Qt::Key_Delete, [this] { DeletePoint(); });
  KeyAction::Install(picker_->list(), Qt::Key_Return, [this] { InsertPoint(); });
  Load();
  LoadLeg();
  legs_->setFocus();
  resize(960, 600);
}

QWidget* FrmRouteEdit::MakeLegBox() {
  auto* grid = new QGridLayout(leg_box_);
  grid->setHorizontalSpacing(8);
  grid->addWidget(MakeLabel(tr("Fro&m:"), start_name_), 0, 0);
  grid->addWidget(start_name_, 0, 1);
  grid->addWidget(start_latitude_, 0, 2);
  grid->addWidget(start_longitude_, 0, 3);
  grid->addWidget(MakeLabel(tr("T&o:"), end_name_), 1, 0);
  grid->addWidget(end_name_, 1, 1);
  grid->addWidget(end_latitude_, 1, 2);
  grid->addWidget(end_longitude_, 1, 3);
  grid->addWidget(MakeLabel(tr("&Speed:"), speed_), 2, 0);
  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  row->addWidget(speed_);
  row->addWidget(new QLabel(tr("kn")));
  auto* all = Named<QPushButton>("cmdRouteSpeed", tr("Appl&y Speed to all Legs"));
  all->setToolTip(tr("Gives every leg this speed"));
  auto* modify = Named<QPushButton>("cmdmodify", tr("&Accept Changes to Leg"));
  modify->setToolTip(tr("Writes these values into the leg (Enter)"));
  row->addWidget(all);
  row->addStretch(1);
  row->addWidget(modify);
  grid->addLayout(row, 2, 1, 1, 3);
  grid->setColumnStretch(1, 1);
  for (QPushButton* button : {all, modify}) button->setAutoDefault(false);
  connect(all, &QPushButton::clicked, this, [this] { ApplySpeed(); });
  connect(modify, &QPushButton::clicked, this, [this] { AcceptLegEntry(); });
  return leg_box_;
}

QWidget* FrmRouteEdit::MakeWaypointBox() {
  auto* side = new QWidget;
  auto* rows = new QVBoxLayout(side);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(8);
  rows->addWidget(picker_, 1);
  auto* box = new QGroupBox(tr("Insert the selected waypoint"));
  auto* lines = new QVBoxLayout(box);
  auto* sides = new QHBoxLayout;
  sides->setSpacing(8);
  sides->addWidget(before_);
  sides->addWidget(after_);
  sides->addWidget(new QLabel(tr("the start of the selected leg")));
  sides->addStretch(1);
  lines->addLayout(sides);
  auto* insert = Named<QPushButton>("cmdInsert", tr("&Insert Selected Point"));
  insert->setAutoDefault(false);
  lines->addWidget(insert);
  rows->addWidget(box);
  connect(insert, &QPushButton::clicked, this, [this] { InsertPoint(); });
  return side;
}

std::optional<int> FrmRouteEdit::SelectedRow() const {
  const QList<QListWidgetItem*> selected = legs_->selectedItems();
  if (selected.isEmpty()) return std::nullopt;
  return legs_->row(selected.front());
}

void FrmRouteEdit::SelectRow(int row) {
  if (legs_->count() == 0) return;
  legs_->setCurrentRow(std::min(row, legs_->count() - 1));
  legs_->scrollToItem(legs_->currentItem());
}

void FrmRouteEdit::Load() {
  const std::optional<int> row = SelectedRow();
  const RouteState& route = desktop().program.route;
  legs_->SetLines(RouteRows(route));
  distance_->setText(ToQt("Route = " + FormatFixed(route.distance, 1, 1) + "nm"));
  if (row) SelectRow(*row);
}

void FrmRouteEdit::LoadLeg() {
  const std::optional<int> row = SelectedRow();
  leg_ = row ? static_cast<std::size_t>(LegOfRow(*row)) : 0;
  leg_box_->setTitle(leg_ == 0 ? tr("Selected leg") : tr("Selected leg: %1").arg(leg_));
  const LegEntry entry = EntryOfLeg(desktop().program.route, leg_);
  start_name_->setText(ToQt(entry.start_name));
  start_latitude_->SetText(entry.start_latitude);
  start_longitude_->SetText(entry.start_longitude);
  end_name_->setText(ToQt(entry.end_name));
  end_latitude_->SetText(entry.end_latitude);
  end_longitude_->SetText(entry.end_longitude);
  speed_->SetText(entry.speed);
}

void FrmRouteEdit::Ended(RouteFormRefusal refusal) {
  if (refusal == RouteFormRefusal::kNone) {
    Load();
    LoadLeg();
    return;
  }
  QWidget* field = legs_;
  if (refusal == RouteFormRefusal::kBadLatitude) {
    field = ParseLatitudeEntry(start_latitude_->Text()) ? end_latitude_ : start_latitude_;
  } else if (refusal == RouteFormRefusal::kBadLongitude) {
    field = ParseLongitudeEntry(start_longitude_->Text()) ? end_longitude_ : start_longitude_;
  } else if (refusal == RouteFormRefusal::kBadSpeed) {
    field = speed_;
  } else if (refusal == RouteFormRefusal::kNoInsertionSide) {
    field = before_;
  } else if (refusal == RouteFormRefusal::kNoWaypointSelected) {
    field = picker_->list();
  }
  Refuse(RouteFormText(refusal), false, field);
}

void FrmRouteEdit::AcceptLegEntry() {
  const LegEntry entry = {FromQt(start_name_->text()),
                          start_latitude_->Text(),
                          start_longitude_->Text(),
                          FromQt(end_name_->text()),
                          end_latitude_->Text(),
                          end_longitude_->Text(),
                          speed_->Text()};
  Ended(EditRoute(desktop(), "Edit Leg", [&](RouteState& route) {
    return EditLeg(route, leg_, entry, RouteDefaultsOf(desktop().program), desktop().messages);
  }));
}

void FrmRouteEdit::InsertPoint() {
  const InsertSide side = before_->isChecked()  ? InsertSide::kBefore
                          : after_->isChecked() ? InsertSide::kAfter
                                                : InsertSide::kNotChosen;
  Ended(EditRoute(desktop(), "Insert Waypoint", [&](RouteState& route) {
    return InsertWaypointAtLeg(route, leg_, picker_->list()->SelectedRow(), side,
                               RouteDefaultsOf(desktop().program), desktop().messages);
  }));
}

void FrmRouteEdit::DeletePoint() {
  const std::optional<int> row = SelectedRow();
  const std::string text = row ? legs_->lines()[static_cast<std::size_t>(*row)] : "";
  Ended(EditRoute(desktop(), "Delete Route Point", [&](RouteState& route) {
    return DeletePointOfRow(route, text, RouteDefaultsOf(desktop().program), desktop().messages);
  }));
}

void FrmRouteEdit::ApplySpeed() {
  Ended(EditRoute(desktop(), "Apply Speed to all Legs",
                  [&](RouteState& route) { return ApplySpeedToAllLegs(route, speed_->Text()); }));
}

void FrmRouteEdit::Reverse() {
  EditRoute(desktop(), "Reverse Route", [&](RouteState& route) {
    ReverseRoute(route, RouteDefaultsOf(desktop().program), desktop().messages);
  });
  Ended(RouteFormRefusal::kNone);
}

}  // namespace skerrow
