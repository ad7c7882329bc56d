#pragma once

#include <QWidget>
#include <optional>

#include "platform/images.h"
#include "ui/forms/optimum_chart.h"

class QPainter;

namespace skerrow {

// The bars of a departure search. The bar under the mouse is marked and stays so; the arrow keys,
// Home and End move the mark too.
class DepartureChart : public QWidget {
  Q_OBJECT

 public:
  explicit DepartureChart(OptimumChart chart, QWidget* parent = nullptr);

  const OptimumChart& chart() const { return chart_; }
  std::optional<std::size_t> marked() const { return marked_; }
  void Mark(std::size_t index);
  // The bars with the hour axis, as they are on screen.
  Picture ToPicture(int width, int height) const;

  QSize sizeHint() const override { return {620, 260}; }
  QSize minimumSizeHint() const override { return {240, 120}; }

  // Room left of the bars for the hours of the passage, pixels at the widget's font.
  int LeftMargin() const;

 signals:
  // Another bar has been marked.
  void Marked(std::size_t index);
  // Enter on the marked bar, or a double click.
  void Chosen(std::size_t index);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void PaintBars(QPainter& painter, const QRectF& plot) const;
  void PaintGrid(QPainter& painter, const QRectF& plot) const;
  void PaintExtreme(QPainter& painter, const QRectF& plot, std::size_t index,
                    const std::string& label, const QColor& colour, bool above) const;
  void PaintAll(QPainter& painter, const QRectF& area) const;

  friend class HourScale;
  OptimumChart chart_;
  std::optional<std::size_t> marked_;
};

// The hour axis under a DepartureChart.
class HourScale : public QWidget {
  Q_OBJECT

 public:
  explicit HourScale(const DepartureChart& chart, QWidget* parent = nullptr);

  // Paints the axis of `chart` into `area`, which spans the bars with the left margin.
  static void Paint(QPainter& painter, const DepartureChart& chart, const QRectF& area);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const DepartureChart& chart_;
};

}  // namespace skerrow
