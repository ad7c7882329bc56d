#include "platform/standard_folders.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <pwd.h>
#include <string_view>
#include <system_error>
#include <unistd.h>

#include "core/files.h"

namespace skerrow {
namespace {

namespace fs = std::filesystem;

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

bool IsAbsolute(std::string_view path) { return !path.empty() && path.front() == '/'; }

std::string WithoutEndSlash(std::string path) {
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

// $HOME; failing that the entry of the user data base; failing that the root.
std::string HomeFolder() {
  std::string home = Environment("HOME");
  if (!IsAbsolute(home)) {
    const passwd* entry = getpwuid(getuid());
    home = entry != nullptr && entry->pw_dir != nullptr ? entry->pw_dir : "";
  }
  return IsAbsolute(home) ? WithoutEndSlash(std::move(home)) : "/";
}

std::string InHome(const char* name) { return JoinPath(HomeFolder(), name); }

// What stands between the quotes at the start of `text`, backslashes taken out; false when the
// closing quote is missing.
bool ReadQuoted(std::string_view text, std::string& value) {
  value.clear();
  if (text.empty() || text.front() != '"') return false;
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] == '"') return true;
    if (text[i] == '\\' && i + 1 < text.size()) ++i;
    value += text[i];
  }
  return false;
}

bool HoldsProgramData(const fs::path& folder) {
  std::error_code error;
  return fs::is_regular_file(folder / "RefPorts.hc", error) ||
         fs::is_directory(folder / "TS", error);
}

}  // namespace

std::string DocumentsFolderFromUserDirs(const std::string& text, const std::string& home) {
  constexpr std::string_view kKey = "XDG_DOCUMENTS_DIR=";
  constexpr std::string_view kHome = "$HOME";
  std::string found;
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::size_t end = rest.find('\n');
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (line.substr(0, kKey.size()) != kKey) continue;
    std::string value;
    if (!ReadQuoted(line.substr(kKey.size()), value)) continue;
    if (value == kHome || value.starts_with("$HOME/")) value.replace(0, kHome.size(), home);
    value = WithoutEndSlash(std::move(value));
    found = IsAbsolute(value) && value != WithoutEndSlash(home) ? value : std::string();
  }
  return found;
}

std::string DocumentsFolder() {
  const std::string set = Environment("XDG_DOCUMENTS_DIR");
  if (IsAbsolute(set)) return WithoutEndSlash(set);
  const auto user_dirs = ReadFile(JoinPath(ConfigurationFolder(), "user-dirs.dirs"));
  if (user_dirs) {
    std::string folder = DocumentsFolderFromUserDirs(*user_dirs, HomeFolder());
    if (!folder.empty()) return folder;
  }
  return InHome("Documents");
}

std::string ConfigurationFolder() {
  const std::string set = Environment("XDG_CONFIG_HOME");
  return IsAbsolute(set) ? WithoutEndSlash(set) : InHome(".config");
}

std::string ProgramFile() {
  std::error_code error;
  const fs::path file = fs::read_symlink("/proc/self/exe", error);
  return error ? std::string() : file.string();
}

std::string FindProgramFolder(const std::string& program_file) {
  std::error_code error;
  const fs::path file = fs::weakly_canonical(fs::path(program_file), error);
  if (program_file.empty() || error) return {};
  const fs::path installed = file.parent_path().parent_path() / "share" / "skerrow";
  if (HoldsProgramData(installed)) return installed.string();
  for (fs::path folder = file.parent_path();; folder = folder.parent_path()) {
    if (HoldsProgramData(folder / "program")) return (folder / "program").string();
    if (folder == folder.parent_path()) return {};
  }
}

}  // namespace skerrow
