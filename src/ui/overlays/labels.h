#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/overlays/label_placement.h"
#include "ui/overlays/overlay_view.h"

// The names of what stands over the chart. They are gathered from all overlays and written above
// them, so that the ones that matter get the room there is.
namespace skerrow {

struct Label {
  std::string text;
  SurfacePoint at;      // the middle of the mark
  double radius = 0.0;  // of the mark
  std::int32_t colour = 0;
  LabelRank rank = LabelRank::kWaypoint;
  LabelSide side = LabelSide::kRight;
  LabelRoom room = LabelRoom::kUsual;
  std::optional<std::int32_t> background = {};  // a ground of its own in the place of the rim
};

// A text with a place of its own, to which the others give way.
struct FixedText {
  std::string text;
  SurfacePoint top_left;
  std::int32_t colour = 0;
};

struct LabelList {
  std::vector<Label> labels;
  std::vector<FixedText> fixed;
};

// The look of a text on the chart: a rim in the ground's colour about the letters.
TextStyle ChartText(const OverlayView& view);

// Writes the fixed texts, the names that find room, and with `all` every one.
void DrawLabels(DrawingSurface& surface, const OverlayView& view, const LabelList& list, bool all);

}  // namespace skerrow
