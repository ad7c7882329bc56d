#pragma once

// The astronomical arguments of a day and the four constituent groups of the simplified method.
namespace skerrow {

// A group's phase (whole degrees, 0 to below 360) and amplitude factor.
struct GroupValue {
  float v = 0.0F;
  float f = 0.0F;
};

// The groups at 0 h of a day.
struct DayConstituents {
  GroupValue m2, s2, k1, o1;
};

// The groups at 0 h of `day` of `year`. The day may lie outside 1 .. 366; the formulas run on
// through the neighbouring years. Years 1991 to 2000 start from tabulated longitudes, others step
// from 1992.
DayConstituents CalcDayConstituents(int year, int day);

}  // namespace skerrow
