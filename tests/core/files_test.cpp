#include "core/files.h"

#include <csignal>
#include <ctime>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "core/system_file.h"
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
  const std::string ten = folder.Write("ten", "0123456789");
  EXPECT_TRUE(ReadFile(ten, 10));
  EXPECT_FALSE(ReadFile(ten, 9));
  EXPECT_EQ(*ReadFile(folder.Write("empty", "")), "");
}

// Nothing but a file is read, appended to or replaced, and nothing waits for the other end of a
// pipe.
TEST(Files, PipesDevicesAndFoldersAreNoFiles) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.File("folder"));
  ASSERT_EQ(mkfifo(folder.File("pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink(folder.File("pipe"), folder.File("link"));
  alarm(20);  // a reader that waits ends the test
  for (const std::string& path : {folder.File("folder"), folder.File("pipe"), folder.File("link"),
                                  std::string("/dev/null")}) {
    const auto read = ReadFile(path);
    ASSERT_FALSE(read) << path;
    EXPECT_EQ(read.error().Text(), path + ": this is not a file");
    EXPECT_FALSE(FileReadable(path));
    EXPECT_FALSE(AppendToFile(path, "x")) << path;
    const Status replaced = ReplaceFile(path, "x");
    ASSERT_FALSE(replaced) << path;
    EXPECT_EQ(replaced.error().Text(), path + ": this is not a file");
  }
  alarm(0);
  EXPECT_EQ(folder.EntryCount(), 3U);
}

// Two gigabytes that are not there: refused by their length, before a byte is read.
TEST(Files, ALengthBeyondTheBoundIsRefusedUnread) {
  const TempFolder folder;
  const std::string path = folder.Write("sparse", "x");
  std::filesystem::resize_file(path, std::uintmax_t{2} * 1024 * 1024 * 1024);
  const std::clock_t start = std::clock();
  const auto read = ReadFile(path);
  ASSERT_FALSE(read);
  EXPECT_EQ(read.error().reason, "the file is too large");
  EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC / 10);
}

TEST(Files, ReplaceKeepsLinksAndRights) {
  namespace fs = std::filesystem;
  const TempFolder folder;
  const std::string real = folder.Write("real", "old");
  fs::create_symlink(real, folder.File("link"));
  const struct {
    unsigned before;
    unsigned after;
  } rows[] = {{0600, 0600}, {0640, 0640}, {0444, 0444}, {0000, 0600}, {0240, 0640}};
  for (const auto& row : rows) {
    fs::permissions(real, fs::perms(row.before));
    ASSERT_TRUE(ReplaceFile(folder.File("link"), "new"));
    EXPECT_TRUE(fs::is_symlink(folder.File("link")));
    EXPECT_EQ(FileBytes(real), "new");
    EXPECT_EQ(fs::status(real).permissions(), fs::perms(row.after)) << std::oct << row.before;
  }
  EXPECT_EQ(folder.EntryCount(), 2U);
}

// A writer that is killed at the worst moment leaves a new file, which the next start clears; that
// of a writer at work stays.
TEST(Files, LeftoversOfAKilledWriterAreCleared) {
  const TempFolder folder;
  const std::string path = folder.Write("kept", "old");
  int ready[2] = {};
  ASSERT_EQ(pipe(ready), 0);
  const pid_t writer = fork();
  if (writer == 0) {
    const auto file = SystemFile::CreateNew(path + ".4711-0.new");
    (void)!write(ready[1], file ? "y" : "n", 1);
    pause();
    _exit(0);
  }
  char answer = 0;
  ASSERT_EQ(read(ready[0], &answer, 1), 1);
  EXPECT_EQ(answer, 'y');
  EXPECT_EQ(ClearLeftovers(folder.path()), 0);
  ASSERT_EQ(kill(writer, SIGKILL), 0);
  ASSERT_EQ(waitpid(writer, nullptr, 0), writer);
  // Names that are not ours are the user's.
  for (const char* name : {"a.new", "a.1-.new", "a.-1.new", "a.1-2.news", "a1-2.new", ".1-2.new"}) {
    folder.Write(name, "x");
  }
  std::filesystem::create_directory(folder.File("b.1-2.new"));
  std::filesystem::create_symlink(path, folder.File("c.1-2.new"));
  EXPECT_EQ(ClearLeftovers(folder.path()), 1);
  EXPECT_EQ(folder.EntryCount(), 9U);
  EXPECT_EQ(FileBytes(path), "old");
  EXPECT_EQ(ClearLeftovers(folder.File("no such folder")), 0);
}

TEST(Files, FailedReplacementLeavesNothingBehind) {
  const TempFolder folder;
  const Status replaced = ReplaceFile(folder.File("no/such/folder"), "x");
  ASSERT_FALSE(replaced);
  EXPECT_EQ(replaced.error().Text(), folder.File("no/such/folder") + ": No such file or directory");
  EXPECT_EQ(folder.EntryCount(), 0U);
}

TEST(Files, ReadOnlyFolderKeepsItsFile) {
  const TempFolder folder;
  const std::string path = folder.Write("kept", "old");
  std::filesystem::permissions(folder.path(), std::filesystem::perms(0555));
  testing::AsPlainUser([&] {
    const Status replaced = ReplaceFile(path, "new");
    ASSERT_FALSE(replaced);
    EXPECT_EQ(replaced.error().Text(), path + ": Permission denied");
  });
  EXPECT_EQ(FileBytes(path), "old");
  EXPECT_EQ(folder.EntryCount(), 1U);
}

TEST(Files, FullDiskKeepsTheOldFile) {
  const TempFolder folder;
  const std::string path = folder.Write("kept", "old");
  testing::OnFullDisk(50000, [&] {
    const Status replaced = ReplaceFile(path, std::string(100000, 'x'));
    ASSERT_FALSE(replaced);
    EXPECT_EQ(replaced.error().Text(), path + ": File too large");
  });
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
  EXPECT_TRUE(DeleteFile(folder.File("log")));
  EXPECT_TRUE(DeleteFile(folder.File("log")));  // gone already
  EXPECT_EQ(folder.EntryCount(), 0U);
}

}  // namespace
}  // namespace skerrow
