#include "tides/tide_day.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "core/text.h"

namespace skerrow {
namespace {

using Heights = std::array<float, kDaySamples + 1>;

// Days kept before the store is emptied: a long passage needs two or three at a time.
constexpr std::size_t kDaysKept = 12;

// Minutes of a sample's clock text, as the texts of the day's waters have it.
int ClockMinutes(int sample) {
  const std::string clock = HoursToClock(SampleHours(sample));
  return static_cast<int>(TextToNumber(clock.substr(0, 2)) * 60 + TextToNumber(clock.substr(3)));
}

TidePhase Before(int minutes) {
  if (minutes > 390) return {-6, 59};
  const int slot = minutes <= 30 ? 0 : -((minutes - 31) / 60 + 1);
  const int left = minutes <= 30 ? minutes + 30 : (minutes - 31) % 60 + 1;
  // A full hour left is the end of the slot before.
  if (left == 60) return {static_cast<std::int8_t>(slot - 1), 0};
  return {static_cast<std::int8_t>(slot), static_cast<std::int8_t>(left)};
}

TidePhase After(int minutes) {
  if (minutes > 390) return {6, 59};
  const int slot = minutes <= 30 ? 0 : (minutes - 31) / 60 + 1;
  return {static_cast<std::int8_t>(slot), static_cast<std::int8_t>(30 + 60 * slot - minutes)};
}

// The high and low waters of the loaded day, their heights to one decimal.
std::vector<Water> WatersOf(const Heights& h) {
  std::vector<Water> waters;
  for (std::size_t i = 143; i <= 286 && waters.size() < kMaxWaters; ++i) {
    const bool low = h[i] > h[i + 1] && h[i + 1] < h[i + 2];
    const bool high = h[i] < h[i + 1] && h[i + 2] < h[i + 1];
    if (!low && !high) continue;
    const auto height = static_cast<float>(
        static_cast<double>(RoundToInteger(static_cast<double>(h[i + 1]) * 10.0)) / 10.0);
    waters.push_back({high, SampleHours(static_cast<int>(i) + 1), height});
  }
  return waters;
}

void FillPhases(PortTides& port) {
  for (int ten = 0; ten <= 144; ++ten) {
    const TideReference reference = LocateHighWater(port.heights, ten * 10);
    port.reference[static_cast<std::size_t>(ten)] = reference;
    if (reference.high_water_sample == 0) continue;
    const int high_water_minute = ClockMinutes(reference.high_water_sample);
    for (int minute = ten * 10; minute < ten * 10 + 10 && minute <= 1440; ++minute) {
      port.phase[static_cast<std::size_t>(minute)] = PhaseAt(minute, high_water_minute);
    }
  }
}

}  // namespace

float SampleHours(int sample) {
  const int entry = sample <= 144 ? sample : sample <= 288 ? sample - 144 : sample - 288;
  return static_cast<float>((entry - 1) / 6.0);
}

int MinuteOfDay(float hours) {
  const double whole = WholePart(hours);
  const std::int64_t minute = RoundToInteger(whole * 60.0) + RoundToInteger((hours - whole) * 60.0);
  return static_cast<int>(std::clamp<std::int64_t>(minute, 0, 1440));
}

TideReference LocateHighWater(const Heights& heights, int minute) {
  const auto h = [&](int i) { return heights[static_cast<std::size_t>(i)]; };
  const int start = minute / 10 + kFirstSample;
  TideReference found;
  for (int i = start; i <= start + 36; ++i) {
    if (h(i) < h(i + 1) && h(i + 2) < h(i + 1)) {
      found.high_water_sample = static_cast<std::int16_t>(i + 1);
    }
  }
  for (int i = start + 2; i >= start - 42 && found.high_water_sample == 0; --i) {
    if (h(i) < h(i - 1) && h(i - 2) < h(i - 1)) {
      found.high_water_sample = static_cast<std::int16_t>(i - 1);
    }
  }
  const auto [lowest, highest] =
      std::minmax_element(heights.begin() + (start - 39), heights.begin() + (start + 39) + 1);
  found.range = *highest - *lowest;
  return found;
}

TidePhase PhaseAt(int minute, int high_water_minute) {
  const int to_high_water = high_water_minute - minute;
  if (std::abs(to_high_water) > 420) {
    // The nearer high water lies on the other side of midnight.
    return minute < high_water_minute ? After(minute + 1440 - high_water_minute)
                                      : Before(high_water_minute + 1440 - minute);
  }
  return to_high_water < 1 ? After(-to_high_water) : Before(to_high_water);
}

TideDays::TideDays(std::vector<std::shared_ptr<const Port>> ports, bool summer_time)
    : ports_(std::move(ports)), summer_time_(summer_time) {}

const TideDays::PortDay& TideDays::HeightsOf(DayAndYear date) {
  std::shared_ptr<const PortDay>& kept = heights_[{date.year, date.day}];
  if (!kept) {
    const DayConstituents before = CalcDayConstituents(date.year, date.day - 1);
    const DayConstituents at = CalcDayConstituents(date.year, date.day);
    auto built = std::make_shared<PortDay>();
    for (const auto& port : ports_) {
      built->push_back(port ? PredictPortDay(*port, date.day, summer_time_, before, at)
                            : std::vector<float>());
    }
    kept = std::move(built);
  }
  return *kept;
}

std::shared_ptr<const DayTides> TideDays::Get(DayAndYear date) {
  std::shared_ptr<const DayTides>& kept = days_[{date.year, date.day}];
  if (kept) return kept;
  if (days_.size() > kDaysKept) {
    days_.clear();
    heights_.clear();
    return Get(date);
  }
  auto built = std::make_shared<DayTides>();
  built->date = date;
  built->ports.resize(ports_.size());
  const auto neighbour = [&](int days) {
    return DayAndYear{static_cast<std::int16_t>(date.day + days), date.year};
  };
  const PortDay& yesterday = HeightsOf(neighbour(-1));
  const PortDay& today = HeightsOf(date);
  const PortDay& tomorrow = HeightsOf(neighbour(1));
  for (std::size_t p = 0; p < ports_.size(); ++p) {
    PortTides& port = built->ports[p];
    port.known = ports_[p] != nullptr;
    if (!port.known) continue;
    std::copy_n(yesterday[p].begin(), 144, port.heights.begin() + 1);
    std::copy_n(today[p].begin(), 144, port.heights.begin() + 145);
    std::copy_n(tomorrow[p].begin(), 145, port.heights.begin() + 289);
    port.waters = WatersOf(port.heights);
    FillPhases(port);
  }
  kept = std::move(built);
  return kept;
}

}  // namespace skerrow
