#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "core/folders.h"
#include "core/forecast.h"
#include "core/messages.h"
#include "core/record.h"
#include "core/result.h"
#include "wind/wind_store.h"

// The winds of an imported forecast with their components, as the wind viewer lists them.
namespace skerrow {

// One record of "~GrDa.tmp".
struct GribWind {
  float time = 0.0F;  // days from the beginning of 2000
  float latitude = 0.0F;
  float longitude = 0.0F;
  float speed = 0.0F;      // knots; kNoWind: none is known here
  float direction = 0.0F;  // degrees true that it blows from
  float u = 0.0F;          // metres a second towards the east; kNoComponent: missing
  float v = 0.0F;          // towards the north
  std::int32_t frame = 0;  // number of the time in the forecast, from 1

  friend bool operator==(const GribWind&, const GribWind&) = default;
};
inline constexpr float kNoComponent = -9999.0F;

inline constexpr std::size_t kGribWindSize = 32;
inline constexpr std::array<RecordField<GribWind>, 8> kGribWindFields = {{
    {0, 4, FieldType::kFloat, "Time", &GribWind::time, "days from 1 January 2000, 0 h"},
    {4, 4, FieldType::kFloat, "Lat", &GribWind::latitude, "degrees, north positive"},
    {8, 4, FieldType::kFloat, "Lon", &GribWind::longitude, "degrees, east positive"},
    {12, 4, FieldType::kFloat, "Speed", &GribWind::speed, "knots; 999 for no wind here"},
    {16, 4, FieldType::kFloat, "Direction", &GribWind::direction,
     "degrees true that the wind blows from, 0 to under 360"},
    {20, 4, FieldType::kFloat, "U", &GribWind::u,
     "metres a second towards the east; -9999 for none"},
    {24, 4, FieldType::kFloat, "V", &GribWind::v,
     "metres a second towards the north; -9999 for none"},
    {28, 4, FieldType::kInt32, "Frame", &GribWind::frame,
     "number of the time in the forecast, from 1"},
}};
static_assert(IsPacked(kGribWindFields, kGribWindSize));

// The winds of a forecast: for each time in order the grid of the first wind message, row by row.
// A message on another grid, or one of a time that is not known, is left out, and one message says
// so.
std::vector<GribWind> MakeGribWinds(std::span<const GribRecord> records, Messages& messages);

// The records of the wind store for these winds, behind its placeholder.
std::vector<WindCell> WindCellsOf(std::span<const GribWind> winds);

// "~GrDa.tmp", which the wind viewer reads.
std::string GribWindFile(const Folders& folders);
// Replaces it. Errors: those of ReplaceFile.
Status WriteGribWinds(const Folders& folders, std::span<const GribWind> winds);
// Its whole records. Errors: it is missing or can not be read.
Result<std::vector<GribWind>> ReadGribWinds(const Folders& folders);

}  // namespace skerrow
