#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/edit_session.h"
#include "app/man_overboard.h"
#include "app/wind_field.h"
#include "charts/chart_files.h"
#include "core/clock.h"
#include "core/config.h"
#include "core/folders.h"
#include "core/messages.h"
#include "core/selected_time.h"
#include "instruments/instrument_state.h"
#include "instruments/nmea.h"
#include "instruments/plot_file.h"
#include "instruments/replay.h"
#include "instruments/serial_link.h"
#include "passage/passage_state.h"
#include "routes/route.h"
#include "routes/waypoint.h"
#include "tides/streams.h"
#include "wind/stored_wind.h"
#include "wind/wind_config.h"

// The one object that holds the state of all subsystems, and the operations that cross them.
namespace skerrow {

enum class AnimationDirection : std::int16_t { kForward = 1, kReverse = 2 };

// The run of a calculated track on the chart.
struct Animation {
  AnimationDirection direction = AnimationDirection::kForward;
  std::size_t index = 0;  // into the route track
  bool running = false;
  std::string label;  // "ETA : " with time and date, for the chart
};

// What the timers keep between their ticks.
struct TimerState {
  int seconds = 0;  // Timer1's count, which CommsTimer uses too
  bool first_pass_done = false;
  int repaint_divider = 0;
  int cycle = 0;
  bool in_comms_tick = false;
  double next_log_time = 0.0;         // Julian date
  std::size_t positions_tracked = 0;  // of NmeaState, when the last track point was made
};

struct Program {
  Program(Folders where, const Clock& time_source)
      : folders(std::move(where)), clock(&time_source), config(DefaultConfig(folders.program)) {}

  Folders folders;
  const Clock* clock;

  AppConfig config;
  WindConfig wind_config;
  Wind working_wind;
  StoredWind wind_store;
  WindField wind_field;  // what the chart shows of it

  SelectedTime selected_time;
  SavedTime saved_time;
  std::int16_t clock_day = 0;
  double clock_julian = 0.0;

  WaypointState waypoints;
  RouteState route;
  ChartState charts;
  std::vector<PortMarker> port_markers;
  TideState tides;
  PassageState passage;
  EditSession edits;

  float route_speed = 5.0F;  // knots
  bool use_leeway = false;
  LinkState link;
  NmeaState nmea;
  ReplayState replay;
  PlotState plot;
  AisState ais;
  std::vector<Position> boat_ahead;  // where the tide will take the boat
  StoredPlot stored_plot;            // the plot file on show
  std::string log_loaded;            // the log whose track is in the track table
  ManOverboard mob;
  Animation animation;
  TimerState timers;
};

// Loads the settings: creates the settings file, the sample waypoints and the wind settings where
// they are missing, reads them, and gives every leg the default wind. A settings file that cannot
// be written shows "Unable to create a configuration file."; one that cannot be read leaves the
// defaults in force.
void LoadConfig(Program& program, Messages& messages);

// Clears what a killed program left in the user's folders, and takes the data steps of the start,
// in their order: settings, time, waypoints, chart, reference ports, tides, diamonds, port marks
// and chart index. A step that fails says so and does not stop the others.
void LoadProgram(Program& program, Messages& messages);

// Puts the default settings in the place of the stored ones, and tells the name of the copy that
// is kept of these. False, with a message, where that cannot be done; the settings are as they
// were.
bool RestoreDefaults(Program& program, Messages& messages);

// Whether course-to-steer vectors are drawn: where they are wanted and tides are in use.
bool VectorsShown(const AppConfig& config);

// The route operations' view of the settings. With the wind of forecasts in use the user's store
// is read if it has not been, or has changed; what comes back keeps that store.
RouteDefaults RouteDefaultsOf(const Program& program);

// Sets the selected time, day and year of the clock, and the clock's Julian date.
void FollowClock(Program& program);

// Rebuilds the port tables for the selected day and refreshes the tide state for its time.
void RebuildTides(Program& program, Messages& messages);

// Lets all that follows the selected time follow it: the tables of its day, if it is another day,
// and the state of the tide. Whoever moves the time calls this; nothing else does it.
void TimeMoved(Program& program);

// Day check against the clock, then the refresh of the tide state.
void Timer1Routine(Program& program);

// Why a typed time and chosen date are refused.
enum class SelectedTimeRefusal { kNone, kNoTime, kOutOfRange, kNoSuchDate };

struct SelectedTimeEntry {
  std::string time_text;  // "hh:mm"; minutes of exactly 60 pass
  int day_of_month = 1;
  int month = 1;
  int year = 2000;
};

// The words of a refusal.
std::string SelectedTimeText(SelectedTimeRefusal refusal);

// Makes a typed time the selected one: the calculated track goes, the tides follow.
SelectedTimeRefusal SetSelectedTime(Program& program, const SelectedTimeEntry& entry,
                                    Messages& messages);

// Goes back to the clock's time; the calculated track goes.
void ReturnToRealtime(Program& program, Messages& messages);

enum class Roll { kForward, kBack };

// Moves the selected time to the next half hour, or back to the one before; the first departure
// from the clock is remembered. At a midnight the heights are rebuilt.
void RollTides(Program& program, Roll roll);

// Remembers the time in force, unless an earlier one is still remembered, and marks the time as
// set by the user.
void LeaveClock(Program& program);

// Brings back the time remembered by LeaveClock.
void RestoreTime(Program& program);

// Drops the calculated track and the calculated mark of every route point.
void ForgetCalculation(Program& program);

}  // namespace skerrow
