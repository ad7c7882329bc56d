#include "ui/dialogs/frmCalcMOB.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QTimer>

#include "core/numbers.h"
#include "ui/forms/calc_route_form.h"
#include "ui/widgets/progress_dialog.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr const char* kCaution =
    "CAUTION THIS FUNCTION IS OF RESTRICTED ACCURACY AND THE RESULTS ARE A BACKUP TO MANUAL "
    "CALCULATIONS, THIS IS ESPECIALLY SO IN LIFE THREATENING SITUATIONS.";
constexpr const char* kNotRequired =
    "Speed and heading are not required for plotting the predicted track of an object or body only "
    "under tidal influences.";
constexpr const char* kRequired =
    "Speed and heading are required if the object has a speed relative to the water eg. A powered "
    "object or something drifting under the influence of wind.";

QLineEdit* MakeShown(const char* name) {
  auto* box = Named<QLineEdit>(name);
  box->setReadOnly(true);
  box->setFocusPolicy(Qt::NoFocus);
  return box;
}

}  // namespace

frmCalcMOB::frmCalcMOB(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmCalcMOB", "Calculate Course Over Ground", parent),
      start_latitude_(MakeLatitudeEdit(desktop.messages, "txtstartlat")),
      start_longitude_(MakeLongitudeEdit(desktop.messages, "txtstartlon")),
      duration_(new FilteredEdit(KeyFilter::kNumber, desktop.messages, "txtDuration")),
      heading_(MakeBearingEdit(desktop.messages, "txtBearing")),
      speed_(MakeSpeedEdit(desktop.messages, "Txtboatspeed")),
      at_mark_time_(Named<QRadioButton>("optMarkTime")),
      at_selected_time_(Named<QRadioButton>("optSelectedTime")),
      gps_north_(MakeShown("txtgpsn")),
      gps_east_(MakeShown("txtgpsE")),
      gps_heading_(MakeShown("txtHeading")),
      gps_to_start_(Named<QPushButton>("Cmdgpstostart", "&Copy GPS to Start")),
      use_sog_(Named<QPushButton>("cmdUseSOG", "&Use GPS Speed")) {
  body()->addWidget(MakeHeading(kCaution));
  body()->addWidget(MakeStart());
  body()->addWidget(MakeObject());
  gps_box_ = MakeGps();
  body()->addWidget(gps_box_);
  body()->addStretch(1);
  QPushButton* ok = AddButton("cmdOK", "OK");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(ok, &QPushButton::clicked, this, [this] { Predict(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(gps_to_start_, &QPushButton::clicked, this, [this] {
    start_latitude_->setText(gps_north_->text());
    start_longitude_->setText(gps_east_->text());
    // The position of this moment is no place of the mark's time.
    at_selected_time_->setChecked(true);
  });
  connect(use_sog_, &QPushButton::clicked, this, [this] {
    const GpsFix& fix = this->desktop().program.nmea.fix;
    speed_->SetText(FormatFixed(fix.speed_over_ground, 1, 1));
    heading_->SetText(FormatFixed(fix.course_over_ground, 3, 0));
  });
  auto* gps_timer = new QTimer(this);
  connect(gps_timer, &QTimer::timeout, this, [this] { LoadGps(); });
  gps_timer->start(1000);

  const MobEntry first = FirstManOverboardEntry(desktop.program);
  start_latitude_->SetText(first.start_latitude);
  start_longitude_->SetText(first.start_longitude);
  (first.from_mark_time ? at_mark_time_ : at_selected_time_)->setChecked(true);
  LoadGps();
  if (first.start_latitude.empty()) {
    start_latitude_->setFocus();
  } else {
    duration_->setFocus();
  }
  resize(560, 440);
}

QWidget* frmCalcMOB::MakeStart() {
  auto* box = new QGroupBox("Start");
  auto* grid = new QGridLayout(box);
  grid->addWidget(MakeLabel("&Position:", start_latitude_), 0, 0);
  grid->addLayout(MakeRow({start_latitude_, start_longitude_}), 0, 1);
  auto* times = new QButtonGroup(this);
  times->addButton(at_mark_time_);
  times->addButton(at_selected_time_);
  const Program& program = desktop().program;
  at_mark_time_->setText(ToQt(MarkTimeText(program)));
  at_mark_time_->setVisible(program.mob.on);
  at_selected_time_->setText(ToQt(SelectedStartText(program)));
  grid->addWidget(at_mark_time_, 1, 0, 1, 2);
  grid->addWidget(at_selected_time_, 2, 0, 1, 2);
  duration_->SetColumns(6);
  duration_->setPlaceholderText("2");
  duration_->setToolTip("Hours, 1.5 for an hour and a half");
  grid->addWidget(MakeLabel("&Duration(Hours)", duration_), 3, 0);
  grid->addWidget(duration_, 3, 1, Qt::AlignLeft);
  grid->setColumnStretch(1, 1);
  return box;
}

QWidget* frmCalcMOB::MakeObject() {
  auto* box = new QGroupBox("Object");
  auto* grid = new QGridLayout(box);
  grid->addWidget(MakeLabel("Target &Heading (\u00b0T)", heading_), 0, 0);
  grid->addWidget(heading_, 0, 1);
  grid->addWidget(MakeLabel("&Target Speed", speed_), 0, 2);
  grid->addLayout(MakeRow({speed_, new QLabel("kn")}), 0, 3);
  grid->addWidget(MakeHint(kNotRequired), 1, 0, 1, 4);
  grid->addWidget(MakeHint(kRequired), 2, 0, 1, 4);
  grid->setColumnStretch(3, 1);
  return box;
}

QWidget* frmCalcMOB::MakeGps() {
  auto* box = new QGroupBox("GPS");
  auto* rows = new QVBoxLayout(box);
  rows->addLayout(MakeRow({gps_north_, gps_east_, gps_heading_}));
  for (QPushButton* button : {gps_to_start_, use_sog_}) button->setAutoDefault(false);
  use_sog_->setToolTip("Takes speed and course over the ground of the boat as those of the target");
  rows->addLayout(MakeRow({gps_to_start_, use_sog_}));
  return box;
}

void frmCalcMOB::LoadGps() {
  const Program& program = desktop().program;
  const std::optional<GpsReading> gps = GpsReadingOf(program);
  gps_box_->setVisible(gps.has_value());
  if (!gps) return;
  gps_north_->setText(ToQt(LatToText(gps->position.latitude)));
  gps_east_->setText(ToQt(LongToText(gps->position.longitude)));
  gps_heading_->setText(ToQt(FormatFixed(program.nmea.fix.course_over_ground, 3, 0) + "°T  " +
                             FormatFixed(program.nmea.fix.speed_over_ground, 1, 1) + " kt."));
  use_sog_->setEnabled(program.nmea.fix.position_good);
}

MobEntry frmCalcMOB::Entry() const {
  MobEntry entry;
  entry.start_latitude = start_latitude_->Text();
  entry.start_longitude = start_longitude_->Text();
  entry.duration = duration_->Text();
  entry.heading = heading_->Text();
  entry.speed = speed_->Text();
  entry.from_mark_time = at_mark_time_->isChecked();
  return entry;
}

QWidget* frmCalcMOB::BoxOf(DriftField field) const {
  switch (field) {
    case DriftField::kDuration:
      return duration_;
    case DriftField::kHeading:
      return heading_;
    case DriftField::kSpeed:
      return speed_;
    default:
      return start_latitude_;
  }
}

void frmCalcMOB::Predict() {
  if (busy()) return;
  Program& program = desktop().program;
  const CheckedDrift checked = CheckManOverboard(program, Entry());
  if (!checked.refusal.empty()) {
    Refuse(checked.refusal, false, BoxOf(checked.field));
    return;
  }
  RouteOutcome outcome = RouteOutcome::kCancelled;
  SetBusy(true);
  {
    constexpr const char* kWhat = "Predicting the drift";
    ProgressDialog progress(this, kWhat, desktop().window.StartProgress(kWhat));
    outcome = RunManOverboard(program, checked, desktop().messages, progress);
  }
  SetBusy(false);
  if (outcome != RouteOutcome::kDone) return;
  accept();
  desktop().window.Changed(kRouteChanged | kTimeChanged);
}

}  // namespace skerrow
