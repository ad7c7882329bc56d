#include "reference/plain_passage.h"

#include <algorithm>
#include <cmath>

#include "core/calendar.h"
#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "tides/heights.h"

namespace skerrow::reference {

PlainTides::PlainTides(std::vector<Diamond> diamonds, std::vector<std::int16_t> ref_ports,
                       std::vector<Port> all_ref_ports, bool summer_time)
    : diamonds_(std::move(diamonds)),
      ref_ports_(std::move(ref_ports)),
      all_ref_ports_(std::move(all_ref_ports)),
      summer_time_(summer_time) {}

void PlainTides::Build(int day, int year) {
  loaded_day_ = day;
  loaded_year_ = year;
  heights_.assign(ref_ports_.size(), {});
  hours_.assign(ref_ports_.size(), {});
  for (std::size_t p = 0; p < ref_ports_.size(); ++p) {
    const Port& port = all_ref_ports_[static_cast<std::size_t>(ref_ports_[p] - 1)];
    const int first[] = {1, 145, 289};
    const int count[] = {144, 144, 145};
    for (int d = 0; d < 3; ++d) {
      const std::vector<float> heights = PredictPortDay(port, year, day - 1 + d, summer_time_);
      for (int n = 0; n < count[d]; ++n) {
        heights_[p][static_cast<std::size_t>(first[d] + n)] = heights[static_cast<std::size_t>(n)];
        hours_[p][static_cast<std::size_t>(first[d] + n)] = static_cast<float>(n / 6.0);
      }
    }
  }
}

PlainPortState PlainTides::LocateHighWater(std::size_t port, float hours) const {
  const std::array<float, 434>& h = heights_[port];
  PlainPortState state;
  const double whole = std::trunc(hours);
  const int t =
      static_cast<int>(whole) * 60 + static_cast<int>(RoundToInteger((hours - whole) * 60.0));
  const int s = t / 10 + 145;
  int high_water = 0;
  const auto at = [&](int i) { return h[static_cast<std::size_t>(i)]; };
  for (int i = s; i <= s + 36; ++i) {
    if (at(i) < at(i + 1) && at(i + 2) < at(i + 1)) high_water = i + 1;
  }
  if (high_water == 0) {
    for (int i = s + 2; i >= s - 42; --i) {
      if (at(i) < at(i - 1) && at(i - 2) < at(i - 1)) {
        high_water = i - 1;
        break;
      }
    }
  }
  float highest = at(s - 39);
  float lowest = highest;
  for (int i = s - 39; i <= s + 39; ++i) {
    highest = std::max(highest, at(i));
    lowest = std::min(lowest, at(i));
  }
  state.days_range = highest - lowest;
  state.hw_time = HoursToClock(hours_[port][static_cast<std::size_t>(high_water)]);
  const int w = std::stoi(state.hw_time.substr(0, 2)) * 60 + std::stoi(state.hw_time.substr(3));
  bool after = false;
  int m = 0;
  if (std::abs(w - t) > 420) {
    after = t < w;
    m = after ? t + 1440 - w : w + 1440 - t;
  } else {
    after = w - t < 1;
    m = std::abs(w - t);
  }
  struct Row {
    int up_to, slot, base;
  };
  static constexpr Row kBefore[] = {{30, 0, -30},   {90, -1, 30},   {150, -2, 90}, {210, -3, 150},
                                    {270, -4, 210}, {330, -5, 270}, {390, -6, 330}};
  static constexpr Row kAfter[] = {{30, 0, 30},   {90, 1, 90},   {150, 2, 150}, {210, 3, 210},
                                   {270, 4, 270}, {330, 5, 330}, {390, 6, 390}};
  state.dep_slot = after ? 6 : -6;
  state.mins_left = 59;
  for (const Row& row : after ? kAfter : kBefore) {
    if (m > row.up_to) continue;
    state.dep_slot = row.slot;
    state.mins_left = after ? row.base - m : m - row.base;
    break;
  }
  if (state.mins_left == 60) {
    --state.dep_slot;
    state.mins_left = 0;
  }
  for (int i = 143; i <= 286 && state.no_tides < 15; ++i) {
    const bool low = at(i) > at(i + 1) && at(i + 1) < at(i + 2);
    const bool high = at(i) < at(i + 1) && at(i + 2) < at(i + 1);
    if (!low && !high) continue;
    ++state.no_tides;
    state.tides[static_cast<std::size_t>(state.no_tides)] = {
        HoursToClock(hours_[port][static_cast<std::size_t>(i + 1)]),
        FormatFixed(
            static_cast<double>(RoundToInteger(static_cast<double>(at(i + 1)) * 10.0)) / 10.0, 1,
            1)};
  }
  return state;
}

void PlainTides::Refresh(float hours) {
  states_.resize(ref_ports_.size());
  for (std::size_t p = 0; p < ref_ports_.size(); ++p) states_[p] = LocateHighWater(p, hours);
}

void PlainTides::CalculateTidalStreams(float latitude, float longitude, float hours, int day,
                                       int year, float& rate, float& direction, int& slot,
                                       std::string& label) {
  if (diamonds_.empty()) return;
  if (day != loaded_day_ || year != loaded_year_) Build(day, year);
  Refresh(hours);
  float best = 9999.0F;
  const Diamond* nearest = nullptr;
  for (const Diamond& diamond : diamonds_) {
    const float range =
        RangeBearing(latitude, longitude, diamond.latitude, diamond.longitude).range;
    if (range < best) {
      best = range;
      nearest = &diamond;
    }
  }
  if (nearest == nullptr || best > 30.0F) {
    rate = 0.0F;
    direction = 0.0F;
    slot = 0;
    label = "NONE";
    return;
  }
  const Diamond& d = *nearest;
  const auto port = std::find(ref_ports_.begin(), ref_ports_.end(), RoundToInt16(d.ref_port));
  const PlainPortState& state = states_[static_cast<std::size_t>(port - ref_ports_.begin())];
  const auto c = static_cast<std::size_t>(state.dep_slot + 7);
  const std::size_t e = c + 1 > 13 ? 1 : c + 1;
  double r = state.days_range;
  if (r < d.np_range) r = d.np_range;
  if (r > d.sp_range) r = d.sp_range;
  const double q = (r - d.np_range) / (static_cast<double>(d.sp_range) - d.np_range);
  const double rate_c =
      d.neap_rate[c] + q * (static_cast<double>(d.spring_rate[c]) - d.neap_rate[c]);
  const double rate_e =
      d.neap_rate[e] + q * (static_cast<double>(d.spring_rate[e]) - d.neap_rate[e]);
  const double per_minute = (rate_c - rate_e) / 60.0;
  rate = static_cast<float>(rate_c - (60 - state.mins_left) * per_minute);
  direction = d.direction[state.mins_left >= 30 ? c : e];
  const auto slack = [&](std::size_t i) {
    return d.direction[i] + d.spring_rate[i] + d.neap_rate[i] == 0.0F;
  };
  if (slack(e)) direction = d.direction[c];
  if (slack(c)) direction = d.direction[e];
  slot = state.dep_slot;
  label = DiamondLabel(d);
}

namespace {

struct PassResult {
  float heading = 0.0F, closest = 0.0F, distance = 0.0F, time = 0.0F;
  int best = 0, steps = 0;
};

PassResult PlainLegPass(PlainTides& tides, const LegRequest& leg, float dt, float heading,
                        LegSolution& out) {
  out.streams.clear();
  out.track.assign(1, {leg.start, leg.hours, leg.date});
  out.drift.assign(1, leg.start);
  std::vector<float> range_to_dest(kMaxSteps + 1, 0.0F);
  std::vector<float> track_run(kMaxSteps + 1, 0.0F);
  const RangeAndBearing direct = RangeBearing(leg.start, leg.destination);
  const EastNorth boat = Resolve(heading, leg.speed * dt);
  Position position = leg.start;
  float hours = leg.hours;
  int day = leg.date.day;
  int year = leg.date.year;
  float rate = 0.0F;
  float direction = 0.0F;
  int slot = 0;
  std::string label;
  float out_range = 0.0F;
  std::size_t i = 1;
  while (2.0 * direct.range > out_range && i <= static_cast<std::size_t>(kMaxSteps)) {
    tides.CalculateTidalStreams(position.latitude, position.longitude, hours, day, year, rate,
                                direction, slot, label);
    out.streams.push_back({rate, direction, hours, label});
    const EastNorth set = Resolve(direction, rate * dt);
    out.drift.push_back(MoveByMiles(out.drift.back(), set));
    const Position next = MoveByMiles(position, {boat.east + set.east, boat.north + set.north});
    out.track.push_back(
        {next, hours, {static_cast<std::int16_t>(day), static_cast<std::int16_t>(year)}});
    range_to_dest[i - 1] = RangeBearing(position, leg.destination).range;
    track_run[i] = track_run[i - 1] + RangeBearing(position, next).range;
    out_range = RangeBearing(leg.start, next).range;
    position = next;
    hours += dt;
    if (hours >= 24.0F) {
      hours -= 24.0F;
      ++day;
      const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
      if (leap && day > 366) {
        day -= 366;
        ++year;
      } else if (!leap && day > 365) {
        day -= 365;
        ++year;
      }
    }
    ++i;
  }
  PassResult pass;
  pass.steps = static_cast<int>(i) - 1;
  pass.closest = 9999.0F;
  for (std::size_t k = 1; k < i - 1; ++k) {
    if (range_to_dest[k] < pass.closest) {
      pass.closest = range_to_dest[k];
      pass.best = static_cast<int>(k);
    }
  }
  const auto best = static_cast<std::size_t>(pass.best);
  pass.distance = track_run[best];
  pass.heading = RangeBearing(out.drift[best], leg.destination).bearing;
  const float miss = RangeBearing(leg.destination, out.track[best].position).range;
  float angle =
      std::fabs(direct.bearing - RangeBearing(leg.start, out.track[best].position).bearing);
  if (angle >= 360.0F) angle -= 360.0F;
  pass.time = static_cast<float>(pass.best * static_cast<double>(dt) +
                                 std::fabs(Resolve(angle, miss).east) / leg.speed);
  out.track.resize(best + 1);
  if (tides.loaded_day() != leg.date.day || tides.loaded_year() != leg.date.year) {
    tides.Build(leg.date.day, leg.date.year);
  }
  tides.Refresh(leg.hours);
  return pass;
}

}  // namespace

LegSolution PlainCourseToSteer(PlainTides& tides, const LegRequest& leg,
                               const LegSettings& settings) {
  LegSolution out;
  const RangeAndBearing direct = RangeBearing(leg.start, leg.destination);
  out.result.speed_over_ground = leg.speed;
  if (direct.range == 0.0F) {
    out.achieved = true;
    out.no_passes = true;
    return out;
  }
  auto dt = static_cast<float>(settings.calc_interval_minutes / 60.0);
  if (direct.range / static_cast<double>(leg.speed) < dt) dt = static_cast<float>(dt / 10.0);
  float heading = direct.bearing;
  PassResult pass;
  for (int i = 0; i < 8; ++i) {
    pass = PlainLegPass(tides, leg, dt, heading, out);
    heading = pass.heading;
  }
  const float run =
      RangeBearing(leg.start, out.track[static_cast<std::size_t>(pass.best)].position).range;
  out.result.course_to_steer = heading;
  out.result.passage_time =
      static_cast<float>((static_cast<double>(direct.range) - run) / leg.speed + pass.time);
  out.result.track_distance = pass.distance;
  out.result.closest_approach = pass.closest;
  out.result.steps = static_cast<std::int16_t>(pass.best);
  out.result.speed_over_ground =
      static_cast<float>(static_cast<double>(direct.range) / out.result.passage_time);
  out.achieved = pass.closest <= settings.error_circle && pass.steps < kMaxSteps;
  return out;
}

}  // namespace skerrow::reference
