#include "platform/chart_import.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <cpl_conv.h>
#include <cpl_string.h>
#include <cstring>
#include <filesystem>
#include <functional>
#include <future>
#include <gdal_alg.h>
#include <gdal_priv.h>
#include <gdalwarper.h>
#include <limits>
#include <mutex>
#include <ogr_api.h>
#include <ogr_srs_api.h>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "core/files.h"
#include "core/plane_sailing.h"
#include "core/system_file.h"
#include "core/text.h"
#include "platform/chart_header.h"

namespace skerrow {
namespace {

// The Mercator of the chart view has no flattening (MercatorPartsSin of the latitude on WGS 84):
// that is EPSG:3857, whose metres are radians times this.
constexpr double kEarthRadius = 6378137.0;
constexpr double kDegreesPerMetre = 180.0 / (kEarthRadius * M_PI);
constexpr double kHalfTurn = kEarthRadius * M_PI;
constexpr double kHighestLatitude = 85.0;

// A source lies as a sheet when no pixel would move by more than this.
constexpr double kAligned = 0.25;
// And when its pixels are as wide as high, to this share: rings round the boat shall be round.
constexpr double kSquare = 0.01;
// How far the transformation may be interpolated, in pixels of the source.
constexpr double kTransformError = 0.125;
// The most by which reference points may miss the straight rule that is laid through them, pixels.
constexpr double kReferenceMiss = 3.0;
// Charts on paper are scanned and sold at 254 dots an inch: a pixel is 0.1 mm of paper.
constexpr double kMetresOfPaper = 0.0001;

constexpr int kStripRows = 256;
constexpr int kTileColumns = 1024;
constexpr int kPreviewSide = 400;  // pixels, as the previews that come with the program
constexpr int kGrid = 65;          // samples along a side
constexpr std::int64_t kCacheBytes = std::int64_t{160} * 1024 * 1024;

using Affine = std::array<double, 6>;

// Collects what the library says on this thread instead of having it printed.
class Quiet {
 public:
  Quiet() { CPLPushErrorHandlerEx(&Quiet::Take, this); }
  ~Quiet() { CPLPopErrorHandler(); }
  Quiet(const Quiet&) = delete;
  Quiet& operator=(const Quiet&) = delete;
  // The first failure, in one line.
  const std::string& text() const { return text_; }

 private:
  static void CPL_STDCALL Take(CPLErr level, CPLErrorNum, const char* text) {
    auto* self = static_cast<Quiet*>(CPLGetErrorHandlerUserData());
    if (level >= CE_Failure && self->text_.empty()) {
      self->text_ = ReplaceAll(text, "\n", " ");
    }
  }
  std::string text_;
};

void SetUp() {
  static std::once_flag once;
  std::call_once(once, [] {
    GDALAllRegister();
    GDALSetCacheMax64(kCacheBytes);
    // A file may name others, as its overviews: none over a network.
    CPLSetConfigOption("CPL_VSIL_CURL_ALLOWED_FILENAME", "none");
    OSRSetPROJEnableNetwork(0);
  });
}

template <auto Close>
struct Closer {
  template <typename T>
  void operator()(T* object) const {
    Close(object);
  }
};
void CloseDataset(void* dataset) { GDALClose(dataset); }
using Dataset = std::unique_ptr<void, Closer<&CloseDataset>>;
using Transformer = std::unique_ptr<void, Closer<&GDALDestroyTransformer>>;
void ReleaseSystem(void* system) { OSRRelease(static_cast<OGRSpatialReferenceH>(system)); }
using System = std::unique_ptr<void, Closer<&ReleaseSystem>>;
void DestroyGeometry(void* geometry) { OGR_G_DestroyGeometry(static_cast<OGRGeometryH>(geometry)); }
using Geometry = std::unique_ptr<void, Closer<&DestroyGeometry>>;

System SystemOf(int epsg) {
  System system(OSRNewSpatialReference(nullptr));
  OSRSetAxisMappingStrategy(system.get(), OAMS_TRADITIONAL_GIS_ORDER);
  if (OSRImportFromEPSG(system.get(), epsg) != OGRERR_NONE) system.reset();
  return system;
}

System CopyOf(OGRSpatialReferenceH other) {
  System system(OSRClone(other));
  OSRSetAxisMappingStrategy(system.get(), OAMS_TRADITIONAL_GIS_ORDER);
  return system;
}

struct Point {
  double x = 0.0;
  double y = 0.0;
};

// How the colours of the source come out.
enum class Colours { kPalette, kGrey, kRgb };

struct ColourBands {
  Colours colours = Colours::kGrey;
  std::vector<int> numbers;  // one, or red, green and blue
  int alpha = 0;             // 0: none
  std::vector<GDALColorEntry> palette;
  int paper = 255;  // the value of what lies outside the chart
};

int Lightness(const GDALColorEntry& colour) { return colour.c1 + colour.c2 + colour.c3; }

// The palette of a band with transparent entries turned to paper; the index of white, which is
// added where there is room and none is there.
void TakePalette(GDALColorTableH table, ColourBands& bands) {
  const int count = std::min(GDALGetColorEntryCount(table), 256);
  for (int i = 0; i < count; ++i) {
    GDALColorEntry entry{};
    GDALGetColorEntryAsRGB(table, i, &entry);
    if (entry.c4 < 128) entry = {255, 255, 255, 255};
    entry.c4 = 255;
    bands.palette.push_back(entry);
  }
  const auto lightest =
      std::max_element(bands.palette.begin(), bands.palette.end(),
                       [](const auto& a, const auto& b) { return Lightness(a) < Lightness(b); });
  bands.paper = static_cast<int>(lightest - bands.palette.begin());
  if (Lightness(*lightest) < 3 * 255 && bands.palette.size() < 256) {
    bands.paper = static_cast<int>(bands.palette.size());
    bands.palette.push_back({255, 255, 255, 255});
  }
}

// Greys of fewer than 8 bits are steps of a palette.
void TakeGreySteps(int bits, ColourBands& bands) {
  const int top = (1 << bits) - 1;
  for (int i = 0; i <= top; ++i) {
    const auto grey = static_cast<short>(i * 255 / top);
    bands.palette.push_back({grey, grey, grey, 255});
  }
  bands.paper = top;
}

Result<ColourBands> LayersOf(GDALDatasetH dataset, const std::string& path) {
  ColourBands bands;
  std::array<int, 3> rgb{};
  int grey = 0;
  int indexed = 0;
  const int count = GDALGetRasterCount(dataset);
  for (int i = 1; i <= count; ++i) {
    switch (GDALGetRasterColorInterpretation(GDALGetRasterBand(dataset, i))) {
      case GCI_RedBand:
        rgb[0] = i;
        break;
      case GCI_GreenBand:
        rgb[1] = i;
        break;
      case GCI_BlueBand:
        rgb[2] = i;
        break;
      case GCI_AlphaBand:
        bands.alpha = i;
        break;
      case GCI_GrayIndex:
        grey = i;
        break;
      case GCI_PaletteIndex:
        indexed = i;
        break;
      default:
        break;
    }
  }
  if (rgb[0] > 0 && rgb[1] > 0 && rgb[2] > 0) {
    bands.colours = Colours::kRgb;
    bands.numbers = {rgb[0], rgb[1], rgb[2]};
  } else if (indexed == 0 && grey == 0 && count >= 3) {
    bands.colours = Colours::kRgb;
    bands.numbers = {1, 2, 3};
  } else {
    bands.numbers = {indexed > 0 ? indexed : std::max(grey, 1)};
  }
  if (count == 0) return Error{path, "there is no picture in this file"};
  for (const int number : bands.numbers) {
    if (GDALGetRasterDataType(GDALGetRasterBand(dataset, number)) != GDT_Byte) {
      return Error{path, "its pixels have more than 8 bits a colour, which no chart has"};
    }
  }
  if (bands.colours == Colours::kRgb) return bands;
  GDALRasterBandH band = GDALGetRasterBand(dataset, bands.numbers[0]);
  GDALColorTableH table = GDALGetRasterColorTable(band);
  const char* bits = GDALGetMetadataItem(band, "NBITS", "IMAGE_STRUCTURE");
  const int depth = bits == nullptr ? 8 : std::atoi(bits);
  if (table != nullptr && GDALGetColorEntryCount(table) > 0) {
    TakePalette(table, bands);
  } else if (depth >= 1 && depth < 8) {
    TakeGreySteps(depth, bands);
  }
  if (!bands.palette.empty()) bands.colours = Colours::kPalette;
  return bands;
}

// Where the pixels of a source lie.
struct Placement {
  bool placed = false;
  Affine affine{0, 1, 0, 0, 0, 1};  // pixel to the plane of `system`
  System system;                    // null with an affine rule: a plain scan
  Dataset bent;                     // in its place: a copy of the source's head with its reference
                                    // points, where no straight rule fits them
};

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
  const System plane = SystemOf(epsg);
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
Placement PlaceByPoints(GDALDatasetH dataset, const ChartHeader& header) {
  Placement placement;
  std::vector<GDAL_GCP> points(GDALGetGCPs(dataset),
                               GDALGetGCPs(dataset) + GDALGetGCPCount(dataset));
  OGRSpatialReferenceH told = GDALGetGCPSpatialRef(dataset);
  System system = told != nullptr ? CopyOf(told) : SystemOf(4326);
  if (system == nullptr) return placement;
  for (GDAL_GCP& point : points) {
    point.dfGCPX += header.shift_east / 3600.0;
    point.dfGCPY += header.shift_north / 3600.0;
  }
  placement.placed = true;
  for (const int epsg : {3395, 4326}) {
    Straight rule = LayStraight(points, system.get(), epsg);
    if (rule.miss <= kReferenceMiss) {
      placement.affine = rule.affine;
      placement.system = SystemOf(epsg);
      return placement;
    }
  }
  placement.bent.reset(
      GDALCreateCopy(GDALGetDriverByName("VRT"), "", dataset, FALSE, nullptr, nullptr, nullptr));
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

Placement PlacementOf(GDALDatasetH dataset, const ChartHeader& header,
                      std::vector<std::string>& notes) {
  if (GDALGetGCPCount(dataset) >= 3) return PlaceByPoints(dataset, header);
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

// From pixels of the source to those of a picture that `to` lays on the Mercator plane, or on the
// plane of the pixels for a plain scan.
Transformer MakeTransformer(const Placement& placement, const Affine& to) {
  if (placement.bent != nullptr) {
    char** options = CSLSetNameValue(nullptr, "METHOD", "GCP_TPS");
    options = CSLSetNameValue(options, "DST_SRS", "EPSG:3857");
    Transformer made(GDALCreateGenImgProjTransformer2(placement.bent.get(), nullptr, options));
    CSLDestroy(options);
    if (made != nullptr) GDALSetGenImgProjTransformerDstGeoTransform(made.get(), to.data());
    return made;
  }
  if (placement.system == nullptr) {
    return Transformer(
        GDALCreateGenImgProjTransformer3(nullptr, placement.affine.data(), nullptr, to.data()));
  }
  const System mercator = SystemOf(3857);
  return Transformer(GDALCreateGenImgProjTransformer4(
      placement.system.get(), placement.affine.data(), mercator.get(), to.data(), nullptr));
}

constexpr Affine kWhole{0, 1, 0, 0, 0, 1};

// Points by a transformer, forwards or back; none where it gives none.
std::vector<std::optional<Point>> Transformed(const Transformer& transformer,
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

// A part of the source, in its pixels.
struct Box {
  double left = 0.0;
  double top = 0.0;
  double right = 0.0;
  double bottom = 0.0;
};

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
Result<Extent> ExtentOf(const Transformer& transformer, const Box& box, const std::string& path) {
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

// How a source becomes a sheet.
struct Plan {
  ChartSheet sheet;
  Affine to = kWhole;
  bool as_it_is = false;  // its pixels are taken as they are
  double reduction = 1.0;
};

// Whether the way back from the Mercator plane leads to where it came from, as the warping needs.
bool LeadsBack(const Transformer& transformer, const Box& box, double tolerance) {
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
std::optional<Plan> AlignedPlan(const Placement& placement, const Transformer& transformer,
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
  const Transformer there = MakeTransformer(placement, plan.to);
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

Result<Plan> MakePlan(const Placement& placement, const Box& box, std::int64_t max_pixels,
                      const std::string& path) {
  const Transformer transformer = MakeTransformer(placement, kWhole);
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

// The ring of the part of a source that is chart and not collar, in its pixels; none for all of it.
Geometry CutlineOf(GDALDatasetH dataset, const Placement& placement, const ChartHeader& header) {
  const char* text = GDALGetMetadataItem(dataset, "BSB_CUTLINE", nullptr);
  if (text == nullptr || !placement.placed) return nullptr;
  OGRGeometryH made = nullptr;
  char* rest = const_cast<char*>(text);
  if (OGR_G_CreateFromWkt(&rest, nullptr, &made) != OGRERR_NONE) return nullptr;
  const Geometry told(made);
  const Transformer transformer = MakeTransformer(placement, kWhole);
  if (OGR_G_GetGeometryCount(told.get()) < 1 || transformer == nullptr) return nullptr;
  OGRGeometryH ring = OGR_G_GetGeometryRef(told.get(), 0);
  std::vector<Point> corners;
  for (int i = 0; i < OGR_G_GetPointCount(ring); ++i) {
    const double latitude = OGR_G_GetY(ring, i) + header.shift_north / 3600.0;
    if (std::fabs(latitude) > kHighestLatitude) return nullptr;
    corners.push_back({(OGR_G_GetX(ring, i) + header.shift_east / 3600.0) / kDegreesPerMetre,
                       MetresOf(latitude)});
  }
  // Its sides are straight on the chart's paper, and so between pixels.
  const auto pixels = Transformed(transformer, corners, true);
  Geometry line(OGR_G_CreateGeometry(wkbLinearRing));
  for (const auto& pixel : pixels) {
    if (!pixel) return nullptr;
    OGR_G_AddPoint_2D(line.get(), pixel->x, pixel->y);
  }
  OGR_G_CloseRings(line.get());
  Geometry polygon(OGR_G_CreateGeometry(wkbPolygon));
  if (OGR_G_AddGeometryDirectly(polygon.get(), line.release()) != OGRERR_NONE) return nullptr;
  return OGR_G_IsValid(polygon.get()) ? std::move(polygon) : nullptr;
}

// A reading of the sheet from its top on, in strips; the next strip is worked out while the one
// before is being compressed.
class StripReader {
 public:
  // Makes the strip of `rows` rows from row `top` on into `out`, band after band; gives the reason
  // of a failure, empty for none.
  using Make = std::function<std::string(int top, int rows, std::uint8_t* out)>;

  StripReader(int width, int height, int bands, int strip_rows, Make make)
      : width_(width), height_(height), bands_(bands), rows_(strip_rows), make_(std::move(make)) {}
  ~StripReader() {
    if (next_.valid()) next_.wait();
  }
  StripReader(const StripReader&) = delete;
  StripReader& operator=(const StripReader&) = delete;

  // Why a row could not be made; empty while all could.
  const std::string& fault() const { return fault_; }

  // A row of a band, counted from 0; null when it cannot be made. Rows come in order.
  const std::uint8_t* Row(int band, int y) {
    while (top_ < 0 || y >= top_ + held_) {
      if (!Advance()) return nullptr;
    }
    if (y < top_) return nullptr;
    return strip_.data() + (static_cast<std::size_t>(band) * static_cast<std::size_t>(held_) +
                            static_cast<std::size_t>(y - top_)) *
                               static_cast<std::size_t>(width_);
  }

 private:
  struct Strip {
    std::string fault;
    std::vector<std::uint8_t> bytes;
  };

  int RowsFrom(int top) const { return std::min(rows_, height_ - top); }
  void Begin(int top) {
    if (top >= height_) return;
    next_ = std::async(std::launch::async, [this, top] {
      Strip strip;
      const int rows = RowsFrom(top);
      strip.bytes.resize(static_cast<std::size_t>(bands_) * static_cast<std::size_t>(rows) *
                         static_cast<std::size_t>(width_));
      strip.fault = make_(top, rows, strip.bytes.data());
      return strip;
    });
  }
  bool Advance() {
    if (top_ < 0) Begin(0);
    if (!next_.valid()) return false;
    Strip strip = next_.get();
    fault_ = std::move(strip.fault);
    if (!fault_.empty()) return false;
    top_ = top_ < 0 ? 0 : top_ + held_;
    held_ = RowsFrom(top_);
    strip_ = std::move(strip.bytes);
    Begin(top_ + held_);
    return true;
  }

  const int width_, height_, bands_, rows_;
  const Make make_;
  int top_ = -1;
  int held_ = 0;
  std::vector<std::uint8_t> strip_;
  std::string fault_;
  std::future<Strip> next_;
};

// The sheet as a dataset of the library, for its encoders.
class SheetDataset final : public GDALDataset {
 public:
  SheetDataset(const ChartSheet& sheet, const ColourBands& bands, StripReader* reader,
               std::function<void(int band, int y, const std::uint8_t*)> seen)
      : reader_(reader), seen_(std::move(seen)) {
    nRasterXSize = sheet.width;
    nRasterYSize = sheet.height;
    eAccess = GA_Update;  // the warper takes no other
    for (std::size_t i = 0; i < bands.numbers.size(); ++i) {
      const int number = static_cast<int>(i) + 1;
      SetBand(number, new Band(this, number, bands));
    }
  }

 private:
  class Band final : public GDALRasterBand {
   public:
    Band(SheetDataset* sheet, int number, const ColourBands& bands) : sheet_(sheet) {
      poDS = sheet;
      nBand = number;
      eDataType = GDT_Byte;
      nBlockXSize = sheet->nRasterXSize;
      nBlockYSize = 1;
      nRasterXSize = sheet->nRasterXSize;
      nRasterYSize = sheet->nRasterYSize;
      switch (bands.colours) {
        case Colours::kPalette:
          meaning_ = GCI_PaletteIndex;
          break;
        case Colours::kGrey:
          meaning_ = GCI_GrayIndex;
          break;
        case Colours::kRgb:
          meaning_ = static_cast<GDALColorInterp>(GCI_RedBand + number - 1);
          break;
      }
      for (std::size_t i = 0; i < bands.palette.size(); ++i) {
        table_.SetColorEntry(static_cast<int>(i), &bands.palette[i]);
      }
    }
    GDALColorInterp GetColorInterpretation() override { return meaning_; }
    GDALColorTable* GetColorTable() override {
      return meaning_ == GCI_PaletteIndex ? &table_ : nullptr;
    }

   protected:
    CPLErr IReadBlock(int, int y, void* out) override {
      const std::uint8_t* row =
          sheet_->reader_ == nullptr ? nullptr : sheet_->reader_->Row(nBand - 1, y);
      if (row == nullptr) return CE_Failure;
      std::memcpy(out, row, static_cast<std::size_t>(nRasterXSize));
      sheet_->seen_(nBand - 1, y, row);
      return CE_None;
    }

   private:
    SheetDataset* sheet_;
    GDALColorInterp meaning_ = GCI_Undefined;
    GDALColorTable table_;
  };

  StripReader* reader_;
  std::function<void(int band, int y, const std::uint8_t*)> seen_;
};

// A small picture that is gathered while the rows of the large one pass.
class SmallPicture {
 public:
  SmallPicture(const ChartSheet& sheet, const ColourBands& bands)
      : sheet_(sheet),
        layers_(bands),
        width_(std::clamp(Side(sheet.width), 1, sheet.width)),
        height_(std::clamp(Side(sheet.height), 1, sheet.height)),
        skip_x_(std::max(1, sheet.width / width_ / 6)),
        skip_y_(std::max(1, sheet.height / height_ / 6)),
        sums_(3 * static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)),
        counts_(sums_.size()) {}

  void Take(int band, int y, const std::uint8_t* row) {
    if (y % skip_y_ != 0) return;
    for (int x = 0; x < sheet_.width; x += skip_x_) {
      const std::size_t at = 3 * Cell(x, y);
      if (layers_.colours == Colours::kPalette) {
        const GDALColorEntry white{255, 255, 255, 255};
        const GDALColorEntry& colour =
            row[x] < layers_.palette.size() ? layers_.palette[row[x]] : white;
        Add(at, colour.c1);
        Add(at + 1, colour.c2);
        Add(at + 2, colour.c3);
      } else if (layers_.colours == Colours::kGrey) {
        for (std::size_t i = 0; i < 3; ++i) Add(at + i, row[x]);
      } else {
        Add(at + static_cast<std::size_t>(band), row[x]);
      }
    }
  }

  RgbPicture Made() const {
    RgbPicture picture{width_, height_, std::vector<std::uint8_t>(sums_.size(), 255)};
    for (std::size_t i = 0; i < sums_.size(); ++i) {
      if (counts_[i] > 0) {
        picture.pixels[i] = static_cast<std::uint8_t>((sums_[i] + counts_[i] / 2) / counts_[i]);
      }
    }
    return picture;
  }

 private:
  int Side(int side) const {
    const int longest = std::max(sheet_.width, sheet_.height);
    return static_cast<int>(std::lround(static_cast<double>(side) * kPreviewSide / longest));
  }
  std::size_t Cell(int x, int y) const {
    const auto column = static_cast<std::size_t>(std::int64_t{x} * width_ / sheet_.width);
    const auto line = static_cast<std::size_t>(std::int64_t{y} * height_ / sheet_.height);
    return line * static_cast<std::size_t>(width_) + column;
  }
  void Add(std::size_t at, int value) {
    sums_[at] += static_cast<std::uint32_t>(value);
    ++counts_[at];
  }

  const ChartSheet sheet_;
  const ColourBands& layers_;
  const int width_, height_, skip_x_, skip_y_;
  std::vector<std::uint32_t> sums_;
  std::vector<std::uint32_t> counts_;
};

int CPL_STDCALL TellProgress(double share, const char*, void* progress) {
  return static_cast<Progress*>(progress)->Step(share * 100.0) ? TRUE : FALSE;
}

// Encodes a dataset over the file at `path`, which is there already; gives the reason of a failure.
std::optional<std::string> Encode(const char* driver, GDALDatasetH dataset, const std::string& path,
                                  const std::vector<const char*>& options, Progress& progress) {
  const Quiet quiet;
  char** list = CSLSetNameValue(nullptr, "QUIET_DELETE_ON_CREATE_COPY", "NO");
  for (const char* option : options) list = CSLAddString(list, option);
  Dataset made(GDALCreateCopy(GDALGetDriverByName(driver), path.c_str(), dataset, FALSE, list,
                              &TellProgress, &progress));
  CSLDestroy(list);
  const bool whole = made != nullptr;
  made.reset();  // what fails in the last writing is told to `quiet`
  if (whole && quiet.text().empty()) return std::nullopt;
  return quiet.text().empty() ? "the picture cannot be written" : quiet.text();
}

Dataset MemoryPicture(const RgbPicture& picture) {
  Dataset made(GDALCreate(GDALGetDriverByName("MEM"), "", picture.width, picture.height, 3,
                          GDT_Byte, nullptr));
  auto* pixels = const_cast<std::uint8_t*>(picture.pixels.data());
  if (made == nullptr ||
      GDALDatasetRasterIO(made.get(), GF_Write, 0, 0, picture.width, picture.height, pixels,
                          picture.width, picture.height, GDT_Byte, 3, nullptr, 3, 3 * picture.width,
                          1) != CE_None) {
    made.reset();
  }
  return made;
}

class GdalChartSource final : public ChartSource {
 public:
  static Result<std::unique_ptr<ChartSource>> Open(const std::string& path,
                                                   std::int64_t max_pixels);

  const ChartSourceInfo& info() const override { return info_; }
  Result<RgbPicture> Preview(int longest) override;
  Status WriteSheet(const std::string& picture, const std::string& preview,
                    Progress& progress) override;

 private:
  Status OpenLevel(const std::string& path, int overview);
  Status WorkOut(std::int64_t max_pixels);
  void TellInfo();
  int OverviewFor(double reduction) const;
  // Gives the reason of a failure; empty for none.
  std::string MakeStrip(GDALWarpOperation& work, int top, int rows, std::uint8_t* out) const;

  std::string path_;
  ChartHeader header_;
  Dataset dataset_;
  ColourBands layers_;
  Placement placement_;
  Geometry cutline_;
  Plan plan_;
  ChartSourceInfo info_;
  std::vector<std::string> notes_;
};

Result<std::unique_ptr<ChartSource>> GdalChartSource::Open(const std::string& path,
                                                           std::int64_t max_pixels) {
  SetUp();
  auto source = std::make_unique<GdalChartSource>();
  source->path_ = path;
  {
    const Result<SystemFile> file = SystemFile::OpenForReading(path);
    if (!file) return file.error();
    source->header_ = ReadChartHeader(*file);
  }
  if (Status opened = source->OpenLevel(path, -1); !opened) return opened.error();
  source->info_.width = GDALGetRasterXSize(source->dataset_.get());
  source->info_.height = GDALGetRasterYSize(source->dataset_.get());
  if (Status planned = source->WorkOut(max_pixels); !planned) return planned.error();
  // A pyramid has a level that is nearer to what is made.
  if (const int level = source->OverviewFor(source->plan_.reduction); level >= 0) {
    if (Status opened = source->OpenLevel(path, level); !opened) return opened.error();
    if (Status planned = source->WorkOut(max_pixels); !planned) return planned.error();
  }
  source->TellInfo();
  return std::unique_ptr<ChartSource>(std::move(source));
}

Status GdalChartSource::OpenLevel(const std::string& path, int overview) {
  // The full path, so that no name is taken for one of the library's own.
  std::error_code error;
  const std::string full = std::filesystem::absolute(path, error).string();
  constexpr std::array<const char*, 6> kDrivers = {"GTiff", "BSB",  "MBTiles",
                                                   "PNG",   "JPEG", nullptr};
  char** options = nullptr;
  if (overview >= 0) {
    options = CSLSetNameValue(options, "OVERVIEW_LEVEL", std::to_string(overview).c_str());
  }
  const Quiet quiet;
  dataset_.reset(GDALOpenEx(full.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR,
                            kDrivers.data(), options, nullptr));
  CSLDestroy(options);
  if (dataset_ != nullptr && GDALGetRasterCount(dataset_.get()) > 0) return Done{};
  return Error{path,
               "this is no chart that can be brought in (GeoTIFF, BSB/KAP, MBTiles, PNG or "
               "JPEG), or it is damaged" +
                   (quiet.text().empty() ? "" : ": " + quiet.text())};
}

int GdalChartSource::OverviewFor(double reduction) const {
  GDALRasterBandH band = GDALGetRasterBand(dataset_.get(), 1);
  const double width = GDALGetRasterXSize(dataset_.get());
  int best = -1;
  double best_factor = 1.0;
  for (int i = 0; i < GDALGetOverviewCount(band); ++i) {
    GDALRasterBandH overview = GDALGetOverview(band, i);
    const int overview_width = overview == nullptr ? 0 : GDALGetRasterBandXSize(overview);
    if (overview_width <= 0) continue;
    const double factor = width / overview_width;
    if (factor <= reduction && factor > best_factor) {
      best = i;
      best_factor = factor;
    }
  }
  return best;
}

Status GdalChartSource::WorkOut(std::int64_t max_pixels) {
  const Quiet quiet;
  Result<ColourBands> bands = LayersOf(dataset_.get(), path_);
  if (!bands) return bands.error();
  layers_ = std::move(bands.value());
  notes_.clear();
  placement_ = PlacementOf(dataset_.get(), header_, notes_);
  cutline_ = CutlineOf(dataset_.get(), placement_, header_);
  const double width = GDALGetRasterXSize(dataset_.get());
  const double height = GDALGetRasterYSize(dataset_.get());
  Box box{0.0, 0.0, width, height};
  if (cutline_ != nullptr) {
    OGREnvelope ring{};
    OGR_G_GetEnvelope(cutline_.get(), &ring);
    constexpr double kSliver = 0.05;  // of a pixel, that is worth no column of its own
    const Box inner{std::max(0.0, std::floor(ring.MinX + kSliver)),
                    std::max(0.0, std::floor(ring.MinY + kSliver)),
                    std::min(width, std::ceil(ring.MaxX - kSliver)),
                    std::min(height, std::ceil(ring.MaxY - kSliver))};
    if (inner.right - inner.left >= 2.0 && inner.bottom - inner.top >= 2.0) {
      box = inner;
    } else {
      cutline_.reset();
    }
  }
  const Result<Plan> plan = MakePlan(placement_, box, max_pixels, path_);
  if (!plan) return plan.error();
  plan_ = *plan;
  return Done{};
}

// Two digits are as much as a guess is worth.
double TwoDigits(double value) {
  if (!(value > 0.0)) return 0.0;
  const double unit = std::pow(10.0, std::floor(std::log10(value)) - 1.0);
  return std::round(value / unit) * unit;
}

std::string KindOf(GDALDatasetH dataset) {
  const std::string driver = GDALGetDriverShortName(GDALGetDatasetDriver(dataset));
  if (driver == "GTiff") return "GeoTIFF";
  return driver == "BSB" ? "BSB/KAP" : driver;
}

std::string FirstOf(const std::string& text, std::size_t bytes) {
  std::string ansi = ToAnsi(text);
  if (ansi.size() > bytes) ansi.resize(bytes);
  return Trim(FromAnsi(ansi));
}

void GdalChartSource::TellInfo() {
  ChartSourceInfo& info = info_;
  info.kind = KindOf(dataset_.get());
  info.placed = placement_.placed;
  info.sheet = plan_.sheet;
  info.notes = notes_;
  const char* name =
      info.kind == "MBTiles" ? GDALGetMetadataItem(dataset_.get(), "name", nullptr) : nullptr;
  std::string title = name != nullptr ? name : header_.name;
  if (Trim(title).empty()) title = std::filesystem::path(path_).stem().string();
  constexpr std::size_t kLongestTitle = 64;
  info.title = FirstOf(title, kLongestTitle);
  if (info.placed) {
    info.bounds = {plan_.sheet.bottom_lat, plan_.sheet.west_lon, plan_.sheet.top_lat,
                   plan_.sheet.east_lon};
    const double middle = (info.bounds.south + info.bounds.north) / 2.0;
    info.scale =
        TwoDigits(plan_.to[1] * std::cos(middle * M_PI / 180.0) / plan_.reduction / kMetresOfPaper);
  }
  info.scale_is_told = header_.scale > 0.0;
  if (info.scale_is_told) info.scale = header_.scale;
  if (!info.placed) {
    info.notes.emplace_back(
        "The file does not tell where it lies. It is brought in as it is; calibrate it before "
        "anything is planned on it.");
  }
  const auto pixels = [](int width, int height) {
    return std::to_string(width) + " x " + std::to_string(height) + " pixels";
  };
  if (std::int64_t{info.sheet.width} * info.sheet.height * 4 <
      std::int64_t{info.width} * info.height * 3) {
    if (plan_.reduction > 1.0 || dataset_ == nullptr) {
      info.notes.push_back("The chart has " + pixels(info.width, info.height) +
                           ", more than can be shown; it is reduced to " +
                           pixels(info.sheet.width, info.sheet.height) + ".");
    }
  }
  if (header_.shift_north != 0.0 || header_.shift_east != 0.0) {
    info.notes.emplace_back("The shift to WGS 84 that the chart's header tells is applied.");
  } else if (!header_.datum.empty() && header_.datum != "WGS84" && header_.datum != "WGS 84") {
    info.notes.push_back("The chart is on the datum " + header_.datum +
                         " and tells no shift to WGS 84: its positions may be off by some hundred "
                         "metres.");
  }
}

Result<RgbPicture> GdalChartSource::Preview(int longest) {
  const Quiet quiet;
  const int width = GDALGetRasterXSize(dataset_.get());
  const int height = GDALGetRasterYSize(dataset_.get());
  const double share = std::min(1.0, static_cast<double>(longest) / std::max(width, height));
  RgbPicture picture;
  picture.width = std::max(1, static_cast<int>(std::lround(width * share)));
  picture.height = std::max(1, static_cast<int>(std::lround(height * share)));
  const auto count =
      static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
  picture.pixels.assign(3 * count, 255);
  GDALRasterIOExtraArg extra;
  INIT_RASTERIO_EXTRA_ARG(extra);
  extra.eResampleAlg =
      layers_.colours == Colours::kPalette ? GRIORA_NearestNeighbour : GRIORA_Bilinear;
  std::vector<int> numbers = layers_.numbers;
  if (layers_.alpha > 0) numbers.push_back(layers_.alpha);
  std::vector<std::uint8_t> read(numbers.size() * count, 255);
  if (GDALDatasetRasterIOEx(
          dataset_.get(), GF_Read, 0, 0, width, height, read.data(), picture.width, picture.height,
          GDT_Byte, static_cast<int>(numbers.size()), numbers.data(), 0, 0, 0, &extra) != CE_None) {
    return Error{path_, "the picture cannot be read: " + quiet.text()};
  }
  const std::uint8_t* alpha = layers_.alpha > 0 ? &read[(numbers.size() - 1) * count] : nullptr;
  for (std::size_t i = 0; i < count; ++i) {
    if (alpha != nullptr && alpha[i] < 128) continue;
    for (std::size_t c = 0; c < 3; ++c) {
      std::uint8_t value = read[layers_.colours == Colours::kRgb ? c * count + i : i];
      if (layers_.colours == Colours::kPalette) {
        if (value >= layers_.palette.size()) continue;
        const GDALColorEntry& colour = layers_.palette[value];
        value = static_cast<std::uint8_t>(c == 0 ? colour.c1 : c == 1 ? colour.c2 : colour.c3);
      }
      picture.pixels[3 * i + c] = value;
    }
  }
  return picture;
}

std::string GdalChartSource::MakeStrip(GDALWarpOperation& work, int top, int rows,
                                       std::uint8_t* out) const {
  const Quiet quiet;
  const std::size_t bands = layers_.numbers.size();
  const auto width = static_cast<std::size_t>(plan_.sheet.width);
  const auto height = static_cast<std::size_t>(rows);
  std::vector<std::uint8_t> tile;
  const int step = std::max(64, static_cast<int>(kTileColumns / plan_.reduction));
  for (int left = 0; left < plan_.sheet.width; left += step) {
    const int columns = std::min(step, plan_.sheet.width - left);
    const auto across = static_cast<std::size_t>(columns);
    tile.assign(bands * height * across, static_cast<std::uint8_t>(layers_.paper));
    if (work.WarpRegionToBuffer(left, top, columns, rows, tile.data(), GDT_Byte) != CE_None ||
        !quiet.text().empty()) {
      return quiet.text().empty() ? "there is not enough memory" : quiet.text();
    }
    for (std::size_t line = 0; line < bands * height; ++line) {
      std::memcpy(out + line * width + static_cast<std::size_t>(left), &tile[line * across],
                  across);
    }
  }
  return "";
}

Status GdalChartSource::WriteSheet(const std::string& picture, const std::string& preview,
                                   Progress& progress) {
  // Stops at the first step that is refused, and knows it.
  class Watched final : public Progress {
   public:
    explicit Watched(Progress& other) : other_(other) {}
    bool Step(double percent) override {
      stopped = stopped || !other_.Step(percent);
      return !stopped;
    }
    std::atomic<bool> stopped = false;

   private:
    Progress& other_;
  };
  Watched watched(progress);
  const Quiet quiet;
  const Transformer exact = MakeTransformer(placement_, plan_.to);
  if (exact == nullptr) return Error{path_, "its projection is not known"};
  void* quick = GDALCreateApproxTransformer(&GDALGenImgProjTransform, exact.get(), kTransformError);
  const Transformer approximate(quick);

  GDALWarpOptions* options = GDALCreateWarpOptions();
  const std::unique_ptr<GDALWarpOptions, Closer<&GDALDestroyWarpOptions>> keep(options);
  const auto count = static_cast<int>(layers_.numbers.size());
  const auto bytes = sizeof(int) * layers_.numbers.size();
  options->hSrcDS = dataset_.get();
  options->nBandCount = count;
  options->panSrcBands = static_cast<int*>(CPLMalloc(bytes));
  options->panDstBands = static_cast<int*>(CPLMalloc(bytes));
  for (int i = 0; i < count; ++i) {
    options->panSrcBands[i] = layers_.numbers[static_cast<std::size_t>(i)];
    options->panDstBands[i] = i + 1;
  }
  options->nSrcAlphaBand = layers_.alpha;
  options->eWorkingDataType = GDT_Byte;
  const bool exact_pixels =
      layers_.colours == Colours::kPalette || (plan_.as_it_is && plan_.reduction == 1.0);
  options->eResampleAlg = exact_pixels ? GRA_NearestNeighbour : GRA_Bilinear;
  options->pfnTransformer = &GDALApproxTransform;
  options->pTransformerArg = approximate.get();
  // The library leaves out what the source marks as no picture.
  std::vector<double> none(layers_.numbers.size(), 0.0);
  bool any_none = false;
  for (std::size_t i = 0; i < none.size(); ++i) {
    int has = FALSE;
    none[i] = GDALGetRasterNoDataValue(GDALGetRasterBand(dataset_.get(), layers_.numbers[i]), &has);
    if (has == FALSE) none[i] = -1.0;  // no byte
    any_none = any_none || has != FALSE;
  }
  if (any_none && layers_.alpha == 0) {
    options->padfSrcNoDataReal = static_cast<double*>(CPLMalloc(sizeof(double) * none.size()));
    std::copy(none.begin(), none.end(), options->padfSrcNoDataReal);
    options->papszWarpOptions =
        CSLSetNameValue(options->papszWarpOptions, "UNIFIED_SRC_NODATA", "YES");
  }
  if (cutline_ != nullptr) options->hCutline = OGR_G_Clone(cutline_.get());

  // The reader of the rows is made once the operation stands on the dataset they become.
  SmallPicture small(plan_.sheet, layers_);
  GDALWarpOperation work;
  const int strip_rows = std::max(16, static_cast<int>(kStripRows / plan_.reduction));
  StripReader reader(plan_.sheet.width, plan_.sheet.height, count, strip_rows,
                     [&](int top, int rows, std::uint8_t* out) {
                       if (watched.stopped) return std::string(kImportCancelled);
                       return MakeStrip(work, top, rows, out);
                     });
  SheetDataset sheet(
      plan_.sheet, layers_, &reader,
      [&small](int band, int y, const std::uint8_t* row) { small.Take(band, y, row); });
  options->hDstDS = GDALDataset::ToHandle(&sheet);
  if (work.Initialize(options) != CE_None) {
    return Error{path_, "the chart cannot be warped: " + quiet.text()};
  }
  // No side files beside ours.
  CPLSetThreadLocalConfigOption("GDAL_PAM_ENABLED", "NO");
  std::optional<std::string> fault = Encode("PNG", options->hDstDS, picture, {"ZLEVEL=6"}, watched);
  if (!fault) {
    NoProgress not_shown;
    const Dataset memory = MemoryPicture(small.Made());
    fault = memory == nullptr
                ? "there is not enough memory"
                : Encode("GTiff", memory.get(), preview,
                         {"COMPRESS=LZW", "PREDICTOR=2", "PHOTOMETRIC=RGB"}, not_shown);
  }
  CPLSetThreadLocalConfigOption("GDAL_PAM_ENABLED", nullptr);
  if (watched.stopped) return Error{path_, kImportCancelled};
  if (!reader.fault().empty()) {
    return Error{path_, "the picture cannot be read: " + reader.fault()};
  }
  if (fault) return Error{path_, "the chart cannot be written: " + *fault};
  return Done{};
}

}  // namespace

Result<std::unique_ptr<ChartSource>> OpenChartSource(const std::string& path,
                                                     std::int64_t max_pixels) {
  return GdalChartSource::Open(path, max_pixels);
}

}  // namespace skerrow
