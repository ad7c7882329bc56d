#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"

// The lists and the texts of the date dialogs.
namespace skerrow {

// Years offered from the present one on.
inline constexpr int kYearsAhead = 50;

// The present year of the clock and the 50 after it, and before them the year selected when it
// lies in the past.
std::vector<int> YearsToOffer(int clock_year, int selected_year);

// What stands beside a chosen date: "(Wednesday) 7 May 2012" with day, month and year in the order
// of `date_order`, or a warning for a date that does not exist.
struct PredictedDay {
  bool valid = false;
  std::string text;
};
PredictedDay PredictedDayText(int day, int month, int year, std::string_view date_order);

}  // namespace skerrow
