#include "ui/forms/wind_list_form.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "core/numbers.h"
#include "core/position.h"
#include "wind/relative_wind.h"

namespace skerrow {
namespace {

template <typename Record>
std::vector<WindTime> Times(const std::vector<Record>& records) {
  std::map<float, std::vector<std::size_t>> by_time;
  for (std::size_t i = 0; i < records.size(); ++i) {
    const float time = records[i].time;
    if (std::isfinite(time) && time != 0.0F) by_time[time].push_back(i);
  }
  std::vector<WindTime> times;
  times.reserve(by_time.size());
  for (auto& [time, list] : by_time) times.push_back({time, std::move(list)});
  return times;
}

template <typename Record>
std::string PlaceText(const Record& record) {
  return LatToText(record.latitude) + "\t" + LongToText(record.longitude);
}

// "12.3\t225", and dashes where no wind is known.
template <typename Record>
std::string SpeedText(const Record& record) {
  if (!(record.speed < kNoWind)) return "-\t-";
  return FormatFixed(record.speed, 1, 1) + "\t" + FormatFixed(record.direction, 3, 0) + "°T";
}

std::string ComponentText(float value) {
  return value == kNoComponent ? "-" : FormatFixed(value, 1, 1);
}

}  // namespace

std::vector<WindTime> TimesOf(const std::vector<WindCell>& cells) { return Times(cells); }
std::vector<WindTime> TimesOf(const std::vector<GribWind>& winds) { return Times(winds); }

std::size_t TimeFor(const std::vector<WindTime>& times, DayAndYear date, float hours) {
  const WindBin bin = WindBinOf(date, hours);
  const double asked = DaysFrom2000(date) + hours / 24.0;
  std::size_t nearest = 0;
  for (std::size_t i = 0; i < times.size(); ++i) {
    if (times[i].time >= bin.from && times[i].time < bin.to) return i;
    if (std::abs(times[i].time - asked) < std::abs(times[nearest].time - asked)) nearest = i;
  }
  return nearest;
}

std::vector<std::string> WindRows(const std::vector<WindCell>& cells, const WindTime& time) {
  std::vector<std::string> rows = {"Latitude\tLongitude\tKnots\tFrom\tForce"};
  for (std::size_t i = 0; i < std::min(time.records.size(), kMostWindRows); ++i) {
    const WindCell& cell = cells[time.records[i]];
    rows.push_back(PlaceText(cell) + "\t" + SpeedText(cell) + "\t" +
                   (cell.speed < kNoWind ? std::to_string(BeaufortForce(cell.speed)) : "-"));
  }
  return rows;
}

std::vector<std::string> WindRows(const std::vector<GribWind>& winds, const WindTime& time) {
  std::vector<std::string> rows = {"Frame\tLatitude\tLongitude\tKnots\tFrom\tU m/s\tV m/s"};
  for (std::size_t i = 0; i < std::min(time.records.size(), kMostWindRows); ++i) {
    const GribWind& wind = winds[time.records[i]];
    rows.push_back(std::to_string(wind.frame) + "\t" + PlaceText(wind) + "\t" + SpeedText(wind) +
                   "\t" + ComponentText(wind.u) + "\t" + ComponentText(wind.v));
  }
  return rows;
}

std::string WindCountText(const WindTime& time) {
  const std::string all = std::to_string(time.records.size()) + " records";
  return time.records.size() <= kMostWindRows
             ? all
             : all + ", the first " + std::to_string(kMostWindRows) + " shown";
}

}  // namespace skerrow
