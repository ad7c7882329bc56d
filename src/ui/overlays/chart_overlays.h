#pragma once

#include "ui/overlays/overlays.h"

// What belongs to the chart and its sea area: the borders of other charts, the tidal ports.
namespace skerrow {

// The outlines of the charts of the sea area.
void DrawChartBoundaries(DrawingSurface& surface, const OverlayView& view, const Program& program,
                         const ViewState& state);

// The outline and title of the chart that the chart chooser would open.
void DrawCandidateChart(DrawingSurface& surface, const OverlayView& view, const Program& program,
                        const ViewState& state);
void NameCandidateChart(LabelList& names, const OverlayView& view, const Program& program,
                        const ViewState& state);

// The tidal ports.
void DrawPorts(DrawingSurface& surface, const OverlayView& view, const Program& program,
               const ViewState& state);
void NamePorts(LabelList& names, const OverlayView& view, const Program& program,
               const ViewState& state);

// A grey diamond with two lines across it, in the pen that is set.
void DrawPortSymbol(DrawingSurface& surface, SurfacePoint at);

}  // namespace skerrow
