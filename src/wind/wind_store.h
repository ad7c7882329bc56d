#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "core/folders.h"
#include "core/forecast.h"
#include "core/messages.h"
#include "core/position.h"
#include "core/record.h"
#include "wind/wind_config.h"

// The wind of an imported forecast, kept as a flat file of wind points, and the wind at a place and
// time from it.
namespace skerrow {

// One record of "~wind.dat".
struct WindCell {
  float time = 0.0F;  // days from the beginning of 2000
  float latitude = 0.0F;
  float longitude = 0.0F;
  float speed = 0.0F;      // knots; kNoWind: none is known here
  float direction = 0.0F;  // degrees true that it blows from, 0 to under 360

  Position At() const { return {latitude, longitude}; }
};
inline constexpr float kNoWind = 999.0F;

inline constexpr std::size_t kWindCellSize = 20;
inline constexpr std::array<RecordField<WindCell>, 5> kWindCellFields = {{
    {0, 4, FieldType::kFloat, "Time", &WindCell::time, "days from 1 January 2000, 0 h"},
    {4, 4, FieldType::kFloat, "Lat", &WindCell::latitude, "degrees, north positive"},
    {8, 4, FieldType::kFloat, "Lon", &WindCell::longitude, "degrees, east positive"},
    {12, 4, FieldType::kFloat, "Speed", &WindCell::speed, "knots; 999 for no wind here"},
    {16, 4, FieldType::kFloat, "Direction", &WindCell::direction,
     "degrees true that the wind blows from, 0 to under 360"},
}};
static_assert(IsPacked(kWindCellFields, kWindCellSize));

// The direction that a wind blows from, degrees true, 0 to under 360, by its components towards
// east and north. Without a component to the north it is 90 or 270; a calm gives 0.
double WindDirection(double u, double v);

// The records of a forecast's wind: a placeholder first, which no time matches, and for each time
// in order the grid of the first wind message, row by row. A message on another grid, or one of a
// time that is not known, is left out, and one message says so.
std::vector<WindCell> MakeWindCells(std::span<const GribRecord> records, Messages& messages);

// Replaces the store by these records. Errors: those of ReplaceFile.
Status WriteWindStore(const Folders& folders, std::span<const WindCell> cells);

// The whole records of the store, in file order. Errors: it is missing or can not be read.
Result<std::vector<WindCell>> ReadWindStore(const Folders& folders);

// Days from 1 January 2000 to a date.
int DaysFrom2000(DayAndYear date);

// The times, [from, to), whose records serve a time of the day.
struct WindBin {
  double from = 0.0, to = 0.0;
};
WindBin WindBinOf(DayAndYear date, float hours);

// What a lookup gives.
struct WindFound {
  std::size_t record = 0;  // in file order, from 0
  float speed = 0.0F;      // knots
  float direction = 0.0F;  // degrees true that it blows from
  float range = 0.0F;      // nautical miles
  bool near = false;       // whether the wind can be used: the record is within kWindReach
};
inline constexpr float kWindReach = 40.0F;
// A lookup begins with this range, nautical miles; nothing farther is found.
inline constexpr float kWindLimit = 24000.0F;

// The store in memory, with an index by time and place.
class WindStore {
 public:
  WindStore() = default;
  explicit WindStore(std::vector<WindCell> cells);

  const std::vector<WindCell>& cells() const { return cells_; }
  bool empty() const { return rows_.empty(); }

  // The nearest record to a place of those that serve a time; of equally near ones the first in
  // file order. Empty when no record serves the time.
  std::optional<WindFound> Find(Position place, DayAndYear date, float hours) const;
  // The records that serve a time and have a wind, in file order.
  std::vector<std::size_t> Serving(DayAndYear date, float hours) const;
  // The earliest time among those records, days from 2000, whose wind a lookup takes where a place
  // has several; empty when no record serves the time.
  std::optional<double> TimeServing(DayAndYear date, float hours) const;

  // The first and the last time that has a wind, days from 2000; of an empty store 0.
  double first_time() const { return first_; }
  double last_time() const { return last_; }

 private:
  struct Row {
    float latitude;
    std::size_t begin, end;  // in order_, by longitude and then by record
  };
  // The rows of one time, from south to north.
  using Rows = std::vector<Row>;
  void Search(const Rows& rows, Position place, WindFound& best) const;

  std::vector<WindCell> cells_;
  std::vector<std::uint32_t> order_;
  std::map<float, Rows> rows_;  // by time
  double first_ = 0.0, last_ = 0.0;
};

// The wind of a store as route operations ask for it; empty where none is within reach. The store
// must outlive it.
WindLookup LookupIn(const WindStore& store);

}  // namespace skerrow
