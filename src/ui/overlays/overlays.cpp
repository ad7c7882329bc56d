#include "ui/overlays/overlays.h"

#include <array>

#include "ui/overlays/boat_overlays.h"
#include "ui/overlays/chart_overlays.h"
#include "ui/overlays/mark_overlays.h"
#include "ui/overlays/route_overlays.h"
#include "ui/overlays/stream_overlays.h"
#include "ui/overlays/target_overlays.h"
#include "ui/overlays/wind_overlays.h"

namespace skerrow {
namespace {

bool Always(const Program&, const ViewState&) { return true; }
bool DividersInUse(const Program&, const ViewState& state) { return state.dividers_on; }
bool WaypointsShown(const Program& program, const ViewState&) {
  return program.config.show_waypoints == 1.0F;
}
bool CourseShown(const Program&, const ViewState& state) { return state.calculation_on_show; }
bool BoatShown(const Program& program, const ViewState&) { return program.nmea.fix.position_good; }
bool RangeRingsShown(const Program& program, const ViewState&) {
  return program.nmea.fix.position_good && program.config.range_rings_on != 0;
}
bool FutureShown(const Program& program, const ViewState&) {
  return program.nmea.fix.position_good && program.config.boat_future_tide_plot != 0;
}
bool MobHeld(const Program& program, const ViewState&) { return program.mob.on; }
bool PointMarked(const Program&, const ViewState& state) { return state.marked_point_on; }

// While a rectangle is being drawn the chart's own marks stay away.
bool BoundariesShown(const Program& program, const ViewState& state) {
  return !state.rectangle_dragging && program.config.show_chart_boundaries != 0;
}
bool CandidateShown(const Program&, const ViewState& state) {
  return !state.rectangle_dragging && state.candidate_chart.has_value();
}
bool StreamsShown(const Program& program, const ViewState& state) {
  return !state.rectangle_dragging && program.config.show_streams == 1.0F;
}
bool HarmonicStreamsShown(const Program& program, const ViewState& state) {
  return StreamsShown(program, state) && program.tides.harmonic_streams_on;
}
bool PortsShown(const Program& program, const ViewState& state) {
  return !state.rectangle_dragging && program.config.show_tide_heights != 0;
}
bool ManualWindShown(const Program& program, const ViewState& state) {
  return !state.rectangle_dragging && program.config.show_wind_grid != 0 &&
         program.config.use_manual_wind != 0;
}
bool StoredWindShown(const Program& program, const ViewState& state) {
  return !state.rectangle_dragging && program.config.show_wind_grid != 0 &&
         program.config.use_manual_wind == 0;
}
bool TargetsShown(const Program& program, const ViewState& state) {
  return !state.rectangle_dragging && state.targets_shown &&
         (program.link.ais_enabled || program.replay.replay_active);
}
bool TargetMarked(const Program& program, const ViewState& state) {
  return state.shown_target != 0 && TargetsShown(program, state);
}
bool ReplayShown(const Program& program, const ViewState& state) {
  return !state.rectangle_dragging && program.replay.replay_active;
}
bool TrackLayer(const Program& program) { return program.config.track_layer_on != 0.0F; }
bool TrackShown(const Program& program, const ViewState&) {
  return TrackLayer(program) && (program.plot.historical_plot_on || program.plot.track_plot_on ||
                                 program.nmea.fix.position_good);
}
// The name of an earlier voyage has no folder, and no file.
bool PlotFileShown(const Program& program, const ViewState&) {
  return TrackLayer(program) && (program.link.gps_enabled || program.plot.track_plot_on) &&
         program.plot.plot_file_name.find('/') != std::string::npos;
}
bool VectorsWanted(const Program& program, const ViewState&) {
  return VectorsShown(program.config);
}

// The order of painting. A row without a draw function waits for its subsystem, which sets it here.
constexpr std::array kOverlays = {
    Overlay{"dividers", DividersInUse, DrawDividers, NameDividers},
    Overlay{"route", Always, DrawRoute, NameRoute},
    Overlay{"route legs", Always, DrawInterRtePoints},
    Overlay{"waypoints", WaypointsShown, DrawWaypoints, NameWaypoints},
    Overlay{"course over ground", CourseShown, DrawCOG, NameCOG},
    Overlay{"boat", BoatShown, DrawInBoat},
    Overlay{"range rings", RangeRingsShown, DrawRangeRings},
    Overlay{"future positions", FutureShown, DrawinFuturePos},
    Overlay{"man overboard", MobHeld, DrawMob, NameMob},
    Overlay{"marked point", PointMarked, DrawMarkedPoint},
    Overlay{"AIS mark", TargetMarked, DrawAisMark},
    Overlay{"chart boundaries", BoundariesShown, DrawChartBoundaries},
    Overlay{"candidate chart", CandidateShown, DrawCandidateChart, NameCandidateChart},
    Overlay{"tidal streams", StreamsShown, DrawStreams, NameStreams},
    Overlay{"harmonic streams", HarmonicStreamsShown, DrawHarmonicStreams, NameHarmonicStreams},
    Overlay{"tidal ports", PortsShown, DrawPorts, NamePorts},
    Overlay{"wind entered", ManualWindShown, DrawManualWind, NameManualWind},
    Overlay{"wind imported", StoredWindShown, DrawStoredWind, NameStoredWind},
    Overlay{"AIS targets", TargetsShown, DrawAisTargets, NameAisTargets},
    Overlay{"boat of a replay", ReplayShown, DrawInBoat},
    Overlay{"live track", TrackShown, DrawLiveTrack, NameLiveTrack},
    Overlay{"plot file", PlotFileShown, DrawPlotFile, NamePlotFile},
    Overlay{"vectors", VectorsWanted, DrawVectors},
};

}  // namespace

std::span<const Overlay> Overlays() { return kOverlays; }

bool EveryNameShows(const OverlayView& view, const ViewState& state) {
  return state.every_name || view.geometry.zoom() >= 1.0;
}

void DrawOverlays(DrawingSurface& surface, const OverlayView& view, const Program& program,
                  const ViewState& state) {
  if (!view.geometry.HasImage()) return;
  LabelList names;
  for (const Overlay& overlay : Overlays()) {
    if (overlay.draw == nullptr || !overlay.shown(program, state)) continue;
    overlay.draw(surface, view, program, state);
    if (overlay.names != nullptr) overlay.names(names, view, program, state);
  }
  DrawLabels(surface, view, names, EveryNameShows(view, state));
}

}  // namespace skerrow
