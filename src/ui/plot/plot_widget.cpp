#include "ui/plot/plot_widget.h"

#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstring>

#include "ui/drawing/qt_surface.h"

namespace skerrow {
namespace {

// A painter on nothing, for measuring texts as the screen has them.
class Measure {
 public:
  Measure(QSizeF size, TextPictures& texts)
      : image_(1, 1, QImage::Format_RGB32),
        painter_(&image_),
        surface_(painter_, size, {}, &texts) {}
  const DrawingSurface& surface() const { return surface_; }

 private:
  QImage image_;
  QPainter painter_;
  QtSurface surface_;
};

QRect Outward(const SurfaceRect& rect) {
  return QRectF(rect.left, rect.top, rect.width, rect.height).toAlignedRect();
}

}  // namespace

Picture PlotPicture(const Plot& plot, const std::vector<PlotCursor>& cursors, int width, int height,
                    int scale) {
  QImage image(width * scale, height * scale, QImage::Format_RGB32);
  image.setDevicePixelRatio(scale);
  {
    QPainter painter(&image);
    QtSurface surface(painter, QSizeF(width, height));
    const SurfaceRect whole = surface.Bounds();
    DrawPlot(surface, whole, plot);
    const PlotArea area(surface, whole, plot);
    DrawPlotCursors(surface, area, plot, cursors);
  }
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(image.width()) *
                                    static_cast<std::size_t>(image.height()));
  for (int y = 0; y < image.height(); ++y) {
    std::memcpy(&pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(image.width())],
                image.constScanLine(y),
                static_cast<std::size_t>(image.width()) * sizeof(std::uint32_t));
  }
  return PictureFromRgb32(image.width(), image.height(), std::move(pixels));
}

PlotWidget::PlotWidget(const char* name, QWidget* parent) : QWidget(parent) {
  setObjectName(QString::fromUtf8(name));
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setCursor(Qt::CrossCursor);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void PlotWidget::SetPlot(Plot plot) {
  plot_ = std::move(plot);
  picture_ = QPixmap();
  update();
}

void PlotWidget::SetLook(Look look) {
  if (look == look_) return;
  look_ = look;
  picture_ = QPixmap();
  update();
}

void PlotWidget::SetCursors(std::vector<PlotCursor> cursors) {
  if (cursors == cursors_) return;
  UpdateCursors();
  cursors_ = std::move(cursors);
  UpdateCursors();
}

void PlotWidget::UpdateCursors() {
  if (cursors_.empty() || picture_.isNull()) return;
  const Measure measure(size(), texts_);
  const PlotArea area(measure.surface(), Whole(), plot_);
  for (const PlotCursor& cursor : cursors_) {
    const SurfaceRect reach = CursorReach(measure.surface(), area, plot_, cursor);
    if (reach.width > 0.0) update(Outward(reach));
  }
}

SurfaceRect PlotWidget::Whole() const {
  return {0.0, 0.0, static_cast<double>(width()), static_cast<double>(height())};
}

PlotArea PlotWidget::Area() const {
  const Measure measure(size(), texts_);
  return {measure.surface(), Whole(), plot_};
}

double PlotWidget::XAt(QPointF at) const {
  const double x = Area().ToData({at.x(), at.y()}).x;
  return std::clamp(x, std::min(plot_.x.from, plot_.x.to), std::max(plot_.x.from, plot_.x.to));
}

QPointF PlotWidget::PlaceOf(DataPoint point) const {
  const SurfacePoint place = Area().ToSurface(point);
  return {place.x, place.y};
}

void PlotWidget::paintEvent(QPaintEvent*) {
  const double ratio = devicePixelRatioF();
  const QSize pixels = (QSizeF(size()) * ratio).toSize();
  if (picture_.isNull() || picture_.size() != pixels) {
    picture_ = QPixmap(pixels);
    picture_.setDevicePixelRatio(ratio);
    QPainter painter(&picture_);
    QtSurface surface(painter, size(), look_, &texts_);
    DrawPlot(surface, Whole(), plot_);
  }
  QPainter painter(this);
  painter.drawPixmap(0, 0, picture_);
  QtSurface surface(painter, size(), look_, &texts_);
  const PlotArea area(surface, Whole(), plot_);
  DrawPlotCursors(surface, area, plot_, cursors_);
  if (hasFocus()) {
    const SurfaceRect& inner = area.inner();
    surface.SetPen(2, 0xA85F1A);
    surface.SetFill(std::nullopt);
    const SurfacePoint corners[] = {{inner.left, inner.top},
                                    {inner.left + inner.width, inner.top},
                                    {inner.left + inner.width, inner.top + inner.height},
                                    {inner.left, inner.top + inner.height}};
    surface.Polygon(corners);
  }
}

void PlotWidget::resizeEvent(QResizeEvent* event) {
  picture_ = QPixmap();
  QWidget::resizeEvent(event);
}

void PlotWidget::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    picture_ = QPixmap();
    update();
  }
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

void PlotWidget::leaveEvent(QEvent* event) {
  QWidget::leaveEvent(event);
  emit Left();
}

void PlotWidget::keyPressEvent(QKeyEvent* event) {
  const double low = std::min(plot_.x.from, plot_.x.to);
  const double high = std::max(plot_.x.from, plot_.x.to);
  double x = std::clamp(place_.value_or((low + high) / 2.0), low, high);
  const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  switch (plain ? event->key() : 0) {
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
