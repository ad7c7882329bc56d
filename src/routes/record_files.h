#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/folders.h"

// The user's route and waypoint files by their kind.
namespace skerrow {

enum class FileKind { kWaypoint, kRoute };

// ".way" or ".rte".
std::string_view ExtensionOf(FileKind kind);

// The folder of the user's files of that kind.
std::string FolderOfKind(const Folders& folders, FileKind kind);

// The names of the files of a kind in `folder`, in alphabetical order; the extension counts in
// either case. A folder that cannot be read gives none.
std::vector<std::string> ListFiles(const std::string& folder, FileKind kind);

}  // namespace skerrow
