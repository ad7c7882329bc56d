#pragma once

#include <memory>
#include <string>

namespace skerrow {

// Sounds a short alarm. The tone is made here and handed to the player of the desktop's sound
// server, or of ALSA: whichever is installed, with nothing to link to. The toolkit's own bell is
// silent on most desktops, and its multimedia library would bring decoders for every kind of film.
class Alarm {
 public:
  virtual ~Alarm() = default;
  // Starts the tone and returns at once. While one sounds a further one is not begun.
  virtual void Sound() = 0;
};

// The real one. Without any player it falls back on the bell.
std::unique_ptr<Alarm> MakeAlarm();

// The tone as a WAV file: 16 bits, one channel. Three rising beeps in less than a second.
std::string AlarmWave();

}  // namespace skerrow
