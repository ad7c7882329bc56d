// The import of a chart of 20,000 x 15,000 pixels on UTM: time and memory, beside those of gdalwarp
// for the same file.
//   import_bench make FILE.tif     makes the chart: 900 MB, coasts and the grain of a scan
//   import_bench run FILE.tif DIR  imports it into the folder DIR
//   /usr/bin/time -v gdalwarp -t_srs EPSG:3857 -r bilinear FILE.tif OUT.tif
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <gdal.h>
#include <ogr_srs_api.h>
#include <string>
#include <sys/resource.h>
#include <vector>

#include "charts/chart_library.h"
#include "platform/chart_import.h"

namespace {

using namespace skerrow;  // NOLINT: this file is a program

constexpr int kWidth = 20000;
constexpr int kHeight = 15000;

int Make(const char* path) {
  GDALAllRegister();
  GDALDatasetH file =
      GDALCreate(GDALGetDriverByName("GTiff"), path, kWidth, kHeight, 3, GDT_Byte, nullptr);
  if (file == nullptr) return 1;
  double place[] = {400000.0, 10.0, 0.0, 5700000.0, 0.0, -10.0};
  GDALSetGeoTransform(file, place);
  OGRSpatialReferenceH utm = OSRNewSpatialReference(nullptr);
  OSRImportFromEPSG(utm, 32630);
  GDALSetSpatialRef(file, utm);
  OSRRelease(utm);
  std::vector<std::uint8_t> row(std::size_t{3} * kWidth);
  std::uint32_t grain = 1;
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      const double land = std::sin(x / 900.0) + std::sin(y / 700.0) + std::sin((x + y) / 310.0);
      const bool line = std::fabs(land - 0.6) < 0.01 || x % 1000 < 3 || y % 1000 < 3;
      const std::uint8_t colours[][3] = {{214, 235, 250}, {250, 238, 196}, {30, 30, 30}};
      const auto& colour = colours[line ? 2 : land > 0.6 ? 1 : 0];
      grain = grain * 1664525U + 1013904223U;
      const auto noise = static_cast<std::uint8_t>((grain >> 28) % 4);
      for (std::size_t band = 0; band < 3; ++band) {
        row[3 * static_cast<std::size_t>(x) + band] =
            static_cast<std::uint8_t>(colour[band] - noise);
      }
    }
    if (GDALDatasetRasterIO(file, GF_Write, 0, y, kWidth, 1, row.data(), kWidth, 1, GDT_Byte, 3,
                            nullptr, 3, 3 * kWidth, 1) != CE_None) {
      return 1;
    }
  }
  GDALClose(file);
  return 0;
}

int Run(const char* path, const char* folder) {
  const auto start = std::chrono::steady_clock::now();
  const Folders folders{folder, folder, folder};
  const auto source = OpenChartSource(path);
  if (!source) {
    std::fprintf(stderr, "%s\n", source.error().Text().c_str());
    return 1;
  }
  NoProgress progress;
  const auto chart =
      ImportChart(folders, **source, {"Bench", FreeChartKey(folders), "Bench", 100000}, progress);
  if (!chart) {
    std::fprintf(stderr, "%s\n", chart.error().Text().c_str());
    return 1;
  }
  const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  std::printf("%.1f s, processor %.1f + %.1f s, at most %ld MB, picture %.1f MB\n", wall.count(),
              seconds(usage.ru_utime), seconds(usage.ru_stime), usage.ru_maxrss / 1024,
              static_cast<double>(std::filesystem::file_size(*chart + ".l55")) / 1e6);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string what = argc > 2 ? argv[1] : "";
  if (what == "make") return Make(argv[2]);
  if (what == "run" && argc > 3) return Run(argv[2], argv[3]);
  std::fprintf(stderr, "import_bench make FILE.tif | run FILE.tif DIR\n");
  return 2;
}
