#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>

#include "ui/forms/load_chart_form.h"
#include "ui/widgets/dialog.h"
#include "ui/widgets/field_edits.h"
#include "ui/widgets/picture_preview.h"

namespace skerrow {

// "Select Chart": a sea area, its charts by scale and title, and a preview. After OK the settings
// name the chart and its calibration is read; the caller loads the area's other data.
class frmLoadChart : public Dialog {
  Q_OBJECT

 public:
  frmLoadChart(Desktop& desktop, QWidget* parent);

 private:
  QLayout* MakeChoices();
  void LoadArea();
  void FillCharts();
  void SetFilter(float scale);
  void ShowChart();
  void Search();
  void ListAreas();
  void Import();
  void Remove();
  // The entry of the selected row; null when none is.
  const ChartIndexEntry* Selected() const;
  void Accept();

  AppConfig config_;  // for the areas looked at; the program's own waits for OK
  ChartState charts_;
  std::vector<ChartRow> rows_;
  float filter_ = 0.0F;
  QListWidget* areas_;
  QListWidget* list_;
  QComboBox* scale_list_;
  FilteredEdit* scale_text_;
  QLineEdit* search_;
  QLabel* number_;
  PicturePreview* preview_;
  QPushButton* ok_ = nullptr;
  QPushButton* remove_ = nullptr;
};

}  // namespace skerrow
