#include "ui/dialogs/frmCalcCOG.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <utility>

#include "core/numbers.h"
#include "ui/dialogs/frmresults.h"
#include "ui/forms/calc_route_form.h"
#include "ui/widgets/progress_dialog.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

namespace {

// A name takes room only where there is one.
void ShowName(QLabel* label, const QString& name) {
  label->setText(name);
  label->setVisible(!name.isEmpty());
}

}  // namespace

frmCalcCOG::frmCalcCOG(Desktop& desktop, QWidget* parent, Upload upload)
    : Dialog(desktop, "frmCalcCOG", "Leg Set-up", parent),
      upload_(std::move(upload)),
      start_latitude_(MakeLatitudeEdit(desktop.messages, "txtstartlat")),
      start_longitude_(MakeLongitudeEdit(desktop.messages, "txtstartlon")),
      start_name_(Named<QLabel>("lblstartname")),
      dest_latitude_(MakeLatitudeEdit(desktop.messages, "txtdestlat")),
      dest_longitude_(MakeLongitudeEdit(desktop.messages, "txtdestlon")),
      dest_name_(Named<QLabel>("lbldestname")),
      speed_(MakeSpeedEdit(desktop.messages, "Txtboatspeed")),
      duration_(new FilteredEdit(KeyFilter::kTime, desktop.messages, "txtDuration")),
      heading_(MakeBearingEdit(desktop.messages, "txtBearing")),
      leeway_(new LeewayBox(desktop.messages)),
      waypoints_(new TextList(desktop.clipboard, "lstWaypoints")),
      to_start_(Named<QPushButton>("cmdcopytostart", "Use for St&art")),
      to_dest_(Named<QPushButton>("cmdcopytodest", "Use for D&est")),
      next_is_dest_(desktop.program.config.set_leg_option != 0) {
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  columns->addWidget(MakeEntries());
  columns->addLayout(MakeWaypoints(), 1);
  body()->addLayout(columns, 1);
  QPushButton* to_gps = AddLeftButton("CmdDesttogps", "Destination to &GPS",
                                      desktop.program.link.gps_enabled
                                          ? "Sends the destination to the GPS as a waypoint"
                                          : "Needs a connected GPS");
  to_gps->setEnabled(upload_ != nullptr && desktop.program.link.gps_enabled);
  connect(to_gps, &QPushButton::clicked, this, [this] { UploadDestination(); });
  QPushButton* calculate = AddButton("cmdCalculate", "&Calculate");
  calculate->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(calculate, &QPushButton::clicked, this, [this] { Calculate(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

  const CalcRouteTexts texts = CalcRouteTextsOf(desktop.program);
  speed_->SetText(FormatFixed(desktop.program.route_speed, 1, 1));
  leeway_->Set(texts.use_leeway, texts.leeway);
  leeway_->AddHint(
      "Sets the boat off the heading steered, away from the wind. The wind itself does not enter.");
  // What is typed belongs to no waypoint.
  for (FilteredEdit* box : {start_latitude_, start_longitude_}) {
    connect(box, &QLineEdit::textEdited, this, [this] { ShowName(start_name_, ""); });
    connect(box, &QLineEdit::textChanged, this, [this] { OfferHeading(); });
  }
  for (FilteredEdit* box : {dest_latitude_, dest_longitude_}) {
    connect(box, &QLineEdit::textEdited, this, [this] { ShowName(dest_name_, ""); });
    connect(box, &QLineEdit::textChanged, this, [this] { OfferHeading(); });
  }
  for (QLabel* name : {start_name_, dest_name_}) ShowName(name, "");
  start_latitude_->setFocus();
  resize(900, 540);
}

QWidget* frmCalcCOG::MakeEntries() {
  auto* side = new QWidget;
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(10);
  column->addWidget(MakePlaces());
  auto* boat = new QGroupBox("Boat");
  auto* rows = new QGridLayout(boat);
  duration_->SetColumns(6);
  duration_->setPlaceholderText("1:30");
  duration_->setToolTip("Hours and minutes, 1:30");
  heading_->setToolTip(
      "The heading steered, degrees true; the bearing to the destination is "
      "offered");
  rows->addWidget(MakeLabel("&Boat speed:", speed_), 0, 0);
  rows->addLayout(MakeRow({speed_, new QLabel("kn through the water")}), 0, 1);
  rows->addWidget(MakeLabel("&Duration(H:mm)", duration_), 1, 0);
  rows->addWidget(duration_, 1, 1, Qt::AlignLeft);
  rows->addWidget(MakeLabel("&Heading steered:", heading_), 2, 0);
  rows->addLayout(MakeRow({heading_, new QLabel(QStringLiteral("\u00b0T"))}), 2, 1);
  rows->addWidget(new QLabel("Start:"), 3, 0);
  const CalcRouteTexts texts = CalcRouteTextsOf(desktop().program);
  auto* start = Named<QLabel>("lblDate", ToQt(texts.time + ", " + texts.date));
  start->setToolTip("The selected time: Date and Time in the Time menu changes it");
  rows->addWidget(start, 3, 1);
  rows->setColumnStretch(1, 1);
  column->addWidget(boat);
  column->addWidget(leeway_);
  column->addStretch(1);
  return side;
}

QWidget* frmCalcCOG::MakePlaces() {
  auto* places = new QGroupBox("Positions");
  auto* grid = new QGridLayout(places);
  grid->addWidget(new QLabel("Latitude"), 0, 1);
  grid->addWidget(new QLabel("Longitude"), 0, 2);
  grid->addWidget(MakeLabel("&From:", start_latitude_), 1, 0);
  grid->addWidget(start_latitude_, 1, 1);
  grid->addWidget(start_longitude_, 1, 2);
  grid->addWidget(start_name_, 2, 1, 1, 2);
  grid->addWidget(MakeLabel("T&o:", dest_latitude_), 3, 0);
  grid->addWidget(dest_latitude_, 3, 1);
  grid->addWidget(dest_longitude_, 3, 2);
  grid->addWidget(dest_name_, 4, 1, 1, 2);
  dest_latitude_->setToolTip(dest_latitude_->toolTip() + "; may be left empty");
  return places;
}

QLayout* frmCalcCOG::MakeWaypoints() {
  QVBoxLayout* right = MakeColumn();
  right->addWidget(MakeHeading("Waypoints"));
  right->addWidget(waypoints_, 1);
  for (QPushButton* button : {to_start_, to_dest_}) button->setAutoDefault(false);
  right->addLayout(MakeRow({to_start_, to_dest_}));
  right->addWidget(
      MakeHint("The heading is held and nothing is corrected: the result is where the "
               "tidal stream takes the boat."));
  std::vector<std::string> rows;
  for (const Waypoint& waypoint : desktop().program.waypoints.waypoints) {
    rows.push_back(waypoint.name + "\t" + LatToText(waypoint.latitude) + "\t" +
                   LongToText(waypoint.longitude));
  }
  waypoints_->SetLines(rows);
  waypoints_->setSelectionMode(QAbstractItemView::SingleSelection);
  const auto enable = [this] {
    const bool chosen = !waypoints_->selectedItems().isEmpty();
    to_start_->setEnabled(chosen);
    to_dest_->setEnabled(chosen);
  };
  connect(waypoints_, &QListWidget::itemSelectionChanged, this, enable);
  enable();
  connect(to_start_, &QPushButton::clicked, this, [this] { TakeWaypoint(true); });
  connect(to_dest_, &QPushButton::clicked, this, [this] { TakeWaypoint(false); });
  // A double click takes turns, beginning where it ended last time.
  connect(waypoints_, &QListWidget::itemDoubleClicked, this,
          [this] { TakeWaypoint(!next_is_dest_); });
  return right;
}

void frmCalcCOG::TakeWaypoint(bool to_start) {
  const int row = waypoints_->currentRow();
  const std::vector<Waypoint>& waypoints = desktop().program.waypoints.waypoints;
  if (row < 0 || static_cast<std::size_t>(row) >= waypoints.size()) return;
  const Waypoint& waypoint = waypoints[static_cast<std::size_t>(row)];
  (to_start ? start_latitude_ : dest_latitude_)->SetText(LatToText(waypoint.latitude));
  (to_start ? start_longitude_ : dest_longitude_)->SetText(LongToText(waypoint.longitude));
  ShowName(to_start ? start_name_ : dest_name_, ToQt(waypoint.name));
  next_is_dest_ = to_start;
}

void frmCalcCOG::OfferHeading() {
  const std::string heading = heading_->Text();
  if (!heading.empty() && heading != offered_) return;
  const std::string offer = OfferedHeading(Entry());
  if (offer.empty()) return;
  offered_ = offer;
  heading_->SetText(offer);
}

CogEntry frmCalcCOG::Entry() const {
  CogEntry entry;
  entry.start_latitude = start_latitude_->Text();
  entry.start_longitude = start_longitude_->Text();
  entry.start_name = FromQt(start_name_->text());
  entry.destination_latitude = dest_latitude_->Text();
  entry.destination_longitude = dest_longitude_->Text();
  entry.destination_name = FromQt(dest_name_->text());
  entry.speed = speed_->Text();
  entry.duration = duration_->Text();
  entry.heading = heading_->Text();
  leeway_->Put(entry);
  return entry;
}

QWidget* frmCalcCOG::BoxOf(DriftField field) const {
  switch (field) {
    case DriftField::kStart:
      return start_latitude_;
    case DriftField::kDestination:
      return dest_latitude_;
    case DriftField::kSpeed:
      return speed_;
    case DriftField::kDuration:
      return duration_;
    case DriftField::kHeading:
      return heading_;
    case DriftField::kLeeway:
      return leeway_->angle();
    case DriftField::kNone:
      break;
  }
  return nullptr;
}

void frmCalcCOG::UploadDestination() {
  if (busy()) return;
  const std::optional<UploadPoint> destination = DestinationOf(Entry());
  if (!destination) {
    Refuse("Error in start and destination coordinates", false, dest_latitude_);
    return;
  }
  if (desktop().messages.Ask("Upload destination to GPS?")) upload_(*destination);
}

void frmCalcCOG::Calculate() {
  if (busy()) return;
  Program& program = desktop().program;
  const CheckedDrift checked = CheckCourseOverGround(program, Entry());
  if (!checked.refusal.empty()) {
    Refuse(checked.refusal, false, BoxOf(checked.field));
    return;
  }
  RouteOutcome outcome = RouteOutcome::kCancelled;
  SetBusy(true);
  {
    constexpr const char* kWhat = "Predicting the course over the ground";
    ProgressDialog progress(this, kWhat, desktop().window.StartProgress(kWhat));
    outcome = RunCourseOverGround(program, checked, desktop().messages, progress);
  }
  SetBusy(false);
  if (outcome != RouteOutcome::kDone) return;
  if (const Status kept = KeepSetLegOption(program, next_is_dest_); !kept) {
    desktop().messages.Notice(kept.error().Text());
  }
  accept();
  desktop().window.Changed(kRouteChanged | kTimeChanged);
  frmresults(desktop(), parentWidget()).exec();
}

}  // namespace skerrow
