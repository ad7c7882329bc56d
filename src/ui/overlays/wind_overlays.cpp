#include "ui/overlays/wind_overlays.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

#include "core/numbers.h"
#include "core/plane_sailing.h"

namespace skerrow {
namespace {

constexpr double kLeastLength = 8.0;  // of a shaft, pixels
constexpr double kMostLength = 200.0;
constexpr double kLeastSpacing = 2.0;
constexpr double kMostSpacing = 40.0;
constexpr float kMostSpeed = 500.0F;  // knots; anything more is no wind
constexpr double kCalmRadius = 4.0;
constexpr double kMarkRadius = 2.0;  // of the place, for its text

// A feather stands off the shaft by this part of the shaft's length, and leans to windward.
constexpr double kFeather = 0.45;
constexpr double kLean = 0.4;  // of the feather's length along the shaft
constexpr double kHead = 4.0;  // pixels

// Barbs of a grid stand at least this many of their lengths apart, and their texts, where they are
// written, at least this many pixels.
constexpr double kApart = 1.8;
constexpr double kTextApart = 110.0;

double LengthOf(const AppConfig& config) {
  return std::clamp(static_cast<double>(config.barb_length), kLeastLength, kMostLength);
}

double SpacingOf(const AppConfig& config) {
  return std::clamp(static_cast<double>(config.barb_spacing), kLeastSpacing, kMostSpacing);
}

bool Known(Wind wind) {
  return wind.speed_kn >= 0.0F && wind.speed_kn < kMostSpeed && std::isfinite(wind.from_deg);
}

double GridApart(const AppConfig& config) {
  const double barbs = kApart * LengthOf(config);
  return config.barb_display_text != 0 ? std::max(barbs, kTextApart) : barbs;
}

// The direction of a wind in whole degrees, 0 to 359; half a degree short of north is north.
std::int64_t WholeDegrees(float from) {
  const std::int64_t degrees = RoundToInteger(std::fmod(static_cast<double>(from), 360.0)) % 360;
  return degrees < 0 ? degrees + 360 : degrees;
}

// All that the look of a barb depends on; its bytes are the key of its stamp.
struct Barb {
  std::int32_t fives = 0;  // the speed in units of 5 knots
  std::int32_t from = 0;   // whole degrees
  float length = 0.0F;     // pixels
  float spacing = 0.0F;
  std::int32_t width = 1;
  std::int32_t colour = 0;
  std::int32_t south = 0;  // 1 south of the equator
};

std::int32_t FivesOf(float speed_kn) {
  return static_cast<std::int32_t>(RoundToInteger(std::clamp(speed_kn, 0.0F, kMostSpeed) / 5.0));
}

BarbParts PartsOf(std::int32_t fives) {
  BarbParts parts;
  parts.calm = fives == 0;
  parts.pennants = fives / 10;
  parts.feathers = fives % 10 / 2;
  parts.half = fives % 2 != 0;
  return parts;
}

// The length of a barb's shaft, pixels; one that its feathers do not fit on grows.
double ShaftOf(const Barb& barb) {
  const BarbParts parts = PartsOf(barb.fives);
  const double steps = 2.0 * parts.pennants + parts.feathers + (parts.half ? 1.0 : 0.0);
  return std::max<double>(barb.length, barb.spacing * steps + kHead);
}

void DrawBarb(DrawingSurface& surface, SurfacePoint place, const Barb& barb) {
  const BarbParts parts = PartsOf(barb.fives);
  surface.SetPen(barb.width, barb.colour);
  if (parts.calm) {
    surface.Ring(place, kCalmRadius);
    return;
  }
  const double angle = barb.from * kRadiansPerDegree + kPi / 2.0;
  // Unit vectors down the wind, and across it to the side of the lower pressure: to the left of one
  // who has the wind in the back, south of the equator to the right.
  const SurfacePoint along{std::cos(angle), std::sin(angle)};
  const double hand = barb.south != 0 ? -1.0 : 1.0;
  const SurfacePoint across{hand * along.y, hand * -along.x};
  const auto point = [&](double down, double off) {
    return SurfacePoint{place.x + down * along.x + off * across.x,
                        place.y + down * along.y + off * across.y};
  };
  const double length = ShaftOf(barb);
  const SurfacePoint end = point(length, 0.0);
  surface.Line(place, end);
  surface.Polyline(std::array<SurfacePoint, 3>{point(length - kHead, kHead / 2.0), end,
                                               point(length - kHead, -kHead / 2.0)});
  const double feather = kFeather * barb.length;
  double down = 0.0;
  if (parts.pennants > 0) {
    surface.SetFill(barb.colour);
    for (int i = 0; i < parts.pennants; ++i) {
      surface.Polygon(std::array<SurfacePoint, 3>{point(down, 0.0), point(down, feather),
                                                  point(down + 1.5 * barb.spacing, 0.0)});
      down += 2.0 * barb.spacing;
    }
    surface.SetFill(std::nullopt);
  }
  const auto draw_feather = [&](double size) {
    surface.Line(point(down, 0.0), point(down - kLean * size, size));
    down += barb.spacing;
  };
  for (int i = 0; i < parts.feathers; ++i) draw_feather(feather);
  if (parts.half) {
    // Half a feather alone stands off the end, so that it is not taken for a whole one.
    if (parts.pennants == 0 && parts.feathers == 0) down += barb.spacing;
    draw_feather(feather / 2.0);
  }
}

void AddText(LabelList& names, const OverlayView& view, const Program& program, Position at,
             Wind wind, LabelRank rank) {
  const std::optional<SurfacePoint> place = view.Place(at);
  if (!place || !Known(wind)) return;
  // On the windward side, where the shaft is not in the way.
  const LabelSide side = wind.from_deg < 180.0F ? LabelSide::kRight : LabelSide::kLeft;
  names.labels.push_back(
      {WindText(wind), *place, kMarkRadius, program.config.font_colour, rank, side});
}

// Calls `act` for the places of a lattice over the visible part of the chart. It is laid from the
// corner of the picture, so that it moves with the chart.
template <typename Act>
void ForLattice(const OverlayView& view, const AppConfig& config, const Act& act) {
  constexpr double kManualApart = 4.0;  // lengths of a barb
  const double apart = std::max(GridApart(config), kManualApart * LengthOf(config));
  const double step = apart / view.geometry.zoom();
  if (!(step >= 1.0) || !std::isfinite(step)) return;
  const ImageRect seen = view.geometry.VisibleRect();
  const double first_row = std::max(0.0, std::floor(seen.top / step));
  const double first_col = std::max(0.0, std::floor(seen.left / step));
  for (double row = (first_row + 0.5) * step; row < seen.top + seen.height; row += step) {
    for (double col = (first_col + 0.5) * step; col < seen.left + seen.width; col += step) {
      act(Position{view.chart.RowToLat(static_cast<std::int32_t>(row)),
                   view.chart.ColToLong(static_cast<std::int32_t>(col))});
    }
  }
}

// How many rows or columns, `step_pixels` apart, go on one barb. Powers of two, so that what shows
// from afar shows from near too.
int Stride(double step_pixels, double apart) {
  int stride = 1;
  if (!(step_pixels > 0.0)) return stride;
  while (stride * step_pixels < apart && stride < 4096) stride *= 2;
  return stride;
}

template <typename Act>
void ForField(const OverlayView& view, const Program& program, const Act& act) {
  const WindField& field = program.wind_field;
  const double apart = GridApart(program.config);
  const auto pixels = [&](Position from, Position to) {
    const SurfacePoint a = view.ToView(from);
    const SurfacePoint b = view.ToView(to);
    return std::hypot(a.x - b.x, a.y - b.y);
  };
  // Of the chart, not of what is seen of it: a move of the chart changes nothing.
  const Position middle{(view.top_lat + view.bottom_lat) / 2.0F,
                        (view.west_lon + view.east_lon) / 2.0F};
  const int rows =
      Stride(pixels(middle, {middle.latitude + field.row_step, middle.longitude}), apart);
  const int columns =
      Stride(pixels(middle, {middle.latitude, middle.longitude + field.column_step}), apart);
  for (const FieldWind& wind : field.winds) {
    if (wind.row % rows == 0 && wind.column % columns == 0) act(wind);
  }
}

}  // namespace

BarbParts BarbPartsOf(float speed_kn) { return PartsOf(FivesOf(speed_kn)); }

std::string WindText(Wind wind) {
  return FormatFixed(wind.speed_kn, 1, 0) + "kn @ " +
         FormatFixed(static_cast<double>(WholeDegrees(wind.from_deg)), 3, 0) + "°T";
}

void DrawInWind(DrawingSurface& surface, const OverlayView& view, const Program& program,
                Position at, Wind wind) {
  const std::optional<SurfacePoint> place = view.Place(at);
  if (!place || !Known(wind)) return;
  const AppConfig& config = program.config;
  Barb barb;
  barb.fives = FivesOf(wind.speed_kn);
  // Whole degrees, as the text has them: the end of a barb moves by less than half a pixel.
  barb.from = barb.fives == 0 ? 0 : static_cast<std::int32_t>(WholeDegrees(wind.from_deg));
  barb.length = static_cast<float>(LengthOf(config));
  barb.spacing = static_cast<float>(SpacingOf(config));
  barb.width = std::clamp<std::int32_t>(config.barb_weight, 1, 10);
  barb.colour = config.wind_colour;
  barb.south = at.latitude < 0.0F ? 1 : 0;
  const double reach = ShaftOf(barb) + barb.length + barb.width;
  if (!view.Seen(*place, reach)) return;
  const auto key = std::bit_cast<std::array<char, sizeof(Barb)>>(barb);
  surface.Stamp(*place, {key.data(), key.size()}, reach,
                [&barb](DrawingSurface& onto, SurfacePoint from) { DrawBarb(onto, from, barb); });
}

void DrawManualWind(DrawingSurface& surface, const OverlayView& view, const Program& program,
                    const ViewState&) {
  ForLattice(view, program.config,
             [&](Position at) { DrawInWind(surface, view, program, at, program.working_wind); });
}

void NameManualWind(LabelList& names, const OverlayView& view, const Program& program,
                    const ViewState&) {
  if (program.config.barb_display_text == 0) return;
  ForLattice(view, program.config, [&](Position at) {
    AddText(names, view, program, at, program.working_wind, LabelRank::kStream);
  });
}

void DrawStoredWind(DrawingSurface& surface, const OverlayView& view, const Program& program,
                    const ViewState&) {
  ForField(view, program, [&](const FieldWind& field) {
    DrawInWind(surface, view, program, field.at, field.wind);
  });
}

void NameStoredWind(LabelList& names, const OverlayView& view, const Program& program,
                    const ViewState&) {
  if (program.config.barb_display_text == 0) return;
  ForField(view, program, [&](const FieldWind& field) {
    AddText(names, view, program, field.at, field.wind, LabelRank::kStream);
  });
}

void NameRouteWind(LabelList& names, const OverlayView& view, const Program& program,
                   const ViewState&) {
  if (program.config.show_wind_over_route == 0 || program.config.barb_display_text == 0) return;
  for (const RoutePoint& point : program.route.points) {
    AddText(names, view, program, point.At(),
            {.speed_kn = point.wind_speed, .from_deg = point.wind_direction}, LabelRank::kPort);
  }
}

}  // namespace skerrow
