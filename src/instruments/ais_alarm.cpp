#include "instruments/ais_alarm.h"

namespace skerrow {

std::vector<std::int32_t> CpaAlarm::Step(const AisTargets& targets, bool gps_enabled,
                                         float alarm_range, std::optional<float> boat_speed,
                                         double seconds) {
  if (!boat_speed || *boat_speed >= kMooredSpeed) {
    slow_since_.reset();
  } else if (!slow_since_) {
    slow_since_ = seconds;
  }
  moored_ = slow_since_ && seconds - *slow_since_ >= kMooredSeconds;

  std::unordered_map<std::int32_t, Told> still;
  std::vector<std::int32_t> tell;
  for (const AisTarget& target : targets.All()) {
    if (moored_ || !InCpaAlarm(target, gps_enabled, alarm_range)) continue;
    const auto before = told_.find(target.mmsi);
    if (before != told_.end() &&
        (before->second.under || seconds - before->second.at < kQuietSeconds)) {
      still[target.mmsi] = {before->second.at, true};
    } else {
      still[target.mmsi] = {seconds, true};
      tell.push_back(target.mmsi);
    }
  }
  // Those that are out of the range again are remembered until they may be told of anew.
  for (const auto& [mmsi, told] : told_) {
    if (seconds - told.at < kQuietSeconds) still.try_emplace(mmsi, Told{told.at, false});
  }
  told_ = std::move(still);
  return tell;
}

}  // namespace skerrow
