#include "routes/record_files.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "core/files.h"
#include "core/text.h"

namespace skerrow {

namespace fs = std::filesystem;

std::string_view ExtensionOf(FileKind kind) {
  return kind == FileKind::kWaypoint ? ".way" : ".rte";
}

std::string FolderOfKind(const Folders& folders, FileKind kind) {
  return kind == FileKind::kWaypoint ? folders.Waypoints() : folders.Routes();
}

std::vector<std::string> ListFiles(const std::string& folder, FileKind kind) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    const std::string name = at->path().filename().string();
    std::error_code ignored;
    if (at->is_regular_file(ignored) && ToLowerAscii(name).ends_with(ExtensionOf(kind))) {
      names.push_back(name);
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace skerrow
