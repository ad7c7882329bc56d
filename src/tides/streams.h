#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/clock.h"
#include "core/folders.h"
#include "core/messages.h"
#include "tides/diamond.h"
#include "tides/diamond_index.h"
#include "tides/harmonic_streams.h"
#include "tides/tide_day.h"

// The tidal stream at a place and time, from the nearest diamond and the state of the tide at its
// reference port.
namespace skerrow {

// What is shown of a reference port for the time last refreshed.
struct RefPortState {
  std::vector<std::pair<std::string, std::string>> tides;  // "HH:MM" and metres, one decimal
  std::string hw_time;                                     // "HH:MM"; empty without a tide
  float days_range = 0.0F;                                 // metres
  std::int16_t dep_slot = 0;
  std::int16_t mins_left = 0;
  std::string port_name;
};

// The stream at one diamond for the time last refreshed.
struct TidalStream {
  std::string ref;  // chart number, "-", diamond number
  double latitude = 0.0;
  double longitude = 0.0;
  float direction = 0.0F;      // degrees true
  float direction_rad = 0.0F;  // the same in radians
  float rate = 0.0F;           // knots, one decimal
  // False where there is no high water to count from: nothing is known of a stream that may well
  // run, and rate and direction are 0.
  bool known = true;
};

// The tables of the tidal streams. Diamonds, ports and days are set by the functions below only.
struct TideState {
  std::vector<Diamond> diamonds;     // of the current sea area
  std::vector<Diamond> sl_diamonds;  // of a file chosen by name
  std::vector<std::string> labels;   // of `diamonds`, as DiamondLabel gives them
  std::shared_ptr<const DiamondIndex> index = std::make_shared<DiamondIndex>();
  std::vector<int> port_of_diamond;  // index in ref_ports, -1 when there is none

  std::vector<std::int16_t> ref_ports;      // record numbers in RefPorts.hc
  std::vector<bool> ref_port_charted;       // whether a diamond that the area shows refers to it
  std::vector<std::string> ref_port_names;  // "" for a port that the file does not hold
  TideDays days;
  std::shared_ptr<const DayTides> loaded = std::make_shared<DayTides>();
  std::vector<RefPortState> ref_port_states;
  std::vector<TidalStream> tidal_streams;  // of the revision that streams_revision tells
  // Counts the changes of what tidal_streams is made from.
  std::uint32_t revision = 0;
  std::optional<std::uint32_t> streams_revision;
  bool harmonic_streams_on = false;  // harmonic stations are shown besides the diamonds
  std::vector<HarmonicStation> harmonic_stations;  // of a file, the first not shown on the chart
  std::vector<HarmonicStream> harmonic_streams;    // theirs, for the time last calculated
  std::string reported_problem;  // the last message about the reference ports, shown once
};

// Reads the diamonds of a sea area. When the file cannot be read the table is empty and
// "LoadDiamondsError " with the reason is shown; so it is when broken records are left out.
void LoadDiamonds(TideState& state, const Folders& folders, std::string_view tidal_area,
                  Messages& messages);

// Reads a diamond file of the TS folder by its name, every record of it that is not broken.
void LoadSlDiamonds(TideState& state, const Folders& folders, std::string_view file_name,
                    Messages& messages);

// The same of the file at `path`, wherever it lies.
void LoadSlDiamondFile(TideState& state, const std::string& path, Messages& messages);

// Adds a diamond to those loaded, behind them. Where no reference port of the area is its own,
// nothing is known of its stream.
void AppendDiamond(TideState& state, const Diamond& diamond);

// Finds the reference ports that the sea area's diamonds name. A file that cannot be opened leaves
// them as they were.
void FindRefPorts(TideState& state, const Folders& folders, std::string_view tidal_area);

// Reads RefPorts.hc and builds the heights of the reference ports about a day. A missing or broken
// file, or a port that it does not hold, leaves those ports without a tide and shows one message; a
// missing port that no diamond on the chart refers to is no trouble.
void BuildRefPortHeights(TideState& state, const Folders& folders, DayAndYear date,
                         bool summer_time, Messages& messages);

// Makes a day the loaded one, from the constants already read.
void LoadTideDay(TideState& state, DayAndYear date);

// Recomputes ref_port_states for the loaded day and a time: `hours` when `override_` is set,
// otherwise the clock's hours and minutes.
void RefreshTideState(TideState& state, bool override_, float hours, const ClockReading& now);

// The state of the tide at the reference ports, in their order, at a minute of a day.
std::vector<RefPortState> RefPortStatesAt(const TideState& state, const DayTides& day, int minute);

// Writes the loaded diamonds of a sea area, those from latitude 10 to 70, behind an all-zero record
// to the area's file with "001" in its name, and tells their number and the path, or the failure.
// Whether it has been written.
bool SaveTidalDiamonds(const TideState& state, const Folders& folders, std::string_view tidal_area,
                       Messages& messages);

// One reading of a stream.
struct StreamReading {
  float rate = 0.0F;       // knots
  float direction = 0.0F;  // degrees true towards which it runs
  std::int16_t dep_slot = 0;
  std::int16_t mins_left = 0;
  float days_range = 0.0F;
  std::int32_t diamond = -1;  // index in TideState::diamonds; -1 when none gives the reading
  // The nearest diamond when its reference port has no high water to count from, so that nothing
  // is known of a stream that may well run; -1 otherwise.
  std::int32_t no_tide = -1;
  // Whether the reading has a source at all, be it "NONE"; false until the first one is taken.
  bool taken = false;
};

// The label of a reading: the diamond's, "NONE", or empty when no reading was taken.
std::string StreamLabel(const TideState& state, const StreamReading& reading);

// Why a reading left its result as it came in.
enum class StreamFault { kNone, kDivideByZero };

// Reads streams at any place and time. A reader has its own store of days, so that several can
// work side by side on one TideState, which must outlive them and stay as it is meanwhile.
class StreamReader {
 public:
  explicit StreamReader(const TideState& state) : state_(&state), days_(state.days) {}

  // CalculateTidalStreams: the stream at a position. With no diamonds, or with equal spring and
  // neap ranges at the nearest, `reading` stays as it came in. Where the nearest diamond is more
  // than 30 nm away rate and direction are 0; where its reference port has no high water near the
  // time they are 0 too, and `no_tide` names the diamond.
  StreamFault CalculateTidalStreams(Position position, float hours, DayAndYear date,
                                    StreamReading& reading);

  // CalcDaysStream: the stream at one diamond, which need not be in the table; no slack rule. A
  // reference port that is not in use gives rate and direction 0.
  StreamFault CalcDaysStream(const Diamond& diamond, float hours, DayAndYear date,
                             StreamReading& reading);

  const TideState& state() const { return *state_; }

 private:
  const DayTides& Day(DayAndYear date);

  const TideState* state_;
  TideDays days_;
  std::shared_ptr<const DayTides> day_;
};

// Why these diamonds gave no stream: a line for each of their reference ports with the diamonds
// that refer to it, such as "no high water at Dover (diamond 2045, 7)".
std::string NoTideText(const TideState& state, const std::vector<std::int32_t>& diamonds);

// The text shown for a fault of `operation`.
std::string StreamFaultText(std::string_view operation);

// What a diamond is called in the stream table: chart number, "-", diamond number, cut to 10
// characters.
std::string StreamRef(const Diamond& diamond);

// The stream at every diamond for the state last refreshed, into `tidal_streams`. A diamond with
// equal spring and neap ranges shows a message and ends the filling. Gives the number of diamonds.
int CalculateTidalStreamTable(TideState& state, Messages& messages);

// Does that only where `tidal_streams` is not that of the state as it stands.
void UpdateTidalStreams(TideState& state, Messages& messages);

}  // namespace skerrow
