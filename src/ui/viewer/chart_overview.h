#pragma once

#include <QImage>
#include <QWidget>

#include "ui/viewer/chart_viewer.h"

namespace skerrow {

// The whole chart at a small size, with a red frame around what the viewer shows. A click or a drag
// in it moves the viewer there.
class ChartOverview final : public QWidget {
  Q_OBJECT

 public:
  // Follows `viewer`, which must outlive it.
  ChartOverview(ChartViewer& viewer, QWidget* parent);

  // The size that shows the viewer's chart with its longer side at `side` view pixels.
  QSize SizeForSide(int side) const;
  // The frame, in view pixels of this widget.
  QRectF Frame() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  void MoveViewer(QPointF at);
  // The picture for the present size, made anew when it is not the one that was made.
  const QImage& Small();
  // View pixels of this widget to one pixel of the chart.
  double Scale() const;
  QPointF Offset() const;

  ChartViewer& viewer_;
  QImage small_;
  bool stale_ = true;
};

}  // namespace skerrow
