#include "core/numbers.h"

#include <algorithm>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <limits>

namespace skerrow {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Length of the longest prefix of `text` that is a number: sign, digits, point, digits, exponent.
std::size_t NumericPrefixLength(std::string_view text) {
  std::size_t pos = 0;
  if (pos < text.size() && (text[pos] == '+' || text[pos] == '-')) ++pos;
  const std::size_t digits_from = pos;
  while (pos < text.size() && IsDigit(text[pos])) ++pos;
  std::size_t digits = pos - digits_from;
  if (pos < text.size() && text[pos] == '.') {
    const std::size_t fraction_from = pos + 1;
    std::size_t end = fraction_from;
    while (end < text.size() && IsDigit(text[end])) ++end;
    digits += end - fraction_from;
    if (digits > 0) pos = end;
  }
  if (digits == 0) return 0;
  if (pos < text.size() && (text[pos] == 'e' || text[pos] == 'E')) {
    std::size_t end = pos + 1;
    if (end < text.size() && (text[end] == '+' || text[end] == '-')) ++end;
    if (end < text.size() && IsDigit(text[end])) {
      while (end < text.size() && IsDigit(text[end])) ++end;
      pos = end;
    }
  }
  return pos;
}

}  // namespace

std::int64_t RoundToInteger(double value) {
  if (std::isnan(value)) return 0;
  const double floor = std::floor(value);
  const double fraction = value - floor;
  double rounded = fraction > 0.5 ? floor + 1 : floor;
  if (fraction == 0.5 && std::fmod(floor, 2.0) != 0.0) rounded = floor + 1;
  constexpr double kLimit = 9223372036854775808.0;  // 2^63
  if (rounded >= kLimit) return std::numeric_limits<std::int64_t>::max();
  if (rounded < -kLimit) return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(rounded);
}

std::int16_t RoundToInt16(double value) {
  return static_cast<std::int16_t>(
      std::clamp<std::int64_t>(RoundToInteger(value), INT16_MIN, INT16_MAX));
}

double WholePartDown(double value) { return std::floor(value); }

double WholePart(double value) { return std::trunc(value); }

double TextToNumber(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  std::string_view number = text.substr(0, NumericPrefixLength(text));
  if (!number.empty() && number.front() == '+') number.remove_prefix(1);
  double value = 0.0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (error == std::errc::result_out_of_range) {
    // Digits alone cannot tell overflow from underflow; the larger side is the harmless one to cap.
    return number.find("e-") == std::string_view::npos &&
                   number.find("E-") == std::string_view::npos
               ? (number.front() == '-' ? -DBL_MAX : DBL_MAX)
               : 0.0;
  }
  return error == std::errc() ? value : 0.0;
}

std::string FormatFixed(double value, int integer_digits, int decimals) {
  if (!std::isfinite(value)) value = 0.0;
  // 60 decimals tell a tie from its neighbours: a double with a digit there is no tie before it.
  // The largest double has 309 digits before the point.
  char buffer[400];
  const auto printed =
      std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value), std::chars_format::fixed, 60);
  std::string digits(buffer, printed.ptr);
  const std::size_t point = digits.find('.');
  const bool up = digits[point + 1 + static_cast<std::size_t>(decimals)] >= '5';
  digits.resize(point + 1 + static_cast<std::size_t>(decimals));
  digits.erase(point, 1);
  if (up) {
    std::size_t i = digits.size();
    while (i > 0 && digits[i - 1] == '9') digits[--i] = '0';
    if (i > 0) {
      ++digits[i - 1];
    } else {
      digits.insert(digits.begin(), '1');
    }
  }
  std::string integer = digits.substr(0, digits.size() - static_cast<std::size_t>(decimals));
  const std::string fraction = digits.substr(integer.size());
  if (integer == "0" && integer_digits == 0 && decimals > 0) integer.clear();
  if (integer.size() < static_cast<std::size_t>(integer_digits)) {
    integer.insert(0, static_cast<std::size_t>(integer_digits) - integer.size(), '0');
  }
  const bool zero = digits.find_first_not_of('0') == std::string::npos;
  std::string text = value < 0.0 && !zero ? "-" : "";
  text += integer;
  if (decimals > 0) text += "." + fraction;
  return text;
}

std::string ShortText(float value) {
  if (!std::isfinite(value)) return "0";
  if (value == 0.0F) return "0";
  char buffer[64];
  const auto [end, error] = std::to_chars(
      buffer, buffer + sizeof buffer, static_cast<double>(value), std::chars_format::general, 7);
  (void)error;  // 64 characters hold any 7-digit number.
  return std::string(buffer, end);
}

std::string PadTo4(std::int16_t value) {
  std::string text = std::to_string(value);
  if (value >= 0 && text.size() < 4) text.insert(0, 4 - text.size(), '0');
  return text;
}

}  // namespace skerrow
