#include "ui/overlays/labels.h"

namespace skerrow {

TextStyle ChartText(const OverlayView& view) {
  TextStyle style;
  style.size_pt = view.text_size;
  style.halo = kGround;
  return style;
}

void DrawLabels(DrawingSurface& surface, const OverlayView& view, const LabelList& list, bool all) {
  TextStyle style = ChartText(view);
  style.align_y = AlignY::kMiddle;
  std::vector<LabelWish> wishes;
  wishes.reserve(list.labels.size());
  for (const Label& label : list.labels) {
    const SurfaceRect extent = surface.TextExtent(label.text, style);
    wishes.push_back({label.text, label.at, label.radius, extent.width, extent.height, label.rank,
                      label.side, label.room});
  }
  std::vector<SurfaceRect> taken;
  for (const FixedText& text : list.fixed) {
    const SurfaceRect extent = surface.TextExtent(text.text, style);
    taken.push_back({text.top_left.x, text.top_left.y, extent.width, extent.height});
  }
  const auto boxes = PlaceLabels(wishes, taken, all);
  const SurfaceRect bounds = surface.Bounds();
  // The most important last, above what it could not help covering.
  for (std::size_t i = boxes.size(); i-- > 0;) {
    if (!boxes[i]) continue;
    const SurfaceRect& box = *boxes[i];
    if (box.left > bounds.width || box.top > bounds.height || box.left + box.width < 0.0 ||
        box.top + box.height < 0.0) {
      continue;
    }
    TextStyle own = style;
    if ((own.background = list.labels[i].background)) own.halo.reset();
    surface.Text({box.left, box.top + box.height / 2.0}, list.labels[i].text, list.labels[i].colour,
                 own);
  }
  for (const FixedText& text : list.fixed) {
    surface.Text(text.top_left, text.text, text.colour, ChartText(view));
  }
}

}  // namespace skerrow
