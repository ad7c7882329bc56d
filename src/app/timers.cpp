#include "app/timers.h"

#include <algorithm>

namespace skerrow {
namespace {

constexpr int kSecondsBetweenRefreshes = 60;
constexpr int kCyclesBetweenChecks = 20;
constexpr std::size_t kAnimationStep = 3;

bool BoatToCentre(const Program& program) {
  return program.config.gps_centre != 0 && program.boat.HasPosition();
}

// Counts a tick; true once a minute.
bool MinutePassed(Program& program) {
  if (++program.timers.seconds <= kSecondsBetweenRefreshes) return false;
  program.timers.seconds = 0;
  return true;
}

void FollowTimeAndFix(Program& program, TimerWindow& window, TimerInstruments& instruments) {
  FollowClock(program);
  if (MinutePassed(program)) Timer1Routine(program);
  if (const std::optional<WaitingFix> fix = instruments.NewFix();
      fix && fix->date_text.size() > 5 && fix->time_text.size() > 5) {
    instruments.AppendTrackPoint(*fix);
  }
  if (!program.timers.first_pass_done) {
    if (BoatToCentre(program)) window.LocatePoint(program.boat.position);
    program.timers.first_pass_done = true;
  }
  if (!window.Minimised()) {
    window.ServeEvents();
    window.ShowReadout();
  }
}

void RepaintNowAndThen(Program& program, TimerWindow& window, const TimerInstruments& instruments) {
  program.timers.cycle = 0;
  if (++program.timers.repaint_divider > 2) {
    program.timers.repaint_divider = 1;
    if (!window.Minimised()) window.Repaint();
  }
  if (!instruments.NewFix() || !BoatToCentre(program)) return;
  const std::optional<VisibleChart> visible = window.Visible();
  if (visible && !InMiddleThird(*visible, program.boat.position))
    window.LocatePoint(program.boat.position);
}

}  // namespace

void Timer1Tick(Program& program, bool comms_running, TimerWindow& window) {
  if (program.replay_active || comms_running || program.selected_time.override_) return;
  if (!MinutePassed(program)) return;
  FollowClock(program);
  Timer1Routine(program);
  if (!window.Minimised()) window.Repaint();
}

void CommsTick(Program& program, TimerWindow& window, TimerInstruments& instruments) {
  TimerState& timers = program.timers;
  const bool first_pass = !timers.first_pass_done;
  timers.phase = 1 - timers.phase;
  window.ServeEvents();
  if (timers.phase == 0) {
    if (program.gps_enabled && program.config.gps_through_ais == 0) instruments.FeedGps();
  } else if (program.ais_enabled) {
    instruments.FeedAis();
  }
  if (timers.cycle == 1 || first_pass) FollowTimeAndFix(program, window, instruments);
  if (program.ais_enabled && instruments.NewFix()) instruments.ComputeClosestApproaches();
  if (timers.cycle > kCyclesBetweenChecks) RepaintNowAndThen(program, window, instruments);
  ++timers.cycle;
  if (program.clock_julian > timers.next_log_time || first_pass) {
    instruments.WriteLogRecord();
    timers.next_log_time = program.clock_julian + program.config.log_interval / 86400.0;
  }
}

void ReplayTick(Program& program, TimerWindow& window, TimerInstruments& instruments) {
  if (!program.replay_active) return;
  window.ServeEvents();
  instruments.ReplayNextLine();
}

bool AnimateTick(Program& program, TimerWindow& window) {
  Animation& animation = program.animation;
  const std::vector<TrackPoint>& track = program.passage.route_track;
  if (!animation.running || track.empty()) return false;
  const std::size_t end = track.size() - 1;
  if (animation.direction == AnimationDirection::kForward) {
    if (animation.index >= end) {
      animation.index = end;
      animation.running = false;
    } else {
      animation.index = std::min(end, animation.index + kAnimationStep);
    }
  } else if (animation.index < 1) {
    animation.index = 0;
    animation.running = false;
  } else {
    animation.index = animation.index > kAnimationStep ? animation.index - kAnimationStep : 0;
    animation.index = std::min(animation.index, end);
  }
  ShowTrackPoint(program, window);
  return animation.running;
}

void ShowTrackPoint(Program& program, TimerWindow& window) {
  Animation& animation = program.animation;
  const TrackPoint& point = program.passage.route_track[animation.index];
  LeaveClock(program);
  program.selected_time.hours = point.hours;
  SetDay(program.selected_time, point.date);
  MonthDate date;
  DayOfYearToDate(point.date.day, point.date.year, date);
  const std::string eta = "ETA : " + HoursToClock(point.hours);
  animation.label = eta + "  " + std::to_string(date.day_of_month) + " " + date.month_name;
  window.ShowEta(eta);
  TimeMoved(program);
  window.Repaint();
}

bool InMiddleThird(const VisibleChart& visible, Position boat) {
  const float latitude_third = (visible.north - visible.south) / 3.0F;
  const float longitude_third = (visible.east - visible.west) / 3.0F;
  return boat.latitude > visible.south + latitude_third &&
         boat.latitude < visible.north - latitude_third &&
         boat.longitude > visible.west + longitude_third &&
         boat.longitude < visible.east - longitude_third;
}

}  // namespace skerrow
