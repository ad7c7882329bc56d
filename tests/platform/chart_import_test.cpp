#include "platform/chart_import.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cpl_conv.h>
#include <cpl_string.h>
#include <filesystem>
#include <functional>
#include <gdal.h>
#include <gdal_alg.h>
#include <gtest/gtest.h>
#include <memory>
#include <ogr_srs_api.h>
#include <optional>

#include "charts/chart_library.h"
#include "charts/chart_view.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

using testing::FileBytes;
using testing::TempFolder;

constexpr int kWidth = 1100;
constexpr int kHeight = 800;

struct Spot {
  int x = 0;
  int y = 0;
};

// The marks of a test chart: squares of 5 x 5 pixels, their middles at (x + 0.5, y + 0.5).
std::vector<Spot> Spots(int width, int height) {
  std::vector<Spot> spots;
  for (int y = 20; y < height; y += (height - 40) / 4) {
    for (int x = 20; x < width; x += (width - 40) / 5) spots.push_back({x, y});
  }
  return spots;
}

enum class Paint { kRgb, kGrey, kPalette, kAlpha, kBits };

// A light sheet with dark marks, band after band.
std::vector<std::uint8_t> Painted(int width, int height, int bands, std::uint8_t light,
                                  std::uint8_t dark) {
  const auto plane = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  std::vector<std::uint8_t> pixels;
  // Each band a shade darker than the one before.
  for (int band = 0; band < bands; ++band) {
    pixels.insert(pixels.end(), plane, static_cast<std::uint8_t>(light - 20 * band));
  }
  for (const Spot& spot : Spots(width, height)) {
    for (int dy = -2; dy <= 2; ++dy) {
      for (int dx = -2; dx <= 2; ++dx) {
        for (int band = 0; band < bands; ++band) {
          pixels[static_cast<std::size_t>(band) * plane +
                 static_cast<std::size_t>((spot.y + dy) * width + spot.x + dx)] = dark;
        }
      }
    }
  }
  return pixels;
}

struct Made {
  int epsg = 0;  // 0: none
  std::array<double, 6> affine{};
  Paint paint = Paint::kRgb;
  int width = kWidth;
  int height = kHeight;
  const char* driver = "GTiff";
};

void MakeFile(const std::string& path, const Made& made) {
  GDALAllRegister();
  const int bands = made.paint == Paint::kRgb ? 3 : made.paint == Paint::kAlpha ? 4 : 1;
  const bool indexed = made.paint == Paint::kPalette || made.paint == Paint::kBits;
  const std::vector<std::uint8_t> pixels =
      Painted(made.width, made.height, bands, indexed ? 1 : 240, 0);
  GDALDatasetH memory =
      GDALCreate(GDALGetDriverByName("MEM"), "", made.width, made.height, bands, GDT_Byte, nullptr);
  ASSERT_EQ(GDALDatasetRasterIO(memory, GF_Write, 0, 0, made.width, made.height,
                                const_cast<std::uint8_t*>(pixels.data()), made.width, made.height,
                                GDT_Byte, bands, nullptr, 0, 0, 0),
            CE_None);
  if (made.affine[1] != 0.0) {
    std::array<double, 6> affine = made.affine;
    GDALSetGeoTransform(memory, affine.data());
  }
  if (made.epsg != 0) {
    OGRSpatialReferenceH system = OSRNewSpatialReference(nullptr);
    OSRImportFromEPSG(system, made.epsg);
    GDALSetSpatialRef(memory, system);
    OSRRelease(system);
  }
  if (made.paint == Paint::kPalette) {
    GDALColorTableH table = GDALCreateColorTable(GPI_RGB);
    const GDALColorEntry entries[] = {{10, 0, 20, 255}, {200, 230, 255, 255}};
    for (int i = 0; i < 2; ++i) GDALSetColorEntry(table, i, &entries[i]);
    GDALSetRasterColorTable(GDALGetRasterBand(memory, 1), table);
    GDALDestroyColorTable(table);
  }
  char** options = nullptr;
  if (made.paint == Paint::kBits) options = CSLSetNameValue(options, "NBITS", "1");
  if (made.paint == Paint::kRgb && std::string(made.driver) == "GTiff") {
    options = CSLSetNameValue(options, "PHOTOMETRIC", "RGB");
  }
  if (made.paint == Paint::kAlpha) {
    GDALSetRasterColorInterpretation(GDALGetRasterBand(memory, 4), GCI_AlphaBand);
    // The left half is transparent.
    const std::vector<std::uint8_t> clear(static_cast<std::size_t>(made.width / 2 * made.height),
                                          0);
    ASSERT_EQ(
        GDALRasterIO(GDALGetRasterBand(memory, 4), GF_Write, made.width / 2, 0, made.width / 2,
                     made.height, std::vector<std::uint8_t>(clear.size(), 255).data(),
                     made.width / 2, made.height, GDT_Byte, 0, 0),
        CE_None);
    ASSERT_EQ(GDALRasterIO(GDALGetRasterBand(memory, 4), GF_Write, 0, 0, made.width / 2,
                           made.height, const_cast<std::uint8_t*>(clear.data()), made.width / 2,
                           made.height, GDT_Byte, 0, 0),
              CE_None);
  }
  GDALDatasetH file = GDALCreateCopy(GDALGetDriverByName(made.driver), path.c_str(), memory, FALSE,
                                     options, nullptr, nullptr);
  CSLDestroy(options);
  ASSERT_NE(file, nullptr) << path;
  GDALClose(file);
  GDALClose(memory);
}

using Rgb = std::array<int, 3>;
constexpr Rgb kPaper = {255, 255, 255};

// A picture as the viewer has it.
struct Sheet {
  int width = 0;
  int height = 0;
  int bands = 0;
  std::vector<Rgb> pixels;

  const Rgb& Colour(int x, int y) const {
    return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
  }
  int At(int x, int y) const { return Colour(x, y)[0]; }
};

Sheet ReadSheet(const std::string& path) {
  Sheet sheet;
  GDALDatasetH file = GDALOpen(path.c_str(), GA_ReadOnly);
  if (file == nullptr) return sheet;
  sheet.width = GDALGetRasterXSize(file);
  sheet.height = GDALGetRasterYSize(file);
  sheet.bands = GDALGetRasterCount(file);
  sheet.pixels.resize(static_cast<std::size_t>(sheet.width) *
                      static_cast<std::size_t>(sheet.height));
  std::vector<std::uint8_t> read(sheet.pixels.size());
  for (int channel = 0; channel < 3; ++channel) {
    GDALRasterBandH band = GDALGetRasterBand(file, std::min(channel + 1, sheet.bands));
    EXPECT_EQ(GDALRasterIO(band, GF_Read, 0, 0, sheet.width, sheet.height, read.data(), sheet.width,
                           sheet.height, GDT_Byte, 0, 0),
              CE_None);
    GDALColorTableH table = GDALGetRasterColorTable(band);
    for (std::size_t i = 0; i < read.size(); ++i) {
      int value = read[i];
      if (table != nullptr) {
        const GDALColorEntry* entry = GDALGetColorEntry(table, value);
        value = channel == 0 ? entry->c1 : channel == 1 ? entry->c2 : entry->c3;
      }
      sheet.pixels[i][static_cast<std::size_t>(channel)] = value;
    }
  }
  GDALClose(file);
  return sheet;
}

// The middle of what is dark about a pixel, edges of pixels counted from 0.
std::optional<std::pair<double, double>> DarkMiddle(const Sheet& sheet, int column, int row) {
  constexpr int kReach = 14;
  double sum = 0.0;
  double x = 0.0;
  double y = 0.0;
  for (int j = std::max(0, row - kReach); j < std::min(sheet.height, row + kReach); ++j) {
    for (int i = std::max(0, column - kReach); i < std::min(sheet.width, column + kReach); ++i) {
      const double dark = std::max(0, 200 - sheet.At(i, j));
      sum += dark;
      x += dark * (i + 0.5);
      y += dark * (j + 0.5);
    }
  }
  if (sum < 500.0) return std::nullopt;
  return std::pair(x / sum, y / sum);
}

class ChartImportTest : public ::testing::Test {
 protected:
  ChartImportTest()
      : folders_{folder_.File("program"), folder_.File("documents"), folder_.path()} {}

  // Brings a file in under the next free key; its path without extension.
  std::string Import(const std::string& path, ChartSourceInfo* info = nullptr,
                     std::int64_t max_pixels = kMaxSheetPixels) {
    auto source = OpenChartSource(path, max_pixels);
    if (!source) return "refused: " + source.error().Text();
    if (info != nullptr) *info = (*source)->info();
    NoProgress progress;
    const Result<std::string> chart =
        ImportChart(folders_, **source, {"Area", FreeChartKey(folders_), "Test", 50000}, progress);
    return chart ? *chart : "refused: " + chart.error().Text();
  }

  ChartView ViewOf(const std::string& chart, const Sheet& sheet) {
    AppConfig config;
    ChartState state;
    const Status opened = OpenChart(folders_, chart, config, state);
    EXPECT_TRUE(opened) << (opened ? "" : opened.error().Text());
    return MakeChartView(state.chart, sheet.width, sheet.height);
  }

  const TempFolder folder_;
  const Folders folders_;
};

// The place of a point of a plane on WGS 84, by the library's own transformation.
Position PlaceOf(int epsg, double x, double y) {
  OGRSpatialReferenceH from = OSRNewSpatialReference(nullptr);
  OGRSpatialReferenceH to = OSRNewSpatialReference(nullptr);
  OSRImportFromEPSG(from, epsg);
  OSRImportFromEPSG(to, 4326);
  OSRSetAxisMappingStrategy(from, OAMS_TRADITIONAL_GIS_ORDER);
  OSRSetAxisMappingStrategy(to, OAMS_TRADITIONAL_GIS_ORDER);
  OGRCoordinateTransformationH change = OCTNewCoordinateTransformation(from, to);
  EXPECT_TRUE(OCTTransform(change, 1, &x, &y, nullptr));
  OCTDestroyCoordinateTransformation(change);
  OSRRelease(from);
  OSRRelease(to);
  return {static_cast<float>(y), static_cast<float>(x)};
}

// Every mark arrives where the view arithmetic looks for the place that the library gives it.
TEST_F(ChartImportTest, PositionsArriveWithinAPixelFromEveryProjection) {
  const double c = std::cos(0.2);
  const double s = std::sin(0.2);
  const struct {
    const char* name;
    Made made;
  } rows[] = {
      {"UTM 30 north", {32630, {430000, 20, 0, 5640000, 0, -20}}},
      {"UTM turned on the paper", {32630, {430000, 8 * c, 8 * s, 5640000, 8 * s, -8 * c}}},
      {"UTM 56 south, palette", {32756, {330000, 15, 0, 6260000, 0, -15}, Paint::kPalette}},
      {"LAEA of Europe", {3035, {3300000, 300, 0, 3200000, 0, -300}}},
      {"degrees, grey", {4326, {-6, 0.005, 0, 61, 0, -0.005}, Paint::kGrey}},
      {"degrees, rows upwards", {4326, {-6, 0.005, 0, 57, 0, 0.005}}},
      {"degrees of an old datum", {4277, {-2.1, 0.0002, 0, 50.9, 0, -0.0002}}},
      {"Mercator of the ellipsoid", {3395, {-700000, 1000, 0, 7000000, 0, -1000}}},
      {"fine Mercator of the ellipsoid", {3395, {-200000, 2, 0, 6500000, 0, -2}, Paint::kBits}},
      {"Mercator of the sphere", {3857, {-200000, 25, 0, 6600000, 0, -25}}},
      {"its rows not square", {3857, {-200000, 25, 0, 6600000, 0, -40}}},
      {"the same near a pole", {3857, {-200000, 90, 0, 15600000, 0, -90}, Paint::kGrey}},
      {"east of New Zealand", {3857, {19800000, 200, 0, -4000000, 0, -200}}},
      {"degrees up to 360", {4326, {187, 0.003, 0, -12, 0, -0.003}}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string path = folder_.File(std::string(row.name) + ".tif");
    MakeFile(path, row.made);
    ChartSourceInfo info;
    const std::string chart = Import(path, &info);
    ASSERT_FALSE(chart.starts_with("refused")) << chart;
    EXPECT_TRUE(info.placed);
    const Sheet sheet = ReadSheet(chart + ".l55");
    ASSERT_EQ(sheet.width, info.sheet.width);
    ASSERT_EQ(sheet.height, info.sheet.height);
    const ChartView view = ViewOf(chart, sheet);
    double worst = 0.0;
    int found = 0;
    for (const Spot& spot : Spots(kWidth, kHeight)) {
      const double x = spot.x + 0.5;
      const double y = spot.y + 0.5;
      const auto& a = row.made.affine;
      const Position place =
          PlaceOf(row.made.epsg, a[0] + x * a[1] + y * a[2], a[3] + x * a[4] + y * a[5]);
      const int column =
          view.LongToCol(place.longitude > 180 ? place.longitude - 360 : place.longitude);
      const int line = view.LatToRow(place.latitude);
      const auto middle = DarkMiddle(sheet, column, line);
      if (!middle) continue;
      ++found;
      worst =
          std::max({worst, std::fabs(middle->first - column), std::fabs(middle->second - line)});
    }
    EXPECT_EQ(found, static_cast<int>(Spots(kWidth, kHeight).size()));
    EXPECT_LT(worst, 1.0);
    EXPECT_EQ(sheet.bands, row.made.paint == Paint::kRgb ? 3 : 1);
    // The last rows too have their colours, and so has the preview.
    const Rgb light = row.made.paint == Paint::kRgb       ? Rgb{240, 220, 200}
                      : row.made.paint == Paint::kGrey    ? Rgb{240, 240, 240}
                      : row.made.paint == Paint::kPalette ? Rgb{200, 230, 255}
                                                          : Rgb{255, 255, 255};
    EXPECT_TRUE(sheet.Colour(sheet.width / 2 + 40, sheet.height - 40) == light ||
                sheet.Colour(sheet.width / 2 + 40, sheet.height - 40) == kPaper);
    EXPECT_EQ(sheet.Colour(sheet.width / 2 + 40, sheet.height * 3 / 4 + 60), light);
    const Sheet preview = ReadSheet(chart + ".tif");
    for (std::size_t i = 0; i < 3; ++i) {
      EXPECT_NEAR(preview.Colour(preview.width / 2 + 12, preview.height / 2 + 12)[i], light[i], 2);
    }
    // A pixel is as high as it is wide.
    const double middle = (info.bounds.north + info.bounds.south) / 2.0;
    const double high = (info.bounds.north - info.bounds.south) / sheet.height;
    const double wide = (info.bounds.east - info.bounds.west) / sheet.width;
    EXPECT_NEAR(high / std::cos(middle * M_PI / 180.0) / wide, 1.0, 0.02);
  }
}

TEST_F(ChartImportTest, AMercatorSheetIsTakenPixelForPixel) {
  const std::string path = folder_.File("plain.tif");
  MakeFile(path, {3857, {-200000, 25, 0, 6600000, 0, -25}, Paint::kGrey});
  const std::string chart = Import(path);
  const Sheet before = ReadSheet(path);
  const Sheet after = ReadSheet(chart + ".l55");
  EXPECT_EQ(after.width, kWidth);
  EXPECT_EQ(after.height, kHeight);
  EXPECT_EQ(before.pixels, after.pixels);
  const Sheet preview = ReadSheet(chart + ".tif");
  EXPECT_EQ(preview.width, 400);
  EXPECT_EQ(preview.height, 291);
  EXPECT_EQ(preview.bands, 3);
  EXPECT_NEAR(preview.At(200, 60), 240, 1);
}

TEST_F(ChartImportTest, WhatIsNoChartIsPaper) {
  // A palette without white gets one where it has room.
  const std::string turned = folder_.File("turned.png");
  MakeFile(turned, {0, {}, Paint::kPalette, 500, 300, "PNG"});
  folder_.Write("turned.pgw", "0.001\n0.001\n0.001\n-0.001\n-2.0\n50.9\n");
  const Sheet palette = ReadSheet(Import(turned) + ".l55");
  EXPECT_EQ(palette.Colour(2, 2), kPaper);
  const std::string path = folder_.File("half.tif");
  MakeFile(path, {32630, {430000, 20, 0, 5640000, 0, -20}, Paint::kAlpha});
  const Sheet sheet = ReadSheet(Import(path) + ".l55");
  EXPECT_EQ(sheet.bands, 3);
  EXPECT_EQ(sheet.Colour(2, 2), kPaper);                             // outside the turned sheet
  EXPECT_EQ(sheet.At(sheet.width / 4, sheet.height / 2 + 30), 255);  // transparent
  EXPECT_EQ(sheet.At(sheet.width * 3 / 4, sheet.height / 2 + 30), 240);
}

// A BSB/KAP chart of 16 colours whose rows are `pixels`, by its format: run lengths behind each
// row's number, then a table of the rows' places.
std::string KapOf(const std::string& header, int width, int height,
                  const std::function<int(int, int)>& pixel) {
  std::string file = header + "IFM/4\r\n" + std::string("\x1a\0\x04", 3);
  std::vector<std::size_t> places;
  const auto number = [&](int value) {
    if (value >= 128) file += static_cast<char>(0x80 | (value >> 7));
    file += static_cast<char>(value & 0x7f);
  };
  for (int y = 0; y < height; ++y) {
    places.push_back(file.size());
    number(y + 1);
    for (int x = 0; x < width;) {
      const int colour = pixel(x, y);
      int run = 1;
      while (x + run < width && pixel(x + run, y) == colour) ++run;
      x += run--;
      const int low = run & 0x7f;
      const int high = run >> 7;
      // The first byte has room for three bits of the run.
      if (run < 8) {
        file += static_cast<char>((colour << 3) | run);
      } else if (high < 8) {
        file += static_cast<char>(0x80 | (colour << 3) | high);
        file += static_cast<char>(low);
      } else {
        file += static_cast<char>(0x80 | (colour << 3) | (high >> 7));
        file += static_cast<char>(0x80 | (high & 0x7f));
        file += static_cast<char>(low);
      }
    }
    file += '\0';
  }
  places.push_back(file.size());
  for (const std::size_t place : places) {
    for (int shift = 24; shift >= 0; shift -= 8) file += static_cast<char>(place >> shift);
  }
  return file;
}

// A chart from 48 to 56 north on a Mercator sheet of the ellipsoid, with four reference points, a
// collar of 50 pixels and a border that leaves it out.
class KapChart : public ChartImportTest {
 protected:
  static constexpr int kAcross = 900;
  static constexpr int kDown = 1100;
  static constexpr double kWest = -500000.0;  // metres of EPSG:3395
  static constexpr double kTop = 7500000.0;
  static constexpr double kStep = 1400.0;

  static Position At(double x, double y) {
    return PlaceOf(3395, kWest + x * kStep, kTop - y * kStep);
  }
  static std::string Degrees(double x, double y) {
    const Position at = At(x, y);
    char text[64];
    std::snprintf(text, sizeof text, "%.7f,%.7f", at.latitude, at.longitude);
    return text;
  }
  std::string Header(const std::string& datum, const std::string& shift) const {
    std::string header =
        "!A chart for tests\r\nVER/3.0\r\nBSB/NA=BAY, EASTERN PART,NU=77,RA=900,1100,DU=254\r\n"
        "KNP/SC=1000000,GD=" +
        datum + ",PR=MERCATOR,\r\n    PP=52.0,PI=UNKNOWN,SP=UNKNOWN,SK=0.0,TA=90\r\n";
    int number = 0;
    const std::pair<int, int> corners[] = {{50, 50}, {849, 50}, {849, 1049}, {50, 1049}};
    for (const auto& [x, y] : corners) {
      header += "REF/" + std::to_string(++number) + "," + std::to_string(x) + "," +
                std::to_string(y) + "," + Degrees(x + 0.5, y + 0.5) + "\r\n";
    }
    number = 0;
    for (const auto& [x, y] : corners) {
      header += "PLY/" + std::to_string(++number) + "," + Degrees(x, y) + "\r\n";
    }
    return header + shift + "RGB/1,200,220,255\r\nRGB/2,0,0,0\r\nRGB/3,255,0,0\r\n";
  }
  // Sea with black marks, and red on the collar.
  std::string Write(const std::string& datum = "WGS84", const std::string& shift = "") const {
    const std::vector<std::uint8_t> painted = Painted(kAcross, kDown, 1, 1, 2);
    return folder_.Write(
        "chart.kap", KapOf(Header(datum, shift), kAcross, kDown, [&](int x, int y) {
          if (x < 50 || y < 50 || x >= 849 || y >= 1049) return 3;
          return static_cast<int>(painted[static_cast<std::size_t>(y * kAcross + x)]);
        }));
  }
  // Every mark arrives, so many seconds north and east of where the reference points alone put it.
  void ExpectMarks(const std::string& chart, double north, double east) {
    const Sheet sheet = ReadSheet(chart + ".l55");
    const ChartView view = ViewOf(chart, sheet);
    int found = 0;
    for (const Spot& spot : Spots(kAcross, kDown)) {
      if (spot.x < 60 || spot.y < 60 || spot.x > 840 || spot.y > 1040) continue;
      const Position place = At(spot.x + 0.5, spot.y + 0.5);
      const int column = view.LongToCol(static_cast<float>(place.longitude + east / 3600.0));
      const int line = view.LatToRow(static_cast<float>(place.latitude + north / 3600.0));
      const auto middle = DarkMiddle(sheet, column, line);
      ASSERT_TRUE(middle);
      ++found;
      EXPECT_NEAR(middle->first, column, 1.0);
      EXPECT_NEAR(middle->second, line, 1.0);
    }
    EXPECT_GE(found, 12);
  }
};

TEST_F(KapChart, HeaderCollarAndPositions) {
  ChartSourceInfo info;
  const std::string chart = Import(Write(), &info);
  ASSERT_FALSE(chart.starts_with("refused")) << chart;
  EXPECT_EQ(info.kind, "BSB/KAP");
  EXPECT_EQ(info.title, "BAY, EASTERN PART");
  EXPECT_EQ(info.scale, 1000000.0);
  EXPECT_TRUE(info.scale_is_told);
  EXPECT_TRUE(info.notes.empty());
  const Sheet sheet = ReadSheet(chart + ".l55");
  EXPECT_NEAR(sheet.width, 800, 3);
  EXPECT_EQ(sheet.bands, 1);
  int red = 0;
  for (int y = 3; y < sheet.height - 3; ++y) {
    for (int x = 3; x < sheet.width - 3; ++x) red += sheet.At(x, y) == 255 ? 1 : 0;
  }
  EXPECT_EQ(red, 0);
  ExpectMarks(chart, 0.0, 0.0);
}

// Two minutes to the north and one to the west, about 2.6 pixels and 1.3; edges lie on whole
// pixels.
TEST_F(KapChart, TheShiftOfItsDatumIsApplied) {
  ChartSourceInfo plain;
  ChartSourceInfo shifted;
  ChartSourceInfo untold;
  (void)Import(Write(), &plain);
  ExpectMarks(Import(Write("EUROPEAN 1950", "DTM/120.0,-60.0\r\n"), &shifted), 120.0, -60.0);
  (void)Import(Write("EUROPEAN 1950"), &untold);
  EXPECT_NEAR(shifted.bounds.north - plain.bounds.north, 120.0 / 3600.0, 0.004);
  EXPECT_NEAR(shifted.bounds.west - plain.bounds.west, -60.0 / 3600.0, 0.004);
  ASSERT_EQ(shifted.notes.size(), 1U);
  EXPECT_NE(shifted.notes[0].find("shift"), std::string::npos);
  ASSERT_EQ(untold.notes.size(), 1U);
  EXPECT_NE(untold.notes[0].find("EUROPEAN 1950"), std::string::npos);
}

TEST_F(KapChart, AWrongHeaderIsRefused) {
  const std::string good = FileBytes(Write());
  std::string bad = good;
  bad.replace(bad.find("RA=900,1100"), 11, "RA=0,-11000");
  const std::string path = folder_.Write("bad.kap", bad);
  EXPECT_TRUE(Import(path).starts_with("refused: " + path)) << Import(path);
  const std::string empty = folder_.Write("empty.kap", "");
  EXPECT_TRUE(Import(empty).starts_with("refused: " + empty + ": this is no chart"));
  // Cut in its rows: refused or its rest is missing, but nothing half made is left.
  const std::string cut = folder_.Write("cut.kap", good.substr(0, good.size() * 2 / 3));
  const std::string chart = Import(cut);
  EXPECT_TRUE(chart.starts_with("refused: " + cut)) << chart;
  EXPECT_FALSE(std::filesystem::exists(folder_.File("documents/SkerrowHelm/Charts/1001-1.l55")));
}

TEST_F(ChartImportTest, AScanComesAsItIs) {
  const std::string path = folder_.File("scan.png");
  MakeFile(path, {0, {}, Paint::kPalette, 500, 300, "PNG"});
  ChartSourceInfo info;
  const std::string chart = Import(path, &info);
  EXPECT_FALSE(info.placed);
  EXPECT_EQ(info.title, "scan");
  ASSERT_EQ(info.notes.size(), 1U);
  EXPECT_NE(info.notes[0].find("calibrate it"), std::string::npos);
  const Sheet sheet = ReadSheet(chart + ".l55");
  EXPECT_EQ(sheet.pixels, ReadSheet(path).pixels);
  // A world file in degrees places it; one in metres of nobody knows what does not.
  folder_.Write("scan.pgw", "0.001\n0\n0\n-0.001\n-2.0\n50.9\n");
  (void)Import(path, &info);
  EXPECT_TRUE(info.placed);
  EXPECT_NEAR(info.bounds.west, -2.0005, 1e-4);
  EXPECT_NEAR(info.bounds.north, 50.9005, 1e-4);
  folder_.Write("scan.pgw", "20\n0\n0\n-20\n430000\n5640000\n");
  (void)Import(path, &info);
  EXPECT_FALSE(info.placed);
  EXPECT_NE(info.notes[0].find("does not say of which projection"), std::string::npos);
}

TEST_F(ChartImportTest, RefusalsNameTheFile) {
  const std::string crossing = folder_.File("fiji.tif");
  MakeFile(crossing, {32760, {590000, 500, 0, 8200000, 0, -500}});
  const std::string over = folder_.File("over.tif");
  MakeFile(over, {4326, {179, 0.01, 0, -12, 0, -0.01}});
  const std::string pole = folder_.File("pole.tif");
  MakeFile(pole, {3413, {-500000, 1000, 0, 500000, 0, -1000}});
  for (const std::string& path : {crossing, over, pole}) {
    EXPECT_TRUE(Import(path).starts_with("refused: " + path + ": the chart crosses the 180th"))
        << Import(path);
  }
  EXPECT_EQ(Import("none.tif"), "refused: none.tif: the file does not exist");
  EXPECT_TRUE(Import("/vsicurl/http://localhost/a.tif").find("does not exist") !=
              std::string::npos);
  EXPECT_EQ(Import(folder_.path()), "refused: " + folder_.path() + ": this is not a file");
  const std::string text = folder_.Write("chart.vrt", "<VRTDataset rasterXSize=\"9\"/>");
  EXPECT_TRUE(Import(text).find("this is no chart") != std::string::npos);
  const std::string deep = folder_.File("deep.tif");
  GDALAllRegister();
  GDALClose(GDALCreate(GDALGetDriverByName("GTiff"), deep.c_str(), 9, 9, 1, GDT_UInt16, nullptr));
  EXPECT_TRUE(Import(deep).find("8 bits a colour") != std::string::npos);
}

TEST_F(ChartImportTest, AFailureOnTheWayLeavesNothing) {
  const std::string path = folder_.File("utm.tif");
  MakeFile(path, {32630, {430000, 20, 0, 5640000, 0, -20}});
  const std::string own = folder_.File("documents/SkerrowHelm/Charts");
  const auto left = [&] {
    return std::distance(std::filesystem::directory_iterator(own),
                         std::filesystem::directory_iterator{});
  };
  // Cut in the middle of its pixels.
  const std::string bytes = FileBytes(path);
  const std::string cut = folder_.Write("cut.tif", bytes.substr(0, bytes.size() / 2));
  EXPECT_TRUE(Import(cut).starts_with("refused: " + cut)) << Import(cut);
  EXPECT_EQ(left(), 0);
  std::string told;
  testing::OnFullDisk(4000, [&] { told = Import(path); });
  EXPECT_TRUE(told.starts_with("refused: ")) << told;
  EXPECT_EQ(left(), 0);
  // Stopped at each of its steps.
  class StopAt final : public Progress {
   public:
    bool Step(double percent) override {
      EXPECT_GE(percent, last);
      last = percent;
      return percent < limit;
    }
    double limit = 0.0;
    double last = 0.0;
  };
  for (const double limit : {0.0, 30.0, 99.0}) {
    auto source = OpenChartSource(path);
    ASSERT_TRUE(source);
    StopAt stop;
    stop.limit = limit;
    const auto chart = ImportChart(folders_, **source, {"Area", "k", "Test", 50000}, stop);
    ASSERT_FALSE(chart);
    EXPECT_EQ(chart.error().reason, kImportCancelled);
    EXPECT_EQ(left(), 0) << limit;
  }
}

TEST_F(ChartImportTest, ATooLargeChartIsReduced) {
  const std::string path = folder_.File("large.tif");
  MakeFile(path, {32630, {430000, 20, 0, 5640000, 0, -20}, Paint::kGrey, 3000, 2400});
  ChartSourceInfo info;
  const std::string chart = Import(path, &info, 1'000'000);
  ASSERT_FALSE(chart.starts_with("refused")) << chart;
  EXPECT_LE(std::int64_t{info.sheet.width} * info.sheet.height, 1'000'000);
  EXPECT_GE(std::int64_t{info.sheet.width} * info.sheet.height, 950'000);
  ASSERT_EQ(info.notes.size(), 1U);
  EXPECT_NE(info.notes[0].find("3000 x 2400 pixels"), std::string::npos);
  // The largest there is: nothing of it is read to find that out.
  const std::string huge = folder_.File("huge.tif");
  GDALAllRegister();
  char** options = CSLSetNameValue(nullptr, "SPARSE_OK", "YES");
  options = CSLSetNameValue(options, "TILED", "YES");
  GDALDatasetH file =
      GDALCreate(GDALGetDriverByName("GTiff"), huge.c_str(), 40000, 40000, 3, GDT_Byte, options);
  CSLDestroy(options);
  std::array<double, 6> affine = {430000, 1, 0, 5640000, 0, -1};
  GDALSetGeoTransform(file, affine.data());
  OGRSpatialReferenceH system = OSRNewSpatialReference(nullptr);
  OSRImportFromEPSG(system, 32630);
  GDALSetSpatialRef(file, system);
  OSRRelease(system);
  GDALClose(file);
  const auto source = OpenChartSource(huge);
  ASSERT_TRUE(source);
  const ChartSheet& sheet = (*source)->info().sheet;
  EXPECT_LE(std::int64_t{sheet.width} * sheet.height, kMaxSheetPixels);
  EXPECT_GE(std::int64_t{sheet.width} * sheet.height, kMaxSheetPixels / 100 * 99);
}

TEST_F(ChartImportTest, ThePreviewShowsTheFile) {
  const std::string path = folder_.File("utm.tif");
  MakeFile(path, {32630, {430000, 20, 0, 5640000, 0, -20}, Paint::kPalette});
  const auto source = OpenChartSource(path);
  ASSERT_TRUE(source);
  NoProgress progress;
  const Result<RgbPicture> picture = (*source)->Preview(220, progress);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->width, 220);
  EXPECT_EQ(picture->height, 160);
  EXPECT_EQ(picture->pixels[3 * 100], 200);
  EXPECT_EQ(picture->pixels[3 * 100 + 1], 230);
  EXPECT_EQ(picture->pixels[3 * 100 + 2], 255);
}

}  // namespace
}  // namespace skerrow
