#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/position.h"
#include "platform/printing.h"
#include "tides/sun_moon.h"

// What the dialogs of sun and moon check, work out and show.
namespace skerrow {

// The fields of `Frmsunrise`.
struct SunEntry {
  std::string name;
  std::string latitude;   // "50.30.25N"
  std::string longitude;  // "001.05.40W"
};

enum class SunRefusal { kNone, kLongitude, kLatitude };

// What a position must look like, shown in the dialog.
inline constexpr const char* kSunPositionHint =
    "Degrees, minutes and hundredths, and the side at the end, such as 50.30.25N and 001.05.40W";

struct CheckedSunEntry {
  SunRefusal refusal = SunRefusal::kNone;
  Position position;
};
CheckedSunEntry CheckSunEntry(const SunEntry& entry);

// Sun and moon of a month at a place.
struct SunResults {
  std::string name;
  std::string latitude, longitude;  // as entered
  int month = 1;
  int year = 2000;
  bool summer_time = false;
  std::vector<SunDay> days;
  std::vector<std::string> moon;
};

// For a checked entry; `zone_hours` as SunCalc takes them.
SunResults MakeSunResults(const SunEntry& entry, Position position, int month, int year,
                          int zone_hours, bool summer_time);

// A row of a day's results: its words, the time, and a note of how the event is called.
struct SunRow {
  std::string words;
  std::string time;  // "04:58", and "none" beside it for an event that does not happen
  bool happens = true;
};
// The eight events of a day from the morning to the evening.
std::vector<SunRow> SunRowsOf(const SunDay& day);

// "Daylight hours 16:27" and "(incl. civil twilight) 18:03"; "none" in the place of the time where
// an event that bounds it does not happen.
std::string DaylightText(const SunTimes& times);
std::string TwilightText(const SunTimes& times);

// The month as rows of columns parted by tabs, a heading first.
std::vector<std::string> SunTableLines(const SunResults& results);

// The name offered for the file, "Dover_Sun_June_2026".
std::string SunFileName(const SunResults& results);

// The month on paper, with the moon.
PrintDocument SunPage(const SunResults& results);

}  // namespace skerrow
