#pragma once

#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// "Delete a Track File".
class frmTrackDelete : public Dialog {
  Q_OBJECT

 public:
  frmTrackDelete(Desktop& desktop, QWidget* parent);

 private:
  void Accept();

  TextList* files_;
};

}  // namespace skerrow
