#pragma once

#include "ui/widgets/dialog.h"

namespace skerrow {

// "Quick Instructions": a page on laying, calculating and reading a passage.
class FrmQuickInstructions : public Dialog {
  Q_OBJECT

 public:
  FrmQuickInstructions(Desktop& desktop, QWidget* parent);
};

}  // namespace skerrow
