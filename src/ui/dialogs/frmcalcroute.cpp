#include "ui/dialogs/frmcalcroute.h"

#include <QGridLayout>
#include <QTimer>

#include "core/numbers.h"
#include "routes/route_forms.h"
#include "ui/dialogs/frmresults.h"
#include "ui/widgets/progress_dialog.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

FrmCalcRoute::FrmCalcRoute(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmcalcroute", tr("Route Calculation"), parent),
      legs_(new TextList(desktop.clipboard, "List1")),
      distance_(Named<QLabel>("lblroutedist")),
      date_(Named<QLabel>("lblDate")),
      time_(new TimeEntry(desktop.messages, "rtedeptime", "lsthrs", "lstmins")),
      leeway_on_(Named<QCheckBox>("chkLeeway", tr("Allow for &leeway"))),
      leeway_(new FilteredEdit(KeyFilter::kNumber, desktop.messages, "txtLeeway")),
      leg_title_(MakeHeading({})),
      start_name_(Named<QLineEdit>("txtroutestartname")),
      start_latitude_(MakeLatitudeEdit(desktop.messages, "txtroutestartlat")),
      start_longitude_(MakeLongitudeEdit(desktop.messages, "txtroutestartlong")),
      end_name_(Named<QLineEdit>("txtroutedestname")),
      end_latitude_(MakeLatitudeEdit(desktop.messages, "txtroutedestlat")),
      end_longitude_(MakeLongitudeEdit(desktop.messages, "txtroutedestlong")),
      speed_(MakeSpeedEdit(desktop.messages, "txtroutespeed")),
      gps_box_(new QGroupBox(tr("GPS"))),
      gps_position_(Named<QLabel>("lblGPSPosition")),
      gps_speed_(Named<QLabel>("lblGPSSpeed")),
      use_sog_(Named<QCheckBox>("chkUseSOG", tr("Use Speed Over &Ground"))) {
  legs_->setSelectionMode(QAbstractItemView::SingleSelection);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  QVBoxLayout* left = MakeColumn();
  auto* head = new QHBoxLayout;
  head->addWidget(MakeHeading(tr("Legs of the route")), 1);
  head->addWidget(distance_);
  left->addLayout(head);
  left->addWidget(legs_, 1);
  left->addWidget(MakeLegBox());
  columns->addLayout(left, 1);
  columns->addWidget(MakeSideColumn());
  body()->addLayout(columns, 1);
  MakeButtons();

  const CalcRouteTexts texts = CalcRouteTextsOf(desktop.program);
  time_->SetText(texts.time);
  date_->setText(ToQt(texts.date));
  leeway_on_->setChecked(texts.use_leeway);
  leeway_->SetText(texts.leeway);
  leeway_->setEnabled(texts.use_leeway);
  connect(leeway_on_, &QCheckBox::toggled, leeway_, &QWidget::setEnabled);
  connect(legs_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (row >= 0) LoadLeg(static_cast<std::size_t>(LegOfRow(row)));
  });
  auto* gps_timer = new QTimer(this);
  connect(gps_timer, &QTimer::timeout, this, [this] { LoadGps(); });
  gps_timer->start(1000);
  Load();
  LoadGps();
  time_->setFocus();
  time_->text_box()->selectAll();
  resize(860, 560);
}

QWidget* FrmCalcRoute::MakeLegBox() {
  auto* box = new QGroupBox(tr("Selected leg"));
  auto* grid = new QGridLayout(box);
  grid->setHorizontalSpacing(8);
  for (QLineEdit* name : {start_name_, end_name_}) name->setMaxLength(35);
  grid->addWidget(leg_title_, 0, 0, 1, 4);
  grid->addWidget(MakeLabel(tr("&From:"), start_name_), 1, 0);
  grid->addWidget(start_name_, 1, 1);
  grid->addWidget(start_latitude_, 1, 2);
  grid->addWidget(start_longitude_, 1, 3);
  grid->addWidget(MakeLabel(tr("T&o:"), end_name_), 2, 0);
  grid->addWidget(end_name_, 2, 1);
  grid->addWidget(end_latitude_, 2, 2);
  grid->addWidget(end_longitude_, 2, 3);
  grid->addWidget(MakeLabel(tr("&Speed:"), speed_), 3, 0);
  auto* all = Named<QPushButton>("cmdRouteSpeed", tr("Appl&y to all Legs"));
  all->setToolTip(tr("Gives every leg this speed"));
  auto* accept = Named<QPushButton>("cmdModify", tr("&Accept"));
  accept->setToolTip(tr("Writes these values into the leg"));
  QHBoxLayout* row = MakeRow({speed_, new QLabel(tr("kn")), all});
  row->addWidget(accept);
  grid->addLayout(row, 3, 1, 1, 3);
  grid->setColumnStretch(1, 1);
  for (QPushButton* button : {all, accept}) button->setAutoDefault(false);
  connect(all, &QPushButton::clicked, this, [this] { ApplySpeed(); });
  connect(accept, &QPushButton::clicked, this, [this] { AcceptLegEntry(); });
  return box;
}

QWidget* FrmCalcRoute::MakeSideColumn() {
  auto* side = new QWidget;
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(10);
  auto* departure = new QGroupBox(tr("Departure"));
  auto* departure_rows = new QVBoxLayout(departure);
  departure_rows->addWidget(date_);
  departure_rows->addWidget(MakeLabel(tr("&Time of departure:"), time_->text_box()));
  departure_rows->addWidget(time_);
  column->addWidget(departure);

  auto* leeway = new QGroupBox(tr("Leeway"));
  auto* leeway_rows = new QVBoxLayout(leeway);
  leeway_rows->addWidget(leeway_on_);
  leeway_->SetColumns(5);
  leeway_->setToolTip(tr("Leeway angle, degrees; applied by the tack of each leg"));
  leeway_rows->addLayout(
      MakeRow({MakeLabel(tr("A&ngle:"), leeway_), leeway_, new QLabel(QStringLiteral("\u00b0"))}));
  auto* winds = new QHBoxLayout;
  auto* wind = Named<QPushButton>("cmdWind", tr("&Wind"));
  wind->setEnabled(false);
  wind->setToolTip(tr("Leg speeds from the wind"));
  auto* tack = Named<QPushButton>("cmdTack", tr("Tac&k ?"));
  tack->setToolTip(tr("Sets the tack of each leg from the default wind"));
  for (QPushButton* button : {wind, tack}) {
    button->setAutoDefault(false);
    winds->addWidget(button);
  }
  leeway_rows->addLayout(winds);
  column->addWidget(leeway);
  connect(tack, &QPushButton::clicked, this, [this] {
    SetTacks(this->desktop().program);
    Load();
  });

  auto* gps_rows = new QVBoxLayout(gps_box_);
  auto* use = Named<QPushButton>("cmdUseGPS", tr("&Use GPS for Start"));
  use->setAutoDefault(false);
  gps_rows->addWidget(gps_position_);
  gps_rows->addWidget(gps_speed_);
  gps_rows->addWidget(use_sog_);
  gps_rows->addWidget(use);
  column->addWidget(gps_box_);
  connect(use, &QPushButton::clicked, this, [this] { UseGps(); });
  column->addStretch(1);
  return side;
}

void FrmCalcRoute::MakeButtons() {
  QPushButton* reverse = AddLeftButton("cmdreverse", tr("&Reverse"), tr("Turns the route round"));
  QPushButton* copy =
      AddLeftButton("cmdCopy", tr("Co&py"), tr("Puts the route plan on the clipboard"));
  QPushButton* ok = AddButton("Cmdrteok", tr("&Calculate"));
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdrtecancel", tr("Cancel"));
  connect(reverse, &QPushButton::clicked, this, [this] {
    ReverseCurrentRoute(desktop().program, desktop().messages);
    RouteEdited();
  });
  connect(copy, &QPushButton::clicked, this, [this] { Copy(); });
  connect(ok, &QPushButton::clicked, this, [this] { Calculate(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void FrmCalcRoute::Load() {
  const Program& program = desktop().program;
  legs_->SetLines(RouteRows(program.route));
  distance_->setText(ToQt(CalcRouteTextsOf(program).route_distance));
  const std::size_t legs = program.route.points.empty() ? 0 : program.route.points.size() - 1;
  leg_ = std::min(leg_, std::max<std::size_t>(legs, 1));
  if (legs > 0) legs_->setCurrentRow(static_cast<int>(leg_ - 1) * 4);
  LoadLeg(leg_);
}

void FrmCalcRoute::LoadLeg(std::size_t leg) {
  const LegEntry entry = EntryOfLeg(desktop().program.route, leg);
  leg_ = leg;
  leg_title_->setText(tr("Leg %1").arg(leg));
  start_name_->setText(ToQt(entry.start_name));
  start_latitude_->SetText(entry.start_latitude);
  start_longitude_->SetText(entry.start_longitude);
  end_name_->setText(ToQt(entry.end_name));
  end_latitude_->SetText(entry.end_latitude);
  end_longitude_->SetText(entry.end_longitude);
  speed_->SetText(entry.speed);
}

void FrmCalcRoute::LoadGps() {
  const std::optional<GpsReading> gps = GpsReadingOf(desktop().program);
  gps_box_->setVisible(gps.has_value());
  if (!gps) return;
  gps_position_->setText(
      ToQt(LatToText(gps->position.latitude) + "  " + LongToText(gps->position.longitude)));
  const bool has_speed = gps->speed_over_ground.has_value();
  gps_speed_->setVisible(has_speed);
  use_sog_->setEnabled(has_speed);
  if (has_speed) {
    gps_speed_->setText(ToQt("SOG = " + FormatFixed(*gps->speed_over_ground, 1, 1) + " kt."));
  }
}

void FrmCalcRoute::RouteEdited() {
  Load();
  desktop().window.Changed(kRouteChanged | kTimeChanged);
}

void FrmCalcRoute::AcceptLegEntry() {
  const LegEntry entry = {FromQt(start_name_->text()),
                          start_latitude_->Text(),
                          start_longitude_->Text(),
                          FromQt(end_name_->text()),
                          end_latitude_->Text(),
                          end_longitude_->Text(),
                          speed_->Text()};
  const LegRefusal refusal = AcceptLeg(desktop().program, leg_, entry, desktop().messages);
  if (refusal == LegRefusal::kNoLeg) return;
  if (refusal != LegRefusal::kNone) {
    Refuse(LegRefusalText(refusal), false,
           refusal == LegRefusal::kLatitude ? start_latitude_ : end_longitude_);
    return;
  }
  RouteEdited();
}

void FrmCalcRoute::ApplySpeed() {
  if (!ApplyRouteSpeed(desktop().program, speed_->Text())) {
    Refuse(kBadRouteSpeed, false, speed_);
    return;
  }
  RouteEdited();
}

void FrmCalcRoute::UseGps() {
  if (const std::optional<GpsReading> gps = GpsReadingOf(desktop().program)) {
    UseGpsForStart(desktop().program, *gps, use_sog_->isChecked(), desktop().messages);
    RouteEdited();
  }
}

void FrmCalcRoute::Copy() {
  desktop().clipboard.SetText(RoutePlanText(time_->Text(), FromQt(date_->text()), legs_->lines()));
}

void FrmCalcRoute::Calculate() {
  if (busy()) return;
  const CalculationEntry entry = {time_->Text(), leeway_on_->isChecked(), leeway_->Text()};
  const DepartureTimeRefusal refusal = CheckCalculation(entry);
  if (refusal != DepartureTimeRefusal::kNone) {
    Refuse(DepartureTimeText(refusal), refusal == DepartureTimeRefusal::kOutOfRange,
           time_->text_box());
    return;
  }
  RouteOutcome outcome = RouteOutcome::kCancelled;
  SetBusy(true);
  {
    constexpr const char* kWhat = "Calculating the course for the route";
    ProgressDialog progress(this, kWhat, desktop().window.StartProgress(kWhat));
    outcome = RunCalculation(desktop().program, entry, desktop().messages, progress);
  }
  SetBusy(false);
  if (outcome != RouteOutcome::kDone) return;
  accept();
  desktop().window.Changed(kRouteChanged | kTimeChanged);
  FrmResults(desktop(), parentWidget()).exec();
}

}  // namespace skerrow
