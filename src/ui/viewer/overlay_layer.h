#pragma once

#include <QImage>
#include <QRect>
#include <cstdint>
#include <functional>
#include <vector>

#include "ui/drawing/drawing_surface.h"
#include "ui/drawing/look.h"
#include "ui/drawing/text_pictures.h"
#include "ui/viewer/view_geometry.h"

class QPainter;

namespace skerrow {

// Draws over a chart. `area` says where the chart stands on the surface, which may reach beyond the
// view.
using OverlayPainter = std::function<void(DrawingSurface&, const ViewGeometry& area)>;

// What stands over the chart, drawn once into a picture somewhat larger than the view, which then
// moves with the chart, screen pixel by screen pixel.
class OverlayLayer {
 public:
  // How far the picture reaches beyond the view, screen pixels.
  static constexpr int kMargin = 256;

  // What it shows is no longer so.
  void Invalidate() { valid_ = false; }
  // Whether it can be shown at a place of the chart: nothing changed but the place, and it reaches
  // at least to the middle of the view.
  bool Usable(const ViewGeometry& view, const Look& look) const;
  // Whether it also reaches `reach` screen pixels beyond the view, as far as there is chart.
  bool Covers(const ViewGeometry& view, int reach) const;
  // Draws it anew about a view.
  void Draw(const ViewGeometry& view, const Look& look, TextPictures& texts,
            const OverlayPainter& overlay);
  // Copies it to where it belongs in the view. `painter` counts in view pixels.
  void Paint(QPainter& painter, const ViewGeometry& view) const;

  // Puts the chart beneath it, so that both are copied as one from then on. `chart` draws the part
  // of the scaled chart that it is given, into the painter's corner, and says whether it could;
  // nothing happens when the view has moved since Draw.
  void Compose(const ViewGeometry& view, const std::function<bool(QPainter&, const QRect&)>& chart);
  // Whether that has been done and holds for all of the view; then PaintWhole gives chart and
  // overlays.
  bool Whole(const ViewGeometry& view, const Look& look) const;
  void PaintWhole(QPainter& painter, const ViewGeometry& view) const;

  std::int64_t MemoryUse() const { return picture_.sizeInBytes() + whole_.sizeInBytes(); }

 private:
  QRect Area() const { return {left_, top_, picture_.width(), picture_.height()}; }
  void FindInk();

  bool valid_ = false;
  bool composed_ = false;
  QImage picture_;
  QImage whole_;
  // The parts of the picture with something in them.
  std::vector<QRect> ink_;
  Look look_;
  double scale_ = 0.0;
  double pixel_ratio_ = 0.0;
  // The place of the picture's corner in the scaled chart, screen pixels.
  int left_ = 0;
  int top_ = 0;
};

}  // namespace skerrow
