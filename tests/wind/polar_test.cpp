#include "wind/polar.h"

#include <gtest/gtest.h>

#include "wind/relative_wind.h"

namespace skerrow {
namespace {

// A table whose cells tell where they stand: 100 for each row from 1, and the wind speed; row 1 is
// that of 30 degrees.
PolarRows TellingRows(int rows = 31) {
  PolarRows table;
  for (int row = 1; row <= rows; ++row) {
    PolarRow& cells = table.emplace_back();
    cells[0] = std::to_string(25 + 5 * row);
    for (std::size_t column = 1; column < cells.size(); ++column) {
      cells[column] = std::to_string(100 * row + 2 * (static_cast<int>(column) - 1));
    }
  }
  return table;
}

// A table that grows by 0.1 for each degree and by 0.5 for each knot.
PolarRows SlopingRows() {
  PolarRows table = TellingRows();
  for (PolarRow& row : table) {
    for (std::size_t column = 1; column < row.size(); ++column) {
      row[column] = std::to_string(0.1 * std::stoi(*row[0]) + static_cast<double>(column - 1));
    }
  }
  return table;
}

TEST(Polar, OneCell) {
  const PolarRows table = TellingRows();
  const struct {
    int row;
    double wind;
    const char* text;
  } rows[] = {{1, 0, "100"},    {0, 0, "100"},  {2, 1.99, "200"}, {2, 2, "202"},
              {3, 11.9, "310"}, {3, 12, "312"}, {4, 29.9, "428"}, {4, 30, "430"},
              {4, 55, "430"},   {4, -1, "430"}, {30, 4, "3004"},  {31, 4, "3004"}};
  for (const auto& row : rows) {
    EXPECT_EQ(BoatSpeedFromWindEntryAndSpeed(table, row.row, row.wind), row.text) << row.wind;
  }
  EXPECT_FALSE(BoatSpeedFromWindEntryAndSpeed(TellingRows(5), 6, 4));
}

TEST(Polar, Bands) {
  EXPECT_EQ(calcAngle(47.5).lower, 45);
  EXPECT_EQ(calcAngle(47.5).upper, 50);
  EXPECT_EQ(calcAngle(47.5).excess, 2.5);
  EXPECT_EQ(calcAngle(45).excess, 0.0);
  const struct {
    double wind;
    int lower;
    double difference;
  } rows[] = {{0, 0, 2},   {0.5, 0, 0.5},   {2, 2, 2},   {9.5, 8, 1.5},
              {10, 10, 2}, {39.5, 38, 1.5}, {40, 40, 2}, {41, 40, 1}};
  for (const auto& row : rows) {
    EXPECT_EQ(NearestWindSpeed(row.wind).lower, row.lower) << row.wind;
    EXPECT_EQ(NearestWindSpeed(row.wind).difference, row.difference) << row.wind;
  }
}

TEST(Polar, Estimate) {
  const PolarRows sloping = SlopingRows();
  const struct {
    double wind, angle, closest;
    const char* speed;
  } rows[] = {
      // 0.1 x 60 + 0.5 x 9 and so on, worked by hand.
      {9, 60, 30, "10.5"},
      {9, 62, 30, "10.7"},
      {9.8, 60, 30, "10.9"},
      // A wind in the table reads as the next one, 12 knots here.
      {10, 60, 30, "12.0"},
      {10.1, 60, 30, "11.1"},
      // Both columns are that of 30 knots.
      {31, 60, 30, "21.0"},
      // 177 lies between 175 and 180, and the row of 180 is read as that of 175.
      {9, 177, 30, "22.0"},
      {9, 180, 30, "22.0"},
      // Below the closest angle: the mean of the two rows at the wind's own column, by angle / 30.
      // 40 and 45 degrees at 8 knots: (8.0 + 8.5) / 2 x 42 / 30.
      {9, 42, 45, "11.6"},
      // 25 is no row: the first row serves for both. (3 + 4) x 28 / 30.
      {9, 28, 30, "6.5"},
      {9, 0, 30, "0.5"},
      {0.5, 1, 30, "0.5"},
      // The closest angle itself can be sailed.
      {9, 45, 45, "9.0"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(EstimateBoatSpeed(sloping, row.wind, row.angle, row.closest), row.speed)
        << row.wind << " " << row.angle;
  }
}

TEST(Polar, AMissingCellEndsTheEstimate) {
  PolarRows table = SlopingRows();
  table[6][6] = std::nullopt;  // 60 degrees, 10 knots
  EXPECT_FALSE(EstimateBoatSpeed(table, 10.5, 60, 30));
  EXPECT_FALSE(EstimateBoatSpeed(table, 8.5, 58, 30));
  EXPECT_TRUE(EstimateBoatSpeed(table, 8.5, 50, 30));
  table[6][6] = "fast";  // a text that is no number counts as 0
  EXPECT_EQ(EstimateBoatSpeed(table, 9, 60, 30), "5.0");
  EXPECT_FALSE(EstimateBoatSpeed(PolarRows(), 9, 60, 30));
}

TEST(Polar, CurvesLeaveOutZeros) {
  PolarRows table = SlopingRows();
  table[0][3] = "0";
  table[1][3] = std::nullopt;
  const PolarCurve curve = PolarCurveOf(table, 3);
  EXPECT_EQ(curve.points.size(), 29U);
  EXPECT_EQ(curve.points[0].angle, 40.0);
  EXPECT_NEAR(curve.fastest, 0.1 * 180 + 2, 1e-9);
  EXPECT_EQ(PolarCurveOf({}, 3).fastest, -1.0);
}

TEST(Polar, TextOfOtherProgramsIsInterpolated) {
  const Result<PolarImport> import = PolarFromText(
      "TWA\\TWS\t6\t10\r\n"
      "0\t0\t0\r\n"
      "60\t6\t8\r\n"
      "120\t7\t9\r\n");
  ASSERT_TRUE(import) << import.error().Text();
  ASSERT_EQ(import->rows.size(), 31U);
  EXPECT_EQ(import->rows[0][0], "30");
  const auto at = [&](std::size_t row, int wind) {
    return *import->rows[row][static_cast<std::size_t>(1 + wind / 2)];
  };
  EXPECT_EQ(at(0, 6), "3.00");    // half way to 60 degrees
  EXPECT_EQ(at(6, 8), "7.00");    // half way from 6 to 10 knots
  EXPECT_EQ(at(12, 8), "7.50");   // 90 degrees
  EXPECT_EQ(at(30, 10), "9.00");  // beyond the last angle
  EXPECT_EQ(at(6, 2), "6.00");
  EXPECT_EQ(at(6, 0), "0.00");
  // 12 angles beyond 120 in all 15 columns with wind, and 12 of these outside in the other 19.
  EXPECT_EQ(import->guessed, 12 * 15 + 19 * 12);

  const PolarRows sloping = SlopingRows();
  const Result<PolarImport> again = PolarFromText(PolarToText(sloping));
  ASSERT_TRUE(again);
  EXPECT_EQ(again->guessed, 0);
  for (std::size_t row = 0; row < 31; ++row) {
    for (std::size_t column = 2; column < kPolarColumns.size(); ++column) {
      EXPECT_NEAR(std::stod(*again->rows[row][column]), std::stod(*sloping[row][column]), 0.0051);
    }
  }
  EXPECT_TRUE(PolarFromText("x;5;10\n0;0;0\n\n! a remark\n90;6;7;\n"));
}

TEST(Polar, TextThatIsNoPolarIsRefused) {
  const std::pair<const char*, const char*> rows[] = {
      {"", "there is no table"},
      {"TWA\t6\n60\t5\n90\t6\n", "line 1: two wind speeds"},
      {"TWA\t6\t10\n60\t5\n", "line 2: it has another number of columns"},
      {"TWA\t6\t10\n60\t5\t6\n50\t5\t6\n", "line 3: the angles must rise"},
      {"TWA\t6\t10\n60\tfive\t6\n", "line 2: there is something else"},
      {"TWA\t6\t10\n60\t-5\t6\n", "line 2: no boat has this speed"},
      {"TWA\t6\t10\n190\t5\t6\n", "line 2: an angle is from 0 to 180"},
      {"TWA\t10\t6\n60\t5\t6\n90\t5\t6\n", "line 1: the wind speeds must rise"},
      {"TWA\t6\t6\n60\t5\t6\n90\t5\t6\n", "line 1: the wind speeds must rise"},
      {"TWA\t6\t10\n60\t5\t6\n", "there is no table"},
  };
  for (const auto& [text, reason] : rows) {
    const Result<PolarImport> import = PolarFromText(text);
    ASSERT_FALSE(import) << text;
    EXPECT_NE(import.error().Text().find(reason), std::string::npos) << import.error().Text();
  }
}

TEST(RelativeWind, AngleAndSide) {
  const struct {
    double from, course, angle;
    bool starboard;
  } rows[] = {{45, 0, 45, true},    {315, 0, 45, false}, {0, 0, 0, false},
              {180, 0, 180, false}, {10, 350, 20, true}, {350, 10, 20, false},
              {90, 180, 90, false}, {179, 0, 179, true}, {181, 0, 179, false},
              {360, 0, 0, false}};
  for (const auto& row : rows) {
    const RelativeWind wind = RelativeWindOf(row.from, row.course);
    EXPECT_NEAR(wind.angle, row.angle, 1e-9) << row.from << " on " << row.course;
    EXPECT_EQ(wind.starboard, row.starboard) << row.from << " on " << row.course;
  }
}

TEST(RelativeWind, TrueAndApparent) {
  // On the beam 8 knots and 6 of the boat make 10, 53.13 degrees off the bow.
  const WindOnBow apparent = ApparentWind({8, 90}, 6);
  EXPECT_NEAR(apparent.speed, 10, 1e-9);
  EXPECT_NEAR(apparent.angle, 53.1301, 1e-3);
  const WindOnBow back = TrueWind(apparent, 6);
  EXPECT_NEAR(back.speed, 8, 1e-9);
  EXPECT_NEAR(back.angle, 90, 1e-6);
  EXPECT_NEAR(ApparentWind({10, 180}, 6).speed, 4, 1e-9);
  EXPECT_NEAR(ApparentWind({10, 180}, 6).angle, 180, 1e-6);
  EXPECT_NEAR(ApparentWind({5, 180}, 5).speed, 0, 1e-9);
  EXPECT_NEAR(ApparentWind({10, 0}, 6).speed, 16, 1e-9);
}

TEST(RelativeWind, Beaufort) {
  // Middles of 1-3, 4-6, 7-10, 11-16 ... knots.
  const int middles[] = {0, 2, 5, 8, 13, 19, 24, 30, 37, 44, 51, 59, 64};
  for (int force = 0; force <= 12; ++force) {
    EXPECT_EQ(BeaufortSpeed(force), middles[force]);
    EXPECT_EQ(BeaufortForce(middles[force]), force);
  }
  EXPECT_FALSE(BeaufortSpeed(13));
  EXPECT_EQ(BeaufortForce(0.9), 0);
  EXPECT_EQ(BeaufortForce(3.4), 1);
  EXPECT_EQ(BeaufortForce(63.6), 12);
}

}  // namespace
}  // namespace skerrow
