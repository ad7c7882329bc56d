#include "ui/main/instrument_controller.h"

#include <utility>

#include "app/historical_track.h"
#include "core/files.h"
#include "core/numbers.h"
#include "ui/forms/link_form.h"
#include "ui/main/chart_controller.h"

namespace skerrow {
namespace {

// Lines of a replay that are due at once are played for so long before the window has its turn.
constexpr std::int64_t kReplayTurn = 30;  // ms

constexpr std::string_view kDemonstrationLog = "Channel crossing.nmea";
constexpr int kDemonstrationPause = 3000;  // before it begins anew, ms

}  // namespace

InstrumentController::InstrumentController(Desktop& desktop, TimerWindow& timer_window,
                                           ChartController& chart, ChartViewer& viewer)
    : desktop_(desktop), timer_window_(timer_window), chart_(chart), viewer_(viewer) {
  LoadInstrumentChoices(desktop.settings, desktop.program);
  since_start_.start();
  comms_timer_.setInterval(kCommsInterval);
  connect(&comms_timer_, &QTimer::timeout, this, &InstrumentController::Tick);
  replay_timer_.setSingleShot(true);
  replay_timer_.setTimerType(Qt::PreciseTimer);
  connect(&replay_timer_, &QTimer::timeout, this, &InstrumentController::ReplayTick);
}

bool InstrumentController::Receiving() const {
  return desktop_.program.link.gps_enabled || desktop_.program.link.ais_enabled;
}

bool InstrumentController::Connect(Start start) {
  Program& program = desktop_.program;
  Status connected = Done{};
  {
    const std::unique_ptr<Progress> progress = desktop_.window.StartProgress("Reading the log");
    connected = start(program, desktop_.ports, Now(), *progress);
  }
  if (!connected) {
    desktop_.messages.Show(connected.error().Text(), MessageIcon::kWarning);
    return false;
  }
  comms_timer_.start();
  ShowState();
  return true;
}

bool InstrumentController::ConnectGps() { return Connect(StartGps); }

bool InstrumentController::ConnectAis() { return Connect(StartAis); }

void InstrumentController::DisconnectGps() {
  Program& program = desktop_.program;
  skerrow::DisconnectGps(program.link, desktop_.ports, program.nmea.fix);
  program.plot.historical_plot_on = false;
  ShowState();
}

void InstrumentController::DisconnectAis() {
  Program& program = desktop_.program;
  skerrow::DisconnectAis(program.link, program.config, desktop_.ports, program.nmea.fix);
  ShowState();
}

void InstrumentController::Tick() {
  // A calculation reads the state, and serves events between its steps.
  if (desktop_.view.busy || desktop_.view.rectangle_dragging) return;
  Program& program = desktop_.program;
  const float hours = program.selected_time.hours;
  CommsTick(program, timer_window_, desktop_.ports, desktop_.messages, Now());
  const std::string link = StatusText();
  if (link != desktop_.view.link_status || hours != program.selected_time.hours) {
    desktop_.view.link_status = link;
    desktop_.window.Changed(kTimeChanged);
  }
}

bool InstrumentController::Replay(const ReplayRequest& request) {
  Program& program = desktop_.program;
  // An earlier voyage on the chart is not to be joined to this one.
  if (program.plot.historical_plot_on) RemoveHistoricalPlot(program);
  const Status started =
      StartReplay(request, program.folders.Tracks(), program.replay, program.plot, program.nmea);
  if (!started) {
    desktop_.messages.Show(started.error().Text(), MessageIcon::kWarning);
    return false;
  }
  if (request.kind == ReplayKind::kAis) program.ais.targets.Clear();
  replay_timer_.start(0);
  ShowState();
  return true;
}

bool InstrumentController::ReplayHere(const ReplayRequest& request) {
  if (!Replay(request)) return false;
  if (const auto at = FirstPositionOf(desktop_.program.replay.replay_file_name)) chart_.GoTo(*at);
  return true;
}

void InstrumentController::ToggleDemonstration() {
  Program& program = desktop_.program;
  if (demonstrating()) {
    HaltReplay();
    return;
  }
  const ReplayRequest request = {.kind = ReplayKind::kAis,
                                 .name = JoinPath(program.folders.Samples(), kDemonstrationLog),
                                 .interval = kReplayStart,
                                 .pace = ReplayPace::kLogTime10};
  if (const Status there = CheckReplay(request, ""); !there) {
    desktop_.messages.Show(there.error().Text(), MessageIcon::kWarning);
    return;
  }
  kept_ = std::make_unique<Kept>(
      Kept{std::exchange(program.nmea, {}), std::exchange(program.plot, {}),
           std::exchange(program.ais, {}), std::exchange(program.log_loaded, {}),
           program.config.chart_path, viewer_.VisibleRect()});
  program.ais.options = kept_->ais.options;
  ReplayHere(request);
  // Close enough for the boat to be seen moving.
  chart_.ZoomTo(1.0);
  if (const auto at = FirstPositionOf(request.name)) chart_.LocatePoint(*at);
  desktop_.window.Tell("A voyage across the Channel plays; Help > Demonstration ends it");
}

void InstrumentController::EndDemonstration() {
  const std::unique_ptr<Kept> kept = std::move(kept_);
  Program& program = desktop_.program;
  program.nmea = std::move(kept->nmea);
  program.plot = std::move(kept->plot);
  program.ais = std::move(kept->ais);
  program.log_loaded = std::move(kept->log_loaded);
  if (program.config.chart_path != kept->chart_path) chart_.OpenStored(kept->chart_path + ".cht");
  viewer_.ZoomToRect(kept->seen);
}

void InstrumentController::PauseReplay() {
  skerrow::PauseReplay(desktop_.program.replay);
  if (desktop_.program.replay.running) {
    replay_timer_.start(0);
  } else {
    replay_timer_.stop();
  }
  ShowState();
}

void InstrumentController::HaltReplay() {
  replay_timer_.stop();
  EndReplay(desktop_.program);
  if (demonstrating()) EndDemonstration();
  ShowState();
}

void InstrumentController::ReplayTick() {
  ReplayState& replay = desktop_.program.replay;
  if (desktop_.view.busy || desktop_.view.rectangle_dragging) {
    replay_timer_.start(replay.interval);
    return;
  }
  const std::int64_t until = Now() + kReplayTurn;
  int wait = 0;
  NoMessages quiet;
  while (replay.running && wait == 0 && Now() < until) {
    ReplayStepOf(desktop_.program, timer_window_, demonstrating() ? quiet : desktop_.messages);
    if (replay.running) wait = ReplayWait(replay);
    if (!replay.running && demonstrating() && ReplayEnded(replay)) {
      replay.replay_position = 0;
      replay.running = true;
      desktop_.program.ais.targets.Clear();
      desktop_.program.nmea.track.clear();
      wait = kDemonstrationPause;
    }
  }
  if (const std::string status = StatusText(); status != desktop_.view.link_status) {
    desktop_.view.link_status = status;
    desktop_.window.Changed(kTimeChanged);
  }
  if (replay.running) {
    replay_timer_.start(wait);
  } else {
    ShowState();
  }
}

void InstrumentController::ShowState() {
  if (!Receiving()) comms_timer_.stop();
  desktop_.view.link_status = StatusText();
  desktop_.window.Changed(kAllChanged);
}

std::string InstrumentController::StatusText() const {
  const Program& program = desktop_.program;
  if (demonstrating()) return "Help > Demonstration ends it";
  if (!program.replay.replay_active) {
    return Receiving() ? LinkStatusText(program.link, program.config, Now()) : std::string();
  }
  if (ReplayEnded(program.replay)) return "Replay: at its end. Halt Replay ends it";
  const std::string played = FormatFixed(ReplayPercent(program.replay), 1, 0) + " %";
  return "Replay: " + (program.replay.running ? played : played + ", paused");
}

void InstrumentController::Stop() {
  comms_timer_.stop();
  replay_timer_.stop();
  if (demonstrating()) {
    EndReplay(desktop_.program);
    EndDemonstration();
  }
  CloseAllPorts(desktop_.ports);
}

}  // namespace skerrow
