#include "app/stream_work.h"

#include "core/files.h"
#include "core/text.h"

namespace skerrow {

bool HasHarmonicStreams(const Program& program) {
  return FileIsThere(HarmonicStationPath(program.folders, program.config.tidal_area));
}

void ShowHarmonicStreams(Program& program, bool on, Messages& messages) {
  TideState& tides = program.tides;
  tides.harmonic_streams_on = on;
  if (!on) {
    tides.harmonic_stations.clear();
    tides.harmonic_streams.clear();
    return;
  }
  const SelectedTime& time = program.selected_time;
  tides.harmonic_streams_on =
      LoadHarmonicStations(tides, HarmonicStationPath(program.folders, program.config.tidal_area),
                           time.hours, time.Day(), messages);
}

void HarmonicStreamsFollowArea(Program& program, Messages& messages) {
  if (!program.tides.harmonic_streams_on) return;
  const bool there = HasHarmonicStreams(program);
  if (!there) {
    messages.Notice("There are no harmonic streams in the sea area " +
                    Trim(program.config.tidal_area));
  }
  ShowHarmonicStreams(program, there, messages);
}

void ReloadDiamonds(Program& program, Messages& messages) {
  FindRefPorts(program.tides, program.folders, program.config.tidal_area);
  RebuildTides(program, messages);
  LoadDiamonds(program.tides, program.folders, program.config.tidal_area, messages);
}

}  // namespace skerrow
