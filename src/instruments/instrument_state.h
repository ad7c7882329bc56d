#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "core/position.h"

// What the instruments have told: the boat, the vessels round it, and the tracks of both.
namespace skerrow {

// A fix that the decoders have made ready.
struct WaitingFix {
  Position position;
  float speed = 0.0F;   // knots over the ground
  float course = 0.0F;  // degrees true over the ground
  std::string date_text;
  std::string time_text;
};

// What a port has sent and no decoder has taken yet.
struct ReceivedText {
  std::string waiting;
  std::size_t lost = 0;  // bytes that found no room
};
inline constexpr std::size_t kMostWaitingText = 65536;

// The boat by its latest fix.
struct BoatState {
  Position position;                  // BoatLatitude and BoatLongitude; latitude 0: no position yet
  bool fix_valid = false;             // the fix is good at this moment
  float speed = 0.0F;                 // knots over the ground
  float course = 0.0F;                // degrees true over the ground
  std::optional<WaitingFix> new_fix;  // not used yet
  std::vector<Position> future_positions;

  bool HasPosition() const { return position.latitude != 0.0F; }
};

// A recorded or entered position of a track, with the remark made there.
struct PlotPoint {
  Position position;
  std::string comment;
};
using PlotTrack = std::vector<PlotPoint>;

// Tracks on the chart: the boat's own and those of files.
struct TrackState {
  bool plot_on = false;
  PlotTrack live;
  std::vector<PlotTrack> historical;
};

// The vessels around.
struct AisState {
  // The vessel pointed out by the list of targets.
  std::optional<Position> mark;
};

}  // namespace skerrow
