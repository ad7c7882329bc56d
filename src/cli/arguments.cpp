#include "cli/arguments.h"

#include <charconv>
#include <cmath>

#include "core/numbers.h"
#include "core/text.h"

namespace skerrow::cli {
namespace {

Error Usage(std::string_view what, std::string_view text, std::string_view expected) {
  return {"", "\"" + std::string(text) + "\" is no " + std::string(what) + " (" +
                  std::string(expected) + ")"};
}

bool AllDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool Decimal(std::string_view text, double& value) {
  const std::string trimmed = Trim(text);
  const char* begin = trimmed.data() + (trimmed.starts_with("+") ? 1 : 0);
  const char* end = trimmed.data() + trimmed.size();
  const auto [at, error] = std::from_chars(begin, end, value);
  return error == std::errc() && at == end && std::isfinite(value);
}

// "degrees.minutes" with one of two letters behind, minutes below 60.
bool IsCoordinateText(std::string_view text, char positive, char negative) {
  if (text.empty() || (text.back() != positive && text.back() != negative)) return false;
  text.remove_suffix(1);
  const std::size_t point = text.find('.');
  if (point == std::string_view::npos || !AllDigits(text.substr(0, point))) return false;
  const std::string_view minutes = text.substr(point + 1);
  const std::size_t decimals = minutes.find('.');
  const bool shaped =
      decimals == std::string_view::npos
          ? AllDigits(minutes)
          : AllDigits(minutes.substr(0, decimals)) && AllDigits(minutes.substr(decimals + 1));
  return shaped && TextToNumber(minutes) < 60.0;
}

Result<float> ParseCoordinate(std::string_view text, char positive, char negative, double limit,
                              std::string_view what, std::string_view expected) {
  const std::string trimmed = Trim(text);
  double value = 0.0;
  if (IsCoordinateText(trimmed, positive, negative)) {
    value = negative == 'S' ? TextToLat(trimmed) : TextToLong(trimmed);
  } else if (!Decimal(trimmed, value)) {
    return Usage(what, trimmed, expected);
  }
  if (std::fabs(value) > limit) return Usage(what, trimmed, expected);
  return static_cast<float>(value);
}

}  // namespace

Result<float> ParseLatitude(std::string_view text) {
  return ParseCoordinate(text, 'N', 'S', 90.0, "latitude", "50.30.25N or -90 to 90 degrees");
}

Result<float> ParseLongitude(std::string_view text) {
  return ParseCoordinate(text, 'E', 'W', 180.0, "longitude", "001.20.00W or -180 to 180 degrees");
}

Result<Position> ParsePosition(std::string_view latitude, std::string_view longitude) {
  const Result<float> lat = ParseLatitude(latitude);
  if (!lat) return lat.error();
  const Result<float> lon = ParseLongitude(longitude);
  if (!lon) return lon.error();
  return Position{*lat, *lon};
}

Result<DayAndYear> ParseDate(std::string_view text, const ClockReading& now) {
  if (text.empty()) return now.Day();
  const bool shaped = text.size() == 10 && text[4] == '-' && text[7] == '-' &&
                      AllDigits(text.substr(0, 4)) && AllDigits(text.substr(5, 2)) &&
                      AllDigits(text.substr(8, 2));
  if (!shaped) return Usage("date", text, "2026-12-05");
  const int year = static_cast<int>(TextToNumber(text.substr(0, 4)));
  const std::int16_t day = DateToDayOfYear(static_cast<int>(TextToNumber(text.substr(8, 2))),
                                           static_cast<int>(TextToNumber(text.substr(5, 2))), year);
  if (day == 0 || year < 1) return Usage("date", text, "there is no such day");
  return DayAndYear{day, static_cast<std::int16_t>(year)};
}

Result<float> ParseTime(std::string_view text, const ClockReading& now) {
  if (text.empty()) return now.Hours();
  const std::size_t colon = text.find(':');
  double hours = 0.0;
  if (colon == std::string_view::npos) {
    if (!Decimal(text, hours)) return Usage("time", text, "06:30 or 6.5");
  } else {
    const std::string_view minutes = text.substr(colon + 1);
    if (!AllDigits(text.substr(0, colon)) || minutes.size() != 2 || !AllDigits(minutes) ||
        TextToNumber(minutes) >= 60) {
      return Usage("time", text, "06:30 or 6.5");
    }
    hours = TextToNumber(text.substr(0, colon)) + TextToNumber(minutes) / 60.0;
  }
  const auto stored = static_cast<float>(hours);
  if (!(hours >= 0.0) || stored >= 24.0F) return Usage("time", text, "0 to under 24 hours");
  return stored;
}

Result<When> ParseWhen(std::string_view date, std::string_view time, const ClockReading& now) {
  const Result<DayAndYear> day = ParseDate(date, now);
  if (!day) return day.error();
  const Result<float> hours = ParseTime(time, now);
  if (!hours) return hours.error();
  return When{*day, *hours};
}

Result<float> ParseNumber(std::string_view text, std::string_view what) {
  double value = 0.0;
  if (!Decimal(text, value) || !std::isfinite(static_cast<float>(value))) {
    return Usage(what, text, "a number");
  }
  return static_cast<float>(value);
}

Result<int> ParseWhole(std::string_view text, std::string_view what, int low, int high) {
  double value = 0.0;
  if (!Decimal(text, value) || value != std::trunc(value) || value < low || value > high) {
    return Usage(what, text, std::to_string(low) + " to " + std::to_string(high));
  }
  return static_cast<int>(value);
}

}  // namespace skerrow::cli
