#pragma once

#include "ui/dialogs/file_list.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// "Delete Waypoint File" and "Delete Route File": the files, and beside them the records of the
// highlighted one.
class frmFileDelete : public Dialog {
  Q_OBJECT

 public:
  frmFileDelete(Desktop& desktop, FileKind kind, QWidget* parent);

 private:
  void ShowFile();
  void Accept();

  FileKind kind_;
  FileList* files_;
  QLabel* count_;
  TextList* records_;
};

}  // namespace skerrow
