#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "core/position.h"
#include "wind/wind_config.h"

// The imported wind that the chart shows: one wind a place, for the selected time and inside the
// chart's limits.
namespace skerrow {

struct Program;

// The wind at a point of the forecast's grid. Row and column count the latitudes and longitudes of
// the field from the south and the west, so that every second or third can be left out.
struct FieldWind {
  Position at;
  Wind wind;
  std::int32_t row = 0;
  std::int32_t column = 0;
};

struct WindField {
  std::vector<FieldWind> winds;
  // Between neighbouring rows and columns, degrees; 0 where there is one only.
  float row_step = 0.0F;
  float column_step = 0.0F;

  // What the field was made for.
  struct Key {
    std::uint32_t store = 0;  // revision of the store
    DayAndYear date;
    int bin = 0;
    float north = 0.0F, south = 0.0F, west = 0.0F, east = 0.0F;
    friend bool operator==(const Key&, const Key&) = default;
  };
  std::optional<Key> key;
};

// Makes the field anew where the store, the part of the day or the chart is another one than it was
// made for. Of several times in one part of the day the earliest is taken, as a lookup does.
void UpdateWindField(Program& program);

// What the title says of the forecast while its wind is in use on the chart; empty otherwise.
std::string WindCaption(const Program& program);

}  // namespace skerrow
