#pragma once

#include <QListWidget>
#include <string>

#include "ui/widgets/dialog.h"

namespace skerrow {

// "Tidal Sea Area": the file that the tide screen takes its ports from.
class frmTidesSeaArea : public Dialog {
  Q_OBJECT

 public:
  frmTidesSeaArea(Desktop& desktop, QWidget* parent);

  // The name of the chosen file; empty: none.
  std::string FileName() const;

 private:
  void Accept();

  QListWidget* list_;
};

}  // namespace skerrow
