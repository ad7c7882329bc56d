#include "ui/tides/Frmsunrise.h"

#include <QFormLayout>
#include <QStyle>

#include "ui/widgets/qt_text.h"

namespace skerrow {

Frmsunrise::Frmsunrise(Desktop& desktop, const SunEntry& entry, const QString& note,
                       QWidget* parent)
    : Dialog(desktop, "Frmsunrise", "Sun and Moon", parent),
      name_(Named<QLineEdit>("txtName", ToQt(entry.name))),
      latitude_(MakeLatitudeEdit(desktop.messages, "txtLatitude")),
      longitude_(MakeLongitudeEdit(desktop.messages, "txtLongitude")),
      hint_(MakeHint(kSunPositionHint)) {
  latitude_->SetText(entry.latitude);
  longitude_->SetText(entry.longitude);
  hint_->setObjectName(QStringLiteral("lblHint"));
  auto* form = new QFormLayout;
  form->setHorizontalSpacing(12);
  form->addRow(MakeLabel("&Name:", name_), name_);
  form->addRow(MakeLabel("&Latitude:", latitude_), latitude_);
  form->addRow(MakeLabel("L&ongitude:", longitude_), longitude_);
  body()->addLayout(form);
  body()->addWidget(hint_);
  body()->addWidget(MakeHint(note));
  body()->addStretch(1);
  QPushButton* ok = AddButton("Frmsunrise_ok", "OK");
  ok->setDefault(true);
  QPushButton* cancel = AddButton("cmdCancel", "Cancel");
  connect(ok, &QPushButton::clicked, this, [this] { Accept(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  name_->setFocus();
  name_->selectAll();
  resize(400, 260);
}

SunEntry Frmsunrise::Entry() const {
  return {FromQt(name_->text()), latitude_->Text(), longitude_->Text()};
}

void Frmsunrise::Accept() {
  const SunRefusal refusal = CheckSunEntry(Entry()).refusal;
  if (refusal == SunRefusal::kNone) return accept();
  desktop().messages.Beep();
  // The hint says what is wanted.
  hint_->setProperty("hint", false);
  hint_->setProperty("warning", true);
  hint_->style()->unpolish(hint_);
  hint_->style()->polish(hint_);
  FilteredEdit* field = refusal == SunRefusal::kLongitude ? longitude_ : latitude_;
  field->setFocus();
  field->selectAll();
}

}  // namespace skerrow
