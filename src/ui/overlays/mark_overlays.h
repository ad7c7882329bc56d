#pragma once

#include "ui/overlays/overlays.h"

// Single marks: the dividers, the waypoints, man overboard, the marked point.
namespace skerrow {

// With both points the line with range and bearing, with one its reference ring.
void DrawDividers(DrawingSurface& surface, const OverlayView& view, const Program& program,
                  const ViewState& state);
void NameDividers(LabelList& names, const OverlayView& view, const Program& program,
                  const ViewState& state);

// The current waypoints: a ring about a slim upright ellipse, and the name.
void DrawWaypoints(DrawingSurface& surface, const OverlayView& view, const Program& program,
                   const ViewState& state);
void NameWaypoints(LabelList& names, const OverlayView& view, const Program& program,
                   const ViewState& state);

// Where somebody went overboard: a red ring about a black cross, and a heavy ring about both.
void DrawMob(DrawingSurface& surface, const OverlayView& view, const Program& program,
             const ViewState& state);
void NameMob(LabelList& names, const OverlayView& view, const Program& program,
             const ViewState& state);

// The ring about the point marked by the user.
void DrawMarkedPoint(DrawingSurface& surface, const OverlayView& view, const Program& program,
                     const ViewState& state);

}  // namespace skerrow
