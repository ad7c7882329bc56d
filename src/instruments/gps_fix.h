#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/position.h"

// What the GPS has told last, and where the boat has been.
namespace skerrow {

// The latest fix. What came of a sentence whose state was bad never gets here.
struct GpsFix {
  float boat_latitude = 0.0F;        // decimal degrees, north positive
  float boat_longitude = 0.0F;       // decimal degrees, east positive
  float speed_over_ground = 0.0F;    // knots; 0 where the GPS tells none
  float course_over_ground = 0.0F;   // degrees true; 0 where the GPS tells none
  std::string fix_time;              // "hhmmss" with any decimals, as received
  std::string fix_date;              // "ddmmyy"
  bool position_good = false;        // by the latest sentence with a position
  bool rmc_seen = false;             // an RMC of any state came in this run
  std::string position_text;         // latitude, two blanks, longitude
  std::string course_speed_text;     // "Heading 084.4°T @ 022.4 Kn"
  std::string waypoint_text;         // "Waypt (NAME) 1.2M@123.4°T", or empty
  bool has_active_waypoint = false;  // an RMB with a destination came in this run

  Position At() const { return {boat_latitude, boat_longitude}; }
  bool HasPosition() const { return boat_latitude != 0.0F; }

  friend bool operator==(const GpsFix&, const GpsFix&) = default;
};

// A recorded fix. A point that was made from a sentence without a date has no day, month and year.
struct GpsTrackPoint {
  float latitude = 0.0F;   // decimal degrees, north positive
  float longitude = 0.0F;  // decimal degrees, east positive
  std::int16_t hour = 0;
  std::int16_t minute = 0;
  std::int16_t second = 0;
  std::int16_t day = 0;
  std::int16_t month = 0;
  std::int16_t year = 0;  // two digits
  float speed = 0.0F;     // knots over the ground
  float course = 0.0F;    // degrees true over the ground

  Position At() const { return {latitude, longitude}; }

  friend bool operator==(const GpsTrackPoint&, const GpsTrackPoint&) = default;
};

// The track table, oldest point first.
using GpsTrack = std::vector<GpsTrackPoint>;

// Sets hour, minute and second from a time text: its first two characters, the next two and the
// rest, rounded half to even.
void SetTime(GpsTrackPoint& point, const std::string& time_text);

// Sets day, month and year from a date text, cut the same way.
void SetDate(GpsTrackPoint& point, const std::string& date_text);

}  // namespace skerrow
