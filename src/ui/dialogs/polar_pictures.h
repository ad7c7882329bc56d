#pragma once

#include <QButtonGroup>
#include <QLabel>
#include <QObject>
#include <optional>

#include "ui/desktop.h"
#include "ui/forms/polar_plot.h"
#include "ui/plot/plot_widget.h"
#include "ui/plot/polar_widget.h"

namespace skerrow {

// The polar of a boat, its options of wind speed, its graph and the readout under the mouse: what
// the two windows of polars have in common. They lay the parts out.
class PolarPictures : public QObject {
  Q_OBJECT

 public:
  enum class Graph { kByAngle, kByWind };

  PolarPictures(const Desktop& desktop, QObject* parent);

  PolarWidget* polar() const { return polar_; }
  PlotWidget* graph() const { return graph_; }
  QWidget* options() const { return options_; }
  QLabel* cursor_label() const { return cursor_label_; }
  QLabel* angle_label() const { return angle_label_; }

  // Shows a table, with an estimate where there is one.
  void SetRows(PolarRows rows, std::optional<PolarEstimate> estimate = std::nullopt);
  // The wind speed that is selected, from 0.
  std::optional<std::size_t> option() const;
  void Select(std::size_t option);
  // The graph that is shown, and the angle that the graph over the wind speeds is for.
  void ShowGraph(Graph graph);
  void SetAngle(int angle);
  int angle() const { return angle_; }
  // The colours of the day or the night, as the view has them.
  void FollowLook();

  // The polar and the graph for paper.
  Picture PolarPage() const;
  Picture GraphPage() const;

 signals:
  void OptionChanged(std::size_t option);
  // An angle of the table has been clicked on the polar.
  void AnglePicked(int angle);

 private:
  void ShowPictures();
  void Point(PolarPlace place, std::optional<std::size_t> option);

  const Desktop& desktop_;
  PolarWidget* polar_;
  PlotWidget* graph_;
  QWidget* options_;
  QButtonGroup* group_;
  QLabel* cursor_label_;
  QLabel* angle_label_;
  PolarRows rows_;
  std::optional<PolarEstimate> estimate_;
  Graph shown_ = Graph::kByAngle;
  int angle_ = 90;  // degrees
};

}  // namespace skerrow
