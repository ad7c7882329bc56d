#pragma once

#include <QObject>
#include <QTimer>

#include "app/timers.h"
#include "ui/desktop.h"
#include "ui/viewer/chart_viewer.h"

namespace skerrow {

class ChartController;

// The selected time in the main window: the clock's timer, the roll of the tides, and the animation
// along a calculated track.
class TimeController final : public QObject, public TimerWindow {
  Q_OBJECT

 public:
  TimeController(Desktop& desktop, ChartViewer& viewer, ChartController& chart, QWidget& window);

  void Start() { timer1_.start(); }
  void Stop();
  // The clock's timer alone.
  void Rest() { timer1_.stop(); }
  // Lets the selected time and the streams stand while diamonds are harvested, until Release or a
  // return to real time. The seconds go on: the alarm of the vessels around hangs on them.
  void Hold() { held_ = true; }
  void Release();

  void Animate(AnimationDirection direction);
  void PauseAnimation();
  // Stops the animation and brings the time back if it had moved it.
  void StopAnimation();
  // As the menu's entry: brings the time back after a roll of the tides as well.
  void ExitAnimation();
  // Forgets where the animation stands; the time stays.
  void DropAnimation();
  bool animating() const { return animate_timer_.isActive(); }

  // Half an hour forth or back; a result on show is reworked.
  void RollTheTides(Roll roll);
  // The time at the point of the track nearest to the cursor.
  void ShowNearestTrackPoint();
  void ToRealtime();

  // ---- TimerWindow
  bool Minimised() const override { return window_.isMinimized(); }
  void Repaint() override { viewer_.Redraw(); }
  void ServeEvents() override;
  void ShowReadout() override { desktop_.window.Changed(kTargetsChanged); }
  void ShowEta(const std::string& text) override;
  void LocatePoint(Position position) override;
  std::optional<VisibleChart> Visible() const override;

 signals:
  // A second of the clock has passed.
  void Second();

 private:
  Desktop& desktop_;
  ChartViewer& viewer_;
  ChartController& chart_;
  QWidget& window_;
  QTimer timer1_;
  QTimer animate_timer_;
  bool held_ = false;
};

}  // namespace skerrow
