#include "ui/wind/frmViewWind.h"

namespace skerrow {

frmViewWind::frmViewWind(Desktop& desktop, QWidget* parent)
    : WindListDialog(desktop, "frmViewWind", "View Wind Components", parent) {
  QPushButton* close = AddButton("cmdOK", "&OK");
  close->setDefault(true);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  if (Result<std::vector<GribWind>> winds = ReadGribWinds(desktop.program.folders)) {
    winds_ = std::move(winds.value());
  }
  Offer(TimesOf(winds_), "No wind has been imported yet");
}

std::vector<std::string> frmViewWind::Rows(const WindTime& time) const {
  return WindRows(winds_, time);
}

}  // namespace skerrow
