#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/result.h"

// Which number belongs to which port: a small file in the settings folder, so that a device keeps
// its number when it is plugged in again, wherever that is.
namespace skerrow {

enum class PortKind {
  kDevice,  // found by the system
  kPath,    // a device that the user has named by its path
  kTcp,
  kUdp,
};

// A serial device that the system shows now.
struct SeenDevice {
  std::string path;  // "/dev/ttyUSB0"
  std::string
      identity;       // maker, model and serial number where the device tells them, else its name
  std::string about;  // "u-blox 7"; may be empty
};

struct NumberedPort {
  int number = 1;  // as the user sees it
  PortKind kind = PortKind::kDevice;
  std::string place;     // path, "host:port" of TCP, "port" or "address:port" of UDP
  std::string identity;  // of a device
  std::string about;
  bool present = false;

  friend bool operator==(const NumberedPort&, const NumberedPort&) = default;
};

// Numbers that are given: 1 to this one.
inline constexpr int kLastPortNumber = 257;

// Splits what the user typed for a source into kind and place: "TCP host:port", "UDP port", "UDP
// address:port", or the path of a device. Error: what a source looks like.
Result<NumberedPort> ParseSource(std::string_view typed);

// "TCP host:port", "UDP port" or the path: what ParseSource takes.
std::string SourcePlace(const NumberedPort& port);

// "1  ttyUSB0 (u-blox 7)", "2  TCP 192.168.1.5:10110".
std::string SourceText(const NumberedPort& port);

// The numbers by their file. It is read anew before each change, since another run of the program
// may have written it; one that is damaged is kept aside under another name. Without a file they
// hold for this run.
class PortNumbers {
 public:
  explicit PortNumbers(std::string file) : file_(std::move(file)) {}

  // Gives each device its number, in their order, and says which ports are present. Error: the file
  // could not be written; the numbers hold for this run all the same.
  Status Match(const std::vector<SeenDevice>& devices);

  // Gives a source of the user's its number; one that is known keeps its own.
  Result<int> Add(const NumberedPort& source);

  // Forgets a source that is not a device present now.
  Status Remove(int number);

  // By number.
  const std::vector<NumberedPort>& ports() const { return ports_; }
  const NumberedPort* Find(int number) const;

 private:
  void Read();
  Status Write() const;
  // The lowest number that is free; 0 when there is none.
  int NextNumber() const;
  void Insert(NumberedPort port);

  std::string file_;
  std::vector<NumberedPort> ports_;
};

}  // namespace skerrow
