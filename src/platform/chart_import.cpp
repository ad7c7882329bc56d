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
#include <gdal_alg.h>
#include <gdal_priv.h>
#include <gdalwarper.h>
#include <mutex>
#include <ogr_api.h>
#include <ogr_srs_api.h>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "core/files.h"
#include "core/system_file.h"
#include "core/text.h"
#include "platform/chart_header.h"
#include "platform/chart_placement.h"
#include "platform/chart_strips.h"

namespace skerrow {
namespace {

// How far the transformation may be interpolated, in pixels of the source.
constexpr double kTransformError = 0.125;
// Charts on paper are scanned and sold at 254 dots an inch: a pixel is 0.1 mm of paper.
constexpr double kMetresOfPaper = 0.0001;

// Pictures are PNG: they keep palettes, which lossless WebP doesn't and which open in half its time
// and a quarter of its memory; they have no limit of 16,383 pixels and are written row by row. The
// level is the one that keeps up with the warping on the grain of a scan; higher ones take three
// times as long, for 15 % less, and open no faster.
constexpr char kCompression[] = "ZLEVEL=2";

constexpr int kStripRows = 256;
constexpr int kTileColumns = 1024;
constexpr int kPreviewSide = 400;  // pixels, as the previews that come with the program
constexpr std::int64_t kCacheBytes = std::int64_t{160} * 1024 * 1024;

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
    // Its fellows among the decoders speak through the same handler once it is there.
    CPLSetErrorHandler(CPLQuietErrorHandler);
    GDALAllRegister();
    GDALSetCacheMax64(kCacheBytes);
    // A file may name others, as its overviews: none over a network.
    CPLSetConfigOption("CPL_VSIL_CURL_ALLOWED_FILENAME", "none");
    OSRSetPROJEnableNetwork(0);
  });
}

void CloseDataset(void* dataset) { GDALClose(dataset); }
Handle DatasetOf(void* dataset) { return {dataset, CloseDataset}; }

struct ColourBands {
  Colours colours = Colours::kGrey;
  std::vector<int> numbers;  // one, or red, green and blue
  int alpha = 0;             // 0: none
  ChartPalette palette;
  int paper = 255;  // the value of what lies outside the chart
};

int Lightness(const std::array<std::uint8_t, 3>& colour) {
  return colour[0] + colour[1] + colour[2];
}

// The palette of a band with transparent entries turned to paper. Paper is white, which is added
// where there is none and room for it; else the lightest colour.
void TakePalette(GDALColorTableH table, ColourBands& bands) {
  const int count = std::min(GDALGetColorEntryCount(table), 256);
  for (int i = 0; i < count; ++i) {
    GDALColorEntry entry{};
    GDALGetColorEntryAsRGB(table, i, &entry);
    if (entry.c4 < 128) entry = {255, 255, 255, 255};
    bands.palette.push_back({static_cast<std::uint8_t>(entry.c1),
                             static_cast<std::uint8_t>(entry.c2),
                             static_cast<std::uint8_t>(entry.c3)});
  }
  const auto lightest =
      std::max_element(bands.palette.begin(), bands.palette.end(),
                       [](const auto& a, const auto& b) { return Lightness(a) < Lightness(b); });
  bands.paper = static_cast<int>(lightest - bands.palette.begin());
  if (Lightness(*lightest) < 3 * 255 && bands.palette.size() < 256) {
    bands.paper = static_cast<int>(bands.palette.size());
    bands.palette.push_back({255, 255, 255});
  }
}

// Greys of fewer than 8 bits are steps of a palette.
void TakeGreySteps(int bits, ColourBands& bands) {
  const int top = (1 << bits) - 1;
  for (int i = 0; i <= top; ++i) {
    const auto grey = static_cast<std::uint8_t>(i * 255 / top);
    bands.palette.push_back({grey, grey, grey});
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
        const auto& [red, green, blue] = bands.palette[i];
        const GDALColorEntry entry{red, green, blue, 255};
        table_.SetColorEntry(static_cast<int>(i), &entry);
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

int CPL_STDCALL TellProgress(double share, const char*, void* progress) {
  return static_cast<Progress*>(progress)->Step(share * 100.0) ? TRUE : FALSE;
}

// Encodes a dataset over the file at `path`, which is there already; gives the reason of a failure.
std::optional<std::string> Encode(const char* driver, GDALDatasetH dataset, const std::string& path,
                                  const std::vector<const char*>& options, Progress& progress) {
  const Quiet quiet;
  char** list = CSLSetNameValue(nullptr, "QUIET_DELETE_ON_CREATE_COPY", "NO");
  for (const char* option : options) list = CSLAddString(list, option);
  Handle made = DatasetOf(GDALCreateCopy(GDALGetDriverByName(driver), path.c_str(), dataset, FALSE,
                                         list, &TellProgress, &progress));
  CSLDestroy(list);
  const bool whole = made != nullptr;
  made.reset();  // what fails in the last writing is told to `quiet`
  if (whole && quiet.text().empty()) return std::nullopt;
  return quiet.text().empty() ? "the picture cannot be written" : quiet.text();
}

Handle MemoryPicture(const RgbPicture& picture) {
  Handle made = DatasetOf(GDALCreate(GDALGetDriverByName("MEM"), "", picture.width, picture.height,
                                     3, GDT_Byte, nullptr));
  auto* pixels = const_cast<std::uint8_t*>(picture.pixels.data());
  if (made == nullptr ||
      GDALDatasetRasterIO(made.get(), GF_Write, 0, 0, picture.width, picture.height, pixels,
                          picture.width, picture.height, GDT_Byte, 3, nullptr, 3, 3 * picture.width,
                          1) != CE_None) {
    made.reset();
  }
  return made;
}

// A polygon of the library's, for its owner to free.
OGRGeometryH PolygonOf(const std::vector<Point>& corners) {
  OGRGeometryH ring = OGR_G_CreateGeometry(wkbLinearRing);
  for (const Point& corner : corners) OGR_G_AddPoint_2D(ring, corner.x, corner.y);
  OGR_G_CloseRings(ring);
  OGRGeometryH polygon = OGR_G_CreateGeometry(wkbPolygon);
  OGR_G_AddGeometryDirectly(polygon, ring);
  return polygon;
}

class GdalChartSource final : public ChartSource {
 public:
  static Result<std::unique_ptr<ChartSource>> Open(const std::string& path,
                                                   std::int64_t max_pixels);

  const ChartSourceInfo& info() const override { return info_; }
  Result<RgbPicture> Preview(int longest, Progress& progress) override;
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
  Handle dataset_ = NoHandle();
  ColourBands layers_;
  Placement placement_;
  std::vector<Point> cutline_;
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
  dataset_ =
      DatasetOf(GDALOpenEx(full.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR,
                           kDrivers.data(), options, nullptr));
  CSLDestroy(options);
  if (dataset_ != nullptr && GDALGetRasterCount(dataset_.get()) > 0) return Done{};
  // That nobody knows the format is said already.
  const bool unknown = quiet.text().find("not recognized") != std::string::npos;
  return Error{path,
               "this is no chart that can be brought in (GeoTIFF, BSB/KAP, MBTiles, PNG or "
               "JPEG), or it is damaged" +
                   (quiet.text().empty() || unknown ? "" : ": " + quiet.text())};
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
  placement_ = PlacementOf(dataset_.get(), notes_);
  cutline_ = CutlineOf(dataset_.get(), placement_);
  const double width = GDALGetRasterXSize(dataset_.get());
  const double height = GDALGetRasterYSize(dataset_.get());
  Box box{0.0, 0.0, width, height};
  // A border that crosses itself says nothing.
  if (!cutline_.empty()) {
    const Handle polygon(PolygonOf(cutline_), OGR_G_DestroyGeometry);
    if (OGR_G_IsValid(polygon.get()) == 0) cutline_.clear();
  }
  if (!cutline_.empty()) {
    Box ring{width, height, 0.0, 0.0};
    for (const Point& at : cutline_) {
      ring.left = std::min(ring.left, at.x);
      ring.right = std::max(ring.right, at.x);
      ring.top = std::min(ring.top, at.y);
      ring.bottom = std::max(ring.bottom, at.y);
    }
    constexpr double kSliver = 0.05;  // of a pixel, that is worth no column of its own
    const Box inner{std::max(0.0, std::floor(ring.left + kSliver)),
                    std::max(0.0, std::floor(ring.top + kSliver)),
                    std::min(width, std::ceil(ring.right - kSliver)),
                    std::min(height, std::ceil(ring.bottom - kSliver))};
    if (inner.right - inner.left >= 2.0 && inner.bottom - inner.top >= 2.0) {
      box = inner;
    } else {
      cutline_.clear();
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

// The sheet of a chart by the shift of its header, which the library passes over: the edges move by
// so many seconds, and everything between them with them.
ChartSheet OnWgs84(ChartSheet sheet, const ChartHeader& header) {
  const auto moved = [](float degrees, double seconds) {
    return static_cast<float>(degrees + seconds / 3600.0);
  };
  sheet.top_lat = moved(sheet.top_lat, header.shift_north);
  sheet.bottom_lat = moved(sheet.bottom_lat, header.shift_north);
  sheet.west_lon = moved(sheet.west_lon, header.shift_east);
  sheet.east_lon = moved(sheet.east_lon, header.shift_east);
  return sheet;
}

void GdalChartSource::TellInfo() {
  ChartSourceInfo& info = info_;
  info.kind = KindOf(dataset_.get());
  info.placed = placement_.placed;
  info.sheet = OnWgs84(plan_.sheet, header_);
  info.notes = notes_;
  const char* name =
      info.kind == "MBTiles" ? GDALGetMetadataItem(dataset_.get(), "name", nullptr) : nullptr;
  std::string title = name != nullptr ? name : header_.name;
  if (Trim(title).empty()) title = std::filesystem::path(path_).stem().string();
  constexpr std::size_t kLongestTitle = 64;
  info.title = FirstOf(title, kLongestTitle);
  if (info.placed) {
    info.bounds = {info.sheet.bottom_lat, info.sheet.west_lon, info.sheet.top_lat,
                   info.sheet.east_lon};
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

Result<RgbPicture> GdalChartSource::Preview(int longest, Progress& progress) {
  const Quiet quiet;
  Watched watched(progress);
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
  extra.pfnProgress = &TellProgress;
  extra.pProgressData = static_cast<Progress*>(&watched);
  extra.eResampleAlg =
      layers_.colours == Colours::kPalette ? GRIORA_NearestNeighbour : GRIORA_Bilinear;
  std::vector<int> numbers = layers_.numbers;
  if (layers_.alpha > 0) numbers.push_back(layers_.alpha);
  std::vector<std::uint8_t> read(numbers.size() * count, 255);
  if (GDALDatasetRasterIOEx(
          dataset_.get(), GF_Read, 0, 0, width, height, read.data(), picture.width, picture.height,
          GDT_Byte, static_cast<int>(numbers.size()), numbers.data(), 0, 0, 0, &extra) != CE_None) {
    return Error{
        path_, watched.stopped ? kImportCancelled : "the picture cannot be read: " + quiet.text()};
  }
  const std::uint8_t* alpha = layers_.alpha > 0 ? &read[(numbers.size() - 1) * count] : nullptr;
  for (std::size_t i = 0; i < count; ++i) {
    if (alpha != nullptr && alpha[i] < 128) continue;
    for (std::size_t c = 0; c < 3; ++c) {
      std::uint8_t value = read[layers_.colours == Colours::kRgb ? c * count + i : i];
      if (layers_.colours == Colours::kPalette) {
        if (value >= layers_.palette.size()) continue;
        value = layers_.palette[value][c];
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
  Watched watched(progress);
  const Quiet quiet;
  const Handle exact = MakeTransformer(placement_, plan_.to);
  if (exact == nullptr) return Error{path_, "its projection is not known"};
  void* quick = GDALCreateApproxTransformer(&GDALGenImgProjTransform, exact.get(), kTransformError);
  const Handle approximate(quick, GDALDestroyTransformer);

  GDALWarpOptions* options = GDALCreateWarpOptions();
  const std::unique_ptr<GDALWarpOptions, decltype(&GDALDestroyWarpOptions)> keep(
      options, GDALDestroyWarpOptions);
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
  if (!cutline_.empty()) options->hCutline = PolygonOf(cutline_);  // freed with the options

  // The reader of the rows is made once the operation stands on the dataset they become.
  SmallPicture small(plan_.sheet.width, plan_.sheet.height, kPreviewSide, layers_.colours,
                     layers_.palette);
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
  std::optional<std::string> fault =
      Encode("PNG", options->hDstDS, picture, {kCompression}, watched);
  if (!fault) {
    NoProgress not_shown;
    const Handle memory = MemoryPicture(small.Made());
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
