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

void FollowTimeAndFix(Program& program, TimerWindow& window) {
  FollowClock(program);
  if (MinutePassed(program)) Timer1Routine(program);
  if (const std::optional<WaitingFix>& fix = program.boat.new_fix;
      fix && fix->date_text.size() > 5 && fix->time_text.size() > 5) {
    program.tracks.live.push_back({fix->position, ""});
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

void RepaintNowAndThen(Program& program, TimerWindow& window) {
  program.timers.cycle = 0;
  if (++program.timers.repaint_divider > 2) {
    program.timers.repaint_divider = 1;
    if (!window.Minimised()) window.Repaint();
  }
  if (!program.boat.new_fix || !BoatToCentre(program)) return;
  const std::optional<VisibleChart> visible = window.Visible();
  if (visible && !InMiddleThird(*visible, program.boat.position))
    window.LocatePoint(program.boat.position);
}

// Adds what a port has received, a block of it, to the text that waits to be decoded. What does not
// fit is lost from the front and counted.
void ReadBlock(SerialPorts& ports, int port, ReceivedText& text) {
  constexpr std::size_t kBlock = 1024;
  std::string block;
  if (ports.Get(port, block, kBlock) <= 0) return;
  text.waiting += block;
  if (text.waiting.size() <= kMostWaitingText) return;
  const std::size_t lost = text.waiting.size() - kMostWaitingText;
  text.waiting.erase(0, lost);
  text.lost += lost;
}

}  // namespace

void Timer1Tick(Program& program, bool comms_running, TimerWindow& window) {
  if (program.replay_active || comms_running || program.selected_time.override_) return;
  if (!MinutePassed(program)) return;
  FollowClock(program);
  Timer1Routine(program);
  if (!window.Minimised()) window.Repaint();
}

void CommsTick(Program& program, TimerWindow& window, SerialPorts& ports) {
  TimerState& timers = program.timers;
  if (timers.in_comms_tick) return;
  timers.in_comms_tick = true;
  const bool first_pass = !timers.first_pass_done;
  timers.phase = 1 - timers.phase;
  window.ServeEvents();
  if (timers.phase == 0) {
    if (program.gps_enabled && program.config.gps_through_ais == 0) {
      ReadBlock(ports, program.config.gps_port, program.gps_text);
    }
  } else if (program.ais_enabled) {
    ReadBlock(ports, program.config.ais_port, program.ais_text);
  }
  if (timers.cycle == 1 || first_pass) FollowTimeAndFix(program, window);
  if (timers.cycle > kCyclesBetweenChecks) RepaintNowAndThen(program, window);
  ++timers.cycle;
  if (program.clock_julian > timers.next_log_time || first_pass) {
    timers.log_due = true;
    timers.next_log_time = program.clock_julian + program.config.log_interval / 86400.0;
  }
  timers.in_comms_tick = false;
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
