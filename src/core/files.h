#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "core/result.h"
#include "core/system_file.h"

// Reading and writing whole files. Every reader of the program goes through ReadFile and every
// writer through ReplaceFile, so that nothing is ever half written.
namespace skerrow {

// Upper bound for record and settings files; anything larger is refused before it is read.
inline constexpr std::size_t kMaxRecordFileSize = std::size_t{64} * 1024 * 1024;

// `folder` and `name` with one separator between them. Both "/" and "\" count as separators; a
// `name` may begin with one. Trailing blanks of `folder` and `name` do not reach the path.
std::string JoinPath(std::string_view folder, std::string_view name);

// A stored path text as this system's: trimmed, and with "\" as "/".
std::string NativePath(std::string_view path);

// The last element of a path, either separator counting.
std::string FileNameOf(std::string_view path);

// The path without its last element and the separator before it.
std::string FolderOf(std::string_view path);

// Whether `path` can be opened for reading and is a regular file. Like every function here, it
// never waits for a pipe or a device in a file's place.
bool FileReadable(const std::string& path);

// The whole content of a file. Errors: missing, not a file, unreadable, over `max_size` bytes.
Result<std::string> ReadFile(const std::string& path, std::size_t max_size = kMaxRecordFileSize);

// Replaces the file at `path` (or creates it) with `content`: writes a new file beside it, flushes
// it to the disk, renames it and flushes the folder. The new file has the rights of the old one,
// but none that would keep its owner from reading it. On any failure before the rename the file at
// `path` is as it was and nothing is left beside it. Error: something else than a file stands
// there.
Status ReplaceFile(const std::string& path, std::string_view content);

// A file on its way: it stands beside the name it is to have, under a name of its own, locked
// against ClearLeftovers. What has not been given its name goes with the object.
class NewFile {
 public:
  // Creates the empty file. Error: that of the system, with `path` as its path.
  static Result<NewFile> Beside(const std::string& path);

  NewFile(NewFile&& other) noexcept
      : file_(std::move(other.file_)),
        path_(std::exchange(other.path_, {})),
        target_(std::move(other.target_)) {}
  NewFile& operator=(NewFile&&) = delete;
  ~NewFile();

  // Where to write it until it has its name.
  const std::string& path() const { return path_; }
  // The name it is to have.
  const std::string& target() const { return target_; }
  const SystemFile& file() const { return file_; }

  // Flushes the content to the disk and gives the file its name, whatever stood there. The folder
  // is left for the caller to flush.
  Status Name();

 private:
  NewFile(SystemFile file, std::string path, std::string target)
      : file_(std::move(file)), path_(std::move(path)), target_(std::move(target)) {}

  SystemFile file_;
  std::string path_;  // empty once it has its name
  std::string target_;
};

// Removes the new files that a ReplaceFile or a NewFile in `folder` left behind when it was killed;
// those that another process is writing stay. Gives their number.
int ClearLeftovers(const std::string& folder);

// Adds `content` at the end of the file at `path`, creating it when missing.
Status AppendToFile(const std::string& path, std::string_view content);

// Whether anything stands at `path`, readable or not.
bool FileIsThere(const std::string& path);

// Gives a file another name in the same folder. Error: something stands there already.
Status MoveFile(const std::string& from, const std::string& to);

// Deletes a file; a missing one is no error.
Status DeleteFile(const std::string& path);

// Creates a folder and those above it; one that exists is no error.
Status MakeFolder(const std::string& path);

}  // namespace skerrow
