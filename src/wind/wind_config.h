#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "core/calendar.h"
#include "core/folders.h"
#include "core/position.h"
#include "core/record.h"
#include "core/result.h"

namespace skerrow {

// A wind by its speed in knots and the direction in degrees true that it blows from.
struct Wind {
  float speed_kn = 0.0F;
  float from_deg = 0.0F;
};

// The wind settings, one 24-byte record in WindConfig.cfg. Numbers are kept as short texts.
struct WindConfig {
  std::int16_t true_wind_flag = 0;
  std::int16_t apparent_wind_flag = 0;
  std::string first_speed = "5.0";
  std::string first_direction = "225";
  std::int16_t first_spare = 0;
  std::int16_t second_spare = 0;
  std::string default_speed = "5.0";
  std::string default_direction = "290";
  std::int16_t selected_setup = 0;  // index from 1; 0: none

  // The program's default wind.
  Wind Default() const;
  // Makes a wind the default, as its texts keep it: tenths of a knot and whole degrees.
  void SetDefault(const Wind& wind);
};

inline constexpr std::size_t kWindConfigSize = 24;
inline constexpr std::array<RecordField<WindConfig>, 9> kWindConfigFields = {{
    {0, 2, FieldType::kInt16, "TrueWind", &WindConfig::true_wind_flag, "true wind flag"},
    {2, 2, FieldType::kInt16, "ApparentWind", &WindConfig::apparent_wind_flag,
     "apparent wind flag"},
    {4, 4, FieldType::kText, "FirstSpeed", &WindConfig::first_speed, "first speed, knots, as text"},
    {8, 3, FieldType::kText, "FirstDirection", &WindConfig::first_direction,
     "first direction, degrees, as text"},
    {11, 2, FieldType::kInt16, "Spare1", &WindConfig::first_spare, "not used"},
    {13, 2, FieldType::kInt16, "Spare2", &WindConfig::second_spare, "not used"},
    {15, 4, FieldType::kText, "DefaultSpeed", &WindConfig::default_speed,
     "default wind speed, knots, as text"},
    {19, 3, FieldType::kText, "DefaultDirection", &WindConfig::default_direction,
     "default wind direction, degrees, as text"},
    {22, 2, FieldType::kInt16, "SetUp", &WindConfig::selected_setup,
     "index of the selected polar set-up"},
}};
static_assert(IsPacked(kWindConfigFields, kWindConfigSize));

// Reads the wind settings; a missing file is created with the defaults, a short one is taken as
// far as it goes. An unreadable file gives the defaults.
WindConfig LoadWindConfig(const Folders& folders);

// Writes the wind settings.
Status SaveWindConfig(const Folders& folders, const WindConfig& config);

// The wind at a place and time from imported forecasts; empty where there is none.
using WindLookup = std::function<std::optional<Wind>(Position, DayAndYear, float hours)>;

}  // namespace skerrow
