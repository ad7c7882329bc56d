#include "ui/overlays/target_overlays.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <tuple>
#include <vector>

#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/text.h"
#include "instruments/ais_shapes.h"

namespace skerrow {
namespace {

// The base of the symbols' scale is this share of the display's height, and no less than what
// leaves hulls that can be told from each other.
constexpr double kScaleBaseShare = 0.6;
constexpr double kLeastScaleBase = 600.0;
constexpr double kScaleParts = 150.0;

constexpr double kHullReach = 4.0;      // scales
constexpr double kAircraftReach = 4.0;  // scales
constexpr double kLabelRoom = 1.5;      // scales about the centre that a label keeps clear
// More labels than this find no room on a screen.
constexpr std::size_t kMostLabels = 250;

// The numbers keep the stamps apart from those of others.
enum class SymbolKind : std::int32_t { kHull = 0x41495331, kCircle, kAircraft };

// All that the look of a symbol depends on; its bytes are the key of its stamp.
struct Symbol {
  SymbolKind kind = SymbolKind::kHull;
  std::int32_t filled = 0;
  std::int32_t colour = 0;
  std::int32_t width = 1;   // of the outline
  std::int32_t course = 0;  // whole degrees: the bow moves by a fifth of a pixel at most
  float scale = 1.0F;
};

std::vector<SurfacePoint> OnSurface(std::span<const PixelPoint> points) {
  std::vector<SurfacePoint> places;
  places.reserve(points.size());
  for (const PixelPoint& point : points) places.push_back({point.x, point.y});
  return places;
}

void DrawHullSymbol(DrawingSurface& surface, SurfacePoint at, const Symbol& symbol) {
  surface.SetPen(symbol.width, symbol.colour);
  if (symbol.filled != 0) surface.SetFill(symbol.colour);
  surface.Polygon(OnSurface(
      AisHull({at.x, at.y}, static_cast<double>(symbol.scale), static_cast<float>(symbol.course))));
  surface.SetFill(std::nullopt);
  surface.SetPen(1, kBlack);
  surface.Ring(at, kAisCentreRadius);
}

void DrawCircleSymbol(DrawingSurface& surface, SurfacePoint at, const Symbol& symbol) {
  surface.SetPen(symbol.width, symbol.colour);
  if (symbol.filled != 0) surface.SetFill(symbol.colour);
  surface.Ellipse(at, kAisCircleRadius, kAisCircleRadius);
  surface.SetFill(std::nullopt);
}

void DrawAircraftSymbol(DrawingSurface& surface, SurfacePoint at, const Symbol& symbol) {
  const AircraftShape shape = AisAircraft({at.x, at.y}, static_cast<double>(symbol.scale),
                                          static_cast<float>(symbol.course));
  surface.SetPen(symbol.width, symbol.colour);
  surface.SetFill(symbol.colour);
  surface.Polygon(OnSurface(shape.outline));
  surface.SetFill(std::nullopt);
  for (const std::array<PixelPoint, 2>& line : shape.lines) {
    surface.Line({line[0].x, line[0].y}, {line[1].x, line[1].y});
  }
  surface.Ring(at, kAircraftRingRadius);
}

void DrawSymbol(DrawingSurface& surface, SurfacePoint at, const Symbol& symbol) {
  const double reach = std::max(kHullReach, kAircraftReach) * static_cast<double>(symbol.scale) +
                       kAircraftRingRadius + symbol.width;
  const auto key = std::bit_cast<std::array<char, sizeof(Symbol)>>(symbol);
  surface.Stamp(at, {key.data(), key.size()}, reach,
                [&symbol](DrawingSurface& onto, SurfacePoint from) {
                  switch (symbol.kind) {
                    case SymbolKind::kHull:
                      return DrawHullSymbol(onto, from, symbol);
                    case SymbolKind::kCircle:
                      return DrawCircleSymbol(onto, from, symbol);
                    case SymbolKind::kAircraft:
                      return DrawAircraftSymbol(onto, from, symbol);
                  }
                });
}

std::int32_t WholeCourse(float course) {
  if (!std::isfinite(course)) return 0;
  return static_cast<std::int32_t>(RoundToInteger(std::fmod(static_cast<double>(course), 360.0)));
}

std::int32_t ColourOf(const AppConfig& config, AisClass ais_class) {
  return ais_class == AisClass::kB ? config.class_b_colour : config.class_a_colour;
}

AisSymbol SymbolOf(const Program& program, const AisTarget& target) {
  return AisSymbolOf(target, program.link.gps_enabled, program.config.cpa_alarm_range,
                     program.config.ais_min_speed);
}

// Where a target stands that lies on the chart and in the part of it that is drawn.
std::optional<SurfacePoint> PlaceOf(const OverlayView& view, const AisTarget& target) {
  std::optional<SurfacePoint> at = view.Place(target.At());
  if (at && !view.Seen(*at, 0.0)) at.reset();
  return at;
}

void DrawTrackOf(DrawingSurface& surface, const OverlayView& view, const AisTarget& target,
                 SurfacePoint at, std::span<const TimedPosition> track) {
  std::array<SurfacePoint, kAisTrackLength + 1> run{at};
  std::size_t count = 1;
  for (const TimedPosition& point : track) {
    if (point.latitude == target.latitude && point.longitude == target.longitude && count == 1) {
      continue;
    }
    const SurfacePoint place = view.ToView({point.latitude, point.longitude});
    if (Apart(run[count - 1], place)) run[count++] = place;
  }
  if (count > 1) surface.Polyline({run.data(), count});
}

void DrawTarget(DrawingSurface& surface, const OverlayView& view, const AppConfig& config,
                const AisTarget& target, SurfacePoint at, const AisSymbol& look, double scale) {
  const std::int32_t colour = ColourOf(config, look.ais_class);
  const bool as_boat = config.ais_as_boat != 0;
  if (look.drawn) {
    Symbol symbol;
    symbol.colour = colour;
    symbol.width = std::clamp<std::int32_t>(config.ais_line_width, 1, 10);
    if (!as_boat) {
      symbol.kind = SymbolKind::kCircle;
      // The only sign of an alarm that a circle can give.
      symbol.filled = look.filled && look.ais_class != AisClass::kSearchAndRescue ? 1 : 0;
    } else {
      const bool aircraft = look.ais_class == AisClass::kSearchAndRescue;
      symbol.kind = aircraft ? SymbolKind::kAircraft : SymbolKind::kHull;
      symbol.filled = look.filled ? 1 : 0;
      symbol.course = WholeCourse(target.course_over_ground);
      symbol.scale = static_cast<float>(scale);
      if (target.show_heading_vector) {
        surface.SetPen(1, colour);
        surface.Line(at, view.ToView(AisVectorEnd(target)));
      }
    }
    DrawSymbol(surface, at, symbol);
  }
  if (!target.show_history && !target.show_predicted) return;
  surface.SetPen(1, colour);
  if (target.show_history) DrawTrackOf(surface, view, target, at, target.history);
  if (target.show_predicted) DrawTrackOf(surface, view, target, at, target.predicted);
}

// A target whose data lines are wanted.
struct Wanted {
  const AisTarget* target = nullptr;
  SurfacePoint at;
  bool always = false;  // in alarm, or on show in a window
  bool alarm = false;
  double distance = 0.0;  // pixels from the boat, or from the middle of the view
};

std::string LinesOf(const Program& program, const AisTarget& target, float now) {
  std::string text;
  for (const std::string& line :
       ChosenAisLines(target, program.config.ais_label_items, program.link.gps_enabled, now)) {
    // A line that says nothing takes no room.
    if (Trim(line).empty()) continue;
    if (!text.empty()) text += '\n';
    text += line;
  }
  return text;
}

}  // namespace

double AisSymbolScale(double display_height) {
  return std::floor(std::max(kLeastScaleBase, kScaleBaseShare * display_height)) / kScaleParts;
}

void DrawAisTargets(DrawingSurface& surface, const OverlayView& view, const Program& program,
                    const ViewState& state) {
  const double scale = AisSymbolScale(state.display_height);
  for (const AisTarget& target : program.ais.targets.All()) {
    if (const std::optional<SurfacePoint> at = PlaceOf(view, target)) {
      DrawTarget(surface, view, program.config, target, *at, SymbolOf(program, target), scale);
    }
  }
}

void NameAisTargets(LabelList& names, const OverlayView& view, const Program& program,
                    const ViewState& state) {
  const SurfacePoint middle =
      program.nmea.fix.HasPosition()
          ? view.ToView(program.nmea.fix.At())
          : SurfacePoint{view.geometry.view_width() / 2.0, view.geometry.view_height() / 2.0};
  const double radius =
      std::max(kAisCircleRadius, kLabelRoom * AisSymbolScale(state.display_height));
  std::vector<Wanted> wanted;
  for (const AisTarget& target : program.ais.targets.All()) {
    const std::optional<SurfacePoint> at = PlaceOf(view, target);
    if (!at) continue;
    const AisSymbol look = SymbolOf(program, target);
    if (!look.drawn) continue;
    const bool alarm = look.filled && look.ais_class != AisClass::kSearchAndRescue;
    if (target.show_details || alarm) {
      const bool always = alarm || target.mmsi == state.shown_target;
      wanted.push_back(
          {&target, *at, always, alarm, std::hypot(at->x - middle.x, at->y - middle.y)});
    } else {
      // No label covers its symbol.
      names.labels.push_back({.text = {}, .at = *at, .radius = radius});
    }
  }
  std::stable_sort(wanted.begin(), wanted.end(), [](const Wanted& a, const Wanted& b) {
    return std::tuple(!a.alarm, !a.always, a.distance) <
           std::tuple(!b.alarm, !b.always, b.distance);
  });
  const float now = AisHours(program.clock->Now());
  const std::size_t most = state.every_name ? wanted.size() : kMostLabels;
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    const Wanted& one = wanted[i];
    Label label;
    if (i < most || one.always) label.text = LinesOf(program, *one.target, now);
    label.at = one.at;
    label.radius = radius;
    label.colour = one.alarm ? kRed : program.config.font_colour;
    label.rank = one.always ? LabelRank::kMark : LabelRank::kTarget;
    label.room = one.always         ? LabelRoom::kAlways
                 : state.every_name ? LabelRoom::kUsual
                                    : LabelRoom::kFreeOnly;
    label.background = kGround;
    names.labels.push_back(std::move(label));
  }
}

void DrawAisMark(DrawingSurface& surface, const OverlayView& view, const Program& program,
                 const ViewState& state) {
  const AisTarget* target = program.ais.targets.Find(state.shown_target);
  if (target == nullptr) return;
  const std::optional<SurfacePoint> at = view.Place(target->At());
  const double radius =
      std::max<double>(view.marker_radius, 5.0 * AisSymbolScale(state.display_height));
  if (!at || !view.Seen(*at, radius)) return;
  // Paper beneath, so that it is found on any chart.
  surface.SetPen(5, kGround);
  surface.Ring(*at, radius);
  surface.SetPen(2, kRed);
  surface.Ring(*at, radius);
}

}  // namespace skerrow
