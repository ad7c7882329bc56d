#pragma once

#include "ui/overlays/overlays.h"

// The boat, its range rings and predicted positions, and recorded tracks.
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

// The boat's own track, and those loaded from files.
void DrawLiveTrack(DrawingSurface& surface, const OverlayView& view, const Program& program,
                   const ViewState& state);
void DrawHistoricalTracks(DrawingSurface& surface, const OverlayView& view, const Program& program,
                          const ViewState& state);
// The remarks made on them.
void NameLiveTrack(LabelList& names, const OverlayView& view, const Program& program,
                   const ViewState& state);
void NameHistoricalTracks(LabelList& names, const OverlayView& view, const Program& program,
                          const ViewState& state);

}  // namespace skerrow
