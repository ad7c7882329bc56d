#include "exchange/exact_text.h"

#include <array>
#include <charconv>

#include "core/numbers.h"

namespace skerrow {

std::string ExactText(float value) {
  std::array<char, 64> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  return {text.data(), end.ptr};
}

std::string DateAndMinute(DayAndYear date, float hours) {
  constexpr int kMinutesOfADay = 1440;
  auto minutes = static_cast<int>(RoundToInteger(static_cast<double>(hours) * 60.0));
  if (minutes >= kMinutesOfADay) {
    minutes -= kMinutesOfADay;
    date = AddHours(date, 0.0F, 24.0F).date;
  }
  const int hour = minutes / 60;
  MonthDate day;
  DayOfYearToDate(date.day, date.year, day);
  return FormatFixed(date.year, 4, 0) + "-" + FormatFixed(day.month, 2, 0) + "-" +
         FormatFixed(day.day_of_month, 2, 0) + "T" + FormatFixed(hour, 2, 0) + ":" +
         FormatFixed(minutes % 60, 2, 0);
}

}  // namespace skerrow
