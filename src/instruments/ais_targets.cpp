#include "instruments/ais_targets.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/calendar.h"
#include "core/numbers.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr double kHistoryInterval = 5.0 / 60.0;
constexpr double kPredictionInterval = 0.5 / 60.0;
constexpr double kMinutesApart = 5.0;
constexpr double kExpiryAge = 0.3333;
// The value of pi that the closest approach is reckoned with.
constexpr double kCpaPi = 3.141592654;

bool Silent(const AisTarget& target, float now) { return now > target.last_heard + kExpiryAge; }

void Predict(AisTarget& target, Position from, float now) {
  for (std::size_t k = 0; k < target.predicted.size(); ++k) {
    const double minutes = static_cast<double>(k + 1) * kMinutesApart;
    const Position ahead = PredictAisPosition(from, static_cast<float>(minutes), target.Way(),
                                              target.course_over_ground);
    double time = now + minutes / 60.0;
    if (time >= 24.0) time -= 24.0;
    target.predicted[k] = {ahead.latitude, ahead.longitude, static_cast<float>(time)};
  }
}

void TakeMotion(AisTarget& target, const AisPositionReport& report) {
  target.nav_status = report.nav_status;
  target.message_type = report.message_type;
  if (report.speed) target.speed_over_ground = *report.speed;
  if (report.course) target.course_over_ground = *report.course;
  target.speed_known = target.speed_known || report.speed;
  target.course_known = target.course_known || report.course;
}

std::string WithoutPadding(const std::string& text) { return ReplaceAll(text, "@", ""); }

std::string ClosestApproachText(const AisTarget& target, float now) {
  if (target.cpa < 0.0F) return "No Closure";
  const double hours = std::fmod(static_cast<double>(now) + target.tcpa, 24.0);
  return FormatFixed(target.cpa, 1, 2) + "nm @ " + HoursToClock(static_cast<float>(hours));
}

std::string PlaceText(float latitude, float longitude) {
  return LatToText(latitude) + ", " + LongToText(longitude);
}

std::string PaddedTo(std::string text, std::size_t size) {
  if (text.size() < size) text.resize(size, ' ');
  return text;
}

}  // namespace

float AisHours(const ClockReading& reading) {
  return static_cast<float>(reading.hour + reading.minute / 60.0 + reading.second / 3600.0);
}

AisTarget* AisTargets::Find(std::int32_t mmsi) {
  const auto found = index_.find(mmsi);
  return found == index_.end() ? nullptr : &targets_[found->second];
}

const AisTarget* AisTargets::Find(std::int32_t mmsi) const {
  const auto found = index_.find(mmsi);
  return found == index_.end() ? nullptr : &targets_[found->second];
}

void AisTargets::UpdateAisPosition(const AisPositionReport& report, const AisShown& shown,
                                   float now) {
  AisTarget* target = Find(report.mmsi);
  if (target == nullptr && report.position && targets_.size() < kMost) {
    AisTarget fresh;
    if (const auto held = held_.find(report.mmsi); held != held_.end()) {
      fresh = std::move(held->second);
      held_.erase(held);
    }
    fresh.mmsi = report.mmsi;
    fresh.show_details = shown.details;
    fresh.show_history = shown.history;
    fresh.show_predicted = shown.predicted;
    fresh.show_heading_vector = shown.heading_vector;
    fresh.speed_known = fresh.course_known = false;
    fresh.history.fill({report.position->latitude, report.position->longitude, now});
    TakeMotion(fresh, report);
    Predict(fresh, *report.position, now);
    if (targets_.empty()) earliest_ = now;
    index_.emplace(report.mmsi, targets_.size());
    target = &targets_.emplace_back(std::move(fresh));
  }
  if (target != nullptr) {
    TakeMotion(*target, report);
    if (report.position) {
      TimedPosition& newest = target->history.front();
      if (now > newest.time + kHistoryInterval) {
        std::move_backward(target->history.begin(), target->history.end() - 1,
                           target->history.end());
        newest = {report.position->latitude, report.position->longitude, now};
      }
      if (now > newest.time + kPredictionInterval) Predict(*target, *report.position, now);
      target->latitude = report.position->latitude;
      target->longitude = report.position->longitude;
    }
    target->last_heard = now;
    earliest_ = std::min(earliest_, now);
  }
  DropSilent(now);
}

void AisTargets::DropSilent(float now) {
  if (!(now > earliest_ + kExpiryAge)) return;
  for (AisTarget& target : targets_) {
    if (Silent(target, now)) target.alive = false;
  }
  std::erase_if(targets_, [](const AisTarget& target) { return !target.alive; });
  index_.clear();
  earliest_ = std::numeric_limits<float>::max();
  for (std::size_t i = 0; i < targets_.size(); ++i) {
    index_[targets_[i].mmsi] = i;
    earliest_ = std::min(earliest_, targets_[i].last_heard);
  }
}

AisTarget* AisTargets::TextsOf(std::int32_t mmsi, bool hold_unknown, float now) {
  if (AisTarget* known = Find(mmsi)) return known;
  if (!hold_unknown) return nullptr;
  if (held_.size() >= kMostHeld && !held_.contains(mmsi)) {
    // Those of before midnight go too.
    std::erase_if(held_, [now](const auto& held) {
      return Silent(held.second, now) || held.second.last_heard > now;
    });
    if (held_.size() >= kMostHeld) return nullptr;
  }
  AisTarget& held = held_[mmsi];
  held.last_heard = now;
  return &held;
}

void AisTargets::UpdateAisStatic(const AisStaticReport& report, bool hold_unknown, float now) {
  AisTarget* target = TextsOf(report.mmsi, hold_unknown, now);
  if (target == nullptr) return;
  target->vessel_name = Trim(WithoutPadding(report.name));
  target->dimensions = report.dimensions;
  target->ship_type = report.ship_type;
  if (!report.has_voyage) return;
  target->callsign = WithoutPadding(report.callsign);
  target->destination = WithoutPadding(report.destination);
  target->eta = report.eta;
}

void AisTargets::UpdateAisClassBStatic(const AisClassBStaticReport& report, bool hold_unknown,
                                       float now) {
  AisTarget* target = TextsOf(report.mmsi, hold_unknown, now);
  if (target == nullptr) return;
  const auto take = [](std::string& field, std::string text) {
    if (!text.empty()) field = std::move(text);
  };
  if (report.part == 0) {
    take(target->vessel_name, Trim(WithoutPadding(report.name)));
  } else if (report.part == 1) {
    take(target->callsign, WithoutPadding(report.callsign));
    take(target->dimensions, report.dimensions);
    take(target->ship_type, report.ship_type);
  }
}

void AisTargets::Update(const AisMessage& message, const AisDecoderOptions& options,
                        const AisShown& shown, float now) {
  if (message.position) UpdateAisPosition(*message.position, shown, now);
  if (message.static_data) UpdateAisStatic(*message.static_data, options.standard, now);
  if (message.class_b_static) UpdateAisClassBStatic(*message.class_b_static, options.standard, now);
}

void AisTargets::Clear() {
  targets_.clear();
  index_.clear();
  held_.clear();
}

Position PredictAisPosition(Position from, float minutes, float speed, float course) {
  const auto distance = static_cast<float>(minutes * static_cast<double>(speed) / 60.0);
  const EastNorth way = Resolve(course, distance);
  const auto latitude = static_cast<float>(from.latitude + way.north / 60.0);
  const auto mean = static_cast<float>((static_cast<double>(from.latitude) + latitude) / 2.0);
  return {latitude,
          static_cast<float>(from.longitude + way.east / std::cos(mean * kPi / 180.0) / 60.0)};
}

void ComputeCpa(const Motion& boat, const Motion& target, float& cpa, float& tcpa) {
  const auto radians = [](float degrees) { return degrees * kCpaPi / 180.0; };
  const RangeAndBearing way = RangeBearing(boat.position, target.position);
  const double north = way.range * std::cos(radians(way.bearing));
  const double east = way.range * std::sin(radians(way.bearing));
  const double north_rate =
      target.speed * std::cos(radians(target.course)) - boat.speed * std::cos(radians(boat.course));
  const double east_rate =
      target.speed * std::sin(radians(target.course)) - boat.speed * std::sin(radians(boat.course));
  const double closing = east * east_rate + north * north_rate;
  if (!(closing < 0.0) || !std::isfinite(closing)) {
    cpa = kNotClosing;
    tcpa = -1.0F;
    return;
  }
  const double rate_squared = east_rate * east_rate + north_rate * north_rate;
  const double double_closing = 2.0 * closing;
  const double squared = static_cast<double>(way.range) * way.range -
                         double_closing * double_closing / (4.0 * rate_squared);
  if (!(squared >= 0.0)) {
    cpa = kNoCpa;
    return;
  }
  cpa = static_cast<float>(std::sqrt(squared));
  tcpa = static_cast<float>(-double_closing / (2.0 * rate_squared));
}

void ComputeCpa(const Motion& boat, AisTarget& target) {
  ComputeCpa(boat, {target.At(), target.Way(), target.course_over_ground}, target.cpa, target.tcpa);
  target.cpa_known = true;
}

void ComputeCpa(const Motion& boat, AisTargets& targets) {
  for (AisTarget& target : targets.All()) ComputeCpa(boat, target);
}

bool InCpaAlarm(const AisTarget& target, bool gps_enabled, float alarm_range) {
  constexpr std::int16_t kSearchAndRescue = 9;
  return gps_enabled && target.cpa_known && target.message_type != kSearchAndRescue &&
         target.cpa >= 0.0F && target.cpa <= alarm_range;
}

void ShowDetailsInAlarm(AisTargets& targets, bool gps_enabled, float alarm_range) {
  for (AisTarget& target : targets.All()) {
    if (InCpaAlarm(target, gps_enabled, alarm_range)) target.show_details = true;
  }
}

std::array<std::string, kAisDataLines> AisDataLines(const AisTarget& target, bool gps_enabled,
                                                    float now) {
  const std::string name = Trim(target.vessel_name);
  const std::string callsign = Trim(target.callsign);
  return {gps_enabled && target.cpa_known ? "CPA    " + ClosestApproachText(target, now) : " ",
          "Dest : " + Trim(target.destination),
          "Dims : " + Trim(target.dimensions),
          "Heading " +
              (target.course_known ? FormatFixed(target.course_over_ground, 3, 0) : "---") + "°T@" +
              (target.speed_known ? FormatFixed(target.speed_over_ground, 1, 1) : "--") + "kn",
          "MMSI : " + std::to_string(target.mmsi),
          name.empty() ? " " : name + (callsign.empty() ? "" : "(" + callsign + ")"),
          "Nav Status : " + NavStatusText(target.nav_status),
          "Ship Type : " + target.ship_type};
}

std::vector<std::string> ChosenAisLines(const AisTarget& target,
                                        std::span<const std::int16_t> places, bool gps_enabled,
                                        float now) {
  constexpr std::size_t kPlaces = 7;
  const auto lines = AisDataLines(target, gps_enabled, now);
  std::vector<std::string> chosen;
  for (const std::int16_t number : places.first(std::min(places.size(), kPlaces))) {
    if (number >= 1 && number <= static_cast<int>(kAisDataLines)) {
      chosen.push_back(lines[static_cast<std::size_t>(number - 1)]);
    }
  }
  return chosen;
}

std::vector<std::string> AisDetailRows(const AisTarget& target, float now) {
  std::vector<std::string> rows;
  const auto add = [&](const std::string& label, const std::string& value) {
    rows.push_back(label + "\t : \t" + value);
  };
  add("Name", Trim(target.vessel_name));
  const bool aircraft = target.callsign.find("Altitude") != std::string::npos;
  add(aircraft ? "Altitude" : "Callsign", Trim(target.callsign));
  add("MMSI", std::to_string(target.mmsi));
  add("Status", NavStatusText(target.nav_status));
  add("Destination", Trim(target.destination));
  add("Dimensions", Trim(target.dimensions));
  add("Vessel Type ", target.ship_type);
  add("Position   ", PlaceText(target.latitude, target.longitude));
  add("Heading   ", (target.speed_known ? ShortText(target.speed_over_ground) : "--") + "kn @ " +
                        (target.course_known ? ShortText(target.course_over_ground) : "---") +
                        "°T");
  add("CPA", target.cpa_known ? ClosestApproachText(target, now) : "");
  const auto add_track = [&](const std::string& label, std::span<const TimedPosition> track) {
    add(label, "");
    for (const TimedPosition& point : track) {
      add(HoursToClock(point.time), PlaceText(point.latitude, point.longitude));
    }
  };
  add_track("Historical Data", target.history);
  add_track("Predicted Position", target.predicted);
  return rows;
}

std::string AisSummaryRow::Text() const {
  // The columns of the heading.
  return PaddedTo(index, 12) + PaddedTo(message_type, 17) + PaddedTo(mmsi, 20) +
         PaddedTo(name, 26) + range;
}

std::vector<AisSummaryRow> AisSummaryRows(std::span<const AisTarget> targets,
                                          std::optional<Position> boat) {
  constexpr std::size_t kNameWidth = 20;
  std::vector<AisSummaryRow> rows;
  rows.reserve(targets.size());
  for (const AisTarget& target : targets) {
    AisSummaryRow& row = rows.emplace_back();
    row.index = std::to_string(rows.size());
    row.message_type = std::to_string(target.message_type);
    row.mmsi = FormatFixed(target.mmsi, 9, 0);
    const std::string name = Trim(target.vessel_name);
    row.name = PaddedTo(name.empty() ? "* name not received  " : name, kNameWidth);
    if (boat) {
      const RangeAndBearing way = RangeBearing(*boat, target.At());
      row.range = FormatFixed(way.range, 1, 1) + " nm @" + FormatFixed(way.bearing, 3, 0) + "°T";
    }
  }
  return rows;
}

std::optional<Nearest> NearestAisTarget(std::span<const AisTarget> targets, Position place) {
  return NearestOf(targets.size(), place, std::numeric_limits<float>::infinity(),
                   [&](std::size_t i) { return targets[i].At(); });
}

}  // namespace skerrow
