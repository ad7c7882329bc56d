#pragma once

#include <string>

// Where the user's and the program's folders are. Links no user-interface library: the
// command-line program uses it too.
namespace skerrow {

// The user's documents folder: XDG_DOCUMENTS_DIR of the environment or else of user-dirs.dirs in
// the configuration folder, where that is an absolute path and not the home folder itself (which
// is how that file marks "none"); otherwise Documents in the home folder. No "/" at its end.
std::string DocumentsFolder();

// The user's configuration folder: $XDG_CONFIG_HOME where that is an absolute path, otherwise
// .config in the home folder. No "/" at its end.
std::string ConfigurationFolder();

// Full path of the running program, symbolic links resolved; empty when the system won't tell.
std::string ProgramFile();

// The folder of the data installed with the program, for the program at `program_file`:
// ../share/skerrow beside the folder it stands in when that holds RefPorts.hc or TS; otherwise the
// nearest folder `program` with either of them in one of the folders above the program file.
// Empty when there is none.
std::string FindProgramFolder(const std::string& program_file);

// The documents folder named by the text of a user-dirs.dirs file. Only lines of the form
//   XDG_DOCUMENTS_DIR="$HOME/Papers"      or      XDG_DOCUMENTS_DIR="/srv/papers"
// count, the last one winning; a backslash takes the next character as it is. Relative paths, the
// home folder itself and everything else give the empty text.
std::string DocumentsFolderFromUserDirs(const std::string& text, const std::string& home);

}  // namespace skerrow
