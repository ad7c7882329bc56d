#pragma once

#include "app/program.h"
#include "core/messages.h"

// Operations on the tidal streams that cross subsystems.
namespace skerrow {

// Whether the sea area has a file of harmonic stations.
bool HasHarmonicStreams(const Program& program);

// Shows the harmonic streams of the sea area besides those of the diamonds, or no longer. Without
// its file they stay off; what is wrong with it is told.
void ShowHarmonicStreams(Program& program, bool on, Messages& messages);

// Reads the harmonic stations of a sea area that has become the current one, while harmonic streams
// are shown. An area that has none ends that, with a notice.
void HarmonicStreamsFollowArea(Program& program, Messages& messages);

// Reads the sea area's diamonds and reference ports again after its file has changed.
void ReloadDiamonds(Program& program, Messages& messages);

}  // namespace skerrow
