#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "core/config.h"
#include "core/progress.h"
#include "tides/heights.h"
#include "tides/port.h"
#include "tides/sun_moon.h"

// What the tide screen tells of a port: a day's curve with its lines, its scale and its place
// between springs and neaps, the readings under a cursor, and a month's table.
namespace skerrow {

// How heights and times are shown.
struct TideDisplay {
  int option = 1;  // 1 to chart datum, 2 with the user's depth, 3 less draught and clearance too
  float draught = 0.0F;               // metres
  float under_keel_clearance = 0.0F;  // metres
  bool summer_time = false;
};
TideDisplay TideDisplayOf(const AppConfig& config);

// Where a day stands between springs and neaps: the time from a maximum of the S2 term to the next
// maximum of the M2 term grows by about 50 minutes a day.
struct SpringNeap {
  float hours = 0.0F;       // SpringNeapHours
  int samples = 0;          // the same in tens of minutes
  int progress = 0;         // of the indicator's bar, 0 at `left` to 36 at `right`
  std::string left, right;  // "Springs" and "Neaps", or the other way round
  std::string label;        // "Neaps +1 day"; empty beyond 14 hours
};

// Empty where the terms have no such maxima, as at a port without a tide.
std::optional<SpringNeap> FindSpringNeap(const TideCurve& tide);

// The label of a number of hours.
std::string SpringNeapLabel(double hours);

// The bottom of a plot, metres, for the lowest height in it: the whole metre below one of 0 to -4
// metres, and others as they stand.
float TidePlotBottom(float lowest);

// A day of a port, all that its picture and its lists need.
struct TideScreen {
  Port port;
  DayAndYear date;
  MonthDate month_date;
  TideDisplay display;
  TideCurve tide;
  SunTimes sun;
  float plot_top = 0.0F;     // metres
  float plot_bottom = 0.0F;  // metres
  std::optional<SpringNeap> spring_neap;
  std::vector<std::string> lines;  // TideLines

  // What is taken off the heights for the dotted curve of option 3, metres.
  float Allowance() const { return display.draught + display.under_keel_clearance; }
};

TideScreen MakeTideScreen(const Port& port, DayAndYear date, const TideDisplay& display);

// The time of an event, and "none" beside it where it does not happen: what the clock then shows is
// only the zone's offset.
std::string SunEventText(const SunTimes& times, SunEvent event);

// "Depths to Chart Datum", empty, or " : Draft=0.5M : Clearance=0.5M".
std::string DepthCaption(const TideDisplay& display);

// The depth at the user's place for a height of the tide: "Depth at the place" with the metres.
// Empty with option 1 and for a port whose depth is 0.
std::string PlaceDepthText(const Port& port, const TideDisplay& display, float height);

// A height of the lists and the cursor, one decimal; empty at 0 and below.
std::string TideHeightText(float height);

// A height of the hourly table, two decimals; empty at 0 and below.
std::string TideTableHeightText(float height);

// The entry of the curve that holds a time of the day, from 0; confined to the curve.
std::size_t CurveIndex(double hours);

// What stands beside the time cursor.
struct CursorReading {
  std::string time;    // "HH:MM"
  std::string height;  // TideHeightText of the entry
  std::string state;   // "(Rising)", "(Falling)   " or empty
};
CursorReading ReadCursor(const TideCurve& tide, double hours);

// What stands beside the mouse.
struct MouseReading {
  std::size_t index = 0;  // entry of the curve, from 0
  float hours = 0.0F;     // of the mouse
  std::string time;
  std::string height;
  std::string state;  // "Rising", "Falling" or empty
  double rate = 0.0;  // metres an hour
  std::string text;   // "(Rising @ 0.52 Mtrs/Hr )"
};
// Nothing where the neighbours of the entry lie at the same time.
std::optional<MouseReading> ReadMouse(const TideCurve& tide, double hours);

// The values of the seven terms at an entry and their sum, as the constituents view shows them.
struct LayerReading {
  float m2, s2, k1, o1, f4, f6, z0, sum;
};
LayerReading ReadLayers(const TideCurve& tide, std::size_t index);

// The title of the tide screen at a time of the clock, "HH:MM:SS" its text.
std::string TideTitle(const TideCurve& tide, double clock_hours, const std::string& clock_text);

// A month of a port's high and low waters.
struct MonthTable {
  struct Row {
    std::string time, height;  // "06:12", "1.20"
  };
  std::vector<std::vector<Row>> days;  // by day of the month, from 0
  std::vector<std::string> lines;      // as the list shows them
};
// Nothing when `progress` says to stop.
std::optional<MonthTable> MakeMonthTable(const Port& port, int month, int year, bool summer_time,
                                         Progress& progress);

// The lines of the files and of the clipboard. A file's lines end with a carriage return and a line
// feed, as all texts here do that carry several lines.
std::string HourlyText(const TideScreen& screen);
std::string MonthFileText(std::span<const std::string> month_lines);
std::string SunFileText(std::span<const SunDay> table);
std::string DayClipboardText(const TideScreen& screen);
std::string MonthClipboardText(const TideScreen& screen, std::span<const std::string> month_lines);
std::string SunClipboardText(const TideScreen& screen);

// "(Standard Time)" or "(Summer Time)".
std::string TimeBasisText(bool summer_time);
// The time basis as the printed pages have it.
std::string PrintedTimeBasis(bool summer_time);
// The notice that every page and the tide screen carry.
std::string DerivedDataNotice();

// The next or the previous day, across the years' ends.
DayAndYear NextDay(DayAndYear date);
DayAndYear PreviousDay(DayAndYear date);

}  // namespace skerrow
