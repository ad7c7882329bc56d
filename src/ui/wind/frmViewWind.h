#pragma once

#include "ui/wind/wind_list_dialog.h"

namespace skerrow {

// "View Wind Components": the winds of the last import with their components.
class frmViewWind : public WindListDialog {
  Q_OBJECT

 public:
  frmViewWind(Desktop& desktop, QWidget* parent);

 protected:
  std::vector<std::string> Rows(const WindTime& time) const override;

 private:
  std::vector<GribWind> winds_;
};

}  // namespace skerrow
