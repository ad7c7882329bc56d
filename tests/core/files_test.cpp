#include "core/files.h"

#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>

#include "support/temp_folder.h"

namespace skerrow {
namespace {

using testing::FileBytes;
using testing::TempFolder;

TEST(Paths, JoinAndSplit) {
  const struct {
    const char* folder;
    const char* name;
    const char* path;
  } rows[] = {{"/a/b", "c", "/a/b/c"},
              {"/a/b/", "/c", "/a/b/c"},
              {"/a/b  ", "c.way   ", "/a/b/c.way"},
              {"C:\\x\\", "\\y\\z", "C:/x/y/z"},
              {"/", "c", "/c"},
              {"", "c", "c"}};
  for (const auto& row : rows) EXPECT_EQ(JoinPath(row.folder, row.name), row.path);
  EXPECT_EQ(FileNameOf("C:\\x\\y.cht"), "y.cht");
  EXPECT_EQ(FileNameOf("y.cht"), "y.cht");
  EXPECT_EQ(FolderOf("/x/y/z.cht"), "/x/y");
  EXPECT_EQ(FolderOf("z.cht"), "");
  EXPECT_EQ(FolderOf("/z.cht"), "/");
}

TEST(Files, RefusalsNameTheFile) {
  const TempFolder folder;
  const auto missing = ReadFile(folder.File("none"));
  ASSERT_FALSE(missing);
  EXPECT_EQ(missing.error().Text(), folder.File("none") + ": the file does not exist");
  EXPECT_FALSE(ReadFile(folder.path()));
  EXPECT_FALSE(FileReadable(folder.path()));
  const std::string ten = folder.Write("ten", "0123456789");
  EXPECT_TRUE(ReadFile(ten, 10));
  EXPECT_FALSE(ReadFile(ten, 9));
  EXPECT_EQ(*ReadFile(folder.Write("empty", "")), "");
}

TEST(Files, ReplaceKeepsLinksAndPermissions) {
  namespace fs = std::filesystem;
  const TempFolder folder;
  const std::string real = folder.Write("real", "old");
  fs::permissions(real, fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink(real, folder.File("link"));
  ASSERT_TRUE(ReplaceFile(folder.File("link"), "new"));
  EXPECT_TRUE(fs::is_symlink(folder.File("link")));
  EXPECT_EQ(FileBytes(real), "new");
  EXPECT_EQ(fs::status(real).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(folder.EntryCount(), 2U);
}

TEST(Files, FailedReplacementLeavesNothingBehind) {
  const TempFolder folder;
  EXPECT_FALSE(ReplaceFile(folder.File("no/such/folder"), "x"));
  std::filesystem::create_directory(folder.File("taken"));
  EXPECT_FALSE(ReplaceFile(folder.File("taken"), "x"));
  EXPECT_EQ(folder.EntryCount(), 1U);
}

TEST(Files, ReadOnlyFolderKeepsItsFile) {
  const TempFolder folder;
  const std::string path = folder.Write("kept", "old");
  std::filesystem::permissions(folder.path(), std::filesystem::perms(0555));
  // The superuser may write everywhere, so it becomes nobody for the moment.
  const bool superuser = geteuid() == 0;
  if (superuser) {
    ASSERT_EQ(seteuid(65534), 0);
  }
  const Status replaced = ReplaceFile(path, "new");
  const Status appended = AppendToFile(path, "new");
  if (superuser) {
    ASSERT_EQ(seteuid(0), 0);
  }
  EXPECT_FALSE(replaced);
  EXPECT_EQ(appended.ok(), !superuser);  // the file itself is its owner's to write
  EXPECT_EQ(FileBytes(path), superuser ? "old" : "oldnew");
  EXPECT_EQ(folder.EntryCount(), 1U);
}

// A disk that fills up while the file is written: stood in for by the process's file size limit.
TEST(Files, FullDiskKeepsTheOldFile) {
  const TempFolder folder;
  const std::string path = folder.Write("kept", "old");
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
  auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit tight = before;
  tight.rlim_cur = 50000;
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &tight), 0);
  const Status replaced = ReplaceFile(path, std::string(100000, 'x'));
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  ASSERT_FALSE(replaced);
  EXPECT_EQ(replaced.error().path, path);
  EXPECT_EQ(FileBytes(path), "old");
  EXPECT_EQ(folder.EntryCount(), 1U);
}

TEST(Files, TwoWritersNeverMixTheirContent) {
  const TempFolder folder;
  const std::string path = folder.Write("shared", std::string(40000, 'a'));
  const auto write = [&](char letter) {
    for (int i = 0; i < 300; ++i) {
      EXPECT_TRUE(ReplaceFile(path, std::string(40000, letter)));
    }
  };
  std::thread first(write, 'a');
  std::thread second(write, 'b');
  for (int i = 0; i < 300; ++i) {
    const std::string seen = FileBytes(path);
    ASSERT_EQ(seen.size(), 40000U);
    ASSERT_EQ(seen, std::string(40000, seen.front()));
  }
  first.join();
  second.join();
  EXPECT_EQ(folder.EntryCount(), 1U);
}

TEST(Files, AppendAndDelete) {
  const TempFolder folder;
  EXPECT_TRUE(AppendToFile(folder.File("log"), "one"));
  EXPECT_TRUE(AppendToFile(folder.File("log"), "two"));
  EXPECT_EQ(FileBytes(folder.File("log")), "onetwo");
  EXPECT_FALSE(AppendToFile(folder.path(), "x"));
  EXPECT_TRUE(DeleteFile(folder.File("log")));
  EXPECT_TRUE(DeleteFile(folder.File("log")));  // gone already
  EXPECT_EQ(folder.EntryCount(), 0U);
}

}  // namespace
}  // namespace skerrow
