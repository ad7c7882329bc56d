#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/result.h"

// An open file of the operating system: what whole-file reading and writing need of it beyond the
// standard library.
namespace skerrow {

// Closes itself. Errors carry the path and the system's reason.
class SystemFile {
 public:
  // Opens a regular file. Anything else is refused without waiting for it: a folder, a device, a
  // pipe that nobody writes to. Errors: missing ("the file does not exist"), "this is not a file",
  // unreadable.
  static Result<SystemFile> OpenForReading(const std::string& path);

  // Creates a file that does not exist yet and locks it, until it is closed, against IsAbandoned.
  static Result<SystemFile> CreateNew(const std::string& path);

  // Opens a regular file for writing at its end, creating it when it is missing.
  static Result<SystemFile> OpenForAppending(const std::string& path);

  // Whether the file at `path` is regular and no CreateNew, of this process or another, holds it.
  static bool IsAbandoned(const std::string& path);

  // Whether this process may create files in a folder.
  static bool FolderWritable(const std::string& folder);

  // Flushes the entries of a folder to the disk, so that a rename in it lasts.
  static Status SyncFolder(const std::string& folder);

  SystemFile(SystemFile&& other) noexcept;
  SystemFile& operator=(SystemFile&& other) noexcept;
  ~SystemFile();

  // The system's number of the open file, valid as long as this object.
  int descriptor() const { return descriptor_; }

  // The file's length in bytes.
  std::int64_t Size() const;

  // What is left of the file. Error: more than `max_size` bytes, unreadable.
  Result<std::string> ReadRest(std::size_t max_size) const;

  // At most `most` bytes of the file from the byte `offset` on, counted from 0; fewer, or none, at
  // its end. Does not move where ReadRest goes on. Error: unreadable.
  Result<std::string> ReadAt(std::int64_t offset, std::size_t most) const;

  // Writes all of `content`.
  Status Write(std::string_view content) const;

  // Gives the file the access rights of `mode` (the lowest nine bits as usual).
  void SetMode(unsigned mode) const;

  // Flushes the file to the disk.
  Status Sync() const;

 private:
  SystemFile(int descriptor, std::string path) : descriptor_(descriptor), path_(std::move(path)) {}
  static Result<SystemFile> Open(const std::string& path, int flags);
  Error Failed() const;

  int descriptor_ = -1;
  std::string path_;
};

}  // namespace skerrow
