#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "core/calendar.h"
#include "core/config.h"
#include "core/position.h"
#include "tides/streams.h"

// The course to steer for one leg across the tide: the boat is sailed forward in small steps on a
// fixed heading, the stream carrying it, and the heading is corrected by what the stream alone
// would have done until the track came closest to the destination. Eight passes make the answer.
namespace skerrow {

// One predicted position, with the time of the START of the step that led to it.
struct TrackPoint {
  Position position;
  float hours = 0.0F;
  DayAndYear date;
};

// One stream reading of a leg.
struct StreamSample {
  float rate = 0.0F;       // knots
  float direction = 0.0F;  // degrees true towards which it runs
  float hours = 0.0F;      // hours of the day at which it was read
  std::string label;       // of the diamond, "NONE", or empty without diamonds
};

struct LegResult {
  float course_to_steer = 0.0F;    // degrees true, before variation and leeway
  float passage_time = 0.0F;       // hours
  float track_distance = 0.0F;     // nautical miles over the ground to the closest approach
  float closest_approach = 0.0F;   // nautical miles from there to the destination
  std::int16_t steps = 0;          // BestStep: steps to the closest approach
  float speed_over_ground = 0.0F;  // knots
};

// The most steps of a pass. A leg that reaches it ends there and is not achieved.
inline constexpr int kMaxSteps = 1500;

// A leg to solve.
struct LegRequest {
  Position start;
  Position destination;
  float speed = 0.0F;  // through the water, knots
  float hours = 0.0F;  // departure, hours of the day
  DayAndYear date;
};

struct LegSettings {
  float calc_interval_minutes = 5.0F;
  float error_circle = 1.0F;  // nautical miles: a closest approach within it is an arrival
};
LegSettings LegSettingsOf(const AppConfig& config);

// Moves a time of the day on by one step of less than a day, through midnight and the year's end.
void AdvanceTime(float& hours, DayAndYear& date, float step);

// The steps of a track to whose place no stream is known, since the reference port of the nearest
// diamond had no high water near their time. They are sailed as if there were none.
struct StreamGaps {
  int steps = 0;
  std::vector<std::int32_t> diamonds;  // indices in TideState::diamonds, each once
};

// Everything a leg leaves behind.
struct LegSolution {
  LegResult result;
  bool achieved = false;
  std::vector<TrackPoint> track;      // LegTrack: from the start to the closest approach
  std::vector<StreamSample> streams;  // LegStreams: one a step, to the end of the last pass
  std::vector<Position> drift;        // TideDrift: one a step, from the start, to the last step
  bool no_passes = false;             // start and destination are the same
  StreamFault fault = StreamFault::kNone;
  StreamGaps gaps;  // of `track`
};

// The workings of a pass, kept between legs so that none allocates. Entry i of an array belongs to
// the position after i steps.
class LegSolver {
 public:
  explicit LegSolver(const TideState& tides) : reader_(tides) {}

  // CalcCourseToSteer, whole.
  LegSolution CalcCourseToSteer(const LegRequest& leg, const LegSettings& settings);

  // CalcCourseToSteer, for callers that need no track, streams or drift.
  LegResult CalcResultOnly(const LegRequest& leg, const LegSettings& settings);

  // Equal spring and neap ranges met since the last call of CalcCourseToSteer or CalcResultOnly.
  StreamFault fault() const { return fault_; }
  // Of the track that the last of these calls found.
  const StreamGaps& gaps() const { return gaps_; }
  bool achieved() const { return achieved_; }

 private:
  struct Pass {
    float new_heading = 0.0F;
    float closest_approach = 0.0F;
    int best_step = 0;
    float track_distance = 0.0F;
    float time_to_closest = 0.0F;
    float bearing_over_ground = 0.0F;
    int steps = 0;
  };
  Pass CalcLegPass(const LegRequest& leg, float time_step, float heading);
  void FindGaps();

  struct Step {
    TrackPoint track;
    Position drift;
    StreamReading stream;
    float stream_hours = 0.0F;
    float range_to_dest = 0.0F;
    float track_run = 0.0F;
  };
  StreamReader reader_;
  std::vector<Step> steps_ = std::vector<Step>(kMaxSteps + 1);
  Pass last_;
  StreamFault fault_ = StreamFault::kNone;
  StreamGaps gaps_;
  bool achieved_ = false;
};

// Adds the diamonds of `more` that `diamonds` does not hold yet.
void AddDiamonds(const std::vector<std::int32_t>& more, std::vector<std::int32_t>& diamonds);

// Lays a leg's track and streams behind those of the legs before: the track's first point takes
// the place of the last one's end. `track` and `streams` are RouteTrack and RouteStreams.
void AppendLeg(const LegSolution& leg, std::vector<TrackPoint>& track,
               std::vector<StreamSample>& streams);

// The side the wind comes over.
enum class Tack : std::int16_t { kNone = 0, kPort = 1, kStarboard = 2 };

// The heading shown to the helmsman for a true course: magnetic, and with `leeway` degrees taken
// off on port tack and added on starboard tack. `variation` is east positive. 0 to under 360.
float HeadingToSteer(float course_to_steer, float variation, float leeway, Tack tack);

}  // namespace skerrow
