#pragma once

#include "ui/wind/wind_list_dialog.h"

namespace skerrow {

// "View Wind Data": the records of the wind store. A key opens those with the components.
class frmViewSmartMet : public WindListDialog {
  Q_OBJECT

 public:
  frmViewSmartMet(Desktop& desktop, QWidget* parent);

 protected:
  std::vector<std::string> Rows(const WindTime& time) const override;

 private:
  std::shared_ptr<const WindStore> store_;
};

}  // namespace skerrow
