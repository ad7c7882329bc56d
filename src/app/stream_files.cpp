#include "app/stream_files.h"

#include "core/files.h"
#include "core/text.h"
#include "tides/stream_export.h"

namespace skerrow {

bool ExportSelectedStreams(Program& program, Messages& messages, Progress& progress) {
  const DayAndYear start = program.selected_time.Day();
  const Result<std::optional<StreamExport>> exported = ExportStreams(
      program.tides, program.folders, start, ExportDays(start.day), messages, progress);
  if (!exported) {
    messages.Show("Nothing is exported.\n" + exported.error().Text(), MessageIcon::kWarning);
    return false;
  }
  if (!exported.value()) return false;
  const StreamExport& done = **exported;
  LeaveClock(program);
  SetDay(program.selected_time, done.end);
  program.selected_time.hours = 0.0F;
  TimeMoved(program);
  messages.Show("End of routine", MessageIcon::kInformation);
  if (!done.left_out.empty()) {
    messages.Show(LeftOutStreamsText(done.left_out), MessageIcon::kWarning);
  }
  return true;
}

bool SaveAreaDiamonds(Program& program, Messages& messages) {
  const std::string path =
      DiamondFilePath(program.folders, Trim(program.config.tidal_area) + "001");
  if (program.tides.diamonds.empty()) {
    messages.Show("There are no tidal diamonds to save.", MessageIcon::kWarning);
    return false;
  }
  if (FileIsThere(path) && !messages.Ask(path + " is there already. Replace it?")) return false;
  return SaveTidalDiamonds(program.tides, program.folders, program.config.tidal_area, messages);
}

}  // namespace skerrow
