#include "app/reception.h"

#include "app/historical_track.h"
#include "instruments/log.h"

namespace skerrow {
namespace {

constexpr double kSecondsPerDay = 86400.0;

// What a connection brings to the chart and the log.
void BeginVoyage(Program& program, Progress& progress) {
  if (program.plot.historical_plot_on) RemoveHistoricalPlot(program);
  LoadLogInUse(program, progress);
  program.timers.next_log_time =
      program.clock->Now().Julian() + program.config.log_interval / kSecondsPerDay;
}

}  // namespace

bool AisReceiver::Take(std::string_view sentence) {
  AisState& ais = program_.ais;
  const AisMessage message = DecodeAivdm(sentence, ais.options, ais.assembly);
  ais.targets.Update(message, ais.options, AisShownOf(program_.config),
                     AisHours(program_.clock->Now()));
  return message.good;
}

AisShown AisShownOf(const AppConfig& config) {
  return {config.show_ais_details != 0, config.show_ais_history != 0,
          config.show_ais_predicted != 0, config.show_ais_heading != 0};
}

std::optional<Motion> BoatMotion(const Program& program) {
  const GpsFix& fix = program.nmea.fix;
  const bool told = program.link.gps_enabled || program.replay.replay_active;
  if (!told || !fix.position_good) return std::nullopt;
  return Motion{fix.At(), fix.speed_over_ground, fix.course_over_ground};
}

Status StartGps(Program& program, SerialPorts& ports, std::int64_t now, Progress& progress) {
  Status connected = ConnectGps(program.link, program.config, ports, now);
  if (connected) BeginVoyage(program, progress);
  return connected;
}

Status StartAis(Program& program, SerialPorts& ports, std::int64_t now, Progress& progress) {
  Status connected = ConnectAis(program.link, program.config, ports, now);
  if (connected) BeginVoyage(program, progress);
  return connected;
}

void LoadLogInUse(Program& program, Progress& progress) {
  NmeaState& nmea = program.nmea;
  const std::string& name = nmea.log.log_file_name;
  if (name.empty() || name == program.log_loaded) return;
  program.log_loaded = name;
  const std::string path = LogPath(program.folders.Tracks(), name);
  // A log that is not there yet, or cannot be read, has nothing to show.
  (void)LoadTrackFromLog(path, nmea.fix, nmea.track, progress);
  // Where the boat was when the log ended is not where she is.
  nmea.fix.position_good = false;
  (void)LoadCommentsFromLog(path, nmea.log.comments, progress);
}

void KeepLog(Program& program, Messages& messages, bool force) {
  const double now = program.clock->Now().Julian();
  if (!force && now <= program.timers.next_log_time) return;
  // What could not be written stays for the next time, and the notice has told of it.
  (void)WriteLogRecord(program.nmea.log, program.folders.Tracks(), messages);
  ClearSeenKinds(program.nmea.log);
  program.timers.next_log_time = now + program.config.log_interval / kSecondsPerDay;
}

void EndReplay(Program& program) {
  HaltReplay(program.replay, program.plot, program.nmea);
  // Nothing of an earlier voyage is to pass for the boat, or to be joined to her track.
  program.nmea.track.clear();
  program.nmea.fix = GpsFix();
  program.log_loaded.clear();
  program.ais.targets.Clear();
  program.ais.assembly = {};
}

}  // namespace skerrow
