#include "platform/chart_placement.h"

#include <algorithm>
#include <cmath>
#include <cpl_string.h>
#include <gdal.h>
#include <gdal_alg.h>
#include <limits>
#include <ogr_api.h>
#include <ogr_srs_api.h>
#include <utility>

#include "core/plane_sailing.h"

namespace skerrow {
namespace {

constexpr double kDegreesPerMetre = 180.0 / (kEarthRadius * M_PI);
constexpr double kHalfTurn = kEarthRadius * M_PI;
constexpr double kHighestLatitude = 85.0;

// A source lies as a sheet when no pixel would move by more than this.
constexpr double kAligned = 0.25;
// And when its pixels are as wide as high, to this share: rings round the boat shall be round.
constexpr double kSquare = 0.01;
// The most by which reference points may miss the straight rule that is laid through them, pixels.
constexpr double kReferenceMiss = 3.0;
constexpr int kGrid = 65;  // samples along a side

void CloseDataset(void* dataset) { GDALClose(dataset); }
void ReleaseSystem(void* system) { OSRRelease(system); }

Handle TransformerOf(void* transformer) { return {transformer, GDALDestroyTransformer}; }

Handle SystemOf(int epsg) {
  Handle system(OSRNewSpatialReference(nullptr), ReleaseSystem);
  OSRSetAxisMappingStrategy(system.get(), OAMS_TRADITIONAL_GIS_ORDER);
  if (OSRImportFromEPSG(system.get(), epsg) != OGRERR_NONE) system.reset();
  return system;
}

Handle CopyOf(OGRSpatialReferenceH other) {
  Handle system(OSRClone(other), ReleaseSystem);
  OSRSetAxisMappingStrategy(system.get(), OAMS_TRADITIONAL_GIS_ORDER);
  return system;
}

Point Apply(const Affine& a, Point at) {
  return {a[0] + at.x * a[1] + at.y * a[2], a[3] + at.x * a[4] + at.y * a[5]};
}

// The straight rule through reference points in the plane of EPSG `epsg`, and by how much it
// misses the worst of them, in pixels.
struct Straight {
  Affine affine{};
  double miss = std::numeric_limits<double>::infinity();
};

Straight LayStraight(std::vector<GDAL_GCP> points, OGRSpatialReferenceH from, int epsg) {
  Straight rule;
  const Handle plane = SystemOf(epsg);
  if (plane == nullptr) return rule;
  OGRCoordinateTransformationH change = OCTNewCoordinateTransformation(from, plane.get());
  if (change == nullptr) return rule;
  bool all = true;
  for (GDAL_GCP& point : points) {
    all = OCTTransform(change, 1, &point.dfGCPX, &point.dfGCPY, nullptr) != 0 && all;
  }
  OCTDestroyCoordinateTransformation(change);
  Affine back{};
  if (!all ||
      !GDALGCPsToGeoTransform(static_cast<int>(points.size()), points.data(), rule.affine.data(),
                              TRUE) ||
      !GDALInvGeoTransform(rule.affine.data(), back.data())) {
    return rule;
  }
  rule.miss = 0.0;
  for (const GDAL_GCP& point : points) {
    const Point at = Apply(back, {point.dfGCPX, point.dfGCPY});
    rule.miss = std::max(
        {rule.miss, std::fabs(at.x - point.dfGCPPixel), std::fabs(at.y - point.dfGCPLine)});
  }
  return rule;
}

// Places a source by its reference points. A straight rule in the plane of the chart is what its
// maker had; one laid through latitudes and longitudes would be off in the middle by the curve of
// the Mercator scale.
Placement PlaceByPoints(void* dataset) {
  Placement placement;
  std::vector<GDAL_GCP> points(GDALGetGCPs(dataset),
                               GDALGetGCPs(dataset) + GDALGetGCPCount(dataset));
  OGRSpatialReferenceH told = GDALGetGCPSpatialRef(dataset);
  Handle system = told != nullptr ? CopyOf(told) : SystemOf(4326);
  if (system == nullptr) return placement;
  placement.placed = true;
  for (const int epsg : {3395, 4326}) {
    Straight rule = LayStraight(points, system.get(), epsg);
    if (rule.miss <= kReferenceMiss) {
      placement.affine = rule.affine;
      placement.system = SystemOf(epsg);
      return placement;
    }
  }
  placement.bent = Handle(
      GDALCreateCopy(GDALGetDriverByName("VRT"), "", dataset, FALSE, nullptr, nullptr, nullptr),
      CloseDataset);
  placement.placed = placement.bent != nullptr &&
                     GDALSetGCPs2(placement.bent.get(), static_cast<int>(points.size()),
                                  points.data(), system.get()) == CE_None;
  placement.system = std::move(system);
  return placement;
}

// Whether a rule without a named system can only be degrees, as world files beside scans have them.
bool InDegrees(const Affine& affine, int width, int height) {
  for (const Point corner : {Point{0, 0}, Point{1, 0}, Point{0, 1}, Point{1, 1}}) {
    const Point at = Apply(affine, {corner.x * width, corner.y * height});
    if (!(std::fabs(at.x) <= 180.0 && std::fabs(at.y) <= 90.0)) return false;
  }
  return std::fabs(affine[1]) + std::fabs(affine[2]) < 0.1;
}

// Points by a transformer, forwards or back; none where it gives none.
std::vector<std::optional<Point>> Transformed(const Handle& transformer,
                                              const std::vector<Point>& points, bool back = false) {
  std::vector<double> x;
  std::vector<double> y;
  std::vector<double> z(points.size(), 0.0);
  std::vector<int> good(points.size(), 0);
  x.reserve(points.size());
  y.reserve(points.size());
  for (const Point& point : points) {
    x.push_back(point.x);
    y.push_back(point.y);
  }
  GDALGenImgProjTransform(transformer.get(), back ? TRUE : FALSE, static_cast<int>(points.size()),
                          x.data(), y.data(), z.data(), good.data());
  std::vector<std::optional<Point>> out(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (good[i] != 0 && std::isfinite(x[i]) && std::isfinite(y[i])) out[i] = Point{x[i], y[i]};
  }
  return out;
}

double LatitudeOf(double metres) {
  return std::atan(std::sinh(metres / kEarthRadius)) * 180.0 / M_PI;
}

double MetresOf(double latitude) {
  return kEarthRadius * std::asinh(std::tan(latitude * M_PI / 180.0));
}

// A part of the Mercator plane, metres.
struct Extent {
  double west = std::numeric_limits<double>::infinity();
  double south = std::numeric_limits<double>::infinity();
  double east = -std::numeric_limits<double>::infinity();
  double north = -std::numeric_limits<double>::infinity();

  void Add(Point at) {
    west = std::min(west, at.x);
    east = std::max(east, at.x);
    south = std::min(south, at.y);
    north = std::max(north, at.y);
  }
};

// Where the picture of a sheet lies on the Mercator plane, by the very numbers that the chart view
// works with: the single-precision latitudes and longitudes and what follows from them.
Affine PlaceOf(const ChartSheet& sheet) {
  const double top = kEarthRadius * MercatorPartsSin(sheet.top_lat);
  const double bottom = kEarthRadius * MercatorPartsSin(sheet.bottom_lat);
  const double west = sheet.west_lon / kDegreesPerMetre;
  const double east = sheet.east_lon / kDegreesPerMetre;
  return {west, (east - west) / sheet.width, 0.0, top, 0.0, (bottom - top) / sheet.height};
}

ChartSheet SheetOver(const Extent& extent, int width, int height) {
  return {width,
          height,
          static_cast<float>(LatitudeOf(extent.north)),
          static_cast<float>(LatitudeOf(extent.south)),
          static_cast<float>(extent.west * kDegreesPerMetre),
          static_cast<float>(extent.east * kDegreesPerMetre)};
}

// A place on the plane by float degrees would be off by more than a pixel where the two edges fall
// on one float.
bool Usable(const ChartSheet& sheet) {
  return sheet.width > 0 && sheet.height > 0 && sheet.top_lat > sheet.bottom_lat &&
         sheet.east_lon > sheet.west_lon &&
         MercatorPartsSin(sheet.top_lat) > MercatorPartsSin(sheet.bottom_lat);
}

// The grid of points over a box, row by row, a hair inside it.
std::vector<Point> GridOver(const Box& box, int count) {
  constexpr double kHair = 0.001;
  std::vector<Point> points;
  points.reserve(static_cast<std::size_t>(count) * static_cast<std::size_t>(count));
  for (int j = 0; j < count; ++j) {
    for (int i = 0; i < count; ++i) {
      const double u = kHair + (1.0 - 2.0 * kHair / std::max(1.0, box.right - box.left)) * i /
                                   (count - 1.0) * (box.right - box.left);
      const double v = kHair + (1.0 - 2.0 * kHair / std::max(1.0, box.bottom - box.top)) * j /
                                   (count - 1.0) * (box.bottom - box.top);
      points.push_back({box.left + u, box.top + v});
    }
  }
  return points;
}

// Whether two neighbours lie on either side of the 180th meridian, or on either side of a pole.
bool Apart(const std::optional<Point>& a, const std::optional<Point>& b) {
  return a && b && std::fabs(a->x - b->x) > kHalfTurn;
}

const char* const kCrosses180 =
    "the chart crosses the 180th meridian or holds a pole; a sheet of this program cannot";

// The extent of a part of the source on the Mercator plane, from a grid over it.
Result<Extent> ExtentOf(const Handle& transformer, const Box& box, const std::string& path) {
  const auto points = Transformed(transformer, GridOver(box, kGrid));
  Extent extent;
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (!points[i]) continue;
    if ((i % kGrid > 0 && Apart(points[i - 1], points[i])) ||
        (i >= kGrid && Apart(points[i - kGrid], points[i]))) {
      return Error{path, kCrosses180};
    }
    extent.Add(*points[i]);
  }
  const double highest = MetresOf(kHighestLatitude);
  extent.north = std::min(extent.north, highest);
  extent.south = std::max(extent.south, -highest);
  if (!(extent.east > extent.west && extent.north > extent.south)) {
    return Error{path, "no part of the chart can be placed on a Mercator sheet"};
  }
  constexpr double kMetre = 1.0;
  if (extent.west < -kHalfTurn - kMetre || extent.east > kHalfTurn + kMetre) {
    return Error{path, kCrosses180};
  }
  extent.west = std::max(extent.west, -kHalfTurn);
  extent.east = std::min(extent.east, kHalfTurn);
  return extent;
}

// Whether the way back from the Mercator plane leads to where it came from, as the warping needs.
bool LeadsBack(const Handle& transformer, const Box& box, double tolerance) {
  std::vector<Point> there;
  std::vector<Point> from;
  const std::vector<Point> grid = GridOver(box, 9);
  const auto points = Transformed(transformer, grid);
  for (std::size_t i = 0; i < grid.size(); ++i) {
    if (!points[i]) continue;
    there.push_back(*points[i]);
    from.push_back(grid[i]);
  }
  const auto back = Transformed(transformer, there, true);
  for (std::size_t i = 0; i < back.size(); ++i) {
    if (!back[i] || std::hypot(back[i]->x - from[i].x, back[i]->y - from[i].y) > tolerance)
      return false;
  }
  return !back.empty();
}

// The sheet whose pixels are those of a box of the source, where they lie so.
std::optional<Plan> AlignedPlan(const Placement& placement, const Handle& transformer,
                                const Box& box) {
  const double middle_x = (box.left + box.right) / 2.0;
  const double middle_y = (box.top + box.bottom) / 2.0;
  const auto edges = Transformed(
      transformer,
      {{box.left, middle_y}, {box.right, middle_y}, {middle_x, box.top}, {middle_x, box.bottom}});
  for (const auto& edge : edges) {
    if (!edge) return std::nullopt;
  }
  Plan plan;
  plan.as_it_is = true;
  plan.sheet =
      SheetOver({edges[0]->x, edges[3]->y, edges[1]->x, edges[2]->y},
                static_cast<int>(box.right - box.left), static_cast<int>(box.bottom - box.top));
  if (!Usable(plan.sheet)) return std::nullopt;
  plan.to = PlaceOf(plan.sheet);
  if (std::fabs(plan.to[1] / -plan.to[5] - 1.0) > kSquare) return std::nullopt;
  const Handle there = MakeTransformer(placement, plan.to);
  if (there == nullptr) return std::nullopt;
  const std::vector<Point> grid = GridOver(box, 17);
  const auto moved = Transformed(there, grid);
  for (std::size_t i = 0; i < grid.size(); ++i) {
    if (!moved[i] || std::fabs(moved[i]->x - (grid[i].x - box.left)) > kAligned ||
        std::fabs(moved[i]->y - (grid[i].y - box.top)) > kAligned) {
      return std::nullopt;
    }
  }
  return plan;
}

}  // namespace

Placement PlacementOf(void* dataset, std::vector<std::string>& notes) {
  if (GDALGetGCPCount(dataset) >= 3) return PlaceByPoints(dataset);
  Placement placement;
  Affine affine{};
  if (GDALGetGeoTransform(dataset, affine.data()) != CE_None) return placement;
  if (OGRSpatialReferenceH system = GDALGetSpatialRef(dataset);
      system != nullptr && !OSRIsLocal(system)) {
    placement.system = CopyOf(system);
  } else if (InDegrees(affine, GDALGetRasterXSize(dataset), GDALGetRasterYSize(dataset))) {
    placement.system = SystemOf(4326);
    notes.emplace_back(
        "The file does not say which datum its degrees are on; they are taken as WGS 84.");
  } else {
    notes.emplace_back(
        "The file holds coordinates but does not say of which projection; it is taken as a plain "
        "scan.");
    return placement;
  }
  placement.placed = placement.system != nullptr;
  placement.affine = affine;
  // Degrees that are counted from 0 to 360 east.
  const double middle =
      Apply(affine, {GDALGetRasterXSize(dataset) / 2.0, GDALGetRasterYSize(dataset) / 2.0}).x;
  if (placement.placed && OSRIsGeographic(placement.system.get()) && middle > 180.0) {
    placement.affine[0] -= 360.0;
  }
  return placement;
}

Handle MakeTransformer(const Placement& placement, const Affine& to) {
  if (placement.bent != nullptr) {
    char** options = CSLSetNameValue(nullptr, "METHOD", "GCP_TPS");
    options = CSLSetNameValue(options, "DST_SRS", "EPSG:3857");
    Handle made =
        TransformerOf(GDALCreateGenImgProjTransformer2(placement.bent.get(), nullptr, options));
    CSLDestroy(options);
    if (made != nullptr) GDALSetGenImgProjTransformerDstGeoTransform(made.get(), to.data());
    return made;
  }
  if (placement.system == nullptr) {
    return TransformerOf(
        GDALCreateGenImgProjTransformer3(nullptr, placement.affine.data(), nullptr, to.data()));
  }
  const Handle mercator = SystemOf(3857);
  return TransformerOf(GDALCreateGenImgProjTransformer4(
      placement.system.get(), placement.affine.data(), mercator.get(), to.data(), nullptr));
}

std::vector<Point> CutlineOf(void* dataset, const Placement& placement) {
  const char* text = GDALGetMetadataItem(dataset, "BSB_CUTLINE", nullptr);
  if (text == nullptr || !placement.placed) return {};
  OGRGeometryH made = nullptr;
  char* rest = const_cast<char*>(text);
  if (OGR_G_CreateFromWkt(&rest, nullptr, &made) != OGRERR_NONE) return {};
  const Handle told(made, OGR_G_DestroyGeometry);
  const Handle transformer = MakeTransformer(placement, kWhole);
  if (OGR_G_GetGeometryCount(told.get()) < 1 || transformer == nullptr) return {};
  OGRGeometryH ring = OGR_G_GetGeometryRef(told.get(), 0);
  std::vector<Point> corners;
  for (int i = 0; i < OGR_G_GetPointCount(ring); ++i) {
    const double latitude = OGR_G_GetY(ring, i);
    if (std::fabs(latitude) > kHighestLatitude) return {};
    corners.push_back({OGR_G_GetX(ring, i) / kDegreesPerMetre, MetresOf(latitude)});
  }
  // Its sides are straight on the chart's paper, and so between pixels.
  std::vector<Point> pixels;
  for (const auto& pixel : Transformed(transformer, corners, true)) {
    if (!pixel) return {};
    pixels.push_back(*pixel);
  }
  return pixels;
}

Result<Plan> MakePlan(const Placement& placement, const Box& box, std::int64_t max_pixels,
                      const std::string& path) {
  const Handle transformer = MakeTransformer(placement, kWhole);
  if (transformer == nullptr) return Error{path, "its projection is not known"};
  const double pixels = (box.right - box.left) * (box.bottom - box.top);
  if (!placement.placed) {
    Plan plan;
    plan.as_it_is = true;
    plan.reduction = std::max(1.0, std::sqrt(pixels / static_cast<double>(max_pixels)));
    plan.sheet.width = std::max(1, static_cast<int>(box.right / plan.reduction));
    plan.sheet.height = std::max(1, static_cast<int>(box.bottom / plan.reduction));
    plan.to = {0, box.right / plan.sheet.width, 0, 0, 0, box.bottom / plan.sheet.height};
    return plan;
  }
  const Result<Extent> found = ExtentOf(transformer, box, path);
  if (!found) return found.error();
  // A bent rule is laid through its points anew for either way.
  if (!LeadsBack(transformer, box, placement.bent == nullptr ? 0.5 : kReferenceMiss)) {
    return Error{path, "the rule by which its pixels are placed cannot be turned round"};
  }
  if (pixels <= static_cast<double>(max_pixels)) {
    if (const auto aligned = AlignedPlan(placement, transformer, box)) return *aligned;
  }
  // The finer of the two steps of the source in its middle: no detail is lost.
  const double x = (box.left + box.right) / 2.0;
  const double y = (box.top + box.bottom) / 2.0;
  const auto step =
      Transformed(transformer, {{x, y}, {x + 1.0, y}, {x, y + 1.0}, {x - 1.0, y}, {x, y - 1.0}});
  double size = 0.0;
  for (std::size_t i = 1; step[0] && i < step.size(); ++i) {
    if (!step[i]) continue;
    const double length = std::hypot(step[i]->x - step[0]->x, step[i]->y - step[0]->y);
    if (length > 0.0 && (size == 0.0 || length < size)) size = length;
  }
  const Extent& extent = *found;
  const double across = extent.east - extent.west;
  const double up = extent.north - extent.south;
  if (size == 0.0) size = std::sqrt(across * up / pixels);
  Plan plan;
  plan.reduction = std::max(
      1.0, std::sqrt(across / size * up / size / (static_cast<double>(max_pixels) * 0.999)));
  size *= plan.reduction;
  plan.sheet = SheetOver(extent, std::max(1, static_cast<int>(std::lround(across / size))),
                         std::max(1, static_cast<int>(std::lround(up / size))));
  if (!Usable(plan.sheet)) return Error{path, "the chart is too small to be placed"};
  plan.to = PlaceOf(plan.sheet);
  return plan;
}

}  // namespace skerrow
