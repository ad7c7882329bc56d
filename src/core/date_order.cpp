#include "core/date_order.h"

#include <algorithm>

namespace skerrow {
namespace {

// The test dates name 3 January or 1 March 2001 by the reading order: a Wednesday or a Thursday.
struct WeekdayPair {
  std::string_view wednesday;
  std::string_view thursday;
};
constexpr std::array<WeekdayPair, 9> kWeekdays = {{{"Wed", "Thu"},
                                                   {"az.", "og."},
                                                   {"mer.", "jeu"},
                                                   {"Mi", "Do"},
                                                   {"mi\u00e9", "jue"},
                                                   {"qua", "qui"},
                                                   {"on", "to"},
                                                   {"mer", "gio"},
                                                   {"wo", "do"}}};

}  // namespace

std::string DetectDateOrder(const DateServices& services) {
  const std::string today = services.ShortToday();
  char separator = '\0';
  for (const char c : {'/', '-', '.'}) {
    if (today.find(c) != std::string::npos) separator = c;
  }
  if (separator == '\0') return "";
  std::size_t year_at = std::string::npos;
  std::size_t digits = 0;
  for (std::size_t i = 0; i < today.size() && year_at == std::string::npos; ++i) {
    digits = today[i] >= '0' && today[i] <= '9' ? digits + 1 : 0;
    if (digits == 4) year_at = i - 3;
  }
  if (year_at == std::string::npos) return "";
  // Counted from 1: position 1 is year first, above 6 year last.
  const bool year_first = year_at == 0;
  if (!year_first && year_at + 1 <= 6) return "";
  const std::string sep(1, separator);
  const std::string test_date =
      year_first ? "2001" + sep + "03" + sep + "01" : "03" + sep + "01" + sep + "2001";
  const std::string weekday = services.AbbreviatedWeekday(test_date);
  const auto day_first = std::any_of(kWeekdays.begin(), kWeekdays.end(),
                                     [&](const WeekdayPair& p) { return p.wednesday == weekday; });
  const auto month_first = std::any_of(kWeekdays.begin(), kWeekdays.end(),
                                       [&](const WeekdayPair& p) { return p.thursday == weekday; });
  if (!day_first && !month_first) return "";
  const std::string first = day_first ? "DD" : "MM";
  const std::string second = day_first ? "MM" : "DD";
  return year_first ? "YYYY" + sep + first + sep + second : first + sep + second + sep + "YYYY";
}

std::string DateOrderFailureText() {
  std::string text;
  for (const char* line : {"CANNOT DETECT THE REQUIRED TIME AND DATE SETTINGS",
                           "To setup use the Control Panel -> Regional Settings -> Date Tab",
                           "Set as follows :", "      Short date Style dd/MM/yyyy",
                           "      Date separator = /", "      Long Date style = dd MMMM yyyy",
                           "      PLEASE CONTACT US IF YOU REQUIRE ANY SUPPORT"}) {
    text += std::string(line) + "\n\n";
  }
  return text;
}

std::string JoinDate(std::string_view date_order, std::string_view day, std::string_view month,
                     std::string_view year) {
  const bool year_first = date_order.starts_with("YYYY");
  const std::string_view rest = year_first ? date_order.substr(5) : date_order;
  const bool month_first = rest.starts_with("MM");
  std::string joined(month_first ? month : day);
  joined += " ";
  joined += month_first ? day : month;
  return year_first ? std::string(year) + " " + joined : joined + " " + std::string(year);
}

}  // namespace skerrow
