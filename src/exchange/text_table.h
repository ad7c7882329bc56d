#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/position.h"
#include "core/result.h"
#include "exchange/user_files.h"
#include "passage/passage_state.h"
#include "routes/route.h"
#include "routes/waypoint.h"

// Routes, waypoints and the calculated course as tables for a spreadsheet: lines of fields parted
// by commas (RFC 4180) under a heading line, in UTF-8. Positions stand in decimal degrees, to the
// last bit, and again in the program's own form.
namespace skerrow {

// What is written is read back to the same records.
std::string RouteTable(std::span<const RouteRecord> records);
std::string WaypointTable(std::span<const Waypoint> waypoints);

// A step of a calculated track, as it is printed; what there is not is empty.
struct CourseStep {
  std::string leg;    // its number; none in a prediction
  std::string when;   // "2026-12-05T08:10"
  std::string steer;  // degrees magnetic, with leeway
  Position place;
  std::string course;     // over the ground to the next step, degrees true
  std::string speed;      // and its speed, knots
  std::string rate;       // of the stream, knots
  std::string direction;  // degrees true towards which it runs
  std::string diamond;
};
std::vector<CourseStep> CourseSteps(const PassageState& passage);
std::string CourseTable(const PassageState& passage);

// The bytes of a file with such a table. Spreadsheets take one without a mark at its beginning for
// single-byte text; the mark stands where there are letters beyond ASCII.
std::string TableFile(std::string_view table);

// Reads tables of this program and of others. Fields may be parted by semicolons or tabs too, and
// decimals then have commas; the text may be UTF-8 or code page 1252. The heading line may have its
// columns in any order ("Name", "Lat...", "Lon...", "Speed..."); without one the first text is the
// name and the numbers are latitude, longitude and speed. A position may be decimal degrees,
// "50.30.25N", or degrees and minutes parted by blanks or signs; where a line has two forms of one
// they must agree. Errors: no text, no columns of positions, no lines.
//
// Of waypoints, lines without a place are left out and counted.
Result<std::vector<Waypoint>> ReadWaypointTable(std::string_view text, Taken& taken);
// A route of which a point is left out would lead over what it was laid round: such a line is an
// error, with its number. A point without a speed has `speed` [kn].
Result<std::vector<RouteRecord>> ReadRouteTable(std::string_view text, float speed, Taken& taken);

}  // namespace skerrow
