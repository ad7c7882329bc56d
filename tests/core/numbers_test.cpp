#include "core/numbers.h"

#include <clocale>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <locale>
#include <random>

namespace skerrow {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(Numbers, HalvesRoundToTheEvenNeighbour) {
  const struct {
    double value;
    std::int64_t rounded;
  } rows[] = {{2.5, 2},
              {3.5, 4},
              {-2.5, -2},
              {-3.5, -4},
              {0.5, 0},
              {-0.5, 0},
              {1.5, 2},
              {2.4999, 2},
              {2.5001, 3},
              {-2.5001, -3},
              {kNaN, 0},
              {0.49999999999999994, 0},
              {kInfinity, std::numeric_limits<std::int64_t>::max()},
              {-kInfinity, std::numeric_limits<std::int64_t>::min()},
              {9007199254740993.0, 9007199254740992}};
  for (const auto& row : rows) EXPECT_EQ(RoundToInteger(row.value), row.rounded) << row.value;
  EXPECT_EQ(RoundToInt16(32767.5), 32767);
  EXPECT_EQ(RoundToInt16(-40000), -32768);
}

TEST(Numbers, RoundingIsThatOfTheProcessorInItsNearestEvenMode) {
  const unsigned seed = 20261122;
  SCOPED_TRACE(seed);
  std::mt19937_64 random(seed);
  std::uniform_real_distribution<double> any(-1e6, 1e6);
  for (int i = 0; i < 20000; ++i) {
    const double value = i % 2 == 0 ? any(random) : std::floor(any(random)) + 0.5;
    EXPECT_EQ(RoundToInteger(value), static_cast<std::int64_t>(std::nearbyint(value))) << value;
  }
}

TEST(Numbers, TextToNumberReadsTheLongestPrefix) {
  const struct {
    const char* text;
    double value;
  } rows[] = {{"30.25W", 30.25}, {" 7", 7},     {"-1.5x", -1.5}, {".5", 0.5}, {"1e3", 1000},
              {"N50", 0},        {"", 0},       {"-", 0},        {"1e", 1},   {"+4", 4},
              {"1.2.3", 1.2},    {"5.", 5},     {".", 0},        {"1,5", 1},  {"1e+2z", 100},
              {"--3", 0},        {"   ", 0},    {"0x10", 0},     {"inf", 0},  {"nan", 0},
              {"00012", 12},     {"1e-400", 0}, {"- 3", 0}};
  for (const auto& row : rows) EXPECT_EQ(TextToNumber(row.text), row.value) << row.text;
  EXPECT_TRUE(std::isfinite(TextToNumber("1e999")));
  EXPECT_GT(TextToNumber("1e999"), 1e300);
  EXPECT_LT(TextToNumber("-1e999"), -1e300);
}

TEST(Numbers, PatternsPadAndRoundHalvesAwayFromZero) {
  const struct {
    double value;
    int digits;
    int decimals;
    const char* text;
  } rows[] = {{7, 3, 0, "007"},         {0.5, 3, 0, "001"},     {2.5, 1, 0, "3"},
              {-2.5, 1, 0, "-3"},       {0.125, 1, 2, "0.13"},  {5.4, 2, 2, "05.40"},
              {-0.001, 1, 2, "0.00"},   {9.999, 1, 2, "10.00"}, {99.995, 2, 2, "100.00"},
              {1234.5, 2, 1, "1234.5"}, {-0.05, 1, 1, "-0.1"},  {kNaN, 2, 2, "00.00"},
              {kInfinity, 1, 1, "0.0"}, {359.5, 3, 0, "360"}};
  for (const auto& row : rows) {
    const std::string text = FormatFixed(row.value, row.digits, row.decimals);
    EXPECT_EQ(text, row.text) << row.value;
  }
  EXPECT_EQ(FormatFixed(1e300, 1, 0).size(), 301U);
  // As a double 0.15 lies below the tie.
  EXPECT_EQ(FormatFixed(0.15, 1, 1), "0.1");
}

// Neither the locale of C nor that of C++ has a say, whatever its decimal mark and its groups.
TEST(Numbers, NoLocaleChangesATextOrANumber) {
  class Odd final : public std::numpunct<char> {
    char do_decimal_point() const override { return '\''; }
    char do_thousands_sep() const override { return '_'; }
    std::string do_grouping() const override { return "\1"; }
  };
  const std::locale before = std::locale::global(std::locale(std::locale(), new Odd));
  // Those of C there may be: an Arabic mark, a comma, none.
  for (const char* name : {"ps_AF.UTF-8", "de_DE.UTF-8", "C"}) {
    if (std::setlocale(LC_ALL, name) == nullptr) continue;
    EXPECT_EQ(FormatFixed(-1234567.875, 1, 2), "-1234567.88") << name;
    EXPECT_EQ(FormatFixed(0.0625, 2, 3), "00.063") << name;
    EXPECT_EQ(ShortText(1234.5F), "1234.5") << name;
    EXPECT_EQ(TextToNumber("1234.5"), 1234.5) << name;
  }
  std::locale::global(before);
  std::setlocale(LC_ALL, "C");
}

TEST(Numbers, ShortTextHasSevenDigitsAtMost) {
  const struct {
    float value;
    const char* text;
  } rows[] = {{2045.0F, "2045"}, {0.25F, "0.25"},
              {5.0F, "5"},       {0.1F, "0.1"},
              {-4.5F, "-4.5"},   {0.0F, "0"},
              {-0.0F, "0"},      {1.0F / 3, "0.3333333"},
              {100.0F, "100"},   {1234567.0F, "1234567"},
              {5.3F, "5.3"}};
  for (const auto& row : rows) EXPECT_EQ(ShortText(row.value), row.text);
}

TEST(Numbers, PadTo4) {
  EXPECT_EQ(PadTo4(7), "0007");
  EXPECT_EQ(PadTo4(999), "0999");
  EXPECT_EQ(PadTo4(12345), "12345");
  EXPECT_EQ(PadTo4(-7), "-7");
}

}  // namespace
}  // namespace skerrow
