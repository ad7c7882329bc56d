#include "tides/tidal_files.h"

#include <algorithm>

#include "core/data_files.h"
#include "core/text.h"

namespace skerrow {
namespace {

constexpr std::string_view kScratch = "scratch";

}  // namespace

std::vector<std::string> ListTidalFiles(const Folders& folders, std::string_view extension) {
  std::vector<std::string> names = ListData(folders, DataFolder::kTidalStreams, extension);
  std::erase_if(names, [&](const std::string& name) {
    return ToLowerAscii(name) == std::string(kScratch) + std::string(extension);
  });
  return names;
}

Result<std::string> NameTidalFile(const Folders& folders, std::string_view typed,
                                  std::string_view extension) {
  std::string name = Trim(typed);
  if (ToLowerAscii(name).ends_with(extension)) {
    name = TrimRight(name.substr(0, name.size() - extension.size()));
  }
  if (name.empty()) return Error{"", "No file name"};
  const bool leaves = name.find_first_of(std::string_view("/\\:\0", 4)) != std::string::npos;
  if (leaves || name.front() == '.' || ToLowerAscii(name) == kScratch) {
    return Error{"", "\"" + name + "\" cannot be the name of a file here"};
  }
  name += extension;
  const std::vector<std::string> names = ListTidalFiles(folders, extension);
  if (std::find(names.begin(), names.end(), name) != names.end()) return name;
  for (const std::string& other : names) {
    if (ToLowerAscii(other) == ToLowerAscii(name)) return other;
  }
  return name;
}

}  // namespace skerrow
