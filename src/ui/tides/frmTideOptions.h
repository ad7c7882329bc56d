#pragma once

#include <QRadioButton>

#include "ui/forms/tide_forms.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"

namespace skerrow {

// "Tide Display Options": what heights and times of the tide screen refer to.
class frmTideOptions : public Dialog {
  Q_OBJECT

 public:
  frmTideOptions(Desktop& desktop, QWidget* parent);

 private:
  void Enable();
  void Accept();

  QRadioButton* options_[3];
  FilteredEdit* draught_;
  FilteredEdit* clearance_;
  QRadioButton* summer_;
  QRadioButton* standard_;
};

}  // namespace skerrow
