#include "ui/plot/picture_widget.h"

#include <QEvent>
#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <cstring>
#include <vector>

#include "ui/drawing/qt_surface.h"

namespace skerrow {
namespace {

constexpr std::int32_t kFocusColour = 0xA85F1A;

}  // namespace

Picture PictureOf(const DrawOn& draw, int width, int height, int scale) {
  QImage image(width * scale, height * scale, QImage::Format_RGB32);
  image.setDevicePixelRatio(scale);
  {
    QPainter painter(&image);
    QtSurface surface(painter, QSizeF(width, height));
    draw(surface);
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

PictureWidget::PictureWidget(const char* name, QWidget* parent) : QWidget(parent) {
  setObjectName(QString::fromUtf8(name));
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setCursor(Qt::CrossCursor);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void PictureWidget::SetLook(Look look) {
  if (look == look_) return;
  look_ = look;
  Redraw();
}

void PictureWidget::Redraw() {
  picture_ = QPixmap();
  update();
}

SurfaceRect PictureWidget::Whole() const {
  return {0.0, 0.0, static_cast<double>(width()), static_cast<double>(height())};
}

void PictureWidget::Measured(const std::function<void(const DrawingSurface&)>& use) const {
  QImage nothing(1, 1, QImage::Format_RGB32);
  QPainter painter(&nothing);
  use(QtSurface(painter, size(), {}, &texts_));
}

void PictureWidget::paintEvent(QPaintEvent*) {
  const double ratio = devicePixelRatioF();
  const QSize pixels = (QSizeF(size()) * ratio).toSize();
  if (picture_.isNull() || picture_.size() != pixels) {
    picture_ = QPixmap(pixels);
    picture_.setDevicePixelRatio(ratio);
    QPainter painter(&picture_);
    QtSurface surface(painter, size(), look_, &texts_);
    DrawStill(surface);
  }
  QPainter painter(this);
  painter.drawPixmap(0, 0, picture_);
  QtSurface surface(painter, size(), look_, &texts_);
  DrawOver(surface);
  if (!hasFocus()) return;
  const SurfaceRect frame = FocusFrame(surface);
  surface.SetPen(2, kFocusColour);
  surface.SetFill(std::nullopt);
  const SurfacePoint corners[] = {{frame.left, frame.top},
                                  {frame.left + frame.width, frame.top},
                                  {frame.left + frame.width, frame.top + frame.height},
                                  {frame.left, frame.top + frame.height}};
  surface.Polygon(corners);
}

void PictureWidget::resizeEvent(QResizeEvent* event) {
  picture_ = QPixmap();
  QWidget::resizeEvent(event);
}

void PictureWidget::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) Redraw();
}

void PictureWidget::leaveEvent(QEvent* event) {
  QWidget::leaveEvent(event);
  emit Left();
}

int PlainKey(const QKeyEvent& event) {
  const bool plain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  return plain ? event.key() : 0;
}

}  // namespace skerrow
