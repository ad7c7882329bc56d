#pragma once

#include "core/clock.h"

namespace skerrow::testing {

// A clock that stands until the test sets it.
class StillClock final : public Clock {
 public:
  StillClock() = default;
  explicit StillClock(ClockReading reading) : now(reading) {}
  ClockReading Now() const override { return now; }
  ClockReading now{2026, 12, 5, 6, 30, 20};
};

}  // namespace skerrow::testing
