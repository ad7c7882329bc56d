#include "ui/dialogs/frmRouteOptDeparture.h"

#include <QGroupBox>
#include <QShowEvent>
#include <QTimer>

#include "passage/optimum.h"
#include "platform/polars.h"
#include "routes/route_rows.h"
#include "ui/dialogs/frmOptResults.h"
#include "ui/edits.h"
#include "ui/widgets/progress_dialog.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

frmRouteOptDeparture::frmRouteOptDeparture(Desktop& desktop, QWidget* parent)
    : Dialog(desktop, "frmRouteOptDeparture", "Optimise Departure", parent),
      legs_(new TextList(desktop.clipboard, "List1")),
      wind_(DepartureWindOf(desktop.program,
                            *OpenPolarDatabase(desktop.program.folders.InstalledPolars(),
                                               desktop.program.folders.OwnPolars()))),
      use_wind_(Named<QCheckBox>("chkWind", "Use &wind for each departure")),
      bar_(Named<QProgressBar>("ProgressBar1")),
      progress_(Named<QLabel>("lblProgress")) {
  body()->addWidget(
      MakeHint(QString("The route is calculated for every whole hour of the slot on %1.")
                   .arg(ToQt(DateText(desktop.program.selected_time.Day())))));
  auto* columns = new QHBoxLayout;
  columns->setSpacing(14);
  columns->addWidget(legs_, 1);
  auto* box = new QGroupBox("Departure between");
  auto* rows = new QVBoxLayout(box);
  constexpr const char* kNames[] = {"Option1", "Option2", "Option3", "Option4", "Option5"};
  for (std::size_t i = 0; i < slots_.size(); ++i) {
    slots_[i] = Named<QRadioButton>(kNames[i], QString::fromUtf8(kDepartureSlots[i].caption));
    rows->addWidget(slots_[i]);
  }
  slots_.back()->setChecked(true);
  rows->addStretch(1);
  auto* choices = MakeColumn();
  choices->addWidget(box);
  choices->addWidget(use_wind_);
  QLabel* note = MakeHint(ToQt(wind_.note));
  note->setObjectName(QStringLiteral("lblWind"));
  choices->addWidget(note);
  choices->addStretch(1);
  columns->addLayout(choices);
  body()->addLayout(columns, 1);
  use_wind_->setEnabled(wind_.polar.has_value());
  use_wind_->setToolTip(
      "The polar and the forecast give each leg its speed anew at each departure");
  auto* progress = new QHBoxLayout;
  bar_->setRange(0, 100);
  bar_->setTextVisible(false);
  progress_->setMinimumWidth(progress_->fontMetrics().horizontalAdvance(QStringLiteral("100 %")));
  progress->addWidget(bar_, 1);
  progress->addWidget(progress_);
  body()->addLayout(progress);
  bar_->hide();

  QPushButton* reverse = AddLeftButton("cmdreverse", "&Reverse Route", "Turns the route round");
  QPushButton* search = AddButton("cmdOptimise", "&Calculate Optimise");
  search->setDefault(true);
  cancel_ = AddButton("cmdrtecancel", "Cancel");
  connect(reverse, &QPushButton::clicked, this, [this] {
    EditRoute(this->desktop(), "Reverse Route", [this](RouteState& route) {
      ReverseRoute(route, RouteDefaultsOf(this->desktop().program), this->desktop().messages);
    });
    Load();
  });
  connect(search, &QPushButton::clicked, this, [this] { Search(); });
  connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
  Load();
  slots_.back()->setFocus();
  resize(720, 420);
}

void frmRouteOptDeparture::Load() { legs_->SetLines(RouteRows(desktop().program.route)); }

void frmRouteOptDeparture::showEvent(QShowEvent* event) {
  Dialog::showEvent(event);
  if (inputs_checked_) return;
  inputs_checked_ = true;
  // Behind the first paint, so that a message stands over the dialog that it is about.
  QTimer::singleShot(
      0, this, [this] { CheckLegSpeeds(desktop().program.route.points, desktop().messages); });
}

std::size_t frmRouteOptDeparture::Slot() const {
  for (std::size_t i = 0; i < slots_.size(); ++i) {
    if (slots_[i]->isChecked()) return i;
  }
  return slots_.size() - 1;
}

void frmRouteOptDeparture::reject() {
  if (busy()) {
    stop_ = true;
    return;
  }
  Dialog::reject();
}

void frmRouteOptDeparture::Search() {
  if (busy()) return;
  stop_ = false;
  SetBusy(true);
  cancel_->setEnabled(true);
  bar_->show();
  FormProgress progress(bar_, progress_, stop_);
  const RouteOutcome outcome =
      RunDepartureSearch(desktop().program, Slot(), desktop().messages, progress,
                         use_wind_->isChecked() ? &wind_ : nullptr);
  SetBusy(false);
  bar_->hide();
  progress_->clear();
  if (outcome != RouteOutcome::kDone) return;
  accept();
  desktop().window.Changed(kRouteChanged | kTimeChanged);
  frmOptResults(desktop(), parentWidget()).exec();
}

}  // namespace skerrow
