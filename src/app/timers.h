#pragma once

#include <optional>
#include <string>

#include "app/program.h"

// The work of the four timers, as plain functions. What they need of the window and of the
// instruments comes through two interfaces.
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

// The instruments, as the timers see them.
class TimerInstruments {
 public:
  virtual ~TimerInstruments() = default;
  // Reads a block from a port and passes it to the assembly of its lines.
  virtual void FeedGps() = 0;
  virtual void FeedAis() = 0;
  // The fix that waits to be used; looking does not take it away.
  virtual std::optional<WaitingFix> NewFix() const = 0;
  virtual void AppendTrackPoint(const WaitingFix& fix) = 0;
  virtual void ComputeClosestApproaches() = 0;
  // Writes a log record and clears the marks of the sentences seen.
  virtual void WriteLogRecord() = 0;
  // Feeds the next line of the replay file to the decoders.
  virtual void ReplayNextLine() = 0;
};

// A second of the clock: once a minute the selected time follows it, unless the user has set the
// time, reception is on (`comms_running`) or a log is replayed.
void Timer1Tick(Program& program, bool comms_running, TimerWindow& window);

// A tick of the reception, 75 ms. The caller keeps it from overlapping itself.
void CommsTick(Program& program, TimerWindow& window, TimerInstruments& instruments);

// A line of a replay.
void ReplayTick(Program& program, TimerWindow& window, TimerInstruments& instruments);

// Three points of the calculated track, forward or back. False when the animation has stopped.
bool AnimateTick(Program& program, TimerWindow& window);

// Makes the time of the track point at the animation's index, which there must be, the selected
// one, with its label.
void ShowTrackPoint(Program& program, TimerWindow& window);

// Whether `boat` lies in the middle third of the visible chart on both axes.
bool InMiddleThird(const VisibleChart& visible, Position boat);

}  // namespace skerrow
