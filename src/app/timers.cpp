#include "app/timers.h"

#include <algorithm>
#include <utility>

#include "app/reception.h"

namespace skerrow {
namespace {

constexpr int kSecondsBetweenRefreshes = 60;
constexpr int kCyclesBetweenChecks = 20;
constexpr std::size_t kAnimationStep = 3;

bool BoatToCentre(const Program& program) {
  return program.config.gps_centre != 0 && program.nmea.fix.HasPosition();
}

// Counts a tick; true once a minute.
bool MinutePassed(Program& program) {
  if (++program.timers.seconds <= kSecondsBetweenRefreshes) return false;
  program.timers.seconds = 0;
  return true;
}

// A point for each fix that has come since the last one.
void AddTrackPoint(Program& program) {
  NmeaState& nmea = program.nmea;
  const GpsFix& fix = nmea.fix;
  if (!fix.position_good || fix.fix_date.size() <= 5 || fix.fix_time.size() <= 5) return;
  if (std::exchange(program.timers.positions_tracked, nmea.positions) == nmea.positions) return;
  GpsTrackPoint point{.latitude = fix.boat_latitude, .longitude = fix.boat_longitude};
  SetTime(point, fix.fix_time);
  SetDate(point, fix.fix_date);
  point.speed = fix.speed_over_ground;
  point.course = fix.course_over_ground;
  nmea.track.push_back(point);
}

void FollowTimeAndFix(Program& program, TimerWindow& window) {
  FollowClock(program);
  if (MinutePassed(program)) Timer1Routine(program);
  AddTrackPoint(program);
  if (!program.timers.first_pass_done) {
    if (BoatToCentre(program)) window.LocatePoint(program.nmea.fix.At());
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
  if (!program.nmea.fix.position_good || !BoatToCentre(program)) return;
  const std::optional<VisibleChart> visible = window.Visible();
  if (visible && !InMiddleThird(*visible, program.nmea.fix.At()))
    window.LocatePoint(program.nmea.fix.At());
}

}  // namespace

void Timer1Tick(Program& program, bool comms_running, TimerWindow& window) {
  if (program.replay.replay_active || comms_running || program.selected_time.override_) return;
  if (!MinutePassed(program)) return;
  FollowClock(program);
  Timer1Routine(program);
  if (!window.Minimised()) window.Repaint();
}

void CommsTick(Program& program, TimerWindow& window, SerialPorts& ports, Messages& messages,
               std::int64_t now) {
  TimerState& timers = program.timers;
  if (timers.in_comms_tick) return;
  timers.in_comms_tick = true;
  const bool first_pass = !timers.first_pass_done;
  window.ServeEvents();
  AisReceiver receiver(program);
  ReceiveStep(program.link, program.nmea, program.config, ports, receiver, *program.clock, now);
  if (timers.cycle == 1 || first_pass) FollowTimeAndFix(program, window);
  if (program.link.ais_enabled) {
    if (const std::optional<Motion> boat = BoatMotion(program)) {
      ComputeCpa(*boat, program.ais.targets);
      ShowDetailsInAlarm(program.ais.targets, program.link.gps_enabled,
                         program.config.cpa_alarm_range);
    }
  }
  if (timers.cycle > kCyclesBetweenChecks) RepaintNowAndThen(program, window);
  ++timers.cycle;
  KeepLog(program, messages, first_pass);
  timers.in_comms_tick = false;
}

void ReplayStepOf(Program& program, TimerWindow& window, Messages& messages) {
  window.ServeEvents();
  if (!program.replay.running) return;
  AisReceiver receiver(program);
  const ReplayStep step =
      ReplayTick(program.replay, program.plot, program.nmea, receiver, *program.clock);
  if (program.nmea.fix.position_good && BoatToCentre(program)) {
    window.LocatePoint(program.nmea.fix.At());
  }
  KeepLog(program, messages, false);
  if ((step.repaint || step.ended) && !window.Minimised()) {
    window.ShowReadout();
    window.Repaint();
  }
  if (step.ended) messages.Show(step.message, MessageIcon::kInformation);
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
