#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Watches over an open port and says when to open it again: one that died at once, then with
// growing pauses; one that is silent for long too, since some adapters hang without an error.
// Times are milliseconds of a clock that never goes back.
namespace skerrow {

// How long a port may be silent, in milliseconds.
struct QuietLimits {
  std::int64_t told = 0;    // before the user is told
  std::int64_t reopen = 0;  // before the port is opened again
};

// A GPS talks every second or two.
inline constexpr QuietLimits kGpsQuiet{10'000, 30'000};
// An AIS receiver is silent where there are no ships.
inline constexpr QuietLimits kAisQuiet{120'000, 300'000};

inline constexpr std::int64_t kFirstPause = 1'000;
inline constexpr std::int64_t kLongestPause = 10'000;

enum class LinkPhase { kOff, kOpen, kReconnecting };

struct LinkWatch {
  LinkPhase phase = LinkPhase::kOff;
  std::int64_t heard_at = 0;   // when text came last, or the user connected
  std::int64_t opened_at = 0;  // when the port was opened last, or text came
  std::int64_t next_try = 0;   // while reconnecting
  std::int64_t pause = kFirstPause;
};

// The user has connected the port.
void LinkConnected(LinkWatch& watch, std::int64_t now);

// Text has come.
void LinkHeard(LinkWatch& watch, std::int64_t now);

// The port has died: the next try comes after a pause, each twice as long as the one before, until
// text comes again.
void LinkLost(LinkWatch& watch, std::int64_t now);

// The port was opened again, or could not be.
void LinkReopened(LinkWatch& watch, std::int64_t now, bool opened);

// Whether an open port has been silent for so long that it is to be opened again.
bool LinkHangs(const LinkWatch& watch, const QuietLimits& limits, std::int64_t now);

// Whether it is time to try to open a port that has died.
bool ReopenDue(const LinkWatch& watch, std::int64_t now);

// "GPS: no data for 12 s" or "GPS: reconnecting" with `name` for "GPS"; empty when all is well.
std::string LinkText(const LinkWatch& watch, const QuietLimits& limits, std::string_view name,
                     std::int64_t now);

}  // namespace skerrow
