#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/folders.h"
#include "core/result.h"

// The data that come with the program and that a skipper may change or add to. The program's folder
// is read-only once installed, so the user has folders of the same names: a file there takes the
// place of the program's file of that name.
namespace skerrow {

enum class DataFolder { kCharts, kTidalStreams, kHarmonicStreams };

// The program's folder and the user's own.
std::string ProgramDataFolder(const Folders& folders, DataFolder folder);
std::string OwnDataFolder(const Folders& folders, DataFolder folder);

// Where the file `name` is to be read: the user's own; where there is none, the program's, whether
// that exists or not.
std::string FindData(const Folders& folders, DataFolder folder, std::string_view name);

// Where the file `name` is to be written: the user's own if there is one, the program's where its
// folder can be written, else a new own one, which begins as a copy of the program's. Errors: the
// own folder cannot be made, the copy cannot be written.
Result<std::string> WritableData(const Folders& folders, DataFolder folder, std::string_view name);

// The names of the files of both folders with that extension (".xrf") in either case, in
// alphabetical order and each once.
std::vector<std::string> ListData(const Folders& folders, DataFolder folder,
                                  std::string_view extension);

}  // namespace skerrow
