#pragma once

#include "ui/widgets/dialog.h"

namespace skerrow {

// Opens "Quick Instructions" the first time that it is called, and never again on the same
// settings.
void OfferQuickInstructions(Desktop& desktop, QWidget* parent);

// "Quick Instructions": a page on laying, calculating and reading a passage.
class frmQuickInstructions : public Dialog {
  Q_OBJECT

 public:
  frmQuickInstructions(Desktop& desktop, QWidget* parent);
};

}  // namespace skerrow
