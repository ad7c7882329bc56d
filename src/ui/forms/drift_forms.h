#pragma once

#include <optional>
#include <string>

#include "app/program.h"
#include "core/messages.h"
#include "core/progress.h"
#include "instruments/upload.h"
#include "passage/drift.h"
#include "passage/route_calculation.h"

// The two predictions of the course over the ground: what their forms show, check and do.
namespace skerrow {

// What `frmCalcCOG` holds.
struct CogEntry {
  std::string start_latitude;
  std::string start_longitude;
  std::string start_name;
  std::string destination_latitude;
  std::string destination_longitude;
  std::string destination_name;
  std::string speed;     // knots
  std::string duration;  // "H:mm"
  std::string heading;   // steered, degrees true
  bool use_leeway = false;
  bool wind_port = false;
  bool wind_starboard = false;
  std::string leeway;  // degrees
};

// What `frmCalcMOB` holds.
struct MobEntry {
  std::string start_latitude;
  std::string start_longitude;
  std::string duration;  // hours
  std::string heading;   // degrees true
  std::string speed;     // knots
  bool from_mark_time = false;
};

// The box that a refusal is about.
enum class DriftField { kNone, kStart, kDestination, kSpeed, kDuration, kHeading, kLeeway };

// A checked entry: the words of its refusal with the box to be corrected, or the request.
struct CheckedDrift {
  std::string refusal;  // empty: none
  DriftField field = DriftField::kNone;
  DriftRequest request;
  CourseOverGroundNames names;  // of frmCalcCOG
};

// The bearing from start to destination, "045": rounded to tenths and then to an integer. Empty
// unless both places are complete.
std::string OfferedHeading(const CogEntry& entry);

// The destination as a waypoint for a GPS, "DEST" where it has no name; empty unless it is whole.
std::optional<UploadPoint> DestinationOf(const CogEntry& entry);

// Checks the entry of `frmCalcCOG` in this order: "Enter boat speed", "Duration not set",
// "Duration entry ambiguous", "Direction not set", "Error in start and destination coordinates",
// then what only this system asks: the side of the wind for leeway, a speed, duration and heading
// within bounds. An empty heading takes the offered one. No destination needs to be given; one that
// is begun must be whole.
CheckedDrift CheckCourseOverGround(const Program& program, const CogEntry& entry);

// Checks the entry of `frmCalcMOB`: "Error in start and destination coordinates", "Duration not
// set", then a speed, duration and heading within bounds.
CheckedDrift CheckManOverboard(const Program& program, const MobEntry& entry);

// How `frmCalcMOB` opens: the start at the mark, or else at the GPS position.
MobEntry FirstManOverboardEntry(const Program& program);

// "Start at the time of the mark, 09:12": the choice between the time of the mark and the selected
// time; empty without a mark.
std::string MarkTimeText(const Program& program);
// "Start at 09:30, 14 Jun 2026": the selected time.
std::string SelectedStartText(const Program& program);

// Predicts, and makes the prediction the result on show. Refused with its words, or cancelled:
// everything as it was.
RouteOutcome RunCourseOverGround(Program& program, const CheckedDrift& checked, Messages& messages,
                                 Progress& progress);
RouteOutcome RunManOverboard(Program& program, const CheckedDrift& checked, Messages& messages,
                             Progress& progress);

// Keeps where a waypoint goes first in the stored settings.
Status KeepSetLegOption(Program& program, bool destination_first);

}  // namespace skerrow
