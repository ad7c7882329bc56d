#include "platform/sound.h"

#include <QApplication>
#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace skerrow {
namespace {

constexpr int kSamplesPerSecond = 22050;
constexpr double kBeepSeconds = 0.18;
constexpr double kPauseSeconds = 0.07;
constexpr double kRampSeconds = 0.01;                     // so that no beep clicks
constexpr double kLoudness = 0.6 * 32767.0;               // leaves room to the top
constexpr std::array kPitches = {880.0, 1109.0, 1319.0};  // Hz: a5, c sharp 6, e6
constexpr double kTwoPi = 6.283185307179586;

void PutNumber(std::string& text, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) text.push_back(static_cast<char>(value >> (8 * i) & 0xff));
}

void PutBeep(std::string& samples, double pitch) {
  const int count = static_cast<int>(kBeepSeconds * kSamplesPerSecond);
  for (int i = 0; i < count; ++i) {
    const double time = static_cast<double>(i) / kSamplesPerSecond;
    const double left = kBeepSeconds - time;
    const double envelope = std::min(1.0, std::min(time, left) / kRampSeconds);
    const double value = kLoudness * envelope * std::sin(kTwoPi * pitch * time);
    PutNumber(samples, static_cast<std::uint16_t>(static_cast<std::int16_t>(std::lround(value))),
              2);
  }
  samples.append(2 * static_cast<std::size_t>(kPauseSeconds * kSamplesPerSecond), '\0');
}

class PlayedAlarm final : public Alarm {
 public:
  ~PlayedAlarm() override {
    // A tone under way is let go rather than waited for.
    if (player_.state() != QProcess::NotRunning) {
      player_.kill();
      player_.waitForFinished(500);
    }
  }

  void Sound() override {
    if (player_.state() != QProcess::NotRunning) return;
    struct Player {
      const char* name;
      const char* option;
    };
    // PipeWire, PulseAudio, ALSA.
    constexpr std::array kPlayers = {Player{"pw-play", nullptr}, Player{"paplay", nullptr},
                                     Player{"aplay", "-q"}};
    for (const Player& player : kPlayers) {
      const QString path = QStandardPaths::findExecutable(QLatin1String(player.name));
      if (path.isEmpty() || !WriteTone()) continue;
      QStringList arguments;
      if (player.option != nullptr) arguments << QLatin1String(player.option);
      player_.setStandardOutputFile(QProcess::nullDevice());
      player_.setStandardErrorFile(QProcess::nullDevice());
      player_.start(path, arguments << tone_.fileName());
      return;
    }
    QApplication::beep();
  }

 private:
  bool WriteTone() {
    if (tone_.size() > 0) return true;
    const std::string wave = AlarmWave();
    return tone_.open() &&
           tone_.write(wave.data(), static_cast<qint64>(wave.size())) ==
               static_cast<qint64>(wave.size()) &&
           tone_.flush();
  }

  QTemporaryFile tone_{QDir::tempPath() + QStringLiteral("/skerrow-alarm-XXXXXX.wav")};
  QProcess player_;
};

}  // namespace

std::string AlarmWave() {
  std::string samples;
  for (const double pitch : kPitches) PutBeep(samples, pitch);
  const auto size = static_cast<std::uint32_t>(samples.size());
  constexpr int kBytesPerSample = 2;
  std::string wave = "RIFF";
  PutNumber(wave, 36 + size, 4);
  wave += "WAVEfmt ";
  PutNumber(wave, 16, 4);  // of the format
  PutNumber(wave, 1, 2);   // plain samples
  PutNumber(wave, 1, 2);   // channels
  PutNumber(wave, kSamplesPerSecond, 4);
  PutNumber(wave, kSamplesPerSecond * kBytesPerSample, 4);
  PutNumber(wave, kBytesPerSample, 2);
  PutNumber(wave, 8 * kBytesPerSample, 2);
  wave += "data";
  PutNumber(wave, size, 4);
  return wave + samples;
}

std::unique_ptr<Alarm> MakeAlarm() { return std::make_unique<PlayedAlarm>(); }

}  // namespace skerrow
