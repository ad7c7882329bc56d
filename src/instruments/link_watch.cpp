#include "instruments/link_watch.h"

#include <algorithm>

namespace skerrow {

void LinkConnected(LinkWatch& watch, std::int64_t now) {
  watch = LinkWatch{.phase = LinkPhase::kOpen, .heard_at = now, .opened_at = now};
}

void LinkHeard(LinkWatch& watch, std::int64_t now) { LinkConnected(watch, now); }

void LinkLost(LinkWatch& watch, std::int64_t now) {
  watch.phase = LinkPhase::kReconnecting;
  watch.next_try = now + watch.pause;
  watch.pause = std::min(2 * watch.pause, kLongestPause);
}

void LinkReopened(LinkWatch& watch, std::int64_t now, bool opened) {
  if (!opened) {
    LinkLost(watch, now);
    return;
  }
  watch.phase = LinkPhase::kOpen;
  watch.opened_at = now;
}

bool LinkHangs(const LinkWatch& watch, const QuietLimits& limits, std::int64_t now) {
  return watch.phase == LinkPhase::kOpen && now - watch.opened_at >= limits.reopen;
}

bool ReopenDue(const LinkWatch& watch, std::int64_t now) {
  return watch.phase == LinkPhase::kReconnecting && now >= watch.next_try;
}

std::string LinkText(const LinkWatch& watch, const QuietLimits& limits, std::string_view name,
                     std::int64_t now) {
  if (watch.phase == LinkPhase::kOff) return "";
  const std::string start = std::string(name) + ": ";
  if (watch.phase == LinkPhase::kReconnecting) return start + "reconnecting";
  const std::int64_t silent = now - watch.heard_at;
  if (silent < limits.told) return "";
  return start + "no data for " + std::to_string(silent / 1000) + " s";
}

}  // namespace skerrow
