#pragma once

#include <optional>
#include <string>

#include "app/program.h"
#include "core/messages.h"
#include "core/serial_ports.h"

// The work of the timers, as plain functions. What they need of the window comes through an
// interface, and ports are those passed in.
namespace skerrow {

// Intervals in milliseconds. The replay's is set in its dialog.
inline constexpr int kTimer1Interval = 1000;
inline constexpr int kCommsInterval = 75;
inline constexpr int kAnimateInterval = 500;

// The part of the chart that can be seen.
struct VisibleChart {
  float south = 0.0F, north = 0.0F, west = 0.0F, east = 0.0F;
};

// The main window, as the timers see it.
class TimerWindow {
 public:
  virtual ~TimerWindow() = default;
  virtual bool Minimised() const = 0;
  virtual void Repaint() = 0;
  virtual void ServeEvents() = 0;
  // The readout of the cursor and the boat.
  virtual void ShowReadout() = 0;
  // "ETA : " with the time, in status panel 3.
  virtual void ShowEta(const std::string& text) = 0;
  virtual void LocatePoint(Position position) = 0;
  virtual std::optional<VisibleChart> Visible() const = 0;
};

// A second of the clock: once a minute the selected time follows it, unless the user has set the
// time, reception is on (`comms_running`) or a log is replayed.
void Timer1Tick(Program& program, bool comms_running, TimerWindow& window);

// A tick of the reception, 75 ms: a block from the port whose turn it is goes through the decoders,
// the time follows the clock, a fix becomes a track point, the vessels' closest approaches are
// worked out, the boat is kept in view and the log is kept. A tick that begins while another serves
// events does nothing. `now` is in milliseconds of a clock that never goes back.
void CommsTick(Program& program, TimerWindow& window, SerialPorts& ports, Messages& messages,
               std::int64_t now);

// A tick of the replay: its next line goes through the decoders. What ends it is shown.
void ReplayStepOf(Program& program, TimerWindow& window, Messages& messages);

// Three points of the calculated track, forward or back. False when the animation has stopped.
bool AnimateTick(Program& program, TimerWindow& window);

// Makes the time of the track point at the animation's index, which there must be, the selected
// one, with its label.
void ShowTrackPoint(Program& program, TimerWindow& window);

// Whether `boat` lies in the middle third of the visible chart on both axes.
bool InMiddleThird(const VisibleChart& visible, Position boat);

}  // namespace skerrow
