#pragma once

#include <array>
#include <string>
#include <string_view>

// Where the help documents are.
namespace skerrow {

// A help document and the menu entry that opens it.
struct HelpDocument {
  std::string_view command;  // "mnuHelpOverView"
  std::string_view file;     // "Overview.pdf"
};

inline constexpr std::array<HelpDocument, 9> kHelpDocuments = {{
    {"mnuHelpOverView", "Overview.pdf"},
    {"mnuMouseandKeyboard", "Mouse and Keyboard.pdf"},
    {"mnuHelpToolBar", "Toolbar.pdf"},
    {"mnuHelpPassagePlanning", "Passage Planning.pdf"},
    {"mnuHelpPassagePlanDoc", "Creating a Passage Planning Document.pdf"},
    {"mnuHelGPSAISUseage", "Operation With GPS and AIS.pdf"},
    {"mnuHelpGPAAISInstall", "GPS and AIS Installation.pdf"},
    {"mnuHelpWindGribsPolars", "Wind and Polar Plots.pdf"},
    {"mnuHelpManual", "Manual.pdf"},
}};

// The path of the help document `name` ("Overview.pdf"): in share/skerrow/Help beside the folder
// of the running program, or in Help within it. When it is in neither, where it ought to be.
std::string HelpFile(std::string_view name);

// The same for a program in `program_folder`.
std::string HelpFile(std::string_view name, const std::string& program_folder);

// "Overview" of "/a/b/Overview.pdf": the name that the reader's title shows.
std::string HelpTitle(std::string_view path);

}  // namespace skerrow
