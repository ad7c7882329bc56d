#include "ui/overlays/chart_overlays.h"

#include <array>

namespace skerrow {
namespace {

constexpr double kHalfPortSymbol = 6.0;

std::array<SurfacePoint, 4> CornersOf(const OverlayView& view, const ChartIndexEntry& chart) {
  return {view.ToView({chart.upper_lat, chart.lower_lon}),
          view.ToView({chart.upper_lat, chart.upper_lon}),
          view.ToView({chart.lower_lat, chart.upper_lon}),
          view.ToView({chart.lower_lat, chart.lower_lon})};
}

std::optional<SurfacePoint> PlaceOf(const OverlayView& view, const PortMarker& port) {
  const Position position{port.latitude, port.longitude};
  if (!view.InChart(position) || !view.chart.OnImage(view.chart.LongToCol(position.longitude),
                                                     view.chart.LatToRow(position.latitude))) {
    return std::nullopt;
  }
  return view.ToView(position);
}

}  // namespace

void DrawChartBoundaries(DrawingSurface& surface, const OverlayView& view, const Program& program,
                         const ViewState&) {
  if (program.charts.index.empty()) return;
  surface.SetFill(std::nullopt);
  surface.SetPen(1, kRed);
  for (const ChartIndexEntry& chart : program.charts.index) {
    surface.Polygon(CornersOf(view, chart));
  }
}

void DrawCandidateChart(DrawingSurface& surface, const OverlayView& view, const Program&,
                        const ViewState& state) {
  if (!state.candidate_chart) return;
  const std::array<SurfacePoint, 4> corners = CornersOf(view, *state.candidate_chart);
  surface.SetFill(std::nullopt);
  surface.SetPen(2, kBlue, LineStyle::kDash);
  surface.Polygon(corners);
}

void NameCandidateChart(LabelList& names, const OverlayView& view, const Program& program,
                        const ViewState& state) {
  if (!state.candidate_chart) return;
  const SurfacePoint corner = CornersOf(view, *state.candidate_chart)[0];
  names.fixed.push_back(
      {state.candidate_chart->title, {corner.x + 6.0, corner.y + 4.0}, program.config.font_colour});
}

void DrawPorts(DrawingSurface& surface, const OverlayView& view, const Program& program,
               const ViewState&) {
  if (program.port_markers.empty()) return;
  surface.SetPen(1, kBlack);
  for (const PortMarker& port : program.port_markers) {
    const std::optional<SurfacePoint> at = PlaceOf(view, port);
    if (at && view.Seen(*at, kHalfPortSymbol)) DrawPortSymbol(surface, *at);
  }
  surface.SetFill(std::nullopt);
}

void NamePorts(LabelList& names, const OverlayView& view, const Program& program,
               const ViewState&) {
  for (const PortMarker& port : program.port_markers) {
    if (const std::optional<SurfacePoint> at = PlaceOf(view, port)) {
      names.labels.push_back({port.name, *at, kHalfPortSymbol, program.config.font_colour,
                              LabelRank::kPort, LabelSide::kLeft});
    }
  }
}

void DrawPortSymbol(DrawingSurface& surface, SurfacePoint at) {
  const double half = kHalfPortSymbol;
  surface.SetFill(kLightGrey);
  surface.Polygon(std::array<SurfacePoint, 4>{
      {{at.x, at.y - half}, {at.x + half, at.y}, {at.x, at.y + half}, {at.x - half, at.y}}});
  surface.Line({at.x - half, at.y}, {at.x + half, at.y});
  surface.Line({at.x, at.y - half}, {at.x, at.y + half});
}

}  // namespace skerrow
