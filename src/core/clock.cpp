#include "core/clock.h"

#include <ctime>

namespace skerrow {

ClockReading LocalTime(std::int64_t unix_seconds) {
  const auto time = static_cast<std::time_t>(unix_seconds);
  std::tm local = {};
  if (localtime_r(&time, &local) == nullptr) return {};
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
          local.tm_hour,        local.tm_min,     local.tm_sec > 59 ? 59 : local.tm_sec};
}

ClockReading SystemClock::Now() const { return LocalTime(std::time(nullptr)); }

}  // namespace skerrow
