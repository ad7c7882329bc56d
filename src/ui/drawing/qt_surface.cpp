#include "ui/drawing/qt_surface.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPaintEngine>
#include <QPolygonF>
#include <QString>
#include <algorithm>
#include <cmath>
#include <vector>

namespace skerrow {
namespace {

constexpr int kThin = 2;  // the widest thin pen, pixels

bool Finite(SurfacePoint point) { return std::isfinite(point.x) && std::isfinite(point.y); }

bool Finite(std::span<const SurfacePoint> points) {
  return std::all_of(points.begin(), points.end(),
                     [](SurfacePoint point) { return Finite(point); });
}

QString ToQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Whether a painter works on pixels of the density that texts are laid out for, upright and
// unscaled.
bool OnScreen(const QPainter& painter) {
  static const int density = QImage(1, 1, QImage::Format_RGB32).logicalDpiY();
  return painter.paintEngine()->type() == QPaintEngine::Raster &&
         painter.device()->logicalDpiY() == density &&
         painter.transform().type() <= QTransform::TxTranslate;
}

// Cuts the segment a..b to `rect`; false when nothing of it is left.
bool CutToRect(const QRectF& rect, SurfacePoint& a, SurfacePoint& b) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  double enter = 0.0;
  double leave = 1.0;
  const double step[] = {-dx, dx, -dy, dy};
  const double room[] = {a.x - rect.left(), rect.right() - a.x, a.y - rect.top(),
                         rect.bottom() - a.y};
  for (int side = 0; side < 4; ++side) {
    if (step[side] == 0.0) {
      if (room[side] < 0.0) return false;
    } else if (step[side] < 0.0) {
      enter = std::max(enter, room[side] / step[side]);
    } else {
      leave = std::min(leave, room[side] / step[side]);
    }
  }
  if (enter > leave) return false;
  const SurfacePoint from = a;
  if (enter > 0.0) a = {from.x + enter * dx, from.y + enter * dy};
  if (leave < 1.0) b = {from.x + leave * dx, from.y + leave * dy};
  return true;
}

}  // namespace

QColor Dimmed(const QColor& colour, const Look& look) {
  const int share = std::clamp(look.brightness, 10, 100);
  return QColor(colour.red() * share / 100, colour.green() * share / 100,
                colour.blue() * share / 100);
}

QtSurface::QtSurface(QPainter& painter, QSizeF size, Look look, TextPictures* texts)
    : painter_(painter),
      size_(size),
      look_(look),
      screen_(OnScreen(painter)),
      ratio_(painter.device()->devicePixelRatioF()),
      texts_(texts != nullptr ? *texts : own_texts_) {
  painter_.save();
  painter_.setRenderHint(QPainter::Antialiasing);
  pen_.setJoinStyle(Qt::RoundJoin);
  SetPen(1, 0, LineStyle::kSolid);
  SetFill(std::nullopt);
}

QtSurface::~QtSurface() {
  while (clips_ > 0) PopClip();
  painter_.restore();
}

SurfaceRect QtSurface::Bounds() const { return {0.0, 0.0, size_.width(), size_.height()}; }

QColor QtSurface::Colour(std::int32_t colour) const {
  const std::int32_t shown = ShownColour(colour, look_);
  return QColor(shown & 0xff, (shown >> 8) & 0xff, (shown >> 16) & 0xff);
}

void QtSurface::UpdateReach() {
  const double beyond = pen_.widthF() + 2.0;
  reach_ = QRectF(QPointF(0.0, 0.0), size_).adjusted(-beyond, -beyond, beyond, beyond);
}

void QtSurface::SetPen(int width, std::int32_t colour, LineStyle style) {
  pen_.setWidth(std::max(width, 1));
  pen_.setColor(Colour(colour));
  pen_.setStyle(style == LineStyle::kDash  ? Qt::DashLine
                : style == LineStyle::kDot ? Qt::DotLine
                                           : Qt::SolidLine);
  // The painter strokes a line with round ends as a path of curves; one with square ends it fills
  // at once, five times as fast. On a thin line nobody sees the difference.
  thin_ = style == LineStyle::kSolid && width <= kThin;
  pen_.setCapStyle(thin_ ? Qt::SquareCap : Qt::RoundCap);
  painter_.setPen(pen_);
  UpdateReach();
}

void QtSurface::SetFill(std::optional<std::int32_t> colour) {
  fill_ = colour ? QBrush(Colour(*colour)) : QBrush(Qt::NoBrush);
  painter_.setBrush(fill_);
}

void QtSurface::Line(SurfacePoint from, SurfacePoint to) {
  if (!Finite(from) || !Finite(to) || !CutToRect(reach_, from, to)) return;
  painter_.drawLine(QPointF(from.x, from.y), QPointF(to.x, to.y));
}

void QtSurface::DrawRun(std::span<const SurfacePoint> points) {
  // Short pieces: a painter's work on one line grows faster than its length.
  constexpr std::size_t kPiece = 128;
  for (std::size_t first = 0; first + 1 < points.size(); first += kPiece) {
    QPolygonF run;
    const std::size_t end = std::min(first + kPiece + 1, points.size());
    for (std::size_t i = first; i < end; ++i) run << QPointF(points[i].x, points[i].y);
    painter_.drawPolyline(run);
  }
}

void QtSurface::Polyline(std::span<const SurfacePoint> points) {
  if (points.size() < 2 || !Finite(points)) return;
  if (thin_) {
    for (std::size_t i = 0; i + 1 < points.size(); ++i) Line(points[i], points[i + 1]);
    return;
  }
  // Only the runs that touch the surface are given to the painter; a track of thousands of points
  // is for the most part elsewhere.
  std::vector<SurfacePoint> run;
  const auto flush = [&] {
    if (run.size() >= 2) DrawRun(run);
    run.clear();
  };
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    SurfacePoint a = points[i];
    SurfacePoint b = points[i + 1];
    if (!CutToRect(reach_, a, b)) {
      flush();
      continue;
    }
    if (run.empty() || !(run.back() == a)) {
      flush();
      run.push_back(a);
    }
    run.push_back(b);
  }
  flush();
}

void QtSurface::Polygon(std::span<const SurfacePoint> points) {
  if (points.size() < 2 || !Finite(points)) return;
  if (fill_.style() == Qt::NoBrush) {
    // A hollow outline may be much larger than the view (a chart's bounds); its sides are lines.
    std::vector<SurfacePoint> outline(points.begin(), points.end());
    outline.push_back(points.front());
    Polyline(outline);
    return;
  }
  QPolygonF polygon;
  for (const SurfacePoint& point : points) polygon << QPointF(point.x, point.y);
  if (!polygon.boundingRect().intersects(reach_)) return;
  if (!thin_) return painter_.drawPolygon(polygon);
  painter_.setPen(Qt::NoPen);
  painter_.drawPolygon(polygon);
  painter_.setPen(pen_);
  for (std::size_t i = 0; i < points.size(); ++i) Line(points[i], points[(i + 1) % points.size()]);
}

void QtSurface::Ring(SurfacePoint centre, double radius) {
  if (!Finite(centre) || !std::isfinite(radius) || radius < 0.0) return;
  const QBrush fill = fill_;
  SetFill(std::nullopt);
  Ellipse(centre, radius, radius);
  fill_ = fill;
  painter_.setBrush(fill_);
}

void QtSurface::Ellipse(SurfacePoint centre, double radius_x, double radius_y) {
  if (!Finite(centre) || !Finite({radius_x, radius_y}) || radius_x < 0.0 || radius_y < 0.0) return;
  const QRectF box(centre.x - radius_x, centre.y - radius_y, 2.0 * radius_x, 2.0 * radius_y);
  if (box.right() < reach_.left() || box.left() > reach_.right() || box.bottom() < reach_.top() ||
      box.top() > reach_.bottom()) {
    return;
  }
  painter_.drawEllipse(box);
}

void QtSurface::Arc(SurfacePoint centre, double radius, double start_deg, double span_deg) {
  if (!Finite(centre) || !Finite({start_deg, span_deg}) || !std::isfinite(radius) || radius < 0.0) {
    return;
  }
  // The painter's angles run against the clock from the right, in sixteenths of a degree.
  const auto sixteenths = [](double degrees) {
    return static_cast<int>(std::lround(degrees * 16));
  };
  painter_.drawArc(QRectF(centre.x - radius, centre.y - radius, 2.0 * radius, 2.0 * radius),
                   sixteenths(90.0 - std::fmod(start_deg, 360.0)),
                   -sixteenths(std::clamp(span_deg, -360.0, 360.0)));
}

SurfaceRect QtSurface::TextExtent(std::string_view text, const TextStyle& style) const {
  const QSizeF room =
      screen_ ? texts_.Extent(text, style)
              : TextRoom(ToQString(text), QFontMetricsF(FontOf(style), painter_.device()));
  return {0.0, 0.0, room.width(), room.height()};
}

void QtSurface::Text(SurfacePoint at, std::string_view text, std::int32_t colour,
                     const TextStyle& style) {
  if (!Finite(at) || text.empty()) return;
  const SurfaceRect extent = TextExtent(text, style);
  const double across = style.align_x == AlignX::kLeft     ? 0.0
                        : style.align_x == AlignX::kCentre ? 0.5
                                                           : 1.0;
  double down = style.align_y == AlignY::kTop      ? 0.0
                : style.align_y == AlignY::kMiddle ? extent.height / 2.0
                                                   : extent.height;
  if (style.align_y == AlignY::kBaseline) {
    down = QFontMetricsF(FontOf(style), painter_.device()).ascent();
  }
  const QRectF box(at.x - across * extent.width, at.y - down, extent.width, extent.height);
  if (!box.intersects(QRectF(QPointF(0.0, 0.0), size_))) return;
  if (style.background) painter_.fillRect(box, Colour(*style.background));
  const QColor rim = style.halo ? Colour(*style.halo) : QColor();
  if (screen_) {
    const QImage& picture = texts_.Picture(text, style, Colour(colour), rim, ratio_);
    const auto whole = [this](double place) {
      return std::round((place - TextPictures::kBorder) * ratio_) / ratio_;
    };
    painter_.drawImage(QPointF(whole(box.left()), whole(box.top())), picture);
    return;
  }
  painter_.save();
  painter_.setFont(FontOf(style));
  WriteText(painter_, box, ToQString(text), style.align_x, Colour(colour), rim);
  painter_.restore();
}

void QtSurface::Stamp(SurfacePoint at, std::string_view key, double reach,
                      const StampDrawing& draw) {
  if (!Finite(at)) return;
  if (!screen_) return draw(*this, at);
  const StampPictures::Picture& picture = texts_.stamps().Get(key, reach, draw, look_, ratio_);
  if (picture.image.isNull()) return;
  painter_.drawImage(QPointF((std::round(at.x * ratio_) + picture.corner.x()) / ratio_,
                             (std::round(at.y * ratio_) + picture.corner.y()) / ratio_),
                     picture.image);
}

void QtSurface::PushClip(SurfaceRect rect) {
  painter_.save();
  painter_.setClipRect(QRectF(rect.left, rect.top, rect.width, rect.height), Qt::IntersectClip);
  ++clips_;
}

void QtSurface::PopClip() {
  if (clips_ == 0) return;
  --clips_;
  painter_.restore();
  // Pen and fill outlive the clip; restoring put the older ones back.
  painter_.setPen(pen_);
  painter_.setBrush(fill_);
}

}  // namespace skerrow
