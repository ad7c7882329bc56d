#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "core/serial_ports.h"
#include "platform/settings_store.h"

// What the dialogs of the link to the instruments know without their widgets: the lists of ports,
// the connection to a GPS or an AIS receiver, and the test of a port.
namespace skerrow {

enum class LinkKind { kGps, kAis };

inline constexpr std::string_view kNoPortSelected = "No comms port selected";
inline constexpr std::string_view kAisCancelled = "AIS connection cancelled.";
inline constexpr std::string_view kAllRatesShown =
    "All rates are now available from the dropdown box";
inline constexpr std::string_view kRawLogFailed = "***** Error in writing Log File *****";
inline constexpr std::string_view kNoSystemInformation =
    "System Information Is Unavailable At This Time";

// What our own store of settings keeps of the instruments.
inline constexpr std::string_view kInstrumentSection = "Instruments";
inline constexpr std::string_view kStandardAisKey = "StandardAis";
inline constexpr std::string_view kAlarmSoundKey = "AlarmSound";
inline constexpr std::string_view kLastLogKey = "LastLog";

inline constexpr const char* kStandardAisCaption = "Standard AIS &decoding";
inline constexpr const char* kStandardAisMeaning =
    "Also shows ships that report while manoeuvring, and leaves out values that a ship does not "
    "know.";

// Takes the choices of our own store into the program, once at its start.
void LoadInstrumentChoices(const SettingsStore& settings, Program& program);

// The rows of a list of ports: those present, and `selected` (from 0) whatever it is. Each begins
// with the port's number.
std::vector<std::string> PortRows(SerialPorts& ports, int selected);
// The row that stands for a port; empty when there is none.
std::string RowOfPort(const std::vector<std::string>& rows, int port);

// The port, from 0, of a row or of a typed number; none for an empty text.
std::optional<std::int16_t> PortOfText(std::string_view text);

// What "GPS Enable" and "AIS Enable" ask.
struct LinkEntry {
  std::string port;          // as in PortRows, or typed
  std::size_t gps_type = 0;  // place in kGpsTypes
  bool save = false;         // "Save data to disk"
  std::string log_name;
  bool standard_ais = false;
};
LinkEntry LinkEntryOf(const Program& program, const SettingsStore& settings, LinkKind kind);

// The speed at which a port of an entry is tested.
int BaudCodeOf(const LinkEntry& entry, LinkKind kind);

// Carries an entry into the program and its settings. What the log before it has not written yet
// is written first. Error: no port; the settings could not be written, and the program goes on with
// them.
enum class LinkRefusal { kNone, kNoPort };
struct LinkOutcome {
  LinkRefusal refusal = LinkRefusal::kNone;
  Status saved = Done{};
};
LinkOutcome CommitLink(Program& program, SettingsStore& settings, const LinkEntry& entry,
                       LinkKind kind, Messages& messages);

// Judges what a port gives while it is tested.
class TestWatch {
 public:
  void Take(std::string_view received);
  // How much has come, and whether it makes sense.
  std::string Text() const;

 private:
  static constexpr std::size_t kMostLine = 256;
  std::string line_;
  std::size_t bytes_ = 0;
  std::size_t sentences_ = 0;
};

// The details of the GPS as "GPS Monitor" shows them.
struct GpsMonitorTexts {
  std::string latitude;   // "50.30.25N"; empty without a position
  std::string longitude;  // "001.20.25W"
  std::string speed;      // knots, "5.2"
  std::string course;     // "271"
  std::string time;       // as received
  std::string cross_track, range, steer, name, destination_latitude, destination_longitude, bearing;
};
GpsMonitorTexts GpsMonitorTextsOf(const NmeaState& nmea);

// A coordinate of a destination, "50°30.25N", in decimal degrees; none for any other form.
std::optional<float> DestinationDegrees(std::string_view text);

// "Save Waypoint to Current File": adds the destination to the current waypoint file and to the
// waypoints in memory. Error: no destination, or why the file could not be written.
Status SaveDestination(Program& program, const Rmb& destination, Messages& messages);

// What was lost of the instruments' data in this run, a line each.
std::string LostReport(const Program& program, const SerialPorts& ports);

}  // namespace skerrow
