#include "core/system_file.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace skerrow {
namespace {

constexpr const char* kNoFile = "this is not a file";
constexpr mode_t kNewFileMode = 0666;  // the user's mask takes its part of it

Error SystemError(const std::string& path) {
  return {path, std::error_code(errno, std::generic_category()).message()};
}

bool IsRegular(const struct stat& status) { return S_ISREG(status.st_mode); }

}  // namespace

SystemFile::SystemFile(SystemFile&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)), path_(std::move(other.path_)) {}

SystemFile& SystemFile::operator=(SystemFile&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  std::swap(path_, other.path_);
  return *this;
}

SystemFile::~SystemFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

Error SystemFile::Failed() const { return SystemError(path_); }

// Looked at before it is opened, since opening a device can have effects of its own, and again
// when it is open, since something else may stand there by then.
Result<SystemFile> SystemFile::Open(const std::string& path, int flags) {
  struct stat status {};
  const bool there = ::stat(path.c_str(), &status) == 0;
  if (there && !IsRegular(status)) return Error{path, kNoFile};
  if (!there && errno == ENOENT && (flags & O_CREAT) == 0) {
    return Error{path, "the file does not exist"};
  }
  SystemFile file(::open(path.c_str(), flags | O_NONBLOCK | O_CLOEXEC, kNewFileMode), path);
  if (file.descriptor_ < 0) return file.Failed();
  if (::fstat(file.descriptor_, &status) != 0) return file.Failed();
  if (!IsRegular(status)) return Error{path, kNoFile};
  return file;
}

Result<SystemFile> SystemFile::OpenForReading(const std::string& path) {
  return Open(path, O_RDONLY);
}

Result<SystemFile> SystemFile::OpenForAppending(const std::string& path) {
  return Open(path, O_WRONLY | O_APPEND | O_CREAT);
}

Result<SystemFile> SystemFile::CreateNew(const std::string& path) {
  Result<SystemFile> file = Open(path, O_WRONLY | O_CREAT | O_EXCL);
  // Where the system has no locks, nothing counts as abandoned either.
  if (file) (void)::flock(file->descriptor_, LOCK_EX | LOCK_NB);
  return file;
}

bool SystemFile::IsAbandoned(const std::string& path) {
  const Result<SystemFile> file = Open(path, O_RDONLY | O_NOFOLLOW);
  return file && ::flock(file->descriptor_, LOCK_EX | LOCK_NB) == 0;
}

bool SystemFile::FolderWritable(const std::string& folder) {
  return faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

Status SystemFile::SyncFolder(const std::string& folder) {
  const SystemFile opened(
      ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC), folder);
  if (opened.descriptor_ < 0) return opened.Failed();
  // Some file systems cannot sync a folder and need not.
  if (::fsync(opened.descriptor_) != 0 && errno != EINVAL && errno != EROFS) {
    return opened.Failed();
  }
  return Done{};
}

std::int64_t SystemFile::Size() const {
  struct stat status {};
  return ::fstat(descriptor_, &status) == 0 ? status.st_size : 0;
}

Result<std::string> SystemFile::ReadRest(std::size_t max_size) const {
  const Error too_large{path_, "the file is too large"};
  if (Size() > static_cast<std::int64_t>(max_size)) return too_large;
  std::string content;
  std::array<char, 16384> buffer{};
  for (;;) {
    const ssize_t got = ::read(descriptor_, buffer.data(), buffer.size());
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return Failed();
    if (got == 0) return content;
    content.append(buffer.data(), static_cast<std::size_t>(got));
    if (content.size() > max_size) return too_large;  // it grows while it is read
  }
}

Result<std::string> SystemFile::ReadAt(std::int64_t offset, std::size_t most) const {
  std::string content(most, '\0');
  std::size_t filled = 0;
  while (filled < most) {
    const ssize_t got = ::pread(descriptor_, content.data() + filled, most - filled,
                                offset + static_cast<off_t>(filled));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return Failed();
    if (got == 0) break;
    filled += static_cast<std::size_t>(got);
  }
  content.resize(filled);
  return content;
}

Status SystemFile::Write(std::string_view content) const {
  while (!content.empty()) {
    const ssize_t put = ::write(descriptor_, content.data(), content.size());
    if (put < 0 && errno == EINTR) continue;
    if (put < 0) return Failed();
    content.remove_prefix(static_cast<std::size_t>(put));
  }
  return Done{};
}

void SystemFile::SetMode(unsigned mode) const {
  (void)::fchmod(descriptor_, static_cast<mode_t>(mode & 0777U));
}

Status SystemFile::Sync() const {
  if (::fsync(descriptor_) != 0) return Failed();
  return Done{};
}

}  // namespace skerrow
