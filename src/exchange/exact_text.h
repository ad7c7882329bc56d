#pragma once

#include <string>

#include "core/calendar.h"

namespace skerrow {

// The shortest decimal text, without an exponent, that reads back to the same 32 bits.
std::string ExactText(float value);

// "2026-12-05T08:10" of a time of a day: minutes rounded half to even, through midnight.
std::string DateAndMinute(DayAndYear date, float hours);

}  // namespace skerrow
