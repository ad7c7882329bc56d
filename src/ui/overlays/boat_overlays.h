#pragma once

#include "ui/overlays/overlays.h"

// The boat, its range rings and predicted positions, and tracks.
namespace skerrow {

// A boat's symbol turned to its heading (degrees true), with the vector ahead of it.
void DrawInBoat(DrawingSurface& surface, const OverlayView& view, const Program& program,
                const ViewState& state);

// The ranges of horizon, radio and radar about the boat.
void DrawRangeRings(DrawingSurface& surface, const OverlayView& view, const Program& program,
                    const ViewState& state);

// Where the boat will be: at most seven positions.
void DrawinFuturePos(DrawingSurface& surface, const OverlayView& view, const Program& program,
                     const ViewState& state);

// The track table, be it of the boat, of a replay or of an earlier voyage, with the comments of the
// log, and the line from its end to the boat.
void DrawLiveTrack(DrawingSurface& surface, const OverlayView& view, const Program& program,
                   const ViewState& state);
void NameLiveTrack(LabelList& names, const OverlayView& view, const Program& program,
                   const ViewState& state);

// The positions of the plot file in force, likewise.
void DrawPlotFile(DrawingSurface& surface, const OverlayView& view, const Program& program,
                  const ViewState& state);
void NamePlotFile(LabelList& names, const OverlayView& view, const Program& program,
                  const ViewState& state);

}  // namespace skerrow
