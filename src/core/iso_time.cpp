#include "core/iso_time.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>

#include "core/numbers.h"
#include "core/text.h"

namespace skerrow {
namespace {

// Digits of a fixed count at the front of a text, which loses them; -1 without them.
int Digits(std::string_view& text, std::size_t count) {
  int value = 0;
  if (text.size() < count) return -1;
  const auto end = std::from_chars(text.data(), text.data() + count, value);
  if (end.ptr != text.data() + count || text[0] == '-') return -1;
  text.remove_prefix(count);
  return value;
}

bool Skip(std::string_view& text, char c) {
  if (!text.starts_with(c)) return false;
  text.remove_prefix(1);
  return true;
}

// The offset of a zone in seconds; empty for one that cannot be understood.
std::optional<double> Offset(std::string_view text) {
  if (text.empty() || text == "Z" || text == "z") return 0.0;
  const double sign = text[0] == '-' ? -1.0 : 1.0;
  if (text[0] != '-' && text[0] != '+') return std::nullopt;
  text.remove_prefix(1);
  const int hours = Digits(text, 2);
  Skip(text, ':');
  const int minutes = text.empty() ? 0 : Digits(text, 2);
  if (hours < 0 || hours > 14 || minutes < 0 || minutes > 59 || !text.empty()) return std::nullopt;
  return sign * (hours * 3600.0 + minutes * 60.0);
}

}  // namespace

std::optional<double> ParseIsoTime(std::string_view text) {
  const std::string trimmed = Trim(text);
  std::string_view rest = trimmed;
  const int year = Digits(rest, 4);
  const bool dashes = Skip(rest, '-');
  const int month = Digits(rest, 2);
  if (dashes && !Skip(rest, '-')) return std::nullopt;
  const int day = Digits(rest, 2);
  if (year < 1900 || month < 1 || month > 12 || day < 1 || day > 31) return std::nullopt;
  int hour = 0;
  int minute = 0;
  double second = 0.0;
  if (Skip(rest, 'T') || Skip(rest, ' ')) {
    hour = Digits(rest, 2);
    const bool colons = Skip(rest, ':');
    minute = Digits(rest, 2);
    if ((colons && Skip(rest, ':')) ||
        (!colons && !rest.empty() && rest[0] >= '0' && rest[0] <= '9')) {
      second = Digits(rest, 2);
      if (Skip(rest, '.') || Skip(rest, ',')) {
        double unit = 0.1;
        while (!rest.empty() && rest[0] >= '0' && rest[0] <= '9') {
          second += unit * (rest[0] - '0');
          unit /= 10.0;
          rest.remove_prefix(1);
        }
      }
    }
  }
  if (hour < 0 || hour > 24 || minute < 0 || minute > 59 || second < 0.0 || second >= 61.0) {
    return std::nullopt;
  }
  const std::optional<double> offset = Offset(rest);
  if (!offset) return std::nullopt;
  return SecondsAtDay(year, month, day) + hour * 3600.0 + minute * 60.0 + second - *offset;
}

std::string IsoTimeText(double seconds) {
  const auto all = static_cast<std::int64_t>(std::llround(seconds * 1000.0));
  const std::chrono::sys_time<std::chrono::milliseconds> moment{std::chrono::milliseconds(all)};
  const auto midnight = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date{midnight};
  const std::int64_t rest = (moment - midnight).count();
  const auto number = [](std::int64_t value, int digits) {
    return FormatFixed(static_cast<double>(value), digits, 0);
  };
  std::string text = number(static_cast<int>(date.year()), 4) + "-" +
                     number(static_cast<unsigned>(date.month()), 2) + "-" +
                     number(static_cast<unsigned>(date.day()), 2) + "T" +
                     number(rest / 3'600'000, 2) + ":" + number(rest / 60'000 % 60, 2) + ":" +
                     number(rest / 1000 % 60, 2);
  if (rest % 1000 != 0) text += "." + number(rest % 1000, 3);
  return text + "Z";
}

double SecondsAtDay(int year, int month, int day) {
  const std::chrono::year_month_day date{std::chrono::year{year},
                                         std::chrono::month{static_cast<unsigned>(month)},
                                         std::chrono::day{static_cast<unsigned>(day)}};
  return static_cast<double>(std::chrono::sys_days{date}.time_since_epoch().count()) * 86400.0;
}

}  // namespace skerrow
