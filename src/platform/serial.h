#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/serial_ports.h"

namespace skerrow {

// The file of the port numbers in the settings folder.
inline constexpr const char* kPortNumbersFile = "PortNumbers.txt";

// Holds what a port has received until it is taken, in bytes: 17 s of the fastest AIS receiver, so
// that nothing is lost while a window is busy. Of more the oldest goes: a position that comes late
// is worse than one that is missing.
inline constexpr std::size_t kPortRoom = 65536;

// The longest that a call waits for a port, in milliseconds.
inline constexpr int kLongestWait = 400;

// Serial devices and network sources by their numbers, which stand in a file in
// `settings_folder`, or hold for this run where that is empty. `devices` are paths of devices that
// the system does not list, such as pseudo-terminals; those named in the environment variable
// SKERROW_PORTS, parted by ":", are added to them.
//
// Each open port has a thread of its own for its input and output, so that a device that hangs
// holds up neither the caller nor another port. A TCP server is held for a second after it is
// closed: the check of a port before its use opens it twice, and a multiplexer that serves one
// client would refuse the second. A port of UDP without an address listens on all of the
// computer's, since the boxes on boats broadcast to their network, and only a socket bound to no
// address hears a broadcast.
std::unique_ptr<SerialPorts> OpenSerialPorts(const std::string& settings_folder,
                                             const std::vector<std::string>& devices = {});

}  // namespace skerrow
