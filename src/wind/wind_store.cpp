#include "wind/wind_store.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "core/files.h"
#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "wind/grib_winds.h"

namespace skerrow {
namespace {

// Metres a second in a knot, as the stores of this program have always had it.
constexpr double kMetresPerSecond = 0.5148;
constexpr double kTooLarge = 1e29;

// The wind messages of one time.
struct Frame {
  const GribRecord* u = nullptr;
  const GribRecord* v = nullptr;
};

// How near to the sea a level lies: the wind at a height above ground is wanted, the lowest first.
int LevelRank(const GribRecord& record) {
  constexpr int kHeightAboveGround = 105;
  constexpr int kSurface = 1;
  if (record.level_type == kHeightAboveGround) return record.level;
  return record.level_type == kSurface ? 40000 : 50000;
}

void Take(const GribRecord& record, const GribRecord*& place) {
  if (place == nullptr || LevelRank(record) < LevelRank(*place)) place = &record;
}

// Longitudes of a grid that runs across the meridian of Greenwich or the 180th.
double Normalised(double longitude) {
  if (longitude > 180) return longitude - 360;
  if (longitude < -180) return longitude + 360;
  return longitude;
}

// Whether the columns of a grid run to the east.
bool RunsEast(const GribGrid& grid) {
  if (grid.lo2 >= grid.lo1) return true;
  // The last longitude is the smaller one either because the columns run west, or because they
  // pass the end of the circle on their way east.
  const double eastward = static_cast<double>(grid.lo2) + 360 - grid.lo1;
  return std::abs(eastward - grid.di * (grid.ni - 1)) < 0.5 * grid.di;
}

// The wind at a point of a frame, without its time and place.
GribWind WindOf(const Frame& frame, std::size_t point) {
  const auto component = [point](const GribRecord* field) {
    const double value = field == nullptr ? kGribMissing : field->values[point];
    return value >= kTooLarge ? std::nullopt : std::optional<double>(value);
  };
  const std::optional<double> u = component(frame.u);
  const std::optional<double> v = component(frame.v);
  GribWind wind;
  wind.speed = kNoWind;
  wind.u = static_cast<float>(u.value_or(kNoComponent));
  wind.v = static_cast<float>(v.value_or(kNoComponent));
  if (!u || !v) return wind;
  wind.speed = static_cast<float>(std::sqrt(*u * *u + *v * *v) / kMetresPerSecond);
  wind.direction = static_cast<float>(WindDirection(*u, *v));
  if (wind.direction >= 360.0F) wind.direction = 0.0F;  // rounded up to the full circle
  return wind;
}

bool Usable(const WindCell& cell) {
  return cell.speed < kNoWind && std::isfinite(cell.time) && std::isfinite(cell.latitude) &&
         std::isfinite(cell.longitude) && std::isfinite(cell.speed);
}

// Miles that no place along a row can be nearer than, less the rounding of single precision.
double Least(double miles) { return miles * (1 - 1e-5) - 1e-3; }

}  // namespace

double WindDirection(double u, double v) {
  if (v == 0) return u > 0 ? 270.0 : u < 0 ? 90.0 : 0.0;
  double base = 0.0;
  if (v > 0) {
    base = 180.0;
  } else if (u > 0) {
    base = 360.0;
  }
  double direction = std::atan(u / v) * 180.0 / kPi + base;
  if (direction < 0) direction += 360;
  if (direction >= 360) direction -= 360;
  return direction;
}

std::vector<GribWind> MakeGribWinds(std::span<const GribRecord> records, Messages& messages) {
  const GribGrid* grid = nullptr;
  std::map<double, Frame> frames;
  std::size_t left_out = 0;
  for (const GribRecord& record : records) {
    if (record.parameter != kGribWindU && record.parameter != kGribWindV) continue;
    if (record.forecast_minutes == kUnhandledTime || !record.grid.of_degrees ||
        record.values.size() != record.grid.Points() ||
        (grid != nullptr && !(record.grid == *grid))) {
      ++left_out;
      continue;
    }
    grid = &record.grid;
    Frame& frame = frames[record.Time()];
    Take(record, record.parameter == kGribWindU ? frame.u : frame.v);
  }
  std::vector<GribWind> winds;
  if (left_out > 0) {
    messages.Show(std::to_string(left_out) +
                      " messages of the wind are left out: their grid is another one, has no "
                      "latitudes and longitudes, or their time is not known",
                  MessageIcon::kWarning);
  }
  if (grid == nullptr) return winds;
  const double dj = grid->la2 >= grid->la1 ? grid->dj : -static_cast<double>(grid->dj);
  const double di = RunsEast(*grid) ? grid->di : -static_cast<double>(grid->di);
  winds.reserve(frames.size() * grid->Points());
  std::int32_t number = 0;
  for (const auto& [time, frame] : frames) {
    std::size_t point = 0;
    ++number;
    for (int j = 0; j < grid->nj; ++j) {
      for (int i = 0; i < grid->ni; ++i) {
        GribWind wind = WindOf(frame, point++);
        wind.time = static_cast<float>(time);
        wind.latitude = static_cast<float>(grid->la1 + j * dj);
        wind.longitude = static_cast<float>(Normalised(grid->lo1 + i * di));
        wind.frame = number;
        winds.push_back(wind);
      }
    }
  }
  return winds;
}

std::vector<WindCell> MakeWindCells(std::span<const GribRecord> records, Messages& messages) {
  return WindCellsOf(MakeGribWinds(records, messages));
}

Status WriteWindStore(const Folders& folders, std::span<const WindCell> cells) {
  if (Status made = MakeFolder(folders.SettingsData()); !made) return made;
  return ReplaceFile(folders.WindDataFile(), EncodeRecords(cells, kWindCellFields));
}

Result<std::vector<WindCell>> ReadWindStore(const Folders& folders) {
  constexpr std::size_t kMaxStoreSize = std::size_t{1} << 31U;
  const Result<std::string> content = ReadFile(folders.WindDataFile(), kMaxStoreSize);
  if (!content) return content.error();
  std::vector<WindCell> cells(content->size() / kWindCellSize);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const std::size_t at = i * kWindCellSize;
    WindCell& cell = cells[i];
    cell.time = bytes::GetFloat(*content, at);
    cell.latitude = bytes::GetFloat(*content, at + 4);
    cell.longitude = bytes::GetFloat(*content, at + 8);
    cell.speed = bytes::GetFloat(*content, at + 12);
    cell.direction = bytes::GetFloat(*content, at + 16);
  }
  return cells;
}

int DaysFrom2000(DayAndYear date) {
  const double days =
      JulianDate(1, 1, date.year, 0, 0, 0) - JulianDate(1, 1, 2000, 0, 0, 0) + date.day - 1;
  return static_cast<int>(RoundToInteger(days));
}

WindBin WindBinOf(DayAndYear date, float hours) {
  constexpr double kBin = 0.125;
  constexpr double kLastUpper = 0.999999;
  constexpr int kLastBin = 7;
  const int day = DaysFrom2000(date);
  const int bin = std::clamp(static_cast<int>(WholePartDown(hours / 24.0 / kBin)), 0, kLastBin);
  return {day + bin * kBin, day + (bin == kLastBin ? kLastUpper : (bin + 1) * kBin)};
}

WindStore::WindStore(std::vector<WindCell> cells) : cells_(std::move(cells)) {
  order_.reserve(cells_.size());
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    if (Usable(cells_[i])) order_.push_back(static_cast<std::uint32_t>(i));
  }
  std::sort(order_.begin(), order_.end(), [this](std::uint32_t a, std::uint32_t b) {
    const WindCell& x = cells_[a];
    const WindCell& y = cells_[b];
    if (x.time != y.time) return x.time < y.time;
    if (x.latitude != y.latitude) return x.latitude < y.latitude;
    if (x.longitude != y.longitude) return x.longitude < y.longitude;
    return a < b;
  });
  for (std::size_t begin = 0; begin < order_.size();) {
    const WindCell& first = cells_[order_[begin]];
    std::size_t end = begin;
    while (end < order_.size() && cells_[order_[end]].time == first.time &&
           cells_[order_[end]].latitude == first.latitude) {
      ++end;
    }
    rows_[first.time].push_back({first.latitude, begin, end});
    begin = end;
  }
  // The placeholder stands for no time.
  for (const auto& [time, rows] : rows_) {
    if (time == 0.0F) continue;
    if (first_ == 0.0) first_ = time;
    last_ = time;
  }
}

void WindStore::Search(const Rows& rows, Position place, WindFound& best) const {
  const auto try_record = [&](std::uint32_t record) {
    const float range = RangeOnly(place, cells_[record].At());
    if (range < best.range || (range == best.range && record < best.record)) {
      best.range = range;
      best.record = record;
    }
  };
  // From the row at the place's latitude to the north and to the south, until no row can be nearer.
  const auto search_row = [&](const Row& row) {
    if (Least(60.0 * std::abs(static_cast<double>(row.latitude) - place.latitude)) > best.range) {
      return false;
    }
    const double narrow = std::max(
        0.0, std::min(std::cos(row.latitude * kPi / 180), std::cos(place.latitude * kPi / 180)));
    const auto can_be_near = [&](std::uint32_t record) {
      const double degrees =
          std::abs(static_cast<double>(cells_[record].longitude) - place.longitude);
      return Least(60.0 * narrow * degrees) <= best.range;
    };
    const auto begin = order_.begin() + static_cast<std::ptrdiff_t>(row.begin);
    const auto end = order_.begin() + static_cast<std::ptrdiff_t>(row.end);
    const auto middle = std::lower_bound(begin, end, place.longitude,
                                         [this](std::uint32_t record, float longitude) {
                                           return cells_[record].longitude < longitude;
                                         });
    for (auto at = middle; at != end && can_be_near(*at); ++at) try_record(*at);
    for (auto at = middle; at != begin && can_be_near(*(at - 1)); --at) try_record(*(at - 1));
    return true;
  };
  const auto middle =
      std::lower_bound(rows.begin(), rows.end(), place.latitude,
                       [](const Row& row, float latitude) { return row.latitude < latitude; });
  for (auto row = middle; row != rows.end() && search_row(*row); ++row) {
  }
  for (auto row = middle; row != rows.begin() && search_row(*(row - 1)); --row) {
  }
}

std::optional<WindFound> WindStore::Find(Position place, DayAndYear date, float hours) const {
  const WindBin bin = WindBinOf(date, hours);
  WindFound best;
  best.range = kWindLimit;
  for (const auto& [time, rows] : rows_) {
    if (time >= bin.from && time < bin.to) Search(rows, place, best);
  }
  if (best.range == kWindLimit) return std::nullopt;
  best.speed = cells_[best.record].speed;
  best.direction = cells_[best.record].direction;
  best.near = best.range < kWindReach;
  return best;
}

std::optional<double> WindStore::TimeServing(DayAndYear date, float hours) const {
  const WindBin bin = WindBinOf(date, hours);
  for (const auto& [time, rows] : rows_) {
    if (time >= bin.from && time < bin.to) return time;
  }
  return std::nullopt;
}

std::vector<std::size_t> WindStore::Serving(DayAndYear date, float hours) const {
  const WindBin bin = WindBinOf(date, hours);
  std::vector<std::size_t> serving;
  for (const auto& [time, rows] : rows_) {
    if (time < bin.from || time >= bin.to) continue;
    for (const Row& row : rows) {
      serving.insert(serving.end(), order_.begin() + static_cast<std::ptrdiff_t>(row.begin),
                     order_.begin() + static_cast<std::ptrdiff_t>(row.end));
    }
  }
  std::sort(serving.begin(), serving.end());
  return serving;
}

WindLookup LookupIn(const WindStore& store) {
  return [&store](Position place, DayAndYear date, float hours) -> std::optional<Wind> {
    const std::optional<WindFound> found = store.Find(place, date, hours);
    if (!found || !found->near) return std::nullopt;
    return Wind{.speed_kn = found->speed, .from_deg = found->direction};
  };
}

}  // namespace skerrow
