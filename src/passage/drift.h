#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/plane_sailing.h"
#include "core/progress.h"
#include "core/result.h"
#include "passage/leg.h"
#include "passage/passage_state.h"

// Where a boat that holds its heading goes, and where a body in the water drifts. Nothing is
// corrected: the result is the track over the ground, not what to steer.
namespace skerrow {

// What is predicted.
struct DriftRequest {
  Position start;
  std::optional<Position> destination;  // what the closest approach is counted to
  float speed = 0.0F;                   // through the water, knots; 0 for what drifts freely
  float heading = 0.0F;                 // the way through the water, degrees true
  float hours = 0.0F;                   // start, hours of the day
  DayAndYear date;
  float duration = 0.0F;  // hours
};

// The longest prediction and the most steps of one, and the fastest object. Beyond a month no
// forecast of a track means anything.
inline constexpr float kMaxDriftHours = 720.0F;
inline constexpr int kMaxDriftSteps = 20000;
inline constexpr float kMaxDriftSpeed = 100.0F;

struct Drift {
  // Entry i is the place after i steps, with its own time: 0 is the start, the last one the end.
  std::vector<TrackPoint> track;
  std::vector<StreamSample> streams;  // entry i is the reading taken at entry i of the track
  int steps = 0;                      // of the duration
  float time_step = 0.0F;             // hours

  // The run over the ground, nautical miles. Like the closest approach and the sums it has the move
  // that begins at the end of the duration too, so one more than `steps`.
  float ground_distance = 0.0F;
  int closest_step = 0;  // the move that ends nearest to the destination; 0 without one
  // The moves through the water and with the stream, nautical miles, added up to and with the
  // closest step; without a destination all of them.
  EastNorth water_sum;
  EastNorth stream_sum;

  StreamFault fault = StreamFault::kNone;
  StreamGaps gaps;
};

// The number of steps of a duration: the nearest whole number (half to even). Error: a duration
// below 0, or more than the bounds above allow.
Result<int> DriftSteps(float duration, float interval_minutes);

// PredictCourseOverGround. Streams are read as a leg reads them: beyond the diamonds, and where
// nothing is known of the tide, the object goes on without one. Empty when cancelled. Errors: those
// of DriftSteps, a number that is none, a speed outside 0 to 100 knots, a place beyond latitude 89
// at the start or on the way, where plane sailing ends.
Result<std::optional<Drift>> PredictCourseOverGround(const TideState& tides,
                                                     const DriftRequest& request,
                                                     const LegSettings& settings,
                                                     Progress& progress);

// The way through the water of a boat that steers `heading` degrees true: the wind sets it off to
// starboard on port tack, and to port on starboard tack. 0 to under 360.
float CourseThroughWater(float heading, float leeway, Tack tack);

// What the report of a boat's prediction tells beside the numbers.
struct CourseOverGroundNames {
  std::string start;
  std::string destination;
  float steer = 0.0F;       // the heading steered, degrees magnetic
  std::string leeway_line;  // empty without leeway
};

// The report of a prediction for a boat. Without a destination the lines that speak of one are left
// out. Distance and speed are those up to the end of the duration.
std::vector<std::string> CourseOverGroundReport(const TideState& tides, const DriftRequest& request,
                                                const Drift& drift,
                                                const CourseOverGroundNames& names);

// The report of a prediction for a body or an object in the water.
std::vector<std::string> DriftReport(const TideState& tides, const DriftRequest& request,
                                     const Drift& drift);

// Where and when a prediction ends: "Position at 10:30 : 50.06.00N , 000.56.89W".
std::string DriftEndText(const DriftRequest& request, const Drift& drift);

// Makes a prediction the result on show: track, streams, report and its short form, CalcMode 2.
void ShowDrift(Drift drift, std::vector<std::string> report, std::string summary,
               PassageState& passage);

}  // namespace skerrow
