#include "ui/overlays/stream_overlays.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/numbers.h"
#include "core/plane_sailing.h"

namespace skerrow {
namespace {

constexpr std::int64_t kLeastShapeWidth = 4;       // pixels
constexpr std::int64_t kLargestShapeWidth = 2000;  // a rate beyond all sense still ends somewhere
constexpr double kMarkRadius = 2.0;
constexpr int kLineMargin = 19;              // pixels beside the picture where lines still begin
constexpr double kLineHead = 768.0 / 150.0;  // of each part of a head's strokes, pixels
constexpr double kHarmonicLabelRise = 20.0;  // pixels

// One stream of either table.
struct Stream {
  Position position;
  float rate;
  float direction;
  float direction_rad;
};

Stream StreamOf(const TidalStream& stream) {
  return {{static_cast<float>(stream.latitude), static_cast<float>(stream.longitude)},
          stream.rate,
          stream.direction,
          stream.direction_rad};
}

Stream StreamOf(const HarmonicStream& stream) {
  return {{stream.latitude, stream.longitude}, stream.rate, stream.direction, stream.direction_rad};
}

// The length of a line, as a part of the picture's width, and its pen.
struct LineForm {
  double part;
  int width;
};

LineForm LineFormOf(float rate) {
  if (rate < 1.0F) return {1.0 / 50.0, 1};
  if (rate <= 2.0F) return {1.0 / 30.0, 2};
  if (rate <= 4.0F) return {1.0 / 20.0, 3};
  if (rate <= 8.0F) return {1.0 / 15.0, 3};
  return {1.0 / 15.0, 4};
}

// An arrow as a line. Its length is a part of the chart's, so it grows and shrinks with the chart.
void DrawStreamLine(DrawingSurface& surface, const OverlayView& view, std::int32_t colour,
                    const Stream& stream) {
  if (stream.rate == 0.0F || !view.InChart(stream.position)) return;
  const std::int32_t col = view.chart.LongToCol(stream.position.longitude);
  const std::int32_t row = view.chart.LatToRow(stream.position.latitude);
  const int width = view.geometry.image_width();
  if (col < -kLineMargin || col >= width || row < -kLineMargin ||
      row >= view.geometry.image_height()) {
    return;
  }
  const LineForm form = LineFormOf(stream.rate);
  const double length = width * form.part * view.geometry.zoom();
  const double angle = stream.direction_rad - kPi / 2.0;
  const double u = std::cos(angle);
  const double v = std::sin(angle);
  const SurfacePoint from = view.ToView(stream.position);
  if (!view.Seen(from, length + 2.0 * kLineHead)) return;
  const SurfacePoint end{from.x + length * u, from.y + length * v};
  // Both strokes of the head in one go.
  const std::array<SurfacePoint, 3> head = {
      SurfacePoint{end.x + kLineHead * (-u - v), end.y + kLineHead * (u - v)}, end,
      SurfacePoint{end.x + kLineHead * (v - u), end.y + kLineHead * (-u - v)}};
  surface.SetPen(form.width, colour);
  surface.Line(from, end);
  surface.Polyline(head);
}

void DrawStream(DrawingSurface& surface, const OverlayView& view, const AppConfig& config,
                bool as_shape, const Stream& stream) {
  if (as_shape) {
    DrawStreamPoly(surface, view, config, stream.position, stream.direction, stream.rate);
  } else {
    DrawStreamLine(surface, view, config.stream_colour, stream);
  }
}

// The label of a stream whose place is on the picture. Where every name shows it has a place of its
// own, `rise` pixels above the stream's; else it takes the room that the other names leave, on the
// side that the arrow does not point to.
void NameStream(LabelList& names, const OverlayView& view, const Program& program,
                const ViewState& state, const Stream& stream, double rise) {
  if (!view.InChart(stream.position)) return;
  const std::int32_t col = view.chart.LongToCol(stream.position.longitude);
  const std::int32_t row = view.chart.LatToRow(stream.position.latitude);
  if (col < 1 || row < 1 || !view.chart.OnImage(col, row)) return;
  const SurfacePoint at = view.ToView(stream.position);
  const std::int32_t colour = program.config.font_colour;
  std::string text = StreamText(stream.rate, stream.direction);
  if (EveryNameShows(view, state)) {
    names.fixed.push_back({std::move(text), {at.x, at.y - rise}, colour});
  } else {
    const LabelSide side = stream.direction < 180.0F ? LabelSide::kLeft : LabelSide::kRight;
    names.labels.push_back({std::move(text), at, kMarkRadius, colour, LabelRank::kStream, side});
  }
}

}  // namespace

std::string StreamText(float rate, float direction) {
  if (rate == 0.0F) return "SLACK";
  return FormatFixed(rate, 1, 1) + "@" + FormatFixed(direction, 3, 0) + "°";
}

void DrawStreams(DrawingSurface& surface, const OverlayView& view, const Program& program,
                 const ViewState&) {
  if (program.config.use_tides == 0) return;
  const bool as_shape = program.config.stream_as_shape != 0;
  for (const TidalStream& stream : program.tides.tidal_streams) {
    if (!stream.known) continue;  // a mark without a rate would tell of slack water
    DrawStream(surface, view, program.config, as_shape, StreamOf(stream));
  }
}

void NameStreams(LabelList& names, const OverlayView& view, const Program& program,
                 const ViewState& state) {
  if (program.config.use_tides == 0 || program.config.hide_stream_id != 0) return;
  for (const TidalStream& stream : program.tides.tidal_streams) {
    if (stream.known) NameStream(names, view, program, state, StreamOf(stream), 0.0);
  }
}

void DrawHarmonicStreams(DrawingSurface& surface, const OverlayView& view, const Program& program,
                         const ViewState&) {
  if (program.config.use_tides == 0) return;
  const bool as_shape = program.config.stream_as_shape == 0;
  const std::vector<HarmonicStream>& streams = program.tides.harmonic_streams;
  for (std::size_t i = 1; i < streams.size(); ++i) {
    DrawStream(surface, view, program.config, as_shape, StreamOf(streams[i]));
  }
}

void NameHarmonicStreams(LabelList& names, const OverlayView& view, const Program& program,
                         const ViewState& state) {
  if (program.config.use_tides == 0 || program.config.hide_stream_id != 0) return;
  const std::vector<HarmonicStream>& streams = program.tides.harmonic_streams;
  for (std::size_t i = 1; i < streams.size(); ++i) {
    NameStream(names, view, program, state, StreamOf(streams[i]), kHarmonicLabelRise);
  }
}

void DrawStreamPoly(DrawingSurface& surface, const OverlayView& view, const AppConfig& config,
                    Position position, float direction, float rate) {
  const std::optional<SurfacePoint> place = view.Place(position);
  if (!place) return;
  const double w = static_cast<double>(
      std::clamp(RoundToInteger(static_cast<double>(config.stream_length) * rate), kLeastShapeWidth,
                 kLargestShapeWidth));
  if (!view.Seen(*place, 4.0 * w + config.stream_line_width)) return;
  const double angle = direction * kRadiansPerDegree;
  // Unit vectors across the arrow, to its left, and along it.
  const SurfacePoint across{std::cos(angle + kPi), std::sin(angle + kPi)};
  const SurfacePoint along{std::cos(angle - kPi / 2.0), std::sin(angle - kPi / 2.0)};
  const auto at = [&](double to_left, double ahead) {
    return SurfacePoint{place->x + to_left * across.x + ahead * along.x,
                        place->y + to_left * across.y + ahead * along.y};
  };
  const std::array<SurfacePoint, 8> shape = {
      at(0.0, 0.0),     at((w + 1.0) / 2.0, 0.0), at(w / 2.0, 2.0 * w),  at(w, 2.0 * w),
      at(0.0, 4.0 * w), at(-w, 2.0 * w),          at(-w / 2.0, 2.0 * w), at(-(w + 1.0) / 2.0, 0.0)};
  if (config.stream_filled != 0) {
    // The black outline lies where one in the arrow's colour would.
    surface.SetFill(config.stream_colour);
    surface.SetPen(1, kBlack);
    surface.Polygon(shape);
    surface.SetFill(std::nullopt);
  } else {
    surface.SetFill(std::nullopt);
    surface.SetPen(config.stream_line_width, config.stream_colour);
    surface.Polygon(shape);
  }
  surface.SetPen(1, kBlack);
  surface.Ring(*place, kMarkRadius);
}

}  // namespace skerrow
