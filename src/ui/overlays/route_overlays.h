#pragma once

#include "ui/overlays/overlays.h"

// The route, its legs, its calculated track and the constructions of its calculation.
namespace skerrow {

// The points: two rings each, named "Start", by their names or "Waypoint " and their number.
void DrawRoute(DrawingSurface& surface, const OverlayView& view, const Program& program,
               const ViewState& state);
void NameRoute(LabelList& names, const OverlayView& view, const Program& program,
               const ViewState& state);

// The legs, in short pieces so that they lie on the chart's projection, with arrow heads.
void DrawInterRtePoints(DrawingSurface& surface, const OverlayView& view, const Program& program,
                        const ViewState& state);

// The predicted track over the ground, with the point that the animation has reached.
void DrawCOG(DrawingSurface& surface, const OverlayView& view, const Program& program,
             const ViewState& state);
void NameCOG(LabelList& names, const OverlayView& view, const Program& program,
             const ViewState& state);

// The drift of each calculated leg, from its start.
void DrawVectors(DrawingSurface& surface, const OverlayView& view, const Program& program,
                 const ViewState& state);

}  // namespace skerrow
