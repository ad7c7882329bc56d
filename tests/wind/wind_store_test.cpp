#include "wind/wind_store.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

#include "reference/plain_wind.h"
#include "support/recording_messages.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

using testing::RecordingMessages;

// A field of one component over three columns and two rows, from 50 N 6 W to the south and east.
GribRecord Component(std::int16_t parameter, float valid_hour, std::vector<double> values) {
  GribRecord record;
  record.grid = {50.0F, -6.0F, 49.0F, -4.0F, 1.0F, 1.0F, 3, 2, true};
  record.day = 5;
  record.month = 12;
  record.year = 2026;
  record.valid_hour = valid_hour;
  record.parameter = parameter;
  record.level_type = 105;
  record.level = 10;
  record.values = std::move(values);
  return record;
}

TEST(WindStore, DirectionFromTheComponents) {
  const struct {
    double u, v, from;
  } rows[] = {{0, -5, 0},  {-5, -5, 45}, {-5, 0, 90},  {-5, 5, 135}, {0, 5, 180},
              {5, 5, 225}, {5, 0, 270},  {5, -5, 315}, {0, 0, 0},    {-1e-12, -5, 0}};
  for (const auto& row : rows) {
    EXPECT_NEAR(WindDirection(row.u, row.v), row.from, 1e-9) << row.u << ", " << row.v;
  }
  EXPECT_LT(WindDirection(1e-20, -5), 360.0);
}

TEST(WindStore, RecordsOfAForecastInOrder) {
  const double m = 1e30;
  RecordingMessages messages;
  std::vector<GribRecord> records = {
      Component(kGribWindU, 9, {3, 3, 3, 3, 3, 3}),
      Component(kGribWindU, 6, {3, -4, 0, m, 1, 2}),
      Component(kGribWindV, 6, {4, 3, -5, 1, m, 0}),
      Component(2, 6, {}),
  };
  const std::vector<WindCell> cells = MakeWindCells(records, messages);
  ASSERT_EQ(cells.size(), 13U);
  EXPECT_EQ(cells[0].time, 0.0F);
  EXPECT_EQ(cells[0].longitude, 1.0F);
  EXPECT_EQ(cells[0].speed, 0.0F);
  // 5 m/s are 5 / 0.5148 knots.
  const struct {
    float latitude, longitude, speed, direction;
  } rows[] = {{50, -6, 9.7125F, 216.870F}, {50, -5, 9.7125F, 126.870F}, {50, -4, 9.7125F, 0},
              {49, -6, kNoWind, 0},        {49, -5, kNoWind, 0},        {49, -4, 3.8850F, 270}};
  for (std::size_t i = 0; i < 6; ++i) {
    const WindCell& cell = cells[i + 1];
    EXPECT_EQ(cell.time, 9835.25F);
    EXPECT_EQ(cell.latitude, rows[i].latitude);
    EXPECT_EQ(cell.longitude, rows[i].longitude);
    EXPECT_NEAR(cell.speed, rows[i].speed, 1e-3) << i;
    EXPECT_NEAR(cell.direction, rows[i].direction, 1e-3) << i;
    // There is no V at nine o'clock.
    EXPECT_EQ(cells[i + 7].time, 9835.375F);
    EXPECT_EQ(cells[i + 7].speed, kNoWind);
  }
}

TEST(WindStore, WhatDoesNotFitIsLeftOutAndTold) {
  RecordingMessages messages;
  GribRecord other = Component(kGribWindV, 6, {1, 1, 1, 1, 1, 1});
  other.grid.la1 = 51.0F;
  GribRecord timeless = Component(kGribWindU, 6, {1, 1, 1, 1, 1, 1});
  timeless.forecast_minutes = kUnhandledTime;
  messages.Expect(
      "2 messages of the wind are left out: their grid is another one, has no latitudes "
      "and longitudes, or their time is not known",
      MessageIcon::kWarning);
  // The wind at ten metres counts, whatever comes first.
  GribRecord high = Component(kGribWindU, 6, {9, 9, 9, 9, 9, 9});
  high.level_type = 100;
  high.level = 500;
  const auto cells = MakeWindCells(
      std::vector<GribRecord>{timeless, high, Component(kGribWindU, 6, {0, 0, 0, 0, 0, 0}),
                              Component(kGribWindV, 6, {5, 5, 5, 5, 5, 5}), other},
      messages);
  ASSERT_EQ(cells.size(), 7U);
  EXPECT_EQ(cells[1].direction, 180.0F);
}

TEST(WindStore, GridsAcrossTheMeridians) {
  RecordingMessages messages;
  const struct {
    float lo1, lo2;
    std::vector<float> longitudes;
  } rows[] = {{359.0F, 1.0F, {-1, 0, 1}},
              {-1.0F, 1.0F, {-1, 0, 1}},
              {179.0F, 181.0F, {179, 180, -179}},
              {3.0F, 1.0F, {3, 2, 1}}};
  for (const auto& row : rows) {
    GribRecord u = Component(kGribWindU, 6, {1, 1, 1, 1, 1, 1});
    u.grid.lo1 = row.lo1;
    u.grid.lo2 = row.lo2;
    const auto cells = MakeWindCells(std::vector<GribRecord>{u}, messages);
    for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(cells[1 + i].longitude, row.longitudes[i]);
  }
}

TEST(WindStore, FileRoundTripAndOddLength) {
  testing::TempFolder user;
  const Folders folders{"/nonexistent", user.path(), user.path()};
  const std::vector<WindCell> cells = {{0, 0, 1, 0, 0}, {9835.25F, 50, -6, 12.5F, 225}};
  ASSERT_TRUE(WriteWindStore(folders, cells));
  const std::string bytes = testing::FileBytes(folders.WindDataFile());
  ASSERT_EQ(bytes.size(), 40U);
  EXPECT_EQ(bytes.substr(20, 4), std::string("\x00\xAD\x19\x46", 4));  // 9835.25 by hand
  ASSERT_TRUE(ReplaceFile(folders.WindDataFile(), bytes + "odd"));
  const Result<std::vector<WindCell>> read = ReadWindStore(folders);
  ASSERT_TRUE(read);
  ASSERT_EQ(read->size(), 2U);
  EXPECT_EQ((*read)[1].direction, 225.0F);
}

TEST(WindStore, BinsAreEighthsOfADay) {
  const DayAndYear date{339, 2026};  // 5 December
  EXPECT_EQ(DaysFrom2000(date), 9835);
  EXPECT_EQ(DaysFrom2000({1, 2000}), 0);
  const struct {
    float hours;
    double from, to;
  } rows[] = {{0.0F, 0, 0.125},
              {2.99F, 0, 0.125},
              {3.0F, 0.125, 0.25},
              {21.0F, 0.875, 0.999999},
              {23.99F, 0.875, 0.999999}};
  for (const auto& row : rows) {
    const WindBin bin = WindBinOf(date, row.hours);
    EXPECT_DOUBLE_EQ(bin.from, 9835 + row.from) << row.hours;
    EXPECT_DOUBLE_EQ(bin.to, 9835 + row.to) << row.hours;
  }
}

// The index gives the record that a scan of the whole store gives: regular grids, whose points tie
// in range, times within and between the bins, points without wind and records that are no numbers.
TEST(WindStore, FindsWhatAPlainScanFinds) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  const auto between = [&](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  std::vector<WindCell> cells(1);
  cells[0].longitude = 1.0F;
  for (int frame = 0; frame < 12; ++frame) {
    for (int j = 0; j < 25; ++j) {
      for (int i = 0; i < 30; ++i) {
        const bool hole = between(0, 1) < 0.1;
        cells.push_back({9835.0F + static_cast<float>(frame) / 8 + (frame % 3 == 0 ? 0.02F : 0.0F),
                         static_cast<float>(52 - 0.25 * j), static_cast<float>(-6 + 0.25 * i),
                         hole ? kNoWind : static_cast<float>(between(0, 40)),
                         static_cast<float>(between(0, 359))});
      }
    }
  }
  cells.push_back({NAN, 50, -4, 10, 10});
  cells.push_back({9835.0F, NAN, -4, 10, 10});
  const WindStore store(cells);
  int found = 0;
  for (int n = 0; n < 3000; ++n) {
    Position place{static_cast<float>(between(44, 54)), static_cast<float>(between(-9, 4))};
    if (n % 4 == 0) {  // between points, and on them
      place = {static_cast<float>(std::round(place.latitude * 8) / 8),
               static_cast<float>(std::round(place.longitude * 8) / 8)};
    }
    const DayAndYear date{static_cast<std::int16_t>(338 + n / 4 % 4), 2026};
    const auto hours = static_cast<float>(between(0, 23.999));
    const auto plain = reference::PlainFindWind(cells, place, date, hours);
    const auto fast = store.Find(place, date, hours);
    ASSERT_EQ(plain.has_value(), fast.has_value());
    if (!plain) continue;
    ++found;
    ASSERT_EQ(fast->record, plain->record) << place.latitude << " " << place.longitude;
    ASSERT_EQ(fast->range, plain->range);
    ASSERT_EQ(fast->near, plain->near);
  }
  EXPECT_GT(found, 1000);
  EXPECT_FALSE(LookupIn(store)({44.0F, -4.0F}, {339, 2026}, 6.0F));
  EXPECT_TRUE(LookupIn(store)({50.0F, -4.0F}, {339, 2026}, 6.0F));
  EXPECT_FALSE(LookupIn(WindStore())({50.0F, -4.0F}, {339, 2026}, 6.0F));
}

}  // namespace
}  // namespace skerrow
