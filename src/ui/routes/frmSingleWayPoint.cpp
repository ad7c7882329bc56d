#include "ui/routes/frmSingleWayPoint.h"

#include <QFormLayout>
#include <cmath>

#include "app/edits.h"
#include "core/text.h"
#include "ui/forms/waypoint_forms.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

// The question for a name.
class NamePrompt final : public Dialog {
 public:
  NamePrompt(Desktop& desktop, Position position, QWidget* parent)
      : Dialog(desktop, "frmWaypointName", ToQt(kMouseWaypointTitle), parent),
        name_(Named<QLineEdit>("txtWayName")) {
    name_->setText(ToQt(kMouseWaypointDefault));
    name_->setMaxLength(35);
    name_->selectAll();
    name_->setMinimumWidth(280);
    body()->addWidget(MakeLabel(ToQt(kMouseWaypointPrompt), name_));
    body()->addWidget(name_);
    body()->addWidget(
        MakeHint(ToQt(LatToText(position.latitude) + "   " + LongToText(position.longitude))));
    body()->addStretch(1);
    QPushButton* ok = AddButton("cmdOK", "OK");
    ok->setDefault(true);
    QPushButton* cancel =
        AddButton("cmdCancel", "Cancel", "Leaves the entry of waypoints by mouse");
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    name_->setFocus();
  }

  std::string Ask() {
    return exec() == QDialog::Accepted ? Trim(FromQt(name_->text())) : std::string();
  }

 private:
  QLineEdit* name_;
};

}  // namespace

bool AppendAndReload(Desktop& desktop, const Waypoint& waypoint) {
  const Status done = AppendAndReload(desktop.program, desktop.messages, waypoint);
  if (!done) desktop.messages.Show(done.error().Text(), MessageIcon::kWarning);
  desktop.window.Changed(kViewChanged);
  return done.ok();
}

void EnterWaypointByMouse(Desktop& desktop, Position position, QWidget* parent) {
  const std::string name = NamePrompt(desktop, position, parent).Ask();
  if (name.empty()) {
    desktop.view.mouse_mode = MouseMode::kRouteCreation;
  } else {
    AppendAndReload(desktop, {name, position.latitude, position.longitude});
  }
  desktop.window.Changed(kViewChanged);
}

frmSingleWayPoint::frmSingleWayPoint(Desktop& desktop, std::optional<Position> picked,
                                     QWidget* parent)
    : Dialog(desktop, picked ? "frmMouseInput" : "frmSingleWayPoint", "Waypoint Entry", parent),
      name_(Named<QLineEdit>("txtWayName")),
      latitude_(MakeLatitudeEdit(desktop.messages, "txtWayLat")),
      longitude_(MakeLongitudeEdit(desktop.messages, "txtWayLong")) {
  name_->setMaxLength(35);
  name_->setMinimumWidth(240);
  auto* form = new QFormLayout;
  form->setHorizontalSpacing(10);
  form->setVerticalSpacing(8);
  form->addRow("&Name:", name_);
  form->addRow("&Latitude:", latitude_);
  form->addRow("L&ongitude:", longitude_);
  body()->addLayout(form);
  body()->addWidget(MakeHint(QString("The waypoint is added to %1.")
                                 .arg(ToQt(Trim(desktop.program.config.waypoint_file)))));
  body()->addStretch(1);
  if (picked) {
    latitude_->SetText(LatToText(picked->latitude));
    longitude_->SetText(LongToText(picked->longitude));
  }
  QPushButton* ok = AddButton("cmdOK", "OK");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  name_->setFocus();
}

void frmSingleWayPoint::Accept() {
  const SingleWaypoint entry =
      CheckSingleWaypoint(FromQt(name_->text()), latitude_->Text(), longitude_->Text());
  if (entry.refusal != WaypointRefusal::kNone) {
    Refuse(WaypointRefusalText(entry.refusal), false, name_);
    return;
  }
  // No place on earth, which the zero questions do not catch.
  if (std::fabs(entry.waypoint.latitude) > 90.0F) {
    Refuse(WaypointRefusalText(WaypointRefusal::kBadLatitude), false, latitude_);
    return;
  }
  if (std::fabs(entry.waypoint.longitude) > 180.0F) {
    Refuse(WaypointRefusalText(WaypointRefusal::kBadLongitude), false, longitude_);
    return;
  }
  for (const std::string_view question : entry.questions) {
    if (!desktop().messages.Ask(question)) {
      reject();
      return;
    }
  }
  if (!AppendAndReload(desktop(), entry.waypoint)) return;
  accept();
}

}  // namespace skerrow
