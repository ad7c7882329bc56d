#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The number rules that every text and every stored integer of the program goes through.
namespace skerrow {

// `value` rounded to the nearest integer, halves to the even neighbour: 2.5 gives 2, 3.5 gives 4.
// Not a number gives 0; values beyond the 64-bit range are clamped to it.
std::int64_t RoundToInteger(double value);

// As RoundToInteger, clamped to the range of a 16-bit record field.
std::int16_t RoundToInt16(double value);

// The whole part down: the floor, towards minus infinity. -0.5 gives -1.
double WholePartDown(double value);

// The whole part: truncation towards zero. -0.5 gives -0.0.
double WholePart(double value);

// The longest numeric prefix of `text` after leading blanks, "." being the decimal point whatever
// the locale; the rest is ignored. No such prefix gives 0.
//   "30.25W" -> 30.25   " 7" -> 7   "-1.5x" -> -1.5   ".5" -> 0.5   "1e3" -> 1000
//   "N50" -> 0          "" -> 0     "-" -> 0          "1e" -> 1
double TextToNumber(std::string_view text);

// Prints `value` as a pattern such as "000" or "00.00" does: at least `integer_digits` digits
// before the point, exactly `decimals` after it, rounded half away from zero at the last digit.
// The sign stands in front; a value that rounds to zero has none. Infinite and NaN values print
// as "0" of that shape, so that a corrupt record cannot break a column.
std::string FormatFixed(double value, int integer_digits, int decimals);

// The shortest text of a single-precision value: at most 7 significant digits, no trailing zeros,
// no leading blank. 2045 gives "2045", 0.25 gives "0.25", 5 gives "5".
std::string ShortText(float value);

// A 16-bit integer with at least four digits: 7 gives "0007". Negative values print as they are.
std::string PadTo4(std::int16_t value);

}  // namespace skerrow
