#include "ui/forms/instrument_settings_form.h"

#include <algorithm>

#include "core/numbers.h"
#include "ui/forms/link_form.h"

namespace skerrow {
namespace {

std::vector<SettingField> MakeFields() {
  using C = AppConfig;
  using K = SettingKind;
  using R = SettingRule;
  return {
      {.control = "cmbVHFRange",
       .field = &C::vhf_range,
       .label = "V&HF range:",
       .unit = "nm",
       .choices = {"5", "10", "15", "20", "25", "30"}},
      {.control = "cmbRadarRange",
       .field = &C::radar_range,
       .label = "Ra&dar range:",
       .unit = "nm",
       .choices = {"3", "6", "12", "16", "24", "36"}},
      {.control = "cmbHorizion",
       .field = &C::horizon_range,
       .label = "Hori&zon:",
       .unit = "nm",
       .choices = {"2", "3", "4", "5", "6", "8", "10"}},
      {.control = "chkEnableRings",
       .field = &C::range_rings_on,
       .kind = K::kMark,
       .label = "Show the range &rings round the boat"},
      {.control = "cmbAheadVector",
       .field = &C::heading_vector_length,
       .label = "Length of the &course ahead:",
       .unit = "nm",
       .choices = {"1", "2", "3", "5", "10", "20"}},
      {.control = "cmbBoatLineWidth",
       .field = &C::boat_line_width,
       .label = "&Line width of the boat:",
       .unit = "pixels",
       .choices = {"1", "2", "3", "4"},
       .typed = false,
       .rule = R::kRaised,
       .least = 1.0F},
      {.control = "pctGPSCol",
       .field = &C::boat_colour,
       .kind = K::kColour,
       .label = "Boat and trac&k:",
       .tip = "Colour of the boat and its track"},
      {.control = "chkBoatFutureTidePlot",
       .field = &C::boat_future_tide_plot,
       .kind = K::kMark,
       .label = "Show where the t&ide will take the boat"},
      {.control = "cmbAheadIntervals",
       .field = &C::ahead_interval,
       .label = "I&nterval between these positions:",
       .unit = "min",
       .choices = {"5", "10", "15", "20", "30", "60"},
       .rule = R::kAtLeast,
       .least = 1.0F,
       .refusal = "Enter an interval of at least 1 minute"},
      {.control = "chkGPSCentre",
       .field = &C::gps_centre,
       .kind = K::kMark,
       .label = "K&eep the boat on the chart"},
      {.control = "chktracklayer",
       .field = &C::track_layer_on,
       .kind = K::kMarkOne,
       .label = "Sho&w tracks"},
      {.control = "chkcomments",
       .field = &C::track_comments,
       .kind = K::kMarkOne,
       .label = "Show the co&mments of tracks"},
      {.control = "chkGPSThroAIS",
       .field = &C::gps_through_ais,
       .kind = K::kMark,
       .label = "GPS is &Connected to AIS",
       .tip = "One receiver gives both; the GPS port is not read"},
      {.control = "cmbCPAAlarm",
       .field = &C::cpa_alarm_range,
       .label = "CP&A Alarm Range(nm):",
       .tip = "A vessel that will come closer than this is filled and labelled",
       .choices = {"0.1", "0.25", "0.5", "1", "2", "3"}},
      {.control = "cmbAISSpeed",
       .field = &C::ais_min_speed,
       .label = "Only show vessels speed e&xceeding (kn):",
       .tip = "Of commercial vessels; 0 shows all",
       .choices = {"0", "0.5", "1", "2", "3", "5"}},
      {.control = "chkDisplayAISAsBoat",
       .field = &C::ais_as_boat,
       .kind = K::kMark,
       .label = "Display as a boat ic&on",
       .tip = "A hull in the place of a circle"},
      {.control = "chkAISHeadingVector",
       .field = &C::show_ais_heading,
       .kind = K::kMark,
       .label = "Show &heading vectors"},
      {.control = "chkAISHistTrack",
       .field = &C::show_ais_history,
       .kind = K::kMark,
       .label = "Show where vessels have bee&n"},
      {.control = "chkAISPredTrack",
       .field = &C::show_ais_predicted,
       .kind = K::kMark,
       .label = "Show p&redicted tracks"},
      {.control = "cmbAISLineWidth",
       .field = &C::ais_line_width,
       .label = "AIS Vessel Outline &Line Width:",
       .unit = "pixels",
       .choices = {"1", "2", "3", "4"},
       .typed = false,
       .rule = R::kRaised,
       .least = 1.0F},
      {.control = "pctClassACol",
       .field = &C::class_a_colour,
       .kind = K::kColour,
       .label = "&Commercial Shipping Colour (Class A):",
       .tip = "Colour of vessels of class A"},
      {.control = "pctClassBCol",
       .field = &C::class_b_colour,
       .kind = K::kColour,
       .label = "Oth&er Vessels Colour (Class B):",
       .tip = "Colour of vessels of class B"},
  };
}

}  // namespace

std::span<const SettingField> InstrumentFields() {
  static const std::vector<SettingField> fields = MakeFields();
  return fields;
}

InstrumentSettings InstrumentSettingsOf(const AppConfig& config, const SettingsStore& settings) {
  InstrumentSettings shown;
  shown.texts = ShowSettings(InstrumentFields(), config);
  shown.gps_port = std::to_string(config.gps_port + 1);
  shown.ais_port = std::to_string(config.ais_port + 1);
  const std::int64_t type = RoundToInteger(TextToNumber(config.gps_type_text));
  shown.gps_type = static_cast<std::size_t>(
      std::clamp<std::int64_t>(type, 1, static_cast<std::int64_t>(kGpsTypes.size())) - 1);
  shown.interval = LogIntervalIndex(config.log_interval);
  shown.save = config.nmea_log_on != 0;
  for (std::size_t i = 0; i < kLabelPlaces; ++i) {
    const std::int16_t item = config.ais_label_items[i];
    const bool listed = item > 0 && item < static_cast<int>(kLabelItems.size());
    shown.labels[i] = listed ? static_cast<std::size_t>(item) : 0;
  }
  shown.standard_ais = settings.GetInt(kInstrumentSection, kStandardAisKey, 0) != 0;
  shown.alarm_sound = settings.GetInt(kInstrumentSection, kAlarmSoundKey, 1) != 0;
  return shown;
}

std::optional<SettingRefusal> TakeInstrumentSettings(const InstrumentSettings& shown,
                                                     AppConfig& config) {
  const std::optional<std::int16_t> gps = PortOfText(shown.gps_port);
  if (!gps) return SettingRefusal{kGpsPortRow, kNoPortSelected};
  const std::optional<std::int16_t> ais = PortOfText(shown.ais_port);
  if (!ais) return SettingRefusal{kAisPortRow, kNoPortSelected};
  if (const auto refusal = TakeSettings(InstrumentFields(), shown.texts, config)) return refusal;
  config.gps_port = *gps;
  config.ais_port = *ais;
  config.gps_type_text = std::to_string(shown.gps_type + 1);
  config.gps_baud_code = static_cast<std::int16_t>(kGpsTypes[shown.gps_type].baud_code);
  config.log_interval = kLogIntervals[shown.interval].seconds;
  config.nmea_log_on = shown.save ? kTrue : kFalse;
  config.track_colour = config.boat_colour;
  for (std::size_t i = 0; i < kLabelPlaces; ++i) {
    config.ais_label_items[i] = static_cast<std::int16_t>(shown.labels[i]);
  }
  return std::nullopt;
}

Status CommitInstrumentSettings(Program& program, SettingsStore& settings,
                                const InstrumentSettings& shown) {
  AppConfig config = program.config;
  (void)ReadConfig(program.folders, config);
  (void)TakeInstrumentSettings(shown, config);  // The dialog has taken them once.
  settings.SetInt(kInstrumentSection, kStandardAisKey, shown.standard_ais ? 1 : 0);
  settings.SetInt(kInstrumentSection, kAlarmSoundKey, shown.alarm_sound ? 1 : 0);
  program.ais.options.standard = shown.standard_ais;
  program.config = config;
  return SaveConfig(program.folders, config);
}

}  // namespace skerrow
