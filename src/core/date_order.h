#pragma once

#include <array>
#include <string>
#include <string_view>

// The gate that finds in which order this machine writes dates.
namespace skerrow {

inline constexpr std::array<std::string_view, 12> kDateTemplates = {
    "DD/MM/YYYY", "MM/DD/YYYY", "DD-MM-YYYY", "MM-DD-YYYY", "DD.MM.YYYY", "MM.DD.YYYY",
    "YYYY/MM/DD", "YYYY/DD/MM", "YYYY-MM-DD", "YYYY-DD-MM", "YYYY.MM.DD", "YYYY.DD.MM"};

// The machine's date services, as far as the gate asks them.
class DateServices {
 public:
  virtual ~DateServices() = default;
  // Today in the machine's short form, such as "07/05/2012".
  virtual std::string ShortToday() const = 0;
  // The abbreviated weekday of a date text as this machine reads it; empty when it cannot.
  virtual std::string AbbreviatedWeekday(std::string_view date_text) const = 0;
};

// One of kDateTemplates, or the empty text when the machine's form is not known.
std::string DetectDateOrder(const DateServices& services);

// What is shown, under the program's title, when DetectDateOrder finds nothing.
std::string DateOrderFailureText();

// Day, long month name and year joined with blanks in the order of `date_order`.
std::string JoinDate(std::string_view date_order, std::string_view day, std::string_view month,
                     std::string_view year);

}  // namespace skerrow
