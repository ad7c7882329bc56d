#include "ui/forms/configure_form.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "core/text.h"
#include "routes/route_editing.h"

namespace skerrow {
namespace {

std::vector<std::string> Choices(int first, int last, int step) {
  std::vector<std::string> choices;
  for (int value = first; value <= last; value += step) choices.push_back(std::to_string(value));
  return choices;
}

float Number(std::string_view text) { return static_cast<float>(TextToNumber(text)); }

std::int16_t Whole(std::string_view text) { return RoundToInt16(TextToNumber(text)); }

// Sign and number of a variation text such as "4W"; false for one without its letter.
bool ReadVariation(std::string_view text, float& variation) {
  const std::string trimmed = Trim(text);
  if (trimmed.empty() || (trimmed.back() != 'W' && trimmed.back() != 'E')) return false;
  const float size = Number(trimmed);
  variation = trimmed.back() == 'W' ? -size : size;
  if (variation == 0.0F) variation = 0.0F;  // no negative zero in the file
  return true;
}

// Steps 1 to 10.
ConfigureRefusal ApplyCalculation(const ConfigureEntry& entry, AppConfig& config) {
  if (!ReadVariation(entry.variation, config.variation)) return ConfigureRefusal::kVariation;
  if (Trim(entry.error_circle).empty()) return ConfigureRefusal::kErrorCircleEmpty;
  config.error_circle = Number(entry.error_circle);
  if (config.error_circle == 0.0F) return ConfigureRefusal::kErrorCircleZero;
  config.slack_threshold = Number(entry.threshold);
  config.search_circle = std::max(Number(entry.search_circle), 0.01F);
  config.vessel_speed = Number(entry.boat_speed);
  if (config.vessel_speed == 0.0F) return ConfigureRefusal::kBoatSpeed;
  config.summer_time = Bool16(entry.summer_time);
  config.closest_sailing_angle = Number(entry.closest_sailing_angle);
  if (config.closest_sailing_angle == 0.0F) return ConfigureRefusal::kClosestSailingAngle;
  config.hide_stream_id = Bool16(entry.hide_stream_id);
  config.reserved12 = 0;
  config.line_width = Number(entry.line_size);
  if (config.line_width == 0.0F) config.line_width = 1.0F;
  config.calc_interval = Number(entry.calc_interval);
  if (!(config.calc_interval >= 1.0F)) return ConfigureRefusal::kCalcInterval;
  return ConfigureRefusal::kNone;
}

// Steps 11 to 13.
ConfigureRefusal ApplyDisplay(const ConfigureEntry& entry, AppConfig& config) {
  config.use_leeway = entry.use_leeway ? 1 : 0;
  config.show_wind_over_route = Bool16(entry.show_wind);
  config.leeway_angle = Number(entry.leeway);
  config.use_tides = Bool16(entry.use_tides);
  config.track_colour = config.boat_colour;
  config.barb_display_text = Bool16(entry.barb_display_text);
  config.use_manual_wind = Bool16(!entry.use_forecast_wind);
  config.barb_weight = Whole(entry.barb_weight);
  if (config.barb_weight == 0) return ConfigureRefusal::kBarbWeight;
  config.barb_length = Number(entry.barb_length);
  if (config.barb_length == 0.0F) return ConfigureRefusal::kBarbLength;
  config.barb_spacing = Whole(entry.barb_spacing);
  if (config.barb_spacing == 0) return ConfigureRefusal::kBarbSpacing;
  config.stream_as_shape = Bool16(entry.stream_as_shape);
  config.stream_line_width = Whole(entry.stream_line_width);
  if (config.stream_line_width == 0) return ConfigureRefusal::kStreamLineWidth;
  config.stream_length = Whole(entry.stream_length);
  config.stream_filled = entry.stream_filled ? 1 : 0;
  config.font_colour = entry.font_colour;
  config.stream_colour = entry.stream_colour;
  config.cog_colour = entry.cog_colour;
  config.wind_colour = entry.wind_colour;
  config.text_size = Whole(entry.text_size);
  return config.text_size == 0 ? ConfigureRefusal::kTextSize : ConfigureRefusal::kNone;
}

}  // namespace

std::vector<std::string> ThresholdChoices() {
  std::vector<std::string> choices;
  for (int tenths = 0; tenths <= 50; tenths += tenths < 10 ? 1 : 5) {
    choices.push_back(FormatFixed(tenths / 10.0, 1, 1));
  }
  return choices;
}
std::vector<std::string> TextSizeChoices() { return Choices(8, 22, 2); }
std::vector<std::string> LineWidthChoices() { return Choices(1, 4, 1); }
std::vector<std::string> StreamLengthChoices() { return Choices(2, 12, 2); }
std::vector<std::string> BarbSpacingChoices() { return Choices(2, 16, 2); }
std::vector<std::string> BarbLengthChoices() { return Choices(10, 50, 5); }
std::vector<std::string> TrackWidthChoices() { return Choices(1, 3, 1); }

ConfigureEntry ConfigureEntryOf(const AppConfig& config) {
  ConfigureEntry entry;
  entry.variation = ShortText(std::fabs(config.variation)) + (config.variation < 0.0F ? "W" : "E");
  entry.error_circle = ShortText(config.error_circle);
  entry.threshold = FormatFixed(config.slack_threshold, 1, 1);
  entry.search_circle = ShortText(config.search_circle);
  entry.boat_speed = ShortText(config.vessel_speed);
  entry.summer_time = config.summer_time != 0;
  entry.closest_sailing_angle = ShortText(config.closest_sailing_angle);
  entry.hide_stream_id = config.hide_stream_id != 0;
  entry.line_size = ShortText(config.line_width);
  entry.calc_interval = ShortText(config.calc_interval);
  entry.use_leeway = config.use_leeway != 0;
  entry.show_wind = config.show_wind_over_route != 0;
  entry.leeway = ShortText(config.leeway_angle);
  entry.use_tides = config.use_tides != 0;
  entry.barb_display_text = config.barb_display_text != 0;
  entry.use_forecast_wind = config.use_manual_wind == 0;
  entry.barb_weight = std::to_string(config.barb_weight);
  entry.barb_length = ShortText(config.barb_length);
  entry.barb_spacing = std::to_string(config.barb_spacing);
  entry.stream_as_shape = config.stream_as_shape != 0;
  entry.stream_line_width = std::to_string(config.stream_line_width);
  entry.stream_length = std::to_string(config.stream_length);
  entry.stream_filled = config.stream_filled != 0;
  entry.font_colour = config.font_colour;
  entry.stream_colour = config.stream_colour;
  entry.cog_colour = config.cog_colour;
  entry.wind_colour = config.wind_colour;
  entry.text_size = std::to_string(config.text_size);
  return entry;
}

std::string_view ConfigureText(ConfigureRefusal refusal) {
  switch (refusal) {
    case ConfigureRefusal::kNone:
      break;
    case ConfigureRefusal::kVariation:
      return "Enter a valid for Variation";
    case ConfigureRefusal::kErrorCircleEmpty:
      return "Enter a value for Acceptable Calculation Error Distance";
    case ConfigureRefusal::kErrorCircleZero:
      return "Enter a value greater than 0 for Acceptable Calculation Error Distance";
    case ConfigureRefusal::kBoatSpeed:
      return "Enter a value for Vessel Speed";
    case ConfigureRefusal::kClosestSailingAngle:
      return "Enter a value for Closest Sailing Angle";
    case ConfigureRefusal::kCalcInterval:
      return "Enter a value for Calculation Interval";
    case ConfigureRefusal::kBarbWeight:
      return "Barb line width =0 !!";
    case ConfigureRefusal::kBarbLength:
      return "Barb length =0 !!";
    case ConfigureRefusal::kBarbSpacing:
      return "Barb spacing =0 !!";
    case ConfigureRefusal::kStreamLineWidth:
      return "Tidal Stream line width =0 !!";
    case ConfigureRefusal::kTextSize:
      return "Font Size = 0 !!";
  }
  return "";
}

bool ConfigureBeeps(ConfigureRefusal refusal) {
  switch (refusal) {
    case ConfigureRefusal::kErrorCircleEmpty:
    case ConfigureRefusal::kErrorCircleZero:
    case ConfigureRefusal::kBoatSpeed:
    case ConfigureRefusal::kClosestSailingAngle:
    case ConfigureRefusal::kCalcInterval:
      return true;
    default:
      return false;
  }
}

ConfigureRefusal ApplyConfigureEntry(const ConfigureEntry& entry, AppConfig& config) {
  AppConfig changed = config;
  ConfigureRefusal refusal = ApplyCalculation(entry, changed);
  if (refusal == ConfigureRefusal::kNone) refusal = ApplyDisplay(entry, changed);
  if (refusal == ConfigureRefusal::kNone) config = std::move(changed);
  return refusal;
}

Status CommitConfigure(Program& program, const AppConfig& config, Messages& messages) {
  const bool summer_time_changed = program.config.summer_time != config.summer_time;
  const Status status = SaveConfig(program.folders, config);
  program.config = config;
  program.route_speed = config.vessel_speed;
  program.use_leeway = config.use_leeway != 0;
  if (!program.route.points.empty()) {
    SetAllSpeeds(program.route, config.vessel_speed);
    ForgetCalculation(program);
  }
  if (summer_time_changed) RebuildTides(program, messages);
  return status;
}

}  // namespace skerrow
