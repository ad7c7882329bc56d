#include "app/wind_field.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "app/program.h"
#include "support/recording_messages.h"
#include "support/still_clock.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

constexpr float kDay = 9835.0F;  // 5 December 2026

// A program on a chart from 50 to 51 north and 2 to 1 west, at nine on 5 December 2026, with a
// store of two times an hour apart, of which the first lacks a place.
class WindFieldTest : public ::testing::Test {
 protected:
  WindFieldTest()
      : program({SKERROW_SOURCE_DIR "/program", user.File("d"), user.File("s")}, clock) {
    program.charts.chart.top_lat = 51.0F;
    program.charts.chart.bottom_lat = 50.0F;
    program.charts.chart.west_lon = -2.0F;
    program.charts.chart.east_lon = -1.0F;
    program.config.use_manual_wind = kFalse;
    program.config.show_wind_grid = kTrue;
    At(9.0F);
    Write({{},
           {kDay + 0.375F, 50.25F, -1.75F, 10.0F, 90.0F},
           {kDay + 0.375F, 50.25F, -1.25F, kNoWind, 0.0F},
           {kDay + 0.375F, 50.75F, -1.75F, 12.0F, 100.0F},
           {kDay + 0.375F, 50.00F, -1.75F, 13.0F, 100.0F},  // on the chart's border
           {kDay + 0.4167F, 50.25F, -1.75F, 20.0F, 180.0F},
           {kDay + 0.4167F, 50.25F, -1.25F, 25.0F, 270.0F}});
  }

  void At(float hours, DayAndYear day = {339, 2026}) {
    SetDay(program.selected_time, day);
    program.selected_time.hours = hours;
  }
  void Write(const std::vector<WindCell>& cells) {
    ASSERT_TRUE(WriteWindStore(program.folders, cells).ok());
  }

  testing::TempFolder user;
  testing::StillClock clock{{2026, 12, 5, 9, 0, 0}};
  testing::RecordingMessages messages;
  Program program;
};

TEST_F(WindFieldTest, OneWindAPlaceOfTheSelectedTimeInsideTheChart) {
  UpdateWindField(program);
  const std::vector<FieldWind>& winds = program.wind_field.winds;
  ASSERT_EQ(winds.size(), 3U);
  const struct {
    float latitude, longitude, speed, from;
    int row, column;
  } rows[] = {{50.25F, -1.75F, 10, 90, 0, 0},
              {50.75F, -1.75F, 12, 100, 1, 0},
              {50.25F, -1.25F, 25, 270, 0, 1}};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(winds[i].at, (Position{rows[i].latitude, rows[i].longitude}));
    EXPECT_EQ(winds[i].wind.speed_kn, rows[i].speed);
    EXPECT_EQ(winds[i].wind.from_deg, rows[i].from);
    EXPECT_EQ(winds[i].row, rows[i].row);
    EXPECT_EQ(winds[i].column, rows[i].column);
  }
  EXPECT_EQ(program.wind_field.row_step, 0.5F);
  EXPECT_EQ(program.wind_field.column_step, 0.5F);

  // It stays while nothing has changed, and follows the time, the chart and the file.
  program.wind_field.winds.clear();
  At(11.9F);
  UpdateWindField(program);
  EXPECT_TRUE(program.wind_field.winds.empty()) << "worked out once a part of the day";
  program.charts.chart.top_lat = 50.5F;
  UpdateWindField(program);
  EXPECT_EQ(program.wind_field.winds.size(), 2U);
  Write({{}, {kDay + 0.375F, 50.4F, -1.5F, 30.0F, 45.0F}});
  UpdateWindField(program);
  ASSERT_EQ(program.wind_field.winds.size(), 1U);
  EXPECT_EQ(program.wind_field.winds[0].wind.speed_kn, 30.0F);
  At(12.0F);
  UpdateWindField(program);
  EXPECT_TRUE(program.wind_field.winds.empty());
  At(9.0F);
  UpdateWindField(program);
  EXPECT_EQ(program.wind_field.winds.size(), 1U);
  std::filesystem::remove(program.folders.WindDataFile());
  UpdateWindField(program);
  EXPECT_TRUE(program.wind_field.winds.empty());
}

TEST_F(WindFieldTest, RoutesTakeTheWindOfTheStoreOnce) {
  const RouteDefaults defaults = RouteDefaultsOf(program);
  ASSERT_TRUE(defaults.wind_at);
  const std::uint32_t revision = program.wind_store.revision();
  (void)RouteDefaultsOf(program);
  EXPECT_EQ(program.wind_store.revision(), revision) << "read once";
  const std::optional<Wind> wind = defaults.wind_at({50.26F, -1.74F}, {339, 2026}, 10.0F);
  ASSERT_TRUE(wind);
  EXPECT_EQ(wind->speed_kn, 10.0F);
  EXPECT_EQ(wind->from_deg, 90.0F);
  EXPECT_FALSE(defaults.wind_at({52.0F, -1.74F}, {339, 2026}, 10.0F)) << "over 40 miles away";
  // A route operation under way keeps its store.
  Write({{}});
  EXPECT_TRUE(defaults.wind_at({50.26F, -1.74F}, {339, 2026}, 10.0F));
  EXPECT_FALSE(RouteDefaultsOf(program).wind_at({50.26F, -1.74F}, {339, 2026}, 10.0F));
  program.config.use_manual_wind = kTrue;
  EXPECT_FALSE(RouteDefaultsOf(program).wind_at);

  // The words of the callers for what the store does not have.
  program.config.use_manual_wind = kFalse;
  messages.Expect("GRIB Wind file data coverage incorrect - using default values");
  ASSERT_TRUE(LoadRoute(program.folders.Samples() + "/Sample.rte", RouteSpeeds::kStored,
                        RouteDefaultsOf(program), program.route, messages)
                  .ok());
  messages.Expect("GRIB Wind file data coverage incorrect - using last good wind values");
  RecomputeWinds(program.route, RouteDefaultsOf(program), messages);
}

TEST_F(WindFieldTest, TheTitleTellsWhichForecastIsInUse) {
  const auto says = [this](float hours, DayAndYear day = {339, 2026}) {
    At(hours, day);
    return WindCaption(program);
  };
  EXPECT_EQ(says(11.5F), "wind 09:00 5/12/2026");
  EXPECT_EQ(says(6.0F), "no wind data, forecast begins 09:00 5/12/2026");
  EXPECT_EQ(says(12.0F), "no wind data, forecast ends 10:00 5/12/2026");
  clock.now = {2026, 12, 8, 11, 0, 0};
  EXPECT_EQ(says(12.0F, {341, 2026}), "no wind data, forecast ended 3 days ago");
  EXPECT_EQ(says(10.0F), "wind 09:00 5/12/2026") << "an old file still serves its times";
  clock.now = {2026, 12, 5, 11, 30, 0};
  EXPECT_EQ(says(13.0F), "no wind data, forecast ended 1 hour ago");
  std::filesystem::remove(program.folders.WindDataFile());
  EXPECT_EQ(says(9.0F), "no wind data, no forecast imported");
  program.config.show_wind_grid = kFalse;
  EXPECT_EQ(says(9.0F), "");
  program.config.show_wind_over_route = kTrue;
  EXPECT_NE(says(9.0F), "");
  program.config.use_manual_wind = kTrue;
  EXPECT_EQ(says(9.0F), "");
  EXPECT_EQ(DaysText(59.0 + 23.999 / 24), "00:00 1/3/2000");
}

}  // namespace
}  // namespace skerrow
