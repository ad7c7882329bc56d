#include "ui/main/time_controller.h"

#include <QCoreApplication>

#include "app/situation.h"
#include "ui/main/chart_controller.h"

namespace skerrow {

TimeController::TimeController(Desktop& desktop, ChartViewer& viewer, ChartController& chart,
                               QWidget& window)
    : desktop_(desktop), viewer_(viewer), chart_(chart), window_(window) {
  timer1_.setInterval(kTimer1Interval);
  connect(&timer1_, &QTimer::timeout, this, [this] {
    emit Second();
    if (desktop_.view.busy || held_) return;
    const float hours = desktop_.program.selected_time.hours;
    const LinkState& link = desktop_.program.link;
    Timer1Tick(desktop_.program, link.gps_enabled || link.ais_enabled, *this);
    if (hours != desktop_.program.selected_time.hours) desktop_.window.Changed(kTimeChanged);
  });
  animate_timer_.setInterval(kAnimateInterval);
  connect(&animate_timer_, &QTimer::timeout, this, [this] {
    if (desktop_.view.busy) return;
    if (!AnimateTick(desktop_.program, *this)) animate_timer_.stop();
    desktop_.window.Changed(kTimeChanged);
  });
}

void TimeController::Stop() {
  timer1_.stop();
  animate_timer_.stop();
}

void TimeController::Release() {
  held_ = false;
  desktop_.view.harvest_text.clear();
}

void TimeController::Animate(AnimationDirection direction) {
  Program& p = desktop_.program;
  if (p.passage.route_track.empty()) return;
  LeaveClock(p);
  const std::size_t end = p.passage.route_track.size() - 1;
  p.animation.direction = direction;
  if (direction == AnimationDirection::kForward) {
    if (p.animation.index >= end) p.animation.index = 0;
  } else if (p.animation.index == 0) {
    p.animation.index = end;
  }
  p.animation.running = true;
  animate_timer_.start();
  desktop_.window.Changed(kTimeChanged);
}

void TimeController::PauseAnimation() {
  Animation& animation = desktop_.program.animation;
  if (animate_timer_.isActive()) {
    animate_timer_.stop();
  } else if (!animation.label.empty() || animation.running) {
    animation.running = true;
    animate_timer_.start();
  }
  desktop_.window.Changed(kTimeChanged);
}

void TimeController::DropAnimation() {
  animate_timer_.stop();
  desktop_.program.animation = {};
  desktop_.view.eta.clear();
}

void TimeController::StopAnimation() {
  Program& p = desktop_.program;
  const bool was_on = p.animation.running || !p.animation.label.empty();
  DropAnimation();
  if (was_on) RestoreTime(p);
  desktop_.window.Changed(kTimeChanged);
}

void TimeController::ExitAnimation() {
  DropAnimation();
  // A roll of the tides remembers the time too, and this is the way back from it.
  RestoreTime(desktop_.program);
  desktop_.window.Changed(kTimeChanged);
}

void TimeController::RollTheTides(Roll roll) {
  DropAnimation();
  RollTides(desktop_.program, roll);
  {
    const std::unique_ptr<Progress> progress = desktop_.window.StartProgress("Reworking the route");
    (void)ReworkResult(desktop_.program, *progress);  // Stopped: the result before stands.
  }
  // The first Esc after a roll takes the track off, with or without one.
  desktop_.view.calculation_on_show = true;
  desktop_.window.Changed(kTimeChanged);
  if (!desktop_.program.passage.route_track.empty()) desktop_.window.Changed(kRouteChanged);
}

void TimeController::ShowNearestTrackPoint() {
  const std::optional<std::size_t> nearest =
      NearestTrackPoint(desktop_.program, desktop_.view.cursor);
  if (!nearest) return;
  desktop_.program.animation.index = *nearest;
  ShowTrackPoint(desktop_.program, *this);
  desktop_.window.Changed(kTimeChanged);
}

void TimeController::ToRealtime() {
  DropAnimation();
  Release();
  ReturnToRealtime(desktop_.program, desktop_.messages);
  desktop_.window.Changed(kRouteChanged | kTimeChanged);
}

void TimeController::ServeEvents() { QCoreApplication::processEvents(); }

void TimeController::ShowEta(const std::string& text) { desktop_.view.eta = text; }

void TimeController::LocatePoint(Position position) { chart_.LocatePoint(position); }

std::optional<VisibleChart> TimeController::Visible() const { return chart_.Visible(); }

}  // namespace skerrow
