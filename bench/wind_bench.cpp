#include <benchmark/benchmark.h>
#include <cmath>
#include <random>
#include <string>

#include "core/messages.h"
#include "core/progress.h"
#include "reference/plain_wind.h"
#include "wind/grib.h"
#include "wind/polar.h"
#include "wind/wind_store.h"

// The wind's fast forms beside the plain ones: a message of a million points, a store of a million
// records, and an estimate from a polar.
namespace {

using namespace skerrow;  // NOLINT: this file is a program

constexpr DayAndYear kDate = {339, 2026};

// A message of 1,000 by 1,000 points, 12 bits each.
std::string MillionPoints() {
  constexpr int kSide = 1000;
  const auto word = [](std::string& into, unsigned value, int octets) {
    for (int i = octets - 1; i >= 0; --i) into.push_back(static_cast<char>(value >> 8 * i));
  };
  std::string product;
  word(product, 28, 3);
  for (const int octet :
       {2, 255, 255, 255, 128, 33, 105, 0, 10, 26, 12, 5, 0, 0, 1, 6, 0, 0, 0, 0, 0, 21, 0, 0, 2}) {
    product.push_back(static_cast<char>(octet));
  }
  std::string grid;
  word(grid, 32, 3);
  for (const int octet : {0, 255, 0}) grid.push_back(static_cast<char>(octet));
  word(grid, kSide, 2);
  word(grid, kSide, 2);
  word(grid, 52000, 3);
  word(grid, 0x800000U | 10000U, 3);
  grid.push_back(static_cast<char>(128));
  word(grid, 42010, 3);
  word(grid, 0x800000U | 10U, 3);
  word(grid, 10, 2);
  word(grid, 10, 2);
  grid += std::string(5, '\0');
  std::string data;
  const unsigned octets = kSide * kSide * 12 / 8;
  word(data, 11 + octets, 3);
  for (const int octet : {0, 0, 0, 0xC3, 0x3E, 0x80, 0, 12}) {
    data.push_back(static_cast<char>(octet));
  }
  std::mt19937 random(1);
  for (unsigned i = 0; i < octets; ++i) data.push_back(static_cast<char>(random()));
  return "GRIB" + std::string("\0\0\0\1", 4) + product + grid + data + "7777";
}

void DecodeMillionPoints(benchmark::State& state) {
  const std::string content = MillionPoints();
  NoMessages messages;
  NoProgress progress;
  for (auto unused : state) {
    const GribFile file = DecodeGrib(content, messages, progress);
    if (!file.whole || file.records[0].values.size() != 1000000) state.SkipWithError("not whole");
    benchmark::DoNotOptimize(file);
  }
  state.counters["ns_a_point"] = benchmark::Counter(
      1e6, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(DecodeMillionPoints)->Unit(benchmark::kMillisecond);

// 40 times of 158 by 159 points.
std::vector<WindCell> MillionRecords() {
  std::mt19937 random(2);
  std::vector<WindCell> cells(1);
  for (int frame = 0; frame < 40; ++frame) {
    for (int j = 0; j < 158; ++j) {
      for (int i = 0; i < 159; ++i) {
        cells.push_back({9835.0F + static_cast<float>(frame) / 8, static_cast<float>(70 - 0.25 * j),
                         static_cast<float>(-20 + 0.25 * i), static_cast<float>(random() % 40),
                         static_cast<float>(random() % 360)});
      }
    }
  }
  return cells;
}

Position AnyPlace(std::mt19937& random) {
  std::uniform_real_distribution<float> latitude(32.0F, 69.0F);
  std::uniform_real_distribution<float> longitude(-19.0F, 18.0F);
  return {latitude(random), longitude(random)};
}

void FindWindPlain(benchmark::State& state) {
  const std::vector<WindCell> cells = MillionRecords();
  std::mt19937 random(3);
  for (auto unused : state) {
    benchmark::DoNotOptimize(reference::PlainFindWind(cells, AnyPlace(random), kDate,
                                                      static_cast<float>(random() % 24)));
  }
}
BENCHMARK(FindWindPlain)->Unit(benchmark::kMicrosecond);

void FindWind(benchmark::State& state) {
  const WindStore store(MillionRecords());
  std::mt19937 random(3);
  for (auto unused : state) {
    benchmark::DoNotOptimize(
        store.Find(AnyPlace(random), kDate, static_cast<float>(random() % 24)));
  }
}
BENCHMARK(FindWind)->Unit(benchmark::kMicrosecond);

void BuildStore(benchmark::State& state) {
  const std::vector<WindCell> cells = MillionRecords();
  for (auto unused : state) benchmark::DoNotOptimize(WindStore(cells));
}
BENCHMARK(BuildStore)->Unit(benchmark::kMillisecond);

void Estimate(benchmark::State& state) {
  PolarRows rows;
  for (int angle = 30; angle <= 180; angle += 5) {
    PolarRow& row = rows.emplace_back();
    for (auto& cell : row) cell = std::to_string(angle / 20.0);
    row[0] = std::to_string(angle);
  }
  const PolarTable table(rows);
  double angle = 40;
  for (auto unused : state) {
    benchmark::DoNotOptimize(table.Estimate(11.0, angle, 40.0));
    angle = angle < 170 ? angle + 0.7 : 40;
  }
}
BENCHMARK(Estimate);

}  // namespace

BENCHMARK_MAIN();
