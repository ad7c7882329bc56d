#include "ui/forms/date_form.h"

#include "core/date_order.h"

namespace skerrow {

std::vector<int> YearsToOffer(int clock_year, int selected_year) {
  std::vector<int> years;
  if (selected_year < clock_year) years.push_back(selected_year);
  for (int year = clock_year; year <= clock_year + kYearsAhead; ++year) years.push_back(year);
  return years;
}

PredictedDay PredictedDayText(int day, int month, int year, std::string_view date_order) {
  const std::string date =
      JoinDate(date_order, std::to_string(day), LongMonthName(month), std::to_string(year));
  if (DateToDayOfYear(day, month, year) == 0) return {false, date + " is not a date"};
  return {true, "(" + WeekdayName(day, month, year) + ") " + date};
}

}  // namespace skerrow
