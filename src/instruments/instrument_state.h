#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/position.h"
#include "instruments/ais_alarm.h"
#include "instruments/ais_decoder.h"
#include "instruments/ais_targets.h"

// What the instruments have told of others, and the tracks of earlier voyages.
namespace skerrow {

// An entered or earlier position of a track, with the remark made there.
struct PlotPoint {
  Position position;
  std::string comment;
};
using PlotTrack = std::vector<PlotPoint>;

// The vessels around, and what their sentences are put together with.
struct AisState {
  AisTargets targets;
  AisAssembly assembly;
  AisDecoderOptions options;
  CpaAlarm alarm;
  // The vessel pointed out by the list of targets.
  std::optional<Position> mark;
};

}  // namespace skerrow
