#pragma once

#include <QBrush>
#include <QPainter>
#include <QPen>
#include <QSizeF>

#include "ui/drawing/drawing_surface.h"
#include "ui/drawing/look.h"
#include "ui/drawing/text_pictures.h"

namespace skerrow {

// A colour at the brightness of a look.
QColor Dimmed(const QColor& colour, const Look& look);

// The surface over a painter: a widget, a picture or a printed page. The painter's state comes
// back at the end of the object's life.
class QtSurface final : public DrawingSurface {
 public:
  // `size` is that of the surface in the painter's coordinates. All colours pass through
  // ShownColour. Texts and stamps are kept in `texts` from one surface to the next; null: for this
  // one only.
  QtSurface(QPainter& painter, QSizeF size, Look look = {}, TextPictures* texts = nullptr);
  ~QtSurface() override;
  QtSurface(const QtSurface&) = delete;
  QtSurface& operator=(const QtSurface&) = delete;

  SurfaceRect Bounds() const override;
  void SetPen(int width, std::int32_t colour, LineStyle style = LineStyle::kSolid) override;
  void SetFill(std::optional<std::int32_t> colour) override;
  void Line(SurfacePoint from, SurfacePoint to) override;
  void Polyline(std::span<const SurfacePoint> points) override;
  void Polygon(std::span<const SurfacePoint> points) override;
  void Ring(SurfacePoint centre, double radius) override;
  void Ellipse(SurfacePoint centre, double radius_x, double radius_y) override;
  void Arc(SurfacePoint centre, double radius, double start_deg, double span_deg) override;
  void Text(SurfacePoint at, std::string_view text, std::int32_t colour,
            const TextStyle& style) override;
  SurfaceRect TextExtent(std::string_view text, const TextStyle& style) const override;
  void Stamp(SurfacePoint at, std::string_view key, double reach,
             const StampDrawing& draw) override;
  void PushClip(SurfaceRect rect) override;
  void PopClip() override;

  // The painter, for what the surface has no call for.
  QPainter& painter() { return painter_; }

 private:
  QColor Colour(std::int32_t colour) const;
  void UpdateReach();
  void DrawRun(std::span<const SurfacePoint> points);

  QPainter& painter_;
  QSizeF size_;
  Look look_;
  // Whether texts can be copied from pictures, and the screen pixels in one of the surface's.
  bool screen_;
  double ratio_;
  mutable TextPictures own_texts_;
  TextPictures& texts_;
  QPen pen_;
  bool thin_ = false;  // solid, and drawn line by line with square ends
  QBrush fill_;
  QRectF reach_;  // what a line must touch to be seen
  int clips_ = 0;
};

}  // namespace skerrow
