#pragma once

#include <QCheckBox>

#include "ui/dialogs/file_list.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// Opens the sample route: brings the sample routes that the user's folder lacks into it and loads
// "Sample.rte" from there, speeds as stored. False, with a message, when that fails. What becomes
// of an unsaved route is the caller's to ask.
bool OpenSampleRoute(Desktop& desktop);

// "Load Route": replaces the current route by that of a file.
class frmRouteLoad : public Dialog {
  Q_OBJECT

 public:
  frmRouteLoad(Desktop& desktop, QWidget* parent);

 private:
  void ShowFile();
  void Accept();

  FileList* files_;
  QLabel* count_;
  TextList* records_;
  QCheckBox* use_default_speed_;
  QPushButton* sample_;  // shown while there is no file to load
};

}  // namespace skerrow
