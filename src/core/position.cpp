#include "core/position.h"

#include <cmath>

#include "core/numbers.h"

namespace skerrow {
namespace {

// Degrees and minutes of a coordinate on the way to text, in single precision throughout.
struct DegreesMinutes {
  float degrees = 0.0F;
  float minutes = 0.0F;
};

DegreesMinutes LatitudeParts(float latitude) {
  const float whole = std::trunc(latitude);
  const float fraction = std::fabs(latitude - whole) + 0.00000001F;
  DegreesMinutes parts{std::fabs(whole), fraction * 60.0F};
  if (parts.minutes >= 60.0F) parts = {parts.degrees + 1.0F, 0.0F};
  return parts;
}

DegreesMinutes LongitudeParts(float longitude) {
  const float whole = longitude >= 0.0F ? static_cast<float>(std::floor(longitude + 0.00001))
                                        : std::trunc(longitude);
  const float fraction = std::fabs(longitude - whole);
  DegreesMinutes parts{std::fabs(whole), fraction * 60.0F};
  if (parts.minutes > 59.99F) parts = {parts.degrees + 1.0F, 0.0F};
  return parts;
}

std::string FirstFive(const std::string& text) { return text.substr(0, 5); }

float TextToDegrees(std::string_view text, char negative) {
  const std::size_t point = text.find('.');
  const std::size_t split = point == std::string_view::npos ? 0 : point + 1;
  const double degrees = TextToNumber(text.substr(0, split));
  const double minutes = TextToNumber(text.substr(split));
  double value = minutes / 60.0 + degrees;
  for (const char c : text) {
    if (c == negative) value = -value;
  }
  return static_cast<float>(value);
}

}  // namespace

std::string LatToText(float latitude) {
  auto [degrees, minutes] = LatitudeParts(latitude);
  std::string minutes_text = FormatFixed(minutes, 2, 2);
  if (static_cast<float>(TextToNumber(minutes_text)) >= 59.99F) {
    minutes_text = "00.00";
    degrees += 1.0F;
  }
  return FormatFixed(degrees, 2, 0) + "." + FirstFive(minutes_text) +
         (latitude >= 0.0F ? "N" : "S");
}

std::string LatToText3(float latitude) {
  const auto [degrees, minutes] = LatitudeParts(latitude);
  return FormatFixed(degrees, 2, 0) + "." + FormatFixed(minutes, 2, 3) +
         (latitude >= 0.0F ? "N" : "S");
}

std::string LongToText(float longitude) {
  const auto [degrees, minutes] = LongitudeParts(longitude);
  return FormatFixed(degrees, 3, 0) + "." + FirstFive(FormatFixed(minutes, 2, 2)) +
         (longitude >= 0.0F ? "E" : "W");
}

std::string LongToText3(float longitude) {
  const auto [degrees, minutes] = LongitudeParts(longitude);
  return FormatFixed(degrees, 3, 0) + "." + FormatFixed(minutes, 2, 3) +
         (longitude >= 0.0F ? "E" : "W");
}

float TextToLat(std::string_view text) { return TextToDegrees(text, 'S'); }

float TextToLong(std::string_view text) { return TextToDegrees(text, 'W'); }

}  // namespace skerrow
