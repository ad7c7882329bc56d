#pragma once

#include <optional>
#include <vector>

#include "ui/plot/picture_widget.h"
#include "ui/plot/plot.h"

namespace skerrow {

// A plot as a picture by day, for paper and the clipboard, as PictureOf.
Picture PlotPicture(const Plot& plot, const std::vector<PlotCursor>& cursors, int width, int height,
                    int scale = 1);

// A plot in a window. Only the cursors are drawn anew when they move. The arrow keys move a place
// along x as the mouse does.
class PlotWidget : public PictureWidget {
  Q_OBJECT

 public:
  explicit PlotWidget(const char* name, QWidget* parent = nullptr) : PictureWidget(name, parent) {}

  void SetPlot(Plot plot);
  const Plot& plot() const { return plot_; }
  void SetCursors(std::vector<PlotCursor> cursors);
  const std::vector<PlotCursor>& cursors() const { return cursors_; }
  // How far an arrow key moves along x; a page key moves ten such steps.
  void SetKeyStep(double step) { key_step_ = step; }
  // Where the place that the keys move stands; the mouse moves it too.
  void SetPlace(double x) { place_ = x; }

  // The x of a place on the widget, within the range of the plot; and where an x stands.
  double XAt(QPointF at) const;
  QPointF PlaceOf(DataPoint point) const;

  // The picture with its cursors, as PlotPicture.
  Picture ToPicture(int width, int height, int scale = 1) const {
    return PlotPicture(plot_, cursors_, width, height, scale);
  }

  QSize sizeHint() const override { return {720, 360}; }
  QSize minimumSizeHint() const override { return {260, 160}; }

 signals:
  // The mouse or a key is at an x.
  void Pointed(double x);
  // The left button, Space or Enter at an x.
  void Clicked(double x);

 protected:
  void DrawStill(DrawingSurface& surface) const override;
  void DrawOver(DrawingSurface& surface) const override;
  SurfaceRect FocusFrame(const DrawingSurface& surface) const override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  PlotArea Area() const;
  void UpdateCursors();

  Plot plot_;
  std::vector<PlotCursor> cursors_;
  double key_step_ = 1.0;
  std::optional<double> place_;
};

}  // namespace skerrow
