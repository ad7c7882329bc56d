#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "passage/leg.h"
#include "tides/diamond.h"
#include "tides/port.h"

// The streams and the leg solver in their plain form: at every step the state of the tide is
// recomputed for all reference ports from three days of samples, and all diamonds are walked. What
// the program does instead must give the same bits; the benchmarks measure the two side by side.
namespace skerrow::reference {

struct PlainPortState {
  int no_tides = 0;
  std::array<std::pair<std::string, std::string>, 16> tides;
  std::string hw_time;
  float days_range = 0.0F;
  int dep_slot = 0;
  int mins_left = 0;
};

class PlainTides {
 public:
  PlainTides(std::vector<Diamond> diamonds, std::vector<std::int16_t> ref_ports,
             std::vector<Port> all_ref_ports, bool summer_time);

  // The stream at a position; `rate`, `direction`, `slot` and `label` stay as they came in when
  // there are no diamonds.
  void CalculateTidalStreams(float latitude, float longitude, float hours, int day, int year,
                             float& rate, float& direction, int& slot, std::string& label);
  void Refresh(float hours);
  void Build(int day, int year);

  int loaded_day() const { return loaded_day_; }
  int loaded_year() const { return loaded_year_; }
  const std::vector<PlainPortState>& states() const { return states_; }
  float height(std::size_t port, int sample) const {
    return heights_[port][static_cast<std::size_t>(sample)];
  }

 private:
  PlainPortState LocateHighWater(std::size_t port, float hours) const;

  std::vector<Diamond> diamonds_;
  std::vector<std::int16_t> ref_ports_;
  std::vector<Port> all_ref_ports_;
  bool summer_time_;
  std::vector<std::array<float, 434>> heights_;
  std::vector<std::array<float, 434>> hours_;
  std::vector<PlainPortState> states_;
  int loaded_day_ = 0;
  int loaded_year_ = 0;
};

// CalcCourseToSteer by the letter.
LegSolution PlainCourseToSteer(PlainTides& tides, const LegRequest& leg,
                               const LegSettings& settings);

}  // namespace skerrow::reference
