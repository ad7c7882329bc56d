#include "tides/record_edit.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <system_error>

#include "core/files.h"
#include "core/record.h"
#include "core/text.h"

namespace skerrow {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kScratch = "scratch";

Status CheckUnchanged(const SeenFile& seen) {
  const Result<std::string> now = ReadFile(seen.path);
  if (!now) return now.error();
  if (*now != seen.content) {
    return Error{seen.path, "it is no more as it was listed here; list it again"};
  }
  return Done{};
}

}  // namespace

Result<SeenFile> SeeFile(const std::string& path, std::size_t record_size) {
  Result<std::string> content = ReadFile(path);
  if (!content) return content.error();
  if (RecordCount(content->size(), record_size) > INT16_MAX) {
    return Error{path, "the file holds too many records"};
  }
  return SeenFile{path, std::move(content.value()), record_size};
}

Status SpliceRecords(SeenFile& seen, std::size_t index, std::size_t removed,
                     std::string_view records) {
  if (index > seen.Count() || removed > seen.Count() - index) {
    return Error{seen.path, "there is no record " + std::to_string(index + 1)};
  }
  const std::size_t added = records.size() / seen.record_size;
  if (seen.Count() - removed + added > INT16_MAX) {
    return Error{seen.path, "the file would hold too many records; nothing is written"};
  }
  if (Status same = CheckUnchanged(seen); !same) return same;
  std::string content = seen.content;
  content.replace(index * seen.record_size, removed * seen.record_size, records);
  if (Status written = ReplaceFile(seen.path, content); !written) return written;
  seen.content = std::move(content);
  return Done{};
}

Status CopyRecords(const SeenFile& source, const std::vector<std::size_t>& chosen,
                   const std::string& path) {
  std::string records;
  for (const std::size_t index : chosen) {
    if (index >= source.Count()) {
      return Error{source.path, "there is no record " + std::to_string(index + 1)};
    }
    records += source.Record(index);
  }
  if (Status same = CheckUnchanged(source); !same) return same;
  if (!FileIsThere(path)) return ReplaceFile(path, records);
  Result<SeenFile> target = SeeFile(path, source.record_size);
  if (!target) return target.error();
  return SpliceRecords(target.value(), target->Count(), 0, records);
}

std::vector<std::string> ListTidalFiles(const Folders& folders, std::string_view extension) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator at(folders.TidalStreams(), error), end; !error && at != end;
       at.increment(error)) {
    const std::string name = at->path().filename().string();
    const std::string lower = ToLowerAscii(name);
    std::error_code ignored;
    if (lower.ends_with(extension) && lower != std::string(kScratch) + std::string(extension) &&
        at->is_regular_file(ignored)) {
      names.push_back(name);
    }
  }
  std::sort(names.begin(), names.end());
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
