#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

// The commands of the main window, each one row of a table. Menus, toolbars, the pop-up menu and
// the keys name them; where they stand is told elsewhere.
namespace skerrow {

struct Context;

// What a command needs to be of use. An action is enabled when all its needs are met.
enum Need : std::uint32_t {
  kNoNeed = 0,
  kNeedsPoint = 1U << 0,  // a route point
  kNeedsRoute = 1U << 1,  // a leg
  kNeedsThreePoints = 1U << 2,
  kNeedsTrack = 1U << 3,  // a calculated track
  kNeedsUndo = 1U << 5,
  kNeedsRedo = 1U << 6,
  kNeedsStreams = 1U << 7,           // streams shown
  kNeedsTools = 1U << 8,             // the tools menu shown
  kNeedsMob = 1U << 9,               // a man-overboard position
  kNeedsPlaces = 1U << 10,           // a chart with a calibration
  kNeedsHarmonicStreams = 1U << 11,  // a file of harmonic stations for the sea area
  kNeedsTargets = 1U << 12,          // AIS reception or a replay
  kNeedsTargetsShown = 1U << 13,     // and its vessels on the chart
  kNeedsBoat = 1U << 14,             // GPS reception or a replay
  kNeedsGpsOff = 1U << 16,           // neither the GPS connected nor a log replayed
  kNeedsGpsOn = 1U << 17,
  kNeedsAisOff = 1U << 18,  // neither the AIS connected nor a log replayed
  kNeedsAisOn = 1U << 19,
  kNeedsNoReplay = 1U << 20,
  kNeedsQuiet = 1U << 21,          // neither a reception nor a replay
  kNeedsReplay = 1U << 22,         // running, paused or at its end
  kNeedsGpsText = 1U << 23,        // GPS reception or a replay
  kNeedsAisText = 1U << 24,        // AIS reception or a replay
  kNeedsLog = 1U << 25,            // a log being written
  kNeedsPlot = 1U << 26,           // a track on the chart
  kNeedsGpsPort = 1U << 27,        // a GPS at a port of its own
  kNeedsDemonstration = 1U << 28,  // what kNeedsQuiet says, or the demonstration itself
};

struct Command {
  std::string_view name;     // "mnucalcrte"; also the name of its action
  std::string_view caption;  // with the mnemonic's "&"
  std::string_view icon;     // of src/ui/icons; may be empty
  std::string_view tip;      // what it does, for the tool tip and the status bar; may be empty
  std::string_view key;      // as the tool tip and the menu show it; the key table binds it
  std::uint32_t needs = kNoNeed;
  // Null: the subsystem is not there yet, and the command stands disabled.
  void (*run)(Context&) = nullptr;
  // The check mark; null for commands that have none.
  bool (*checked)(const Context&) = nullptr;
  // Whether the command is offered at all; null: always.
  bool (*shown)(const Context&) = nullptr;
};

// The rows by subject.
std::span<const Command> FileCommands();
std::span<const Command> ChartCommands();
std::span<const Command> ChartImportCommands();
std::span<const Command> ChartToolCommands();
std::span<const Command> RouteCommands();
std::span<const Command> TimeCommands();
std::span<const Command> WaypointCommands();
std::span<const Command> ViewCommands();
std::span<const Command> TideCommands();
std::span<const Command> StreamCommands();
std::span<const Command> DriftCommands();
std::span<const Command> WindCommands();
std::span<const Command> HelpCommands();
std::span<const Command> GpsCommands();
std::span<const Command> AisCommands();
std::span<const Command> TrackCommands();
std::span<const Command> ExchangeCommands();
// What belongs to subsystems that are not there yet.
std::span<const Command> LaterCommands();

// All rows.
std::vector<const Command*> AllCommands();

// The row of a name; null when there is none.
const Command* FindCommand(std::string_view name);

}  // namespace skerrow
