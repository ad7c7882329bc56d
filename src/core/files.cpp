#include "core/files.h"

#include <atomic>
#include <filesystem>
#include <random>
#include <system_error>

#include "core/system_file.h"
#include "core/text.h"

namespace skerrow {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kNewFileEnding = ".new";

bool IsSeparator(char c) { return c == '/' || c == '\\'; }

// A name beside `path` that no other writer, in this process or another, is using.
std::string NameBeside(const std::string& path) {
  static std::atomic<unsigned> counter{0};
  static const unsigned process_mark = std::random_device{}();
  return path + "." + std::to_string(process_mark) + "-" + std::to_string(counter++) +
         std::string(kNewFileEnding);
}

bool EndsWithNumber(std::string_view& text) {
  const std::size_t digits = text.size() - 1 - text.find_last_not_of("0123456789");
  text.remove_suffix(digits);
  return digits > 0;
}

// Whether NameBeside gave this name: "something.123-4.new".
bool IsNameBeside(std::string_view name) {
  if (!name.ends_with(kNewFileEnding)) return false;
  name.remove_suffix(kNewFileEnding.size());
  if (!EndsWithNumber(name) || !name.ends_with('-')) return false;
  name.remove_suffix(1);
  return EndsWithNumber(name) && name.ends_with('.') && name.size() > 1;
}

// Gives a new file the rights of the one whose place it takes.
void TakeRights(const SystemFile& file, const fs::file_status& old) {
  if (!fs::exists(old)) return;
  fs::perms rights = old.permissions();
  // Rights that keep the owner out of the old file would keep him out of the new one.
  if ((rights & fs::perms::owner_read) == fs::perms::none) {
    rights |= fs::perms::owner_read | fs::perms::owner_write;
  }
  file.SetMode(static_cast<unsigned>(rights));
}

}  // namespace

std::string NativePath(std::string_view path) { return ReplaceAll(Trim(path), "\\", "/"); }

std::string JoinPath(std::string_view folder, std::string_view name) {
  std::string path = NativePath(folder);
  const std::string tail = NativePath(name);
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  std::size_t from = 0;
  while (from < tail.size() && tail[from] == '/') ++from;
  if (!path.empty() && path.back() != '/') path += '/';
  return path + tail.substr(from);
}

std::string FileNameOf(std::string_view path) {
  std::size_t at = path.size();
  while (at > 0 && !IsSeparator(path[at - 1])) --at;
  return std::string(path.substr(at));
}

std::string FolderOf(std::string_view path) {
  std::size_t at = path.size();
  while (at > 0 && !IsSeparator(path[at - 1])) --at;
  if (at > 1) --at;
  return std::string(path.substr(0, at));
}

bool FileReadable(const std::string& path) { return SystemFile::OpenForReading(path).ok(); }

Result<std::string> ReadFile(const std::string& path, std::size_t max_size) {
  const Result<SystemFile> file = SystemFile::OpenForReading(path);
  if (!file) return file.error();
  return file->ReadRest(max_size);
}

Status ReplaceFile(const std::string& path, std::string_view content) {
  // A link keeps standing: what it points at is replaced.
  std::error_code error;
  std::string target = path;
  if (fs::is_symlink(path, error)) target = fs::weakly_canonical(path, error).string();
  const fs::file_status old = fs::status(target, error);
  if (fs::exists(old) && !fs::is_regular_file(old)) return Error{path, "this is not a file"};
  Result<NewFile> fresh = NewFile::Beside(target);
  if (!fresh) return Error{path, fresh.error().reason};
  Status done = fresh->file().Write(content);
  if (done) {
    TakeRights(fresh->file(), old);
    done = fresh.value().Name();
  }
  if (!done) return Error{path, done.error().reason};
  if (const Status kept = SystemFile::SyncFolder(FolderOf(target)); !kept) {
    return Error{path, kept.error().reason};
  }
  return Done{};
}

Result<NewFile> NewFile::Beside(const std::string& path) {
  std::string fresh = NameBeside(path);
  // It stays open, and so locked against ClearLeftovers, until it has its own name.
  Result<SystemFile> file = SystemFile::CreateNew(fresh);
  if (!file) return Error{path, file.error().reason};
  return NewFile(std::move(file.value()), std::move(fresh), path);
}

NewFile::~NewFile() {
  std::error_code error;
  if (!path_.empty()) fs::remove(path_, error);
}

Status NewFile::Name() {
  if (Status synced = file_.Sync(); !synced) return Error{target_, synced.error().reason};
  std::error_code error;
  fs::rename(path_, target_, error);
  if (error) return Error{target_, error.message()};
  path_.clear();
  return Done{};
}

int ClearLeftovers(const std::string& folder) {
  std::error_code error;
  int cleared = 0;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string path = entry->path().string();
    std::error_code ignored;
    if (IsNameBeside(FileNameOf(path)) &&
        entry->symlink_status(ignored).type() == fs::file_type::regular &&
        SystemFile::IsAbandoned(path) && fs::remove(path, ignored)) {
      ++cleared;
    }
  }
  return cleared;
}

Status AppendToFile(const std::string& path, std::string_view content) {
  const Result<SystemFile> file = SystemFile::OpenForAppending(path);
  if (!file) return file.error();
  return file->Write(content);
}

bool FileIsThere(const std::string& path) {
  std::error_code error;
  return fs::symlink_status(path, error).type() != fs::file_type::not_found;
}

Status MoveFile(const std::string& from, const std::string& to) {
  if (FileIsThere(to)) return Error{to, "there is a file of that name already"};
  std::error_code error;
  fs::rename(from, to, error);
  if (error) return Error{from, error.message()};
  return Done{};
}

Status DeleteFile(const std::string& path) {
  std::error_code error;
  fs::remove(path, error);
  if (error) return Error{path, error.message()};
  return Done{};
}

Status MakeFolder(const std::string& path) {
  std::error_code error;
  fs::create_directories(path, error);
  if (error) return Error{path, error.message()};
  return Done{};
}

}  // namespace skerrow
