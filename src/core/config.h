#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "core/folders.h"
#include "core/messages.h"
#include "core/record.h"

// The settings record and its file.
namespace skerrow {

// The two values of a 16-bit Boolean in a record. Any value but 0 reads as true.
inline constexpr std::int16_t kTrue = -1;
inline constexpr std::int16_t kFalse = 0;
constexpr std::int16_t Bool16(bool value) { return value ? kTrue : kFalse; }

// A 32-bit colour: red in the lowest byte, then green, then blue.
constexpr std::int32_t Rgb(int red, int green, int blue) {
  return red | (green << 8) | (blue << 16);
}

// All persistent settings. The members stand in file order with their defaults; kAppConfigFields
// gives each one's place, published name and meaning. The path defaults depend on the program
// folder: see DefaultConfig.
struct AppConfig {
  std::string sea_area = "Sample Chart";
  std::string chart_path;
  std::string tidal_area = "Sample Chart";
  std::string waypoint_file = "Sample.way";
  std::string gps_type_text = "1";
  std::string text_folder;
  std::string reserved1;
  std::string reserved2;
  std::string reserved3;
  std::string tidal_port_file = "UK.hc";
  std::string tide_port_name = "Dover";
  std::int16_t tide_port_number = 76;
  std::int16_t show_chart_boundaries = kFalse;
  std::int16_t show_tide_heights = kTrue;
  float cpa_alarm_range = 0.25F;
  float vhf_range = 10.0F;
  float radar_range = 12.0F;
  float horizon_range = 8.0F;
  float search_circle = 1.0F;
  float draught = 0.5F;
  float under_keel_clearance = 0.5F;
  float slack_threshold = 3.0F;
  std::int16_t range_rings_on = kTrue;
  std::int16_t reserved4 = 0;
  std::int16_t ais_as_boat = kTrue;
  std::int16_t boat_line_width = 2;
  std::int16_t boat_future_tide_plot = kFalse;
  float ahead_interval = 10.0F;
  std::int16_t ais_line_width = 2;
  std::int16_t toolbar_visible = kTrue;
  std::int16_t nmea_log_on = kTrue;
  std::int16_t gps_through_ais = kFalse;
  std::int16_t show_ais_details = kTrue;
  std::int16_t show_ais_history = kTrue;
  std::int16_t show_ais_predicted = kFalse;
  std::int16_t show_ais_heading = kFalse;
  std::array<std::int16_t, 8> ais_label_items = {1, 4, 5, 0, 0, 0, 0, 0};
  std::int16_t reserved5 = 0;
  float show_streams = 1.0F;
  float show_waypoints = 1.0F;
  float reserved6 = 0.0F;
  float line_width = 2.0F;
  std::int16_t ais_port = 1;
  std::int16_t reserved7 = 7;
  std::int16_t gps_port = 0;
  std::int16_t gps_baud_code = 4;
  float calc_interval = 5.0F;
  float ais_min_speed = 0.0F;
  float vessel_speed = 5.0F;
  float error_circle = 1.0F;
  float variation = -4.0F;
  float track_comments = 1.0F;
  float reserved8 = 1.0F;
  std::int16_t log_interval = 30;
  float track_layer_on = 1.0F;
  float reserved9 = 1.0F;
  float reserved10 = 0.0F;
  std::int16_t summer_time = kFalse;
  float closest_sailing_angle = 40.0F;
  float leeway_angle = 5.0F;
  std::int16_t reserved11 = 0;
  float heading_vector_length = 5.0F;
  std::int16_t hide_stream_id = kFalse;
  std::int16_t reserved12 = 2;
  std::int16_t use_leeway = 0;
  std::int16_t barb_weight = 2;
  std::string chart_file_name = "9999-1.cht";
  std::string chart_folder;
  float chart_scale_choice = 5000.0F;
  std::int16_t show_wind_over_route = kFalse;
  std::int16_t show_vectors = kTrue;
  std::int16_t reserved13 = 0;
  std::int16_t set_leg_option = kFalse;
  std::int32_t reserved14 = 6534279;
  std::int32_t reserved15 = 143232;
  std::int32_t reserved16 = 4;
  std::int16_t reserved17 = 0;
  std::int16_t reserved18 = 0;
  std::int16_t gps_centre = kFalse;
  std::int16_t use_tides = kTrue;
  std::int32_t track_colour = Rgb(255, 0, 0);
  std::int32_t class_a_colour = Rgb(0, 0, 255);
  std::int32_t class_b_colour = Rgb(0, 128, 128);
  std::int32_t cog_colour = Rgb(0, 89, 89);
  std::int32_t boat_colour = Rgb(255, 0, 0);
  std::int32_t wind_colour = Rgb(255, 0, 0);
  float barb_length = 20.0F;
  std::int16_t barb_spacing = 6;
  std::int16_t barb_display_text = kFalse;
  std::int16_t use_manual_wind = kTrue;
  std::int16_t show_wind_grid = kFalse;
  std::int16_t tide_display_option = 2;
  std::int16_t reserved19 = 1;
  std::int16_t stream_length = 2;
  std::int16_t stream_filled = 1;
  std::int16_t stream_line_width = 2;
  std::int32_t stream_colour = Rgb(255, 0, 255);
  std::int16_t stream_as_shape = kTrue;
  std::int32_t text_size = 12;
  std::int32_t font_colour = Rgb(0, 0, 0);
};

inline constexpr std::size_t kAppConfigSize = 2956;
inline constexpr std::array<RecordField<AppConfig>, 100> kAppConfigFields = {{
    {0, 256, FieldType::kText, "SeaArea", &AppConfig::sea_area,
     "name of the chart sea area; its index is Charts/<name>.xrf"},
    {256, 256, FieldType::kText, "ChartPath", &AppConfig::chart_path,
     "full path of the current chart without extension"},
    {512, 256, FieldType::kText, "TidalArea", &AppConfig::tidal_area,
     "base name of the diamond table in /TS/"},
    {768, 256, FieldType::kText, "WaypointFile", &AppConfig::waypoint_file,
     "current waypoint file name"},
    {1024, 128, FieldType::kText, "GpsTypeText", &AppConfig::gps_type_text,
     "GPS type index as digits; see GpsBaudCode"},
    {1152, 512, FieldType::kText, "TextFolder", &AppConfig::text_folder,
     "folder last used for text export and import"},
    {1664, 128, FieldType::kRawText, "Reserved1", &AppConfig::reserved1, "not used"},
    {1792, 128, FieldType::kRawText, "Reserved2", &AppConfig::reserved2, "not used"},
    {1920, 128, FieldType::kRawText, "Reserved3", &AppConfig::reserved3, "not used"},
    {2048, 256, FieldType::kText, "TidalPortFile", &AppConfig::tidal_port_file,
     "harmonic constants file of the current area, in /TS/"},
    {2304, 128, FieldType::kText, "TidePortName", &AppConfig::tide_port_name,
     "port shown by the tide curve at first"},
    {2432, 2, FieldType::kInt16, "TidePortNumber", &AppConfig::tide_port_number,
     "index of that port in its file"},
    {2434, 2, FieldType::kBool16, "ShowChartBoundaries", &AppConfig::show_chart_boundaries,
     "mnuViewChartBoundaries"},
    {2436, 2, FieldType::kBool16, "ShowTideHeights", &AppConfig::show_tide_heights,
     "mnushowTideHeights"},
    {2438, 4, FieldType::kFloat, "CpaAlarmRange", &AppConfig::cpa_alarm_range, "cmbCPAAlarm, nm"},
    {2442, 4, FieldType::kFloat, "VhfRange", &AppConfig::vhf_range, "cmbVHFRange, range ring, nm"},
    {2446, 4, FieldType::kFloat, "RadarRange", &AppConfig::radar_range,
     "cmbRadarRange, range ring, nm"},
    {2450, 4, FieldType::kFloat, "HorizonRange", &AppConfig::horizon_range,
     "cmbHorizion, range ring, nm"},
    {2454, 4, FieldType::kFloat, "SearchCircle", &AppConfig::search_circle,
     "txtSearchCircle, nm; smallest 0.01"},
    {2458, 4, FieldType::kFloat, "Draught", &AppConfig::draught, "draughttext, metres"},
    {2462, 4, FieldType::kFloat, "UnderKeelClearance", &AppConfig::under_keel_clearance,
     "ukctext, metres"},
    {2466, 4, FieldType::kFloat, "SlackThreshold", &AppConfig::slack_threshold,
     "cmbThreshold, knots"},
    {2470, 2, FieldType::kBool16, "RangeRingsOn", &AppConfig::range_rings_on, "chkEnableRings"},
    {2472, 2, FieldType::kInt16, "Reserved4", &AppConfig::reserved4, "not used"},
    {2474, 2, FieldType::kBool16, "AisAsBoat", &AppConfig::ais_as_boat, "chkDisplayAISAsBoat"},
    {2476, 2, FieldType::kInt16, "BoatLineWidth", &AppConfig::boat_line_width,
     "cmbBoatLineWidth, pixels"},
    {2478, 2, FieldType::kBool16, "BoatFutureTidePlot", &AppConfig::boat_future_tide_plot,
     "chkBoatFutureTidePlot"},
    {2480, 4, FieldType::kFloat, "AheadInterval", &AppConfig::ahead_interval,
     "cmbAheadIntervals, minutes"},
    {2484, 2, FieldType::kInt16, "AisLineWidth", &AppConfig::ais_line_width,
     "cmbAISLineWidth, pixels"},
    {2486, 2, FieldType::kBool16, "ToolbarVisible", &AppConfig::toolbar_visible,
     "mnuToolBarVisible"},
    {2488, 2, FieldType::kBool16, "NmeaLogOn", &AppConfig::nmea_log_on, "chkNmeaLogOn"},
    {2490, 2, FieldType::kBool16, "GpsThroughAis", &AppConfig::gps_through_ais,
     "chkGPSThroAIS: GPS data arrive on the AIS port"},
    {2492, 2, FieldType::kBool16, "ShowAisDetails", &AppConfig::show_ais_details,
     "mnuShowAISDetails"},
    {2494, 2, FieldType::kBool16, "ShowAisHistory", &AppConfig::show_ais_history,
     "mnuShowHistorical, chkAISHistTrack"},
    {2496, 2, FieldType::kBool16, "ShowAisPredicted", &AppConfig::show_ais_predicted,
     "mnuAISDisplayPredicted, chkAISPredTrack"},
    {2498, 2, FieldType::kBool16, "ShowAisHeading", &AppConfig::show_ais_heading,
     "mnuAISShowHeadVect, chkAISHeadingVector"},
    {2500, 16, FieldType::kInt16Array, "AisLabelItems", &AppConfig::ais_label_items,
     "what is written beside an AIS target, line by line: indexes into the list NONE, CPA, "
     "Destination, Dimensions, Heading, MMSI, Vessel Name, Navstatus, Ship Type"},
    {2516, 2, FieldType::kInt16, "Reserved5", &AppConfig::reserved5, "not used"},
    {2518, 4, FieldType::kFloat, "ShowStreams", &AppConfig::show_streams,
     "mnuShowTidalStreams: 1.0 shown, 0.0 hidden"},
    {2522, 4, FieldType::kFloat, "ShowWaypoints", &AppConfig::show_waypoints,
     "mnuShowWaypoints: 1.0 shown, 0.0 hidden"},
    {2526, 4, FieldType::kFloat, "Reserved6", &AppConfig::reserved6, "not used"},
    {2530, 4, FieldType::kFloat, "LineWidth", &AppConfig::line_width,
     "cmbLineSize, course and track line width, pixels"},
    {2534, 2, FieldType::kInt16, "AisPort", &AppConfig::ais_port, "cmbAISPort minus 1"},
    {2536, 2, FieldType::kInt16, "Reserved7", &AppConfig::reserved7, "not used"},
    {2538, 2, FieldType::kInt16, "GpsPort", &AppConfig::gps_port, "cmbGPSPort minus 1"},
    {2540, 2, FieldType::kInt16, "GpsBaudCode", &AppConfig::gps_baud_code,
     "4 = 4800 baud, 5 = 9600, 6 = 19200, 7 = 38400"},
    {2542, 4, FieldType::kFloat, "CalcInterval", &AppConfig::calc_interval,
     "txtCalcInterval, calculation step, minutes"},
    {2546, 4, FieldType::kFloat, "AisMinSpeed", &AppConfig::ais_min_speed, "cmbAISSpeed, knots"},
    {2550, 4, FieldType::kFloat, "VesselSpeed", &AppConfig::vessel_speed, "Txtboatspeed, knots"},
    {2554, 4, FieldType::kFloat, "ErrorCircle", &AppConfig::error_circle, "txtErrorCircle, nm"},
    {2558, 4, FieldType::kFloat, "Variation", &AppConfig::variation,
     "Txtvariation, degrees, east positive"},
    {2562, 4, FieldType::kFloat, "TrackComments", &AppConfig::track_comments,
     "chkcomments: 1.0 on, 0.0 off"},
    {2566, 4, FieldType::kFloat, "Reserved8", &AppConfig::reserved8, "written, never read"},
    {2570, 2, FieldType::kInt16, "LogInterval", &AppConfig::log_interval,
     "cmbGPSInterval, seconds"},
    {2572, 4, FieldType::kFloat, "TrackLayerOn", &AppConfig::track_layer_on,
     "chktracklayer: 1.0 on, 0.0 off"},
    {2576, 4, FieldType::kFloat, "Reserved9", &AppConfig::reserved9, "written, never read"},
    {2580, 4, FieldType::kFloat, "Reserved10", &AppConfig::reserved10, "not used"},
    {2584, 2, FieldType::kBool16, "SummerTime", &AppConfig::summer_time,
     "optSummerTime, optDaylightSavings: -1 the PC clock keeps summer time"},
    {2586, 4, FieldType::kFloat, "ClosestSailingAngle", &AppConfig::closest_sailing_angle,
     "txtCPAWind, degrees"},
    {2590, 4, FieldType::kFloat, "LeewayAngle", &AppConfig::leeway_angle, "txtLeeWay, degrees"},
    {2594, 2, FieldType::kInt16, "Reserved11", &AppConfig::reserved11, "not used"},
    {2596, 4, FieldType::kFloat, "HeadingVectorLength", &AppConfig::heading_vector_length,
     "cmbAheadVector, nm"},
    {2600, 2, FieldType::kBool16, "HideStreamId", &AppConfig::hide_stream_id, "chkHideStreamId"},
    {2602, 2, FieldType::kInt16, "Reserved12", &AppConfig::reserved12,
     "written as 0 by frmConfigure, never read"},
    {2604, 2, FieldType::kInt16, "UseLeeway", &AppConfig::use_leeway, "chkLeeway: 1 or 0"},
    {2606, 2, FieldType::kInt16, "BarbWeight", &AppConfig::barb_weight, "cmbBarbWeight, pixels"},
    {2608, 128, FieldType::kText, "ChartFileName", &AppConfig::chart_file_name,
     "current chart file name with extension"},
    {2736, 128, FieldType::kText, "ChartFolder", &AppConfig::chart_folder,
     "folder of the current chart"},
    {2864, 4, FieldType::kFloat, "ChartScaleChoice", &AppConfig::chart_scale_choice,
     "cmbScale of frmLoadChart"},
    {2868, 2, FieldType::kBool16, "ShowWindOverRoute", &AppConfig::show_wind_over_route,
     "chkShowwind, mnuDisplayWindOverRoute"},
    {2870, 2, FieldType::kBool16, "ShowVectors", &AppConfig::show_vectors, "mnuViewVectors"},
    {2872, 2, FieldType::kInt16, "Reserved13", &AppConfig::reserved13, "not used"},
    {2874, 2, FieldType::kBool16, "SetLegOption", &AppConfig::set_leg_option,
     "read at the opening of frmSetLeg and frmCalcCOG"},
    {2876, 4, FieldType::kInt32, "Reserved14", &AppConfig::reserved14, "not used"},
    {2880, 4, FieldType::kInt32, "Reserved15", &AppConfig::reserved15, "not used"},
    {2884, 4, FieldType::kInt32, "Reserved16", &AppConfig::reserved16, "not used"},
    {2888, 2, FieldType::kInt16, "Reserved17", &AppConfig::reserved17, "not used"},
    {2890, 2, FieldType::kInt16, "Reserved18", &AppConfig::reserved18, "not used"},
    {2892, 2, FieldType::kBool16, "GpsCentre", &AppConfig::gps_centre,
     "chkGPSCentre, mnuGPSCentre"},
    {2894, 2, FieldType::kBool16, "UseTides", &AppConfig::use_tides, "chkUseTides"},
    {2896, 4, FieldType::kColour, "TrackColour", &AppConfig::track_colour, "copy of BoatColour"},
    {2900, 4, FieldType::kColour, "ClassAColour", &AppConfig::class_a_colour, "class A targets"},
    {2904, 4, FieldType::kColour, "ClassBColour", &AppConfig::class_b_colour, "class B targets"},
    {2908, 4, FieldType::kColour, "CogColour", &AppConfig::cog_colour, "course-over-ground track"},
    {2912, 4, FieldType::kColour, "BoatColour", &AppConfig::boat_colour, "boat and its track"},
    {2916, 4, FieldType::kColour, "WindColour", &AppConfig::wind_colour, "wind marks"},
    {2920, 4, FieldType::kFloat, "BarbLength", &AppConfig::barb_length, "cmbBarbLength, pixels"},
    {2924, 2, FieldType::kInt16, "BarbSpacing", &AppConfig::barb_spacing, "cmbBarbSpacing, pixels"},
    {2926, 2, FieldType::kBool16, "BarbDisplayText", &AppConfig::barb_display_text,
     "chkBarbDisplayText"},
    {2928, 2, FieldType::kBool16, "UseManualWind", &AppConfig::use_manual_wind,
     "-1 wind from the user's entry, 0 from imported GRIB data (chkUseSmartMet checked)"},
    {2930, 2, FieldType::kBool16, "ShowWindGrid", &AppConfig::show_wind_grid, "mnuWindDisplay"},
    {2932, 2, FieldType::kInt16, "TideDisplayOption", &AppConfig::tide_display_option,
     "1 heights to chart datum, 2 with charted depth, 3 with draught and under-keel clearance "
     "(frmTideOptions)"},
    {2934, 2, FieldType::kInt16, "Reserved19", &AppConfig::reserved19, "not used"},
    {2936, 2, FieldType::kInt16, "StreamLength", &AppConfig::stream_length,
     "cmbStreamLength, pixels"},
    {2938, 2, FieldType::kInt16, "StreamFilled", &AppConfig::stream_filled, "chkStreamFilled"},
    {2940, 2, FieldType::kInt16, "StreamLineWidth", &AppConfig::stream_line_width,
     "cmbStreamLineWidth, pixels"},
    {2942, 4, FieldType::kColour, "StreamColour", &AppConfig::stream_colour, "tidal stream marks"},
    {2946, 2, FieldType::kBool16, "StreamAsShape", &AppConfig::stream_as_shape, "chkStreamAsShape"},
    {2948, 4, FieldType::kInt32, "TextSize", &AppConfig::text_size, "cmbTextSize, points"},
    {2952, 4, FieldType::kColour, "FontColour", &AppConfig::font_colour, "text on the chart"},
}};
static_assert(IsPacked(kAppConfigFields, kAppConfigSize));

// The default settings, with the paths below `program_folder`.
AppConfig DefaultConfig(const std::string& program_folder);

// Writes the defaults over the stored file. A failure shows "Unable to create a configuration
// file." and gives false.
bool WriteDefaultConfig(const Folders& folders, Messages& messages);

// Puts the defaults in the place of the stored settings, which are first copied to HelmConfig.bak
// beside them; an earlier HelmConfig.bak that differs goes on to HelmConfig-1.bak, or the next free
// number, so that no copy is ever written over. Gives the path of the copy; it is empty where there
// was nothing to lose, no settings or the defaults. Error, with the settings as they were: they
// cannot be read, copied or written.
Result<std::string> RestoreDefaultConfig(const Folders& folders);

// Reads the stored record over `config`. A short file leaves the fields beyond its end as they
// were; an unreadable one leaves all and gives the error.
Status ReadConfig(const Folders& folders, AppConfig& config);

// Writes the whole record as it stands.
Status SaveConfig(const Folders& folders, const AppConfig& config);

// What every toggle does: reads the stored record, applies `change` to it, writes it back and puts
// it into `config`. When the write fails `config` still holds the change, and the error is given.
Status ReloadThenSave(const Folders& folders, AppConfig& config,
                      const std::function<void(AppConfig&)>& change);

// Sets the field of the published name `name` from a text: text as it is; numbers in plain form;
// Booleans as 0 or -1, "false" or "true"; colours as a number or "red,green,blue"; lists
// comma-separated. Error: no such field, or a text that does not fit the field.
Status SetConfigField(AppConfig& config, std::string_view name, std::string_view text);

}  // namespace skerrow
