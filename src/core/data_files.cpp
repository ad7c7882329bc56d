#include "core/data_files.h"

#include <filesystem>
#include <set>
#include <system_error>

#include "core/files.h"
#include "core/system_file.h"
#include "core/text.h"

namespace skerrow {
namespace {

namespace fs = std::filesystem;

}  // namespace

std::string ProgramDataFolder(const Folders& folders, DataFolder folder) {
  switch (folder) {
    case DataFolder::kCharts:
      return folders.Charts();
    case DataFolder::kTidalStreams:
      return folders.TidalStreams();
    case DataFolder::kHarmonicStreams:
      break;
  }
  return folders.HarmonicStreams();
}

std::string OwnDataFolder(const Folders& folders, DataFolder folder) {
  return JoinPath(folders.UserData(), FileNameOf(ProgramDataFolder(folders, folder)));
}

std::string FindData(const Folders& folders, DataFolder folder, std::string_view name) {
  std::string own = JoinPath(OwnDataFolder(folders, folder), name);
  if (FileIsThere(own)) return own;
  return JoinPath(ProgramDataFolder(folders, folder), name);
}

Result<std::string> WritableData(const Folders& folders, DataFolder folder, std::string_view name) {
  std::string own = JoinPath(OwnDataFolder(folders, folder), name);
  if (FileIsThere(own)) return own;
  std::string installed = JoinPath(ProgramDataFolder(folders, folder), name);
  if (SystemFile::FolderWritable(FolderOf(installed))) return installed;
  if (Status made = MakeFolder(FolderOf(own)); !made) return made.error();
  if (FileIsThere(installed)) {
    const Result<std::string> content = ReadFile(installed);
    if (!content) return content.error();
    if (Status copied = ReplaceFile(own, *content); !copied) return copied.error();
  }
  return own;
}

std::vector<std::string> ListData(const Folders& folders, DataFolder folder,
                                  std::string_view extension) {
  std::set<std::string> names;
  for (const std::string& path :
       {ProgramDataFolder(folders, folder), OwnDataFolder(folders, folder)}) {
    std::error_code error;
    for (fs::directory_iterator at(path, error), end; !error && at != end; at.increment(error)) {
      std::string name = at->path().filename().string();
      std::error_code ignored;
      if (ToLowerAscii(name).ends_with(extension) && at->is_regular_file(ignored)) {
        names.insert(std::move(name));
      }
    }
  }
  return {names.begin(), names.end()};
}

}  // namespace skerrow
