#pragma once

#include "core/date_order.h"

namespace skerrow {

// A locale's short date form with day and month in two digits and the year in four, in its order:
//   "d/M/yy" -> "dd/MM/yyyy"    "d. M. yyyy" -> "dd.MM.yyyy"    "d MMM yyyy" -> "dd-MM-yyyy"
std::string WidenedDateFormat(std::string_view short_form);

// The desktop's date services. The short form of a locale that writes two-digit years or no
// separators is widened to day, month and a four-digit year in the locale's own order, so that the
// date gate passes wherever the order can be told at all.
class LocaleDateServices final : public DateServices {
 public:
  std::string ShortToday() const override;
  std::string AbbreviatedWeekday(std::string_view date_text) const override;
};

}  // namespace skerrow
