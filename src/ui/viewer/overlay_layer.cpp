#include "ui/viewer/overlay_layer.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/drawing/qt_surface.h"

namespace skerrow {
namespace {

// The view in the scaled chart, screen pixels.
QRect ViewRect(const ViewGeometry& view) {
  return {view.OriginX(), view.OriginY(),
          static_cast<int>(std::ceil(view.view_width() * view.pixel_ratio())),
          static_cast<int>(std::ceil(view.view_height() * view.pixel_ratio()))};
}

bool Empty(const QImage& picture, const QRect& part) {
  for (int y = part.top(); y <= part.bottom(); ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
    if (std::any_of(row + part.left(), row + part.right() + 1,
                    [](QRgb pixel) { return pixel != 0; })) {
      return false;
    }
  }
  return true;
}

}  // namespace

bool OverlayLayer::Usable(const ViewGeometry& view, const Look& look) const {
  return valid_ && scale_ == view.Scale() && pixel_ratio_ == view.pixel_ratio() && look_ == look &&
         Area().contains(ViewRect(view).center());
}

bool OverlayLayer::Covers(const ViewGeometry& view, int reach) const {
  const QRect seen = ViewRect(view);
  const QRect chart(0, 0, view.ScaledWidth(), view.ScaledHeight());
  const QRect wanted = seen.adjusted(-reach, -reach, reach, reach) & chart;
  return Area().contains(wanted | (seen & chart));
}

void OverlayLayer::Draw(const ViewGeometry& view, const Look& look, TextPictures& texts,
                        const OverlayPainter& overlay) {
  const QRect area = ViewRect(view).adjusted(-kMargin, -kMargin, kMargin, kMargin);
  scale_ = view.Scale();
  pixel_ratio_ = view.pixel_ratio();
  look_ = look;
  left_ = area.left();
  top_ = area.top();
  if (picture_.size() != area.size()) {
    picture_ = QImage(area.size(), QImage::Format_ARGB32_Premultiplied);
  }
  picture_.setDevicePixelRatio(pixel_ratio_);
  picture_.fill(Qt::transparent);
  {
    QPainter painter(&picture_);
    QtSurface surface(painter, QSizeF(picture_.size()) / pixel_ratio_, look, &texts);
    overlay(surface, view.Widened(kMargin));
  }
  picture_.setDevicePixelRatio(1.0);
  FindInk();
  valid_ = true;
  composed_ = false;
}

void OverlayLayer::Compose(const ViewGeometry& view,
                           const std::function<bool(QPainter&, const QRect&)>& chart) {
  const QRect seen = ViewRect(view);
  if (composed_ || Area() != seen.adjusted(-kMargin, -kMargin, kMargin, kMargin)) return;
  if (whole_.size() != picture_.size()) whole_ = QImage(picture_.size(), QImage::Format_RGB32);
  QPainter painter(&whole_);
  composed_ = chart(painter, Area());
  for (const QRect& part : ink_) painter.drawImage(part.topLeft(), picture_, part);
}

bool OverlayLayer::Whole(const ViewGeometry& view, const Look& look) const {
  return composed_ && Usable(view, look) && Area().contains(ViewRect(view));
}

void OverlayLayer::PaintWhole(QPainter& painter, const ViewGeometry& view) const {
  painter.save();
  painter.scale(1.0 / pixel_ratio_, 1.0 / pixel_ratio_);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  painter.drawImage(QPoint(0, 0), whole_, ViewRect(view).translated(-left_, -top_));
  painter.restore();
}

void OverlayLayer::FindInk() {
  constexpr int kCell = 64;
  ink_.clear();
  for (int y = 0; y < picture_.height(); y += kCell) {
    bool open = false;
    for (int x = 0; x < picture_.width(); x += kCell) {
      const QRect cell = QRect(x, y, kCell, kCell) & picture_.rect();
      if (Empty(picture_, cell)) {
        open = false;
      } else if (open) {
        ink_.back() |= cell;
      } else {
        ink_.push_back(cell);
        open = true;
      }
    }
  }
}

void OverlayLayer::Paint(QPainter& painter, const ViewGeometry& view) const {
  const QRect seen = ViewRect(view).translated(-left_, -top_);
  painter.save();
  painter.scale(1.0 / pixel_ratio_, 1.0 / pixel_ratio_);
  for (const QRect& part : ink_) {
    const QRect shown = part & seen;
    if (!shown.isEmpty()) painter.drawImage(shown.topLeft() - seen.topLeft(), picture_, shown);
  }
  painter.restore();
}

}  // namespace skerrow
