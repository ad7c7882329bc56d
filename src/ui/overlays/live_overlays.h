#pragma once

#include "ui/overlays/overlays.h"

// What follows the cursor over the chart. It is drawn at every paint, on top of everything.
namespace skerrow {

// Whether anything is to be drawn, so that a move of the mouse asks for a repaint.
bool LiveOverlaysShown(const Program& program, const ViewState& state);

// While a route is laid, a line from its last point to the cursor with range and bearing; while the
// dividers have one point, a line from there.
void DrawLiveOverlays(DrawingSurface& surface, const OverlayView& view, const Program& program,
                      const ViewState& state);

}  // namespace skerrow
