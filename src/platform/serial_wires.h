#pragma once

#include <array>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

#include "core/serial_ports.h"
#include "platform/port_numbers.h"
#include "platform/serial.h"

// The wires behind the numbered calls of platform/serial: a serial device, a TCP connection or a
// UDP port, each in a thread of its own, and what the calls and that thread share.
namespace skerrow {

// Results of the calls.
inline constexpr int kFine = 0;
inline constexpr int kNoSuchPort = -1;
inline constexpr int kInUse = -2;
inline constexpr int kNotOpen = -3;
inline constexpr int kNotPresent = -10;
inline constexpr int kWrongRate = -12;
inline constexpr int kSystemError = -103;
inline constexpr int kNoRoom = -105;

// Lines of a serial device: DCD, DSR, CTS, RI, then DTR, RTS, which the program raises.
inline constexpr int kLines = 6;
inline constexpr int kFirstOutLine = 4;

// A wire, in its thread.
class Wire {
 public:
  virtual ~Wire() = default;
  // Runs `work` in the thread, later; may be called from any thread. False when it is ending.
  virtual bool Later(std::function<void()> work) = 0;
  // Sets the speed [baud], and the form of a byte; one of the results above.
  virtual int SetRate(int rate) = 0;
  virtual int SetForm() = 0;
  // False for a wire without that line.
  virtual bool SetOutLine(SerialPorts::OutLine line, bool raised) = 0;
  // Sends what waits, a piece at a time.
  virtual void Send() = 0;
  // Forgets what the device has not sent yet.
  virtual void DropSending() = 0;
  // Nobody wants the port any more.
  virtual void Release() = 0;
  // Closes the port at once.
  virtual void Leave() = 0;
};

// kLinger: nobody wants the port any more, but the connection still stands.
enum class WireStage { kOpening, kOpen, kLinger, kDead, kClosed };

// What the calls and the thread of a port share. Guarded by `mutex`.
struct WireState {
  std::mutex mutex;
  std::condition_variable changed;
  WireStage stage = WireStage::kOpening;
  bool wanted = true;  // the port has not been closed by a call
  int code = kFine;    // of a port that is dead
  std::string reason;
  std::string received;
  std::size_t room = kPortRoom;
  std::size_t lost = 0;
  std::string sending;
  std::size_t sending_room = 0;
  std::array<bool, kLines> lines{};
  Wire* wire = nullptr;  // null before the thread is ready and after its end
};

// Runs `work` in the thread of a port, later. False when there is none.
bool Post(WireState& state, std::function<void(Wire&)> work);

// Serves a port until it is closed or dies; called in the thread that is to be its own.
void ServeWire(const std::shared_ptr<WireState>& state, PortKind kind, const std::string& place);

}  // namespace skerrow
