#include "app/stream_files.h"
#include "app/stream_work.h"
#include "core/numbers.h"
#include "core/plane_sailing.h"
#include "tides/stream_export.h"
#include "ui/main/chart_controller.h"
#include "ui/main/chart_mouse.h"
#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/look_controller.h"
#include "ui/main/mob_controller.h"
#include "ui/main/route_controller.h"
#include "ui/main/time_controller.h"
#include "ui/tides/frmDiaInfo.h"
#include "ui/widgets/progress_dialog.h"

namespace skerrow {
namespace {

bool UsesTides(const Context& c) { return c.program.config.use_tides != 0; }

void ToggleHarmonicStreams(Context& c) {
  ShowHarmonicStreams(c.program, !c.program.tides.harmonic_streams_on, c.messages);
  c.desktop.window.Changed(kTimeChanged);
}

// The details of the diamond nearest to the place last clicked, if one is within the search circle.
void ShowDiamond(Context& c) {
  if (!c.view.last_click) return;
  const std::vector<Diamond>& diamonds = c.program.tides.diamonds;
  const std::optional<Nearest> nearest = NearestOf(
      diamonds.size(), *c.view.last_click, c.program.config.search_circle, [&](std::size_t i) {
        return Position{diamonds[i].latitude, diamonds[i].longitude};
      });
  if (nearest) {
    frmDiaInfo(c.desktop, nearest->index, &c.window).exec();
  } else {
    c.desktop.window.Tell("No tidal diamond within " + ShortText(c.program.config.search_circle) +
                          " nm");
  }
}

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
    {"mnuShowTidalStreams", "Show/Hide Tidal &Streams", "viewstreams",
     "The tidal streams at the selected time", "S", kNoNeed,
     [](Context& c) { c.look.Toggle(&AppConfig::show_streams); },
     [](const Context& c) { return c.program.config.show_streams == 1.0F; }, UsesTides},
    {"mnuHarmonicStreams", "&Harmonic Streams", "",
     "The streams worked out from harmonic constants, besides those of the diamonds", "",
     kNeedsHarmonicStreams, ToggleHarmonicStreams,
     [](const Context& c) { return c.program.tides.harmonic_streams_on; }, UsesTides},
    {"mnuPUTidalStream", "Tidal Stream Details", "", "The diamond here: its table and its reports",
     "", kNeedsStreams, ShowDiamond},
    {"mnuSaveTidalDiamonds", "Save Tidal &Diamonds", "",
     "A cleaned copy of the diamonds of the area, beside its file", "", kNoNeed,
     [](Context& c) { SaveAreaDiamonds(c.program, c.messages); }},
    {"mnuStreamstoCSV", "&Streams to CSV", "",
     "The streams of all diamonds, hour by hour, as text files", "", kNoNeed, ExportToText},
};

}  // namespace

std::span<const Command> StreamCommands() { return kCommands; }

}  // namespace skerrow
