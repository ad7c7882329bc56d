#include "core/clock.h"

#include <ctime>

namespace skerrow {

ClockReading SystemClock::Now() const {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  if (localtime_r(&now, &local) == nullptr) return {};
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
          local.tm_hour,        local.tm_min,     local.tm_sec > 59 ? 59 : local.tm_sec};
}

}  // namespace skerrow
