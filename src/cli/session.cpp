#include "cli/session.h"

#include <cstdio>
#include <cstdlib>

#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"
#include "platform/standard_folders.h"
#include "platform/terminal.h"

namespace skerrow::cli {
namespace {

// The option, else the environment variable, else what `otherwise` gives.
template <typename Otherwise>
std::string Choose(const std::string& option, const char* variable, Otherwise otherwise) {
  if (!option.empty()) return option;
  const char* value = std::getenv(variable);
  return value != nullptr && *value != '\0' ? std::string(value) : otherwise();
}

Folders ChooseFolders(const Options& options) {
  return {
      Choose(options.program, "SKERROW_PROGRAM", [] { return FindProgramFolder(ProgramFile()); }),
      Choose(options.documents, "SKERROW_DOCUMENTS", [] { return DocumentsFolder(); }),
      Choose(options.settings, "SKERROW_SETTINGS", [] { return ConfigurationFolder(); })};
}

}  // namespace

std::string OneLine(std::string_view text) { return ReplaceAll(std::string(text), "\n", "; "); }

void ConsoleMessages::Show(std::string_view text, MessageIcon, std::string_view) {
  texts_.emplace_back(text);
  std::fprintf(stderr, "skerrow-cli: %s\n", OneLine(text).c_str());
}

bool ConsoleMessages::Ask(std::string_view text, std::string_view title) {
  Show(text, MessageIcon::kNone, title);
  return true;
}

ConsoleProgress::ConsoleProgress() : shown_(StandardErrorIsTerminal()) {}

ConsoleProgress::~ConsoleProgress() {
  if (last_ >= 0) std::fprintf(stderr, "\r      \r");
}

bool ConsoleProgress::Step(double percent) {
  const auto whole = static_cast<int>(RoundToInteger(percent));
  if (shown_ && whole != last_) {
    last_ = whole;
    std::fprintf(stderr, "\r%4d %%", whole);
  }
  return true;
}

Session::Session(const Options& options, const Clock& clock)
    : program(ChooseFolders(options), clock), options_(options) {}

Status Session::Open() {
  if (FileIsThere(program.folders.ConfigFile())) {
    if (Status read = ReadConfig(program.folders, program.config); !read) return read;
  }
  for (const std::string& set : options_.sets) {
    const std::size_t equals = set.find('=');
    if (equals == std::string::npos)
      return Error{"", "--set takes FIELD=VALUE, not \"" + set + "\""};
    if (Status done = SetConfigField(program.config, set.substr(0, equals), set.substr(equals + 1));
        !done) {
      return done;
    }
  }
  return Done{};
}

void Session::LoadTides(DayAndYear date) {
  SetDay(program.selected_time, date);
  FindRefPorts(program.tides, program.folders, program.config.tidal_area);
  LoadDiamonds(program.tides, program.folders, program.config.tidal_area, messages);
  BuildRefPortHeights(program.tides, program.folders, date, program.config.summer_time != 0,
                      messages);
}

std::string Session::FindFile(const std::string& name, const std::vector<std::string>& folders) {
  if (FileReadable(name)) return name;
  for (const std::string& folder : folders) {
    std::string path = JoinPath(folder, name);
    if (FileReadable(path)) return path;
  }
  return name.find('/') != std::string::npos ? name : JoinPath(folders.front(), name);
}

}  // namespace skerrow::cli
