// gpx_bench: a GPX document of 100,000 track points, a day at one a second, written, read and taken
// as a plot file.

#include <benchmark/benchmark.h>
#include <cmath>

#include "exchange/gpx.h"
#include "platform/gpx_reader.h"

namespace {

using namespace skerrow;  // NOLINT: this file is a program

GpxDocument LongTrack() {
  constexpr int kPoints = 100000;
  constexpr double kBegin = 1796452220.0;
  GpxLine line{"Day", {}, 0};
  for (int i = 0; i < kPoints; ++i) {
    const auto turn = static_cast<float>(i) / 1000.0F;
    line.points.push_back(
        {{50.0F + std::sin(turn), -1.5F + std::cos(turn)}, "", "", kBegin + i, std::nullopt, ""});
  }
  GpxDocument document;
  document.tracks.push_back(std::move(line));
  return document;
}

void Export(benchmark::State& state) {
  const GpxDocument document = LongTrack();
  std::size_t bytes = 0;
  for (auto _ : state) bytes = WriteGpx(document).size();
  state.counters["bytes"] = static_cast<double>(bytes);
}

void Import(benchmark::State& state) {
  const std::string text = WriteGpx(LongTrack());
  for (auto _ : state) {
    const Result<GpxDocument> read = ReadGpx(text);
    Taken taken;
    const auto records = PlotOfGpx(read->tracks.front(), kMostTrackPoints, taken);
    benchmark::DoNotOptimize(records.data());
  }
  state.counters["bytes"] = static_cast<double>(text.size());
}

BENCHMARK(Export)->Unit(benchmark::kMillisecond);
BENCHMARK(Import)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
