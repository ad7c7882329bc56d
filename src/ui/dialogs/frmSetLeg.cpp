#include "ui/dialogs/frmSetLeg.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>

#include "core/numbers.h"
#include "routes/route_rows.h"
#include "ui/forms/calc_route_form.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

frmSetLeg::frmSetLeg(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmSetLeg", "Single Leg Set-up", parent),
      start_latitude_(MakeLatitudeEdit(desktop.messages, "txtstartlat")),
      start_longitude_(MakeLongitudeEdit(desktop.messages, "txtstartlong")),
      end_latitude_(MakeLatitudeEdit(desktop.messages, "txtdestlat")),
      end_longitude_(MakeLongitudeEdit(desktop.messages, "txtdestlong")),
      fill_start_(Named<QRadioButton>("optFillStart", "S&tart")),
      fill_end_(Named<QRadioButton>("optFillDest", "D&estination")),
      speed_(MakeSpeedEdit(desktop.messages, "Txtboatspeed")),
      time_(new TimeEntry(desktop.messages, "txtTime", "lsthrs", "lstmins")),
      leeway_(new LeewayBox(desktop.messages)),
      waypoints_(new TextList(desktop.clipboard, "lstWaypoints")),
      results_(new TextList(desktop.clipboard, "lstResults")),
      status_(Named<QLabel>("lblStatus")) {
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  columns->addWidget(MakeEntries());
  QVBoxLayout* right = MakeColumn();
  right->addWidget(MakeHeading("Waypoints (double click takes one)"));
  right->addWidget(waypoints_, 1);
  right->addWidget(MakeHeading("Result"));
  right->addWidget(results_, 1);
  status_->setProperty("heading", true);
  right->addWidget(status_);
  columns->addLayout(right, 1);
  body()->addLayout(columns, 1);
  QPushButton* calculate = AddButton("cmdCalculate", "&Calculate");
  calculate->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Close");
  connect(calculate, &QPushButton::clicked, this, [this] { Calculate(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(waypoints_, &QListWidget::itemDoubleClicked, this,
          [this](QListWidgetItem* item) { TakeWaypoint(waypoints_->row(item)); });

  const Program& program = desktop.program;
  std::vector<std::string> rows;
  for (const Waypoint& waypoint : program.waypoints.waypoints) {
    rows.push_back(waypoint.name + "\t" + LatToText(waypoint.latitude) + "\t" +
                   LongToText(waypoint.longitude));
  }
  waypoints_->SetLines(rows);
  waypoints_->setSelectionMode(QAbstractItemView::SingleSelection);
  const CalcRouteTexts texts = CalcRouteTextsOf(program);
  time_->SetText(texts.time);
  speed_->SetText(FormatFixed(program.route_speed, 1, 1));
  leeway_->Set(texts.use_leeway, texts.leeway);
  // With the option the start is taken as known, and waypoints fill the destination first.
  (program.config.set_leg_option != 0 ? fill_end_ : fill_start_)->setChecked(true);
  start_latitude_->setFocus();
  resize(920, 560);
}

QWidget* frmSetLeg::MakeEntries() {
  auto* side = new QWidget;
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(10);
  auto* places = new QGroupBox("Leg");
  auto* grid = new QGridLayout(places);
  grid->addWidget(new QLabel("Latitude"), 0, 1);
  grid->addWidget(new QLabel("Longitude"), 0, 2);
  grid->addWidget(MakeLabel("&From:", start_latitude_), 1, 0);
  grid->addWidget(start_latitude_, 1, 1);
  grid->addWidget(start_longitude_, 1, 2);
  grid->addWidget(MakeLabel("T&o:", end_latitude_), 2, 0);
  grid->addWidget(end_latitude_, 2, 1);
  grid->addWidget(end_longitude_, 2, 2);
  auto* sides = new QButtonGroup(this);
  sides->addButton(fill_start_);
  sides->addButton(fill_end_);
  grid->addWidget(new QLabel("A waypoint goes to:"), 3, 0, 1, 3);
  grid->addLayout(MakeRow({fill_start_, fill_end_}), 4, 0, 1, 3);
  column->addWidget(places);

  auto* sailing = new QGroupBox("Departure");
  auto* rows = new QGridLayout(sailing);
  rows->addWidget(MakeLabel("&Boat speed:", speed_), 0, 0);
  rows->addLayout(MakeRow({speed_, new QLabel("kn")}), 0, 1);
  rows->addWidget(new QLabel("Date:"), 1, 0);
  rows->addWidget(new QLabel(ToQt(DateText(desktop().program.selected_time.Day()))), 1, 1);
  rows->addWidget(MakeLabel("T&ime:", time_->text_box()), 2, 0);
  rows->addWidget(time_, 2, 1);
  column->addWidget(sailing);
  column->addWidget(leeway_);
  column->addStretch(1);
  return side;
}

void frmSetLeg::TakeWaypoint(int row) {
  const std::vector<Waypoint>& waypoints = desktop().program.waypoints.waypoints;
  if (row < 0 || static_cast<std::size_t>(row) >= waypoints.size()) return;
  const Waypoint& waypoint = waypoints[static_cast<std::size_t>(row)];
  const bool start = fill_start_->isChecked();
  (start ? start_latitude_ : end_latitude_)->SetText(LatToText(waypoint.latitude));
  (start ? start_longitude_ : end_longitude_)->SetText(LongToText(waypoint.longitude));
  if (start) fill_end_->setChecked(true);
}

SetLegEntry frmSetLeg::Entry() const {
  SetLegEntry entry;
  entry.start_latitude = start_latitude_->Text();
  entry.start_longitude = start_longitude_->Text();
  entry.end_latitude = end_latitude_->Text();
  entry.end_longitude = end_longitude_->Text();
  entry.speed = speed_->Text();
  leeway_->Put(entry);
  entry.time = time_->Text();
  return entry;
}

void frmSetLeg::Calculate() {
  Program& program = desktop().program;
  const CheckedLeg leg = CheckSetLeg(Entry(), program.selected_time.Day(), desktop().messages);
  if (leg.refusal != SetLegRefusal::kNone) {
    if (leg.refusal == SetLegRefusal::kNoSpeed) speed_->SetText(kSetLegSpeed);
    if (leg.refusal != SetLegRefusal::kDeclined) {
      Refuse(SetLegText(leg.refusal), leg.refusal == SetLegRefusal::kTimeOutOfRange);
    }
    return;
  }
  const SetLegReport report = CalculateSetLeg(program, leg, desktop().messages);
  results_->SetLines(report.lines);
  status_->setText(ToQt(report.status).trimmed());
  desktop().window.Changed(kRouteChanged);
}

}  // namespace skerrow
