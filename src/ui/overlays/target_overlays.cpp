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
// More labels than this never find room on a screen.
constexpr std::size_t kMostLabels = 300;

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

// Whether the places between the ends of a run lie so near to the line that joins them that nobody
// sees the difference.
bool Straight(std::span<const SurfacePoint> run) {
  constexpr double kSeen = 0.3;  // pixels
  const SurfacePoint from = run.front();
  const double x = run.back().x - from.x;
  const double y = run.back().y - from.y;
  const double length = std::hypot(x, y);
  return std::all_of(run.begin() + 1, run.end() - 1, [&](SurfacePoint at) {
    const double across = (at.x - from.x) * y - (at.y - from.y) * x;
    const double along = (at.x - from.x) * x + (at.y - from.y) * y;
    return std::abs(across) <= kSeen * length && along >= 0.0 && along <= length * length;
  });
}

// The track of a target from where it is; pieces that make one straight line are drawn as one.
void DrawTrackOf(DrawingSurface& surface, const OverlayView& view, SurfacePoint at,
                 std::span<const TimedPosition, kAisTrackLength> track) {
  std::array<SurfacePoint, kAisTrackLength + 1> run{at};
  std::size_t count = 1;
  for (const TimedPosition& point : track) {
    const SurfacePoint place = view.ToView({point.latitude, point.longitude});
    if (Apart(run[count - 1], place)) run[count++] = place;
  }
  if (count == 1) return;
  std::array<SurfacePoint, kAisTrackLength + 1> corners{at};
  std::size_t kept = 1;
  for (std::size_t first = 0; first + 1 < count;) {
    std::size_t last = first + 1;
    while (last + 1 < count && Straight({&run[first], last + 2 - first})) ++last;
    corners[kept++] = run[last];
    first = last;
  }
  surface.Polyline({corners.data(), kept});
}

// A target that stands on the part of the chart that is drawn.
struct Placed {
  const AisTarget* target = nullptr;
  SurfacePoint at;
  AisSymbol look;
  std::int32_t colour = 0;
};

std::vector<Placed> PlacedTargets(const OverlayView& view, const Program& program) {
  std::vector<Placed> placed;
  for (const AisTarget& target : program.ais.targets.All()) {
    const std::optional<SurfacePoint> at = PlaceOf(view, target);
    if (!at) continue;
    const AisSymbol look = SymbolOf(program, target);
    placed.push_back({&target, *at, look, ColourOf(program.config, look.ais_class)});
  }
  return placed;
}

void DrawLinesOf(DrawingSurface& surface, const OverlayView& view, const Placed& placed,
                 bool as_boat) {
  const AisTarget& target = *placed.target;
  if (target.show_history) DrawTrackOf(surface, view, placed.at, target.history);
  if (target.show_predicted) DrawTrackOf(surface, view, placed.at, target.predicted);
  if (as_boat && placed.look.drawn && target.show_heading_vector) {
    surface.Line(placed.at, view.ToView(AisVectorEnd(target)));
  }
}

Symbol StampOf(const Placed& placed, const AppConfig& config, double scale) {
  const bool aircraft = placed.look.ais_class == AisClass::kSearchAndRescue;
  Symbol symbol;
  symbol.colour = placed.colour;
  symbol.width = std::clamp<std::int32_t>(config.ais_line_width, 1, 10);
  if (config.ais_as_boat == 0) {
    symbol.kind = SymbolKind::kCircle;
    // The only sign of an alarm that a circle can give.
    symbol.filled = placed.look.filled && !aircraft ? 1 : 0;
    return symbol;
  }
  symbol.kind = aircraft ? SymbolKind::kAircraft : SymbolKind::kHull;
  symbol.filled = placed.look.filled ? 1 : 0;
  symbol.course = WholeCourse(placed.target->course_over_ground);
  symbol.scale = static_cast<float>(scale);
  return symbol;
}

// The radius of the ring about the target that a window shows.
double MarkRadius(const OverlayView& view, const ViewState& state) {
  return std::max<double>(view.marker_radius, 5.0 * AisSymbolScale(state.display_height));
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
  const AppConfig& config = program.config;
  const std::vector<Placed> placed = PlacedTargets(view, program);
  // The lines of one colour after those of the other, and all symbols above them.
  for (const AisClass ais_class : {AisClass::kA, AisClass::kB}) {
    surface.SetPen(1, ColourOf(config, ais_class));
    for (const Placed& one : placed) {
      if ((one.look.ais_class == AisClass::kB) != (ais_class == AisClass::kB)) continue;
      DrawLinesOf(surface, view, one, config.ais_as_boat != 0);
    }
  }
  const double scale = AisSymbolScale(state.display_height);
  for (const Placed& one : placed) {
    if (one.look.drawn) DrawSymbol(surface, one.at, StampOf(one, config, scale));
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
  for (const Placed& one : PlacedTargets(view, program)) {
    if (!one.look.drawn) continue;
    const AisTarget& target = *one.target;
    const bool alarm = one.look.filled && one.look.ais_class != AisClass::kSearchAndRescue;
    if (target.show_details || alarm) {
      const bool always = alarm || target.mmsi == state.shown_target;
      wanted.push_back(
          {&target, one.at, always, alarm, std::hypot(one.at.x - middle.x, one.at.y - middle.y)});
    } else {
      // No label covers its symbol.
      names.labels.push_back({.text = {}, .at = one.at, .radius = radius});
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
    label.radius = one.target->mmsi == state.shown_target ? MarkRadius(view, state) : radius;
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
  const double radius = MarkRadius(view, state);
  if (!at || !view.Seen(*at, radius)) return;
  // Paper beneath, so that it is found on any chart.
  surface.SetPen(5, kGround);
  surface.Ring(*at, radius);
  surface.SetPen(2, kRed);
  surface.Ring(*at, radius);
}

}  // namespace skerrow
