#pragma once

#include <QListWidget>
#include <optional>

#include "ui/forms/port_forms.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// "Ports Copy Utility": copies ports from one area file to another, or diamonds from one diamond
// file to another.
class frmHCcopy : public Dialog {
  Q_OBJECT

 public:
  frmHCcopy(Desktop& desktop, QWidget* parent, CopyKind kind = CopyKind::kPorts);

 private:
  void ListFiles();
  void OpenSource(int row);
  void Copy();

  CopyKind kind_;
  QListWidget* sources_;
  TextList* records_;
  QListWidget* destinations_;
  QLineEdit* name_;
  QLabel* done_;
  std::optional<CopySource> source_;
};

}  // namespace skerrow
