#include "ui/wind/frmViewSmartMet.h"

#include "ui/wind/frmViewWind.h"

namespace skerrow {

frmViewSmartMet::frmViewSmartMet(Desktop& desktop, QWidget* parent)
    : WindListDialog(desktop, "frmViewSmartMet", "View Wind Data", parent),
      store_(desktop.program.wind_store.Get(desktop.program.folders)) {
  QPushButton* components =
      AddLeftButton("cmdViewWind", "&Components", "The wind towards the east and the north");
  components->setAutoDefault(false);
  connect(components, &QPushButton::clicked, this,
          [this] { frmViewWind(this->desktop(), this).exec(); });
  QPushButton* close = AddButton("cmdOK", "&OK");
  close->setDefault(true);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  Offer(TimesOf(store_->cells()), "No wind has been imported yet");
}

std::vector<std::string> frmViewSmartMet::Rows(const WindTime& time) const {
  return WindRows(store_->cells(), time);
}

}  // namespace skerrow
