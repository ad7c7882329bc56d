#pragma once

#include "instruments/ais_alarm.h"
#include "instruments/ais_decoder.h"
#include "instruments/ais_targets.h"

// What the instruments have told of others.
namespace skerrow {

// The vessels around, and what their sentences are put together with.
struct AisState {
  AisTargets targets;
  AisAssembly assembly;
  AisDecoderOptions options;
  CpaAlarm alarm;
};

}  // namespace skerrow
