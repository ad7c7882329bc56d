#include "ui/forms/sun_form.h"

#include <cmath>

#include "core/calendar.h"
#include "core/text.h"
#include "tides/tide_screen.h"
#include "ui/forms/file_names.h"

namespace skerrow {
namespace {

constexpr const char* kHead =
    "Date	Astro	Nautical	Civil	Sunrise	Sunset	Civil	Nautical	Astro";

// Whether a text ends with one of two letters, begins with neither, and is not too long.
bool SidedText(const std::string& text, std::size_t longest, std::string_view sides) {
  return !text.empty() && text.size() <= longest && sides.find(text.back()) != sides.npos &&
         sides.find(text.front()) == sides.npos;
}

std::string SpanText(const SunTimes& times, SunEvent from, SunEvent to) {
  if (!times.happens[from] || !times.happens[to]) return "none";
  double hours = times.hours[to] - times.hours[from];
  if (hours < 0) hours += 24.0;  // on a clock on which the evening comes first
  return HoursToHHMM(static_cast<float>(hours));
}

std::string MonthText(const SunResults& results) {
  return LongMonthName(results.month) + " " + std::to_string(results.year);
}

}  // namespace

CheckedSunEntry CheckSunEntry(const SunEntry& entry) {
  constexpr std::size_t kLongestLongitude = 10;
  constexpr std::size_t kLongestLatitude = 9;
  const std::string longitude = Trim(entry.longitude);
  const std::string latitude = Trim(entry.latitude);
  CheckedSunEntry checked;
  checked.position = {TextToLat(latitude), TextToLong(longitude)};
  if (!SidedText(longitude, kLongestLongitude, "WE") ||
      !(std::abs(checked.position.longitude) < 180.0F)) {
    checked.refusal = SunRefusal::kLongitude;
  } else if (!SidedText(latitude, kLongestLatitude, "NS") ||
             !(std::abs(checked.position.latitude) < 90.0F)) {
    checked.refusal = SunRefusal::kLatitude;
  }
  return checked;
}

SunResults MakeSunResults(const SunEntry& entry, Position position, int month, int year,
                          int zone_hours, bool summer_time) {
  SunResults results;
  results.name = Trim(entry.name);
  results.latitude = Trim(entry.latitude);
  results.longitude = Trim(entry.longitude);
  results.month = month;
  results.year = year;
  results.summer_time = summer_time;
  results.days =
      SunTable(position.latitude, position.longitude, month, year, zone_hours, summer_time);
  results.moon = MoonLines(month, year);
  return results;
}

std::vector<SunRow> SunRowsOf(const SunDay& day) {
  std::vector<SunRow> rows;
  for (std::size_t event = 0; event < kSunEvents; ++event) {
    const auto named = static_cast<SunEvent>(event);
    rows.push_back({SunEventName(named), SunEventText(day.times, named), day.times.happens[event]});
  }
  return rows;
}

std::string DaylightText(const SunTimes& times) {
  return "Daylight hours " + SpanText(times, kSunrise, kSunset);
}

std::string TwilightText(const SunTimes& times) {
  return "(incl. civil twilight) " + SpanText(times, kCivilMorning, kCivilEvening);
}

std::vector<std::string> SunTableLines(const SunResults& results) {
  std::vector<std::string> lines = {kHead};
  for (const SunDay& day : results.days) {
    std::string line = day.date_text;
    for (const SunRow& row : SunRowsOf(day)) line += "\t" + row.time;
    lines.push_back(std::move(line));
  }
  return lines;
}

std::string SunFileName(const SunResults& results) {
  return SafeFileName((results.name.empty() ? "Position" : results.name) + "_Sun_" +
                      LongMonthName(results.month) + "_" + std::to_string(results.year));
}

PrintDocument SunPage(const SunResults& results) {
  const PrintFont title = {"", 15.0, true};
  const PrintFont head = {"", 11.0, true};
  const PrintFont plain = {"", 9.0, false};
  PrintDocument page;
  const std::string place = (results.name.empty() ? "" : results.name + "     ") +
                            results.latitude + "  " + results.longitude;
  page.title = SafeFileName("Sun and Moon " + results.name + " " + MonthText(results));
  page.foot = results.name;
  page.items = {PrintLine("Sun and Moon", title),
                PrintLine("Port : " + place + "     Date : " + MonthText(results), head),
                PrintLine(PrintedTimeBasis(results.summer_time), plain),
                PrintLine("All data are computed from short series and should therefore be "
                          "considered as approximate",
                          plain),
                PrintLine(" ", plain)};
  const std::vector<double> tabs = {20, 43, 62, 80, 98, 116, 134, 152};
  const std::vector<std::string> lines = SunTableLines(results);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    page.items.push_back(PrintLine(lines[i], PrintFont{"", 9.0, i == 0}, tabs));
  }
  page.items.push_back(PrintLine(" ", plain));
  for (const std::string& line : results.moon) page.items.push_back(PrintLine(Trim(line), plain));
  return page;
}

}  // namespace skerrow
