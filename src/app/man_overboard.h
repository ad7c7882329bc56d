#pragma once

#include "core/clock.h"
#include "core/position.h"

namespace skerrow {

// The man-overboard mark: where somebody went over, and the clock's time then.
struct ManOverboard {
  bool on = false;  // a position is held
  Position position;
  ClockReading time;
};

}  // namespace skerrow
