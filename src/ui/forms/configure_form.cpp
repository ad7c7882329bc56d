#include "ui/forms/configure_form.h"

#include "app/edits.h"
#include "core/numbers.h"

namespace skerrow {
namespace {

std::vector<std::string> Choices(int first, int last, int step) {
  std::vector<std::string> choices;
  for (int value = first; value <= last; value += step) choices.push_back(std::to_string(value));
  return choices;
}

// "0.0" to "1.0" by tenths, then "1.5" to "5.0" by halves.
std::vector<std::string> Thresholds() {
  std::vector<std::string> choices;
  for (int tenths = 0; tenths <= 50; tenths += tenths < 10 ? 1 : 5) {
    choices.push_back(FormatFixed(tenths / 10.0, 1, 1));
  }
  return choices;
}

std::vector<SettingField> MakeFields() {
  using C = AppConfig;
  using K = SettingKind;
  using R = SettingRule;
  return {
      {.control = "Txtvariation",
       .field = &C::variation,
       .kind = K::kVariation,
       .label = "&Variation:",
       .unit = "°",
       .tip = "Degrees with W or E behind them: 4W",
       .filter = KeyFilter::kVariation,
       .refusal = "Enter a valid for Variation"},
      {.control = "txtErrorCircle",
       .field = &C::error_circle,
       .label = "Course to Steer &Range Alarm:",
       .unit = "nm",
       .tip = "A leg that ends farther than this from its destination is reported",
       .filter = KeyFilter::kQuietNumber,
       .rule = R::kNotZero,
       .refusal = "Enter a value greater than 0 for Acceptable Calculation Error Distance",
       .empty_refusal = "Enter a value for Acceptable Calculation Error Distance",
       .beep = true},
      {.control = "cmbThreshold",
       .field = &C::slack_threshold,
       .kind = K::kTenths,
       .label = "Slack &threshold:",
       .unit = "kn",
       .tip = "Streams weaker than this count as slack",
       .choices = Thresholds()},
      {.control = "txtSearchCircle",
       .field = &C::search_circle,
       .label = "Search &circle:",
       .unit = "nm",
       .tip = "How near a click must be to a port or diamond; at least 0.01",
       .rule = R::kRaised,
       .least = 0.01F},
      {.control = "Txtboatspeed",
       .field = &C::vessel_speed,
       .label = "Vessel spee&d:",
       .unit = "kn",
       .rule = R::kNotZero,
       .refusal = "Enter a value for Vessel Speed",
       .beep = true},
      {.control = "optSummerTime",
       .field = &C::summer_time,
       .kind = K::kOption,
       .label = "The PC clock keeps s&ummer time",
       .other_control = "optDaylightSavings",
       .other_label = "The PC clock keeps standard time all &year"},
      {.control = "txtCPAWind",
       .field = &C::closest_sailing_angle,
       .label = "Closest sailing an&gle:",
       .unit = "°",
       .rule = R::kNotZero,
       .refusal = "Enter a value for Closest Sailing Angle",
       .beep = true},
      {.control = "chkHideStreamId",
       .field = &C::hide_stream_id,
       .kind = K::kMark,
       .label = "H&ide the diamond's number"},
      {.control = "cmbLineSize",
       .field = &C::line_width,
       .label = "&Line width:",
       .unit = "pixels",
       .choices = Choices(1, 3, 1),
       .typed = false,
       .rule = R::kRaised,
       .least = 1.0F},
      {.control = "txtCalcInterval",
       .field = &C::calc_interval,
       .label = "Calculation &interval:",
       .unit = "min",
       .tip = "Minutes between the steps of a calculation; at least 1",
       .rule = R::kAtLeast,
       .least = 1.0F,
       .refusal = "Enter a value for Calculation Interval",
       .beep = true},
      {.control = "chkLeeway",
       .field = &C::use_leeway,
       .kind = K::kMarkOne,
       .label = "Allow for &leeway"},
      {.control = "chkShowwind",
       .field = &C::show_wind_over_route,
       .kind = K::kMark,
       .label = "Show wind along the r&oute"},
      {.control = "txtLeeWay", .field = &C::leeway_angle, .label = "Leeway &angle:", .unit = "°"},
      {.control = "chkUseTides",
       .field = &C::use_tides,
       .kind = K::kMark,
       .label = "Use &tides in calculations"},
      {.control = "chkBarbDisplayText",
       .field = &C::barb_display_text,
       .kind = K::kMark,
       .label = "Write the speed beside the bar&bs"},
      {.control = "chkUseSmartMet",
       .field = &C::use_manual_wind,
       .kind = K::kMarkClear,
       .label = "Take the wind from imported &forecasts"},
      {.control = "cmbBarbWeight",
       .field = &C::barb_weight,
       .label = "Line wi&dth:",
       .unit = "pixels",
       .choices = Choices(1, 4, 1),
       .rule = R::kNotZero,
       .refusal = "Barb line width =0 !!"},
      {.control = "cmbBarbLength",
       .field = &C::barb_length,
       .label = "L&ength:",
       .unit = "pixels",
       .choices = Choices(10, 50, 5),
       .rule = R::kNotZero,
       .refusal = "Barb length =0 !!"},
      {.control = "cmbBarbSpacing",
       .field = &C::barb_spacing,
       .label = "Spac&ing:",
       .unit = "pixels",
       .choices = Choices(2, 16, 2),
       .rule = R::kNotZero,
       .refusal = "Barb spacing =0 !!"},
      {.control = "chkStreamAsShape",
       .field = &C::stream_as_shape,
       .kind = K::kMark,
       .label = "Show streams &as arrow shapes"},
      {.control = "cmbStreamLineWidth",
       .field = &C::stream_line_width,
       .label = "Line wi&dth:",
       .unit = "pixels",
       .choices = Choices(1, 4, 1),
       .rule = R::kNotZero,
       .refusal = "Tidal Stream line width =0 !!"},
      {.control = "cmbStreamLength",
       .field = &C::stream_length,
       .label = "L&ength:",
       .unit = "pixels a knot",
       .choices = Choices(2, 12, 2)},
      {.control = "chkStreamFilled",
       .field = &C::stream_filled,
       .kind = K::kMarkOne,
       .label = "&Fill the shapes"},
      {.control = "pctFontCol",
       .field = &C::font_colour,
       .kind = K::kColour,
       .label = "Text colou&r:",
       .tip = "Colour of the text on the chart"},
      {.control = "pctTidalStreamCol",
       .field = &C::stream_colour,
       .kind = K::kColour,
       .label = "Colou&r:",
       .tip = "Colour of the tidal streams"},
      {.control = "pctCOGCol",
       .field = &C::cog_colour,
       .kind = K::kColour,
       .label = "Course over &ground:",
       .tip = "Colour of the predicted track"},
      {.control = "pctWindCol",
       .field = &C::wind_colour,
       .kind = K::kColour,
       .label = "Colou&r:",
       .tip = "Colour of the wind marks"},
      {.control = "cmbTextSize",
       .field = &C::text_size,
       .label = "Te&xt size:",
       .unit = "points",
       .choices = Choices(8, 22, 2),
       .typed = false,
       .rule = R::kNotZero,
       .refusal = "Font Size = 0 !!"},
  };
}

}  // namespace

std::span<const SettingField> ConfigureFields() {
  static const std::vector<SettingField> fields = MakeFields();
  return fields;
}

std::optional<SettingRefusal> TakeConfigure(const SettingTexts& texts, AppConfig& config) {
  const std::optional<SettingRefusal> refusal = TakeSettings(ConfigureFields(), texts, config);
  if (!refusal) {
    config.reserved12 = 0;
    config.track_colour = config.boat_colour;
  }
  return refusal;
}

Status CommitConfigure(Program& program, const AppConfig& config, Messages& messages) {
  const bool summer_time_changed = program.config.summer_time != config.summer_time;
  Status status = SaveConfig(program.folders, config);
  program.config = config;
  program.route_speed = config.vessel_speed;
  program.use_leeway = config.use_leeway != 0;
  if (!program.route.points.empty()) {
    EditRoute(program, messages, "Vessel Speed",
              [&](RouteState& route) { SetAllSpeeds(route, config.vessel_speed); });
    // Other settings than the speed have a part in the results too.
    ForgetCalculation(program);
  }
  if (summer_time_changed) RebuildTides(program, messages);
  return status;
}

}  // namespace skerrow
