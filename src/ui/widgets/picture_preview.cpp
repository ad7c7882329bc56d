#include "ui/widgets/picture_preview.h"

#include <QPainter>
#include <QTimer>
#include <algorithm>

#include "platform/images.h"
#include "ui/widgets/theme.h"

namespace skerrow {
namespace {

// The longest side that is kept: enough for a maximised window.
constexpr int kMaxSide = 1600;
constexpr int kNoteDelay = 200;  // milliseconds until an opening is worth a word

// A picture reduced to what a preview needs, without a second copy at full size.
QImage Reduced(const Picture& picture) {
  const bool indexed = picture.format == PixelFormat::kIndexed8;
  QImage whole(picture.pixels.get(), picture.width, picture.height, picture.bytes_per_line,
               indexed ? QImage::Format_Indexed8 : QImage::Format_RGB32);
  if (indexed) whole.setColorTable(QList<QRgb>(picture.palette.begin(), picture.palette.end()));
  if (std::max(picture.width, picture.height) <= kMaxSide) {
    return whole.convertToFormat(QImage::Format_RGB32).copy();
  }
  const QSize coarse(3 * kMaxSide, 3 * kMaxSide);
  if (picture.width > coarse.width() || picture.height > coarse.height()) {
    whole = whole.scaled(coarse, Qt::KeepAspectRatio, Qt::FastTransformation);
  }
  return whole.convertToFormat(QImage::Format_RGB32)
      .scaled(kMaxSide, kMaxSide, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

PicturePreview::PicturePreview(const char* name, QWidget* parent) : QWidget(parent) {
  setObjectName(QString::fromUtf8(name));
  setMinimumSize(200, 200);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  // A dropped opening may take a moment to notice; the next one need not wait for it.
  pool_.setMaxThreadCount(2);
}

PicturePreview::~PicturePreview() {
  Drop();
  pool_.waitForDone();
}

void PicturePreview::Drop() {
  if (job_ != nullptr) *job_ = true;
  job_.reset();
}

void PicturePreview::Open(const std::string& path) {
  Drop();
  pixmap_ = {};
  note_.clear();
  update();
  if (path.empty()) return;
  job_ = std::make_shared<Job>(false);
  QTimer::singleShot(kNoteDelay, this, [this, job = job_] {
    if (job != job_) return;
    note_ = "Opening the picture";
    update();
  });
  pool_.start([this, job = job_, path] {
    if (*job) return;
    const Result<Picture> picture =
        DecodePicture(path, {.progress = {}, .cancelled = [&job] { return job->load(); }});
    QImage image;
    if (picture && !picture->empty() && !*job) image = Reduced(*picture);
    QMetaObject::invokeMethod(
        this,
        [this, job, image] {
          if (job == job_) Show(image);
        },
        Qt::QueuedConnection);
  });
}

void PicturePreview::Set(const RgbPicture& picture) {
  Drop();
  pixmap_ = {};
  note_.clear();
  if (picture.width > 0 && picture.height > 0) {
    const QImage image(picture.pixels.data(), picture.width, picture.height,
                       qsizetype{3} * picture.width, QImage::Format_RGB888);
    pixmap_ = QPixmap::fromImage(image);
  }
  update();
}

void PicturePreview::Show(const QImage& image) {
  job_.reset();
  pixmap_ = QPixmap::fromImage(image);
  note_ = image.isNull() ? "No preview" : QString();
  update();
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
