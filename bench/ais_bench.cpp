#include <benchmark/benchmark.h>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "instruments/ais_decoder.h"
#include "instruments/ais_targets.h"

// AIS as a busy receiver brings it: the decoder alone, and the table of targets at 4,000 of them.
namespace {

using namespace skerrow;  // NOLINT: this file is a program

constexpr std::int32_t kTargets = 4000;

std::vector<std::string> SampleSentences() {
  std::ifstream file(SKERROW_SOURCE_DIR "/program/Samples/Channel crossing.nmea");
  std::vector<std::string> sentences;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("!AIVDM")) sentences.push_back(line);
  }
  return sentences;
}

// The sample log: nine of ten messages are position reports.
void Decode(benchmark::State& state) {
  const std::vector<std::string> sentences = SampleSentences();
  const AisDecoderOptions options{state.range(0) != 0};
  AisAssembly assembly;
  std::size_t at = 0;
  for (auto unused : state) {
    const AisMessage message = DecodeAivdm(sentences[at], options, assembly);
    if (!message.good) state.SkipWithError("not good");
    benchmark::DoNotOptimize(message);
    if (++at == sentences.size()) at = 0;
  }
}
BENCHMARK(Decode)->ArgName("standard")->Arg(0)->Arg(1);

AisPositionReport Report(std::int32_t mmsi, std::mt19937& random) {
  std::uniform_real_distribution<float> degrees(0.0F, 1.0F);
  return {1,
          200000000 + mmsi,
          Position{50.0F + degrees(random), -2.0F + degrees(random)},
          360.0F * degrees(random),
          20.0F * degrees(random),
          0};
}

AisTargets ManyTargets(std::mt19937& random) {
  AisTargets targets;
  for (std::int32_t i = 0; i < kTargets; ++i) {
    targets.UpdateAisPosition(Report(i, random), {}, 12.0F);
  }
  return targets;
}

// A report among 4,000 targets, with ageing; each target reports every ten seconds.
void ReportAndAge(benchmark::State& state) {
  std::mt19937 random(1);
  AisTargets targets = ManyTargets(random);
  std::vector<AisPositionReport> reports;
  for (std::int32_t i = 0; i < kTargets; ++i) reports.push_back(Report(i, random));
  double clock = 12.0;
  std::size_t at = 0;
  for (auto unused : state) {
    clock += 10.0 / 3600.0 / kTargets;
    if (clock >= 24.0) clock -= 24.0;
    targets.UpdateAisPosition(reports[at], {}, static_cast<float>(clock));
    if (++at == reports.size()) at = 0;
  }
  if (targets.All().size() != kTargets) state.SkipWithError("targets are lost");
}
BENCHMARK(ReportAndAge);

// The report that finds some of the 4,000 silent and takes them out.
void TakeOutSilent(benchmark::State& state) {
  std::mt19937 random(2);
  const AisTargets full = [&] {
    AisTargets targets = ManyTargets(random);
    for (std::int32_t i = 0; i < kTargets; i += 2) {
      targets.UpdateAisPosition(Report(i, random), {}, 12.1F);
    }
    return targets;
  }();
  for (auto unused : state) {
    state.PauseTiming();
    AisTargets targets = full;
    state.ResumeTiming();
    targets.UpdateAisPosition(Report(0, random), {}, 12.4F);
    if (targets.All().size() != kTargets / 2) state.SkipWithError("not half");
  }
}
BENCHMARK(TakeOutSilent)->Unit(benchmark::kMicrosecond);

void ClosestApproaches(benchmark::State& state) {
  std::mt19937 random(3);
  AisTargets targets = ManyTargets(random);
  for (auto unused : state) {
    ComputeCpa({{50.5F, -1.5F}, 6.0F, 180.0F}, targets);
    benchmark::DoNotOptimize(targets.All().data());
  }
}
BENCHMARK(ClosestApproaches)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
