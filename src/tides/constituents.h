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

// A constituent group over a day and on: phase lag and phase at the start, degrees, and the speed,
// degrees an hour; the amplitude factor at the start and its change, an hour.
struct GroupLine {
  double g_plus_v = 0.0, speed = 0.0;
  double f = 0.0, f_rate = 0.0;

  // The angle and the factor at `hours` after the start.
  double Degrees(double hours) const { return g_plus_v - hours * speed; }
  double Factor(double hours) const { return f + hours * f_rate; }
};

// Turns of a day that a group cannot fall short of, degrees: twice a day and once a day.
inline constexpr double kSemidiurnalTurn = 600.0;
inline constexpr double kDiurnalTurn = 300.0;

// The line of a group from 0 h of a day (`before`) to 0 h of the next (`at`), with a phase lag `g`
// in degrees. Speed and rate are single precision.
GroupLine LineOf(float g, const GroupValue& before, const GroupValue& at, double least_turn);

}  // namespace skerrow
