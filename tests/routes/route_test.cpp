#include "routes/route.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "core/plane_sailing.h"
#include "support/recording_messages.h"
#include "support/temp_folder.h"

namespace skerrow {
namespace {

using testing::FileBytes;
using testing::RecordingMessages;
using testing::TempFolder;

constexpr const char* kLoadMiss = "GRIB Wind file data coverage incorrect - using default values";

std::string Bytes(const std::vector<RouteRecord>& records) {
  return EncodeRecords(std::span<const RouteRecord>(records), kRouteFields);
}

class RouteTest : public ::testing::Test {
 protected:
  RouteTest() {
    defaults_.speed = 5.5F;
    defaults_.wind = {12.0F, 225.0F};
    defaults_.departure_day = {100, 2026};
    defaults_.departure_hours = 6.0F;
  }
  std::string Store(const std::vector<RouteRecord>& records) const {
    return folder_.Write("a.rte", Bytes(records));
  }
  Status Load(const std::string& path, RouteSpeeds speeds = RouteSpeeds::kStored) {
    return LoadRoute(path, speeds, defaults_, state_, messages_);
  }

  TempFolder folder_;
  RouteDefaults defaults_;
  RouteState state_;
  RecordingMessages messages_;
};

const std::vector<RouteRecord> kThreePoints = {
    {"Needles", 50.5F, -1.0F, 6.0F}, {"", 49.7F, -2.2F, 4.0F}, {"Alderney", 49.5F, -2.0F, 5.0F}};

TEST_F(RouteTest, SavesItsBytesAndRaisesSlowSpeeds) {
  ASSERT_TRUE(Load(Store(kThreePoints)));
  state_.points[0].speed = 0.9F;
  state_.points[1].speed = 1.0F;
  state_.points[2].speed = std::nanf("");
  state_.points[0].name = "  Needles  ";
  ASSERT_TRUE(SaveRoute(folder_.File("b.rte"), state_, 7.25F));
  const std::string bytes = FileBytes(folder_.File("b.rte"));
  ASSERT_EQ(bytes.size(), 3U * 47U);
  EXPECT_EQ(bytes.substr(0, 8), "Needles ");
  EXPECT_EQ(bytes.substr(47, 35), std::string(35, ' '));
  // 50.5 is 0x424A0000, 7.25 is 0x40E80000, 1 is 0x3F800000.
  EXPECT_EQ(bytes.substr(35, 4), std::string("\0\0\x4A\x42", 4));
  EXPECT_EQ(bytes.substr(43, 4), std::string("\0\0\xE8\x40", 4));
  EXPECT_EQ(bytes.substr(47 + 43, 4), std::string("\0\0\x80\x3F", 4));
  EXPECT_EQ(bytes.substr(94 + 43, 4), std::string("\0\0\xE8\x40", 4));
  // A place that is no number reaches no file.
  state_.points[1].longitude = std::nanf("");
  EXPECT_FALSE(SaveRoute(folder_.File("b.rte"), state_, 7.25F));
  EXPECT_EQ(FileBytes(folder_.File("b.rte")), bytes);
}

TEST_F(RouteTest, LoadsPointsLinksAndLength) {
  ASSERT_TRUE(Load(Store(kThreePoints)));
  ASSERT_EQ(state_.points.size(), 3U);
  EXPECT_EQ(state_.points[0].next_latitude, 49.7F);
  EXPECT_EQ(state_.points[1].next_name, "Alderney");
  EXPECT_EQ(state_.points[2].next_longitude, 0.0F);
  // Legs of 66.610751 and 14.303 nm (hypot of 12 and 0.2 x 60 x cos 49.6).
  const double second = std::hypot(12.0, 12.0 * std::cos(49.6 * 3.14159265358979 / 180));
  EXPECT_NEAR(state_.distance, 66.610751 + second, 1e-4);
  EXPECT_EQ(state_.points[1].wind_direction, 225.0F);
}

TEST_F(RouteTest, RefusalsKeepTheRoute) {
  ASSERT_TRUE(Load(Store(kThreePoints)));
  const auto refused = [&](const std::vector<RouteRecord>& records, const std::string& reason) {
    const std::string path = folder_.Write("bad.rte", Bytes(records));
    const Status status = Load(path);
    ASSERT_FALSE(status) << reason;
    EXPECT_EQ(status.error().Text(), path + ": " + reason);
    EXPECT_EQ(state_.points.size(), 3U);
  };
  const float nan = std::nanf("");
  const float infinity = std::numeric_limits<float>::infinity();
  const RouteRecord good{"g", 50, -1, 5};
  refused({good, {"", nan, 0, 5}}, "point 2 is damaged");
  refused({{"", 90.001F, 0, 5}}, "point 1 has a latitude beyond 90 degrees");
  refused({{"", -infinity, 0, 5}}, "point 1 is damaged");
  refused({good, good, {"", 50, 180.01F, 5}}, "point 3 has a longitude beyond 180 degrees");
  refused({{"", 50, 0, nan}}, "point 1 is damaged");
  refused({{"", 50, 0, -1}}, "point 1 has no valid speed");
  EXPECT_EQ(Load("").error().Text(), "Enter a new file name and then click the OK button");
  EXPECT_FALSE(Load(folder_.File("missing.rte")));
  EXPECT_FALSE(Load(folder_.path()));
  EXPECT_EQ(state_.points.size(), 3U);
}

TEST_F(RouteTest, EmptyFileEmptiesTheRoute) {
  ASSERT_TRUE(Load(Store(kThreePoints)));
  const Status status = Load(folder_.Write("empty.rte", ""));
  ASSERT_FALSE(status);
  EXPECT_EQ(status.error().Text(), "No entries in this file");
  EXPECT_TRUE(state_.points.empty());
  EXPECT_TRUE(state_.track.empty());
  EXPECT_EQ(SaveRoute(folder_.File("x.rte"), state_, 5).error().Text(), "No route set-up");
  EXPECT_FALSE(FileReadable(folder_.File("x.rte")));
}

TEST_F(RouteTest, ALastRecordCutShortIsLeftOutAndTold) {
  const std::string path =
      folder_.Write("odd.rte", Bytes({{"one", 50, -1, 5}, {"two", 50, -1, 5}}).substr(0, 90));
  messages_.Expect(path + ": the last record is left out, it is cut short after 43 of 47 bytes");
  ASSERT_TRUE(Load(path));
  EXPECT_EQ(state_.points.size(), 1U);
}

TEST_F(RouteTest, MorePointsThanTheWindTableHolds) {
  ASSERT_TRUE(Load(Store(std::vector<RouteRecord>(150, {"p", 50, -1, 5}))));
  EXPECT_EQ(state_.points.size(), 150U);
}

// The wind is asked for where and when the boat gets to a point, and carried on over gaps.
TEST_F(RouteTest, WindAtTheTimeOfArrival) {
  std::vector<float> hours;
  std::vector<std::int16_t> days;
  defaults_.constant_wind = false;
  defaults_.wind_at = [&](Position at, DayAndYear day, float time) -> std::optional<Wind> {
    hours.push_back(time);
    days.push_back(day.day);
    if (at.latitude < 49.0F) return std::nullopt;
    return Wind{at.latitude, 90.0F};
  };
  // 30 nm at 6 knots, then 60 nm at 4, then 60 nm at 4.
  const std::string path =
      Store({{"", 50, -1, 6}, {"", 49.5F, -1, 4}, {"", 48.5F, -1, 4}, {"", 49.5F, -1, 4}});
  messages_.Expect(kLoadMiss);
  ASSERT_TRUE(Load(path));
  ASSERT_EQ(hours.size(), 4U);
  EXPECT_FLOAT_EQ(hours[0], 6.0F);
  EXPECT_FLOAT_EQ(hours[1], 11.0F);
  EXPECT_NEAR(hours[2], 2.0F, 1e-5);
  EXPECT_EQ(days[2], 101);
  EXPECT_EQ(state_.points[0].wind_speed, 50.0F);
  EXPECT_EQ(state_.points[2].wind_speed, 49.5F);  // the last good wind
  // With the default speed the later points are reached at that speed.
  hours.clear();
  messages_.Expect(kLoadMiss);
  ASSERT_TRUE(Load(path, RouteSpeeds::kProgramDefault));
  EXPECT_NEAR(hours[1], 6.0 + 30 / 5.5, 1e-5);
}

TEST_F(RouteTest, NoWindAtAllGivesTheDefault) {
  defaults_.constant_wind = false;  // and no lookup
  messages_.Expect(kLoadMiss);
  ASSERT_TRUE(Load(Store({{"", 50, -1, 5}, {"", 49, -1, 5}})));
  EXPECT_EQ(state_.points[1].wind_speed, 12.0F);
  // A leg without speed never ends, so nothing is asked about the points behind it. A minus zero
  // once gave an arrival of minus infinity.
  int asked = 0;
  defaults_.wind_at = [&](Position, DayAndYear, float) {
    ++asked;
    return Wind{1, 1};
  };
  for (const float speed : {0.0F, -0.0F}) {
    asked = 0;
    messages_.Expect(kLoadMiss);
    ASSERT_TRUE(Load(Store({{"", 50, -1, speed}, {"", 49, -1, 5}, {"", 48, -1, 5}})));
    EXPECT_EQ(asked, 1);
  }
}

// Every piece against its place worked out in double precision; a leg's own ends are kept to the
// bit. Bearings just short of north are cut to 359 degrees and left out here.
TEST_F(RouteTest, TrackHas21EntriesALeg) {
  const unsigned seed = 7;
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  std::uniform_real_distribution<float> latitude(48.0F, 52.0F);
  std::uniform_real_distribution<float> longitude(-6.0F, 2.0F);
  for (std::size_t n = 0; n < 40; ++n) {
    std::vector<RoutePoint> points(n);
    for (RoutePoint& point : points) {
      point.latitude = latitude(random);
      point.longitude = longitude(random);
    }
    const std::vector<Position> track = RouteTrackOf(points);
    ASSERT_EQ(track.size(), n < 2 ? 0U : 21 * (n - 1));
    for (std::size_t leg = 0; leg + 1 < n; ++leg) {
      ASSERT_EQ(track[leg * 21], points[leg].At());
      ASSERT_EQ(track[leg * 21 + 20], points[leg + 1].At());
      double lon = points[leg].longitude;
      const double mean =
          (static_cast<double>(points[leg].latitude) + points[leg + 1].latitude) / 2;
      const double east = (static_cast<double>(points[leg + 1].longitude) - lon) *
                          std::cos(mean * 3.14159265358979 / 180) * 60;
      const double north =
          (static_cast<double>(points[leg + 1].latitude) - points[leg].latitude) / 20;
      if (RangeBearing(points[leg].At(), points[leg + 1].At()).bearing == 359.0F) continue;
      for (std::size_t k = 1; k < 20; ++k) {
        const double start = points[leg].latitude + north * static_cast<double>(k - 1);
        lon += east / 20 / std::cos(start * 3.14159265358979 / 180) / 60;
        ASSERT_NEAR(track[leg * 21 + k].latitude, start + north, 1e-4);
        ASSERT_NEAR(track[leg * 21 + k].longitude, lon, 1e-4);
      }
    }
  }
}

TEST_F(RouteTest, ChangeDropsTheResultsOfACalculation) {
  ASSERT_TRUE(Load(Store(kThreePoints)));
  state_.points[0].calculated = true;
  state_.points[0].course_to_steer = 123.0F;
  state_.points[0].tide_vector.resize(50);
  state_.points[0].tack = 2;
  state_.selected_leg = 2;
  state_.points.pop_back();
  RouteChanged(state_);
  EXPECT_FALSE(state_.points[0].calculated);
  EXPECT_EQ(state_.points[0].course_to_steer, 0.0F);
  EXPECT_TRUE(state_.points[0].tide_vector.empty());
  EXPECT_EQ(state_.points[0].tack, 2);
  EXPECT_EQ(state_.selected_leg, 0);  // it is gone
}

}  // namespace
}  // namespace skerrow
