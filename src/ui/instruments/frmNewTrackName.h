#pragma once

#include <QLineEdit>

#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// "Select track name": the plot file that positions are entered into. OK makes it the plot file in
// force.
class frmNewTrackName : public Dialog {
  Q_OBJECT

 public:
  frmNewTrackName(Desktop& desktop, QWidget* parent);

 private:
  void Accept();

  QLineEdit* name_;
  TextList* files_;
};

}  // namespace skerrow
