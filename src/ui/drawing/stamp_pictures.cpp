#include "ui/drawing/stamp_pictures.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/drawing/qt_surface.h"

namespace skerrow {
namespace {

constexpr std::int64_t kMostBytes = std::int64_t{16} << 20;
constexpr std::int64_t kBookkeeping = 200;  // bytes of an entry besides its pixels

// The part of a picture that has anything in it.
QRect Drawn(const QImage& image) {
  int left = image.width();
  int right = -1;
  int top = image.height();
  int bottom = -1;
  for (int y = 0; y < image.height(); ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      if (row[x] == 0) continue;
      left = std::min(left, x);
      right = std::max(right, x);
      top = std::min(top, y);
      bottom = y;
    }
  }
  return {QPoint(left, top), QPoint(right, bottom)};
}

}  // namespace

const StampPictures::Picture& StampPictures::Get(std::string_view key, double reach,
                                                 const StampDrawing& draw, const Look& look,
                                                 double ratio) {
  if (!(look == look_) || ratio != ratio_ || bytes_ > kMostBytes) {
    pictures_.clear();
    bytes_ = 0;
    look_ = look;
    ratio_ = ratio;
  }
  const auto [entry, made] = pictures_.try_emplace(std::string(key));
  Picture& picture = entry->second;
  if (!made) return picture;
  const int middle = static_cast<int>(std::ceil(reach * ratio)) + 1;
  QImage whole(2 * middle, 2 * middle, QImage::Format_ARGB32_Premultiplied);
  whole.setDevicePixelRatio(ratio);
  whole.fill(Qt::transparent);
  {
    QPainter painter(&whole);
    QtSurface surface(painter, QSizeF(whole.size()) / ratio, look);
    draw(surface, {middle / ratio, middle / ratio});
  }
  const QRect drawn = Drawn(whole);
  if (drawn.isValid()) {
    picture.image = whole.copy(drawn);
    picture.image.setDevicePixelRatio(ratio);
    picture.corner = drawn.topLeft() - QPoint(middle, middle);
  }
  bytes_ += picture.image.sizeInBytes() + kBookkeeping + static_cast<std::int64_t>(key.size());
  return picture;
}

}  // namespace skerrow
