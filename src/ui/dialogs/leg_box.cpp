#include "ui/dialogs/leg_box.h"

#include <QGridLayout>

#include "ui/widgets/dialog.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {
namespace {

constexpr int kLongestName = 35;

}  // namespace

LegBox::LegBox(Messages& beeper, const Captions& captions)
    : start_name_(Named<QLineEdit>("txtroutestartname")),
      start_latitude_(MakeLatitudeEdit(beeper, "txtroutestartlat")),
      start_longitude_(MakeLongitudeEdit(beeper, "txtroutestartlong")),
      end_name_(Named<QLineEdit>("txtroutedestname")),
      end_latitude_(MakeLatitudeEdit(beeper, "txtroutedestlat")),
      end_longitude_(MakeLongitudeEdit(beeper, "txtroutedestlong")),
      speed_(MakeSpeedEdit(beeper, "txtroutespeed")) {
  auto* grid = new QGridLayout(this);
  grid->setHorizontalSpacing(8);
  for (QLineEdit* name : {start_name_, end_name_}) name->setMaxLength(kLongestName);
  grid->addWidget(MakeLabel(captions.from, start_name_), 0, 0);
  grid->addWidget(start_name_, 0, 1);
  grid->addWidget(start_latitude_, 0, 2);
  grid->addWidget(start_longitude_, 0, 3);
  grid->addWidget(MakeLabel("T&o:", end_name_), 1, 0);
  grid->addWidget(end_name_, 1, 1);
  grid->addWidget(end_latitude_, 1, 2);
  grid->addWidget(end_longitude_, 1, 3);
  grid->addWidget(MakeLabel("&Speed:", speed_), 2, 0);
  auto* all = Named<QPushButton>("cmdRouteSpeed", captions.all_legs);
  all->setToolTip("Gives every leg this speed");
  auto* accept = Named<QPushButton>(captions.accept_name, captions.accept);
  accept->setToolTip("Writes these values into the leg");
  for (QPushButton* button : {all, accept}) button->setAutoDefault(false);
  QHBoxLayout* row = MakeRow({speed_, new QLabel("kn"), all});
  row->addWidget(accept);
  grid->addLayout(row, 2, 1, 1, 3);
  grid->setColumnStretch(1, 1);
  connect(all, &QPushButton::clicked, this, &LegBox::SpeedForAll);
  connect(accept, &QPushButton::clicked, this, &LegBox::Accepted);
}

void LegBox::Show(const LegEntry& entry, std::size_t leg) {
  setTitle(leg == 0 ? QString("Selected leg") : QString("Selected leg: %1").arg(leg));
  start_name_->setText(ToQt(entry.start_name));
  start_latitude_->SetText(entry.start_latitude);
  start_longitude_->SetText(entry.start_longitude);
  end_name_->setText(ToQt(entry.end_name));
  end_latitude_->SetText(entry.end_latitude);
  end_longitude_->SetText(entry.end_longitude);
  speed_->SetText(entry.speed);
}

LegEntry LegBox::Entry() const {
  return {FromQt(start_name_->text()),
          start_latitude_->Text(),
          start_longitude_->Text(),
          FromQt(end_name_->text()),
          end_latitude_->Text(),
          end_longitude_->Text(),
          speed_->Text()};
}

QList<QLineEdit*> LegBox::boxes() const { return findChildren<QLineEdit*>(); }

QWidget* LegBox::AtFault(RouteFormRefusal refusal) const {
  switch (refusal) {
    case RouteFormRefusal::kBadLatitude:
      return ParseLatitudeEntry(start_latitude_->Text()) ? end_latitude_ : start_latitude_;
    case RouteFormRefusal::kBadLongitude:
      return ParseLongitudeEntry(start_longitude_->Text()) ? end_longitude_ : start_longitude_;
    case RouteFormRefusal::kBadSpeed:
      return speed_;
    default:
      return nullptr;
  }
}

}  // namespace skerrow
