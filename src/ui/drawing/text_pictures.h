#pragma once

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QSizeF>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ui/drawing/drawing_surface.h"
#include "ui/drawing/stamp_pictures.h"

class QPainter;

namespace skerrow {

// The font of a style. The chart's own is Arial, or what has its widths where that is missing.
QFont FontOf(const TextStyle& style);

// The room that a text takes in a font, its lines one below the other.
QSizeF TextRoom(const QString& text, const QFontMetricsF& metrics);

// Writes a text into `room`, with a rim of that colour about its letters; an invalid colour: none.
void WriteText(QPainter& painter, const QRectF& room, const QString& text, AlignX align,
               const QColor& ink, const QColor& rim);

// Texts that are laid out and drawn once and copied from then on, and the stamps beside them. What
// is kept is bounded.
class TextPictures {
 public:
  // Beyond the text's room on each side, view pixels: what its rim and slanting letters take.
  static constexpr int kBorder = 3;

  // As TextRoom, for a screen.
  QSizeF Extent(std::string_view text, const TextStyle& style);
  // The text with kBorder about it, for a screen of `ratio` screen pixels to one view pixel. Good
  // until the next call.
  const QImage& Picture(std::string_view text, const TextStyle& style, const QColor& ink,
                        const QColor& rim, double ratio);
  StampPictures& stamps() { return stamps_; }
  std::int64_t MemoryUse() const { return bytes_ + stamps_.MemoryUse(); }

 private:
  struct Face {
    TextStyle style;
    QFont font;
    QFontMetricsF metrics;
    std::unordered_map<std::string, QSizeF> extents;
    std::unordered_map<std::string, QImage> pictures;
  };
  Face& FaceOf(const TextStyle& style);

  std::vector<std::unique_ptr<Face>> faces_;
  std::int64_t bytes_ = 0;
  StampPictures stamps_;
};

}  // namespace skerrow
