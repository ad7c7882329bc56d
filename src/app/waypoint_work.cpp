#include "app/waypoint_work.h"

#include "app/recovery.h"
#include "core/files.h"

namespace skerrow {

Status WaypointWork::Open(const std::string& file_name, Messages& messages, bool kept) {
  const std::string path = WaypointPath(folders_, file_name);
  std::string copy = WaypointRecoveryPath(folders_, file_name);
  WaypointEditor opened;
  if (Status status = opened.Open(kept ? copy : path, messages); !status) return status;
  if (!kept) {
    const Result<std::string> content = ReadFile(path);
    if (!content) return content.error();
    if (ReplaceFile(copy, *content)) {
      opened.WriteTo(copy);
    } else {
      copy.clear();
    }
  }
  if (copy_ != copy) Abandon();
  editor_ = std::move(opened);
  file_name_ = file_name;
  copy_ = std::move(copy);
  changed_ = kept;
  return Done{};
}

Status WaypointWork::Save() {
  if (Status saved = editor_.Save(); !saved) return saved;
  if (!copy_.empty()) {
    const Result<std::string> content = ReadFile(copy_);
    if (!content) return content.error();
    if (Status written = ReplaceFile(WaypointPath(folders_, file_name_), *content); !written) {
      return written;
    }
  }
  changed_ = false;
  return Done{};
}

void WaypointWork::Abandon() {
  if (!copy_.empty()) (void)DeleteFile(copy_);
  copy_.clear();
  changed_ = false;
}

bool WaypointWork::Changed(bool changed) {
  if (changed) {
    changed_ = true;
    // A copy that cannot be brought up to date now is written again by the next change.
    if (!copy_.empty()) (void)editor_.Save();
  }
  return changed;
}

}  // namespace skerrow
