#include "ui/widgets/key_filters.h"

#include <gtest/gtest.h>

namespace skerrow {
namespace {

TEST(KeyFilters, PassDropAndBeepByField) {
  struct Row {
    KeyFilter filter;
    std::u32string typed;
    std::u32string kept;
    bool beeps;
  };
  const Row rows[] = {
      {KeyFilter::kNumber, U"1a2.5-", U"12.5", true},
      {KeyFilter::kSignedNumber, U"-1.5a+", U"-1.5+", true},
      {KeyFilter::kQuietNumber, U"x0.5 ", U"0.5", false},
      {KeyFilter::kVariation, U"4w", U"4W", true},
      {KeyFilter::kVariation, U"2.5e", U"2.5E", true},
      {KeyFilter::kVariation, U"4N", U"4", true},
      {KeyFilter::kLatitude, U"50.30.25s", U"50.30.25S", true},
      {KeyFilter::kLatitude, U"50.30.25W", U"50.30.25", true},
      {KeyFilter::kLongitude, U"001.05.40w", U"001.05.40W", true},
      {KeyFilter::kTime, U"09:05h", U"09:05", true},
      {KeyFilter::kTime, U"9.5", U"95", true},
      {KeyFilter::kNumber, U"\u0661", U"", true},  // a digit of another script
  };
  for (const Row& row : rows) {
    EXPECT_EQ(FilterText(row.filter, row.typed), row.kept);
    EXPECT_EQ(JudgeKey(row.filter, U'!').beep, row.beeps);
  }
}

}  // namespace
}  // namespace skerrow
