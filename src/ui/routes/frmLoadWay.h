#pragma once

#include "ui/dialogs/file_list.h"
#include "ui/widgets/dialog.h"

namespace skerrow {

// Makes the waypoint file at `path` the current one. A file of another folder is copied into the
// waypoints folder first, where a file of its name is overwritten only after a Yes; a No changes
// nothing. Error: the file could not be read, copied or stored as the current one.
Status OpenWaypointFile(Desktop& desktop, const std::string& path);

// "Load Waypoint File": chooses the current waypoint file.
class frmLoadWay : public Dialog {
  Q_OBJECT

 public:
  frmLoadWay(Desktop& desktop, QWidget* parent);

 private:
  void ShowFile();
  void Accept();

  FileList* files_;
  QLabel* name_;
  QLabel* count_;
};

}  // namespace skerrow
