#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "instruments/ais_targets.h"

namespace skerrow {

// The sound of the close-approach alarm: which targets are to be told of, each when it first comes
// under the alarm range and at most once in five minutes. Nothing is told while the boat is moored,
// its speed below half a knot for five minutes; what is under the range when it gets under way is
// told then.
class CpaAlarm {
 public:
  static constexpr double kQuietSeconds = 300.0;  // between two alarms of a target
  static constexpr double kMooredSeconds = 300.0;
  static constexpr float kMooredSpeed = 0.5F;  // knots

  // The targets to tell of now, in table order, by MMSI. `seconds` is any clock that never goes
  // back; `boat_speed` is empty while there is no good fix, which counts as under way.
  std::vector<std::int32_t> Step(const AisTargets& targets, bool gps_enabled, float alarm_range,
                                 std::optional<float> boat_speed, double seconds);

  bool Moored() const { return moored_; }

 private:
  struct Told {
    double at = 0.0;
    bool under = false;  // since then without a break
  };
  std::unordered_map<std::int32_t, Told> told_;
  std::optional<double> slow_since_;
  bool moored_ = false;
};

}  // namespace skerrow
