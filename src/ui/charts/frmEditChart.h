#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "ui/charts/calibration_panel.h"
#include "ui/forms/chart_tool_forms.h"
#include "ui/forms/load_chart_form.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/picture_preview.h"

namespace skerrow {

// "Chart Settings": the calibration of any chart, and its scale in the index of its area. A double
// click makes a chart the current one.
class frmEditChart : public Dialog {
  Q_OBJECT

 public:
  // Makes a chart the current one; whether it has become it.
  using Open = std::function<bool(const ChartChoice&)>;

  frmEditChart(Desktop& desktop, Open open, QWidget* parent);

  // Whether something has been written.
  bool written() const { return written_; }

  void done(int result) override;

 private:
  QLayout* MakeChoices();
  QLayout* MakeFields();
  void LoadArea();
  void Search();
  void RowChanged(int row);
  void ShowChart(int row);
  void Accept();
  void OpenChart(int row);
  bool Edited() const;
  // Whether texts that are not accepted may go; asks where there are some.
  bool MayLeave();

  Open open_;
  IndexList index_;
  std::vector<ChartRow> rows_;            // those of index_.rows, for the search
  std::optional<ChartFileRecord> shown_;  // what was put into the boxes
  CalibrationTexts texts_;                // and its texts
  int row_ = -1;
  int area_row_ = -1;
  bool written_ = false;
  QComboBox* areas_;
  QListWidget* list_;
  QLineEdit* search_;
  QLabel* heading_;
  CalibrationPanel* panel_;
  PicturePreview* preview_;
  QLabel* size_;
  QPushButton* accept_ = nullptr;
};

}  // namespace skerrow
