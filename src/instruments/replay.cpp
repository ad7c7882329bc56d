#include "instruments/replay.h"

#include <algorithm>
#include <cmath>

#include "core/calendar.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr std::size_t kLineBlock = 1024;  // bytes read for a line
constexpr double kRepaintEvery = 500.0;   // milliseconds
constexpr int kMostLinesAhead = 20000;    // searched for the next time
// A longer gap between two times is one between voyages, and nobody waits for its end.
constexpr double kLongestGap = 3600.0;  // seconds

bool AllDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool IsLogName(std::string_view name) { return ToLowerAscii(name).ends_with(kLogEnding); }

std::string ReplayPath(const std::string& tracks_folder, const std::string& name) {
  const std::string file = IsLogName(name) ? name : name + std::string(kLogEnding);
  return file.find('/') == std::string::npos ? JoinPath(tracks_folder, file) : file;
}

std::optional<double> SecondsOfDay(std::string_view time) {
  if (time.size() < 6 || !AllDigits(time.substr(0, 6))) return std::nullopt;
  return TextToNumber(time.substr(0, 2)) * 3600.0 + TextToNumber(time.substr(2, 2)) * 60.0 +
         TextToNumber(time.substr(4));
}

std::optional<double> DayOf(std::string_view date) {
  if (date.size() != 6 || !AllDigits(date)) return std::nullopt;
  const auto part = [&](std::size_t at) {
    return static_cast<int>(TextToNumber(date.substr(at, 2)));
  };
  const int year = 2000 + part(4);
  if (DateToDayOfYear(part(0), part(2), year) == 0) return std::nullopt;
  return JulianDate(part(0), part(2), year, 0, 0, 0);
}

// Seconds from one moment to a later one; none where they do not follow one another.
std::optional<double> SecondsBetween(const LogMoment& from, const LogMoment& to) {
  double seconds = to.seconds - from.seconds;
  if (from.day && to.day) {
    seconds += (*to.day - *from.day) * 86400.0;
  } else if (seconds < 0.0) {
    seconds += 86400.0;
  }
  if (seconds < 0.0 || seconds > kLongestGap) return std::nullopt;
  return seconds;
}

// Looks ahead for the next line that carries a time, and shares the wait until then.
void PlanWaits(ReplayState& replay) {
  replay.wait_each = replay.interval;
  replay.lines_to_moment = 1;
  Result<LogLines> lines = LogLines::Open(replay.replay_file_name, replay.replay_position);
  if (!lines) return;
  for (int count = 1; count <= kMostLinesAhead; ++count) {
    const auto line = lines.value().Next();
    if (!line || !*line) return;
    replay.lines_to_moment = count;
    const std::optional<LogMoment> moment = MomentOf(**line);
    if (!moment) continue;
    const std::optional<double> seconds =
        replay.last_moment ? SecondsBetween(*replay.last_moment, *moment) : std::nullopt;
    if (seconds) {
      replay.wait_each = *seconds * 1000.0 / static_cast<int>(replay.pace) / count;
    }
    replay.last_moment = moment;
    return;
  }
}

ReplayStep End(ReplayState& replay, std::string message) {
  replay.running = false;
  return {.repaint = true, .ended = true, .message = std::move(message)};
}

// The log of a request, opened once.
Result<LogLines> OpenLog(const ReplayRequest& request, const std::string& tracks_folder) {
  const std::string name = Trim(request.name);
  if (name.empty()) return Error{"", "No file name selected"};
  return LogLines::Open(ReplayPath(tracks_folder, name));
}

}  // namespace

Status CheckReplay(const ReplayRequest& request, const std::string& tracks_folder) {
  const Result<LogLines> lines = OpenLog(request, tracks_folder);
  if (!lines) return lines.error();
  return Done{};
}

Status StartReplay(const ReplayRequest& request, const std::string& tracks_folder,
                   ReplayState& replay, PlotState& plot, NmeaState& nmea) {
  const Result<LogLines> lines = OpenLog(request, tracks_folder);
  if (!lines) return lines.error();
  const std::string path = ReplayPath(tracks_folder, Trim(request.name));
  if (request.kind == ReplayKind::kGps) {
    plot.plot_file_name = JoinPath(tracks_folder, kReplayPlotFile);
    (void)DeleteFile(plot.plot_file_name);  // one that stays is overwritten record by record
  } else {
    nmea.track.clear();
    nmea.fix.position_good = false;
    plot.track_plot_on = false;
  }
  if (LogPath(tracks_folder, nmea.log.log_file_name) == path) nmea.log.logging_on = false;
  replay = ReplayState();
  replay.replay_file_name = path;
  replay.end = lines->size();
  replay.replay_active = true;
  replay.running = true;
  replay.interval = std::clamp(request.interval, kReplayFastest, kReplaySlowest);
  replay.pace = request.pace;
  return Done{};
}

ReplayStep ReplayTick(ReplayState& replay, PlotState& plot, NmeaState& nmea, AisSentenceSink& sink,
                      const Clock& clock) {
  if (!replay.running) return {};
  Result<LogLines> lines =
      LogLines::Open(replay.replay_file_name, replay.replay_position, kLineBlock);
  if (!lines) return End(replay, "The log can no longer be read: " + lines.error().reason);
  const auto line = lines.value().Next();
  if (!line) return End(replay, "The log can no longer be read: " + line.error().reason);
  if (!*line || replay.replay_position >= replay.end) return End(replay, "End of Log file reached");
  replay.replay_position = lines.value().position();
  nmea.fix.position_good = false;
  DecodeAisPortLine(nmea, **line, {.sink = sink, .clock = clock, .gps_passes = true});
  if (nmea.fix.position_good) {
    plot.track_plot_on = true;
    GpsTrackPoint point{.latitude = nmea.fix.boat_latitude, .longitude = nmea.fix.boat_longitude};
    SetTime(point, nmea.fix.fix_time);
    SetDate(point, nmea.fix.fix_date);
    point.speed = nmea.fix.speed_over_ground;
    point.course = nmea.fix.course_over_ground;
    nmea.track.push_back(point);
  }
  ReplayStep step;
  if (++replay.repaint_counter > RoundToInteger(kRepaintEvery / replay.interval)) {
    replay.repaint_counter = 0;
    step.repaint = true;
  }
  return step;
}

int ReplayWait(ReplayState& replay) {
  if (replay.pace == ReplayPace::kInterval) return replay.interval;
  if (replay.lines_to_moment == 0) PlanWaits(replay);
  --replay.lines_to_moment;
  replay.wait_owed += replay.wait_each;
  const double whole = WholePart(replay.wait_owed);
  replay.wait_owed -= whole;
  return static_cast<int>(whole);
}

std::string_view PauseReplay(ReplayState& replay) {
  replay.running = !replay.running;
  return PauseCaption(replay);
}

std::string_view PauseCaption(const ReplayState& replay) {
  const bool paused = replay.replay_active && !replay.running && !ReplayEnded(replay);
  return paused ? kResumeReplayCaption : kPauseReplayCaption;
}

bool ReplayEnded(const ReplayState& replay) {
  return replay.replay_active && !replay.running && replay.replay_position >= replay.end;
}

double ReplayPercent(const ReplayState& replay) {
  if (replay.end <= 0) return 100.0;
  return std::min(
      100.0, 100.0 * static_cast<double>(replay.replay_position) / static_cast<double>(replay.end));
}

std::optional<Position> FirstPositionOf(const std::string& path) {
  Result<LogLines> lines = LogLines::Open(path);
  if (!lines) return std::nullopt;
  for (int count = 0; count < kMostLinesAhead; ++count) {
    const auto line = lines.value().Next();
    if (!line || !*line) return std::nullopt;
    if (line->value().find("RMC") == std::string_view::npos) continue;
    const Rmc rmc = ParseRmc(**line);
    if (rmc.state == SentenceState::kGood) return Position{rmc.latitude, rmc.longitude};
  }
  return std::nullopt;
}

void HaltReplay(ReplayState& replay, PlotState& plot, NmeaState& nmea) {
  replay = ReplayState();
  plot.track_plot_on = false;
  plot.plot_file_name.clear();
  nmea.log.logging_on = false;
  ForgetQueue(nmea.log);
}

std::optional<LogMoment> MomentOf(std::string_view sentence) {
  sentence = CutAfterChecksum(sentence);
  if (!sentence.starts_with('$') || sentence.starts_with(kCommentSentence)) return std::nullopt;
  std::string_view time;
  LogMoment moment;
  if (sentence.find("RMC") != std::string_view::npos) {
    const Rmc rmc = ParseRmc(sentence);
    if (rmc.state == SentenceState::kBad) return std::nullopt;
    time = rmc.time;
    moment.day = DayOf(rmc.date);
  } else if (sentence.find("GLL") != std::string_view::npos) {
    const Gll gll = ParseGll(sentence);
    if (gll.state == SentenceState::kBad) return std::nullopt;
    time = gll.time;
  }
  const std::optional<double> seconds = SecondsOfDay(time);
  if (!seconds) return std::nullopt;
  moment.seconds = *seconds;
  return moment;
}

}  // namespace skerrow
