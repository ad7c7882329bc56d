#pragma once

#include <QWidget>
#include <string>

#include "ui/desktop.h"
#include "ui/dialogs/file_list.h"
#include "ui/routes/waypoint_list.h"

namespace skerrow {

// The waypoint files and beside or below them the waypoints of the selected one. The current
// waypoint file is selected at first.
class WaypointPicker : public QWidget {
  Q_OBJECT

 public:
  // `list_name` is the published name of the list of waypoints.
  WaypointPicker(Desktop& desktop, const char* list_name, Qt::Orientation orientation,
                 QWidget* parent = nullptr);

  FileList* files() const { return files_; }
  WaypointList* list() const { return list_; }

 private:
  void ShowFile();

  Desktop& desktop_;
  FileList* files_;
  WaypointList* list_;
};

// The rows of a waypoint file.
Result<std::vector<WaypointRow>> ReadWaypointRows(const Folders& folders, const std::string& name);

}  // namespace skerrow
