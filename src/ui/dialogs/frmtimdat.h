#pragma once

#include <QComboBox>
#include <string>

#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"

namespace skerrow {

// "Date and Time": the time that the display and all tidal work refer to.
class frmtimdat : public Dialog {
  Q_OBJECT

 public:
  frmtimdat(Desktop& desktop, QWidget* parent);

 private:
  void ShowDay();
  void Accept();

  std::string date_order_;
  TimeEntry* time_;
  QComboBox* day_;
  QComboBox* month_;
  QComboBox* year_;
  QLabel* predicted_day_;
};

}  // namespace skerrow
