#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include "app/reception.h"
#include "app/timers.h"
#include "ui/desktop.h"

namespace skerrow {

// The instruments in the main window: the timers of the reception and of the replay, and what
// connects, disconnects, replays and halts.
class InstrumentController final : public QObject {
  Q_OBJECT

 public:
  // `timer_window` outlives it.
  InstrumentController(Desktop& desktop, TimerWindow& timer_window);

  // Connect to the ports of the settings. A refusal has been shown when they give false.
  bool ConnectGps();
  bool ConnectAis();
  void DisconnectGps();
  void DisconnectAis();
  // Whether a reception is on; the clock's own timer rests then.
  bool Receiving() const;

  // A refusal has been shown when it gives false.
  bool Replay(const ReplayRequest& request);
  void PauseReplay();
  void HaltReplay();

  // Stops the timers and closes the ports, at the end of the program.
  void Stop();

 private:
  using Start = Status (*)(Program&, SerialPorts&, std::int64_t, Progress&);
  bool Connect(Start start);
  void Tick();
  void ReplayTick();
  void ShowState();
  std::int64_t Now() const { return since_start_.elapsed(); }

  Desktop& desktop_;
  TimerWindow& timer_window_;
  QElapsedTimer since_start_;
  QTimer comms_timer_;
  QTimer replay_timer_;
};

}  // namespace skerrow
