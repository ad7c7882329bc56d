// What is installed with the command line and speaks of it: the manual page and the completion.

#include <algorithm>
#include <array>
#include <cstdio>
#include <gtest/gtest.h>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "core/files.h"
#include "core/text.h"
#include "core/version.h"

namespace skerrow::cli {
namespace {

std::string Packaging(const std::string& name) {
  return ReadFile(std::string(SKERROW_SOURCE_DIR "/packaging/") + name).value();
}

// What a line of a shell prints.
std::string Shell(const std::string& line) {
  FILE* pipe = popen(line.c_str(), "r");
  std::string output;
  std::array<char, 4096> buffer{};
  for (std::size_t n = 0; (n = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;) {
    output.append(buffer.data(), n);
  }
  pclose(pipe);
  return output;
}

std::set<std::string> WordsOf(const std::string& text) {
  std::istringstream words(text);
  return {std::istream_iterator<std::string>(words), {}};
}

// The commands of the program, read from what it says of itself.
std::set<std::string> Commands() {
  std::istringstream help(Shell(SKERROW_CLI " --help"));
  std::set<std::string> commands;
  bool listed = false;
  for (std::string line; std::getline(help, line);) {
    if (listed && line.starts_with("  ")) commands.insert(line.substr(2, line.find(' ', 2) - 2));
    if (line == "Subcommands:") listed = true;
  }
  return commands;
}

TEST(Package, TheManualPageNamesEveryCommand) {
  std::set<std::string> named;
  std::istringstream page(Packaging("skerrow-cli.1"));
  bool commands = false;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with(".SH")) commands = line == ".SH COMMANDS";
    if (!commands || !line.starts_with(".B")) continue;
    line = ReplaceAll(ReplaceAll(ReplaceAll(line, "\"", ""), ",", ""), ".BR", ".B");
    for (const std::string& word : WordsOf(line.substr(3))) named.insert(word);
  }
  EXPECT_GT(named.size(), 20U);
  EXPECT_EQ(named, Commands());
}

TEST(Package, TheVersionIsTheSameEverywhere) {
  const std::string version(kVersion);
  EXPECT_EQ(Shell(SKERROW_CLI " --version"), "skerrow-cli " + version + "\n");
  EXPECT_NE(Packaging("changelog").find("skerrow (" + version + "-1)"), std::string::npos);
  EXPECT_NE(Packaging("org.skerrow.Helm.metainfo.xml").find("<release version=\"" + version + "\""),
            std::string::npos);
  const std::string project = ReadFile(SKERROW_SOURCE_DIR "/CMakeLists.txt").value();
  EXPECT_NE(project.find("project(skerrow VERSION " + version + " "), std::string::npos);
}

// Bash itself completes the last of the words.
std::set<std::string> Complete(const std::string& words) {
  const int last = static_cast<int>(std::count(words.begin(), words.end(), ' '));
  const std::string spaced = std::regex_replace(words, std::regex("[^ ]+"), "'$&'");
  return WordsOf(Shell("bash -c \"cd /; . " SKERROW_SOURCE_DIR
                       "/packaging/completion/skerrow-cli; COMP_WORDS=('" SKERROW_CLI "' " +
                       spaced + (words.empty() || words.ends_with(' ') ? "''" : "") +
                       "); COMP_CWORD=" + std::to_string(last + 1) +
                       "; _skerrow_cli; echo \\\"\\${COMPREPLY[@]}\\\"\""));
}

TEST(Package, CompletionOffersWhatTheProgramTakes) {
  EXPECT_EQ(Complete(""), Commands());
  EXPECT_EQ(Complete("ti"), std::set<std::string>{"tide"});
  EXPECT_EQ(Complete("export kml "),
            (std::set<std::string>{"plan", "route", "track", "waypoints"}));
  EXPECT_EQ(Complete("--json export k"), std::set<std::string>{"kml"});
  EXPECT_EQ(Complete("tide Dover --sc"), std::set<std::string>{"--screen"});
  EXPECT_TRUE(Complete("plan --").contains("--json"));
  EXPECT_EQ(Complete("plan Round"), std::set<std::string>());  // bash goes on with files
}

}  // namespace
}  // namespace skerrow::cli
