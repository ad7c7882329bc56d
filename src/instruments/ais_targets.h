#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/clock.h"
#include "core/plane_sailing.h"
#include "core/position.h"
#include "instruments/ais_decoder.h"

// The vessels heard lately, what the boat's way and theirs come to, and the texts that tell of
// them. Times are decimal hours of the computer's clock; they begin anew at midnight, so that a
// vessel heard last before midnight stays until the clock has passed that time again.
namespace skerrow {

// Decimal hours of a clock reading, seconds included, as the targets keep them.
float AisHours(const ClockReading& reading);

// A position with its time.
struct TimedPosition {
  float latitude = 0.0F;
  float longitude = 0.0F;
  float time = 0.0F;  // hours
};

inline constexpr std::size_t kAisTrackLength = 6;

// Codes of a closest approach that is none; every negative one reads "No Closure".
inline constexpr float kNotClosing = -12.0F;
inline constexpr float kNoCpa = -1.0F;

// One tracked vessel.
struct AisTarget {
  std::array<TimedPosition, kAisTrackLength> history{};  // newest first, one in 5 minutes
  float latitude = 0.0F;
  float longitude = 0.0F;
  float cpa = 0.0F;   // closest point of approach, nautical miles; negative values are codes
  float tcpa = 0.0F;  // hours until then
  std::int32_t mmsi = 0;
  std::string callsign = " ";
  std::string vessel_name = " ";
  std::string destination = "Not Received";
  std::string dimensions = "Not Received";  // length, beam and draught
  std::string ship_type = "0";
  std::string eta;
  float speed_over_ground = 0.0F;   // knots
  float last_heard = 0.0F;          // hours
  float course_over_ground = 0.0F;  // degrees true
  std::int16_t nav_status = 0;
  std::int16_t message_type = 0;  // of the last position report
  bool alive = true;
  bool show_details = false;
  bool show_predicted = false;
  bool show_heading_vector = false;
  bool show_history = false;
  std::array<TimedPosition, kAisTrackLength> predicted{};  // 5, 10 .. 30 minutes ahead

  // What the published record does not hold. A speed or course that was never available reads as 0
  // and moves nothing.
  bool speed_known = true;
  bool course_known = true;
  bool cpa_known = false;  // ComputeCpa has run

  Position At() const { return {latitude, longitude}; }
  // Knots to reckon with: those of a vessel whose course is not known lead nowhere.
  float Way() const { return speed_known && course_known ? speed_over_ground : 0.0F; }
};

// How new targets are shown.
struct AisShown {
  bool details = false;
  bool history = false;
  bool predicted = false;
  bool heading_vector = false;
};

// The table of targets, in the order of their first reports. An index by MMSI and the time of the
// oldest report make a report as cheap among thousands as among few; results and order are those
// of a walk and a rebuild for each.
class AisTargets {
 public:
  // A target more is not taken: what a 16-bit index counts.
  static constexpr std::size_t kMost = 32767;
  // Vessels without a position whose texts are kept, by the standard.
  static constexpr std::size_t kMostHeld = 2000;

  // Adds or refreshes a target, then drops those not heard for 0.3333 hours. A report without a
  // position (by the standard) makes no target, and of one that is there keeps the place.
  void UpdateAisPosition(const AisPositionReport& report, const AisShown& shown, float now);

  // Fills the texts of a known target. Those of one that is not known are lost, unless
  // `hold_unknown` keeps them for its first position.
  void UpdateAisStatic(const AisStaticReport& report, bool hold_unknown, float now);
  void UpdateAisClassBStatic(const AisClassBStaticReport& report, bool hold_unknown, float now);

  // All that a sentence told, in order.
  void Update(const AisMessage& message, const AisDecoderOptions& options, const AisShown& shown,
              float now);

  bool IsKnownTarget(std::int32_t mmsi) const { return index_.contains(mmsi); }
  // Null when there is none.
  AisTarget* Find(std::int32_t mmsi);
  const AisTarget* Find(std::int32_t mmsi) const;

  // The MMSI of an entry must stay as it is.
  std::span<AisTarget> All() { return targets_; }
  std::span<const AisTarget> All() const { return targets_; }
  void Clear();

 private:
  AisTarget* TextsOf(std::int32_t mmsi, bool hold_unknown, float now);
  void DropSilent(float now);

  std::vector<AisTarget> targets_;
  std::unordered_map<std::int32_t, std::size_t> index_;
  std::unordered_map<std::int32_t, AisTarget> held_;
  // No target was heard earlier; the earliest itself may be gone.
  float earliest_ = 0.0F;
};

// Where a vessel is `minutes` ahead.
Position PredictAisPosition(Position from, float minutes, float speed, float course);

// A place and the way over the ground, knots and degrees true.
struct Motion {
  Position position;
  float speed = 0.0F;
  float course = 0.0F;
};

// The closest approach of a target to the boat. `cpa` in nautical miles, kNotClosing (with a
// `tcpa` of -1) when they are not closing; `tcpa` in hours. Where the square of the distance comes
// out negative by rounding, `cpa` is kNoCpa and `tcpa` stays. From the relative velocity v and
// place p: the time is -p.v / v.v.
void ComputeCpa(const Motion& boat, const Motion& target, float& cpa, float& tcpa);

// The same for a target of the table, and for all.
void ComputeCpa(const Motion& boat, AisTarget& target);
void ComputeCpa(const Motion& boat, AisTargets& targets);

// Whether a target comes under the alarm range: of class A and B only, and only while the GPS is
// on. A closest approach that was not worked out yet raises none.
bool InCpaAlarm(const AisTarget& target, bool gps_enabled, float alarm_range);

// Turns the data lines on of all targets in alarm; they stay on until the user turns them off.
void ShowDetailsInAlarm(AisTargets& targets, bool gps_enabled, float alarm_range);

// The data lines of a target by their numbers, 1 to 8, from index 0: closest approach, destination,
// dimensions, heading, MMSI, name, status and type.
inline constexpr std::size_t kAisDataLines = 8;
std::array<std::string, kAisDataLines> AisDataLines(const AisTarget& target, bool gps_enabled,
                                                    float now);

// The lines to be drawn beside a target, top down, by the numbers in the seven places; places with
// 0 or a number that is none leave no gap.
std::vector<std::string> ChosenAisLines(const AisTarget& target,
                                        std::span<const std::int16_t> places, bool gps_enabled,
                                        float now);

// The rows of the details of a target: "label", tab, " : ", tab, value.
std::vector<std::string> AisDetailRows(const AisTarget& target, float now);

// A row of the list of targets.
struct AisSummaryRow {
  std::string index;         // from 1
  std::string message_type;  // of its last report
  std::string mmsi;          // nine digits
  std::string name;          // 20 characters or more
  std::string range;         // "12.3 nm @045°T"; empty without a boat

  // Under kAisSummaryHeading.
  std::string Text() const;
};
// A caption: its "&&" shows as "&".
inline constexpr std::string_view kAisSummaryHeading =
    "Index       Message Type     MMSI                Vessel Name               Range && Bearing";
std::vector<AisSummaryRow> AisSummaryRows(std::span<const AisTarget> targets,
                                          std::optional<Position> boat);

// The target nearest to a place by plane sailing, the first of equals.
std::optional<Nearest> NearestAisTarget(std::span<const AisTarget> targets, Position place);

}  // namespace skerrow
