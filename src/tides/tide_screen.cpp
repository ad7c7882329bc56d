#include "tides/tide_screen.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr const char* kLineEnd = "\r\n";

// A height to `decimals`; empty at 0 and below.
std::string PositiveText(float height, int decimals) {
  return height > 0 ? FormatFixed(height, 1, decimals) : std::string();
}

std::string Joined(std::span<const std::string> lines) {
  std::string text;
  for (const std::string& line : lines) text += line + kLineEnd;
  return text;
}

// The entries from 0 at which a layer stands at a peak of its size, high or low. There are at most
// ten.
std::vector<std::size_t> PeaksOf(const std::vector<CurvePoint>& layer) {
  constexpr std::size_t kRoom = 10;
  const auto size = [&](std::size_t i) { return std::abs(layer[i].height); };
  std::vector<std::size_t> peaks;
  for (std::size_t i = 0; i + 2 < kCurveCount && peaks.size() < kRoom; ++i) {
    if (size(i) <= size(i + 1) && size(i + 1) > size(i + 2)) peaks.push_back(i);
  }
  return peaks;
}

struct Slope {
  std::string state;
  double rate = 0.0;
};

// How the tide moves at an entry of the curve; nothing where its neighbours lie at one time.
std::optional<Slope> SlopeAt(const TideCurve& tide, std::size_t index) {
  const std::vector<CurvePoint>& curve = tide.curve;
  const CurvePoint& here = curve[index];
  const CurvePoint& before = index > 0 ? curve[index - 1] : here;
  const CurvePoint& after = index + 1 < kCurveCount ? curve[index + 1] : here;
  if (after.hours == before.hours) return std::nullopt;
  Slope slope;
  slope.rate = std::abs(
      (std::abs(static_cast<double>(after.height)) - std::abs(static_cast<double>(before.height))) /
      (static_cast<double>(after.hours) - before.hours));
  if (after.height > here.height) slope.state = "Rising";
  if (after.height < here.height) slope.state = "Falling";
  return slope;
}

}  // namespace

TideDisplay TideDisplayOf(const AppConfig& config) {
  return {config.tide_display_option, config.draught, config.under_keel_clearance,
          config.summer_time != 0};
}

std::optional<SpringNeap> FindSpringNeap(const TideCurve& tide) {
  const std::vector<std::size_t> m2 = PeaksOf(tide.layer_m2);
  const std::vector<std::size_t> s2 = PeaksOf(tide.layer_s2);
  if (s2.size() < 2) return std::nullopt;
  const auto m2_at = [&](std::size_t peak) {
    // Behind the last peak there is none, and its height is 0.
    return peak < m2.size() ? tide.layer_m2[m2[peak]].height : 0.0F;
  };
  const std::size_t s = tide.layer_s2[s2[0]].height > tide.layer_s2[s2[1]].height ? s2[0] : s2[1];
  for (std::size_t peak = 0; peak < 4 && peak < m2.size(); ++peak) {
    if (m2[peak] <= s || m2_at(peak) <= m2_at(peak + 1)) continue;
    SpringNeap found;
    found.samples = static_cast<int>(m2[peak] - s);
    const double hours = found.samples / 6.0;
    found.hours = static_cast<float>(hours);
    constexpr int kBar = 36;
    if (found.samples < kBar) {
      found.progress = found.samples;
      found.left = "Springs";
      found.right = "Neaps";
    } else {
      found.progress = std::min(found.samples - kBar, kBar);
      found.left = "Neaps ";
      found.right = "Springs ";
    }
    found.label = SpringNeapLabel(hours);
    return found;
  }
  return std::nullopt;
}

std::string SpringNeapLabel(double hours) {
  struct Band {
    double to;
    const char* label;
  };
  constexpr Band kBands[] = {
      {0.3, "Springs"},          {1.4, "Springs +1 day"},  {1.9, "Springs +2 days"},
      {2.5, "Springs +3 days"},  {3.3, "Neaps -3 days"},   {4.3, "Neaps -2 days"},
      {5.2, "Neaps -1days"},     {6.8, "Neaps"},           {7.7, "Neaps +1 day"},
      {8.5, "Neaps +2 days"},    {9.3, "Neaps +3 days"},   {10.2, "Springs -3 days"},
      {10.9, "Springs -2 days"}, {14.0, "Springs -1 day"},
  };
  if (!(hours >= 0)) return {};
  for (const Band& band : kBands) {
    if (hours <= band.to) return band.label;
  }
  return {};
}

float TidePlotBottom(float lowest) {
  if (lowest >= -4.0F && lowest <= -0.0000001F) {
    return static_cast<float>(WholePartDown(lowest));
  }
  return lowest;
}

TideScreen MakeTideScreen(const Port& port, DayAndYear date, const TideDisplay& display) {
  TideScreen screen;
  screen.port = port;
  screen.date = date;
  screen.display = display;
  DayOfYearToDate(date.day, date.year, screen.month_date);
  const MonthDate& day = screen.month_date;
  screen.sun = SunCalc(port.latitude, port.longitude, day.day_of_month, day.month, date.year,
                       TimeZoneHours(port.time_zone), display.summer_time);
  screen.tide = PredictHeights(port, date.day, day.month, date.year, display.summer_time);
  const auto [lowest, highest] = std::minmax_element(
      screen.tide.curve.begin(), screen.tide.curve.begin() + kCurveCount - 1,
      [](const CurvePoint& a, const CurvePoint& b) { return a.height < b.height; });
  screen.plot_bottom = TidePlotBottom(lowest->height);
  screen.plot_top = static_cast<float>(WholePart(highest->height) + 1);
  screen.spring_neap = FindSpringNeap(screen.tide);
  screen.lines = {"Port : " + Trim(port.name),
                  "Date : " + std::to_string(day.day_of_month) + "/" + std::to_string(day.month) +
                      "/" + std::to_string(date.year),
                  ""};
  for (const Water& water : screen.tide.waters) {
    screen.lines.push_back(TideHeightText(water.height) + "   " + HoursToClock(water.hours));
  }
  return screen;
}

std::string DepthCaption(const TideDisplay& display) {
  if (display.option == 1) return "Depths to Chart Datum";
  if (display.option != 3) return {};
  std::string caption;
  if (display.draught != 0) caption += " : Draft=" + ShortText(display.draught) + "M";
  if (display.under_keel_clearance != 0) {
    caption += " : Clearance=" + ShortText(display.under_keel_clearance) + "M";
  }
  return caption;
}

std::string PlaceDepthText(const Port& port, const TideDisplay& display, float height) {
  if (display.option == 1 || port.user_depth == 0) return {};
  double depth = static_cast<double>(height) + port.user_depth;
  if (display.option == 3) depth -= display.draught + display.under_keel_clearance;
  return "Depth at the place " + FormatFixed(depth, 1, 1) + "M";
}

std::string TideHeightText(float height) { return PositiveText(height, 1); }

std::string TideTableHeightText(float height) { return PositiveText(height, 2); }

std::size_t CurveIndex(double hours) {
  const double entry = WholePart(hours / (1.0 / 6.0));
  if (!(entry > 0)) return 0;
  return static_cast<std::size_t>(std::min(entry, static_cast<double>(kCurveCount - 1)));
}

CursorReading ReadCursor(const TideCurve& tide, double hours) {
  const std::size_t index = CurveIndex(hours);
  const float here = tide.curve[index].height;
  const float next = tide.curve[index + 1].height;
  CursorReading reading;
  reading.time = HoursToClock(static_cast<float>(hours));
  reading.height = TideHeightText(here);
  if (next > here) reading.state = "(Rising)";
  if (next < here) reading.state = "(Falling)   ";
  return reading;
}

std::optional<MouseReading> ReadMouse(const TideCurve& tide, double hours) {
  MouseReading reading;
  reading.index = CurveIndex(hours);
  const std::optional<Slope> slope = SlopeAt(tide, reading.index);
  if (!slope) return std::nullopt;
  reading.hours = static_cast<float>(hours);
  reading.time = HoursToClock(reading.hours);
  reading.height = TideHeightText(tide.curve[reading.index].height);
  reading.state = slope->state;
  reading.rate = slope->rate;
  reading.text = "(" + reading.state + " @ " + FormatFixed(reading.rate, 1, 2) + " Mtrs/Hr )";
  return reading;
}

LayerReading ReadLayers(const TideCurve& tide, std::size_t index) {
  const auto at = [&](const std::vector<CurvePoint>& layer) { return layer[index].height; };
  LayerReading reading{at(tide.layer_m2), at(tide.layer_s2), at(tide.layer_k1), at(tide.layer_o1),
                       at(tide.layer_f4), at(tide.layer_f6), at(tide.layer_z0), 0.0F};
  reading.sum = static_cast<float>(static_cast<double>(reading.m2) + reading.s2 + reading.k1 +
                                   reading.o1 + reading.f4 + reading.f6 + reading.z0);
  return reading;
}

std::string TideTitle(const TideCurve& tide, double clock_hours, const std::string& clock_text) {
  const std::size_t index = CurveIndex(clock_hours);
  const Slope slope = SlopeAt(tide, index).value_or(Slope{});
  return "Skerrow Tides     [Time Now " + clock_text.substr(0, 5) + slope.state +
         " : Height = " + TideHeightText(tide.curve[index].height) + "M.  :  @ " +
         FormatFixed(slope.rate, 1, 2) + " Mtrs/Hr]";
}

std::optional<MonthTable> MakeMonthTable(const Port& port, int month, int year, bool summer_time,
                                         Progress& progress) {
  const std::string month_name = LongMonthName(month);
  MonthTable table;
  table.lines = {"", "", Trim(port.name),
                 "Monthly tidal prediction for " + month_name + "   " + std::to_string(year),
                 "Prediction for " + month_name};
  const int days = DaysInMonth(month, year);
  for (int day = 1; day <= days; ++day) {
    if (!progress.Step(100.0 * (day - 1) / days)) return std::nullopt;
    const TideCurve tide =
        PredictHeights(port, DateToDayOfYear(day, month, year), month, year, summer_time);
    table.lines.emplace_back();
    table.lines.push_back(std::to_string(day) + " " + month_name.substr(0, 3) + " (" +
                          WeekdayName(day, month, year).substr(0, 3) + ")");
    std::vector<MonthTable::Row>& rows = table.days.emplace_back();
    for (const Water& water : tide.waters) {
      rows.push_back({HoursToClock(water.hours), TideTableHeightText(water.height)});
      table.lines.push_back(rows.back().time + "   " + rows.back().height);
    }
  }
  return table;
}

std::string HourlyText(const TideScreen& screen) {
  std::string text = Joined(std::span(screen.lines).first(3));
  for (std::size_t i = 0; i < 144; ++i) {
    const CurvePoint& point = screen.tide.curve[i];
    text += HoursToClock(point.hours) + "\t" + TideTableHeightText(point.height) + kLineEnd;
  }
  return text;
}

std::string MonthFileText(std::span<const std::string> month_lines) {
  std::string text;
  for (std::size_t i = 2; i < month_lines.size(); ++i) {
    const std::string& line = month_lines[i];
    if (Trim(line).empty()) continue;
    const bool water = line.find(':') != std::string::npos;
    text += (water ? ReplaceAll(line, "   ", "\t") : line) + kLineEnd;
  }
  return text;
}

std::string SunEventText(const SunTimes& times, SunEvent event) {
  return HoursToClock(static_cast<float>(times.hours[event])) +
         (times.happens[event] ? "" : " none");
}

std::string SunFileText(std::span<const SunDay> table) {
  // The twilights have two times each, so that their heads span two columns.
  std::string text =
      std::string("Date\tSunrise\tSunset\tCivil Twilights\t\tNautical Twilights\t") + kLineEnd;
  for (const SunDay& day : table) {
    text += day.date_text;
    for (const SunEvent event :
         {kSunrise, kSunset, kCivilMorning, kCivilEvening, kNauticalMorning, kNauticalEvening}) {
      text += "\t" + SunEventText(day.times, event);
    }
    text += kLineEnd;
  }
  return text;
}

std::string DayClipboardText(const TideScreen& screen) {
  return Joined(screen.lines) + TimeBasisText(screen.display.summer_time) + kLineEnd +
         (screen.spring_neap ? screen.spring_neap->label : std::string());
}

std::string MonthClipboardText(const TideScreen& screen, std::span<const std::string> month_lines) {
  return Joined(std::span(screen.lines).first(2)) + Joined(month_lines) +
         TimeBasisText(screen.display.summer_time);
}

std::string SunClipboardText(const TideScreen& screen) {
  const std::string times[] = {"Sun rise : " + SunEventText(screen.sun, kSunrise),
                               "Sun set  : " + SunEventText(screen.sun, kSunset)};
  return Joined(std::span(screen.lines).first(2)) + Joined(times);
}

std::string TimeBasisText(bool summer_time) {
  return summer_time ? "(Summer Time)" : "(Standard Time)";
}

std::string PrintedTimeBasis(bool summer_time) {
  return summer_time ? " Times shown are with Summer Time correction"
                     : "Times from midnight local time - WITHOUT SUMMER TIME CORRECTION";
}

std::string DerivedDataNotice() {
  return "Heights in Metres, all data are derived and should therefore be considered as "
         "approximate";
}

DayAndYear NextDay(DayAndYear date) {
  if (date.day < DaysInYear(date.year)) {
    return {static_cast<std::int16_t>(date.day + 1), date.year};
  }
  return {1, static_cast<std::int16_t>(date.year + 1)};
}

DayAndYear PreviousDay(DayAndYear date) {
  if (date.day > 1) return {static_cast<std::int16_t>(date.day - 1), date.year};
  const auto year = static_cast<std::int16_t>(date.year - 1);
  return {static_cast<std::int16_t>(DaysInYear(year)), year};
}

}  // namespace skerrow
