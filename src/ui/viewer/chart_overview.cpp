#include "ui/viewer/chart_overview.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/drawing/qt_surface.h"

namespace skerrow {
namespace {

constexpr std::int32_t kFrameColour = 0x0000ff;  // red

QColor ToQColor(std::int32_t colour) {
  return QColor(colour & 0xff, (colour >> 8) & 0xff, (colour >> 16) & 0xff);
}

}  // namespace

ChartOverview::ChartOverview(ChartViewer& viewer, QWidget* parent)
    : QWidget(parent), viewer_(viewer) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setCursor(Qt::PointingHandCursor);
  connect(&viewer, &ChartViewer::ViewChanged, this, [this] { update(); });
  connect(&viewer, &ChartViewer::PictureChanged, this, [this] {
    stale_ = true;
    update();
  });
}

QSize ChartOverview::SizeForSide(int side) const {
  const double width = std::max(viewer_.image_width(), 1);
  const double height = std::max(viewer_.image_height(), 1);
  const double scale = side / std::max(width, height);
  return {std::max(static_cast<int>(std::lround(width * scale)), 24),
          std::max(static_cast<int>(std::lround(height * scale)), 24)};
}

double ChartOverview::Scale() const {
  return std::min(width() / static_cast<double>(std::max(viewer_.image_width(), 1)),
                  height() / static_cast<double>(std::max(viewer_.image_height(), 1)));
}

QPointF ChartOverview::Offset() const {
  return {(width() - viewer_.image_width() * Scale()) / 2.0,
          (height() - viewer_.image_height() * Scale()) / 2.0};
}

QRectF ChartOverview::Frame() const {
  const ImageRect seen = viewer_.VisibleRect();
  const double scale = Scale();
  return QRectF(Offset() + QPointF(seen.left, seen.top) * scale,
                QSizeF(seen.width, seen.height) * scale);
}

const QImage& ChartOverview::Small() {
  const double ratio = devicePixelRatioF();
  const QSize size(
      std::max(static_cast<int>(std::lround(viewer_.image_width() * Scale() * ratio)), 1),
      std::max(static_cast<int>(std::lround(viewer_.image_height() * Scale() * ratio)), 1));
  if (!stale_ && small_.size() == size) return small_;
  const auto image = viewer_.image();
  small_ = QImage(size, QImage::Format_RGB32);
  auto* pixels = reinterpret_cast<std::uint32_t*>(small_.bits());
  // Before the reductions are made the fine form of a large chart would take too long.
  image->Render(Scale() * ratio, 0, 0, size.width(), size.height(),
                image->levels_ready() ? ChartImage::Quality::kFine : ChartImage::Quality::kCoarse,
                pixels, small_.bytesPerLine() / 4);
  ApplyLook(viewer_.look(), pixels,
            static_cast<std::size_t>(small_.bytesPerLine() / 4 * small_.height()));
  small_.setDevicePixelRatio(ratio);
  stale_ = false;
  return small_;
}

void ChartOverview::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const Look look = viewer_.look();
  const bool night = look.night;
  painter.fillRect(rect(),
                   Dimmed(night ? QColor(0x14, 0x08, 0x06) : QColor(0xe8, 0xec, 0xf0), look));
  if (viewer_.image() != nullptr) {
    painter.drawImage(Offset(), Small());
    painter.setPen(QPen(ToQColor(ShownColour(kFrameColour, look)), 1.5));
    const QRectF inside = QRectF(rect()).adjusted(0.75, 0.75, -0.75, -0.75);
    painter.drawRect(Frame() & inside);
  }
  painter.setPen(Dimmed(night ? QColor(0x4d, 0x20, 0x16) : QColor(0x78, 0x86, 0x95), look));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void ChartOverview::MoveViewer(QPointF at) {
  const QPointF place = (at - Offset()) / Scale();
  viewer_.CentreOn({place.x(), place.y()});
}

void ChartOverview::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) MoveViewer(event->position());
}

void ChartOverview::mouseMoveEvent(QMouseEvent* event) {
  if ((event->buttons() & Qt::LeftButton) != 0) MoveViewer(event->position());
}

}  // namespace skerrow
