#pragma once

#include "ui/routes/file_list.h"
#include "ui/widgets/dialog.h"

namespace skerrow {

// "Load Waypoint File": chooses the current waypoint file.
class FrmLoadWay : public Dialog {
  Q_OBJECT

 public:
  FrmLoadWay(Desktop& desktop, QWidget* parent);

 private:
  void ShowFile();
  void Accept();

  FileList* files_;
  QLabel* name_;
  QLabel* count_;
};

}  // namespace skerrow
