#pragma once

#include <optional>

#include "ui/plot/picture_widget.h"
#include "ui/plot/polar_diagram.h"

namespace skerrow {

// A polar diagram in a window. The arrow keys move a place on it as the mouse does: up and down by
// the angle, left and right by the value.
class PolarWidget : public PictureWidget {
  Q_OBJECT

 public:
  explicit PolarWidget(const char* name, QWidget* parent = nullptr) : PictureWidget(name, parent) {}

  void SetDiagram(PolarDiagram diagram);
  const PolarDiagram& diagram() const { return diagram_; }
  void SetCursor(std::optional<PolarCursor> cursor);
  const std::optional<PolarCursor>& cursor() const { return cursor_; }
  // How far an arrow key moves.
  void SetKeyStep(double angle, double value) { key_step_ = {angle, value}; }

  // Where a place stands on the widget.
  QPointF PlaceOf(PolarPlace place) const;

  QSize sizeHint() const override { return {330, 560}; }
  QSize minimumSizeHint() const override { return {200, 300}; }

 signals:
  // The mouse or a key is at a place.
  void Pointed(PolarPlace place);
  // The left button, Space or Enter at a place.
  void Clicked(PolarPlace place);

 protected:
  void DrawStill(DrawingSurface& surface) const override;
  void DrawOver(DrawingSurface& surface) const override;
  SurfaceRect FocusFrame(const DrawingSurface& surface) const override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::optional<PolarPlace> PlaceAt(QPointF at) const;

  PolarDiagram diagram_;
  std::optional<PolarCursor> cursor_;
  PolarPlace key_step_ = {5.0, 0.5};
  std::optional<PolarPlace> place_;
};

}  // namespace skerrow
