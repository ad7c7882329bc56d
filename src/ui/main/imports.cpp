#include "ui/main/imports.h"

#include <QApplication>
#include <algorithm>
#include <optional>
#include <vector>

#include "app/edits.h"
#include "app/historical_track.h"
#include "core/config.h"
#include "core/files.h"
#include "core/text.h"
#include "instruments/plot_file.h"
#include "ui/dialogs/save_text.h"
#include "ui/exchange/frmGpxImport.h"
#include "ui/exchange/frmTxtFileImport.h"
#include "ui/forms/file_forms.h"
#include "ui/main/chart_controller.h"
#include "ui/main/route_controller.h"
#include "ui/routes/frmLoadWay.h"
#include "ui/routes/leaving.h"

namespace skerrow {
namespace {

// The first file with an ending; null when there is none.
const std::string* FirstOf(const std::vector<std::string>& paths, std::string_view ending) {
  const auto found = std::find_if(paths.begin(), paths.end(), [ending](const std::string& path) {
    return ToLowerAscii(path).ends_with(ending);
  });
  return found == paths.end() ? nullptr : &*found;
}

// A track as a plot on the chart. With a GPS connected the plot is that of the voyage under way.
bool ShowPlot(Context& c, const std::string& path) {
  Program& program = c.program;
  if (program.link.gps_enabled || program.replay.replay_active) {
    c.messages.Show(kHistoricalWhileGps);
    return false;
  }
  if (program.plot.historical_plot_on) RemoveHistoricalPlot(program);
  if (program.config.track_layer_on == 0.0F && c.messages.Ask(kTrackLayerQuestion)) {
    const Status saved = ReloadThenSave(program.folders, program.config,
                                        [](AppConfig& config) { config.track_layer_on = 1.0F; });
    if (!saved) c.messages.Show(saved.error().Text(), MessageIcon::kWarning);
  }
  program.plot.plot_file_name = path;
  program.plot.track_plot_on = true;
  c.desktop.window.Changed(kTargetsChanged | kSettingsChanged);
  return true;
}

// Asks about a file of a name that is there; where it is that of the waypoints on the chart, also
// about those that have been moved.
MayReplace AskToReplace(Context& c) {
  return [&c](const std::string& file) {
    return c.messages.Ask(file + ": " + std::string(kOverwriteQuestion)) &&
           (file != Trim(c.program.config.waypoint_file) ||
            MayLoseWaypoints(c.desktop, QApplication::activeWindow()));
  };
}

void Take(Context& c, const std::vector<std::string>& paths, bool show) {
  Program& program = c.program;
  // A save of the route on the chart must not go over what has just been imported in its place.
  if (std::count(paths.begin(), paths.end(), program.edits.route_path) > 0) {
    program.edits.route_path.clear();
  }
  const std::string* route = FirstOf(paths, ".rte");
  const std::string* marks = FirstOf(paths, ".way");
  const std::string* track = FirstOf(paths, ".trk");
  // Waypoints in the place of the current ones have been asked about before they were written.
  const std::string current = WaypointPath(program.folders, program.config.waypoint_file);
  if (std::count(paths.begin(), paths.end(), current) > 0) {
    const Status loaded =
        LoadCurrentWaypoints(program.folders, program.config, program.waypoints, c.messages);
    if (!loaded) c.messages.Show(loaded.error().Text(), MessageIcon::kWarning);
    KeepMovedWaypoints(program, c.messages);
  }
  if (show && marks != nullptr && *marks != current) OpenWaypoints(c, *marks);
  const bool plotted = show && track != nullptr && ShowPlot(c, *track);
  if (show && route != nullptr) {
    c.route.LoadFile(*route);
  } else if (plotted) {
    const auto records = ReadPlotFile(*track);
    if (records && !records->Sound().empty()) {
      const PlotRecord first = records->Sound().front();
      c.chart.GoTo({first.latitude, first.longitude});
    }
  } else if (show && marks != nullptr && !program.waypoints.waypoints.empty()) {
    c.chart.GoTo(program.waypoints.waypoints.front().At());
  }
  c.desktop.window.Changed(kAllChanged);
}

}  // namespace

void OpenWaypoints(Context& c, const std::string& path) {
  c.route.WithWaypoints([&] {
    const Status opened = OpenWaypointFile(c.desktop, path);
    if (!opened) c.messages.Show(opened.error().Text(), MessageIcon::kWarning, kProgramTitle);
  });
}

void ImportGpx(Context& c, const std::string& path) {
  const std::string file =
      path.empty() ? AskTextFile(c.desktop, &c.window, "Import a GPX Document", kGpxFile) : path;
  if (file.empty()) return;
  std::optional<GpxContents> contents = ReadGpxContents(c.desktop, &c.window, file);
  if (!contents) return;
  frmGpxImport form(c.desktop, std::move(*contents), AskToReplace(c), &c.window);
  form.exec();
  // Files that were written before something stood in the way are there all the same.
  Take(c, form.files(), form.result() == QDialog::Accepted && form.show_files());
}

void ImportText(Context& c, FileKind kind) {
  frmTxtFileImport form(c.desktop, kind, AskToReplace(c), &c.window);
  if (form.exec() == QDialog::Accepted) Take(c, form.files(), form.show_files());
}

}  // namespace skerrow
