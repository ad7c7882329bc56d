#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/result.h"

// Edits of a file of fixed-size records by its bytes, so that the records that are not touched stay
// as they are, damaged ones and one cut short at the end too. Each goes through ReplaceFile.
namespace skerrow {

// A file as it was when it was listed. An edit of a file that has changed since is refused, since
// its record numbers may speak of other records.
struct SeenFile {
  std::string path;
  std::string content;
  std::size_t record_size = 0;

  // Whole records; one that is cut short at the end is none.
  std::size_t Count() const { return content.size() / record_size; }
  // The bytes of a record, from 0.
  std::string_view Record(std::size_t index) const {
    return std::string_view(content).substr(index * record_size, record_size);
  }
};

// Errors: those of ReadFile, or more records than a 16-bit number counts.
Result<SeenFile> SeeFile(const std::string& path, std::size_t record_size);

// Error: the file is no more as it was seen.
Status CheckUnchanged(const SeenFile& seen);

// Puts `records`, whole ones, in the place of `removed` records from `index` on; an index at the
// end appends, ahead of what is cut short there. `seen` becomes the new content. Errors, with the
// file and `seen` as they were: the file has changed since, there is no such record, too many
// records, or ReplaceFile.
Status SpliceRecords(SeenFile& seen, std::size_t index, std::size_t removed,
                     std::string_view records);

// Appends the chosen records (from 0) of a file to the file at `path`, which is created where there
// is none. Errors, with nothing written: a choice that the source does not hold, the source has
// changed, or as SpliceRecords.
Status CopyRecords(const SeenFile& source, const std::vector<std::size_t>& chosen,
                   const std::string& path);

}  // namespace skerrow
