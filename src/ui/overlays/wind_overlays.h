#pragma once

#include "ui/overlays/overlays.h"

// The wind over the chart, by barbs as on meteorological charts.
namespace skerrow {

// What a barb carries for a wind: a triangle for each 50 knots, a feather for each 10 and half a
// feather for 5, of the speed to the nearest 5 knots. A calm, below 2.5 knots, carries nothing.
struct BarbParts {
  int pennants = 0;
  int feathers = 0;
  bool half = false;
  bool calm = false;
};
BarbParts BarbPartsOf(float speed_kn);

// "12kn @ 225°T".
std::string WindText(Wind wind);

// One barb: a shaft that flies with the wind from the place on, its head to leeward, with the
// feathers at the place, to windward; in whole degrees. Outside the chart and off the screen
// nothing, and nothing for a wind that is not known.
void DrawInWind(DrawingSurface& surface, const OverlayView& view, const Program& program,
                Position at, Wind wind);

// The wind entered, as the same barb all over the chart.
void DrawManualWind(DrawingSurface& surface, const OverlayView& view, const Program& program,
                    const ViewState& state);
void NameManualWind(LabelList& names, const OverlayView& view, const Program& program,
                    const ViewState& state);

// The imported wind, from the field as it stands (UpdateWindField). Where its points crowd, rows
// and columns are left out evenly, the same ones wherever the chart is moved to.
void DrawStoredWind(DrawingSurface& surface, const OverlayView& view, const Program& program,
                    const ViewState& state);
void NameStoredWind(LabelList& names, const OverlayView& view, const Program& program,
                    const ViewState& state);

// The texts of the winds over the route, where they are shown.
void NameRouteWind(LabelList& names, const OverlayView& view, const Program& program,
                   const ViewState& state);

}  // namespace skerrow
