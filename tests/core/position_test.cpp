#include "core/position.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace skerrow {
namespace {

TEST(PositionText, Latitudes) {
  const struct {
    float latitude;
    const char* text;
  } rows[] = {{0.0F, "00.00.00N"},       {-0.5F, "00.30.00S"},    {50.9999F, "51.00.00N"},
              {50.504166F, "50.30.25N"}, {9.5F, "09.30.00N"},     {-33.9F, "33.54.00S"},
              {89.99999F, "90.00.00N"},  {-50.9999F, "51.00.00S"}};
  for (const auto& row : rows) EXPECT_EQ(LatToText(row.latitude), row.text) << row.latitude;
}

TEST(PositionText, Longitudes) {
  const struct {
    float longitude;
    const char* text;
  } rows[] = {{0.0F, "000.00.00E"},  {0.999995F, "001.00.00E"}, {-1.09F, "001.05.40W"},
              {-0.5F, "000.30.00W"}, {179.5F, "179.30.00E"},    {-1.99999F, "002.00.00W"},
              {1.5F, "001.30.00E"},  {-12.25F, "012.15.00W"}};
  for (const auto& row : rows) EXPECT_EQ(LongToText(row.longitude), row.text) << row.longitude;
}

TEST(PositionText, ThreeDecimals) {
  EXPECT_EQ(LatToText3(50.504166F), "50.30.250N");
  EXPECT_EQ(LongToText3(-1.09F), "001.05.400W");
  EXPECT_EQ(LatToText3(0.0F), "00.00.000N");
  // No carry of rounded minutes here, unlike the two-decimal form.
  EXPECT_EQ(LatToText3(50.9999F), "50.59.994N");
  EXPECT_EQ(LongToText3(0.999995F), "001.00.000E");
}

TEST(PositionText, Parsing) {
  const struct {
    const char* text;
    float latitude;
  } latitudes[] = {{"50.30.25N", 50.504166F},
                   {"50.30.25s", 50.504166F},
                   {"50.30.25S", -50.504166F},
                   {"30", 0.5F},
                   {"", 0.0F},
                   {"S50.30SS", -0.5F},
                   {"50.", 50.0F},
                   {"abc", 0.0F},
                   {"-10.30", -9.5F}};
  for (const auto& row : latitudes) EXPECT_FLOAT_EQ(TextToLat(row.text), row.latitude) << row.text;
  EXPECT_FLOAT_EQ(TextToLong("001.05.40W"), -1.09F);
  EXPECT_FLOAT_EQ(TextToLong("001.05.40w"), 1.09F);
  EXPECT_FLOAT_EQ(TextToLong("001.05.40S"), 1.09F);
  EXPECT_FLOAT_EQ(TextToLong("179.59.99E"), 179.99983F);
}

// Printing and reading back moves a position by no more than the last digit allows, and the text
// always has its shape.
TEST(PositionText, RoundTripsToAHundredthOfAMinute) {
  const unsigned seed = 4711;
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  std::uniform_real_distribution<float> latitude(-89.9F, 89.9F);
  std::uniform_real_distribution<float> longitude(-179.9F, 179.9F);
  for (int i = 0; i < 20000; ++i) {
    const float lat = latitude(random);
    const float lon = longitude(random);
    const std::string lat_text = LatToText(lat);
    const std::string lon_text = LongToText(lon);
    ASSERT_EQ(lat_text.size(), 9U) << lat_text;
    ASSERT_EQ(lon_text.size(), 10U) << lon_text;
    // Half of the last digit, or up to 0.015 minutes where 59.99 minutes carry.
    ASSERT_NEAR(TextToLat(lat_text), lat, 0.0151 / 60 + 2e-5) << lat_text;
    ASSERT_NEAR(TextToLong(lon_text), lon, 0.0151 / 60 + 2e-5) << lon_text;
  }
}

}  // namespace
}  // namespace skerrow
