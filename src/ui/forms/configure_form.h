#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"

// The general settings: what `frmConfigure` shows, checks and does.
namespace skerrow {

// The controls of the dialog: texts as shown and typed, marks, colours.
struct ConfigureEntry {
  std::string variation;  // "4W"
  std::string error_circle;
  std::string threshold;  // "3.0"
  std::string search_circle;
  std::string boat_speed;
  bool summer_time = false;
  std::string closest_sailing_angle;
  bool hide_stream_id = false;
  std::string line_size;
  std::string calc_interval;
  bool use_leeway = false;
  bool show_wind = false;
  std::string leeway;
  bool use_tides = false;
  bool barb_display_text = false;
  bool use_forecast_wind = false;
  std::string barb_weight;
  std::string barb_length;
  std::string barb_spacing;
  bool stream_as_shape = false;
  std::string stream_line_width;
  std::string stream_length;
  bool stream_filled = false;
  std::int32_t font_colour = 0;
  std::int32_t stream_colour = 0;
  std::int32_t cog_colour = 0;
  std::int32_t wind_colour = 0;
  std::string text_size;
};

// The choices of the lists.
std::vector<std::string> ThresholdChoices();     // "0.0" to "1.0", "1.5" to "5.0"
std::vector<std::string> TextSizeChoices();      // 8 to 22
std::vector<std::string> LineWidthChoices();     // of stream lines and barbs: 1 to 4
std::vector<std::string> StreamLengthChoices();  // 2 to 12
std::vector<std::string> BarbSpacingChoices();   // 2 to 16
std::vector<std::string> BarbLengthChoices();    // 10 to 50
std::vector<std::string> TrackWidthChoices();    // 1 to 3

// The entry that shows a record.
ConfigureEntry ConfigureEntryOf(const AppConfig& config);

// Why OK is refused, in the order of the checks.
enum class ConfigureRefusal {
  kNone,
  kVariation,
  kErrorCircleEmpty,
  kErrorCircleZero,
  kBoatSpeed,
  kClosestSailingAngle,
  kCalcInterval,
  kBarbWeight,
  kBarbLength,
  kBarbSpacing,
  kStreamLineWidth,
  kTextSize,
};

// The words of a refusal, and whether a beep goes before them.
std::string_view ConfigureText(ConfigureRefusal refusal);
bool ConfigureBeeps(ConfigureRefusal refusal);

// Puts an entry into a record; the first check that fails ends it with `config` as it was. A line
// size of 0 becomes 1, a search circle below 0.01 becomes 0.01.
ConfigureRefusal ApplyConfigureEntry(const ConfigureEntry& entry, AppConfig& config);

// Writes the record and carries it into the program: the working speed and leeway, the vectors,
// the speeds of the route points, and the tides when summer time has changed. Error: the settings
// could not be written; the program then goes on with them all the same.
Status CommitConfigure(Program& program, const AppConfig& config, Messages& messages);

}  // namespace skerrow
