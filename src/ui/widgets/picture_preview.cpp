#include "ui/widgets/picture_preview.h"

#include <QImage>
#include <QPainter>

#include "platform/images.h"
#include "ui/widgets/theme.h"

namespace skerrow {

PicturePreview::PicturePreview(const char* name, QWidget* parent) : QWidget(parent) {
  setObjectName(QString::fromUtf8(name));
  setMinimumSize(200, 200);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

bool PicturePreview::Open(const std::string& path) {
  pixmap_ = {};
  note_.clear();
  if (!path.empty()) {
    if (const Result<Picture> picture = DecodePicture(path); picture && !picture->empty()) {
      const std::vector<std::uint8_t> pixels = ToRgba(*picture);
      const QImage image(pixels.data(), picture->width, picture->height, picture->width * 4,
                         QImage::Format_RGBA8888);
      pixmap_ = QPixmap::fromImage(image.copy());
    } else {
      note_ = tr("No preview");
    }
  }
  update();
  return !empty();
}

void PicturePreview::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const Theme& theme = ThemeInForce();
  painter.fillRect(rect(), theme.base);
  if (!pixmap_.isNull()) {
    const QSize fitted = pixmap_.size().scaled(size() * devicePixelRatioF(), Qt::KeepAspectRatio);
    QPixmap shown = Dimmed(pixmap_.scaled(fitted, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    shown.setDevicePixelRatio(devicePixelRatioF());
    const QSizeF room = QSizeF(fitted) / devicePixelRatioF();
    painter.drawPixmap(QPointF((width() - room.width()) / 2, (height() - room.height()) / 2),
                       shown);
  } else {
    painter.setPen(theme.dim_text);
    painter.drawText(rect(), Qt::AlignCenter, note_);
  }
  painter.setPen(theme.border);
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace skerrow
