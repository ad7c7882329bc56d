#pragma once

#include <QCheckBox>

#include "ui/routes/file_list.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// "Load Route": replaces the current route by that of a file.
class FrmRouteLoad : public Dialog {
  Q_OBJECT

 public:
  FrmRouteLoad(Desktop& desktop, QWidget* parent);

 private:
  void ShowFile();
  void Accept();

  FileList* files_;
  QLabel* count_;
  TextList* records_;
  QCheckBox* use_default_speed_;
};

}  // namespace skerrow
