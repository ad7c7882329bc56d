#include "ui/forms/file_forms.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "core/files.h"
#include "core/text.h"

namespace skerrow {
namespace {

namespace fs = std::filesystem;

struct RefusalText {
  FileRefusal refusal;
  std::string_view text;
};
constexpr std::array<RefusalText, 9> kRefusalTexts = {{
    {FileRefusal::kNameBad, "Check Waypoint file name"},
    {FileRefusal::kNothingSelected,
     "Select a Waypoint file by clicking a name in the list, followed by the OK button"},
    {FileRefusal::kNotAWaypointFile, "Problem with the waypoint file name"},
    {FileRefusal::kNothingToDelete,
     "Select file by clicking a name in the list, followed by the OK button"},
    {FileRefusal::kDeleteWrongType,
     "problem with the file name, try deleting with Windows Explorer"},
    {FileRefusal::kDeleteDefault,
     "You cannot delete a file called Default - delete with Windows Explorer"},
    {FileRefusal::kDeleteMaster,
     "You cannot delete a file called Master - delete with Windows Explorer"},
    {FileRefusal::kDeleteUnreachable, "The file selected has a problem  - it may be in use"},
    {FileRefusal::kNothingToImport, "Nothing to import"},
}};

struct EmptyNameText {
  NameEntry entry;
  std::string_view text;
};
constexpr std::array<EmptyNameText, 4> kEmptyNameTexts = {{
    {NameEntry::kRouteSave, "Enter a new route file name an then click the OK button"},
    {NameEntry::kWaypointSave, "Enter a new route file name an then click the OK button"},
    {NameEntry::kNewWaypointFile, "Enter a new waypoint file name an then click the OK button"},
    {NameEntry::kWaypointEditNew, "Enter a new waypoint file name an then clich the OK button"},
}};

bool HoldsExtension(std::string_view text, FileKind kind) {
  return kind == FileKind::kWaypoint ? text.find(".way") != std::string_view::npos ||
                                           text.find(".WAY") != std::string_view::npos
                                     : text.find(".rte") != std::string_view::npos ||
                                           text.find(".RTE") != std::string_view::npos;
}

// A name that could lead out of the folder it is meant for.
bool LeavesFolder(std::string_view name) {
  return name.find_first_of(std::string_view("/\\:\0", 4)) != std::string_view::npos;
}

std::string PathOfKind(const Folders& folders, FileKind kind, std::string_view file_name) {
  return JoinPath(FolderOfKind(folders, kind), file_name);
}

}  // namespace

std::string_view FileRefusalText(FileRefusal refusal, NameEntry entry) {
  if (refusal == FileRefusal::kNameEmpty) {
    for (const EmptyNameText& row : kEmptyNameTexts) {
      if (row.entry == entry) return row.text;
    }
  }
  for (const RefusalText& row : kRefusalTexts) {
    if (row.refusal == refusal) return row.text;
  }
  return "";
}

CheckedName CheckFileName(std::string_view typed, NameEntry entry) {
  const std::string name = Trim(typed);
  if (name.empty()) return {FileRefusal::kNameEmpty, ""};
  if (name.front() == '.' || LeavesFolder(name)) return {FileRefusal::kNameBad, ""};
  const FileKind kind = entry == NameEntry::kRouteSave ? FileKind::kRoute : FileKind::kWaypoint;
  return {FileRefusal::kNone,
          TrimRight(name.substr(0, name.find('.'))) + std::string(ExtensionOf(kind))};
}

FileRefusal CheckWaypointFileChoice(std::string_view label) {
  if (Trim(label).empty()) return FileRefusal::kNothingSelected;
  return HoldsExtension(label, FileKind::kWaypoint) ? FileRefusal::kNone
                                                    : FileRefusal::kNotAWaypointFile;
}

Status ChooseWaypointFile(const Folders& folders, std::string_view file_name, AppConfig& config,
                          WaypointState& state, Messages& messages) {
  const std::string name = Trim(file_name);
  // The file is tried on copies first: a choice that cannot be loaded leaves the current one.
  AppConfig tried = config;
  WaypointState loaded;
  tried.waypoint_file = name;
  Status load = LoadCurrentWaypoints(folders, tried, loaded, messages);
  if (!load) return load;
  state = std::move(loaded);
  AppConfig stored = config;
  Status saved =
      ReloadThenSave(folders, stored, [&](AppConfig& record) { record.waypoint_file = name; });
  config.waypoint_file = name;
  return saved;
}

Status NewWaypointFile(const Folders& folders, std::string_view file_name, AppConfig& config,
                       WaypointState& state, Messages& messages) {
  Status created = WriteWaypointFile(WaypointPath(folders, file_name), {});
  if (!created) return created;
  return ChooseWaypointFile(folders, file_name, config, state, messages);
}

FileRefusal CheckDelete(const Folders& folders, FileKind kind, std::string_view file_name) {
  const std::string name = Trim(file_name);
  if (name.empty()) return FileRefusal::kNothingToDelete;
  if (!HoldsExtension(name, kind) || LeavesFolder(name)) return FileRefusal::kDeleteWrongType;
  if (kind == FileKind::kWaypoint) {
    const std::string base = name.substr(0, name.find('.'));
    const auto part_of = [&](std::string_view word) {
      return word.find(base) != std::string_view::npos;
    };
    if (part_of("Default")) return FileRefusal::kDeleteDefault;
    if (part_of("Master") || part_of("master")) return FileRefusal::kDeleteMaster;
  }
  return FileReadable(PathOfKind(folders, kind, name)) ? FileRefusal::kNone
                                                       : FileRefusal::kDeleteUnreachable;
}

std::string DeleteQuestion(FileKind kind, std::string_view file_name) {
  const std::string start = kind == FileKind::kWaypoint
                                ? "Are you sure that you want to delete Waypoint File ** "
                                : "Are you sure that you want to delete Route File ** ";
  return start + std::string(file_name) + " **";
}

Status DeleteRecordFile(const Folders& folders, FileKind kind, std::string_view file_name) {
  return DeleteFile(PathOfKind(folders, kind, file_name));
}

std::int64_t CountRecords(const std::string& path, std::size_t record_size) {
  std::error_code error;
  const auto size = fs::file_size(path, error);
  return error ? 0 : RecordCount(static_cast<std::size_t>(size), record_size);
}

std::string CountText(std::int64_t count) {
  return "The highlighted file contains " + std::to_string(count) + " waypoints";
}

std::string_view ImportTitle(FileKind kind) {
  return kind == FileKind::kWaypoint
             ? "Import Skerrow Waypoint files from floppy or external storage"
             : "Import Skerrow Route files from floppy or external storage";
}

Result<int> ImportFiles(const Folders& folders, FileKind kind,
                        const std::vector<std::string>& sources, Messages& messages) {
  if (sources.empty())
    return Error{"", std::string(FileRefusalText(FileRefusal::kNothingToImport))};
  int copied = 0;
  for (const std::string& source : sources) {
    const std::string name = FileNameOf(source);
    const std::string target = PathOfKind(folders, kind, name);
    std::error_code error;
    if (fs::equivalent(source, target, error)) continue;  // It is there already.
    if (fs::exists(target, error) && !messages.Ask(name + ": " + std::string(kOverwriteQuestion))) {
      continue;
    }
    const Result<std::string> content = ReadFile(source);
    if (!content) return content.error();
    if (const Status written = ReplaceFile(target, *content); !written) return written.error();
    ++copied;
  }
  return copied;
}

std::string ImportText(int count) { return std::to_string(count) + " files transferred"; }

}  // namespace skerrow
