#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/serial_ports.h"

namespace skerrow::testing {

// Ports that note what is asked of them. Only those in `there` exist.
class FakePorts final : public SerialPorts {
 public:
  int Reset(int port, std::size_t receive, std::size_t transmit) override {
    Note("reset " + std::to_string(receive) + " " + std::to_string(transmit), port);
    return there.count(port) != 0 ? there[port] : -10;
  }
  int SetBaud(int port, int code) override {
    Note("baud " + std::to_string(code), port);
    return baud_result;
  }
  int SetParameters(int port) override { return Note("8N1", port), parameters_result; }
  int SetLine(int port, OutLine line, bool raised) override {
    return Note(std::string(line == OutLine::kDtr ? "DTR" : "RTS") + (raised ? " on" : " off"),
                port);
  }
  int ReadLine(int, InLine line) override { return in_lines[line]; }
  int ReadOutLine(int, OutLine line) override { return out_lines[line]; }
  int Get(int port, std::string& received, std::size_t most) override {
    ++reads[port];
    if (there.count(port) == 0) return -1;
    if (text[port].empty()) return nothing;
    received = text[port].substr(0, most);
    text[port].erase(0, most);
    return static_cast<int>(received.size());
  }
  int Put(int port, std::string_view bytes) override {
    sent[port] += bytes;
    return put_result;
  }
  int ClearReceived(int port) override {
    text[port].clear();
    return Note("clear received", port);
  }
  int ClearSending(int port) override { return Note("clear sending", port); }
  void Done(int port) override { Note("done", port); }
  std::string LastErrorText() const override { return "Permission denied"; }

  int Note(const std::string& call, int port) {
    calls.push_back(call + " @" + std::to_string(port));
    return 0;
  }
  std::vector<std::string> Calls() { return std::exchange(calls, {}); }

  std::map<int, int> there = {{0, 0}, {1, 0}};  // and what a reset of them gives
  std::map<int, std::string> text;              // that waits to be read
  std::map<int, std::string> sent;
  std::map<int, int> reads;
  std::map<InLine, int> in_lines;
  std::map<OutLine, int> out_lines;
  int baud_result = 0, parameters_result = 0, put_result = 0;
  int nothing = 0;  // what Get gives when nothing has come
  std::vector<std::string> calls;
};

}  // namespace skerrow::testing
