#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <memory>
#include <string>

#include "app/reception.h"
#include "app/timers.h"
#include "ui/desktop.h"
#include "ui/viewer/chart_viewer.h"

namespace skerrow {

class ChartController;

// The instruments in the main window: the timers of the reception and of the replay, and what
// connects, disconnects, replays and halts.
class InstrumentController final : public QObject {
  Q_OBJECT

 public:
  // All that it is given outlives it.
  InstrumentController(Desktop& desktop, TimerWindow& timer_window, ChartController& chart,
                       ChartViewer& viewer);

  // Connect to the ports of the settings. A refusal has been shown when they give false.
  bool ConnectGps();
  bool ConnectAis();
  void DisconnectGps();
  void DisconnectAis();
  // Whether a reception is on; the clock's own timer rests then.
  bool Receiving() const;

  // A refusal has been shown when it gives false.
  bool Replay(const ReplayRequest& request);
  // The same with the chart moved to where the log begins.
  bool ReplayHere(const ReplayRequest& request);
  void PauseReplay();
  void HaltReplay();

  // Plays the sample voyage over and over. What the instruments had told, and the view of the
  // chart, are kept and come back at its end.
  void ToggleDemonstration();
  bool demonstrating() const { return kept_ != nullptr; }

  // Stops the timers and closes the ports, at the end of the program.
  void Stop();

 private:
  using Start = Status (*)(Program&, SerialPorts&, std::int64_t, Progress&);
  bool Connect(Start start);
  void Tick();
  void ReplayTick();
  void ShowState();
  void EndDemonstration();
  std::string StatusText() const;
  std::int64_t Now() const { return since_start_.elapsed(); }

  Desktop& desktop_;
  TimerWindow& timer_window_;
  ChartController& chart_;
  ChartViewer& viewer_;
  QElapsedTimer since_start_;
  QTimer comms_timer_;
  QTimer replay_timer_;

  // What a demonstration has put aside.
  struct Kept {
    NmeaState nmea;
    PlotState plot;
    AisState ais;
    std::string log_loaded;
    std::string chart_path;
    ImageRect seen;
  };
  std::unique_ptr<Kept> kept_;
};

}  // namespace skerrow
