#pragma once

#include <QLabel>
#include <functional>
#include <optional>
#include <string>

#include "ui/charts/calibration_panel.h"
#include "ui/forms/chart_tool_forms.h"
#include "ui/viewer/chart_viewer.h"
#include "ui/widgets/live_dialog.h"

namespace skerrow {

// "Calibrate Chart": the calibration of the chart in view. OK puts it in force in memory, the menu
// stores it. It stands beside the chart instead of before it, since a corner can be picked by a
// click on the chart, and the place under the pointer is told by what the boxes hold. It closes
// when another chart is opened.
class frmChartInfo : public LiveDialog {
  Q_OBJECT

 public:
  // `viewer` shows the chart and outlives the dialog; `redraw` draws it anew when the calibration
  // in force has changed.
  frmChartInfo(Desktop& desktop, ChartViewer& viewer, std::function<void()> redraw,
               QWidget* parent);

  void reject() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void Follow() override;

 private:
  void MakeMenu();
  void Accept();
  void Save();
  void Restore();
  // The calibration of the boxes; refusals are told.
  std::optional<ChartRecord> Read();
  // Puts a calibration in force.
  void Use(const ChartRecord& chart);
  void FollowTexts();
  void ShowCheck(std::optional<QPointF> at);
  void Pick(ChartCorner corner);
  void EndPick();
  bool PickAt(QPointF at);

  ChartViewer& viewer_;
  std::function<void()> redraw_;
  std::string chart_path_;  // of the chart that is calibrated
  ChartFileRecord shown_;   // what was put into the boxes
  std::optional<ChartRecord> typed_;
  std::optional<ChartCorner> picking_;
  CalibrationPanel* panel_;
  QPushButton* pick_upper_;
  QPushButton* pick_lower_;
  QLabel* edges_;
  QLabel* check_;
};

}  // namespace skerrow
