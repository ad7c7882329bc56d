#include "ui/forms/wind_form.h"

#include <cctype>
#include <cmath>

#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr double kMostWind = 40.0;     // knots
constexpr double kCompassStep = 22.5;  // degrees
constexpr const char* kDegrees = "\u00b0";

// The number of a box; empty for a text that does not begin with one.
std::optional<double> NumberOf(const std::string& text) {
  const std::string content = Trim(text);
  const std::size_t digit = content.starts_with('.') ? 1 : 0;
  if (content.size() <= digit || std::isdigit(static_cast<unsigned char>(content[digit])) == 0) {
    return std::nullopt;
  }
  return TextToNumber(content);
}

bool Within(const std::string& text, double most) {
  const std::optional<double> value = NumberOf(text);
  return value && *value >= 0.0 && *value <= most;
}

}  // namespace

const char* const kCompassNames[kCompassPoints] = {"N",  "NNE", "NE", "ENE", "E",  "ESE",
                                                   "SE", "SSE", "S",  "SSW", "SW", "WSW",
                                                   "W",  "WNW", "NW", "NNW"};

WindEntry WindEntryOf(const Program& program) {
  return {program.wind_config.default_speed, program.wind_config.default_direction, ""};
}

std::string_view WindRefusalText(WindRefusal refusal) {
  switch (refusal) {
    case WindRefusal::kNone:
      break;
    case WindRefusal::kSpeed:
      return "Invalid Wind Speed";
    case WindRefusal::kDirection:
      return "Invalid Wind Direction";
    case WindRefusal::kSetUp:
      return kNoSetUp;
    case WindRefusal::kHeading:
      return "Enter Boat Heading";
  }
  return "";
}

WindRefusal CheckWind(const WindEntry& entry) {
  if (!Within(entry.speed, kMostWind)) return WindRefusal::kSpeed;
  if (!Within(entry.direction, 360.0)) return WindRefusal::kDirection;
  return WindRefusal::kNone;
}

WindRefusal CheckEstimate(const WindEntry& entry, bool has_set_up) {
  const WindRefusal wind = CheckWind(entry);
  if (wind != WindRefusal::kNone) return wind;
  if (!has_set_up) return WindRefusal::kSetUp;
  return NumberOf(entry.heading) ? WindRefusal::kNone : WindRefusal::kHeading;
}

Wind EnteredWind(const WindEntry& entry) {
  return {static_cast<float>(TextToNumber(entry.speed)),
          static_cast<float>(TextToNumber(entry.direction))};
}

std::string WindSideText(const RelativeWind& wind) {
  return std::string(wind.starboard ? "Starboard Tack" : "Port Tack") + ", " +
         FormatFixed(wind.angle, 1, 0) + kDegrees + " off the bow";
}

std::string CompassText(std::size_t point) {
  return FormatFixed(static_cast<double>(point) * kCompassStep, 1, 0);
}

std::size_t NearestCompassPoint(double degrees) {
  const auto point = static_cast<std::size_t>(RoundToInteger(degrees / kCompassStep));
  return point % kCompassPoints;
}

std::optional<std::size_t> SelectedSetUp(const WindConfig& config,
                                         const std::vector<std::string>& names) {
  const int index = config.selected_setup;
  if (index < 1 || static_cast<std::size_t>(index) > names.size()) return std::nullopt;
  return static_cast<std::size_t>(index) - 1;
}

RouteWindRequest RouteWindRequestOf(const Program& program) {
  const RouteDefaults defaults = RouteDefaultsOf(program);
  RouteWindRequest request;
  request.closest = program.config.closest_sailing_angle;
  request.constant_wind = defaults.constant_wind;
  request.default_wind = defaults.wind;
  request.wind_at = defaults.wind_at;
  request.date = defaults.departure_day;
  request.hours = defaults.departure_hours;
  return request;
}

std::string LegWindText(std::size_t leg, std::string_view direction) {
  return "Wind Direction for Route Leg " + std::to_string(leg) + " Set To " +
         std::string(direction) + kDegrees;
}

std::string LegWindDetail(const RouteState& route, std::size_t leg) {
  if (leg < 1 || leg >= route.points.size()) return "";
  const RoutePoint& point = route.points[leg - 1];
  const RelativeWind wind =
      RelativeWindOf(point.wind_direction, RangeBearing(point.At(), point.Next()).bearing);
  return "Leg " + std::to_string(leg) + ": wind " + FormatFixed(point.wind_speed, 1, 1) +
         " kn from " + FormatFixed(point.wind_direction, 3, 0) + kDegrees + ", " +
         FormatFixed(wind.angle, 1, 0) + kDegrees + " off the " +
         (wind.starboard ? "starboard" : "port") + " bow";
}

void ResetLegSpeeds(RouteState& route, float speed) {
  for (RoutePoint& point : route.points) point.speed = speed;
}

}  // namespace skerrow
