#include "ui/dialogs/frmcalcroute.h"

#include <QGridLayout>
#include <QTimer>
#include <algorithm>

#include "core/numbers.h"
#include "passage/wind_on_route.h"
#include "routes/route_rows.h"
#include "ui/dialogs/frmWind.h"
#include "ui/dialogs/frmresults.h"
#include "ui/edits.h"
#include "ui/widgets/progress_dialog.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

frmcalcroute::frmcalcroute(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmcalcroute", "Route Calculation", parent),
      legs_(new TextList(desktop.clipboard, "List1")),
      distance_(Named<QLabel>("lblroutedist")),
      date_(Named<QLabel>("lblDate")),
      time_(new TimeEntry(desktop.messages, "rtedeptime", "lsthrs", "lstmins")),
      leeway_on_(Named<QCheckBox>("chkLeeway", "Allow for &leeway")),
      leeway_(new FilteredEdit(KeyFilter::kNumber, desktop.messages, "txtLeeway")),
      leg_box_(
          new LegBox(desktop.messages, {"&From:", "Appl&y to all Legs", "cmdModify", "&Accept"})),
      gps_box_(new QGroupBox("GPS")),
      gps_position_(Named<QLabel>("lblGPSPosition")),
      gps_speed_(Named<QLabel>("lblGPSSpeed")),
      use_sog_(Named<QCheckBox>("chkUseSOG", "Use Speed Over &Ground")) {
  legs_->setSelectionMode(QAbstractItemView::SingleSelection);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  QVBoxLayout* left = MakeColumn();
  auto* head = new QHBoxLayout;
  head->addWidget(MakeHeading("Legs of the route"), 1);
  head->addWidget(distance_);
  left->addLayout(head);
  left->addWidget(legs_, 1);
  left->addWidget(leg_box_);
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
  connect(leg_box_, &LegBox::Accepted, this, [this] {
    Edit("Edit Leg", [this](RouteState& route) {
      return EditLeg(route, leg_, leg_box_->Entry(), LegCheck::kDestinationZero,
                     RouteDefaultsOf(this->desktop().program), this->desktop().messages);
    });
  });
  connect(leg_box_, &LegBox::SpeedForAll, this, [this] {
    Edit("Apply Speed to all Legs",
         [this](RouteState& route) { return ApplySpeedToAllLegs(route, leg_box_->Speed()); });
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

QWidget* frmcalcroute::MakeSideColumn() {
  auto* side = new QWidget;
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(10);
  auto* departure = new QGroupBox("Departure");
  auto* departure_rows = new QVBoxLayout(departure);
  departure_rows->addWidget(date_);
  departure_rows->addWidget(MakeLabel("&Time of departure:", time_->text_box()));
  departure_rows->addWidget(time_);
  column->addWidget(departure);

  auto* leeway = new QGroupBox("Leeway");
  auto* leeway_rows = new QVBoxLayout(leeway);
  leeway_rows->addWidget(leeway_on_);
  leeway_->SetColumns(5);
  leeway_->setToolTip("Leeway angle, degrees; applied by the tack of each leg");
  leeway_rows->addLayout(
      MakeRow({MakeLabel("A&ngle:", leeway_), leeway_, new QLabel(QStringLiteral("\u00b0"))}));
  auto* winds = new QHBoxLayout;
  auto* wind = Named<QPushButton>("cmdWind", "&Wind");
  wind->setToolTip("Leg speeds from the wind");
  auto* tack = Named<QPushButton>("cmdTack", "Tac&k ?");
  tack->setToolTip("Sets the tack of each leg from the default wind");
  for (QPushButton* button : {wind, tack}) {
    button->setAutoDefault(false);
    winds->addWidget(button);
  }
  leeway_rows->addLayout(winds);
  column->addWidget(leeway);
  connect(wind, &QPushButton::clicked, this, [this] {
    frmWind(this->desktop(), this).exec();
    SetTacks();
  });
  connect(tack, &QPushButton::clicked, this, [this] { SetTacks(); });

  auto* gps_rows = new QVBoxLayout(gps_box_);
  auto* use = Named<QPushButton>("cmdUseGPS", "&Use GPS for Start");
  use->setAutoDefault(false);
  gps_rows->addWidget(gps_position_);
  gps_rows->addWidget(gps_speed_);
  gps_rows->addWidget(use_sog_);
  gps_rows->addWidget(use);
  column->addWidget(gps_box_);
  connect(use, &QPushButton::clicked, this, [this] {
    const std::optional<GpsReading> gps = GpsReadingOf(this->desktop().program);
    if (!gps) return;
    Edit("Use GPS for Start", [this, &gps](RouteState& route) {
      UseGpsForStart(route, *gps, use_sog_->isChecked(), RouteDefaultsOf(this->desktop().program),
                     this->desktop().messages);
      return RouteFormRefusal::kNone;
    });
  });
  column->addStretch(1);
  return side;
}

void frmcalcroute::MakeButtons() {
  QPushButton* reverse = AddLeftButton("cmdreverse", "&Reverse", "Turns the route round");
  QPushButton* copy = AddLeftButton("cmdCopy", "Co&py", "Puts the route plan on the clipboard");
  QPushButton* ok = AddButton("Cmdrteok", "&Calculate");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdrtecancel", "Cancel");
  connect(reverse, &QPushButton::clicked, this, [this] {
    Edit("Reverse Route", [this](RouteState& route) {
      ReverseRoute(route, RouteDefaultsOf(desktop().program), desktop().messages);
      return RouteFormRefusal::kNone;
    });
  });
  connect(copy, &QPushButton::clicked, this, [this] { Copy(); });
  connect(ok, &QPushButton::clicked, this, [this] { Calculate(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmcalcroute::Load() {
  const Program& program = desktop().program;
  legs_->SetLines(RouteRows(program.route));
  distance_->setText(ToQt(CalcRouteTextsOf(program).route_distance));
  const std::size_t legs = program.route.points.empty() ? 0 : program.route.points.size() - 1;
  leg_ = std::min(leg_, std::max<std::size_t>(legs, 1));
  if (legs > 0) legs_->setCurrentRow(static_cast<int>(leg_ - 1) * 4);
  LoadLeg(leg_);
}

void frmcalcroute::LoadLeg(std::size_t leg) {
  leg_ = leg;
  leg_box_->Show(EntryOfLeg(desktop().program.route, leg), leg);
}

void frmcalcroute::LoadGps() {
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

void frmcalcroute::Edit(const char* name,
                        const std::function<RouteFormRefusal(RouteState&)>& edit) {
  const RouteFormRefusal refusal = EditRoute(desktop(), name, edit);
  if (refusal == RouteFormRefusal::kNone) {
    Load();
  } else if (refusal != RouteFormRefusal::kNoLegSelected) {
    Refuse(RouteFormText(refusal), false, leg_box_->AtFault(refusal));
  }
}

void frmcalcroute::SetTacks() {
  Edit("Set Tacks", [this](RouteState& route) {
    SetTacksByWind(route.points, desktop().program.wind_config.Default().from_deg);
    return RouteFormRefusal::kNone;
  });
}

void frmcalcroute::Copy() {
  desktop().clipboard.SetText(RoutePlanText(time_->Text(), FromQt(date_->text()), legs_->lines()));
}

void frmcalcroute::Calculate() {
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
  frmresults(desktop(), parentWidget()).exec();
}

}  // namespace skerrow
