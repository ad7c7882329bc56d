#include "ui/forms/optimum_chart.h"

#include <cmath>
#include <gtest/gtest.h>

#include "support/sample_desk.h"

namespace skerrow::testing {
namespace {

class SelectDepartureOnDesk : public SampleDesk {};

TEST(OptimumChart, MarksTheEarliestOfEqualTimes) {
  const OptimumChart chart({5.0F, 6.5F, 4.0F, 6.5F, 4.0F}, 6.0F);
  EXPECT_EQ(chart.extremes().longest, 1U);
  EXPECT_EQ(chart.extremes().shortest, 2U);
  EXPECT_FLOAT_EQ(chart.Top(), 8.125F);
  EXPECT_EQ(chart.LongestLabel(), "06Hrs 30Min  (Max. time) ");
  EXPECT_EQ(chart.ShortestLabel(), "04Hrs 00Min  (Min. time)");
  EXPECT_EQ(chart.HoverText(3), "Time taken 06Hrs 30Min  departing at 09:00");
}

TEST(OptimumChart, LabelsEveryThirdHourFromNineEntriesOn) {
  const auto texts = [](std::size_t departures, float start) {
    std::string joined;
    for (const auto& label : OptimumChart(std::vector<float>(departures, 5.0F), start).HourLabels())
      joined += label.text + " ";
    return joined;
  };
  EXPECT_EQ(texts(6, 18.0F), "18:00 19:00 20:00 21:00 22:00 23:00 24:00 ");
  EXPECT_EQ(texts(8, 6.0F), "06:00 09:00 12:00 ");
  EXPECT_EQ(texts(24, 0.0F), "00:00 03:00 06:00 09:00 12:00 15:00 18:00 21:00 24:00 ");
}

TEST(OptimumChart, WhatIsLeftOutHasNoTime) {
  const float none = std::nanf("");
  const OptimumChart chart({none, 5.0F, 6.5F, 4.0F, none}, 6.0F);
  EXPECT_EQ(chart.extremes().longest, 2U);
  EXPECT_EQ(chart.extremes().shortest, 3U);
  EXPECT_FLOAT_EQ(chart.Top(), 8.125F);
  EXPECT_EQ(chart.HoverText(0), "06:00 is left out: see the list");
  EXPECT_EQ(chart.HoverText(4), "10:00 is left out: see the list");
  EXPECT_EQ(chart.HoverText(1), "Time taken 05Hrs 00Min  departing at 07:00");

  PassageState passage;
  RouteState route;
  route.points.resize(3);
  EXPECT_FALSE(TakeDepartureSpeeds(passage, 0, route));
  passage.optimum_speeds = {{}, {4.0F, 5.0F}, {4.0F}};
  EXPECT_FALSE(TakeDepartureSpeeds(passage, 0, route));
  EXPECT_FALSE(TakeDepartureSpeeds(passage, 2, route));
  EXPECT_FALSE(TakeDepartureSpeeds(passage, 3, route));
  EXPECT_EQ(route.points[0].speed, RoutePoint().speed);
  EXPECT_TRUE(TakeDepartureSpeeds(passage, 1, route));
  EXPECT_EQ(route.points[0].speed, 4.0F);
  EXPECT_EQ(route.points[1].speed, 5.0F);
}

TEST(OptimumChart, FindsTheBarUnderThePointer) {
  const OptimumChart chart({1, 2, 3, 4}, 0.0F);
  EXPECT_EQ(chart.BarAt(0.0, 400.0), 0U);
  EXPECT_EQ(chart.BarAt(99.9, 400.0), 0U);
  EXPECT_EQ(chart.BarAt(100.0, 400.0), 1U);
  EXPECT_EQ(chart.BarAt(399.99, 400.0), 3U);
  EXPECT_FALSE(chart.BarAt(400.0, 400.0));
  EXPECT_FALSE(chart.BarAt(-0.1, 400.0));
  EXPECT_FALSE(OptimumChart({}, 0.0F).BarAt(10.0, 400.0));
}

TEST(OptimumChart, KeepsItsLabelsInside) {
  const OptimumChart chart(std::vector<float>(24, 5.0F), 0.0F);
  for (std::size_t i = 0; i < 24; ++i) {
    const double left = chart.LabelLeft(i, 180.0, 600.0);
    EXPECT_GE(left, 0.0) << i;
    EXPECT_LE(left + 180.0, 600.0) << i;
  }
}

TEST_F(SelectDepartureOnDesk, MovesTheTimeAndKeepsTheDay) {
  const DayAndYear day = program.selected_time.Day();
  SelectDeparture(program, 19.0F, messages);
  EXPECT_TRUE(program.selected_time.override_);
  EXPECT_FLOAT_EQ(program.selected_time.hours, 19.0F);
  EXPECT_EQ(program.selected_time.Day(), day);
}

}  // namespace
}  // namespace skerrow::testing
