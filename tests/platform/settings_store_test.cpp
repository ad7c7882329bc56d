#include "platform/settings_store.h"

#include <QFile>
#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

#include "support/temp_folder.h"

namespace skerrow {
namespace {

class SettingsStoreTest : public ::testing::Test {
 protected:
  std::string path() const { return folder_.filePath("helm.ini").toStdString(); }
  QTemporaryDir folder_;
};

TEST_F(SettingsStoreTest, EveryTextComesBackFromTheFile) {
  const std::vector<std::string> texts = {
      "",         "plain",       "  blanks  ", "a,b;c=d", "\"quoted\"", "@Invalid()",
      "C:\\a\\b", "50°30.25N é", "line\nline", "%20",     "0x10",       "/srv/Charts/9999-1.cht"};
  {
    const auto store = OpenSettingsStore(path());
    for (std::size_t i = 0; i < texts.size(); ++i) {
      store->Set("Some texts", std::to_string(i), texts[i]);
    }
    ASSERT_TRUE(store->Flush().ok());
  }
  const auto store = OpenSettingsStore(path());
  for (std::size_t i = 0; i < texts.size(); ++i) {
    EXPECT_EQ(store->Get("Some texts", std::to_string(i), "none"), texts[i]);
  }
  EXPECT_EQ(store->Get("Some texts", "99", "none"), "none");
  EXPECT_EQ(store->Get("Other", "0"), "");
}

TEST_F(SettingsStoreTest, NumbersRemovalAndRecentFiles) {
  const auto store = OpenSettingsStore(path());
  store->SetInt("View", "Left", -120);
  store->Set("View", "Top", "12x");
  EXPECT_EQ(store->GetInt("View", "Left", 5), -120);
  EXPECT_EQ(store->GetInt("View", "Top", 5), 5);
  EXPECT_EQ(store->GetInt("View", "Width", -1), -1);

  WriteRecentFiles(*store, {"a.cht", "b.cht", "c,d.cht"});
  EXPECT_EQ(ReadRecentFiles(*store), (std::vector<std::string>{"a.cht", "b.cht", "c,d.cht"}));
  EXPECT_EQ(store->Get(kRecentFilesSection, "1"), "b.cht");
  WriteRecentFiles(*store, {"z.cht"});
  EXPECT_EQ(ReadRecentFiles(*store), std::vector<std::string>{"z.cht"});
  store->Set(kRecentFilesSection, "2", "behind a gap");
  EXPECT_EQ(ReadRecentFiles(*store).size(), 1U);
  for (int i = 0; i < 9; ++i) store->Set(kRecentFilesSection, std::to_string(i), "x");
  EXPECT_EQ(ReadRecentFiles(*store).size(), 6U);

  store->Remove("View", "Left");
  EXPECT_EQ(store->GetInt("View", "Left", 5), 5);
  store->Remove("View", "");
  EXPECT_EQ(store->Get("View", "Top", "gone"), "gone");
}

TEST_F(SettingsStoreTest, DamagedOrHandWrittenFilesAreNoTrouble) {
  std::ofstream(path()) << "[Window]\nLeft=a, b\n[[[ \x01\x02 \nno equals sign\nTop=7\n";
  const auto store = OpenSettingsStore(path());
  EXPECT_EQ(store->Get("Window", "Left"), "a, b");
  store->Set("Window", "Left", "3");
  EXPECT_EQ(store->GetInt("Window", "Left", 0), 3);
}

// What is no file, and one beyond all bounds, is not waited for, not read and not written over.
TEST_F(SettingsStoreTest, WhatIsNoSettingsFileIsLeftAlone) {
  alarm(20);
  ASSERT_EQ(mkfifo(path().c_str(), 0600), 0);
  const std::string large = folder_.filePath("large.ini").toStdString();
  std::ofstream(large) << "[a]\nb=c\n";
  std::filesystem::resize_file(large, std::uintmax_t{2} * 1024 * 1024 * 1024);
  const std::pair<std::string, std::string> rows[] = {{path(), "this is not a file"},
                                                      {large, "the file is too large"}};
  for (const auto& [file, reason] : rows) {
    const auto store = OpenSettingsStore(file);
    EXPECT_EQ(store->Get("a", "b", "none"), "none");
    store->Set("a", "b", "kept");
    EXPECT_EQ(store->Get("a", "b"), "kept");
    const Status status = store->Flush();
    ASSERT_FALSE(status.ok());
    EXPECT_EQ(status.error().Text(), file + ": " + reason);
  }
  EXPECT_TRUE(std::filesystem::is_fifo(path()));
  EXPECT_EQ(std::filesystem::file_size(large), std::uintmax_t{2} * 1024 * 1024 * 1024);
  alarm(0);
}

TEST_F(SettingsStoreTest, FlushTellsAFullDisk) {
  std::ofstream(path()) << "[a]\nb=c\n";
  const auto store = OpenSettingsStore(path());
  store->Set("a", "b", "d");
  testing::OnFullDisk(4, [&] {
    const Status status = store->Flush();
    ASSERT_FALSE(status.ok());
    EXPECT_EQ(status.error().Text(), path() + ": File too large");
  });
  EXPECT_EQ(testing::FileBytes(path()), "[a]\nb=c\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.path().toStdString()), {}),
            1);
}

}  // namespace
}  // namespace skerrow
