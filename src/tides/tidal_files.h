#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/folders.h"
#include "core/result.h"

// The names of the files of tidal data.
namespace skerrow {

// The names of the files of the TS folder with that extension (".hc", ".l25") in either case, in
// alphabetical order. A "scratch" file that an editor has left there is none of them.
std::vector<std::string> ListTidalFiles(const Folders& folders, std::string_view extension);

// The file of the TS folder that a typed name means, its extension left out or typed: one that is
// there, in whatever case, or the name for a new one. Error: blank ("No file name"), or no name of
// a file of that folder.
Result<std::string> NameTidalFile(const Folders& folders, std::string_view typed,
                                  std::string_view extension);

}  // namespace skerrow
