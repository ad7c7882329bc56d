#pragma once

#include <QLineEdit>
#include <QRadioButton>

#include "app/waypoint_work.h"
#include "ui/dialogs/file_list.h"
#include "ui/forms/waypoint_forms.h"
#include "ui/routes/waypoint_list.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"

namespace skerrow {

// "Select a File to Edit": the waypoint files and the entries of one, which change in a file only
// by "Save & Exit".
class frmWayEdit : public Dialog {
  Q_OBJECT

 public:
  // With `kept_file` the unsaved rows that an earlier run left of that file are taken up.
  frmWayEdit(Desktop& desktop, QWidget* parent, const std::string& kept_file = {});

  void done(int result) override;

 private:
  QWidget* MakeFileColumn();
  QWidget* MakeEntryColumn();
  QWidget* MakeEntryBox();
  void MakeButtons();
  // True when there is nothing to lose, or the user lets it go.
  bool MayLeaveFile();
  void Open(const std::string& file_name, bool kept);
  void ShowFile();
  void Refresh(std::size_t select);
  CheckedWaypoint Entry() const;
  // Checks the entry and makes `change` with it.
  WaypointRefusal WithEntry(const std::function<bool(const WaypointRow&)>& change);
  // Shows a refusal, or empties the boxes and shows the rows.
  void Ended(WaypointRefusal refusal, std::size_t select);
  void AddPoint();
  void InsertEntry();
  void ChangeEntry();
  void DeleteEntry();
  void LoadEntry();
  void CreateNew();
  void Copy();
  void Print();
  void SaveAndExit();

  WaypointWork work_;
  FileList* files_;
  WaypointList* entries_;
  QLabel* count_;
  QLineEdit* name_;
  FilteredEdit* latitude_;
  FilteredEdit* longitude_;
  QRadioButton* print_all_;
  QRadioButton* print_selected_;
};

}  // namespace skerrow
