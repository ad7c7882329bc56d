#include "ui/dialogs/leeway_box.h"

#include <QButtonGroup>

#include "ui/widgets/dialog.h"

namespace skerrow {

LeewayBox::LeewayBox(Messages& messages)
    : QGroupBox("Leeway"),
      rows_(new QVBoxLayout(this)),
      in_use_(Named<QCheckBox>("chkLeeway", "Allow for &leeway")),
      angle_(new FilteredEdit(KeyFilter::kNumber, messages, "txtLeeWay")),
      port_(Named<QRadioButton>("optPort", "Wind from &port")),
      starboard_(Named<QRadioButton>("optStarboard", "Wind from sta&rboard")) {
  angle_->SetColumns(5);
  angle_->setToolTip("Leeway angle, degrees");
  auto* sides = new QButtonGroup(this);
  sides->addButton(port_);
  sides->addButton(starboard_);
  rows_->addLayout(MakeRow(
      {in_use_, MakeLabel("A&ngle:", angle_), angle_, new QLabel(QStringLiteral("\u00b0"))}));
  rows_->addLayout(MakeRow({port_, starboard_}));
  for (QWidget* waiting : std::initializer_list<QWidget*>{angle_, port_, starboard_}) {
    waiting->setEnabled(false);
    connect(in_use_, &QCheckBox::toggled, waiting, &QWidget::setEnabled);
  }
}

void LeewayBox::Set(bool in_use, const std::string& angle) {
  angle_->SetText(angle);
  in_use_->setChecked(in_use);
}

void LeewayBox::AddHint(const QString& text) { rows_->addWidget(MakeHint(text)); }

}  // namespace skerrow
