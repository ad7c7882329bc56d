#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/result.h"

namespace skerrow {

// A port that is known by its number, for the lists of the dialogs.
struct PortSource {
  int port = 0;          // counted from 0
  std::string text;      // "1  ttyUSB0 (u-blox 7)", with the number as the user sees it
  std::string place;     // path of the device, "TCP host:port" or "UDP port"
  bool present = false;  // a network source always is
  bool added = false;    // by the user, who can take it away again
};

// The serial ports and the network sources that take their place, by numbers counted from 0. Calls
// return at once; those that give a number are below 0 on failure.
class SerialPorts {
 public:
  // Lines that can be raised, and those that can be read.
  enum class OutLine { kDtr, kRts };
  enum class InLine { kDcd, kDsr, kCts, kRi };

  virtual ~SerialPorts() = default;

  // Opens or resets a port with buffers of those sizes [bytes]; above -1 when the port exists and
  // is free.
  virtual int Reset(int port, std::size_t receive_size, std::size_t transmit_size) = 0;
  // Sets the speed by its code: 0 to 9 for 110, 300, 1200, 2400, 4800, 9600, 19200, 38400, 57600
  // and 115200 baud.
  virtual int SetBaud(int port, int baud_code) = 0;
  // No parity, one stop bit, eight data bits.
  virtual int SetParameters(int port) = 0;
  // Raises or lowers a line.
  virtual int SetLine(int port, OutLine line, bool raised) = 0;
  // 1 set, 0 clear, -1 no such port, -3 not open.
  virtual int ReadLine(int port, InLine line) = 0;
  // The same of a line that the program raises itself.
  virtual int ReadOutLine(int port, OutLine line) = 0;
  // Takes what has been received, at most `most` bytes; the count, 0 or below for nothing.
  virtual int Get(int port, std::string& received, std::size_t most) = 0;
  // Gives bytes to be sent; below 0 when they are not taken.
  virtual int Put(int port, std::string_view bytes) = 0;
  // Forgets what waits to be read, or to be sent.
  virtual int ClearReceived(int port) = 0;
  virtual int ClearSending(int port) = 0;
  // Closes a port; one that is not open is no error.
  virtual void Done(int port) = 0;
  // The system's words for what went wrong last; empty when nothing did.
  virtual std::string LastErrorText() const = 0;

  // The ports known, present ones and others, by number.
  virtual std::vector<PortSource> Sources() { return {}; }
  // Gives a number to a source: "TCP host:port", "UDP port", "UDP address:port" or the path of a
  // device. One that is known keeps its own. The port, or why there is none.
  virtual Result<int> AddSource(std::string_view) { return Error{"", "there are no ports here"}; }
  // Forgets a source that the user has added, or a device that is not present.
  virtual Status RemoveSource(int) { return Error{"", "there are no ports here"}; }
  // Bytes of a port that were thrown away since it was opened, because nobody took them in time.
  virtual std::size_t Lost(int) const { return 0; }
};

// A machine without ports.
class NoSerialPorts final : public SerialPorts {
 public:
  int Reset(int, std::size_t, std::size_t) override { return -1; }
  int SetBaud(int, int) override { return -1; }
  int SetParameters(int) override { return -1; }
  int SetLine(int, OutLine, bool) override { return -1; }
  int ReadLine(int, InLine) override { return -1; }
  int ReadOutLine(int, OutLine) override { return -1; }
  int Get(int, std::string&, std::size_t) override { return -1; }
  int Put(int, std::string_view) override { return -1; }
  int ClearReceived(int) override { return -1; }
  int ClearSending(int) override { return -1; }
  void Done(int) override {}
  std::string LastErrorText() const override { return ""; }
};

}  // namespace skerrow
