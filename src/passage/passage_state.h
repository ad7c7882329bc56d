#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "passage/leg.h"

namespace skerrow {

// A leg of a calculated route as reported.
struct LegReport {
  LegResult result;
  bool achieved = false;
  float heading = 0.0F;  // to steer, magnetic, with leeway
  Position start;
  Position destination;
  float start_hours = 0.0F;
  DayAndYear start_date;
  float arrival_hours = 0.0F;
  DayAndYear arrival_date;
};

// What made the calculated track: 0 nothing or a single leg, 1 a route, 2 a prediction of the
// course over the ground.
inline constexpr std::int16_t kCalcModeRoute = 1;
inline constexpr std::int16_t kCalcModeDrift = 2;

// What calculations leave for the chart, the results and the history.
struct PassageState {
  std::vector<TrackPoint> route_track;      // RouteTrack: the legs' tracks end to end
  std::vector<StreamSample> route_streams;  // RouteStreams
  std::vector<LegReport> legs;

  std::vector<std::string> result_lines;   // ResultLines
  std::vector<std::string> route_history;  // RouteHistory: lives as long as the program
  std::string route_summary_text;
  std::string route_combo_text;          // text of the main window's route list
  std::vector<std::string> route_combo;  // and its lines
  float route_distance = 0.0F;           // nautical miles
  float route_hours = 0.0F;              // total passage time
  std::string leeway_text;               // degrees, as typed for the calculation
  std::int16_t calc_mode = 0;  // CalcMode: what the track is of, what made the track, as above

  std::vector<float> optimum_times;  // hours, one a departure; the chart adds the spare entry
  float optimum_start_hour = 0.0F;
  // The speeds of the legs of each departure, knots, where they were not those of the route.
  std::vector<std::vector<float>> optimum_speeds;
};

// Forgets a calculated track with its legs and streams; the report stays.
inline void DropTrack(PassageState& passage) {
  passage.route_track.clear();
  passage.route_streams.clear();
  passage.legs.clear();
  passage.calc_mode = 0;
}

}  // namespace skerrow
