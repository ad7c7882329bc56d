#include "instruments/serial_link.h"

#include <algorithm>

#include "core/numbers.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr std::size_t kPortBuffer = 4096;
constexpr std::size_t kProbeBuffer = 1024;
constexpr int kSystemError = -103;
constexpr int kNoData = -100;
constexpr int kNotOpen = -3;
constexpr int kNoSuchPort = -1;
constexpr std::string_view kLineEnd = "\r\n";

struct ErrorWords {
  int code;
  std::string_view text;
};
constexpr std::array<ErrorWords, 12> kErrorWords = {{{-106, "Cannot start thread"},
                                                     {-105, "Cannot allocate memory for buffers"},
                                                     {-101, "Parameter out of range"},
                                                     {kNoData, "No data"},
                                                     {-12, "Unsupported baud rate"},
                                                     {-11, "Unsupported byte size"},
                                                     {-10, "Hardware not present"},
                                                     {-5, "Error in default parameters"},
                                                     {-4, "Unable to allocate memory"},
                                                     {kNotOpen, "Cannot open COM port"},
                                                     {-2, "COM port already open"},
                                                     {kNoSuchPort, "Invalid COM port name"}}};

// Both calls of a failed set-up end here.
Status Refuse(SerialPorts& ports, int port, int code) {
  const Error error{"", SerialErrorText(code, ports)};
  ports.Done(port);
  return error;
}

bool PortIsFree(SerialPorts& ports, int port) {
  const bool is_free = ports.Reset(port, kProbeBuffer, kProbeBuffer) > -1;
  ports.Done(port);
  return is_free;
}

// `name` is empty for a line whose errors carry none.
void AddLine(std::string& report, std::string_view name, int state, std::string_view on_0,
             std::string_view on_1) {
  if (state == 0 || state == 1) {
    report.append(state == 0 ? on_0 : on_1);
  } else {
    report.append(name).append(state == kNoSuchPort ? " Port Doesnt exist" : " Port Not Open");
  }
  report.append(kLineEnd);
}

// Opens a port afresh; on failure it is closed.
bool Reopen(SerialPorts& ports, int port, int baud_code) {
  if (!PortIsFree(ports, port)) return false;
  return OpenPort(ports, port, baud_code).ok();
}

Error PortRefused(std::string_view name, int port, std::string_view menu) {
  return {"", "The Comm Port " + std::to_string(port + 1) + " requested for the " +
                  std::string(name) + " does not exist or is in use.\r\nUse the " +
                  std::string(menu) + " menu to see what available ports are on this PC."};
}

// Opens anew a port that is connected; one that fails now is tried again as it is after a loss.
void OpenAgain(LinkPort& port, SerialPorts& ports, std::int64_t now) {
  LinkConnected(port.watch, now);
  if (!Reopen(ports, port.number, port.baud_code)) LinkLost(port.watch, now);
}

void Close(LinkPort& port, SerialPorts& ports) {
  if (port.number >= 0) ports.Done(port.number);
  port = LinkPort();
}

// The boat is nowhere once nobody tells its place.
void ForgetPosition(GpsFix& fix) {
  fix.position_text.clear();
  fix.course_speed_text.clear();
  fix.waypoint_text.clear();
  fix.boat_latitude = 0.0F;
  fix.boat_longitude = 0.0F;
  fix.position_good = false;
}

// Serves one port: reads a block of it, or opens it again when it is time. False when it has died:
// the rest of what it was saying will not come.
template <typename Take>
bool Serve(LinkPort& port, const QuietLimits& limits, SerialPorts& ports, std::string& block,
           std::int64_t now, Take take) {
  if (port.watch.phase == LinkPhase::kReconnecting) {
    if (ReopenDue(port.watch, now)) {
      LinkReopened(port.watch, now, Reopen(ports, port.number, port.baud_code));
    }
    return true;
  }
  block.clear();
  const int count = ports.Get(port.number, block, kReceiveBlock);
  if (count > 0) {
    ++port.blocks;
    LinkHeard(port.watch, now);
    take(std::string_view(block).substr(0, static_cast<std::size_t>(count)));
  } else if ((count < 0 && count != kNoData) || LinkHangs(port.watch, limits, now)) {
    ports.Done(port.number);
    LinkLost(port.watch, now);
    return false;
  }
  return true;
}

// Passes on what ends with a whole sentence and holds back the rest, since the assembly of the AIS
// port loses a sentence that the end of a block cuts.
void TakeAisBlock(LinkState& link, NmeaState& nmea, std::string_view block, const AisDoor& door) {
  link.ais_tail += block;
  std::size_t whole = link.ais_tail.rfind('\r') + 1;  // 0 without one
  if (link.ais_tail.size() - whole > kMostHeldBack) whole = link.ais_tail.size();
  AssembleAisBlock(nmea, std::string_view(link.ais_tail).substr(0, whole), door);
  link.ais_tail.erase(0, whole);
}

}  // namespace

std::int16_t BaudCodeOfGpsType(std::string_view type) {
  const std::int64_t number = RoundToInteger(TextToNumber(type));
  const bool listed = number >= 1 && number <= static_cast<std::int64_t>(kGpsTypes.size());
  return static_cast<std::int16_t>(
      kGpsTypes[listed ? static_cast<std::size_t>(number - 1) : 0].baud_code);
}

int BaudCodeOfRate(std::string_view rate) {
  const auto* const found =
      std::find(kBaudRates.begin(), kBaudRates.end(), RoundToInteger(TextToNumber(rate)));
  return found == kBaudRates.end() ? -1 : static_cast<int>(found - kBaudRates.begin());
}

std::size_t LogIntervalIndex(int seconds) {
  constexpr std::size_t kHalfMinute = 3;
  for (std::size_t i = 0; i < kLogIntervals.size(); ++i) {
    if (kLogIntervals[i].seconds == seconds) return i;
  }
  return kHalfMinute;
}

std::string SerialErrorText(int code, const SerialPorts& ports) {
  if (code == kSystemError) return ports.LastErrorText();
  for (const ErrorWords& words : kErrorWords) {
    if (words.code == code) return std::string(words.text);
  }
  return "Error code " + std::to_string(code);
}

Status OpenPort(SerialPorts& ports, int port, int baud_code) {
  if (const int opened = ports.Reset(port, kPortBuffer, kPortBuffer); opened < 0) {
    return Refuse(ports, port, opened);
  }
  // A port at another speed would give nothing but noise.
  if (const int set = ports.SetBaud(port, baud_code); set < 0) return Refuse(ports, port, set);
  ports.SetLine(port, SerialPorts::OutLine::kDtr, true);
  ports.SetLine(port, SerialPorts::OutLine::kRts, true);
  if (const int set = ports.SetParameters(port); set < 0) return Refuse(ports, port, set);
  ports.ClearReceived(port);
  ports.ClearSending(port);
  return Done{};
}

std::string ReadAllAndClear(SerialPorts& ports, int port) {
  std::string received;
  const int count = ports.Get(port, received, kPortBuffer);
  ports.ClearReceived(port);
  received.resize(std::min(received.size(), static_cast<std::size_t>(std::max(count, 0))));
  return received;
}

std::vector<int> ScanPorts(SerialPorts& ports) {
  std::vector<int> found;
  for (int port = 0; port <= kLastPort; ++port) {
    if (PortIsFree(ports, port)) found.push_back(port);
  }
  return found;
}

std::string PortReport(const std::vector<int>& ports) {
  std::string report;
  for (const int port : ports) {
    report.append("    COM").append(std::to_string(port + 1)).append(kLineEnd);
  }
  return report;
}

void CloseAllPorts(SerialPorts& ports) {
  for (int port = 0; port <= kLastPort; ++port) ports.Done(port);
}

void ShowReceived(std::string& box, std::string_view received) {
  const auto characters =
      std::count_if(box.begin(), box.end(), [](char c) { return (c & 0xC0) != 0x80; });
  if (static_cast<std::size_t>(characters) > kMostShownText) box.clear();
  box += FromAnsi(received);
}

std::string LineStateReport(SerialPorts& ports, int port) {
  using In = SerialPorts::InLine;
  using Out = SerialPorts::OutLine;
  std::string report;
  AddLine(report, "DCD", ports.ReadLine(port, In::kDcd), "DCD Status = CLEAR(Pin 1-IN)",
          "DCD Status = SET (Pin 1-IN)");
  AddLine(report, "", ports.ReadOutLine(port, Out::kDtr), "DTR Status = CLEAR(Pin 4-OUT)",
          "DTR Status = SET (Pin 4-OUT)");
  AddLine(report, "DSR", ports.ReadLine(port, In::kDsr), "DSR Status = CLEAR(Pin 6-IN)",
          "DSR Status = SET (Pin 6-IN)");
  AddLine(report, "RTS", ports.ReadOutLine(port, Out::kRts), "RTS Status = CLEAR(Pin 7-OUT)",
          "RTS Status = SET (Pin 7-OUT)");
  AddLine(report, "CTS", ports.ReadLine(port, In::kCts), "CTS Status = CLEAR(Pin 8-IN)",
          "CTS Status = SET (Pin 8-IN)");
  AddLine(report, "RI", ports.ReadLine(port, In::kRi), "RI Status = CLEAR(Pin 9-IN)",
          "RI Status = SET (Pin 9-IN)");
  report += "Data In to PC PIN 2\r\nData Out of PC PIN 3\r\nSignal ground PIN 5\r\n";
  return report;
}

std::string TestReportHead(int buffer_size, int on_line_code) {
  return "Buffer size = " + std::to_string(buffer_size) +
         "\r\nGo On Line Code=" + std::to_string(on_line_code) + "\r\n";
}

Status ConnectGps(LinkState& link, const AppConfig& config, SerialPorts& ports, std::int64_t now) {
  if (!Reopen(ports, config.gps_port, config.gps_baud_code)) {
    return PortRefused("GPS", config.gps_port, "Configure GPS");
  }
  link.gps = {config.gps_port, config.gps_baud_code};
  LinkConnected(link.gps.watch, now);
  if (link.ais_enabled) {
    link.ais_tail.clear();
    OpenAgain(link.ais, ports, now);
  }
  link.gps_enabled = true;
  link.phase = 0;
  return Done{};
}

Status ConnectAis(LinkState& link, const AppConfig& config, SerialPorts& ports, std::int64_t now) {
  if (!Reopen(ports, config.ais_port, kAisBaudCode)) {
    return PortRefused("AIS", config.ais_port, "Configure GPS/AIS");
  }
  link.ais = {config.ais_port, kAisBaudCode};
  LinkConnected(link.ais.watch, now);
  link.ais_tail.clear();
  link.ais_enabled = true;
  if (config.gps_through_ais != 0) {
    Close(link.gps, ports);
    link.gps_enabled = true;
  } else if (link.gps.number >= 0) {
    OpenAgain(link.gps, ports, now);
  }
  link.phase = 0;
  return Done{};
}

void DisconnectGps(LinkState& link, SerialPorts& ports, GpsFix& fix) {
  Close(link.gps, ports);
  link.gps_enabled = false;
  ForgetPosition(fix);
}

void DisconnectAis(LinkState& link, const AppConfig& config, SerialPorts& ports, GpsFix& fix) {
  Close(link.ais, ports);
  link.ais_enabled = false;
  link.ais_tail.clear();
  if (config.gps_through_ais != 0) DisconnectGps(link, ports, fix);
}

void ReceiveStep(LinkState& link, NmeaState& nmea, const AppConfig& config, SerialPorts& ports,
                 AisSentenceSink& sink, const Clock& clock, std::int64_t now) {
  const bool through_ais = config.gps_through_ais != 0;
  if (link.phase == 0 && link.gps_enabled && link.gps.number >= 0 && !through_ais) {
    if (!Serve(link.gps, kGpsQuiet, ports, link.block, now,
               [&](std::string_view block) { AssembleGpsBlock(nmea, block, clock); })) {
      nmea.gps_line.clear();
      nmea.gps_in_sentence = false;
    }
  }
  if (link.phase == 1 && link.ais_enabled) {
    if (!Serve(link.ais, through_ais ? kGpsQuiet : kAisQuiet, ports, link.block, now,
               [&](std::string_view block) {
                 TakeAisBlock(link, nmea, block, {sink, clock, through_ais});
               })) {
      link.ais_tail.clear();
    }
  }
  link.phase = 1 - link.phase;
  if (nmea.positions != link.positions) {
    link.positions = nmea.positions;
    link.position_at = now;
  } else if (link.gps_enabled && now - link.position_at >= kGpsQuiet.told) {
    nmea.fix.position_good = false;
  }
}

std::string LinkStatusText(const LinkState& link, const AppConfig& config, std::int64_t now) {
  const bool through_ais = config.gps_through_ais != 0;
  std::string text = through_ais ? "" : LinkText(link.gps.watch, kGpsQuiet, "GPS", now);
  const std::string ais = LinkText(link.ais.watch, through_ais ? kGpsQuiet : kAisQuiet,
                                   through_ais ? "AIS/GPS" : "AIS", now);
  if (!text.empty() && !ais.empty()) text += "  ";
  return text + ais;
}

}  // namespace skerrow
