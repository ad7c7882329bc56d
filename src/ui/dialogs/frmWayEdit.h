#pragma once

#include <QLineEdit>

#include "routes/waypoint_forms.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"
#include "ui/widgets/text_list.h"

class QListWidget;

namespace skerrow {

// "Select a File to Edit": the waypoints of a file, changed in the list and written by Save.
class FrmWayEdit : public Dialog {
  Q_OBJECT

 public:
  FrmWayEdit(Desktop& desktop, QWidget* parent);

  // Asks before changes that are not saved are lost.
  void reject() override;

 private:
  QWidget* MakeEntryBox();
  void LoadFiles(const std::string& file);
  void OpenFile();
  void ShowRows(int row);
  void ShowEntry(int row);
  CheckedWaypoint Entry() const;
  // Shows a refusal, or the changed rows with `row` highlighted and the boxes cleared.
  void Finish(WaypointRefusal refusal, int row);
  bool LoseChanges();
  void Save();
  void CreateNew();

  WaypointEditor editor_;
  std::string file_;
  QListWidget* files_;
  TextList* list_;
  QLabel* count_;
  QLineEdit* name_;
  FilteredEdit* latitude_;
  FilteredEdit* longitude_;
};

}  // namespace skerrow
