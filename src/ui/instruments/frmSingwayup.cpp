#include "ui/instruments/frmSingwayup.h"

#include <QFormLayout>
#include <cmath>

#include "core/position.h"
#include "core/text.h"
#include "ui/forms/waypoint_forms.h"
#include "ui/instruments/upload_dialog.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

frmSingwayup::frmSingwayup(Desktop& desktop, const UploadPoint& point, QWidget* parent)
    : Dialog(desktop, "frmSingwayup", "Upload Waypoint", parent),
      name_(Named<QLineEdit>("txtdestname")),
      latitude_(MakeLatitudeEdit(desktop.messages, "txtdestlat")),
      longitude_(MakeLongitudeEdit(desktop.messages, "txtdestlong")) {
  name_->setMaxLength(35);
  name_->setMinimumWidth(240);
  if (!point.name.empty()) {
    name_->setText(ToQt(point.name));
    latitude_->SetText(LatToText(point.position.latitude));
    longitude_->SetText(LongToText(point.position.longitude));
  }
  auto* form = new QFormLayout;
  form->setHorizontalSpacing(10);
  form->setVerticalSpacing(8);
  form->addRow("&Identity:", name_);
  form->addRow("&Latitude:", latitude_);
  form->addRow("L&ongitude:", longitude_);
  body()->addLayout(form);
  body()->addStretch(1);
  QPushButton* send = AddButton("cmdupload", "&Upload", "Sends the waypoint to the GPS");
  send->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(send, &QPushButton::clicked, this, [this] { Send(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  name_->setFocus();
  name_->selectAll();
}

void frmSingwayup::Send() {
  const std::string name = Trim(FromQt(name_->text()));
  if (name.empty()) {
    Refuse(kNothingToTransfer, false, name_);
    return;
  }
  const SingleWaypoint entry = CheckSingleWaypoint(name, latitude_->Text(), longitude_->Text());
  WaypointRefusal refusal = entry.refusal;
  if (std::fabs(entry.waypoint.latitude) > 90.0F) refusal = WaypointRefusal::kBadLatitude;
  if (std::fabs(entry.waypoint.longitude) > 180.0F) refusal = WaypointRefusal::kBadLongitude;
  if (refusal != WaypointRefusal::kNone) {
    Refuse(WaypointRefusalText(refusal), false,
           refusal == WaypointRefusal::kBadLongitude ? longitude_ : latitude_);
    return;
  }
  for (const std::string_view question : entry.questions) {
    if (!desktop().messages.Ask(question)) return;
  }
  const UploadPoint point = {name, {entry.waypoint.latitude, entry.waypoint.longitude}};
  const Program& program = desktop().program;
  const std::string sentence = WaypointSentence(point, 1, UploadOptionsOf(program.config));
  if (desktop().ports.Put(UploadPort(program), sentence) < 0) {
    Refuse(kUploadRefused);
    return;
  }
  accept();
  desktop().messages.Show(kWaypointsTransferred);
}

}  // namespace skerrow
