#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "tides/constituents.h"
#include "tides/heights.h"
#include "tides/port.h"

// Three days of heights of the reference ports about a loaded day, and the state of the tide at
// each of them for every minute of that day.
namespace skerrow {

// Samples of a port, one each 10 minutes, counted from 1: 1 to 144 are the day before the loaded
// day, 145 to 288 the loaded day, 289 to 433 the day after.
inline constexpr int kDaySamples = 433;
inline constexpr int kFirstSample = 145;  // 00:00 of the loaded day

// Hours of its own day at which a sample lies.
float SampleHours(int sample);

// Minutes of the day, 0 to 1440, of a time in decimal hours: the fraction's minutes are rounded to
// the nearest.
int MinuteOfDay(float hours);

// Where a minute of the day lies between high waters of a reference port.
struct TidePhase {
  std::int8_t slot = 0;          // hour slot from high water, -7 to +6
  std::int8_t minutes_left = 0;  // 0 to 59
};

// The high water that the times within one 10-minute sample are counted from.
struct TideReference {
  std::int16_t high_water_sample = 0;  // 0: there is none, the height never turns
  float range = 0.0F;                  // of the tide around the time, metres
};

// Finds the high water near the sample at or before minute `minute`, looking 6 hours ahead for the
// last one and then 7 hours back for the first, and the range over 6.5 hours either side.
// `heights` holds samples 1 to kDaySamples.
TideReference LocateHighWater(const std::array<float, kDaySamples + 1>& heights, int minute);

// The slot and minutes left at minute `minute` for a high water at `high_water_minute`, each a
// minute of its own day.
TidePhase PhaseAt(int minute, int high_water_minute);

// One reference port about the loaded day.
struct PortTides {
  bool known = false;  // whether RefPorts.hc holds the port
  std::array<float, kDaySamples + 1> heights{};
  std::array<TideReference, 145> reference{};  // by tens of minutes
  std::array<TidePhase, 1441> phase{};         // by minutes
  std::vector<Water> waters;                   // of the loaded day, heights to one decimal

  // Whether there is a tide to read at `minute`.
  bool HasTide(int minute) const {
    return known && reference[static_cast<std::size_t>(minute / 10)].high_water_sample > 0;
  }
};

// The reference ports about one day, in the order of RefPorts.
struct DayTides {
  DayAndYear date;
  std::vector<PortTides> ports;
};

// Builds DayTides and keeps the last few, so that a passage across midnight builds each day once.
// A copy shares what is built and goes on by itself.
class TideDays {
 public:
  TideDays() = default;
  // `ports` are the constants of the reference ports in use; an empty pointer stands for a port
  // that RefPorts.hc does not hold.
  TideDays(std::vector<std::shared_ptr<const Port>> ports, bool summer_time);

  // The tides about a day.
  std::shared_ptr<const DayTides> Get(DayAndYear date);

 private:
  using PortDay = std::vector<std::vector<float>>;  // by port
  const PortDay& HeightsOf(DayAndYear date);

  std::vector<std::shared_ptr<const Port>> ports_;
  bool summer_time_ = false;
  std::map<std::pair<int, int>, std::shared_ptr<const DayTides>> days_;
  std::map<std::pair<int, int>, std::shared_ptr<const PortDay>> heights_;
};

}  // namespace skerrow
