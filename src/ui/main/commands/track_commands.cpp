#include "app/historical_track.h"
#include "instruments/plot_file.h"
#include "ui/instruments/frmAISLog.h"
#include "ui/instruments/frmGPSComment.h"
#include "ui/instruments/frmGPSLog.h"
#include "ui/instruments/frmNMEAReplay.h"
#include "ui/instruments/frmNewTrackName.h"
#include "ui/instruments/frmRouteFileUpload.h"
#include "ui/instruments/frmTrackDelete.h"
#include "ui/instruments/frmTrackSelect.h"
#include "ui/instruments/frmWayFileUpload.h"
#include "ui/instruments/frmmanualpos.h"
#include "ui/main/commands/command.h"
#include "ui/main/context.h"
#include "ui/main/instrument_controller.h"
#include "ui/main/time_controller.h"

namespace skerrow {
namespace {

void EnterPosition(Context& c) {
  if (c.program.link.gps_enabled) {
    c.messages.Show(kManualEntryWhileGps);
    return;
  }
  PlotState& plot = c.program.plot;
  if (plot.historical_plot_on) RemoveHistoricalPlot(c.program);
  if (plot.plot_file_name.empty()) frmNewTrackName(c.desktop, &c.window).exec();
  if (!plot.plot_file_name.empty()) frmmanualpos(c.desktop, &c.window).exec();
  c.desktop.window.Changed(kTargetsChanged);
}

// The dialog of the connection asks for the log too; the connection stays as it is.
template <typename Dialog>
void KeepALog(Context& c) {
  if (Dialog(c.desktop, &c.window).exec() != QDialog::Accepted) return;
  constexpr double kSecondsPerDay = 86400.0;
  c.program.timers.next_log_time =
      c.program.clock->Now().Julian() + c.program.config.log_interval / kSecondsPerDay;
  c.desktop.window.Changed(kTargetsChanged);
}

void StopLog(Context& c) {
  // What has come since the last record is not lost.
  KeepLog(c.program, c.messages, true);
  c.program.nmea.log.logging_on = false;
  c.desktop.window.Changed(kTargetsChanged);
}

template <ReplayKind kKind>
void Replay(Context& c) {
  c.time.Rest();
  frmNMEAReplay dialog(c.desktop, kKind, &c.window);
  const bool wanted = dialog.exec() == QDialog::Accepted;
  c.time.Start();
  if (wanted) c.instruments.Replay(dialog.request());
}

void PauseReplay(Context& c) { c.instruments.PauseReplay(); }
void HaltReplay(Context& c) { c.instruments.HaltReplay(); }

constexpr Command kCommands[] = {
    {"mnuFileDelTrack", "&Historical Track", "", "Delete a file of entered positions", "", kNoNeed,
     [](Context& c) { frmTrackDelete(c.desktop, &c.window).exec(); }},
    {"mnuhistPlot", "&Plot or Table", "", "The track of a log, or the positions of a plot file", "",
     kNeedsNoReplay, [](Context& c) { frmTrackSelect(c.desktop, &c.window).exec(); }},
    {"mnuremovehistplot", "&Remove Plot", "", "Take the track off the chart", "",
     kNeedsNoReplay | kNeedsPlot,
     [](Context& c) {
       RemoveHistoricalPlot(c.program);
       c.desktop.window.Changed(kTargetsChanged);
     }},
    {"mnugpscomment", "Enter GPS &Comment", "", "A remark for the log, at the boat's position", "",
     kNeedsGpsOn, [](Context& c) { frmGPSComment(c.desktop, &c.window).exec(); }},
    {"mnuposmanual", "&Manual Entry", "", "Enter a position into a plot file", "", kNeedsNoReplay,
     EnterPosition},
    {"mnutrackoff", "Track Plot &Off", "", "End the plot of the track", "",
     kNeedsNoReplay | kNeedsPlot,
     [](Context& c) {
       c.program.plot.track_plot_on = false;
       c.program.plot.plot_file_name.clear();
       c.desktop.window.Changed(kTargetsChanged);
     }},
    {"mnurtegpsupload", "Upload &Route to GPS", "upload", "Send the points of a route to the GPS",
     "", kNeedsGpsPort, [](Context& c) { frmRouteFileUpload(c.desktop, &c.window).exec(); }},
    {"mnugpswaypointupload", "Upload &Waypoints to GPS", "", "Send a waypoint file to the GPS", "",
     kNeedsGpsPort, [](Context& c) { frmWayFileUpload(c.desktop, &c.window).exec(); }},
    {"mnuLogGPS", "&Log GPS Data", "record", "Keep a log of what comes in", "", kNeedsGpsText,
     KeepALog<frmGPSLog>},
    {"mnuStopGPSDataLog", "&Stop GPS Log", "", "End the log", "", kNeedsLog | kNeedsGpsText,
     StopLog},
    {"mnuGPSReplay", "Re&play Log", "", "Play a log of an earlier voyage", "", kNeedsQuiet,
     Replay<ReplayKind::kGps>},
    {"mnuGPSReplayPause", "Pause Log Replay", "", "Stop the replay for a while, or go on with it",
     "", kNeedsReplay, PauseReplay},
    {"mnuGPSReplayHalt", "&Halt Replay", "", "End the replay", "", kNeedsReplay, HaltReplay},
    {"mnuLogAIS", "&Log AIS Data", "", "Keep a log of what comes in", "", kNeedsAisText,
     KeepALog<frmAISLog>},
    {"mnuStopAISDataLog", "Stop AIS Lo&g", "", "End the log", "", kNeedsLog | kNeedsAisText,
     StopLog},
    {"mnuAISReplay", "Re&play Log", "", "Play a log with the vessels around", "", kNeedsQuiet,
     Replay<ReplayKind::kAis>},
    {"mnuAISReplayPause", "Pause Log Replay", "", "Stop the replay for a while, or go on with it",
     "", kNeedsReplay, PauseReplay},
    {"mnuAISReplayHalt", "&Halt Replay", "", "End the replay", "", kNeedsReplay, HaltReplay},
    {"mnuDemonstration", "&Demonstration", "",
     "A voyage across the Channel with the ships around; once more ends it", "",
     kNeedsDemonstration, [](Context& c) { c.instruments.ToggleDemonstration(); },
     [](const Context& c) { return c.instruments.demonstrating(); }},
};

}  // namespace

std::span<const Command> TrackCommands() { return kCommands; }

}  // namespace skerrow
