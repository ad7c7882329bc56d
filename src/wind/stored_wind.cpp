#include "wind/stored_wind.h"

#include <cmath>

#include "core/numbers.h"

namespace skerrow {
namespace {

// "3 days", "1 day", "5 hours".
std::string SpanText(double days) {
  const auto text = [](double count, const char* unit) {
    return FormatFixed(count, 1, 0) + " " + unit + (count == 1.0 ? "" : "s");
  };
  if (days >= 1.0) return text(std::floor(days), "day");
  const double hours = std::floor(days * 24.0);
  return hours < 1.0 ? "less than an hour" : text(hours, "hour");
}

}  // namespace

std::shared_ptr<const WindStore> StoredWind::Get(const Folders& folders) const {
  const std::string path = folders.WindDataFile();
  // Taken before the reading: a file that comes in between is then read the next time.
  const FileStamp stamp = StampOf(path);
  if (store_ != nullptr && path == path_ && stamp == stamp_) return store_;
  Result<std::vector<WindCell>> cells =
      stamp.there ? ReadWindStore(folders) : Result<std::vector<WindCell>>(Error{path, "missing"});
  store_ = cells ? std::make_shared<const WindStore>(std::move(cells.value()))
                 : std::make_shared<const WindStore>();
  path_ = path;
  stamp_ = stamp;
  ++revision_;
  return store_;
}

WindLookup LookupIn(std::shared_ptr<const WindStore> store) {
  return [store = std::move(store)](Position place, DayAndYear date, float hours) {
    return LookupIn(*store)(place, date, hours);
  };
}

std::string DaysText(double days) {
  constexpr double kMinutesOfDay = 1440.0;
  // Times of a store are single: a minute is the finest that they tell.
  const double minutes = std::round(days * kMinutesOfDay);
  double left = std::floor(minutes / kMinutesOfDay);
  if (!(left >= 0.0 && left <= 80000.0)) return "an unknown time";
  const auto hours = static_cast<float>((minutes - left * kMinutesOfDay) / 60.0);
  DayAndYear date{1, 2000};
  while (left >= DaysInYear(date.year)) {
    left -= DaysInYear(date.year);
    ++date.year;
  }
  MonthDate month;
  DayOfYearToDate(static_cast<std::int16_t>(left + 1.0), date.year, month);
  return HoursToClock(hours) + " " + std::to_string(month.day_of_month) + "/" +
         std::to_string(month.month) + "/" + std::to_string(date.year);
}

std::string ForecastText(const WindStore& store, DayAndYear date, float hours, double now) {
  if (store.last_time() == 0.0) return "no wind data, no forecast imported";
  if (const std::optional<double> time = store.TimeServing(date, hours)) {
    return "wind " + DaysText(*time);
  }
  const double asked = DaysFrom2000(date) + hours / 24.0;
  std::string text = "no wind data";
  if (asked > store.last_time()) {
    text += now > store.last_time()
                ? ", forecast ended " + SpanText(now - store.last_time()) + " ago"
                : ", forecast ends " + DaysText(store.last_time());
  } else if (asked < store.first_time()) {
    text += ", forecast begins " + DaysText(store.first_time());
  }
  return text;
}

}  // namespace skerrow
