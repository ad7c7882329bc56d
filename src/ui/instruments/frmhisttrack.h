#pragma once

#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <optional>

#include "ui/forms/track_forms.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// "Historical Plot": the positions of a plot file as a table, with its edits.
class frmhisttrack : public Dialog {
  Q_OBJECT

 public:
  frmhisttrack(Desktop& desktop, PlotTable table, QWidget* parent);

  void done(int result) override;

 private:
  QGroupBox* MakeEntry();
  std::optional<std::size_t> SelectedRow() const;
  void ShowRows(std::size_t row);
  void LoadRow();
  PlotRowTexts Typed() const;
  // Says what is wrong and brings the keyboard to the box at fault.
  void Told(const Error& error);
  void AcceptChange();
  void DeleteRow();
  void InsertRow();
  void Save();
  void Print();

  PlotTable table_;
  TextList* rows_;
  QGroupBox* entry_ = nullptr;
  FilteredEdit* latitude_;
  FilteredEdit* longitude_;
  QLineEdit* time_;
  QLineEdit* date_;
  QLineEdit* comment_;
  QRadioButton* print_all_;
  QRadioButton* print_selected_;
  QPushButton* save_ = nullptr;
};

}  // namespace skerrow
