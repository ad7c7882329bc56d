#pragma once

#include <cstdint>
#include <string_view>

#include "app/program.h"
#include "core/messages.h"
#include "core/progress.h"
#include "core/serial_ports.h"

// What the instruments' text does to the state of the program.
namespace skerrow {

// Takes AIS sentences into the table of targets, at the time of the program's clock.
class AisReceiver final : public AisSentenceSink {
 public:
  explicit AisReceiver(Program& program) : program_(program) {}
  bool Take(std::string_view sentence) override;

 private:
  Program& program_;
};

// How the settings want new targets to be shown.
AisShown AisShownOf(const AppConfig& config);

// Where the boat is and how it moves; empty while no GPS and no replay tells it by a good fix. The
// last position of an earlier voyage on the chart is none.
std::optional<Motion> BoatMotion(const Program& program);

// Connects the GPS or the AIS receiver at the port of the settings, for which the log and the track
// of its name are read first. Errors: the message for a port that is not there or in use, with
// everything as it was. `now` is in milliseconds of a clock that never goes back.
Status StartGps(Program& program, SerialPorts& ports, std::int64_t now, Progress& progress);
Status StartAis(Program& program, SerialPorts& ports, std::int64_t now, Progress& progress);

// Adds the track of the log in use to the track table and reads its comments, once for each log.
void LoadLogInUse(Program& program, Progress& progress);

// Writes a log record when its time has come, or at once with `force`, and sets the next time.
void KeepLog(Program& program, Messages& messages, bool force);

// Ends a replay as the user asks for it: the vessels it has shown go.
void EndReplay(Program& program);

}  // namespace skerrow
