#pragma once

#include <string>
#include <vector>

#include "core/folders.h"
#include "core/result.h"
#include "routes/waypoint_editor.h"

namespace skerrow {

// A waypoint file while `frmWayEdit` edits it. The rows live in a work copy in the settings folder,
// which each change is written to; the file itself changes only by Save. What is left of the work
// copy after the program ended badly is found by FindWaypointRecovery. Where the copy cannot be
// made, the rows live in memory alone.
class WaypointWork {
 public:
  explicit WaypointWork(const Folders& folders) : folders_(folders) {}
  ~WaypointWork() { Abandon(); }
  WaypointWork(const WaypointWork&) = delete;
  WaypointWork& operator=(const WaypointWork&) = delete;

  // Takes up a file, and with `kept` the rows that an earlier run left of it. A message tells the
  // records that were left out, which Save would lose. On an error the work stays with what it has.
  Status Open(const std::string& file_name, Messages& messages, bool kept = false);

  // Empty before the first Open.
  const std::string& file_name() const { return file_name_; }
  const std::vector<WaypointRow>& rows() const { return editor_.rows(); }
  bool changed() const { return changed_; }

  // The operations of WaypointEditor.
  bool Add(const WaypointRow& entry) { return Changed(editor_.Add(entry)); }
  bool Insert(std::size_t before, const WaypointRow& entry) {
    return Changed(editor_.Insert(before, entry));
  }
  bool Change(std::size_t row, const WaypointRow& entry) {
    return Changed(editor_.Change(row, entry));
  }
  bool Delete(std::size_t row) { return Changed(editor_.Delete(row)); }

  // Writes the rows over the file.
  Status Save();

  // Drops the work copy and with it the changes.
  void Abandon();

 private:
  bool Changed(bool changed);

  const Folders& folders_;
  WaypointEditor editor_;
  std::string file_name_;
  std::string copy_;  // path of the work copy; empty without one
  bool changed_ = false;
};

}  // namespace skerrow
