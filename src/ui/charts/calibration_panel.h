#pragma once

#include <QGridLayout>
#include <QPushButton>
#include <QWidget>
#include <array>

#include "ui/forms/chart_tool_forms.h"
#include "ui/widgets/field_edits.h"

namespace skerrow {

// The boxes of a calibration: the upper left and the lower right corner, each with its two lines,
// and the scale and size of the chart.
class CalibrationPanel : public QWidget {
  Q_OBJECT

 public:
  explicit CalibrationPanel(Messages& beeper, QWidget* parent = nullptr);

  CalibrationTexts Texts() const;
  void SetTexts(const CalibrationTexts& texts);
  // The box of that object name; null when it is none of them.
  QWidget* Box(const char* name) const;
  // Puts a button to a corner's row, behind its boxes.
  void AddCornerButton(ChartCorner corner, QPushButton* button);

 signals:
  // A text has changed, typed or not.
  void Changed();

 private:
  QGridLayout* grid_;
  std::array<FilteredEdit*, kCalibrationBoxCount> boxes_{};
};

}  // namespace skerrow
