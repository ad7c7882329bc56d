#pragma once

#include "ui/overlays/overlays.h"

// The vessels around the boat.
namespace skerrow {

// Half of the beam of a target's hull for a display of that height, both in view pixels.
double AisSymbolScale(double display_height);

// The tracks, course vectors and symbols of the targets, in table order; those in alarm are filled.
// With boat icons off a target is a circle.
void DrawAisTargets(DrawingSurface& surface, const OverlayView& view, const Program& program,
                    const ViewState& state);

// The chosen data lines of the targets that show theirs. Those in alarm and the one on show in a
// window always get theirs. Of the others the near ones come first, and those without room go
// without, also where every other name shows: among many ships the chart would be lost under them.
void NameAisTargets(LabelList& names, const OverlayView& view, const Program& program,
                    const ViewState& state);

// The ring about the target that a window shows.
void DrawAisMark(DrawingSurface& surface, const OverlayView& view, const Program& program,
                 const ViewState& state);

}  // namespace skerrow
