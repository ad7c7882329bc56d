#include "passage/wind_on_route.h"

#include <gtest/gtest.h>

#include "support/recording_messages.h"

namespace skerrow {
namespace {

using testing::RecordingMessages;

// A polar of 1 knot for every 20 degrees of the wind's angle, whatever its speed.
PolarRows Rows() {
  PolarRows rows;
  for (int angle = 30; angle <= 180; angle += 5) {
    PolarRow& row = rows.emplace_back();
    for (auto& cell : row) cell = std::to_string(angle / 20.0);
    row[0] = std::to_string(angle);
  }
  return rows;
}

// East 30 miles and then north 30 miles from 50 N 1 W, on a sea where a mile is a minute.
std::vector<RoutePoint> Route() {
  std::vector<RoutePoint> points(3);
  points[0].latitude = points[1].latitude = 0.0F;
  points[0].longitude = -1.0F;
  points[1].longitude = -0.5F;
  points[2].latitude = 0.5F;
  points[2].longitude = -0.5F;
  for (RoutePoint& point : points) point.speed = 9.0F;
  RelinkRoute(points);
  return points;
}

TEST(WindOnRoute, ElementHasSpeedAndSide) {
  const PolarTable polar(Rows());
  const struct {
    float from, course;
    const char* text;
    std::int16_t tack;
  } rows[] = {{60, 0, "3.0", 2},   {300, 0, "3.0", 1}, {0, 90, "4.5", 1},
              {180, 90, "4.5", 2}, {90, 90, "0.5", 1}, {270, 90, "8.8", 1}};
  for (const auto& row : rows) {
    const auto element = CalcRouteElement(polar, {11.0F, row.from}, row.course, 30.0F);
    ASSERT_TRUE(element);
    EXPECT_EQ(element->speed_text, row.text) << row.from;
    EXPECT_FLOAT_EQ(element->speed, std::stof(row.text));
    EXPECT_EQ(element->tack, row.tack) << row.from;
  }
  EXPECT_FALSE(CalcRouteElement(PolarTable({}), {11.0F, 60.0F}, 0.0F, 30.0F));
}

TEST(WindOnRoute, EachLegHasTheWindOfItsStart) {
  std::vector<RoutePoint> points = Route();
  RouteWindRequest request;
  request.constant_wind = false;
  request.default_wind = {8.0F, 200.0F};
  request.date = {339, 2026};
  request.hours = 20.0F;
  std::vector<std::string> asked;
  request.wind_at = [&](Position at, DayAndYear day, float hours) -> std::optional<Wind> {
    asked.push_back(std::to_string(day.day) + " " + std::to_string(hours).substr(0, 5) + " " +
                    std::to_string(at.longitude).substr(0, 5));
    if (asked.size() > 1) return std::nullopt;
    return Wind{12.0F, 30.0F};
  };
  RecordingMessages messages;
  messages.Expect("Wind file data coverage incorrect - setting default values",
                  MessageIcon::kWarning);
  ASSERT_TRUE(SetSpeedsByWind(points, PolarTable(Rows()), request, messages));
  // East with the wind 60 degrees on the port bow: 3 knots, ten hours. Then north with the default
  // wind 160 degrees on the port quarter.
  EXPECT_FLOAT_EQ(points[0].speed, 3.0F);
  EXPECT_EQ(points[0].tack, 1);
  EXPECT_EQ(points[0].wind_direction, 30.0F);
  EXPECT_EQ(asked, (std::vector<std::string>{"339 20.00 -1.00", "340 6.000 -0.50"}));
  EXPECT_FLOAT_EQ(points[1].speed, 8.0F);
  EXPECT_EQ(points[1].tack, 1);
  EXPECT_EQ(points[1].wind_speed, 8.0F);
  EXPECT_EQ(points[2].speed, 9.0F);  // no leg begins at the last point
}

TEST(WindOnRoute, WhatCanNotBeSailedChangesNothing) {
  const std::vector<RoutePoint> before = Route();
  const auto unchanged = [&](const std::vector<RoutePoint>& points) {
    return points[0].speed == 9.0F && points[1].speed == 9.0F && points[0].tack == 0;
  };
  std::vector<RoutePoint> points = before;
  RouteWindRequest request;
  request.default_wind = {8.0F, 0.0F};
  RecordingMessages messages;
  PolarRows holes = Rows();
  holes[12][6] = std::nullopt;  // 90 degrees, 10 knots
  messages.Expect("Error in database for this wind and angle", MessageIcon::kWarning);
  EXPECT_FALSE(SetSpeedsByWind(points, PolarTable(holes), request, messages));
  EXPECT_TRUE(unchanged(points));

  PolarRows calm = Rows();
  for (std::size_t row = 0; row < 14; ++row) {
    for (std::size_t column = 1; column < kPolarColumns.size(); ++column) calm[row][column] = "0";
  }
  request.default_wind.from_deg = 180.0F;  // astern on the second leg, abeam on the first
  messages.Expect(
      "By this polar the boat does not move on leg 1, for want of wind. No speed has been changed.",
      MessageIcon::kWarning);
  EXPECT_FALSE(SetSpeedsByWind(points, PolarTable(calm), request, messages));
  EXPECT_TRUE(unchanged(points));
  points.resize(1);
  EXPECT_FALSE(SetSpeedsByWind(points, PolarTable(Rows()), request, messages));
}

TEST(WindOnRoute, TacksAndDeparturesAlone) {
  std::vector<RoutePoint> points = Route();
  SetTacksByWind(points, 45.0F);
  EXPECT_EQ(points[0].tack, 1);  // bound east
  EXPECT_EQ(points[1].tack, 2);  // bound north
  RouteWindRequest request;
  request.constant_wind = false;
  request.date = {339, 2026};
  request.wind_at = [](Position, DayAndYear, float hours) -> std::optional<Wind> {
    return Wind{12.0F, hours < 6.0F ? 150.0F : 170.0F};
  };
  const PolarTable polar(Rows());
  const auto speeds = SpeedsByDeparture(points, polar, request);
  EXPECT_EQ(speeds(0.0F).legs.size(), 2U);
  EXPECT_FLOAT_EQ(speeds(0.0F).legs[0], 3.0F);
  EXPECT_FLOAT_EQ(speeds(7.0F).legs[0], 4.0F);
  EXPECT_EQ(speeds(7.0F).trouble, "");
}

// Nothing stands in for a wind or a speed that is missing.
TEST(WindOnRoute, ADepartureThatCanNotBeSailedSaysWhy) {
  const std::vector<RoutePoint> points = Route();
  RouteWindRequest request;
  request.constant_wind = false;
  request.default_wind = {12.0F, 150.0F};
  request.date = {339, 2026};
  // Leg 1 heads east and takes ten hours in the first of these winds. The forecast ends at 15:00.
  request.wind_at = [](Position, DayAndYear day, float hours) -> std::optional<Wind> {
    if (day.day != 339 || hours >= 15.0F) return std::nullopt;
    if (hours == 1.0F) return Wind{12.0F, 95.0F};
    return Wind{12.0F, hours < 3.0F ? 150.0F : 170.0F};
  };
  PolarRows slow = Rows();
  for (PolarRow& row : slow) row[PolarColumnOf(12.0)] = row[PolarColumnOf(14.0)] = "0.4";
  PolarRows becalmed = Rows();
  for (PolarRow& row : becalmed) row[PolarColumnOf(12.0)] = row[PolarColumnOf(14.0)] = "0";
  PolarRows holed = Rows();
  holed[10][PolarColumnOf(12.0)] = std::nullopt;  // 80 degrees, which the wind of 170 has
  const struct {
    PolarRows polar;
    float hour;
    const char* trouble;
    std::size_t legs;
  } rows[] = {
      {Rows(), 2.0F, "", 2},
      {Rows(), 1.0F, "too little speed against the wind (0.5 kn) on leg 1", 0},
      {Rows(), 9.0F, "no forecast wind on leg 2", 1},
      {Rows(), 15.0F, "no forecast wind on leg 1", 0},
      {slow, 0.0F, "too little speed (0.4 kn) on leg 1", 0},
      {becalmed, 0.0F, "too little speed (0.0 kn) on leg 1", 0},
      {holed, 4.0F, "no value in the polar on leg 1", 0},
  };
  for (const auto& row : rows) {
    const PolarTable polar(row.polar);
    const DepartureSpeeds speeds = SpeedsByDeparture(points, polar, request)(row.hour);
    EXPECT_EQ(speeds.trouble, row.trouble) << row.hour;
    EXPECT_EQ(speeds.legs.size(), row.legs) << row.trouble;
  }
}

TEST(WindOnRoute, OneLegHasTheWindOfTheTimeItBegins) {
  std::vector<RoutePoint> points = Route();
  RouteWindRequest request;
  request.constant_wind = false;
  request.date = {339, 2026};
  request.hours = 22.0F;
  // 30 miles at 9 knots: the second leg begins at 01:20 of the next day.
  request.wind_at = [](Position at, DayAndYear day, float hours) -> std::optional<Wind> {
    EXPECT_EQ(at.longitude, -0.5F);
    EXPECT_EQ(day.day, 340);
    EXPECT_NEAR(hours, 1.3333, 0.001);
    return Wind{10.0F, 60.0F};
  };
  RecordingMessages messages;
  const PolarTable polar(Rows());
  ASSERT_TRUE(SetLegSpeedByWind(points, 1, polar, request, messages));
  EXPECT_EQ(points[1].speed, 3.0F);
  EXPECT_EQ(points[1].tack, 2);
  EXPECT_EQ(points[1].wind_speed, 10.0F);
  EXPECT_EQ(points[0].speed, 9.0F);
  EXPECT_FALSE(SetLegSpeedByWind(points, 2, polar, request, messages)) << "the last point";
  request.wind_at = nullptr;
  request.default_wind = {10.0F, 90.0F};
  messages.Expect(kCoverageDefault, MessageIcon::kWarning);
  ASSERT_TRUE(SetLegSpeedByWind(points, 1, polar, request, messages));
  EXPECT_EQ(points[1].speed, 4.5F);
}

}  // namespace
}  // namespace skerrow
