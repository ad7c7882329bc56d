#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <random>
#include <string>

#include "core/plane_sailing.h"
#include "passage/optimum.h"
#include "reference/plain_passage.h"
#include "support/sample_tides.h"
#include "tides/heights.h"

// The engine's fast forms beside the plain ones, on a sea of 300 diamonds and 10 reference ports.
// The plain search is measured over all 24 departures too, so that the ratio is of like and like.
namespace {

using namespace skerrow;           // NOLINT: this file is a program
using namespace skerrow::testing;  // NOLINT

constexpr DayAndYear kDate = {150, 2026};
constexpr int kDepartures = 24;

struct Sea {
  std::vector<Port> ports;
  std::vector<Diamond> diamonds;
  TideState state;
  RouteState route;
};

// A zigzag of six legs of 15 nm, 5 knots, through the middle of the diamonds.
Sea MakeSea() {
  std::mt19937 random(42);
  Sea sea;
  for (int i = 0; i < 10; ++i) sea.ports.push_back(RandomPort(random, "P" + std::to_string(i)));
  sea.diamonds = RandomDiamonds(random, 300, 10);
  sea.state = MadeTides(sea.diamonds, sea.ports, kDate);
  Position place{50.4F, -3.4F};
  for (int i = 0; i <= 6; ++i) {
    RoutePoint point;
    point.latitude = place.latitude;
    point.longitude = place.longitude;
    point.speed = 5.0F;
    sea.route.points.push_back(point);
    place = MoveByMiles(place, Resolve(i % 2 == 0 ? 100.0F : 160.0F, 15.0F));
  }
  RelinkRoute(sea.route.points);
  return sea;
}

const Sea& TheSea() {
  static const Sea sea = MakeSea();
  return sea;
}

class Silent final : public Messages {
 public:
  void Show(std::string_view, MessageIcon, std::string_view) override {}
  bool Ask(std::string_view, std::string_view) override { return true; }
};

void PlainSearch(benchmark::State& bench) {
  const Sea& sea = TheSea();
  for ([[maybe_unused]] auto _ : bench) {
    reference::PlainTides tides(sea.diamonds, sea.state.ref_ports, sea.ports, false);
    for (int hour = 0; hour < kDepartures; ++hour) {
      float time = static_cast<float>(hour);
      DayAndYear date = kDate;
      for (std::size_t i = 0; i + 1 < sea.route.points.size(); ++i) {
        const RoutePoint& point = sea.route.points[i];
        const LegSolution leg = reference::PlainCourseToSteer(
            tides, {point.At(), point.Next(), point.speed, time, date}, {});
        const LaterTime arrival = AddHours(date, time, leg.result.passage_time);
        time = arrival.hours;
        date = arrival.date;
      }
      benchmark::DoNotOptimize(time);
    }
  }
}
BENCHMARK(PlainSearch)->Unit(benchmark::kMillisecond)->Iterations(1);

void FastSearch(benchmark::State& bench) {
  Sea sea = TheSea();
  AppConfig config;
  PassageState passage;
  Silent messages;
  NoProgress progress;
  OptimumRequest request;
  request.date = kDate;
  request.threads = static_cast<unsigned>(bench.range(0));
  const TideDays unbuilt = MadeTides(sea.diamonds, sea.ports, kDate).days;
  for ([[maybe_unused]] auto _ : bench) {
    sea.state.days = unbuilt;
    SearchDeparture(request, config, sea.state, sea.route, passage, messages, progress);
  }
}
BENCHMARK(FastSearch)
    ->Name("FastSearch")
    ->ArgName("threads")
    ->Arg(1)
    ->Arg(2)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

std::vector<Position> Places() {
  std::mt19937 random(7);
  std::uniform_real_distribution<float> latitude(48.6F, 50.9F);
  std::uniform_real_distribution<float> longitude(-4.8F, 1.4F);
  std::vector<Position> places;
  for (int i = 0; i < 4096; ++i) places.push_back({latitude(random), longitude(random)});
  return places;
}

void PlainReading(benchmark::State& bench) {
  const Sea& sea = TheSea();
  reference::PlainTides tides(sea.diamonds, sea.state.ref_ports, sea.ports, false);
  const std::vector<Position> places = Places();
  std::size_t i = 0;
  float rate = 0;
  float direction = 0;
  int slot = 0;
  std::string label;
  for ([[maybe_unused]] auto _ : bench) {
    const Position place = places[i++ % places.size()];
    tides.CalculateTidalStreams(place.latitude, place.longitude,
                                static_cast<float>(i % 240) / 10.0F, kDate.day, kDate.year, rate,
                                direction, slot, label);
    benchmark::DoNotOptimize(rate);
  }
}
BENCHMARK(PlainReading);

void FastReading(benchmark::State& bench) {
  StreamReader reader(TheSea().state);
  const std::vector<Position> places = Places();
  std::size_t i = 0;
  StreamReading reading;
  for ([[maybe_unused]] auto _ : bench) {
    const Position place = places[i++ % places.size()];
    reader.CalculateTidalStreams(place, static_cast<float>(i % 240) / 10.0F, kDate, reading);
    benchmark::DoNotOptimize(reading.rate);
  }
}
BENCHMARK(FastReading);

void ThreeDaysOfOnePort(benchmark::State& bench) {
  const std::vector<std::shared_ptr<const Port>> port = {
      std::make_shared<const Port>(TheSea().ports.front())};
  for ([[maybe_unused]] auto _ : bench) {
    TideDays days(port, false);
    benchmark::DoNotOptimize(days.Get(kDate));
  }
}
BENCHMARK(ThreeDaysOfOnePort)->Unit(benchmark::kMicrosecond);

void YearOfHighAndLowWaters(benchmark::State& bench) {
  const Port& port = TheSea().ports.front();
  std::size_t waters = 0;
  for ([[maybe_unused]] auto _ : bench) {
    waters = 0;
    for (int day = 1; day <= 365; ++day) {
      MonthDate date;
      DayOfYearToDate(day, 2026, date);
      waters += PredictHeights(port, day, date.month, 2026, false).waters.size();
    }
  }
  bench.counters["waters"] = static_cast<double>(waters);
}
BENCHMARK(YearOfHighAndLowWaters)->Unit(benchmark::kMillisecond);

// Keeps the times, so that the ratios can be printed behind the table.
class Reporter final : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      seconds_[run.benchmark_name()] =
          run.real_accumulated_time / static_cast<double>(run.iterations);
    }
  }
  double Seconds(const std::string& name) const {
    for (const auto& [key, value] : seconds_) {
      if (key.starts_with(name)) return value;
    }
    return 0.0;
  }

 private:
  std::map<std::string, double> seconds_;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  Reporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  const double search = reporter.Seconds("PlainSearch");
  if (search > 0.0) {
    std::printf("\nplain search / fast search on one thread: %.0f\n",
                search / reporter.Seconds("FastSearch/threads:1"));
    std::printf("plain reading / fast reading: %.0f\n",
                reporter.Seconds("PlainReading") / reporter.Seconds("FastReading"));
  }
  return 0;
}
