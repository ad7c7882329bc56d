#include "core/clock.h"

#include <ctime>
#include <mutex>

namespace skerrow {

ClockReading SystemClock::Now() const {
  static std::mutex mutex;  // std::localtime hands out one shared record.
  const std::lock_guard lock(mutex);
  const std::time_t now = std::time(nullptr);
  const std::tm* local = std::localtime(&now);
  if (local == nullptr) return {};
  return {local->tm_year + 1900, local->tm_mon + 1, local->tm_mday,
          local->tm_hour,        local->tm_min,     local->tm_sec > 59 ? 59 : local->tm_sec};
}

}  // namespace skerrow
