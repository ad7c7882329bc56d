#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "routes/route.h"

namespace skerrow {

// Takes route edits back and makes them again. Before each edit the caller remembers the route
// under the edit's name; a drag counts as one edit.
class RouteHistory {
 public:
  // Most edits that can be taken back; the oldest is forgotten beyond it.
  static constexpr std::size_t kDepth = 200;

  // Keeps the route as it is before the edit `name`. What had been taken back is forgotten.
  void Remember(std::string name, const RouteState& before);

  bool CanUndo() const { return !undo_.empty(); }
  bool CanRedo() const { return !redo_.empty(); }
  // The name of the edit that would be taken back or made again; empty when there is none.
  std::string UndoName() const { return undo_.empty() ? "" : undo_.back().name; }
  std::string RedoName() const { return redo_.empty() ? "" : redo_.back().name; }

  // Puts the route back to what it was before the last edit, or after the last one taken back.
  // False, with `state` as it was, when there is nothing to do. Results of a calculation do not
  // come back.
  bool Undo(RouteState& state) { return Step(undo_, redo_, state); }
  bool Redo(RouteState& state) { return Step(redo_, undo_, state); }

  void Forget();

 private:
  struct Snapshot {
    std::string name;
    RouteState route;
  };

  static bool Step(std::vector<Snapshot>& from, std::vector<Snapshot>& onto, RouteState& state);

  std::vector<Snapshot> undo_;
  std::vector<Snapshot> redo_;
};

}  // namespace skerrow
