// replay_bench: the sample log played over and over as one log of a day, through the work of the
// replay's timer at full speed. Prints resident memory and processor time along the way.

#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>

#include "app/timers.h"
#include "core/clock.h"
#include "core/files.h"
#include "instruments/log.h"

namespace {

using namespace skerrow;  // NOLINT: this file is a program

constexpr int kTimes = 36;  // of forty minutes

class NoWindow final : public TimerWindow {
 public:
  bool Minimised() const override { return true; }
  void Repaint() override {}
  void ServeEvents() override {}
  void ShowReadout() override {}
  void ShowEta(const std::string&) override {}
  void LocatePoint(Position) override {}
  std::optional<VisibleChart> Visible() const override { return std::nullopt; }
};

class Silent final : public Messages {
 public:
  void Show(std::string_view, MessageIcon, std::string_view) override {}
  bool Ask(std::string_view, std::string_view) override { return true; }
};

double ResidentMb() {
  std::ifstream status("/proc/self/statm");
  double all = 0.0;
  double resident = 0.0;
  status >> all >> resident;
  return resident * 4096.0 / 1e6;
}

}  // namespace

int main() {
  const std::string folder =
      (std::filesystem::temp_directory_path() / "skerrow-replay-bench").string();
  const SystemClock clock;
  Program program({SKERROW_SOURCE_DIR "/program", folder, folder}, clock);
  const std::string log = LogPath(program.folders.Tracks(), "day");
  std::string text;
  const std::string sample = ReadFile(program.folders.Samples() + "/Channel crossing.nmea").value();
  for (int i = 0; i < kTimes; ++i) text += sample;
  if (!MakeFolder(program.folders.Tracks()) || !ReplaceFile(log, text)) return 1;
  if (!StartReplay({ReplayKind::kAis, log, kReplayFastest}, "", program.replay, program.plot,
                   program.nmea)) {
    return 1;
  }
  NoWindow window;
  Silent messages;
  std::printf("%9s %8s %8s %8s %9s\n", "lines", "MB", "points", "targets", "CPU s");
  long lines = 0;
  const std::clock_t begin = std::clock();
  while (program.replay.running) {
    if (lines % 20000 == 0) {
      std::printf("%9ld %8.1f %8zu %8zu %9.2f\n", lines, ResidentMb(), program.nmea.track.size(),
                  program.ais.targets.All().size(),
                  static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC);
    }
    ReplayStepOf(program, window, messages);
    ++lines;
  }
  std::printf("%9ld %8.1f %8zu %8zu %9.2f\n", lines, ResidentMb(), program.nmea.track.size(),
              program.ais.targets.All().size(),
              static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC);
  std::filesystem::remove_all(folder);
  return 0;
}
