#pragma once

#include <QLineEdit>

#include "ui/widgets/dialog.h"
#include "ui/widgets/record_file_view.h"

namespace skerrow {

// "Copy Waypoints": picks waypoints of any files for a file of their own.
class FrmWayCopy : public Dialog {
  Q_OBJECT

 public:
  FrmWayCopy(Desktop& desktop, QWidget* parent);

 private:
  void ShowPicked();
  void Remove();
  void Save();

  RecordFileView* view_;
  TextList* picked_;
  QLineEdit* name_;
  std::vector<WaypointRow> rows_;
};

}  // namespace skerrow
