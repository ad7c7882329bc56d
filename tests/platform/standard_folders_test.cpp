#include "platform/standard_folders.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace skerrow {
namespace {

namespace fs = std::filesystem;

// A folder of its own, the environment of the folder questions pointing into it.
class StandardFoldersTest : public ::testing::Test {
 protected:
  void SetUp() override {
    root_ =
        fs::path(::testing::TempDir()) /
        (std::string("folders-") + ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(root_);
    fs::create_directories(root_ / "home");
    for (const char* name : kNames) {
      const char* value = std::getenv(name);
      saved_.emplace_back(value == nullptr ? "\x01" : value);
      unsetenv(name);
    }
    setenv("HOME", (root_ / "home").c_str(), 1);
  }
  void TearDown() override {
    for (std::size_t i = 0; i < std::size(kNames); ++i) {
      if (saved_[i] == "\x01") {
        unsetenv(kNames[i]);
      } else {
        setenv(kNames[i], saved_[i].c_str(), 1);
      }
    }
    fs::remove_all(root_);
  }
  void Write(const fs::path& name, const std::string& text = "x") const {
    fs::create_directories((root_ / name).parent_path());
    std::ofstream(root_ / name) << text;
  }
  std::string Path(const fs::path& name) const { return (root_ / name).string(); }

  static constexpr const char* kNames[] = {"HOME", "XDG_CONFIG_HOME", "XDG_DOCUMENTS_DIR"};
  fs::path root_;
  std::vector<std::string> saved_;
};

TEST_F(StandardFoldersTest, PlainAccountUsesItsHome) {
  EXPECT_EQ(ConfigurationFolder(), Path("home/.config"));
  EXPECT_EQ(DocumentsFolder(), Path("home/Documents"));
}

TEST_F(StandardFoldersTest, EnvironmentAndUserDirsWin) {
  Write("cfg/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"$HOME/Papers/\"\n");
  setenv("XDG_CONFIG_HOME", Path("cfg/").c_str(), 1);
  EXPECT_EQ(ConfigurationFolder(), Path("cfg"));
  EXPECT_EQ(DocumentsFolder(), Path("home/Papers"));
  setenv("XDG_DOCUMENTS_DIR", "/srv/docs/", 1);
  EXPECT_EQ(DocumentsFolder(), "/srv/docs");
}

TEST_F(StandardFoldersTest, RelativeSettingsAreIgnored) {
  setenv("XDG_CONFIG_HOME", "cfg", 1);
  setenv("XDG_DOCUMENTS_DIR", "docs", 1);
  EXPECT_EQ(ConfigurationFolder(), Path("home/.config"));
  EXPECT_EQ(DocumentsFolder(), Path("home/Documents"));
}

TEST(UserDirs, LegalAndIllegalLines) {
  const auto folder = [](const std::string& text) {
    return DocumentsFolderFromUserDirs(text, "/home/jo");
  };
  EXPECT_EQ(folder("# x\nXDG_MUSIC_DIR=\"$HOME/M\"\n  XDG_DOCUMENTS_DIR=\"$HOME/Dok\""),
            "/home/jo/Dok");
  EXPECT_EQ(folder("XDG_DOCUMENTS_DIR=\"/srv/a \\\"b\\\"\"\n"), "/srv/a \"b\"");
  EXPECT_EQ(folder("XDG_DOCUMENTS_DIR=\"/one\"\nXDG_DOCUMENTS_DIR=\"/two\"\n"), "/two");
  EXPECT_EQ(folder("XDG_DOCUMENTS_DIR=\"$HOME/\"\n"), "");
  EXPECT_EQ(folder("XDG_DOCUMENTS_DIR=\"$HOMELY/x\"\n"), "");
  EXPECT_EQ(folder("XDG_DOCUMENTS_DIR=\"rel\"\n"), "");
  EXPECT_EQ(folder("XDG_DOCUMENTS_DIR=/bare\n"), "");
  EXPECT_EQ(folder("XDG_DOCUMENTS_DIR=\"/open\n"), "");
  EXPECT_EQ(folder("#XDG_DOCUMENTS_DIR=\"/x\"\n"), "");
}

TEST_F(StandardFoldersTest, ProgramFolderInstalledAndInTheSourceTree) {
  Write("repo/program/RefPorts.hc");
  Write("repo/build/release/bin/skerrow");
  EXPECT_EQ(FindProgramFolder(Path("repo/build/release/bin/skerrow")), Path("repo/program"));
  // An empty share folder is not taken for the installed data.
  fs::create_directories(root_ / "repo/build/release/share/skerrow");
  EXPECT_EQ(FindProgramFolder(Path("repo/build/release/bin/skerrow")), Path("repo/program"));
  fs::create_directories(root_ / "repo/build/release/share/skerrow/TS");
  EXPECT_EQ(FindProgramFolder(Path("repo/build/release/bin/skerrow")),
            Path("repo/build/release/share/skerrow"));
  // Through a link the place of the file itself counts.
  fs::create_directories(root_ / "elsewhere");
  fs::create_symlink(root_ / "repo/build/release/bin/skerrow", root_ / "elsewhere/helm");
  EXPECT_EQ(FindProgramFolder(Path("elsewhere/helm")), Path("repo/build/release/share/skerrow"));
  EXPECT_EQ(FindProgramFolder(""), "");
}

TEST(ProgramFile, IsThisTest) {
  EXPECT_EQ(fs::path(ProgramFile()).filename(),
            fs::path(testing::internal::GetArgvs()[0]).filename());
}

}  // namespace
}  // namespace skerrow
