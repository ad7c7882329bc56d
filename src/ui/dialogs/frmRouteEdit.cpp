#include "ui/dialogs/frmRouteEdit.h"

#include <QGridLayout>
#include <QGroupBox>

#include "routes/route_editing.h"
#include "ui/forms/calc_route_form.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

QPushButton* MakeKey(const char* name, const QString& text) {
  auto* button = Named<QPushButton>(name, text);
  button->setAutoDefault(false);
  return button;
}

}  // namespace

FrmRouteEdit::FrmRouteEdit(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmRouteEdit", tr("Edit Route Points"), parent),
      legs_(new TextList(desktop.clipboard, "List1")),
      view_(new RecordFileView(desktop, FileKind::kWaypoint, "fillist", "List2")),
      before_(Named<QRadioButton>("optBefore", tr("&Before"))),
      after_(Named<QRadioButton>("optAfter", tr("A&fter"))),
      start_name_(Named<QLineEdit>("txtroutestartname")),
      start_latitude_(MakeLatitudeEdit(desktop.messages, "txtroutestartlat")),
      start_longitude_(MakeLongitudeEdit(desktop.messages, "txtroutestartlong")),
      end_name_(Named<QLineEdit>("txtroutedestname")),
      end_latitude_(MakeLatitudeEdit(desktop.messages, "txtroutedestlat")),
      end_longitude_(MakeLongitudeEdit(desktop.messages, "txtroutedestlong")),
      speed_(MakeSpeedEdit(desktop.messages, "txtroutespeed")) {
  legs_->setSelectionMode(QAbstractItemView::SingleSelection);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  QVBoxLayout* left = MakeColumn();
  left->addWidget(MakeHeading(tr("Legs of the route (double click edits one)")));
  left->addWidget(legs_, 1);
  left->addWidget(MakeLegBox());
  columns->addLayout(left, 1);
  QVBoxLayout* right = MakeColumn();
  right->addWidget(view_, 1);
  right->addLayout(MakeInsertion());
  columns->addLayout(right, 1);
  body()->addLayout(columns, 1);
  QPushButton* reverse = AddLeftButton("cmdreverse", tr("&Reverse Route"));
  QPushButton* all = AddLeftButton("cmdRouteSpeed", tr("Apply Speed to &all Legs"));
  QPushButton* close = AddButton("cmdExit", tr("E&xit"));
  close->setDefault(true);
  connect(reverse, &QPushButton::clicked, this, [this] {
    ReverseCurrentRoute(this->desktop().program, this->desktop().messages);
    Finish(RouteFormRefusal::kNone);
  });
  connect(all, &QPushButton::clicked, this, [this] { ApplySpeed(); });
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  connect(legs_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
    LoadLeg(static_cast<std::size_t>(LegOfRow(legs_->row(item))));
  });
  view_->Refresh(desktop.program.config.waypoint_file);
  Load();
  legs_->setFocus();
  resize(1140, 580);
}

QWidget* FrmRouteEdit::MakeLegBox() {
  auto* box = new QGroupBox(tr("Leg"));
  auto* grid = new QGridLayout(box);
  grid->addWidget(MakeLabel(tr("Fro&m:"), start_name_), 0, 0);
  grid->addWidget(start_name_, 0, 1);
  grid->addWidget(start_latitude_, 0, 2);
  grid->addWidget(start_longitude_, 0, 3);
  grid->addWidget(MakeLabel(tr("T&o:"), end_name_), 1, 0);
  grid->addWidget(end_name_, 1, 1);
  grid->addWidget(end_latitude_, 1, 2);
  grid->addWidget(end_longitude_, 1, 3);
  grid->addWidget(MakeLabel(tr("&Speed:"), speed_), 2, 0);
  QPushButton* modify = MakeKey("cmdmodify", tr("Accept &Changes to Leg"));
  QHBoxLayout* row = MakeRow({speed_, new QLabel(tr("kn"))});
  row->addWidget(modify);
  grid->addLayout(row, 2, 1, 1, 3);
  grid->setColumnStretch(1, 1);
  connect(modify, &QPushButton::clicked, this, [this] { ChangeLeg(); });
  return box;
}

QLayout* FrmRouteEdit::MakeInsertion() {
  QPushButton* insert = MakeKey("cmdInsert", tr("&Insert Selected Point"));
  QPushButton* remove = MakeKey("cmdDelete", tr("&Delete Selected Point"));
  connect(insert, &QPushButton::clicked, this, [this] { InsertPoint(); });
  connect(remove, &QPushButton::clicked, this, [this] { DeletePoint(); });
  auto* rows = new QVBoxLayout;
  rows->addLayout(MakeRow({before_, after_, new QLabel(tr("the leg's start"))}));
  rows->addLayout(MakeRow({insert, remove}));
  return rows;
}

void FrmRouteEdit::Load() {
  const int row = SelectedRow(*legs_);
  legs_->SetLines(RouteRows(desktop().program.route));
  if (row >= 0 && row < legs_->count()) legs_->setCurrentRow(row);
  const std::size_t points = desktop().program.route.points.size();
  LoadLeg(leg_ < points ? leg_ : 0);
}

void FrmRouteEdit::LoadLeg(std::size_t leg) {
  leg_ = leg;
  const LegEntry entry = leg == 0 ? LegEntry{} : EntryOfLeg(desktop().program.route, leg);
  start_name_->setText(ToQt(entry.start_name));
  start_latitude_->SetText(entry.start_latitude);
  start_longitude_->SetText(entry.start_longitude);
  end_name_->setText(ToQt(entry.end_name));
  end_latitude_->SetText(entry.end_latitude);
  end_longitude_->SetText(entry.end_longitude);
  speed_->SetText(entry.speed);
}

void FrmRouteEdit::Finish(RouteFormRefusal refusal) {
  if (refusal != RouteFormRefusal::kNone) {
    Refuse(RouteFormText(refusal));
    return;
  }
  ForgetCalculation(desktop().program);
  Load();
  desktop().window.StateChanged();
}

void FrmRouteEdit::ChangeLeg() {
  Program& program = desktop().program;
  const LegEntry entry = {FromQt(start_name_->text()),
                          start_latitude_->Text(),
                          start_longitude_->Text(),
                          FromQt(end_name_->text()),
                          end_latitude_->Text(),
                          end_longitude_->Text(),
                          speed_->Text()};
  Finish(EditLeg(program.route, leg_, entry, RouteDefaultsOf(program), desktop().messages));
}

void FrmRouteEdit::InsertPoint() {
  Program& program = desktop().program;
  const int row = SelectedRow(*legs_);
  std::optional<WaypointRow> waypoint;
  if (const auto selected = view_->selected_row()) waypoint = view_->rows()[*selected];
  const InsertSide side = before_->isChecked()  ? InsertSide::kBefore
                          : after_->isChecked() ? InsertSide::kAfter
                                                : InsertSide::kNotChosen;
  Finish(InsertWaypointAtLeg(program.route, row < 0 ? 0 : static_cast<std::size_t>(LegOfRow(row)),
                             waypoint, side, RouteDefaultsOf(program), desktop().messages));
}

void FrmRouteEdit::DeletePoint() {
  Program& program = desktop().program;
  const int row = SelectedRow(*legs_);
  Finish(DeletePointOfRow(program.route, row < 0 ? "" : FromQt(legs_->item(row)->text()),
                          RouteDefaultsOf(program), desktop().messages));
}

void FrmRouteEdit::ApplySpeed() {
  Program& program = desktop().program;
  Finish(ApplySpeedToAllLegs(program.route, speed_->Text(), RouteDefaultsOf(program)));
}

void FrmRouteEdit::done(int result) {
  Dialog::done(result);
  desktop().window.StateChanged();
}

}  // namespace skerrow
