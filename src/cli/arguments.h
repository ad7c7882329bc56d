#pragma once

#include <string>
#include <string_view>

#include "core/calendar.h"
#include "core/clock.h"
#include "core/position.h"
#include "core/result.h"

// Reading what the user typed on the command line. Each error is a usage error and says what was
// expected.
namespace skerrow::cli {

// A latitude: "50.30.25N" or signed decimal degrees from -90 to 90.
Result<float> ParseLatitude(std::string_view text);

// A longitude: "001.20.00W" or signed decimal degrees from -180 to 180.
Result<float> ParseLongitude(std::string_view text);

Result<Position> ParsePosition(std::string_view latitude, std::string_view longitude);

// A date "2026-12-05"; empty takes that of `now`.
Result<DayAndYear> ParseDate(std::string_view text, const ClockReading& now);

// A time of the day, "06:30" or decimal hours from 0 to under 24; empty takes that of `now`.
Result<float> ParseTime(std::string_view text, const ClockReading& now);

// A date and a time, each as above.
struct When {
  DayAndYear date;
  float hours = 0.0F;
};
Result<When> ParseWhen(std::string_view date, std::string_view time, const ClockReading& now);

// Any finite number; `what` names it in the error.
Result<float> ParseNumber(std::string_view text, std::string_view what);

// A whole number from `low` to `high`.
Result<int> ParseWhole(std::string_view text, std::string_view what, int low, int high);

}  // namespace skerrow::cli
