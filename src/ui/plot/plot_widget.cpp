#include "ui/plot/plot_widget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

namespace skerrow {
namespace {

QRect Outward(const SurfaceRect& rect) {
  return QRectF(rect.left, rect.top, rect.width, rect.height).toAlignedRect();
}

}  // namespace

Picture PlotPicture(const Plot& plot, const std::vector<PlotCursor>& cursors, int width, int height,
                    int scale) {
  const DrawOn draw = [&](DrawingSurface& surface) {
    const SurfaceRect whole = surface.Bounds();
    DrawPlot(surface, whole, plot);
    DrawPlotCursors(surface, PlotArea(surface, whole, plot), plot, cursors);
  };
  return PictureOf(draw, width, height, scale);
}

void PlotWidget::SetPlot(Plot plot) {
  plot_ = std::move(plot);
  Redraw();
}

void PlotWidget::SetCursors(std::vector<PlotCursor> cursors) {
  if (cursors == cursors_) return;
  UpdateCursors();
  cursors_ = std::move(cursors);
  UpdateCursors();
}

void PlotWidget::UpdateCursors() {
  if (cursors_.empty() || !drawn()) return;
  Measured([this](const DrawingSurface& surface) {
    const PlotArea area(surface, Whole(), plot_);
    for (const PlotCursor& cursor : cursors_) {
      const SurfaceRect reach = CursorReach(surface, area, plot_, cursor);
      if (reach.width > 0.0) update(Outward(reach));
    }
  });
}

PlotArea PlotWidget::Area() const {
  std::optional<PlotArea> area;
  Measured([&](const DrawingSurface& surface) { area.emplace(surface, Whole(), plot_); });
  return *area;
}

double PlotWidget::XAt(QPointF at) const {
  const double x = Area().ToData({at.x(), at.y()}).x;
  return std::clamp(x, std::min(plot_.x.from, plot_.x.to), std::max(plot_.x.from, plot_.x.to));
}

QPointF PlotWidget::PlaceOf(DataPoint point) const {
  const SurfacePoint place = Area().ToSurface(point);
  return {place.x, place.y};
}

void PlotWidget::DrawStill(DrawingSurface& surface) const { DrawPlot(surface, Whole(), plot_); }

void PlotWidget::DrawOver(DrawingSurface& surface) const {
  DrawPlotCursors(surface, PlotArea(surface, Whole(), plot_), plot_, cursors_);
}

SurfaceRect PlotWidget::FocusFrame(const DrawingSurface& surface) const {
  return PlotArea(surface, Whole(), plot_).inner();
}

void PlotWidget::mouseMoveEvent(QMouseEvent* event) {
  const QPointF at = event->position();
  if (!Area().Holds({at.x(), at.y()})) return;
  place_ = XAt(at);
  emit Pointed(*place_);
}

void PlotWidget::mousePressEvent(QMouseEvent* event) {
  const QPointF at = event->position();
  if (event->button() != Qt::LeftButton || !Area().Holds({at.x(), at.y()})) {
    return QWidget::mousePressEvent(event);
  }
  emit Clicked(XAt(at));
}

void PlotWidget::keyPressEvent(QKeyEvent* event) {
  const double low = std::min(plot_.x.from, plot_.x.to);
  const double high = std::max(plot_.x.from, plot_.x.to);
  double x = std::clamp(place_.value_or((low + high) / 2.0), low, high);
  switch (PlainKey(*event)) {
    case Qt::Key_Left:
      x -= key_step_;
      break;
    case Qt::Key_Right:
      x += key_step_;
      break;
    case Qt::Key_PageUp:
      x -= 10.0 * key_step_;
      break;
    case Qt::Key_PageDown:
      x += 10.0 * key_step_;
      break;
    case Qt::Key_Home:
      x = low;
      break;
    case Qt::Key_End:
      x = high;
      break;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      emit Clicked(x);
      return;
    default:
      return QWidget::keyPressEvent(event);
  }
  place_ = std::clamp(x, low, high);
  emit Pointed(*place_);
}

}  // namespace skerrow
