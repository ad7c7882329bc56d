#include "app/stream_files.h"
#include "tides/stream_export.h"
#include "ui/main/chart_controller.h"
#include "ui/main/chart_mouse.h"
#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/look_controller.h"
#include "ui/main/mob_controller.h"
#include "ui/main/route_controller.h"
#include "ui/main/time_controller.h"
#include "ui/widgets/progress_dialog.h"

namespace skerrow {
namespace {

void ExportToText(Context& c) {
  constexpr const char* kWhat = "Exporting the tidal streams";
  bool done = false;
  {
    ProgressDialog progress(&c.window, kWhat, c.desktop.window.StartProgress(kWhat));
    done = ExportSelectedStreams(c.program, c.messages, progress);
  }
  if (!done) return;
  c.desktop.window.Tell("Exported to " + TidalComponentsFolder(c.program.folders));
  c.desktop.window.Changed(kTimeChanged);
}

constexpr Command kCommands[] = {
    {"mnuShowTidalStreams", "Show/Hide Tidal &Streams", "viewstreams", "", "S", kNoNeed, nullptr,
     nullptr, [](const Context& c) { return c.program.config.use_tides != 0; }},
    {"mnuPUTidalStream", "Tidal Stream Details", "", "", "", kNeedsStreams},
    {"mnuSaveTidalDiamonds", "Save Tidal &Diamonds", "",
     "A cleaned copy of the diamonds of the area, beside its file", "", kNoNeed,
     [](Context& c) { SaveAreaDiamonds(c.program, c.messages); }},
    {"mnuStreamstoCSV", "&Streams to CSV", "",
     "The streams of all diamonds, hour by hour, as text files", "", kNoNeed, ExportToText},
};

}  // namespace

std::span<const Command> StreamCommands() { return kCommands; }

}  // namespace skerrow
