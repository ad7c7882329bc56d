#pragma once

#include <QLineEdit>

#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// "Manual Entry": adds a position to the plot file in force.
class frmmanualpos : public Dialog {
  Q_OBJECT

 public:
  frmmanualpos(Desktop& desktop, QWidget* parent);

 private:
  void Accept();

  FilteredEdit* latitude_;
  FilteredEdit* longitude_;
  QLineEdit* time_;
  QLineEdit* date_;
  QLineEdit* comment_;
  TextList* records_;
};

}  // namespace skerrow
