#include <array>
#include <cmath>
#include <gtest/gtest.h>

#include "support/sample_tides.h"
#include "tides/heights.h"

namespace skerrow {
namespace {

// Groups and heights worked out by tests/reference/simplified_tides.py, apart from the program and
// in double precision, for three ports at five times of each day on standard time.
constexpr std::array<const char*, 3> kPorts = {"Dover", "Saint Malo", "Southampton"};
constexpr std::array<std::size_t, 5> kEntries = {0, 27, 66, 108, 141};  // 00:00, 04:30 .. 23:30

struct Row {
  int year, day;
  float v[4];  // of M2, S2, K1, O1: whole degrees
  double f[4];
  double heights[3][5];  // metres
};
constexpr Row kRows[] = {
    {1995,
     182,
     {68, 8, 174, 264},
     {0.91155, 0.75842, 1.16538, 0.72987},
     {{6.1288, 3.5815, 4.5789, 2.3754, 4.7773},
      {4.9403, 4.6729, 7.3861, 8.1158, 7.0299},
      {4.0314, 2.5412, 2.9742, 1.4214, 3.2462}}},
    {2000,
     366,
     {119, 0, 4, 114},
     {0.87123, 0.80322, 1.27252, 0.81513},
     {{4.4880, 4.9506, 2.6168, 3.8316, 3.0220},
      {7.3302, 3.7139, 9.3954, 5.1272, 8.8598},
      {3.0256, 3.9014, 2.5469, 2.7967, 2.4480}}},
    {1986,
     60,
     {115, 14, 312, 181},
     {1.09305, 1.28627, 0.96480, 1.34083},
     {{4.9920, 5.1380, 1.9357, 3.6435, 2.5136},
      {7.1249, 2.0099, 10.0957, 4.4520, 9.4983},
      {3.0867, 4.2563, 2.1752, 2.7522, 2.2442}}},
    {2026,
     339,
     {268, 348, 2, 255},
     {0.94394, 0.75185, 1.39324, 1.05147},
     {{3.4215, 2.8027, 4.4638, 3.6297, 4.4785},
      {6.0962, 9.3623, 4.3720, 8.2512, 4.2164},
      {2.3517, 2.4649, 3.5887, 2.7236, 3.4202}}},
    {2037,
     1,
     {329, 2, 3, 332},
     {1.11792, 0.83241, 1.29363, 1.03925},
     {{5.3179, 1.3285, 6.4651, 0.9255, 6.5006},
      {2.5791, 11.0830, 2.8204, 11.6374, 2.5388},
      {4.2005, 1.4052, 4.5108, 1.8773, 4.4909}}},
};

Port PortCalled(const std::string& name) {
  const auto ports = ReadAreaPorts(testing::SampleFolders(), "UK.hc");
  for (const Port& port : ports->Sound()) {
    if (Trim(port.name) == name) return port;
  }
  ADD_FAILURE() << name;
  return {};
}

TEST(Reference, GroupsAndHeights) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(std::to_string(row.year) + " " + std::to_string(row.day));
    const DayConstituents groups = CalcDayConstituents(row.year, row.day);
    const std::array<GroupValue, 4> values = {groups.m2, groups.s2, groups.k1, groups.o1};
    for (std::size_t i = 0; i < values.size(); ++i) {
      EXPECT_EQ(values[i].v, row.v[i]) << i;
      EXPECT_NEAR(values[i].f, row.f[i], 2e-5) << i;
    }
    MonthDate date;
    DayOfYearToDate(row.day, row.year, date);
    // The seasons of a day go by a table whose June has the first of July too.
    const int month = row.day == 182 ? 6 : date.month;
    for (std::size_t p = 0; p < kPorts.size(); ++p) {
      const Port port = PortCalled(kPorts[p]);
      const std::vector<float> day = PredictPortDay(port, row.year, row.day, false);
      // An hour later on the clock of summer time.
      const std::vector<float> summer = PredictPortDay(port, row.year, row.day, true);
      const TideCurve curve = PredictHeights(port, row.day, month, row.year, false);
      for (std::size_t i = 0; i < kEntries.size(); ++i) {
        const std::size_t entry = kEntries[i];
        EXPECT_NEAR(day[entry], row.heights[p][i], 5e-4) << kPorts[p] << " " << entry;
        EXPECT_EQ(summer[entry + 6], day[entry]);
        EXPECT_EQ(curve.curve[entry].height, day[entry]);
      }
    }
  }
}

}  // namespace
}  // namespace skerrow
