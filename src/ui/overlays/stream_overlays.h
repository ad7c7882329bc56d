#pragma once

#include "ui/overlays/overlays.h"

// Tidal streams: an arrow at each diamond and at each harmonic station for the selected time.
namespace skerrow {

// The diamonds' streams, from the table as it stands (UpdateTidalStreams), as shapes or as lines;
// nothing while tides are not in use.
void DrawStreams(DrawingSurface& surface, const OverlayView& view, const Program& program,
                 const ViewState& state);
void NameStreams(LabelList& names, const OverlayView& view, const Program& program,
                 const ViewState& state);

// The harmonic stations' streams, all but the first station's, in the form that the diamonds'
// arrows do not have, so that the two can be told from each other.
void DrawHarmonicStreams(DrawingSurface& surface, const OverlayView& view, const Program& program,
                         const ViewState& state);
void NameHarmonicStreams(LabelList& names, const OverlayView& view, const Program& program,
                         const ViewState& state);

// An arrow as a shape at a place: `direction` in degrees true, `rate` in knots. Outside the chart,
// and off the screen, nothing.
void DrawStreamPoly(DrawingSurface& surface, const OverlayView& view, const AppConfig& config,
                    Position position, float direction, float rate);

// "1.4@068°", or "SLACK" at a rate of 0.
std::string StreamText(float rate, float direction);

}  // namespace skerrow
