#include "ui/dialogs/frmSingleWayPoint.h"

#include <QFormLayout>

#include "routes/waypoint_forms.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

FrmSingleWayPoint::FrmSingleWayPoint(Desktop& desktop, std::optional<Position> picked,
                                     QWidget* parent)
    : Dialog(desktop, picked ? "frmMouseInput" : "frmSingleWayPoint",
             picked ? ToQt(kMouseWaypointTitle) : tr("Single Waypoint"), parent),
      name_(Named<QLineEdit>("txtname")),
      latitude_(MakeLatitudeEdit(desktop.messages, "txtlat")),
      longitude_(MakeLongitudeEdit(desktop.messages, "txtlong")) {
  name_->setMinimumWidth(name_->fontMetrics().averageCharWidth() * 30);
  name_->setMaxLength(35);
  auto* form = new QFormLayout;
  form->addRow(MakeLabel(tr("&Name:"), name_), name_);
  form->addRow(MakeLabel(tr("&Latitude:"), latitude_), latitude_);
  form->addRow(MakeLabel(tr("L&ongitude:"), longitude_), longitude_);
  body()->addLayout(form);
  body()->addWidget(
      MakeHint(tr("The waypoint goes into %1.").arg(ToQt(desktop.program.config.waypoint_file))));
  body()->addStretch(1);
  if (picked) {
    latitude_->SetText(LatToText(picked->latitude));
    longitude_->SetText(LongToText(picked->longitude));
  }
  QPushButton* ok = AddButton("cmdOK", tr("OK"));
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", tr("Cancel"));
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  name_->setFocus();
}

void FrmSingleWayPoint::Accept() {
  const SingleWaypoint checked =
      CheckSingleWaypoint(FromQt(name_->text()), latitude_->Text(), longitude_->Text());
  if (checked.refusal != WaypointRefusal::kNone) {
    Refuse(WaypointRefusalText(checked.refusal), false, name_);
    return;
  }
  for (const std::string_view question : checked.questions) {
    if (!desktop().messages.Ask(question)) {
      reject();
      return;
    }
  }
  Program& program = desktop().program;
  Status done = AppendWaypoint(program.folders, program.config, checked.waypoint);
  if (done) {
    done = LoadCurrentWaypoints(program.folders, program.config, program.waypoints,
                                desktop().messages);
  }
  if (!done) {
    Refuse(done.error().Text());
    return;
  }
  accept();
  desktop().window.StateChanged();
}

}  // namespace skerrow
