#include "ui/routes/frmRouteEdit.h"

#include <QGridLayout>
#include <algorithm>

#include "core/numbers.h"
#include "ui/edits.h"
#include "ui/widgets/key_action.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

frmRouteEdit::frmRouteEdit(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmRouteEdit", "Edit Route Points", parent),
      legs_(new TextList(desktop.clipboard, "List1")),
      distance_(Named<QLabel>("lblroutedist")),
      leg_box_(new LegBox(desktop.messages, {"Fro&m:", "Appl&y Speed to all Legs", "cmdmodify",
                                             "&Accept Changes to Leg"})),
      picker_(new WaypointPicker(desktop, "List2", Qt::Vertical)),
      before_(Named<QRadioButton>("optBefore", "&Before")),
      after_(Named<QRadioButton>("optAfter", "Af&ter")) {
  legs_->setSelectionMode(QAbstractItemView::SingleSelection);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  auto* left = new QVBoxLayout;
  left->setSpacing(4);
  auto* head = new QHBoxLayout;
  head->addWidget(MakeLabel("&Legs of the route", legs_), 1);
  head->addWidget(distance_);
  left->addLayout(head);
  left->addWidget(legs_, 1);
  left->addSpacing(4);
  left->addWidget(leg_box_);
  columns->addLayout(left, 3);
  columns->addWidget(MakeWaypointBox(), 2);
  body()->addLayout(columns, 1);

  QPushButton* remove = AddLeftButton("cmdDelete", "&Delete Selected Point",
                                      "Takes the point of the highlighted row out");
  QPushButton* reverse = AddLeftButton("cmdreverse", "&Reverse Route", "Turns the route round");
  QPushButton* exit = AddButton("cmdExit", "E&xit");
  exit->setDefault(true);
  connect(remove, &QPushButton::clicked, this, [this] { DeletePoint(); });
  connect(reverse, &QPushButton::clicked, this, [this] { Reverse(); });
  connect(exit, &QPushButton::clicked, this, &QDialog::accept);
  connect(leg_box_, &LegBox::Accepted, this, [this] { AcceptLegEntry(); });
  connect(leg_box_, &LegBox::SpeedForAll, this, [this] { ApplySpeed(); });
  connect(legs_, &QListWidget::itemSelectionChanged, this, [this] { LoadLeg(); });
  connect(legs_, &QListWidget::itemDoubleClicked, this, [this] {
    LoadLeg();
    leg_box_->first_box()->setFocus();
  });
  // Enter in a box accepts the leg instead of leaving the dialog.
  auto* enter = new KeyAction(this, Qt::Key_Return, [this] { AcceptLegEntry(); });
  for (QLineEdit* box : leg_box_->boxes()) box->installEventFilter(enter);
  KeyAction::Install(legs_, Qt::Key_Return, [this] { leg_box_->first_box()->setFocus(); });
  KeyAction::Install(legs_, Qt::Key_Delete, [this] { DeletePoint(); });
  KeyAction::Install(picker_->list(), Qt::Key_Return, [this] { InsertPoint(); });
  Load();
  LoadLeg();
  legs_->setFocus();
  resize(960, 600);
}

QWidget* frmRouteEdit::MakeWaypointBox() {
  auto* side = new QWidget;
  auto* rows = new QVBoxLayout(side);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(8);
  rows->addWidget(picker_, 1);
  auto* box = new QGroupBox("Insert the selected waypoint");
  auto* lines = new QVBoxLayout(box);
  auto* sides = new QHBoxLayout;
  sides->setSpacing(8);
  sides->addWidget(before_);
  sides->addWidget(after_);
  sides->addWidget(new QLabel("the start of the selected leg"));
  sides->addStretch(1);
  lines->addLayout(sides);
  auto* insert = Named<QPushButton>("cmdInsert", "&Insert Selected Point");
  insert->setAutoDefault(false);
  lines->addWidget(insert);
  rows->addWidget(box);
  connect(insert, &QPushButton::clicked, this, [this] { InsertPoint(); });
  return side;
}

std::optional<int> frmRouteEdit::SelectedRow() const {
  const QList<QListWidgetItem*> selected = legs_->selectedItems();
  if (selected.isEmpty()) return std::nullopt;
  return legs_->row(selected.front());
}

void frmRouteEdit::SelectRow(int row) {
  if (legs_->count() == 0) return;
  legs_->setCurrentRow(std::min(row, legs_->count() - 1));
  legs_->scrollToItem(legs_->currentItem());
}

void frmRouteEdit::Load() {
  const std::optional<int> row = SelectedRow();
  const RouteState& route = desktop().program.route;
  legs_->SetLines(RouteRows(route));
  distance_->setText(ToQt("Route = " + FormatFixed(route.distance, 1, 1) + "nm"));
  if (row) SelectRow(*row);
}

void frmRouteEdit::LoadLeg() {
  const std::optional<int> row = SelectedRow();
  leg_ = row ? static_cast<std::size_t>(LegOfRow(*row)) : 0;
  leg_box_->Show(EntryOfLeg(desktop().program.route, leg_), leg_);
}

void frmRouteEdit::Ended(RouteFormRefusal refusal) {
  if (refusal == RouteFormRefusal::kNone) {
    Load();
    LoadLeg();
    return;
  }
  QWidget* field = leg_box_->AtFault(refusal);
  if (field == nullptr) field = legs_;
  if (refusal == RouteFormRefusal::kNoInsertionSide) field = before_;
  if (refusal == RouteFormRefusal::kNoWaypointSelected) field = picker_->list();
  Refuse(RouteFormText(refusal), false, field);
}

void frmRouteEdit::AcceptLegEntry() {
  Ended(EditRoute(desktop(), "Edit Leg", [this](RouteState& route) {
    return EditLeg(route, leg_, leg_box_->Entry(), LegCheck::kLetters,
                   RouteDefaultsOf(desktop().program), desktop().messages);
  }));
}

void frmRouteEdit::InsertPoint() {
  const InsertSide side = before_->isChecked()  ? InsertSide::kBefore
                          : after_->isChecked() ? InsertSide::kAfter
                                                : InsertSide::kNotChosen;
  Ended(EditRoute(desktop(), "Insert Waypoint", [&](RouteState& route) {
    return InsertWaypointAtLeg(route, leg_, picker_->list()->SelectedRow(), side,
                               RouteDefaultsOf(desktop().program), desktop().messages);
  }));
}

void frmRouteEdit::DeletePoint() {
  const std::optional<int> row = SelectedRow();
  const std::string text = row ? legs_->lines()[static_cast<std::size_t>(*row)] : "";
  Ended(EditRoute(desktop(), "Delete Route Point", [&](RouteState& route) {
    return DeletePointOfRow(route, text, RouteDefaultsOf(desktop().program), desktop().messages);
  }));
}

void frmRouteEdit::ApplySpeed() {
  Ended(EditRoute(desktop(), "Apply Speed to all Legs", [&](RouteState& route) {
    return ApplySpeedToAllLegs(route, leg_box_->Speed());
  }));
}

void frmRouteEdit::Reverse() {
  EditRoute(desktop(), "Reverse Route", [&](RouteState& route) {
    ReverseRoute(route, RouteDefaultsOf(desktop().program), desktop().messages);
  });
  Ended(RouteFormRefusal::kNone);
}

}  // namespace skerrow
