#include "ui/drawing/text_pictures.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace skerrow {
namespace {

constexpr double kRimWidth = 1.75;  // view pixels, on each side of a line of a letter
constexpr std::int64_t kMostBytes = std::int64_t{48} << 20;
constexpr std::size_t kMostExtents = 20000;

QString ToQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

double Share(AlignX align) {
  return align == AlignX::kLeft ? 0.0 : align == AlignX::kCentre ? 0.5 : 1.0;
}

}  // namespace

QFont FontOf(const TextStyle& style) {
  QFont font;
  if (style.family.empty()) {
    font.setFamilies({QStringLiteral("Arial"), QStringLiteral("Liberation Sans")});
  } else {
    font.setFamily(QString::fromStdString(style.family));
  }
  font.setStyleHint(QFont::SansSerif);
  font.setPointSize(std::max(style.size_pt, 1));
  font.setWeight(style.bold ? QFont::Bold : QFont::Normal);
  return font;
}

QSizeF TextRoom(const QString& text, const QFontMetricsF& metrics) {
  const QStringList rows = text.split(QLatin1Char('\n'));
  double width = 0.0;
  for (const QString& row : rows) width = std::max(width, metrics.horizontalAdvance(row));
  return {width, metrics.height() + metrics.lineSpacing() * static_cast<double>(rows.size() - 1)};
}

void WriteText(QPainter& painter, const QRectF& room, const QString& text, AlignX align,
               const QColor& ink, const QColor& rim) {
  const QFontMetricsF metrics(painter.font(), painter.device());
  double baseline = room.top() + metrics.ascent();
  for (const QString& row : text.split(QLatin1Char('\n'))) {
    const double spare = room.width() - metrics.horizontalAdvance(row);
    const QPointF at(room.left() + Share(align) * spare, baseline);
    if (rim.isValid()) {
      QPainterPath letters;
      letters.addText(at, painter.font(), row);
      painter.strokePath(letters,
                         QPen(rim, 2.0 * kRimWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
    painter.setPen(ink);
    painter.drawText(at, row);
    baseline += metrics.lineSpacing();
  }
}

TextPictures::Face& TextPictures::FaceOf(const TextStyle& style) {
  for (const auto& face : faces_) {
    const TextStyle& known = face->style;
    if (known.size_pt == style.size_pt && known.bold == style.bold &&
        known.family == style.family) {
      return *face;
    }
  }
  const QFont font = FontOf(style);
  faces_.push_back(std::make_unique<Face>(Face{style, font, QFontMetricsF(font), {}, {}}));
  return *faces_.back();
}

QSizeF TextPictures::Extent(std::string_view text, const TextStyle& style) {
  Face& face = FaceOf(style);
  const auto [entry, made] = face.extents.try_emplace(std::string(text));
  if (!made) return entry->second;
  if (face.extents.size() > kMostExtents) {
    face.extents.clear();
    return face.extents[std::string(text)] = TextRoom(ToQString(text), face.metrics);
  }
  return entry->second = TextRoom(ToQString(text), face.metrics);
}

const QImage& TextPictures::Picture(std::string_view text, const TextStyle& style,
                                    const QColor& ink, const QColor& rim, double ratio) {
  Face& face = FaceOf(style);
  std::string key = std::to_string(ink.rgb()) + "," +
                    (rim.isValid() ? std::to_string(rim.rgb()) : std::string()) + "," +
                    std::to_string(std::lround(ratio * 1000.0)) + "," +
                    std::to_string(static_cast<int>(style.align_x)) + ",";
  key += text;
  if (const auto found = face.pictures.find(key); found != face.pictures.end()) {
    return found->second;
  }
  if (bytes_ > kMostBytes) {
    for (const auto& known : faces_) known->pictures.clear();
    bytes_ = 0;
  }
  const QSizeF room = Extent(text, style);
  const auto pixels = [ratio](double length) {
    return static_cast<int>(std::ceil((length + 2 * kBorder) * ratio));
  };
  QImage picture(pixels(room.width()), pixels(room.height()), QImage::Format_ARGB32_Premultiplied);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  {
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(face.font);
    WriteText(painter, QRectF(QPointF(kBorder, kBorder), room), ToQString(text), style.align_x, ink,
              rim);
  }
  bytes_ += picture.sizeInBytes();
  return face.pictures[key] = std::move(picture);
}

}  // namespace skerrow
