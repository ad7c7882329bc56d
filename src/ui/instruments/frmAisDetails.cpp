#include "ui/instruments/frmAisDetails.h"

#include <utility>

#include "ui/widgets/print_lines.h"
#include "ui/widgets/qt_text.h"

namespace skerrow {

std::vector<RowLook> TargetDetailLooks(const std::vector<std::string>& rows) {
  std::vector<RowLook> looks(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    looks[i].bold =
        rows[i].starts_with("Historical Data\t") || rows[i].starts_with("Predicted Position\t");
    looks[i].room_above = looks[i].bold;
  }
  return looks;
}

frmAisDetails::frmAisDetails(Desktop& desktop, ShowPlace show_place, QWidget* parent)
    : LiveDialog(desktop, "frmAisDetails", "AIS Target Details", parent),
      show_place_(std::move(show_place)),
      title_(MakeHeading("")),
      heard_(MakeHint("")),
      rows_(new TextList(desktop.clipboard, "lstAisDetails")) {
  title_->setObjectName(QStringLiteral("lblName"));
  QFont large = title_->font();
  large.setPointSizeF(large.pointSizeF() * 1.4);
  title_->setFont(large);
  // Names and texts come from the air.
  title_->setTextFormat(Qt::PlainText);
  heard_->setObjectName(QStringLiteral("lblHeard"));
  rows_->setAccessibleName("Details of the target");
  body()->addWidget(title_);
  body()->addWidget(heard_);
  body()->addWidget(rows_, 1);
  QPushButton* copy =
      AddLeftButton("cmdCopy", "&Copy to Clipboard", "Puts the list on the clipboard");
  QPushButton* print = AddLeftButton("cmdPrint", "&Print", "Prints the list");
  show_ = AddButton("cmdShow", "&Show on Chart", "Brings the vessel into the middle of the chart");
  QPushButton* close = AddButton("cmdClose", "Close");
  connect(copy, &QPushButton::clicked, this,
          [this] { this->desktop().clipboard.SetText(TargetDetailsText(rows_->lines())); });
  connect(print, &QPushButton::clicked, this,
          [this] { PrintPages(this->desktop(), this, TargetDetailsPage(name_, rows_->lines())); });
  connect(show_, &QPushButton::clicked, this, [this] {
    if (const AisTarget* target = this->desktop().program.ais.targets.Find(mmsi_)) {
      show_place_(target->At());
    }
  });
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  resize(500, 590);
}

void frmAisDetails::SetTarget(std::int32_t mmsi) {
  if (mmsi != mmsi_) rows_->SetLines({});
  mmsi_ = mmsi;
  desktop().view.shown_target = mmsi;
  desktop().window.Changed(kTargetsChanged);
  Follow();
}

void frmAisDetails::Follow() {
  const AisTarget* target = std::as_const(desktop().program.ais.targets).Find(mmsi_);
  const float now = AisHours(desktop().program.clock->Now());
  SetTextOf(*heard_, ToQt(TargetHeardText(target, now)));
  show_->setEnabled(target != nullptr);
  // What was known last stays to be read.
  if (target == nullptr) return;
  name_ = TargetName(*target);
  SetTextOf(*title_, ToQt(name_));
  const std::vector<std::string> rows = AisDetailRows(*target, now);
  rows_->UpdateLines(rows, TargetDetailLooks(rows));
}

void frmAisDetails::hideEvent(QHideEvent* event) {
  LiveDialog::hideEvent(event);
  if (desktop().view.shown_target != mmsi_) return;
  desktop().view.shown_target = 0;
  desktop().window.Changed(kTargetsChanged);
}

void OpenAisDetails(Desktop& desktop, std::int32_t mmsi, const ShowPlace& show_place,
                    QWidget* parent) {
  auto* window = parent->window()->findChild<frmAisDetails*>();
  if (window == nullptr) window = new frmAisDetails(desktop, show_place, parent->window());
  window->SetTarget(mmsi);
  window->show();
  window->raise();
  window->activateWindow();
}

}  // namespace skerrow
