#include "core/files.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <random>
#include <system_error>

#include "core/text.h"

namespace skerrow {
namespace {

namespace fs = std::filesystem;

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

bool IsSeparator(char c) { return c == '/' || c == '\\'; }

std::string Reason(int error_number) {
  return std::error_code(error_number, std::generic_category()).message();
}

// A name beside `path` that no other writer, in this process or another, is using.
std::string NameBeside(const std::string& path) {
  static std::atomic<unsigned> counter{0};
  static const unsigned process_mark = std::random_device{}();
  return path + "." + std::to_string(process_mark) + "-" + std::to_string(counter++) + ".new";
}

bool WriteAndClose(File file, std::string_view content, int& error_number) {
  errno = 0;
  bool good = std::fwrite(content.data(), 1, content.size(), file.get()) == content.size();
  good = std::fflush(file.get()) == 0 && good;
  if (!good) error_number = errno;
  // Closing can be the moment at which a full disk shows.
  if (std::fclose(file.release()) != 0 && good) {
    error_number = errno;
    good = false;
  }
  return good;
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

bool FileReadable(const std::string& path) {
  std::error_code error;
  if (fs::is_directory(path, error)) return false;
  return File(std::fopen(path.c_str(), "rb")) != nullptr;
}

Result<std::string> ReadFile(const std::string& path, std::size_t max_size) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (!fs::exists(status)) return Error{path, "the file does not exist"};
  if (!fs::is_regular_file(status)) return Error{path, "this is not a file"};
  const File file(std::fopen(path.c_str(), "rb"));
  if (!file) return Error{path, Reason(errno)};
  std::string content;
  char buffer[16384];
  for (;;) {
    const std::size_t got = std::fread(buffer, 1, sizeof buffer, file.get());
    content.append(buffer, got);
    if (content.size() > max_size) return Error{path, "the file is too large"};
    if (got < sizeof buffer) break;
  }
  if (std::ferror(file.get()) != 0) return Error{path, "the file could not be read"};
  return content;
}

Status ReplaceFile(const std::string& path, std::string_view content) {
  // A link keeps standing: what it points at is replaced.
  std::error_code error;
  std::string target = path;
  if (fs::is_symlink(path, error)) target = fs::weakly_canonical(path, error).string();
  const std::string fresh = NameBeside(target);
  File file(std::fopen(fresh.c_str(), "wbx"));
  if (!file) return Error{path, Reason(errno)};
  int error_number = 0;
  if (!WriteAndClose(std::move(file), content, error_number)) {
    fs::remove(fresh, error);
    return Error{path, Reason(error_number)};
  }
  const fs::file_status old = fs::status(target, error);
  if (fs::exists(old)) fs::permissions(fresh, old.permissions(), error);
  fs::rename(fresh, target, error);
  if (error) {
    const std::string reason = error.message();
    fs::remove(fresh, error);
    return Error{path, reason};
  }
  return Done{};
}

Status AppendToFile(const std::string& path, std::string_view content) {
  File file(std::fopen(path.c_str(), "ab"));
  if (!file) return Error{path, Reason(errno)};
  int error_number = 0;
  if (!WriteAndClose(std::move(file), content, error_number)) {
    return Error{path, Reason(error_number)};
  }
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
