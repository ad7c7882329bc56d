#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/chart_source.h"
#include "core/result.h"

// Where the pixels of a chart's file lie, and the sheet that is to be made of them. Objects of the
// library of formats go by handles here; `dataset` is an open file of it.
namespace skerrow {

// The Mercator of the chart view has no flattening (MercatorPartsSin of the latitude on WGS 84):
// that is EPSG:3857, whose metres are radians times this.
inline constexpr double kEarthRadius = 6378137.0;

// x = a[0] + column * a[1] + row * a[2], y = a[3] + column * a[4] + row * a[5].
using Affine = std::array<double, 6>;
inline constexpr Affine kWhole{0, 1, 0, 0, 0, 1};

// An object of the library with what frees it.
using Handle = std::unique_ptr<void, void (*)(void*)>;
inline Handle NoHandle() {
  return {nullptr, [](void*) {}};
}

struct Point {
  double x = 0.0;
  double y = 0.0;
};

// A part of the source, in its pixels.
struct Box {
  double left = 0.0;
  double top = 0.0;
  double right = 0.0;
  double bottom = 0.0;
};

// Where the pixels of a source lie.
struct Placement {
  bool placed = false;
  Affine affine = kWhole;      // pixel to the plane of `system`
  Handle system = NoHandle();  // null with an affine rule: a plain scan
  Handle bent = NoHandle();    // in its place: a copy of the source's head with its reference
                               // points, where no straight rule fits them
};

// Finds the place that a file tells; what the user should know of it goes to `notes`.
Placement PlacementOf(void* dataset, std::vector<std::string>& notes);

// From pixels of the source to those of a picture that `to` lays on the Mercator plane, or on the
// plane of the pixels for a plain scan. Null when the projection is not known.
Handle MakeTransformer(const Placement& placement, const Affine& to);

// The ring of the part of a source that is chart and not collar, in its pixels; empty for all of
// it.
std::vector<Point> CutlineOf(void* dataset, const Placement& placement);

// How a source becomes a sheet.
struct Plan {
  ChartSheet sheet;
  Affine to = kWhole;      // pixels of the sheet to the plane, by the view's own numbers
  bool as_it_is = false;   // its pixels are taken as they are
  double reduction = 1.0;  // pixels of the source to one of the sheet, where it is too large
};

// The sheet of a part of a source of at most `max_pixels`. Errors: unknown projection, no place on
// a Mercator sheet, across the 180th meridian or a pole.
Result<Plan> MakePlan(const Placement& placement, const Box& box, std::int64_t max_pixels,
                      const std::string& path);

}  // namespace skerrow
