#include "core/plane_sailing.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>
#include <random>

namespace skerrow {
namespace {

// Reference values worked out in double precision with the two-argument arc tangent.
TEST(RangeBearing, KnownLegs) {
  const struct {
    Position from;
    Position to;
    double range;
    double bearing;
  } rows[] = {{{50.58233F, -1.93083F}, {48.765F, -5.19333F}, 167.143382, 229.279274},
              {{0.0F, 0.0F}, {0.0F, 1.0F}, 60.0, 90.0},
              {{50.0F, -1.0F}, {50.5F, -1.0F}, 30.0, 0.0},
              {{50.5F, -1.0F}, {50.0F, -1.0F}, 30.0, 180.0},
              {{50.0F, -1.0F}, {50.0F, -2.0F}, 38.567257, 270.0},
              {{50.0F, -1.0F}, {50.0F, -1.0F}, 0.0, 0.0}};
  for (const auto& row : rows) {
    const RangeAndBearing way = RangeBearing(row.from, row.to);
    EXPECT_NEAR(way.range, row.range, row.range * 1e-6);
    EXPECT_NEAR(way.bearing, row.bearing, 5e-5);
  }
}

TEST(RangeBearing, NeverPrintsAs360) {
  // On the equator, so that the departure is the difference of longitude.
  const auto bearing = [](double degrees) {
    const double radians = degrees * std::numbers::pi / 180;
    return RangeBearing({-0.5F, 0.0F}, {0.5F, static_cast<float>(std::tan(radians))}).bearing;
  };
  EXPECT_EQ(bearing(359.7), 359.0F);
  EXPECT_NEAR(bearing(359.4), 359.4, 1e-3);
  EXPECT_EQ(bearing(359.99), 359.0F);
}

TEST(RangeBearing, AgreesWithTheTwoArgumentArcTangentEverywhere) {
  const unsigned seed = 99;
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  std::uniform_real_distribution<float> latitude(-70.0F, 70.0F);
  std::uniform_real_distribution<float> longitude(-170.0F, 170.0F);
  for (int i = 0; i < 20000; ++i) {
    const Position from{latitude(random), longitude(random)};
    const Position to{latitude(random), longitude(random)};
    const double north = (static_cast<double>(to.latitude) - from.latitude) * 60;
    const double mean = (static_cast<double>(to.latitude) + from.latitude) / 2;
    const double east = (static_cast<double>(to.longitude) - from.longitude) * 60 *
                        std::cos(mean * std::numbers::pi / 180);
    double bearing = std::atan2(east, north) * 180 / std::numbers::pi;
    if (bearing < 0) bearing += 360;
    const RangeAndBearing way = RangeBearing(from, to);
    ASSERT_NEAR(way.range, std::hypot(east, north), 1e-6 * std::hypot(east, north) + 1e-6);
    ASSERT_GE(way.bearing, 0.0F);
    ASSERT_LT(way.bearing, 360.0F);
    if (bearing < 359.49) {
      ASSERT_NEAR(way.bearing, bearing, 1e-3);
    }
    ASSERT_EQ(way.range, RangeOnly(from, to));
    const EastNorth parts{static_cast<float>(east), static_cast<float>(north)};
    ASSERT_NEAR(VectorDirection(parts.east, parts.north), bearing, 1e-3);
  }
}

TEST(Vectors, ResolveAndComposeAreInverse) {
  EXPECT_FLOAT_EQ(Resolve(90.0F, 1.0F).east, 1.0F);
  EXPECT_NEAR(Resolve(90.0F, 1.0F).north, 0.0, 1e-6);
  EXPECT_EQ(VectorToPolar(0.0F, 0.0F).length, 0.0F);
  EXPECT_EQ(VectorToPolar(0.0F, 0.0F).direction, 0.0F);
  for (int degrees = 0; degrees < 360; degrees += 7) {
    const EastNorth parts = Resolve(static_cast<float>(degrees), 12.0F);
    EXPECT_NEAR(parts.east, 12 * std::sin(degrees * std::numbers::pi / 180), 1e-4);
    const Polar polar = VectorToPolar(parts.east, parts.north);
    EXPECT_NEAR(polar.length, 12.0, 1e-5);
    EXPECT_NEAR(polar.direction, degrees, 1e-4);
  }
  EXPECT_NEAR(Resolve(-90.0F, 2.0F).east, -2.0, 1e-6);
  EXPECT_NEAR(Resolve(450.0F, 2.0F).east, 2.0, 1e-5);
}

TEST(Vectors, MoveByMilesUsesTheCosineOfTheStart) {
  const Position moved = MoveByMiles({60.0F, 0.0F}, {30.0F, -60.0F});
  EXPECT_FLOAT_EQ(moved.latitude, 59.0F);
  EXPECT_FLOAT_EQ(moved.longitude, 1.0F);  // 30 / cos 60 / 60
}

TEST(Angles, Normalise) {
  const float infinity = std::numeric_limits<float>::infinity();
  const struct {
    float angle;
    float normal;
  } rows[] = {{-10.0F, 350.0F}, {370.0F, 10.0F},      {360.0F, 0.0F},  {720.0F, 360.0F},
              {0.0F, 0.0F},     {359.5F, 359.5F},     {-360.0F, 0.0F}, {-725.0F, 355.0F},
              {infinity, 0.0F}, {std::nanf(""), 0.0F}};
  for (const auto& row : rows) EXPECT_EQ(NormaliseAngle(row.angle), row.normal) << row.angle;
  EXPECT_LE(NormaliseAngle(3.0e38F), 360.0F);  // and it comes back at once
  EXPECT_FLOAT_EQ(DegToRad(180.0F), 3.1415927F);
}

// The meridional parts as asinh(tan(latitude)), worked out in double precision.
TEST(Mercator, AgreesWithTheInverseHyperbolicForm) {
  const struct {
    float latitude;
    double meridional;
  } rows[] = {{50.0F, 1.0106831887},
              {-35.5F, -0.6635226655},
              {0.5F, 0.0087267572},
              {70.0F, 1.7354151627},
              {0.0F, 0.0}};
  for (const auto& row : rows) {
    EXPECT_NEAR(MercatorY(row.latitude), row.meridional, 2e-7);
    EXPECT_NEAR(MercatorPartsSin(row.latitude), row.meridional, 2e-7);
    EXPECT_NEAR(MercatorInverse(static_cast<float>(row.meridional)), row.latitude, 1e-5);
  }
}

}  // namespace
}  // namespace skerrow
