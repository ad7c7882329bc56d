#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/position.h"
#include "core/result.h"
#include "instruments/nmea.h"

// A log played back through the decoders, a line at a time. The file is opened for each line, so
// that it stays free between them.
namespace skerrow {

// Limits and start of "Replay Speed", the milliseconds between two lines.
inline constexpr int kReplayFastest = 5;
inline constexpr int kReplaySlowest = 150;
inline constexpr int kReplayStart = 40;

inline constexpr std::string_view kReplayPlotFile = "replay.trk";
inline constexpr std::string_view kPauseReplayCaption = "Pause Log Replay";
inline constexpr std::string_view kResumeReplayCaption = "Resume Log Replay";

// What is plotted on the chart.
struct PlotState {
  std::string plot_file_name;
  bool track_plot_on = false;
  bool historical_plot_on = false;
};

// The entry of the menu that started the replay.
enum class ReplayKind { kGps, kAis };

// A line for each interval, or by the times that the sentences of the log carry: as they were
// received, or faster by the number given.
enum class ReplayPace { kInterval = 0, kLogTime = 1, kLogTime10 = 10, kLogTime60 = 60 };

// When a sentence was sent.
struct LogMoment {
  std::optional<double> day;  // Julian date of the day's beginning
  double seconds = 0.0;       // of the day
};

struct ReplayState {
  std::string replay_file_name;      // path
  bool replay_active = false;        // from the start until the user halts it
  bool running = false;              // neither paused nor at its end
  std::int64_t replay_position = 0;  // of the next line, in bytes from the file's beginning
  std::int64_t end = 0;              // of the log when the replay began, in bytes
  int interval = kReplayStart;       // milliseconds
  int repaint_counter = 0;
  ReplayPace pace = ReplayPace::kInterval;

  // The lines up to and with the next one that carries a time share the wait until then evenly.
  std::optional<LogMoment> last_moment;
  int lines_to_moment = 0;
  double wait_each = 0.0;  // milliseconds
  double wait_owed = 0.0;  // what rounding has left
};

struct ReplayRequest {
  ReplayKind kind = ReplayKind::kGps;
  std::string name;  // of a log in the tracks folder, with or without its ending; or a path
  int interval = kReplayStart;
  ReplayPace pace = ReplayPace::kInterval;
};

// What a tick asks of the window.
struct ReplayStep {
  bool repaint = false;
  bool ended = false;
  std::string message;  // at the end: why it ended
};

// Whether a replay could start. Errors: "No file name selected", and a log that cannot be read.
Status CheckReplay(const ReplayRequest& request, const std::string& tracks_folder);

// Starts a replay. That of the GPS gives the plot a file of its own and deletes an old one; that of
// the AIS empties the track table, and the caller empties the targets. A log that is replayed is
// not written any more, and what others add to it is not played. Errors: "No file name
// selected", and a log that cannot be read.
Status StartReplay(const ReplayRequest& request, const std::string& tracks_folder,
                   ReplayState& replay, PlotState& plot, NmeaState& nmea);

// Plays the next line. A good fix in it becomes a track point; position_good then tells whether the
// chart is to follow the boat. Nothing happens while the replay does not run.
ReplayStep ReplayTick(ReplayState& replay, PlotState& plot, NmeaState& nmea, AisSentenceSink& sink,
                      const Clock& clock);

// Milliseconds to wait before the next tick; 0 to play the next line at once. To be called once for
// each line.
int ReplayWait(ReplayState& replay);

// Pauses a replay, or goes on with it. Gives the caption that the menu entry then has.
std::string_view PauseReplay(ReplayState& replay);
std::string_view PauseCaption(const ReplayState& replay);

// Whether a replay has played its last line.
bool ReplayEnded(const ReplayState& replay);
// The part that has been played.
double ReplayPercent(const ReplayState& replay);

// The first good position of a log, looked for in its first lines only; none where there is none.
std::optional<Position> FirstPositionOf(const std::string& path);

// Ends a replay: plot, logging and queue with it. The caller empties the targets.
void HaltReplay(ReplayState& replay, PlotState& plot, NmeaState& nmea);

// The moment that a sentence of a log carries: that of an RMC or GLL with a good checksum.
std::optional<LogMoment> MomentOf(std::string_view sentence);

}  // namespace skerrow
