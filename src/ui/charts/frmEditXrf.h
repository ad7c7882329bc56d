#pragma once

#include <QLineEdit>
#include <QListWidget>
#include <optional>

#include "ui/forms/chart_tool_forms.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"

namespace skerrow {

// "Sea Area Index": the entries of an area's index. Each change is written at once.
class frmEditXrf : public Dialog {
  Q_OBJECT

 public:
  frmEditXrf(Desktop& desktop, QWidget* parent);

  // Whether something has been written.
  bool written() const { return written_; }

  void done(int result) override;

 private:
  QLayout* MakeFields();
  void AreaChanged(int row);
  void RowChanged(int row);
  void LoadArea();
  // Fills the list anew and highlights a row, as far as there is one.
  void FillList(int row);
  void ShowEntry(int row);
  void ShowTexts(const IndexTexts& texts);
  IndexTexts Texts() const;
  // The entry of the boxes; refusals are told.
  std::optional<ChartIndexEntry> Read();
  void Insert();
  void Modify();
  void Delete();
  // Shows an edit that has been done, with `row` highlighted, or tells why it has not.
  void Follow(const Status& edited, int row);
  bool MayLeave();

  IndexList index_;
  std::optional<ChartIndexEntry> shown_;  // what was put into the boxes
  IndexTexts texts_;                      // and its texts
  int row_ = -1;
  int area_row_ = -1;
  bool written_ = false;
  QListWidget* areas_;
  QListWidget* list_;
  QLineEdit* number_;
  QLineEdit* name_;
  FilteredEdit* scale_;
  FilteredEdit* upper_lat_;
  FilteredEdit* lower_lat_;
  FilteredEdit* lower_lon_;
  FilteredEdit* upper_lon_;
  QPushButton* insert_ = nullptr;
  QPushButton* modify_ = nullptr;
  QPushButton* delete_ = nullptr;
};

}  // namespace skerrow
