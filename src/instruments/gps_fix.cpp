#include "instruments/gps_fix.h"

#include <string_view>

#include "core/numbers.h"

namespace skerrow {
namespace {

std::int16_t WholeOf(std::string_view text) { return RoundToInt16(TextToNumber(text)); }

std::string_view From(std::string_view text, std::size_t at) {
  return text.substr(at < text.size() ? at : text.size());
}

}  // namespace

void SetTime(GpsTrackPoint& point, const std::string& time_text) {
  const std::string_view text = time_text;
  point.hour = WholeOf(text.substr(0, 2));
  point.minute = WholeOf(From(text, 2).substr(0, 2));
  point.second = WholeOf(From(text, 4));
}

void SetDate(GpsTrackPoint& point, const std::string& date_text) {
  const std::string_view text = date_text;
  point.day = WholeOf(text.substr(0, 2));
  point.month = WholeOf(From(text, 2).substr(0, 2));
  point.year = WholeOf(From(text, 4));
}

}  // namespace skerrow
