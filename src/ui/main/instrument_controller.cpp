#include "ui/main/instrument_controller.h"

namespace skerrow {
namespace {

// Lines of a replay that are due at once are played for so long before the window has its turn.
constexpr std::int64_t kReplayTurn = 30;  // ms

}  // namespace

InstrumentController::InstrumentController(Desktop& desktop, TimerWindow& timer_window)
    : desktop_(desktop), timer_window_(timer_window) {
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
  const std::string link = LinkStatusText(program.link, program.config, Now());
  if (link != desktop_.view.link_status || hours != program.selected_time.hours) {
    desktop_.view.link_status = link;
    desktop_.window.Changed(kTimeChanged);
  }
}

bool InstrumentController::Replay(const ReplayRequest& request) {
  Program& program = desktop_.program;
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
  while (replay.running && wait == 0 && Now() < until) {
    ReplayStepOf(desktop_.program, timer_window_, desktop_.messages);
    if (replay.running) wait = ReplayWait(replay);
  }
  if (replay.running) {
    replay_timer_.start(wait);
  } else {
    ShowState();
  }
}

void InstrumentController::ShowState() {
  if (!Receiving()) {
    comms_timer_.stop();
    desktop_.view.link_status.clear();
  }
  desktop_.window.Changed(kAllChanged);
}

void InstrumentController::Stop() {
  comms_timer_.stop();
  replay_timer_.stop();
  CloseAllPorts(desktop_.ports);
}

}  // namespace skerrow
