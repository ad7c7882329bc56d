#pragma once

#include <span>
#include <string>
#include <string_view>

#include "app/program.h"
#include "ui/drawing/drawing_surface.h"
#include "ui/overlays/labels.h"
#include "ui/overlays/overlay_view.h"
#include "ui/overlays/view_state.h"

// Everything that stands over the chart, as one table in the order of painting. Overlays read the
// state and never change it.
namespace skerrow {

struct Overlay {
  std::string_view name;
  bool (*shown)(const Program&, const ViewState&);
  // Null: the row keeps the place of an overlay whose subsystem draws nothing yet.
  void (*draw)(DrawingSurface&, const OverlayView&, const Program&, const ViewState&);
  // The names of its marks. Null: it has none.
  void (*names)(LabelList&, const OverlayView&, const Program&, const ViewState&) = nullptr;
};

// The overlays, the lowest first.
std::span<const Overlay> Overlays();

// Whether every name over the chart shows, be there room for it or not: where the user wants that,
// and at the chart's own size and above.
bool EveryNameShows(const OverlayView& view, const ViewState& state);

// Draws the overlays that are shown, and above them their names.
void DrawOverlays(DrawingSurface& surface, const OverlayView& view, const Program& program,
                  const ViewState& state);

// The text of lblMOB: a line break and the position while a man-overboard position inside the
// chart is held, otherwise nothing.
std::string MobLabelText(const OverlayView& view, const ManOverboard& mob);

}  // namespace skerrow
