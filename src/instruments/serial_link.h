#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/clock.h"
#include "core/config.h"
#include "core/result.h"
#include "core/serial_ports.h"
#include "instruments/link_watch.h"
#include "instruments/nmea.h"

// The link to the instruments over the serial ports: opening, checking, connecting, receiving.
// Ports are counted from 0 here; the user sees the number after it.
namespace skerrow {

// Baud codes of the serial library, 0 to 9.
inline constexpr std::array<int, 10> kBaudRates = {110,  300,   1200,  2400,  4800,
                                                   9600, 19200, 38400, 57600, 115200};

// AIS receivers talk at 38,400 baud (IEC 61162-2); the settings have no place for another speed.
inline constexpr int kAisBaudCode = 7;

struct GpsType {
  std::string_view text;  // as the lists show it
  int baud_code = 4;
};
// GpsType 1 to 7.
inline constexpr std::array<GpsType, 7> kGpsTypes = {{{"Standard NMEA 0183", 4},
                                                      {"Garmin (NMEA 0183)", 4},
                                                      {"Magellan(NMEA 0183)", 4},
                                                      {"USB 4800 Baud", 4},
                                                      {"USB 9600 Baud", 5},
                                                      {"USB 19200 Baud", 6},
                                                      {"USB 38400 Baud", 7}}};

struct LogInterval {
  std::string_view text;
  std::int16_t seconds = 30;
};
// "GPS Recording Interval".
inline constexpr std::array<LogInterval, 9> kLogIntervals = {{{"5 Secs", 5},
                                                              {"10 Secs", 10},
                                                              {"15 Secs", 15},
                                                              {"30 Secs", 30},
                                                              {"1 Min", 60},
                                                              {"2 Mins", 120},
                                                              {"5 Mins", 300},
                                                              {"10 Mins", 600},
                                                              {"15 Mins", 900}}};

// Ports are looked for from 0 to this one.
inline constexpr int kLastPort = 256;

// The most that is taken from a port at a time, in bytes.
inline constexpr std::size_t kReceiveBlock = 1024;

// The most of an unfinished sentence that is held back from the AIS port's assembly, in bytes.
inline constexpr std::size_t kMostHeldBack = 4096;

// What a box of received text holds before it is emptied, in characters.
inline constexpr std::size_t kMostShownText = 2047;

// The baud code of a GPS type as the settings hold it, "1" to "7"; 4 for any other text.
std::int16_t BaudCodeOfGpsType(std::string_view type);

// The baud code of a rate as typed, such as "4800"; -1 for a rate that there is not.
int BaudCodeOfRate(std::string_view rate);

// The place of an interval in kLogIntervals; that of 30 s for one that is not there.
std::size_t LogIntervalIndex(int seconds);

// The words for a result below 0 of the serial library.
std::string SerialErrorText(int code, const SerialPorts& ports);

// Opens a port for receiving and sending at a speed, with 4096-byte buffers, DTR and RTS raised,
// 8 data bits, no parity and 1 stop bit. The error has the words of SerialErrorText, and the port
// is closed then.
Status OpenPort(SerialPorts& ports, int port, int baud_code);

// Up to 4096 bytes of what has been received; the rest is thrown away.
std::string ReadAllAndClear(SerialPorts& ports, int port);

// The ports that are free. All ports are closed afterwards.
std::vector<int> ScanPorts(SerialPorts& ports);

// The lines of the ports found, "    COM1" and so on.
std::string PortReport(const std::vector<int>& ports);

// Closes all ports. None is opened for it: opening a port would wake what hangs on it.
void CloseAllPorts(SerialPorts& ports);

// Adds received bytes to a box of text, which is emptied first when it holds more than
// kMostShownText characters.
void ShowReceived(std::string& box, std::string_view received);

// The states of the lines of a port and what they are for, a line each.
std::string LineStateReport(SerialPorts& ports, int port);

// What stands above the states of the lines in "Test Configurations".
std::string TestReportHead(int buffer_size, int on_line_code);

// A port as it was when the user connected it: a change of the settings counts from the next time.
struct LinkPort {
  int number = -1;  // -1: not connected
  int baud_code = 4;
  LinkWatch watch{};
  std::size_t blocks = 0;  // that were read of it
};

// The state of the reception.
struct LinkState {
  bool gps_enabled = false;
  bool ais_enabled = false;
  LinkPort gps;
  LinkPort ais;
  int phase = 0;                 // 0: the GPS is read next, 1: the AIS
  std::string block;             // what was read last
  std::size_t positions = 0;     // of NmeaState, when the last of them came
  std::int64_t position_at = 0;  // and when that was
  std::string ais_tail;          // of the AIS port: a sentence whose end has not come yet
};

// Opens the GPS port, and that of the AIS anew where it is connected, and begins to receive. The
// error is the message for a port that is not there or in use; the link is as it was then.
Status ConnectGps(LinkState& link, const AppConfig& config, SerialPorts& ports, std::int64_t now);

// The same for the AIS port. Where the GPS is connected to the AIS, this connects both.
Status ConnectAis(LinkState& link, const AppConfig& config, SerialPorts& ports, std::int64_t now);

// Closes the GPS port. The boat has no position then.
void DisconnectGps(LinkState& link, SerialPorts& ports, GpsFix& fix);

// Closes the AIS port, and with it the GPS that is connected to the AIS.
void DisconnectAis(LinkState& link, const AppConfig& config, SerialPorts& ports, GpsFix& fix);

// One reading step of the reception, due every 75 ms: takes a block from the port whose turn it is,
// decodes it, and opens a port that has died again. `now` is in milliseconds, as in LinkWatch.
// The end of a block cuts no sentence of the AIS port. A position that is older than the silence of
// kGpsQuiet that the user is told of is good no longer: no track and no approach of a vessel is
// worked out from it.
void ReceiveStep(LinkState& link, NmeaState& nmea, const AppConfig& config, SerialPorts& ports,
                 AisSentenceSink& sink, const Clock& clock, std::int64_t now);

// The line of the status bar: what is wrong with the GPS, then with the AIS; empty when all is
// well.
std::string LinkStatusText(const LinkState& link, const AppConfig& config, std::int64_t now);

}  // namespace skerrow
