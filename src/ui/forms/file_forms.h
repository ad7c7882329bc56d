#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/config.h"
#include "core/folders.h"
#include "core/messages.h"
#include "core/result.h"
#include "routes/record_files.h"
#include "routes/waypoint.h"

// What the dialogs that name, choose, delete and import route and waypoint files check and say.
namespace skerrow {

// The dialogs in which a new file name is typed.
enum class NameEntry { kRouteSave, kWaypointSave, kNewWaypointFile, kWaypointEditNew };

// Why a choice or an entry about a file is refused.
enum class FileRefusal {
  kNone,
  kNameEmpty,          // file name entry
  kNameBad,            // begins with a point, or names a place outside the folder
  kNothingSelected,    // choice of the current waypoint file
  kNotAWaypointFile,   //
  kNothingToDelete,    // deletion
  kDeleteWrongType,    //
  kDeleteDefault,      // protected by its name
  kDeleteMaster,       //
  kDeleteUnreachable,  // cannot be opened
  kNothingToImport,    // import
};

// The text shown for a refusal; that of an empty name depends on the dialog.
std::string_view FileRefusalText(FileRefusal refusal, NameEntry entry = NameEntry::kRouteSave);

// A typed name, checked.
struct CheckedName {
  FileRefusal refusal = FileRefusal::kNone;
  std::string file_name;  // without folder, with the extension of the dialog's kind
};

// Checks a typed file name and gives it the extension, whatever extension was typed.
//   "Solent" -> "Solent.way"   " Solent.txt" -> "Solent.way"   "a.b.c" -> "a.way"
//   "" -> kNameEmpty           ".way" -> kNameBad              "x/y" -> kNameBad
CheckedName CheckFileName(std::string_view typed, NameEntry entry);

// Asked when the file of a checked name exists.
inline constexpr std::string_view kOverwriteQuestion =
    "File already exists - continue and overwrite the contents?";

// Checks the text of the chosen file's label.
FileRefusal CheckWaypointFileChoice(std::string_view label);

// Makes `file_name` the current waypoint file, in `config` and in the stored settings, and loads
// it. Errors: what stood in the way of writing the settings or of loading the file.
Status ChooseWaypointFile(const Folders& folders, std::string_view file_name, AppConfig& config,
                          WaypointState& state, Messages& messages);

// Creates an empty waypoint file of that name in the place of any earlier one, and makes it the
// current file.
Status NewWaypointFile(const Folders& folders, std::string_view file_name, AppConfig& config,
                       WaypointState& state, Messages& messages);

// Checks a choice for deletion, to the point where the file has been opened once. A waypoint file
// whose base name is "Default", "Master" or "master", or any piece of these words, is protected.
FileRefusal CheckDelete(const Folders& folders, FileKind kind, std::string_view file_name);

// The question before a deletion.
std::string DeleteQuestion(FileKind kind, std::string_view file_name);

// Deletes a file that CheckDelete has passed.
Status DeleteRecordFile(const Folders& folders, FileKind kind, std::string_view file_name);

// Number of records of a file by its length; 0 for one that cannot be read.
std::int64_t CountRecords(const std::string& path, std::size_t record_size);

// "The highlighted file contains 12 waypoints".
std::string CountText(std::int64_t count);

// The title of the import dialog.
std::string_view ImportTitle(FileKind kind);

// Copies whole files unchanged into the user's folder of that kind and gives their number. A file
// that stands there already is asked about first. The first that cannot be copied ends the import
// with its error.
Result<int> ImportFiles(const Folders& folders, FileKind kind,
                        const std::vector<std::string>& sources, Messages& messages);

// "3 files transferred".
std::string ImportText(int count);

}  // namespace skerrow
