#pragma once

#include <QButtonGroup>
#include <QGroupBox>
#include <QRadioButton>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "ui/forms/dia_info_form.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"
#include "ui/widgets/text_list.h"

namespace skerrow {

// The details of one tidal diamond: its table, which can be changed, and its reports. It reads
// streams by itself and leaves the selected time and the loaded day of the program alone.
class frmDiaInfo : public Dialog {
  Q_OBJECT

 public:
  // `index` is the diamond's place in the sea area's table.
  frmDiaInfo(Desktop& desktop, std::size_t index, QWidget* parent);

  void done(int result) override;

 private:
  QWidget* MakeDataColumn();
  QWidget* MakeEditBox();
  QWidget* MakeReportColumn();
  QWidget* MakeReportBox();
  QWidget* MakePortBox();

  DiamondReport Report() const;
  // What a report is asked for now; nothing when the user wants none.
  std::optional<DiamondRequest> Request();
  // The report of the day, or with the words of why there is none.
  void Recalculate();
  void MonthlyReport();
  void MonthlyHeights();
  void OptionsChanged();
  void Step(int steps);
  void ShowTable();
  void ShowReport(std::vector<DiamondLine> lines);
  void OpenGraph();

  void BeginChange();
  void EndChange();
  void Accept();
  void AddEntry();
  void DeleteEntry();
  // Takes up the diamond at a place of the table that has been read anew.
  void TakeUp(std::size_t index);

  std::size_t index_;
  Diamond diamond_;
  std::vector<std::string> data_;
  std::vector<DiamondLine> report_;
  std::optional<float> threshold_;  // of the report on show
  bool file_changed_ = false;

  TextList* data_list_;
  QGroupBox* edit_box_ = nullptr;
  std::array<QLabel*, 3> labels_{};
  std::array<FilteredEdit*, 3> texts_{};
  std::size_t edited_row_ = 0;
  QPushButton* change_;
  QPushButton* accept_ = nullptr;

  TextList* report_list_;
  QRadioButton* slack_;
  QRadioButton* flood_;
  QRadioButton* above_;
  FilteredEdit* rate_;
  QPushButton* recalculate_;
};

}  // namespace skerrow
