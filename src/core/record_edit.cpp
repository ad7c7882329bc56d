#include "core/record_edit.h"

#include <cstdint>

#include "core/files.h"
#include "core/record.h"

namespace skerrow {

Status CheckUnchanged(const SeenFile& seen) {
  const Result<std::string> now = ReadFile(seen.path);
  if (!now) return now.error();
  if (*now != seen.content) {
    return Error{seen.path, "it is no more as it was listed here; list it again"};
  }
  return Done{};
}

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

}  // namespace skerrow
