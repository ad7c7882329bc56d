#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "core/selected_time.h"
#include "routes/route.h"

namespace skerrow {

// The selected time with what is remembered beside it.
struct TimeInForce {
  SelectedTime selected;
  SavedTime saved;
};

// Takes route edits back and makes them again. Before each edit the caller remembers the route
// under the edit's name; a drag counts as one edit. An edit that moves the selected time as well
// brings it back with the route.
class RouteHistory {
 public:
  // Most edits that can be taken back; the oldest is forgotten beyond it.
  static constexpr std::size_t kDepth = 200;

  // Keeps the route, and the time where one is given, as before the edit `name`. What had been
  // taken back is forgotten.
  void Remember(std::string name, const RouteState& before,
                std::optional<TimeInForce> time_before = std::nullopt);

  bool CanUndo() const { return !undo_.empty(); }
  bool CanRedo() const { return !redo_.empty(); }
  // The name of the edit that would be taken back or made again; empty when there is none.
  std::string UndoName() const { return undo_.empty() ? "" : undo_.back().name; }
  std::string RedoName() const { return redo_.empty() ? "" : redo_.back().name; }

  // What a step has done.
  enum class Moved { kNothing, kRoute, kRouteAndTime };

  // Puts the route back to what it was before the last edit, or after the last one taken back, and
  // `time` with it where the edit moved it. Results of a calculation do not come back.
  Moved Undo(RouteState& route, TimeInForce& time) { return Step(undo_, redo_, route, time); }
  Moved Redo(RouteState& route, TimeInForce& time) { return Step(redo_, undo_, route, time); }

 private:
  struct Snapshot {
    std::string name;
    RouteState route;
    std::optional<TimeInForce> time;
  };

  static Moved Step(std::vector<Snapshot>& from, std::vector<Snapshot>& onto, RouteState& route,
                    TimeInForce& time);

  std::vector<Snapshot> undo_;
  std::vector<Snapshot> redo_;
};

}  // namespace skerrow
