#include "ui/plot/polar_widget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

namespace skerrow {

void PolarWidget::SetDiagram(PolarDiagram diagram) {
  diagram_ = std::move(diagram);
  Redraw();
}

void PolarWidget::SetCursor(std::optional<PolarCursor> cursor) {
  if (cursor == cursor_) return;
  cursor_ = cursor;
  update();
}

QPointF PolarWidget::PlaceOf(PolarPlace place) const {
  SurfacePoint at;
  Measured([&](const DrawingSurface& surface) {
    at = PolarArea(surface, Whole(), diagram_).ToSurface(place);
  });
  return {at.x, at.y};
}

std::optional<PolarPlace> PolarWidget::PlaceAt(QPointF at) const {
  std::optional<PolarPlace> place;
  Measured([&](const DrawingSurface& surface) {
    const PolarArea area(surface, Whole(), diagram_);
    if (area.Holds({at.x(), at.y()})) place = area.ToData({at.x(), at.y()});
  });
  return place;
}

void PolarWidget::DrawStill(DrawingSurface& surface) const {
  DrawPolar(surface, Whole(), diagram_);
}

void PolarWidget::DrawOver(DrawingSurface& surface) const {
  if (cursor_) DrawPolarCursor(surface, PolarArea(surface, Whole(), diagram_), *cursor_);
}

SurfaceRect PolarWidget::FocusFrame(const DrawingSurface&) const {
  return {1.0, 1.0, width() - 2.0, height() - 2.0};
}

void PolarWidget::mouseMoveEvent(QMouseEvent* event) {
  const std::optional<PolarPlace> place = PlaceAt(event->position());
  if (!place) return;
  place_ = place;
  emit Pointed(*place);
}

void PolarWidget::mousePressEvent(QMouseEvent* event) {
  const std::optional<PolarPlace> place = PlaceAt(event->position());
  if (event->button() != Qt::LeftButton || !place) return PictureWidget::mousePressEvent(event);
  place_ = place;
  emit Clicked(*place);
}

void PolarWidget::keyPressEvent(QKeyEvent* event) {
  PolarPlace place = place_.value_or(PolarPlace{90.0, diagram_.rim / 2.0});
  switch (PlainKey(*event)) {
    case Qt::Key_Up:
      place.angle -= key_step_.angle;
      break;
    case Qt::Key_Down:
      place.angle += key_step_.angle;
      break;
    case Qt::Key_Left:
      place.value -= key_step_.value;
      break;
    case Qt::Key_Right:
      place.value += key_step_.value;
      break;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      emit Clicked(place);
      return;
    default:
      return PictureWidget::keyPressEvent(event);
  }
  place_ = {std::clamp(place.angle, 0.0, 180.0), std::clamp(place.value, 0.0, diagram_.rim)};
  emit Pointed(*place_);
}

}  // namespace skerrow
